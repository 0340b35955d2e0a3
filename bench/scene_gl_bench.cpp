// A scene of 10,000 shapes drawn through CGLScene beside the same GL calls
// issued by hand, in one headless llvmpipe context; and the scene's map
// (AddGLShape + DeleteGLShape) beside std::unordered_map.
//
// The lists are empty, so nothing is rasterised: both draws measure the CPU
// side of the calls, and glFinish inside the loop would only add the wait
// for llvmpipe's idle threads.

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "bench_gl_support.h"

namespace {

constexpr int kDrawShapes = 10000;
constexpr int kMapShapes = 100000;

// Per-shape transforms and colours, the same for both variants.
void Placement(int i, double* x, double* y, double* r) {
  *x = (i % 100) * 0.01 - 0.5;
  *y = (i / 100) * 0.01 - 0.5;
  *r = (i % 7) / 7.0;
}

void BM_SceneDrawLumagrid(benchmark::State& state) {
  bench::glContext();
  CGLScene scene;
  for (int i = 0; i < kDrawShapes; ++i) {
    double x, y, r;
    Placement(i, &x, &y, &r);
    auto* s = new bench::EmptyShape;
    s->MoveTo(x, y, 0.0);
    s->ColorSet(r, 0.5, 0.25, 1.0);
    scene.AddGLShape(s);
  }
  bench::drawEachIteration(scene, state);
  state.SetItemsProcessed(state.iterations() * kDrawShapes);
}

void BM_SceneDrawGL(benchmark::State& state) {
  bench::glContext();
  struct Shape {
    std::array<double, 16> matrix;
    float color[4];
    GLuint list;
  };
  std::vector<Shape> shapes(kDrawShapes);
  for (int i = 0; i < kDrawShapes; ++i) {
    double x, y, r;
    Placement(i, &x, &y, &r);
    Shape& s = shapes[static_cast<std::size_t>(i)];
    s.matrix = bench::translation(x, y);
    s.color[0] = static_cast<float>(r);
    s.color[1] = 0.5f;
    s.color[2] = 0.25f;
    s.color[3] = 1.0f;
    s.list = glGenLists(1);
    glNewList(s.list, GL_COMPILE);
    glEndList();
  }
  glFinish();
  for (auto _ : state) {
    for (const Shape& s : shapes) {
      bench::drawByHand(s.matrix, s.color, s.list);
    }
  }
  glFinish();
  state.SetItemsProcessed(state.iterations() * kDrawShapes);
  for (const Shape& s : shapes) {
    glDeleteLists(s.list, 1);
  }
}

void BM_SceneAddDeleteLumagrid(benchmark::State& state) {
  std::vector<CGLObject*> shapes(kMapShapes);
  for (auto _ : state) {
    CGLScene scene;
    for (CGLObject*& p : shapes) {
      p = new CGLObject;
      scene.AddGLShape(p);
    }
    for (CGLObject* p : shapes) {
      benchmark::DoNotOptimize(scene.DeleteGLShape(p));
    }
  }
  state.SetItemsProcessed(state.iterations() * kMapShapes);
}

void BM_SceneAddDeleteStd(benchmark::State& state) {
  std::vector<CGLObject*> shapes(kMapShapes);
  for (auto _ : state) {
    std::unordered_map<std::uint64_t, CGLObject*> map;
    for (CGLObject*& p : shapes) {
      p = new CGLObject;
      map[p->GetID()] = p;
    }
    for (CGLObject* p : shapes) {
      auto it = map.find(p->GetID());
      if (it != map.end()) {
        CGLObject* shape = it->second;
        map.erase(it);
        delete shape;
      }
    }
    benchmark::DoNotOptimize(map.size());
  }
  state.SetItemsProcessed(state.iterations() * kMapShapes);
}

}  // namespace

BENCHMARK(BM_SceneDrawLumagrid)->Name("scene_draw/lumagrid")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SceneDrawGL)->Name("scene_draw/gl")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SceneAddDeleteLumagrid)
    ->Name("scene_add_delete/lumagrid")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SceneAddDeleteStd)->Name("scene_add_delete/std")->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
