#include "shapes/path/tension_path.h"

#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "math/angles.h"
#include "shapes/path/bezier.h"
#include "shapes/tube/helix_points.h"

namespace lumagrid::detail {

namespace {

PathPoint Turned(const mat4x4& m, double x, double y, double z) {
  vec3d v(x, y, z);
  m.transform(v);
  return {v.x(), v.y(), v.z()};
}

}  // namespace

std::vector<PathPoint> TensionBodyPath(double r, double R, double L, int n, double twist,
                                       int sides) {
  const double loop = 2.0 * (R - r);
  const double turns = n + twist;
  const double body = L - loop;
  const double pitch = body / turns;
  const std::vector<PathPoint> helix =
      HelixPoints(Helix{R, 0.0, R - r, pitch, 0.0, turns * 360.0}, sides);
  if (helix.empty()) {
    return {};
  }
  const std::size_t c = helix.size();
  std::vector<PathPoint> path(c + 19, PathPoint{0.0, 0.0, 0.0});
  path[0] = {R, 0.0, -1.0};
  std::copy(helix.begin(), helix.end(), path.begin() + 10);

  const double alpha = std::atan2(((body - 2.0 * r) / turns) * 0.5, 2.0 * (r + R));
  const double lean = std::cos(alpha) * r / 2.0;
  const double rise = std::sin(alpha) * r / 2.0;

  // The lead-in replaces the helix's first three points.
  const std::array<PathPoint, kTransitionPoints> in =
      BezierTransition({R, 0.0, 0.0}, {R, 0.0, R - r}, {R, lean, (R - r) + rise}, path[12]);
  std::copy(in.begin(), in.end(), path.begin() + 1);

  // The lead-out replaces its last three, read after the lead-in was written.
  const std::size_t k = c + 7;
  mat4x4 m;
  m.loadRotateZ(twist * 360.0 * kDegreeF);
  const std::array<PathPoint, kTransitionPoints> out =
      BezierTransition(path[k], Turned(m, R, lean, (R - r) + body - rise),
                       Turned(m, R, 0.0, (R - r) + body), Turned(m, R, 0.0, body + loop));
  std::copy(out.begin(), out.end(), path.begin() + static_cast<std::ptrdiff_t>(k));
  return path;
}

}  // namespace lumagrid::detail
