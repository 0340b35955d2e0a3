#ifndef LUMAGRID_CGLCYLINDER_H
#define LUMAGRID_CGLCYLINDER_H

#include <lumagrid/CGLQuadric.h>
#include <lumagrid/lumagrid_export.h>

// A cylinder or truncated cone standing on the local x-y plane and rising
// along +z. When closed, each end whose radius is above zero gets a disk.
class LUMAGRID_API CGLCylinder : public CGLQuadric {
 public:
  CGLCylinder();
  CGLCylinder(double radius, double height, bool closed);
  CGLCylinder(const CGLCylinder& o);
  CGLCylinder& operator=(const CGLCylinder& o);
  ~CGLCylinder() override;

  long DisplayListMake() override;

 protected:
  double m_dBaseRadius;
  double m_dTopRadius;
  double m_dHeight;
  bool m_bClosed;
};

#endif
