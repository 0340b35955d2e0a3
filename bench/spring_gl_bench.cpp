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
#include "shapes/tube/helix_points.h"
#include "shapes/geometry/path_point.h"
#include "shapes/path/tension_path.h"
#include "shapes/tube/wire_sweep.h"

namespace {

constexpr int kCapped = TUBE_NORM_PATH_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE;
constexpr int kOpen = TUBE_NORM_PATH_EDGE | TUBE_JN_ANGLE;

// ---------------------------------------------------------------- compression

template <int kArg>
void CompressionLumagrid(benchmark::State& state) {
  bench::glContext();
  bench::Recompiled<CGLSpring> spring;
  spring.SetShadedMode(kArg);
  bench::compileEachIteration(spring, state);
}

void CompressionGle(benchmark::State& state) {
  bench::glContext();
  bench::compileByHandEachIteration(
      [] {
        gleSetNumSides(20);
        gleSetJoinStyle(kCapped);
        gleHelicoid(0.1, 1.0, 0.0, 0.0, 5.0 / 3.0, nullptr, nullptr, 0.0, 1080.0);
      },
      state);
}

// ---------------------------------------------------------------- tension

template <int kArg>
void TensionLumagrid(benchmark::State& state) {
  bench::glContext();
  bench::Recompiled<CGLSpring> spring;
  spring.SetType(1);
  spring.SetType2(1);
  spring.SetShadedMode(kArg);
  bench::compileEachIteration(spring, state);
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
  bench::compileByHandEachIteration(
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

template <int kArg>
void TensionPath(benchmark::State& state) {
  bench::eachBuild(state,
                   [] { return lumagrid::detail::TensionBodyPath(0.1, 1.0, 5.0, 3, 0.25, kArg); });
}

template <int kArg>
void WireSweep(benchmark::State& state) {
  const std::vector<lumagrid::detail::PathPoint> helix = lumagrid::detail::HelixPoints(
      lumagrid::detail::Helix{1.0, 0.0, 0.0, 5.0 / 3.0, 0.0, 1080.0}, kArg);
  bench::eachBuild(state,
                   [&helix] { return lumagrid::detail::SweepAlongPath(helix, 0.1, kArg, true); });
}

}  // namespace

// Names are <operation>/<implementation>, as scripts/bench reads them.
// A wireframe is measured against the same spring solid; the library's own
// geometry against GLE's time on the same solid spring.
BENCHMARK(CompressionLumagrid<1>)->Name("compression_compile/lumagrid");
BENCHMARK(CompressionGle)->Name("compression_compile/gle");
BENCHMARK(CompressionLumagrid<0>)->Name("compression_wire_compile/lumagrid");
BENCHMARK(CompressionLumagrid<1>)->Name("compression_wire_compile/solid");
BENCHMARK(TensionLumagrid<1>)->Name("tension_compile/lumagrid");
BENCHMARK(TensionGle)->Name("tension_compile/gle");
BENCHMARK(TensionLumagrid<0>)->Name("tension_wire_compile/lumagrid");
BENCHMARK(TensionLumagrid<1>)->Name("tension_wire_compile/solid");
BENCHMARK(TensionPath<20>)->Name("tension_geometry_share/lumagrid");
BENCHMARK(TensionGle)->Name("tension_geometry_share/gle");
BENCHMARK(WireSweep<20>)->Name("wire_sweep_q20/lumagrid");
BENCHMARK(WireSweep<50>)->Name("wire_sweep_q50/lumagrid");

BENCHMARK_MAIN();
