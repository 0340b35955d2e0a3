#ifndef LUMAGRID_CGLSPHERE_H
#define LUMAGRID_CGLSPHERE_H

#include <lumagrid/CGLQuadric.h>
#include <lumagrid/lumagrid_export.h>

// A sphere centred on the local origin.
class LUMAGRID_API CGLSphere : public CGLQuadric {
 public:
  CGLSphere();
  CGLSphere(double radius);
  CGLSphere(const CGLSphere& o);
  CGLSphere& operator=(const CGLSphere& o);
  ~CGLSphere() override;

  double Radius() const;

  long DisplayListMake() override;

 protected:
  double m_dRadius;
};

#endif
