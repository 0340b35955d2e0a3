#ifndef LUMAGRID_CGLTORUS_H
#define LUMAGRID_CGLTORUS_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/lumagrid_export.h>

// A ring, or an arc of one, in the local x-y plane about the z axis, swept
// by GLE. m_dInnerRadius is the tube's own radius and m_dOuterRadius that of
// its centre line; angles are in degrees. Building the list leaves GLE's
// join style at angled joins with caps and edge normals.
class LUMAGRID_API CGLTorus : public CGLObject {
 public:
  CGLTorus();
  CGLTorus(double innerRadius, double outerRadius, double startAngle, double sweepAngle);
  CGLTorus(const CGLTorus& o);
  CGLTorus& operator=(const CGLTorus& o);
  ~CGLTorus() override;

  double innerRadius();
  double outerRadius();
  double startAngle();
  double sweepAngle();

  long DisplayListMake() override;

 protected:
  double m_dInnerRadius;
  double m_dOuterRadius;
  double m_dStartAngle;
  double m_dSweepAngle;
};

#endif
