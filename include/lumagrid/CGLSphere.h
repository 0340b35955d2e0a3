#ifndef LUMAGRID_CGLSPHERE_H
#define LUMAGRID_CGLSPHERE_H

#include <lumagrid/CGLQuadric.h>
#include <lumagrid/lumagrid_export.h>

/// A sphere centred on the local origin, drawn with `gluSphere`.
///
/// A host constructs it on the heap, places and colours it through CGLObject, and hands it to a
/// CGLScene or CGLGroup. It tessellates with `m_nSlices` x `m_nStacks`, taken at construction
/// from CGLObject::s_nSlices4New and CGLObject::s_nStacks4New. The radius is fixed at
/// construction (there is no setter), and immediate-mode drawing (DrawDirect) draws nothing.
class LUMAGRID_API CGLSphere : public CGLQuadric {
 public:
  /// A sphere of radius 1.0.
  CGLSphere();
  /// A sphere of the given radius, in model units; not validated (GLU receives it as it is).
  CGLSphere(double radius);
  /// Copies the base (sharing the display list and the quadric handle, see CGLQuadric) and the
  /// radius.
  CGLSphere(const CGLSphere& o);
  /// Copies the base (see CGLQuadric::operator=) and the radius.
  /// @return `*this`.
  CGLSphere& operator=(const CGLSphere& o);
  /// Does nothing beyond ~CGLQuadric().
  ~CGLSphere() override;

  /// The radius given at construction.
  double Radius() const;

  /// Compiles `gluSphere(radius, slices, stacks)` into the display list when the sphere is
  /// modified.
  ///
  /// Sets no orientation: the sphere's quadric is never turned inside.
  /// @return 1 when the list was current; 0 after a rebuild, or when no list name could be had
  /// (the sphere then stays modified and the next Draw retries).
  long DisplayListMake() override;

 protected:
  /// Sphere radius, in model units.
  double m_dRadius;
};

#endif
