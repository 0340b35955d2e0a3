#ifndef LUMAGRID_CGLCONE_H
#define LUMAGRID_CGLCONE_H

#include <lumagrid/CGLCylinder.h>
#include <lumagrid/lumagrid_export.h>

// A cylinder whose top radius defaults to 0: a cone with its apex at
// z = height. The default cone is the default cylinder.
class LUMAGRID_API CGLCone : public CGLCylinder {
 public:
  CGLCone();
  CGLCone(double radius, double height, bool closed);
  CGLCone(double baseRadius, double topRadius, double height, bool closed);
  CGLCone(const CGLCone& o);
  CGLCone& operator=(const CGLCone& o);
  ~CGLCone() override;
};

#endif
