#include "shapes/path/spring_schematic.h"

#include <cmath>
#include <cstdint>

#include "math/angles.h"

namespace lumagrid::detail {

namespace {

bool Fits(std::int64_t strokes) {
  return strokes <= static_cast<std::int64_t>(kMaxPathPoints / 2 - 4);
}

}  // namespace

std::vector<PathPoint> CompressionZigzag(double R, double L, int n, bool closed) {
  std::vector<PathPoint> points;
  if (!Fits(n)) {
    return points;
  }
  const double p = L / n;
  if (closed) {
    points.push_back({-R, 0.0, 0.0});
    points.push_back({R, 0.0, 0.0});
  }
  for (int i = 0; i < n; ++i) {
    points.push_back({-R, 0.0, i * p});
    points.push_back({R, 0.0, i * p + p / 2.0});
  }
  points.push_back({-R, 0.0, n * p});
  if (closed) {
    points.push_back({-R, 0.0, L});
    points.push_back({R, 0.0, L});
  }
  return points;
}

std::vector<PathPoint> TensionZigzag(double R, double L, int n, double twist) {
  std::vector<PathPoint> points;
  if (!Fits(std::int64_t{n} + 1)) {
    return points;
  }
  const double h = R;
  const double p = (L - 2.0 * R) / (n + twist);
  points.push_back({R, 0.0, 0.0});
  points.push_back({R, 0.0, h - p / 2.0});
  for (int i = 0; i <= n; ++i) {
    points.push_back({-R, 0.0, i * p + h});
    points.push_back({R, 0.0, i * p + h + p / 2.0});
  }
  double x = R;
  // Only an exact half turn ends on the far side; other twists do not.
  if (twist == 0.5) {
    points.push_back({-R, 0.0, (std::int64_t{n} + 1) * p + h});
    x = -R;
  }
  points.push_back({x, 0.0, L});
  return points;
}

std::vector<PathPoint> HookArc(double R, int from, int to) {
  std::vector<PathPoint> points;
  for (int a = from; a <= to; a += 10) {
    points.push_back({R * std::cos(a * kDegreeF), R * std::sin(a * kDegreeF), 0.0});
  }
  return points;
}

}  // namespace lumagrid::detail
