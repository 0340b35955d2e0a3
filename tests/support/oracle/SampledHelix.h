#ifndef LUMAGRID_TESTS_SUPPORT_ORACLE_SAMPLEDHELIX_H
#define LUMAGRID_TESTS_SUPPORT_ORACLE_SAMPLEDHELIX_H

#include <cmath>
#include <vector>

#include "shapes/geometry/path_point.h"

// A helix sampled as the tubing library does: one step before the start,
// stepping by accumulation.
inline std::vector<lumagrid::detail::PathPoint> SampledHelix(double r0, double dr, double z0,
                                                             double dz, double start, double sweep,
                                                             int sides) {
  constexpr double kPi = 3.14159265358979323846;
  const int count = static_cast<int>(std::fabs(sweep) * sides / 360.0) + 4;
  const double step = sweep * kPi / 180.0 / (count - 3);
  double angle = start * kPi / 180.0 - step;
  double radius = r0 - dr * step / (2.0 * kPi);
  double height = z0 - dz * step / (2.0 * kPi);
  std::vector<lumagrid::detail::PathPoint> points;
  for (int i = 0; i < count; ++i) {
    points.push_back({radius * std::cos(angle), radius * std::sin(angle), height});
    angle += step;
    radius += dr * step / (2.0 * kPi);
    height += dz * step / (2.0 * kPi);
  }
  return points;
}

#endif
