#include "shapes/tube/tube_frames.h"

#include <algorithm>
#include <cmath>

#include "math/angles.h"
#include "shapes/geometry/vector_algebra.h"

namespace lumagrid::detail {

bool Unit(PathPoint& v) {
  const double length = Length(v);
  if (!(length > 0.0) || !std::isfinite(length)) {
    return false;
  }
  v = Mul(v, 1.0 / length);
  return true;
}

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

PathPoint SquareTo(const PathPoint& up, const PathPoint& d) {
  PathPoint u = Sub(up, Mul(d, Dot(up, d)));
  if (!Unit(u)) {
    return Perpendicular(d);
  }
  return u;
}

std::vector<PathPoint> Directions(const std::vector<PathPoint>& path) {
  if (path.size() < 2) {
    return {};
  }
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

std::vector<PathPoint> CarriedSides(const std::vector<PathPoint>& d, const PathPoint& first) {
  std::vector<PathPoint> u(d.size(), PathPoint{0.0, 0.0, 0.0});
  if (d.empty()) {
    return u;
  }
  u[0] = first;
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

std::vector<PathPoint> MitreCuts(const std::vector<PathPoint>& d) {
  std::vector<PathPoint> cut(d.size() + 1, PathPoint{0.0, 0.0, 0.0});
  for (std::size_t i = 1; i < d.size(); ++i) {
    cut[i] = Add(d[i - 1], d[i]);
    if (!Unit(cut[i])) {
      cut[i] = d[i];
    }
  }
  return cut;
}

PathPoint OntoPlane(const PathPoint& x, const PathPoint& d, const PathPoint& p,
                    const PathPoint& m) {
  const double along = Dot(d, m);
  if (std::fabs(along) < 1e-12) {
    return x;
  }
  return Sub(x, Mul(d, Dot(Sub(x, p), m) / along));
}

SideAngles::SideAngles(std::size_t sides) {
  cosines_.reserve(sides);
  sines_.reserve(sides);
  for (std::size_t k = 0; k < sides; ++k) {
    const double phi = 2.0 * kPi * static_cast<double>(k) / static_cast<double>(sides);
    cosines_.push_back(std::cos(phi));
    sines_.push_back(std::sin(phi));
  }
}

PathPoint SideAngles::Around(const PathPoint& x, const PathPoint& y, std::size_t k) const {
  return Add(Mul(x, cosines_[k]), Mul(y, sines_[k]));
}

void SegmentSides(const std::vector<PathPoint>& path, const std::vector<PathPoint>& d,
                  const std::vector<PathPoint>& cut, std::size_t j, const PathPoint& x,
                  const PathPoint& y, double radius, const SideAngles& angles,
                  std::vector<SideRun>& out) {
  out.clear();
  for (std::size_t k = 0; k < angles.Count(); ++k) {
    const PathPoint a = angles.Around(x, y, k);
    out.push_back({a, OntoPlane(Add(path[j], Mul(a, radius)), d[j], path[j], cut[j]),
                   OntoPlane(Add(path[j + 1], Mul(a, radius)), d[j], path[j + 1], cut[j + 1])});
  }
}

void FaceAlong(std::vector<PathPoint>& outline, const PathPoint& normal) {
  PathPoint area{0.0, 0.0, 0.0};
  for (std::size_t i = 0; i < outline.size(); ++i) {
    area = Add(area, Cross(outline[i], outline[(i + 1) % outline.size()]));
  }
  if (Dot(area, normal) < 0.0) {
    std::reverse(outline.begin(), outline.end());
  }
}

}  // namespace lumagrid::detail
