// The spring's lists compiled through Lumagrid beside the same GLE calls made
// by hand, in one headless llvmpipe context; the wireframe tubes beside the
// solid ones; and the spring's geometry builders alone.

#include <lumagrid/CGLSpring.h>

#include <GL/gl.h>
#include <GL/gle.h>
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "bench_gl_support.h"
#include "shapes/path/helix_points.h"
#include "shapes/path/path_point.h"
#include "shapes/path/tension_path.h"
#include "shapes/path/wire_sweep.h"

namespace {

class Recompiled : public CGLSpring {
 public:
  using CGLSpring::CGLSpring;
  void Invalidate() { m_bModified = true; }
};

void Compile(Recompiled& spring, benchmark::State& state) {
  spring.DisplayListMake();
  for (auto _ : state) {
    spring.Invalidate();
    benchmark::DoNotOptimize(spring.DisplayListMake());
  }
  glFinish();
}

template <class Emit>
void CompileByHand(Emit&& emit, benchmark::State& state) {
  const GLuint list = glGenLists(1);
  for (auto _ : state) {
    glNewList(list, GL_COMPILE);
    emit();
    glEndList();
  }
  glFinish();
  glDeleteLists(list, 1);
}

constexpr int kCapped = TUBE_NORM_PATH_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE;
constexpr int kOpen = TUBE_NORM_PATH_EDGE | TUBE_JN_ANGLE;

// ---------------------------------------------------------------- compression

void CompressionLumagrid(benchmark::State& state) {
  bench::glContext();
  Recompiled spring;
  spring.SetShadedMode(static_cast<int>(state.range(0)));
  Compile(spring, state);
}

void CompressionGle(benchmark::State& state) {
  bench::glContext();
  CompileByHand(
      [] {
        gleSetNumSides(20);
        gleSetJoinStyle(kCapped);
        gleHelicoid(0.1, 1.0, 0.0, 0.0, 5.0 / 3.0, nullptr, nullptr, 0.0, 1080.0);
      },
      state);
}

// ---------------------------------------------------------------- tension

void TensionLumagrid(benchmark::State& state) {
  bench::glContext();
  Recompiled spring;
  spring.SetType(1);
  spring.SetType2(1);
  spring.SetShadedMode(static_cast<int>(state.range(0)));
  Compile(spring, state);
}

// The body's points computed once, as a host that knows them would.
void TensionGle(benchmark::State& state) {
  bench::glContext();
  const std::vector<lumagrid::detail::PathPoint> path =
      lumagrid::detail::TensionBodyPath(0.1, 1.0, 5.0, 3, 0.25, 20);
  const std::unique_ptr<gleDouble[][3]> points(new gleDouble[path.size()][3]);
  for (std::size_t i = 0; i < path.size(); ++i) {
    points[i][0] = path[i].x;
    points[i][1] = path[i].y;
    points[i][2] = path[i].z;
  }
  const int n = static_cast<int>(path.size());
  CompileByHand(
      [&] {
        gleSetNumSides(20);
        gleSetJoinStyle(kOpen);
        glePolyCylinder(n, points.get(), nullptr, 0.1);
        gleSetJoinStyle(kCapped);
        glPushMatrix();
        glRotated(-90.0, 1.0, 0.0, 0.0);
        gleHelicoid(0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 200.0);
        glPopMatrix();
        glPushMatrix();
        glTranslated(0.0, 0.0, 5.0);
        glRotated(90.0, 1.0, 0.0, 0.0);
        glRotated(0.25 * 360.0 - 180.0, 0.0, 1.0, 0.0);
        gleHelicoid(0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, -20.0, 200.0);
        glPopMatrix();
      },
      state);
}

// ---------------------------------------------------------------- builders

void TensionPath(benchmark::State& state) {
  const int sides = static_cast<int>(state.range(0));
  for (auto _ : state) {
    benchmark::DoNotOptimize(lumagrid::detail::TensionBodyPath(0.1, 1.0, 5.0, 3, 0.25, sides));
  }
}

void WireSweep(benchmark::State& state) {
  const int sides = static_cast<int>(state.range(0));
  const std::vector<lumagrid::detail::PathPoint> helix = lumagrid::detail::HelixPoints(
      lumagrid::detail::Helix{1.0, 0.0, 0.0, 5.0 / 3.0, 0.0, 1080.0}, sides);
  for (auto _ : state) {
    benchmark::DoNotOptimize(lumagrid::detail::SweepAlongPath(helix, 0.1, sides, true));
  }
}

}  // namespace

BENCHMARK(CompressionLumagrid)->Name("compression_compile/lumagrid_solid")->Arg(1);
BENCHMARK(CompressionGle)->Name("compression_compile/gle");
BENCHMARK(CompressionLumagrid)->Name("compression_compile/lumagrid_wire")->Arg(0);
BENCHMARK(TensionLumagrid)->Name("tension_compile/lumagrid_solid")->Arg(1);
BENCHMARK(TensionGle)->Name("tension_compile/gle");
BENCHMARK(TensionLumagrid)->Name("tension_compile/lumagrid_wire")->Arg(0);
BENCHMARK(TensionPath)->Name("tension_path/builder")->Arg(20)->Arg(50);
BENCHMARK(WireSweep)->Name("wire_sweep/builder")->Arg(20)->Arg(50);

BENCHMARK_MAIN();
