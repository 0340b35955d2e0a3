#include "shapes/tube/wire_sweep.h"

#include <algorithm>
#include <cmath>

#include "math/angles.h"
#include "shapes/geometry/vector_algebra.h"

namespace lumagrid::detail {

namespace {

// Scales v to unit length; false (v unchanged) when it has none.
bool Unit(PathPoint& v) {
  const double length = Length(v);
  if (!(length > 0.0) || !std::isfinite(length)) {
    return false;
  }
  v = Mul(v, 1.0 / length);
  return true;
}

// A unit vector square to the unit vector d.
PathPoint Perpendicular(const PathPoint& d) {
  const double ax = std::fabs(d.x);
  const double ay = std::fabs(d.y);
  const double az = std::fabs(d.z);
  PathPoint axis{0.0, 0.0, 1.0};
  if (ax <= ay && ax <= az) {
    axis = {1.0, 0.0, 0.0};
  } else if (ay <= az) {
    axis = {0.0, 1.0, 0.0};
  }
  PathPoint u = Sub(axis, Mul(d, Dot(axis, d)));
  Unit(u);
  return u;
}

bool LinesFit(std::size_t rings, int sides) {
  if (sides < 1 || rings < 2) {
    return false;
  }
  return (rings - 1) <= kMaxWireLines / static_cast<std::size_t>(sides);
}

// Counter-clockwise seen from the side `normal` points to.
WireCap Cap(std::vector<PathPoint> outline, const PathPoint& normal) {
  PathPoint area{0.0, 0.0, 0.0};
  for (std::size_t i = 0; i < outline.size(); ++i) {
    area = Add(area, Cross(outline[i], outline[(i + 1) % outline.size()]));
  }
  if (Dot(area, normal) < 0.0) {
    std::reverse(outline.begin(), outline.end());
  }
  return {std::move(outline), normal};
}

// Unit directions of the path's segments; a segment of no length takes the
// direction of its neighbour. Empty when no segment has a length.
std::vector<PathPoint> Directions(const std::vector<PathPoint>& path) {
  std::vector<PathPoint> d(path.size() - 1, PathPoint{0.0, 0.0, 0.0});
  std::vector<bool> known(d.size(), false);
  for (std::size_t j = 0; j < d.size(); ++j) {
    d[j] = Sub(path[j + 1], path[j]);
    known[j] = Unit(d[j]);
  }
  const auto first = std::find(known.begin(), known.end(), true);
  if (first == known.end()) {
    return {};
  }
  PathPoint last = d[static_cast<std::size_t>(first - known.begin())];
  for (std::size_t j = 0; j < d.size(); ++j) {
    if (known[j]) {
      last = d[j];
    } else {
      d[j] = last;
    }
  }
  return d;
}

// Side vectors carried from segment to segment by the rotation that turns
// one direction into the next, so that the circle does not twist.
std::vector<PathPoint> Frames(const std::vector<PathPoint>& d) {
  std::vector<PathPoint> u(d.size(), PathPoint{0.0, 0.0, 0.0});
  u[0] = Perpendicular(d[0]);
  for (std::size_t j = 1; j < d.size(); ++j) {
    PathPoint next = u[j - 1];
    PathPoint b = Cross(d[j - 1], d[j]);
    if (Unit(b)) {
      next = Add(Mul(b, Dot(u[j - 1], b)), Mul(Cross(b, d[j]), Dot(u[j - 1], Cross(b, d[j - 1]))));
    }
    next = Sub(next, Mul(d[j], Dot(next, d[j])));
    if (!Unit(next)) {
      next = Perpendicular(d[j]);
    }
    u[j] = next;
  }
  return u;
}

// x moved along d onto the plane through p square to m.
PathPoint OntoPlane(const PathPoint& x, const PathPoint& d, const PathPoint& p,
                    const PathPoint& m) {
  const double along = Dot(d, m);
  if (std::fabs(along) < 1e-12) {
    return x;
  }
  return Sub(x, Mul(d, Dot(Sub(x, p), m) / along));
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
  const std::vector<PathPoint> u = Frames(d);

  // The cut at point i halves the angle between its two segments.
  std::vector<PathPoint> cut(path.size(), PathPoint{0.0, 0.0, 0.0});
  for (std::size_t i = 1; i + 1 < path.size(); ++i) {
    cut[i] = Add(d[i - 1], d[i]);
    if (!Unit(cut[i])) {
      cut[i] = d[i];
    }
  }

  const std::size_t n = path.size();
  const std::size_t count = static_cast<std::size_t>(sides);
  sweep.lines.reserve(2 * (n - 3) * count);
  std::vector<PathPoint> first;
  std::vector<PathPoint> last;
  for (std::size_t j = 1; j + 2 < n; ++j) {
    const PathPoint v = Cross(d[j], u[j]);
    for (std::size_t k = 0; k < count; ++k) {
      const double phi = 2.0 * kPi * static_cast<double>(k) / static_cast<double>(count);
      const PathPoint a = Add(Mul(u[j], std::cos(phi)), Mul(v, std::sin(phi)));
      const PathPoint from = OntoPlane(Add(path[j], Mul(a, radius)), d[j], path[j], cut[j]);
      const PathPoint to =
          OntoPlane(Add(path[j + 1], Mul(a, radius)), d[j], path[j + 1], cut[j + 1]);
      sweep.lines.push_back({from, a});
      sweep.lines.push_back({to, a});
      if (j == 1) {
        first.push_back(from);
      }
      if (j + 3 == n) {
        last.push_back(to);
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
