// The torus, polyline and belt lists compiled through Lumagrid beside the
// same GL and GLE calls made by hand, in one headless llvmpipe context; and
// the belt's outline builder alone, per outline.

#include <lumagrid/CGLBelt.h>
#include <lumagrid/CGLPolyline.h>
#include <lumagrid/CGLTorus.h>

#include <GL/gl.h>
#include <GL/gle.h>
#include <benchmark/benchmark.h>

#include <array>
#include <vector>

#include "bench_gl_support.h"
#include "shapes/path/belt_outline.h"

namespace {

// ---------------------------------------------------------------- torus

void TorusLumagrid(benchmark::State& state) {
  bench::glContext();
  bench::Recompiled<CGLTorus> torus;
  bench::compileEachIteration(torus, state);
}

void TorusGle(benchmark::State& state) {
  bench::glContext();
  bench::compileByHandEachIteration(
      [] {
        gleSetJoinStyle(TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE);
        gleToroid(0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0);
      },
      state);
}

// ---------------------------------------------------------------- polyline

constexpr int kPolylinePoints = 1000;

void PolylineLumagrid(benchmark::State& state) {
  bench::glContext();
  bench::Recompiled<CGLPolyline> poly;
  for (int i = 0; i < kPolylinePoints; ++i) {
    poly.AddVertex(i * 0.001, i * 0.002, 0.0);
  }
  bench::compileEachIteration(poly, state);
}

void PolylineGl(benchmark::State& state) {
  bench::glContext();
  std::vector<std::array<double, 3>> points;
  for (int i = 0; i < kPolylinePoints; ++i) {
    points.push_back({i * 0.001, i * 0.002, 0.0});
  }
  bench::compileByHandEachIteration(
      [&] {
        glColor3d(0.5, 0.5, 0.5);
        glBegin(GL_LINE_STRIP);
        for (const auto& p : points) {
          glVertex3d(p[0], p[1], p[2]);
        }
        glEnd();
      },
      state);
}

// ---------------------------------------------------------------- belt

template <int kArg>
void BeltLumagrid(benchmark::State& state) {
  bench::glContext();
  bench::Recompiled<CGLBelt> belt(1.0, 0.6, 3.0);
  belt.SetQuality(kArg);
  bench::compileEachIteration(belt, state);
}

// The outline's points, computed once, as a host that knows them would.
template <int kArg>
void BeltGl(benchmark::State& state) {
  bench::glContext();
  const std::vector<lumagrid::detail::PathPoint> outline =
      lumagrid::detail::BuildBeltOutline(1.0, 0.6, 3.0, kArg, lumagrid::detail::kFullBelt);
  bench::compileByHandEachIteration(
      [&] {
        glBegin(GL_LINE_STRIP);
        for (const auto& p : outline) {
          glVertex3d(p.x, p.y, p.z);
        }
        glEnd();
      },
      state);
}

// New pulleys at every rebuild (two entraxes in turn): both sides compute the
// outline, the hand-made one into a buffer it keeps.
constexpr double kEntraxes[2] = {3.0, 3.5};

template <int kArg>
void BeltReshapedLumagrid(benchmark::State& state) {
  bench::glContext();
  CGLBelt belt(1.0, 0.6, kEntraxes[0]);
  belt.SetQuality(kArg);
  belt.DisplayListMake();
  int turn = 0;
  for (auto _ : state) {
    turn ^= 1;
    belt.SetEntraxe(kEntraxes[turn]);
    benchmark::DoNotOptimize(belt.DisplayListMake());
  }
  glFinish();
}

template <int kArg>
void BeltReshapedGl(benchmark::State& state) {
  bench::glContext();
  std::vector<lumagrid::detail::PathPoint> outline;
  int turn = 0;
  bench::compileByHandEachIteration(
      [&] {
        turn ^= 1;
        lumagrid::detail::BuildBeltOutline(1.0, 0.6, kEntraxes[turn], kArg,
                                           lumagrid::detail::kFullBelt, outline);
        glBegin(GL_LINE_STRIP);
        for (const auto& p : outline) {
          glVertex3d(p.x, p.y, p.z);
        }
        glEnd();
      },
      state);
}

template <int kArg>
void BeltProfile(benchmark::State& state) {
  bench::eachBuild(state, [] {
    return lumagrid::detail::BuildBeltOutline(1.0, 0.6, 3.0, kArg, lumagrid::detail::kFullBelt);
  });
}

}  // namespace

BENCHMARK(TorusLumagrid)->Name("torus_compile/lumagrid");
BENCHMARK(TorusGle)->Name("torus_compile/gle");
BENCHMARK(PolylineLumagrid)->Name("polyline1000_compile/lumagrid");
BENCHMARK(PolylineGl)->Name("polyline1000_compile/gl");
// Names are <operation>/<implementation>, as scripts/bench reads them.
// The builder's share is its time over the whole list compile's.
BENCHMARK(BeltLumagrid<20>)->Name("belt20_compile/lumagrid");
BENCHMARK(BeltGl<20>)->Name("belt20_compile/gl");
BENCHMARK(BeltLumagrid<50>)->Name("belt50_compile/lumagrid");
BENCHMARK(BeltGl<50>)->Name("belt50_compile/gl");
BENCHMARK(BeltReshapedLumagrid<20>)->Name("belt20_reshaped_compile/lumagrid");
BENCHMARK(BeltReshapedGl<20>)->Name("belt20_reshaped_compile/gl");
BENCHMARK(BeltReshapedLumagrid<50>)->Name("belt50_reshaped_compile/lumagrid");
BENCHMARK(BeltReshapedGl<50>)->Name("belt50_reshaped_compile/gl");
BENCHMARK(BeltProfile<20>)->Name("belt20_builder_share/lumagrid");
BENCHMARK(BeltLumagrid<20>)->Name("belt20_builder_share/whole-compile");
BENCHMARK(BeltProfile<50>)->Name("belt50_builder_share/lumagrid");
BENCHMARK(BeltLumagrid<50>)->Name("belt50_builder_share/whole-compile");

BENCHMARK_MAIN();
