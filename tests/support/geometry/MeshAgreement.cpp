#include "geometry/MeshAgreement.h"

#include <cmath>
#include <cstdint>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace geometry {

namespace {

Point Sub(const Point& a, const Point& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double Dot(const Point& a, const Point& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Point Cross(const Point& a, const Point& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Length(const Point& a) {
  return std::sqrt(Dot(a, a));
}

struct Tri {
  std::array<Point, 3> p;
  std::array<Point, 3> n;
};

using Seg = std::array<Point, 2>;

struct Side {
  std::vector<Tri> triangles;
  std::vector<Seg> segments;
};

Side FromGL(const Captured& gl) {
  Side side;
  for (const CapturedTriangle& t : gl.triangles) {
    side.triangles.push_back({t.positions, t.normals});
  }
  for (const CapturedSegment& s : gl.segments) {
    side.segments.push_back(s.positions);
  }
  return side;
}

Point P(const vec3d& v) {
  return {v.x(), v.y(), v.z()};
}

Side FromMesh(const lumagrid::Mesh& mesh) {
  Side side;
  for (const lumagrid::MeshPart& part : mesh.parts) {
    const auto& ix = part.indices;
    const auto& v = part.vertices;
    if (part.primitive == lumagrid::Primitive::Triangles) {
      for (std::size_t i = 0; i + 2 < ix.size(); i += 3) {
        side.triangles.push_back(
            {{P(v[ix[i]].position), P(v[ix[i + 1]].position), P(v[ix[i + 2]].position)},
             {P(v[ix[i]].normal), P(v[ix[i + 1]].normal), P(v[ix[i + 2]].normal)}});
      }
    } else {
      for (std::size_t i = 0; i + 1 < ix.size(); i += 2) {
        side.segments.push_back({P(v[ix[i]].position), P(v[ix[i + 1]].position)});
      }
    }
  }
  return side;
}

// Smaller than the tolerance: no side longer, or no height above it.
bool Sliver(const Tri& t, double tol) {
  const double longest = std::max(
      {Length(Sub(t.p[1], t.p[0])), Length(Sub(t.p[2], t.p[1])), Length(Sub(t.p[0], t.p[2]))});
  if (longest < tol) {
    return true;
  }
  const double twiceArea = Length(Cross(Sub(t.p[1], t.p[0]), Sub(t.p[2], t.p[0])));
  return twiceArea / longest < tol;
}

void DropSlivers(Side& side, double tol) {
  std::vector<Tri> kept;
  for (const Tri& t : side.triangles) {
    if (!Sliver(t, tol)) {
      kept.push_back(t);
    }
  }
  side.triangles = kept;
  std::vector<Seg> segments;
  for (const Seg& s : side.segments) {
    if (Length(Sub(s[1], s[0])) >= tol) {
      segments.push_back(s);
    }
  }
  side.segments = segments;
}

// Points welded within the tolerance, found through a grid of cells of that size.
class Welded {
 public:
  explicit Welded(double tol) : tol_(tol) {}

  int Add(const Point& p) {
    const int found = Find(p);
    if (found >= 0) {
      return found;
    }
    points_.push_back(p);
    normals_.emplace_back();
    const int id = static_cast<int>(points_.size() - 1);
    cells_[Key(Cell(p))].push_back(id);
    return id;
  }

  int Find(const Point& p) const {
    const std::array<std::int64_t, 3> c = Cell(p);
    for (std::int64_t dx = -1; dx <= 1; ++dx) {
      for (std::int64_t dy = -1; dy <= 1; ++dy) {
        for (std::int64_t dz = -1; dz <= 1; ++dz) {
          const auto it = cells_.find(Key({c[0] + dx, c[1] + dy, c[2] + dz}));
          if (it == cells_.end()) {
            continue;
          }
          for (const int id : it->second) {
            if (Length(Sub(points_[static_cast<std::size_t>(id)], p)) <= tol_) {
              return id;
            }
          }
        }
      }
    }
    return -1;
  }

  std::vector<Point>& NormalsAt(int id) { return normals_[static_cast<std::size_t>(id)]; }
  const std::vector<Point>& NormalsAt(int id) const {
    return normals_[static_cast<std::size_t>(id)];
  }

 private:
  std::array<std::int64_t, 3> Cell(const Point& p) const {
    return {static_cast<std::int64_t>(std::floor(p[0] / tol_)),
            static_cast<std::int64_t>(std::floor(p[1] / tol_)),
            static_cast<std::int64_t>(std::floor(p[2] / tol_))};
  }
  static std::string Key(const std::array<std::int64_t, 3>& c) {
    return std::to_string(c[0]) + "," + std::to_string(c[1]) + "," + std::to_string(c[2]);
  }

  double tol_;
  std::vector<Point> points_;
  std::vector<std::vector<Point>> normals_;
  std::unordered_map<std::string, std::vector<int>> cells_;
};

double AngleDegrees(const Point& a, const Point& b) {
  const double la = Length(a);
  const double lb = Length(b);
  if (la == 0.0 || lb == 0.0) {
    return (la == 0.0 && lb == 0.0) ? 0.0 : 180.0;
  }
  const double c = std::max(-1.0, std::min(1.0, Dot(a, b) / (la * lb)));
  return std::acos(c) * 180.0 / M_PI;
}

using Key3 = std::tuple<int, int, int>;

// The same triangle whatever vertex it starts from, keeping its winding.
Key3 Oriented(int a, int b, int c) {
  if (a <= b && a <= c) {
    return {a, b, c};
  }
  if (b <= a && b <= c) {
    return {b, c, a};
  }
  return {c, a, b};
}

bool Contains(const Tri& t, const Point& q, double tol) {
  const Point n = Cross(Sub(t.p[1], t.p[0]), Sub(t.p[2], t.p[0]));
  const double area2 = Length(n);
  if (area2 == 0.0) {
    return false;
  }
  if (std::fabs(Dot(Sub(q, t.p[0]), n)) / area2 > tol) {
    return false;
  }
  for (int i = 0; i < 3; ++i) {
    const Point& a = t.p[static_cast<std::size_t>(i)];
    const Point& b = t.p[static_cast<std::size_t>((i + 1) % 3)];
    if (Dot(Cross(Sub(b, a), Sub(q, a)), n) / area2 < -tol * Length(Sub(b, a))) {
      return false;
    }
  }
  return true;
}

Point Centroid(const Tri& t) {
  return {(t.p[0][0] + t.p[1][0] + t.p[2][0]) / 3.0, (t.p[0][1] + t.p[1][1] + t.p[2][1]) / 3.0,
          (t.p[0][2] + t.p[1][2] + t.p[2][2]) / 3.0};
}

class Comparison {
 public:
  Comparison(Side mesh, Side gl) : mesh_(std::move(mesh)), gl_(std::move(gl)) {
    double lo[3] = {HUGE_VAL, HUGE_VAL, HUGE_VAL};
    double hi[3] = {-HUGE_VAL, -HUGE_VAL, -HUGE_VAL};
    auto grow = [&](const Point& p) {
      for (int i = 0; i < 3; ++i) {
        lo[i] = std::min(lo[i], p[static_cast<std::size_t>(i)]);
        hi[i] = std::max(hi[i], p[static_cast<std::size_t>(i)]);
      }
    };
    for (const Tri& t : gl_.triangles) {
      for (const Point& p : t.p) {
        grow(p);
      }
    }
    for (const Seg& s : gl_.segments) {
      for (const Point& p : s) {
        grow(p);
      }
    }
    const double size =
        lo[0] <= hi[0] ? Length({hi[0] - lo[0], hi[1] - lo[1], hi[2] - lo[2]}) : 0.0;
    tol_ = 1e-6 * (size > 0.0 ? size : 1.0);
    DropSlivers(mesh_, tol_);
    DropSlivers(gl_, tol_);
  }

  ::testing::AssertionResult Run() {
    if (mesh_.triangles.size() != gl_.triangles.size() ||
        mesh_.segments.size() != gl_.segments.size()) {
      Fail() << "counts differ: mesh " << mesh_.triangles.size() << " triangles, "
             << mesh_.segments.size() << " segments; GL " << gl_.triangles.size() << " triangles, "
             << gl_.segments.size() << " segments\n";
    }
    Welded glPoints = Weld(gl_);
    Welded meshPoints = Weld(mesh_);
    CheckVertices(mesh_, glPoints, meshPoints, "mesh", "GL");
    CheckVertices(gl_, meshPoints, glPoints, "GL", "mesh");
    CheckWinding(mesh_, gl_, glPoints, "mesh", "GL");
    CheckWinding(gl_, mesh_, glPoints, "GL", "mesh");
    CheckSegments(mesh_, gl_, glPoints, "mesh", "GL");
    CheckSegments(gl_, mesh_, glPoints, "GL", "mesh");
    if (failures_ == 0) {
      return ::testing::AssertionSuccess()
             << mesh_.triangles.size() << " triangles, " << mesh_.segments.size()
             << " segments agree; worst normal " << worstAngle_ << " degrees";
    }
    return ::testing::AssertionFailure()
           << failures_ << " disagreements (tolerance " << tol_ << "), first ones:\n"
           << report_.str();
  }

 private:
  std::ostream& Fail() {
    ++failures_;
    return failures_ <= 12 ? report_ : sink_;
  }

  Welded Weld(const Side& side) const {
    Welded w(tol_);
    for (const Tri& t : side.triangles) {
      for (std::size_t i = 0; i < 3; ++i) {
        w.NormalsAt(w.Add(t.p[i])).push_back(t.n[i]);
      }
    }
    for (const Seg& s : side.segments) {
      for (const Point& p : s) {
        w.Add(p);
      }
    }
    return w;
  }

  void CheckVertices(const Side& from, const Welded& other, const Welded& own, const char* a,
                     const char* b) {
    (void)own;
    for (const Tri& t : from.triangles) {
      for (std::size_t i = 0; i < 3; ++i) {
        const int id = other.Find(t.p[i]);
        if (id < 0) {
          Fail() << a << " vertex (" << t.p[i][0] << ", " << t.p[i][1] << ", " << t.p[i][2]
                 << ") has no " << b << " vertex near it\n";
          continue;
        }
        double best = 180.0;
        for (const Point& n : other.NormalsAt(id)) {
          best = std::min(best, AngleDegrees(t.n[i], n));
        }
        worstAngle_ = std::max(worstAngle_, best);
        if (best > 0.5) {
          Fail() << a << " normal (" << t.n[i][0] << ", " << t.n[i][1] << ", " << t.n[i][2]
                 << ") at (" << t.p[i][0] << ", " << t.p[i][1] << ", " << t.p[i][2] << ") is "
                 << best << " degrees from " << b << "'s\n";
        }
      }
    }
    for (const Seg& s : from.segments) {
      for (const Point& p : s) {
        if (other.Find(p) < 0) {
          Fail() << a << " line end (" << p[0] << ", " << p[1] << ", " << p[2] << ") has no " << b
                 << " vertex near it\n";
        }
      }
    }
  }

  void CheckWinding(const Side& from, const Side& to, const Welded& ids, const char* a,
                    const char* b) {
    std::set<Key3> keys;
    for (const Tri& t : to.triangles) {
      const int i = ids.Find(t.p[0]), j = ids.Find(t.p[1]), k = ids.Find(t.p[2]);
      if (i >= 0 && j >= 0 && k >= 0) {
        keys.insert(Oriented(i, j, k));
      }
    }
    for (const Tri& t : from.triangles) {
      const int i = ids.Find(t.p[0]), j = ids.Find(t.p[1]), k = ids.Find(t.p[2]);
      if (i < 0 || j < 0 || k < 0) {
        continue;  // reported with the vertices
      }
      if (keys.count(Oriented(i, j, k)) != 0) {
        continue;
      }
      if (keys.count(Oriented(i, k, j)) != 0) {
        Fail() << a << " triangle at (" << t.p[0][0] << ", " << t.p[0][1] << ", " << t.p[0][2]
               << ") winds against " << b << "'s\n";
        continue;
      }
      // Triangulated otherwise (a cap): the other side's triangle under its centre.
      const Point c = Centroid(t);
      const Point n = Cross(Sub(t.p[1], t.p[0]), Sub(t.p[2], t.p[0]));
      bool covered = false;
      for (const Tri& u : to.triangles) {
        if (Contains(u, c, tol_) && Dot(n, Cross(Sub(u.p[1], u.p[0]), Sub(u.p[2], u.p[0]))) > 0) {
          covered = true;
          break;
        }
      }
      if (!covered) {
        Fail() << a << " triangle with centre (" << c[0] << ", " << c[1] << ", " << c[2]
               << ") lies on no " << b << " triangle wound the same way\n";
      }
    }
  }

  void CheckSegments(const Side& from, const Side& to, const Welded& ids, const char* a,
                     const char* b) {
    std::set<std::pair<int, int>> keys;
    for (const Seg& s : to.segments) {
      const int i = ids.Find(s[0]), j = ids.Find(s[1]);
      keys.insert({std::min(i, j), std::max(i, j)});
    }
    for (const Seg& s : from.segments) {
      const int i = ids.Find(s[0]), j = ids.Find(s[1]);
      if (i < 0 || j < 0) {
        continue;
      }
      if (keys.count({std::min(i, j), std::max(i, j)}) == 0) {
        Fail() << a << " segment from (" << s[0][0] << ", " << s[0][1] << ", " << s[0][2]
               << ") has no " << b << " segment between the same points\n";
      }
    }
  }

  Side mesh_;
  Side gl_;
  double tol_ = 0.0;
  double worstAngle_ = 0.0;
  std::size_t failures_ = 0;
  std::ostringstream report_;
  std::ostringstream sink_;
};

}  // namespace

::testing::AssertionResult MeshAgreesWithGL(const lumagrid::Mesh& mesh, const Captured& gl) {
  return Comparison(FromMesh(mesh), FromGL(gl)).Run();
}

}  // namespace geometry
