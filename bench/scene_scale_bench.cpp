// How the scene scales: AddGLShape, DeleteGLShape (random order) and
// DrawGLShapes at 1e2 ... 1e5 shapes, each beside std::unordered_map doing the
// same work in the same run; and 1e5 adds then 1e5 deletes in random order.
//
// Shapes are made with the timer paused, so the add and delete figures are
// the containers' own cost plus the shape's destructor, which both pay. Small
// scenes are measured in batches of about 1e5 shapes, so the pause costs
// little beside the timed work.

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench_gl_support.h"

namespace {

using Shapes = std::vector<CGLObject*>;

// The scene's interface, as std::unordered_map spells it.
class StdScene {
 public:
  void AddGLShape(CGLObject* p) { m_map[p->GetID()] = p; }
  int DeleteGLShape(CGLObject* p) {
    const auto it = m_map.find(p->GetID());
    if (it == m_map.end()) {
      return 0;
    }
    CGLObject* shape = it->second;
    m_map.erase(it);
    delete shape;
    return 1;
  }
  void DrawGLShapes() {
    for (const auto& kv : m_map) {
      kv.second->Draw();
    }
  }
  ~StdScene() {
    for (const auto& kv : m_map) {
      delete kv.second;
    }
  }

 private:
  std::unordered_map<std::uint64_t, CGLObject*> m_map;
};

// Scenes of n shapes each, enough of them to hold about 1e5 shapes.
std::size_t BatchOf(std::size_t n) {
  return std::max<std::size_t>(1, 100000 / n);
}

// Fresh shapes, one list per scene, and the same shapes in a fixed random order.
struct Batch {
  std::vector<Shapes> added;
  std::vector<Shapes> deleted;
};

Batch MakeBatch(std::size_t scenes, std::size_t n, std::mt19937& rng) {
  Batch b;
  for (std::size_t s = 0; s < scenes; ++s) {
    Shapes shapes(n);
    for (CGLObject*& p : shapes) {
      p = new CGLObject;
    }
    b.added.push_back(shapes);
    std::shuffle(shapes.begin(), shapes.end(), rng);
    b.deleted.push_back(shapes);
  }
  return b;
}

template <class Scene>
void Fill(Scene& scene, const Shapes& shapes) {
  for (CGLObject* p : shapes) {
    scene.AddGLShape(p);
  }
}

template <class Scene>
void Empty(Scene& scene, const Shapes& shapes) {
  for (CGLObject* p : shapes) {
    benchmark::DoNotOptimize(scene.DeleteGLShape(p));
  }
}

// Each iteration makes `scenes` scenes and a batch of n fresh shapes per scene with the timer
// paused, lets prepare fill them, times work on each, and destroys them paused.
template <class Scene, class Prepare, class Work>
void TimeOnBatches(benchmark::State& state, std::size_t scenes, std::size_t n, std::uint32_t seed,
                   Prepare prepare, Work work) {
  std::mt19937 rng(seed);
  for (auto _ : state) {
    state.PauseTiming();
    const Batch b = MakeBatch(scenes, n, rng);
    auto all = std::make_unique<Scene[]>(scenes);
    for (std::size_t s = 0; s < scenes; ++s) {
      prepare(all[s], b, s);
    }
    state.ResumeTiming();
    for (std::size_t s = 0; s < scenes; ++s) {
      work(all[s], b, s);
    }
    state.PauseTiming();
    all.reset();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * scenes * n));
}

template <class Scene>
void Nothing(Scene&, const Batch&, std::size_t) {}

template <class Scene>
void FillAdded(Scene& scene, const Batch& b, std::size_t s) {
  Fill(scene, b.added[s]);
}

template <class Scene>
void EmptyInRandomOrder(Scene& scene, const Batch& b, std::size_t s) {
  Empty(scene, b.deleted[s]);
}

template <class Scene>
void BM_Add(benchmark::State& state, std::size_t n) {
  TimeOnBatches<Scene>(state, BatchOf(n), n, 1, Nothing<Scene>, FillAdded<Scene>);
}

template <class Scene>
void BM_Delete(benchmark::State& state, std::size_t n) {
  TimeOnBatches<Scene>(state, BatchOf(n), n, 2, FillAdded<Scene>, EmptyInRandomOrder<Scene>);
}

// One scene filled, then emptied in random order.
template <class Scene>
void BM_AddDelete(benchmark::State& state, std::size_t n) {
  TimeOnBatches<Scene>(state, 1, n, 3, Nothing<Scene>,
                       [](Scene& scene, const Batch& b, std::size_t s) {
                         FillAdded(scene, b, s);
                         EmptyInRandomOrder(scene, b, s);
                       });
}

template <class Scene>
void BM_Draw(benchmark::State& state, std::size_t n) {
  bench::glContext();
  Scene scene;
  for (std::size_t i = 0; i < n; ++i) {
    auto* s = new bench::EmptyShape;
    s->MoveTo(static_cast<double>(i % 100) * 0.01, static_cast<double>(i / 100) * 0.001, 0.0);
    scene.AddGLShape(s);
  }
  bench::drawEachIteration(scene, state);
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * n));
}

using Bench = void (*)(benchmark::State&, std::size_t);

void Register(const std::string& op, std::size_t n, Bench lumagrid, Bench reference) {
  benchmark::RegisterBenchmark((op + "/lumagrid").c_str(), lumagrid, n)
      ->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark((op + "/unordered_map").c_str(), reference, n)
      ->Unit(benchmark::kMicrosecond);
}

}  // namespace

int main(int argc, char** argv) {
  Register("scene_add_delete_1e5", 100000, BM_AddDelete<CGLScene>, BM_AddDelete<StdScene>);
  const struct {
    const char* name;
    std::size_t n;
  } sizes[] = {{"1e2", 100}, {"1e3", 1000}, {"1e4", 10000}, {"1e5", 100000}};
  for (const auto& size : sizes) {
    const std::string suffix = std::string("_") + size.name;
    Register("AddGLShape" + suffix, size.n, BM_Add<CGLScene>, BM_Add<StdScene>);
    Register("DeleteGLShape" + suffix, size.n, BM_Delete<CGLScene>, BM_Delete<StdScene>);
    Register("DrawGLShapes" + suffix, size.n, BM_Draw<CGLScene>, BM_Draw<StdScene>);
  }
  return bench::runRegistered(argc, argv);
}
