#include "mesh/gle_extrusion.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "math/angles.h"
#include "shapes/geometry/vector_algebra.h"
#include "shapes/tube/tube_frames.h"
#include "shapes/tube/wire_sweep.h"

namespace lumagrid::detail {

namespace {

// GLE's join style bits.
constexpr int kJoinMask = 0xf;
constexpr int kJoinAngle = 0x2;
constexpr int kJoinCap = 0x10;
constexpr int kNormFacet = 0x100;
constexpr int kNormEdge = 0x200;
constexpr int kNormPathEdge = 0x400;

vec3d ToVec(const PathPoint& p) {
  return {p.x, p.y, p.z};
}

// v less its part along the unit vector m.
PathPoint Flatten(const PathPoint& v, const PathPoint& m) {
  return Sub(v, Mul(m, Dot(v, m)));
}

PathPoint UnitOr(PathPoint v, const PathPoint& fallback) {
  return Unit(v) ? v : fallback;
}

// The circle's unit directions around one segment, side k at angle 2 pi k / sides from x.
struct Circle {
  std::vector<double> cosines;
  std::vector<double> sines;

  explicit Circle(std::size_t sides) {
    cosines.reserve(sides);
    sines.reserve(sides);
    for (std::size_t k = 0; k < sides; ++k) {
      const double angle = 2.0 * kPi * static_cast<double>(k) / static_cast<double>(sides);
      cosines.push_back(std::cos(angle));
      sines.push_back(std::sin(angle));
    }
  }

  PathPoint Around(const PathPoint& x, const PathPoint& y, std::size_t k) const {
    return Add(Mul(x, cosines[k]), Mul(y, sines[k]));
  }
};

bool SidesFit(std::size_t segments, int sides) {
  if (sides < 1 || segments < 1) {
    return false;
  }
  return segments <= kMaxWireLines / static_cast<std::size_t>(sides);
}

void AddTriangle(MeshPart& part, std::size_t a, std::size_t b, std::size_t c) {
  part.indices.push_back(static_cast<std::uint32_t>(a));
  part.indices.push_back(static_cast<std::uint32_t>(b));
  part.indices.push_back(static_cast<std::uint32_t>(c));
}

// A flat fan over `ring`, counter-clockwise seen from where `normal` points.
void AddCap(MeshPart& part, const std::vector<PathPoint>& ring, const PathPoint& normal) {
  const std::size_t n = ring.size();
  if (n < 3) {
    return;
  }
  PathPoint area{0.0, 0.0, 0.0};
  for (std::size_t k = 0; k < n; ++k) {
    area = Add(area, Cross(ring[k], ring[(k + 1) % n]));
  }
  const bool reversed = Dot(area, normal) < 0.0;
  const std::size_t base = part.vertices.size();
  for (std::size_t k = 0; k < n; ++k) {
    part.vertices.push_back({ToVec(ring[reversed ? n - 1 - k : k]), ToVec(normal)});
  }
  for (std::size_t k = 1; k + 1 < n; ++k) {
    AddTriangle(part, base, base + k, base + k + 1);
  }
}

// A point this close to the one kept before it, relative to their distances from the origin,
// is dropped as GLE drops it.
bool SamePoint(const PathPoint& a, const PathPoint& b) {
  return Length(Sub(b, a)) <= 2e-6 * (Length(a) + Length(b));
}

bool AllFinite(const std::vector<PathPoint>& path) {
  for (const PathPoint& p : path) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) {
      return false;
    }
  }
  return true;
}

// The path without inner points that repeat the point kept before them. The first point and
// the last are always kept. GLE leaves the far cap off when the point before the last goes.
std::vector<PathPoint> WithoutRepeats(const std::vector<PathPoint>& path, bool& farCap) {
  std::vector<PathPoint> kept;
  kept.reserve(path.size());
  const std::size_t n = path.size();
  for (std::size_t i = 0; i < n; ++i) {
    const bool inner = i >= 2 && i + 1 < n;
    if (inner && SamePoint(kept.back(), path[i])) {
      if (i + 2 == n) {
        farCap = false;
      }
      continue;
    }
    kept.push_back(path[i]);
  }
  return kept;
}

// Facet normals win over edge normals in GLE and are not built here.
bool Builds(int joinStyle) {
  return (joinStyle & kJoinMask) == kJoinAngle && (joinStyle & kNormFacet) == 0;
}

}  // namespace

GleNormals PolylineNormals(int joinStyle) {
  if (!Builds(joinStyle)) {
    return GleNormals::Other;
  }
  if ((joinStyle & kNormPathEdge) != 0) {
    return GleNormals::Cut;
  }
  return (joinStyle & kNormEdge) != 0 ? GleNormals::Segment : GleNormals::Other;
}

GleNormals SpiralNormals(int joinStyle) {
  if (!Builds(joinStyle)) {
    return GleNormals::Other;
  }
  // A spiral's edge normals follow the path as its path-edge normals do.
  return (joinStyle & (kNormEdge | kNormPathEdge)) != 0 ? GleNormals::Cut : GleNormals::Other;
}

bool CapsEnds(int joinStyle) {
  return (joinStyle & kJoinCap) != 0;
}

MeshPart ExtrudeRoundTube(const std::vector<PathPoint>& given, const PathPoint& up, double radius,
                          int sides, GleNormals normals, bool caps) {
  MeshPart part;
  // A tube of no radius has no area.
  if (given.size() < 4 || !(radius != 0.0) || !std::isfinite(radius) ||
      normals == GleNormals::Other || !AllFinite(given)) {
    return part;
  }
  bool farCap = caps;
  const std::vector<PathPoint> path = WithoutRepeats(given, farCap);
  if (path.size() < 4 || !SidesFit(path.size() - 3, sides)) {
    return part;
  }
  const std::vector<PathPoint> d = Directions(path);
  if (d.empty()) {
    return part;
  }
  const std::vector<PathPoint> y = CarriedSides(d, SquareTo(up, d[0]));
  const std::vector<PathPoint> cut = MitreCuts(d);
  const std::size_t n = path.size();
  const std::size_t count = static_cast<std::size_t>(sides);
  const Circle circle(count);

  // The normal GL gets where segment j meets point i (j or j + 1), for the circle's own
  // normal `own` there.
  const auto normalAt = [&](std::size_t j, std::size_t i, const PathPoint& own) {
    if (normals != GleNormals::Cut) {
      return own;
    }
    PathPoint v = Flatten(own, cut[i]);
    if (i == j && j > 1) {
      // GLE flattens a segment's start again: the normals there lean further out than the
      // previous segment's end.
      v = Flatten(Flatten(v, d[j]), cut[i]);
    }
    return UnitOr(v, own);
  };

  const std::size_t segments = n - 3;
  part.vertices.reserve(segments * 2 * count + (caps ? 2 * count : 0));
  part.indices.reserve(segments * 6 * count + (caps ? 6 * count : 0));
  std::vector<PathPoint> first;
  std::vector<PathPoint> last;
  first.reserve(caps ? count : 0);
  last.reserve(farCap ? count : 0);
  for (std::size_t j = 1; j + 2 < n; ++j) {
    const std::size_t base = part.vertices.size();
    const PathPoint x = Cross(d[j], y[j]);
    for (std::size_t k = 0; k < count; ++k) {
      const PathPoint a = circle.Around(x, y[j], k);
      for (const std::size_t i : {j, j + 1}) {
        const PathPoint p = OntoPlane(Add(path[i], Mul(a, radius)), d[j], path[i], cut[i]);
        part.vertices.push_back({ToVec(p), ToVec(normalAt(j, i, a))});
        if (caps && i == 1) {
          first.push_back(p);
        }
        if (farCap && i + 2 == n) {
          last.push_back(p);
        }
      }
    }
    // Side k runs from near vertex base + 2k to far vertex base + 2k + 1.
    for (std::size_t k = 0; k < count; ++k) {
      const std::size_t nearK = base + 2 * k;
      const std::size_t nearNext = base + 2 * ((k + 1) % count);
      AddTriangle(part, nearK, nearK + 1, nearNext);
      AddTriangle(part, nearNext, nearK + 1, nearNext + 1);
    }
  }
  if (caps) {
    AddCap(part, first, Mul(cut[1], -1.0));
  }
  if (farCap) {
    AddCap(part, last, cut[n - 2]);
  }
  return part;
}

}  // namespace lumagrid::detail
