#ifndef LUMAGRID_SRC_SHAPES_TUBE_HELIX_POINTS_H
#define LUMAGRID_SRC_SHAPES_TUBE_HELIX_POINTS_H

#include <cstddef>
#include <vector>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// A helix as GLE samples one: angles in degrees, radius and height changes
// per full turn.
struct Helix {
  double startRadius;
  double drdTheta;
  double startZ;
  double dzdTheta;
  double startTheta;
  double sweepTheta;
};

// A round tube of the given radius along a helix, as GLE's helicoid and
// toroid take it.
struct HelixTube {
  double radius;
  Helix helix;
};

// One sample of a helix: angle in radians, distance from the axis, height.
struct HelixSample {
  double angle;
  double radius;
  double height;
};

// Samples for a tube of `sides` sides: floor(|sweep| * (sides / 360)) + 4.
// 0 when that exceeds kMaxPathPoints or is not a number.
std::size_t HelixPointCount(double sweepTheta, int sides);

// HelixPointCount samples, one step apart; the first lies one step before
// the start and the last one step past the end, as direction points.
std::vector<HelixSample> HelixSamples(const Helix& helix, int sides);

// The samples as points (radius cos angle, radius sin angle, height).
std::vector<PathPoint> HelixPoints(const Helix& helix, int sides);

}  // namespace lumagrid::detail

#endif
