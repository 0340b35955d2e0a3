#include "mesh/gle_extrusion.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

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
void AddCap(MeshPart& part, std::vector<PathPoint> ring, const PathPoint& normal) {
  const std::size_t n = ring.size();
  if (n < 3) {
    return;
  }
  FaceAlong(ring, normal);
  const std::size_t base = part.vertices.size();
  for (const PathPoint& p : ring) {
    part.vertices.push_back({ToVec(p), ToVec(normal)});
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
  const SideAngles angles(static_cast<std::size_t>(sides));
  const std::size_t count = angles.Count();

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
  std::vector<SideRun> runs;
  for (std::size_t j = 1; j + 2 < n; ++j) {
    const std::size_t base = part.vertices.size();
    SegmentSides(path, d, cut, j, Cross(d[j], y[j]), y[j], radius, angles, runs);
    for (const SideRun& run : runs) {
      part.vertices.push_back({ToVec(run.from), ToVec(normalAt(j, j, run.side))});
      part.vertices.push_back({ToVec(run.to), ToVec(normalAt(j, j + 1, run.side))});
      if (caps && j == 1) {
        first.push_back(run.from);
      }
      if (farCap && j + 3 == n) {
        last.push_back(run.to);
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
    AddCap(part, std::move(first), Mul(cut[1], -1.0));
  }
  if (farCap) {
    AddCap(part, std::move(last), cut[n - 2]);
  }
  return part;
}

}  // namespace lumagrid::detail
