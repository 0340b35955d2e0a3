#ifndef LUMAGRID_CGLAXIS_H
#define LUMAGRID_CGLAXIS_H

#include <lumagrid/CGLGroup.h>
#include <lumagrid/lumagrid_export.h>

// A coordinate triad: arrows along x, y and z with one, two and three heads,
// and a small cube at the origin. Drawing, colouring and selecting are the
// group's; like any group, a triad's Draw pops the matrix once more than it
// pushes.
class LUMAGRID_API CGLAxis : public CGLGroup {
 public:
  // Length 1, radius 0.05, not lite.
  CGLAxis();
  CGLAxis(double length, double radius, bool lite);
  ~CGLAxis() override;

 protected:
  // Builds and adds the four children: x, y and z arrows, then the cube.
  void Init();

  double m_dLength;
  double m_dRadius;
  bool m_bLite;
};

#endif
