#ifndef LUMAGRID_CGLCYLINDER_H
#define LUMAGRID_CGLCYLINDER_H

#include <lumagrid/CGLQuadric.h>
#include <lumagrid/lumagrid_export.h>

/// A cylinder or truncated cone standing on the local x-y plane and rising along +z, drawn with
/// GLU quadrics.
///
/// The side runs from z = 0 (base radius) to z = height (top radius), with outward normals. When
/// closed, each end whose radius is above zero gets a flat disk: the base disk faces -z, the top
/// disk +z; a zero (or NaN) radius gets none. Tessellation is `m_nSlices` x `m_nStacks`, taken
/// at construction from CGLObject::s_nSlices4New and CGLObject::s_nStacks4New; disks have one
/// loop. The geometry is fixed at construction (there are no setters), and immediate-mode
/// drawing (DrawDirect) draws nothing. CGLCone is the same shape with other constructors.
class LUMAGRID_API CGLCylinder : public CGLQuadric {
 public:
  /// A closed cylinder of radius 1.0 and height 1.0.
  CGLCylinder();
  /// A cylinder whose base and top radii are both `radius`.
  ///
  /// Nothing is validated: negative and zero values reach GLU as they are.
  /// @param radius radius of both ends, in model units.
  /// @param height length along +z.
  /// @param closed whether the ends get disks.
  CGLCylinder(double radius, double height, bool closed);
  /// Copies the base (sharing the display list and the quadric handle, see CGLQuadric) and the
  /// four geometry members.
  CGLCylinder(const CGLCylinder& o);
  /// Copies the base (see CGLQuadric::operator=) and the four geometry members.
  /// @return `*this`.
  CGLCylinder& operator=(const CGLCylinder& o);
  /// Does nothing beyond ~CGLQuadric().
  ~CGLCylinder() override;

  /// Compiles the side (`gluCylinder`), then the base disk, then the top disk (translated to
  /// z = height inside a push/pop pair), into the display list when the shape is modified.
  ///
  /// It sets the quadric's orientation as it goes: a closed shape with a base disk but no top
  /// disk leaves the quadric turned inside, and the next build turns it outside first.
  /// @return 1 when the list was current; 0 after a rebuild, or when no list name could be had
  /// (the shape then stays modified and the next Draw retries).
  long DisplayListMake() override;

 protected:
  /// Radius of the end at z = 0.
  double m_dBaseRadius;
  /// Radius of the end at z = m_dHeight; 0 for a pointed cone.
  double m_dTopRadius;
  /// Length along +z.
  double m_dHeight;
  /// Draw a disk over each end whose radius is greater than 0.
  bool m_bClosed;
};

#endif
