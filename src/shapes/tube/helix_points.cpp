#include "shapes/tube/helix_points.h"

#include <cmath>

#include "math/angles.h"

namespace lumagrid::detail {

std::size_t HelixPointCount(double sweepTheta, int sides) {
  const double whole = std::fabs(sweepTheta) * (static_cast<double>(sides) / 360.0);
  // Written to be false for NaN as well.
  if (!(whole > -1.0 && whole < static_cast<double>(kMaxPathPoints - 4))) {
    return 0;
  }
  // Truncation toward zero: a negative side count gives the bare four.
  return static_cast<std::size_t>(whole < 0.0 ? 0.0 : whole) + 4;
}

std::vector<HelixSample> HelixSamples(const Helix& helix, int sides) {
  const std::size_t count = HelixPointCount(helix.sweepTheta, sides);
  std::vector<HelixSample> samples;
  if (count == 0) {
    return samples;
  }
  samples.reserve(count);
  const double step = helix.sweepTheta * kPi / 180.0 / static_cast<double>(count - 3);
  const double radiusStep = helix.drdTheta * step / (2.0 * kPi);
  const double heightStep = helix.dzdTheta * step / (2.0 * kPi);
  // Accumulated, as the tubing library steps its own spirals.
  HelixSample s{helix.startTheta * kPi / 180.0 - step, helix.startRadius - radiusStep,
                helix.startZ - heightStep};
  for (std::size_t i = 0; i < count; ++i) {
    samples.push_back(s);
    s.angle += step;
    s.radius += radiusStep;
    s.height += heightStep;
  }
  return samples;
}

std::vector<PathPoint> HelixPoints(const Helix& helix, int sides) {
  std::vector<PathPoint> points;
  const std::vector<HelixSample> samples = HelixSamples(helix, sides);
  points.reserve(samples.size());
  for (const HelixSample& s : samples) {
    points.push_back({s.radius * std::cos(s.angle), s.radius * std::sin(s.angle), s.height});
  }
  return points;
}

}  // namespace lumagrid::detail
