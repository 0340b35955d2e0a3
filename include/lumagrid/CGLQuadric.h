#ifndef LUMAGRID_CGLQUADRIC_H
#define LUMAGRID_CGLQUADRIC_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/lumagrid_export.h>

/// Base of the shapes tessellated by GLU quadrics: CGLSphere, CGLCylinder (and CGLCone) and
/// CGLArrow.
///
/// Its one job is the life of one GLU quadric object per constructed shape, held in the base
/// member `m_pQuadric`. It draws nothing itself: it keeps CGLObject's DisplayListMake, so a bare
/// CGLQuadric builds no list. A host's own GLU shape derives from it, overrides DisplayListMake
/// and passes `m_pQuadric`, `m_nSlices` and `m_nStacks` to GLU.
///
/// Copies share the quadric handle: keep quadric shapes on the heap with one owner each (see the
/// copy operations).
class LUMAGRID_API CGLQuadric : public CGLObject {
 public:
  /// Creates the shape's quadric with `gluNewQuadric()`, keeping GLU's defaults (filled, smooth
  /// normals, outside orientation, no texture coordinates).
  ///
  /// A null handle (GLU out of memory) is stored like any other. The tessellation counts keep the
  /// class-wide defaults that CGLObject() gave them.
  CGLQuadric();
  /// Copies the base, quadric handle included: both objects then hold the same handle, and
  /// destroying both releases it twice.
  CGLQuadric(const CGLQuadric& o);
  /// Copies the base, quadric handle included. The target's own handle is overwritten without
  /// being released.
  /// @return `*this`.
  CGLQuadric& operator=(const CGLQuadric& o);
  /// Releases the handle the object holds with `gluDeleteQuadric`, shared or not, then deletes the
  /// display list (CGLObject's destructor).
  ~CGLQuadric() override;
};

#endif
