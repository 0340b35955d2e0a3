#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_TORUS_GEOMETRY_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_TORUS_GEOMETRY_H

#include <cmath>

#include "shapes/tube/helix_points.h"

namespace lumagrid::detail {

// GLE's join style for the ring: angled joins, end caps, normals smoothed across edges.
constexpr int kTorusJoinStyle = 0x212;

// A torus's ring: a tube of the inner radius around a flat circle of the
// outer radius, from the start angle through the sweep, in degrees.
HelixTube BuildTorusRing(double innerRadius, double outerRadius, double startAngle,
                         double sweepAngle);

// Whether GLE can be given the ring: angles that are not finite, or a sweep too long to
// sample, would have it size its buffers without a bound. Within one turn the samples
// number at most the sides + 4, so only longer sweeps ask `sides()` for them.
template <class Sides>
bool TorusSweepable(double startAngle, double sweepAngle, Sides&& sides) {
  if (!std::isfinite(startAngle) || !std::isfinite(sweepAngle)) {
    return false;
  }
  return std::fabs(sweepAngle) <= 360.0 || HelixPointCount(sweepAngle, sides()) != 0;
}

}  // namespace lumagrid::detail

#endif
