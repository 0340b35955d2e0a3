#ifndef LUMAGRID_SRC_SHAPES_PATH_BEZIER_H
#define LUMAGRID_SRC_SHAPES_PATH_BEZIER_H

#include <array>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// Points of a transition curve between the spring's body and a hook.
constexpr int kTransitionPoints = 12;

// The cubic Bezier curve of control points p0 .. p3 at t.
PathPoint BezierPoint(const PathPoint& p0, const PathPoint& p1, const PathPoint& p2,
                      const PathPoint& p3, double t);

// t = 0, 0.1, ..., 1.1, stepped by the single-precision tenth; the last
// one lies a little beyond the curve's end.
std::array<double, kTransitionPoints> TransitionParameters();

// The curve at each of the transition parameters.
std::array<PathPoint, kTransitionPoints> BezierTransition(const PathPoint& p0, const PathPoint& p1,
                                                          const PathPoint& p2, const PathPoint& p3);

}  // namespace lumagrid::detail

#endif
