#include "shapes/path/bezier.h"

namespace lumagrid::detail {

namespace {

// 0.1f and 1.1f, held as doubles.
constexpr double kTenth = 0.10000000149011612;
constexpr double kLast = 1.100000023841858;

double Blend(double a, double b, double c, double d, double t) {
  const double s = 1.0 - t;
  return s * s * s * a + 3.0 * t * s * s * b + 3.0 * t * t * s * c + t * t * t * d;
}

}  // namespace

PathPoint BezierPoint(const PathPoint& p0, const PathPoint& p1, const PathPoint& p2,
                      const PathPoint& p3, double t) {
  return {Blend(p0.x, p1.x, p2.x, p3.x, t), Blend(p0.y, p1.y, p2.y, p3.y, t),
          Blend(p0.z, p1.z, p2.z, p3.z, t)};
}

std::array<double, kTransitionPoints> TransitionParameters() {
  std::array<double, kTransitionPoints> ts{};
  // Accumulated in steps of 0.1f: the rounding decides that twelve values,
  // up to about 1.1000000164, pass the test against 1.1f.
  int n = 0;
  for (double t = 0.0; t <= kLast && n < kTransitionPoints; t += kTenth) {
    ts[static_cast<std::size_t>(n++)] = t;
  }
  return ts;
}

std::array<PathPoint, kTransitionPoints> BezierTransition(const PathPoint& p0, const PathPoint& p1,
                                                          const PathPoint& p2,
                                                          const PathPoint& p3) {
  std::array<PathPoint, kTransitionPoints> out{};
  const std::array<double, kTransitionPoints> ts = TransitionParameters();
  for (std::size_t i = 0; i < out.size(); ++i) {
    out[i] = BezierPoint(p0, p1, p2, p3, ts[i]);
  }
  return out;
}

}  // namespace lumagrid::detail
