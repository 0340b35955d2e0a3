// The mesh layer: MeshOf for each shape at its defaults beside compiling the shape's display
// list in a real headless context (the legacy path to the same geometry); and Pick on scenes of
// 1e3 and 1e4 mixed shapes beside a brute-force pick that meshes every shape and tests every
// triangle and segment.

#include <lumagrid/CGLMatrixGuard.h>
#include <lumagrid/Mesh.h>
#include <lumagrid/SceneQuery.h>
#include <lumagrid/lumagrid.h>

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench_gl_support.h"

namespace {

// ---------------------------------------------------------------- shapes

// Each shape as its default constructor makes it, but for the two that need more to be what
// they are: a polyline of about 100 points and a tension spring.
constexpr int kPolylinePoints = 100;

template <class Shape>
void Default(Shape& /*shape*/) {}

template <class Shape>
void Polyline(Shape& shape) {
  for (int i = 0; i < kPolylinePoints; ++i) {
    shape.AddVertex(std::cos(i * 0.1), std::sin(i * 0.1), i * 0.01);
  }
}

template <class Shape>
void Tension(Shape& shape) {
  shape.SetType(1);
}

template <class Shape, void (*Make)(Shape&)>
void MeshLumagrid(benchmark::State& state) {
  Shape shape;
  Make(shape);
  for (auto _ : state) {
    benchmark::DoNotOptimize(lumagrid::MeshOf(shape));
  }
}

template <class Shape, void (*Make)(Shape&)>
void MeshCompile(benchmark::State& state) {
  bench::glContext();
  bench::Recompiled<Shape> shape;
  Make(shape);
  bench::compileEachIteration(shape, state);
}

// A triad compiles no list of its own: its draw compiles its arrows' and cube's lists, which a
// colour change marks for rebuilding. Every face is culled, so the lists' replay costs little.
void MeshAxisLumagrid(benchmark::State& state) {
  CGLAxis axis;
  for (auto _ : state) {
    benchmark::DoNotOptimize(lumagrid::MeshOf(axis));
  }
}

void MeshAxisCompile(benchmark::State& state) {
  bench::glContext();
  CGLAxis axis;
  glEnable(GL_CULL_FACE);
  glCullFace(GL_FRONT_AND_BACK);
  const unsigned long colours[] = {0x808080ul, 0x808081ul};
  int i = 0;
  for (auto _ : state) {
    axis.ColorSet(colours[i]);
    i = 1 - i;
    CGLMatrixGuard guard(1);
    axis.Draw();
  }
  glFinish();
  glDisable(GL_CULL_FACE);
}

// ---------------------------------------------------------------- pick

constexpr double kSpacing = 3.0;
constexpr double kLineTolerance = 0.02;

// N shapes of eight kinds in turn on a square grid in the z = 0 plane, turned at random, and rays
// from a camera in front of it to points of the grid.
struct PickScene {
  explicit PickScene(int n) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> angle(-3.0, 3.0);
    const int side = static_cast<int>(std::ceil(std::sqrt(n)));
    for (int i = 0; i < n; ++i) {
      CGLObject* shape = nullptr;
      switch (i % 8) {
        case 0:
          shape = new CGLSphere();
          break;
        case 1:
          shape = new CGLCylinder();
          break;
        case 2:
          shape = new CGLCone(1.0, 1.5, true);
          break;
        case 3:
          shape = new CGLArrow();
          break;
        case 4:
          shape = new CGLTorus();
          break;
        case 5: {
          auto* p = new CGLPolyline();
          for (int k = 0; k < 20; ++k) {
            p->AddVertex(std::cos(k * 0.3), std::sin(k * 0.3), k * 0.05);
          }
          shape = p;
          break;
        }
        case 6:
          shape = new CGLBelt();
          break;
        default:
          shape = new CGLSpring();
          break;
      }
      shape->MoveTo((i % side) * kSpacing, (i / side) * kSpacing, 0.0);
      shape->Rotate(angle(random), angle(random), angle(random));
      scene.AddGLShape(shape);
    }
    const double extent = (side - 1) * kSpacing;
    std::uniform_real_distribution<double> across(0.0, extent);
    const vec3d eye(extent / 2, extent / 2, 2.0 * extent + 10.0);
    for (std::size_t k = 0; k < bench::kInputs; ++k) {
      origins.push_back(eye);
      directions.push_back(vec3d(across(random) - eye.x(), across(random) - eye.y(), -eye.z()));
    }
  }

  CGLScene scene;
  std::vector<vec3d> origins;
  std::vector<vec3d> directions;
};

template <int kShapes>
PickScene& pickScene() {
  static PickScene scene(kShapes);
  return scene;
}

template <int kShapes>
void PickLumagrid(benchmark::State& state) {
  PickScene& s = pickScene<kShapes>();
  std::size_t i = 0;
  for (auto _ : state) {
    lumagrid::Hit hit{};
    benchmark::DoNotOptimize(
        lumagrid::Pick(s.scene, s.origins[i], s.directions[i], hit, kLineTolerance));
    benchmark::DoNotOptimize(hit);
    i = bench::next(i);
  }
}

// ---------------------------------------------------------------- brute force

double Dot(const vec3d& a, const vec3d& b) {
  return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

vec3d Cross(const vec3d& a, const vec3d& b) {
  return vec3d(a.y() * b.z() - a.z() * b.y(), a.z() * b.x() - a.x() * b.z(),
               a.x() * b.y() - a.y() * b.x());
}

vec3d Apply(const mat4x4& m, const vec3d& p) {
  const double* e = static_cast<const double*>(m);
  return vec3d(e[0] * p.x() + e[4] * p.y() + e[8] * p.z() + e[12],
               e[1] * p.x() + e[5] * p.y() + e[9] * p.z() + e[13],
               e[2] * p.x() + e[6] * p.y() + e[10] * p.z() + e[14]);
}

// Möller and Trumbore's test: the ray's t at the triangle, or -1.
double AtTriangle(const vec3d& o, const vec3d& d, const vec3d& a, const vec3d& b, const vec3d& c) {
  const vec3d ab = b - a;
  const vec3d ac = c - a;
  const vec3d p = Cross(d, ac);
  const double det = Dot(ab, p);
  if (det == 0.0) {
    return -1.0;
  }
  const vec3d s = o - a;
  const double u = Dot(s, p) / det;
  const vec3d q = Cross(s, ab);
  const double v = Dot(d, q) / det;
  if (u < 0.0 || v < 0.0 || u + v > 1.0) {
    return -1.0;
  }
  return Dot(ac, q) / det;
}

// The ray's t nearest the segment when they pass within the tolerance, or -1.
double AtSegment(const vec3d& o, const vec3d& d, const vec3d& a, const vec3d& b) {
  const vec3d e = b - a;
  const vec3d r = o - a;
  const double dd = Dot(d, d);
  const double ee = Dot(e, e);
  const double de = Dot(d, e);
  const double denominator = dd * ee - de * de;
  double s = denominator > 0.0 ? (Dot(d, d) * Dot(e, r) - de * Dot(d, r)) / denominator : 0.0;
  s = std::clamp(s, 0.0, 1.0);
  const vec3d onSegment = a + e * s;
  const double t = std::max(0.0, Dot(onSegment - o, d) / dd);
  const vec3d gap = o + d * t - onSegment;
  return Dot(gap, gap) <= kLineTolerance * kLineTolerance ? t : -1.0;
}

template <int kShapes>
void PickBruteForce(benchmark::State& state) {
  PickScene& s = pickScene<kShapes>();
  std::size_t i = 0;
  for (auto _ : state) {
    const vec3d& o = s.origins[i];
    const vec3d& d = s.directions[i];
    double best = HUGE_VAL;
    CGLObject* found = nullptr;
    for (const lumagrid::SceneItem& item : lumagrid::SceneItems(s.scene)) {
      for (const lumagrid::MeshPart& part : lumagrid::MeshOf(*item.shape).parts) {
        std::vector<vec3d> world;
        world.reserve(part.vertices.size());
        for (const lumagrid::MeshVertex& v : part.vertices) {
          world.push_back(Apply(item.world, v.position));
        }
        const std::vector<std::uint32_t>& ix = part.indices;
        const bool triangles = part.primitive == lumagrid::Primitive::Triangles;
        const std::size_t step = triangles ? 3 : 2;
        for (std::size_t k = 0; k + step <= ix.size(); k += step) {
          const double t = triangles
                               ? AtTriangle(o, d, world[ix[k]], world[ix[k + 1]], world[ix[k + 2]])
                               : AtSegment(o, d, world[ix[k]], world[ix[k + 1]]);
          if (t >= 0.0 && t < best) {
            best = t;
            found = item.shape;
          }
        }
      }
    }
    benchmark::DoNotOptimize(found);
    benchmark::DoNotOptimize(best);
    i = bench::next(i);
  }
}

using Bench = void (*)(benchmark::State&);

struct MeshRow {
  const char* name;
  Bench lumagrid;
  Bench compile;
};

const MeshRow kMeshRows[] = {
    {"sphere", MeshLumagrid<CGLSphere, Default>, MeshCompile<CGLSphere, Default>},
    {"cylinder", MeshLumagrid<CGLCylinder, Default>, MeshCompile<CGLCylinder, Default>},
    {"cone", MeshLumagrid<CGLCone, Default>, MeshCompile<CGLCone, Default>},
    {"torus", MeshLumagrid<CGLTorus, Default>, MeshCompile<CGLTorus, Default>},
    {"arrow", MeshLumagrid<CGLArrow, Default>, MeshCompile<CGLArrow, Default>},
    {"axis", MeshAxisLumagrid, MeshAxisCompile},
    {"polyline100", MeshLumagrid<CGLPolyline, Polyline>, MeshCompile<CGLPolyline, Polyline>},
    {"belt", MeshLumagrid<CGLBelt, Default>, MeshCompile<CGLBelt, Default>},
    {"compression", MeshLumagrid<CGLSpring, Default>, MeshCompile<CGLSpring, Default>},
    {"tension", MeshLumagrid<CGLSpring, Tension>, MeshCompile<CGLSpring, Tension>},
};

}  // namespace

// Names are <operation>/<implementation>, as scripts/bench reads them.
int main(int argc, char** argv) {
  for (const MeshRow& row : kMeshRows) {
    benchmark::RegisterBenchmark(("mesh_" + std::string(row.name) + "/lumagrid").c_str(),
                                 row.lumagrid);
    benchmark::RegisterBenchmark(("mesh_" + std::string(row.name) + "/compile").c_str(),
                                 row.compile);
  }
  benchmark::RegisterBenchmark("pick_1e3/lumagrid", PickLumagrid<1000>);
  benchmark::RegisterBenchmark("pick_1e3/brute-force", PickBruteForce<1000>);
  benchmark::RegisterBenchmark("pick_1e4/lumagrid", PickLumagrid<10000>);
  benchmark::RegisterBenchmark("pick_1e4/brute-force", PickBruteForce<10000>);
  return bench::runRegistered(argc, argv);
}
