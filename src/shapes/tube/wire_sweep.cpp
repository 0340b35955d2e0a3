#include "shapes/tube/wire_sweep.h"

#include <cmath>

#include "math/angles.h"
#include "shapes/geometry/vector_algebra.h"
#include "shapes/tube/tube_frames.h"

namespace lumagrid::detail {

namespace {

bool LinesFit(std::size_t rings, int sides) {
  if (sides < 1 || rings < 2) {
    return false;
  }
  return (rings - 1) <= kMaxWireLines / static_cast<std::size_t>(sides);
}

// Counter-clockwise seen from the side `normal` points to.
WireCap Cap(std::vector<PathPoint> outline, const PathPoint& normal) {
  FaceAlong(outline, normal);
  return {std::move(outline), normal};
}

}  // namespace

WireSweep SweepAlongPath(const std::vector<PathPoint>& path, double radius, int sides, bool caps) {
  WireSweep sweep;
  if (path.size() < 4 || !LinesFit(path.size() - 2, sides)) {
    return sweep;
  }
  const std::vector<PathPoint> d = Directions(path);
  if (d.empty()) {
    return sweep;
  }
  const std::vector<PathPoint> u = CarriedSides(d, Perpendicular(d[0]));
  const std::vector<PathPoint> cut = MitreCuts(d);

  const std::size_t n = path.size();
  const SideAngles angles(static_cast<std::size_t>(sides));
  sweep.lines.reserve(2 * (n - 3) * angles.Count());
  std::vector<PathPoint> first;
  std::vector<PathPoint> last;
  std::vector<SideRun> runs;
  for (std::size_t j = 1; j + 2 < n; ++j) {
    SegmentSides(path, d, cut, j, u[j], Cross(d[j], u[j]), radius, angles, runs);
    for (const SideRun& run : runs) {
      sweep.lines.push_back({run.from, run.side});
      sweep.lines.push_back({run.to, run.side});
      if (j == 1) {
        first.push_back(run.from);
      }
      if (j + 3 == n) {
        last.push_back(run.to);
      }
    }
  }
  if (caps) {
    sweep.caps.push_back(Cap(std::move(first), Mul(cut[1], -1.0)));
    sweep.caps.push_back(Cap(std::move(last), cut[n - 2]));
  }
  return sweep;
}

WireSweep LatheAroundAxis(const Helix& helix, double radius, int sides, bool caps) {
  WireSweep sweep;
  const std::vector<HelixSample> samples = HelixSamples(helix, sides);
  if (samples.size() < 4 || !LinesFit(samples.size() - 2, sides)) {
    return sweep;
  }
  const std::size_t n = samples.size();
  const std::size_t count = static_cast<std::size_t>(sides);

  // Ring i in the plane through the axis at sample i, with its normals.
  std::vector<std::vector<WireVertex>> rings(n);
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const HelixSample& s = samples[i];
    const PathPoint out{std::cos(s.angle), std::sin(s.angle), 0.0};
    for (std::size_t k = 0; k < count; ++k) {
      const double phi = 2.0 * kPi * static_cast<double>(k) / static_cast<double>(count);
      const PathPoint normal = Add(Mul(out, std::cos(phi)), PathPoint{0.0, 0.0, std::sin(phi)});
      const PathPoint position = Add(Mul(out, s.radius + radius * std::cos(phi)),
                                     PathPoint{0.0, 0.0, s.height + radius * std::sin(phi)});
      rings[i].push_back({position, normal});
    }
  }
  sweep.lines.reserve(2 * (n - 3) * count);
  for (std::size_t i = 1; i + 2 < n; ++i) {
    for (std::size_t k = 0; k < count; ++k) {
      sweep.lines.push_back(rings[i][k]);
      sweep.lines.push_back(rings[i + 1][k]);
    }
  }
  if (caps) {
    // The caps face along the sweep, whichever way it turns.
    const double turn = helix.sweepTheta < 0.0 ? -1.0 : 1.0;
    for (const std::size_t i : {std::size_t{1}, n - 2}) {
      const double side = i == 1 ? -turn : turn;
      const PathPoint normal{-std::sin(samples[i].angle) * side, std::cos(samples[i].angle) * side,
                             0.0};
      std::vector<PathPoint> outline;
      for (const WireVertex& v : rings[i]) {
        outline.push_back(v.position);
      }
      sweep.caps.push_back(Cap(std::move(outline), normal));
    }
  }
  return sweep;
}

}  // namespace lumagrid::detail
