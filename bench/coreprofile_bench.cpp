// The core-profile renderer beside the legacy draw, on the same scenes in the same run: 50,000
// spheres (each its own shape, place and colour) for the first frame, later frames and the memory
// the first two frames take; 10,000 shapes of every kind for later frames.
//
// Both sides draw into a 512x512 headless context of their own (core 3.3 for the renderer,
// compatibility for the legacy draw's lists and fixed function) under one perspective camera and
// one directional light. Every frame clears, draws and ends with glFinish(). Frames are timed by
// wall clock (manual time): llvmpipe rasterises on threads of its own, which the benchmark
// thread's CPU time would leave out.

#include <lumagrid/CoreProfileRenderer.h>
#include <lumagrid/lumagrid.h>
#include <lumagrid/testing/EglContext.h>

#include <GL/gl.h>
#include <GL/gle.h>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

namespace {

constexpr int kSize = 512;
constexpr int kSpheres = 50000;
constexpr int kSpheresPerRow = 250;
constexpr double kSphereSpacing = 1.0;
constexpr int kMixedShapes = 10000;
constexpr int kMixedPerRow = 100;
constexpr double kMixedSpacing = 3.0;

// ---------------------------------------------------------------- camera and light

// A camera on the +z axis looking down at a grid of the given extent centred on the origin,
// 45 degrees of field of view, and a directional light from above right of the viewer.
lumagrid::View ViewOfGrid(double extent) {
  lumagrid::View view{};
  const double distance = 0.6 * extent / std::tan(M_PI / 8.0) + 10.0;
  for (int i = 0; i < 16; ++i) {
    view.modelView[i] = i % 5 == 0 ? 1.0f : 0.0f;
    view.projection[i] = 0.0f;
  }
  view.modelView[14] = static_cast<float>(-distance);
  const double nearPlane = 1.0;
  const double farPlane = distance + 50.0;
  const double f = 1.0 / std::tan(M_PI / 8.0);
  view.projection[0] = static_cast<float>(f);
  view.projection[5] = static_cast<float>(f);
  view.projection[10] = static_cast<float>((farPlane + nearPlane) / (nearPlane - farPlane));
  view.projection[11] = -1.0f;
  view.projection[14] = static_cast<float>(2.0 * farPlane * nearPlane / (nearPlane - farPlane));
  view.lights.push_back({{0.3f, 0.5f, 1.0f, 0.0f}, {0.8f, 0.8f, 0.8f, 1.0f}});
  const float ambient[4] = {0.2f, 0.2f, 0.2f, 1.0f};
  std::copy(ambient, ambient + 4, view.ambient);
  return view;
}

// The fixed-function state the renderer's View stands for.
void SetLegacyState(const lumagrid::View& view) {
  glViewport(0, 0, kSize, kSize);
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixf(view.projection);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glEnable(GL_LIGHTING);
  for (std::size_t i = 0; i < view.lights.size(); ++i) {
    const auto light = static_cast<GLenum>(GL_LIGHT0 + i);
    glEnable(light);
    glLightfv(light, GL_POSITION, view.lights[i].position);
    glLightfv(light, GL_DIFFUSE, view.lights[i].diffuse);
  }
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, view.ambient);
  glEnable(GL_DEPTH_TEST);
  glEnable(GL_NORMALIZE);
  glLoadMatrixf(view.modelView);
}

// ---------------------------------------------------------------- scenes

// A colour of its own for shape i.
void Paint(CGLObject& shape, int i) {
  shape.ColorSet((i % 17) / 16.0, (i % 23) / 22.0, (i % 29) / 28.0, 1.0);
}

void PlaceOnGrid(CGLObject& shape, int i, int perRow, double spacing) {
  const double half = 0.5 * (perRow - 1) * spacing;
  shape.MoveTo((i % perRow) * spacing - half, (i / perRow) * spacing - half, 0.0);
}

constexpr int kGleDefaultSides = 20;

void AddSpheres(CGLScene& scene) {
  CGLObject::s_nSlices4New = 8;
  CGLObject::s_nStacks4New = 8;
  for (int i = 0; i < kSpheres; ++i) {
    auto* sphere = new CGLSphere(0.4);
    PlaceOnGrid(*sphere, i, kSpheresPerRow, kSphereSpacing);
    Paint(*sphere, i);
    scene.AddGLShape(sphere);
  }
}

// A polyline of one of a few shapes: a spiral turned `variant` times a little further.
CGLObject* Polyline(int variant) {
  auto* line = new CGLPolyline();
  for (int k = 0; k < 24; ++k) {
    const double a = k * (0.25 + 0.05 * variant);
    line->AddVertex(std::cos(a), std::sin(a), k * 0.04);
  }
  return line;
}

CGLObject* Spring(int variant, bool tension) {
  auto* spring = new CGLSpring(0.08, 0.6 + 0.1 * variant, 1.0, 2.0, 4, 0.0);
  if (tension) {
    spring->SetType(1);
  }
  return spring;
}

// Shape i of the mixed scene: the kinds in turn, each in one of three sizes, so that many
// shapes share a mesh but not all.
CGLObject* MixedShape(int i) {
  const int variant = (i / 10) % 3;
  const double size = 1.0 + 0.2 * variant;
  switch (i % 10) {
    case 0:
      return new CGLSphere(0.8 * size);
    case 1:
      return new CGLCylinder(0.5 * size, 1.5, true);
    case 2:
      return new CGLCone(0.6 * size, 1.5, true);
    case 3:
      return new CGLArrow(1.5 * size, 0.3, false, 1 + variant % 2, 0.8, 0.4);
    case 4:
      return new CGLAxis(1.0 * size, 0.08, false);
    case 5:
      return new CGLTorus(0.2, 0.8 * size, 0.0, 360.0);
    case 6:
      return Polyline(variant);
    case 7:
      return new CGLBelt(0.4 * size, 0.3, 1.2);
    case 8:
      return Spring(variant, false);
    default:
      return Spring(variant, true);
  }
}

void AddMixedShapes(CGLScene& scene) {
  // A legacy spring leaves its quality as GLE's number of sides for every tube after it, here
  // and in the runs that follow: each run starts from GLE's own default, whichever way came
  // before.
  gleSetNumSides(kGleDefaultSides);
  CGLObject::s_nSlices4New = 8;
  CGLObject::s_nStacks4New = 8;
  for (int i = 0; i < kMixedShapes; ++i) {
    CGLObject* shape = MixedShape(i);
    PlaceOnGrid(*shape, i, kMixedPerRow, kMixedSpacing);
    shape->Rotate(0.3 * (i % 7), 0.2 * (i % 5), 0.0);
    Paint(*shape, i);
    scene.AddGLShape(shape);
  }
}

// ---------------------------------------------------------------- the two ways to draw

double Seconds(std::chrono::steady_clock::duration d) {
  return std::chrono::duration<double>(d).count();
}

// A fresh context of the kind a way of drawing needs; without it there is nothing to measure.
std::unique_ptr<headless::EglContext> ContextFor(headless::EglContext::Profile profile) {
  auto gl = std::make_unique<headless::EglContext>(kSize, kSize, 0, profile);
  if (!gl->ok()) {
    std::fprintf(stderr, "no GL context: %s\n", gl->error().c_str());
    std::exit(1);
  }
  return gl;
}

// The legacy draw: the scene's lists under fixed-function state.
class Legacy {
 public:
  static constexpr auto kProfile = headless::EglContext::Profile::Compatibility;
  explicit Legacy(const lumagrid::View& view) : view_(view) {}
  void Frame(CGLScene& scene) {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    SetLegacyState(view_);
    scene.DrawGLShapes();
    glFinish();
  }

 private:
  lumagrid::View view_;
};

// The renderer in a core context.
class Renderer {
 public:
  static constexpr auto kProfile = headless::EglContext::Profile::Core;
  explicit Renderer(const lumagrid::View& view) : view_(view) {}
  void Frame(CGLScene& scene) {
    glViewport(0, 0, kSize, kSize);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!renderer_.Draw(scene, view_)) {
      std::fprintf(stderr, "renderer: %s\n", renderer_.LastError().c_str());
      std::exit(1);
    }
    glFinish();
  }

 private:
  lumagrid::View view_;
  lumagrid::CoreProfileRenderer renderer_;
};

using Fill = void (*)(CGLScene&);

// Each iteration builds the scene and a fresh drawer (untimed) and times its first frame.
template <class Way>
void FirstFrame(benchmark::State& state, Fill fill, double extent) {
  const auto gl = ContextFor(Way::kProfile);
  const lumagrid::View view = ViewOfGrid(extent);
  for (auto _ : state) {
    auto scene = std::make_unique<CGLScene>();
    fill(*scene);
    auto way = std::make_unique<Way>(view);
    const auto start = std::chrono::steady_clock::now();
    way->Frame(*scene);
    state.SetIterationTime(Seconds(std::chrono::steady_clock::now() - start));
    scene.reset();  // the scene's lists go while the context is current
  }
}

// Times frames after the first, which builds the scene's lists or meshes beforehand.
template <class Way>
void LaterFrames(benchmark::State& state, Fill fill, double extent) {
  const auto gl = ContextFor(Way::kProfile);
  CGLScene scene;
  fill(scene);
  Way way(ViewOfGrid(extent));
  way.Frame(scene);
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    way.Frame(scene);
    state.SetIterationTime(Seconds(std::chrono::steady_clock::now() - start));
  }
}

// The process's resident set, in bytes.
double ResidentBytes() {
  std::ifstream statm("/proc/self/statm");
  double pages = 0.0;
  double resident = 0.0;
  statm >> pages >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

// What drawing adds to the resident set: its growth from after the scene is built to after its
// first two frames, as the counter rss_growth (bytes): what the lists or the meshes and instance
// data, and the driver, hold then. scene_growth is what building the scene took before, the same
// on both sides (the shapes are the host's either way).
// Freed heap is handed back to the system before each reading, so that neither memory freed by
// earlier runs nor what the frames freed counts. The time is that of the build and both frames.
template <class Way>
void MemoryOfTwoFrames(benchmark::State& state, Fill fill, double extent) {
  const auto gl = ContextFor(Way::kProfile);
  const lumagrid::View view = ViewOfGrid(extent);
  double growth = 0.0;
  double shapes = 0.0;
  for (auto _ : state) {
    malloc_trim(0);
    const double before = ResidentBytes();
    const auto start = std::chrono::steady_clock::now();
    auto scene = std::make_unique<CGLScene>();
    fill(*scene);
    malloc_trim(0);
    const double built = ResidentBytes();
    shapes = built - before;
    auto way = std::make_unique<Way>(view);
    way->Frame(*scene);
    way->Frame(*scene);
    state.SetIterationTime(Seconds(std::chrono::steady_clock::now() - start));
    malloc_trim(0);
    growth = ResidentBytes() - built;
    way.reset();
    scene.reset();
  }
  state.counters["rss_growth"] = growth;
  state.counters["scene_growth"] = shapes;
}

const double kSphereExtent = kSpheresPerRow * kSphereSpacing;
const double kMixedExtent = kMixedPerRow * kMixedSpacing;

void Spheres50kFirstRenderer(benchmark::State& s) {
  FirstFrame<Renderer>(s, AddSpheres, kSphereExtent);
}
void Spheres50kFirstLegacy(benchmark::State& s) {
  FirstFrame<Legacy>(s, AddSpheres, kSphereExtent);
}
void Spheres50kLaterRenderer(benchmark::State& s) {
  LaterFrames<Renderer>(s, AddSpheres, kSphereExtent);
}
void Spheres50kLaterLegacy(benchmark::State& s) {
  LaterFrames<Legacy>(s, AddSpheres, kSphereExtent);
}
void Mixed10kLaterRenderer(benchmark::State& s) {
  LaterFrames<Renderer>(s, AddMixedShapes, kMixedExtent);
}
void Mixed10kLaterLegacy(benchmark::State& s) {
  LaterFrames<Legacy>(s, AddMixedShapes, kMixedExtent);
}
void Spheres50kMemoryRenderer(benchmark::State& s) {
  MemoryOfTwoFrames<Renderer>(s, AddSpheres, kSphereExtent);
}
void Spheres50kMemoryLegacy(benchmark::State& s) {
  MemoryOfTwoFrames<Legacy>(s, AddSpheres, kSphereExtent);
}

}  // namespace

// "lumagrid" is the renderer, "legacy" the display lists drawn by DrawGLShapes.
BENCHMARK(Spheres50kFirstRenderer)
    ->Name("core_spheres50k_first_frame/lumagrid")
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Spheres50kFirstLegacy)
    ->Name("core_spheres50k_first_frame/legacy")
    ->UseManualTime()
    ->Iterations(2)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Spheres50kLaterRenderer)
    ->Name("core_spheres50k_later_frame/lumagrid")
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Spheres50kLaterLegacy)
    ->Name("core_spheres50k_later_frame/legacy")
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Mixed10kLaterRenderer)
    ->Name("core_mixed10k_later_frame/lumagrid")
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Mixed10kLaterLegacy)
    ->Name("core_mixed10k_later_frame/legacy")
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Spheres50kMemoryRenderer)
    ->Name("core_spheres50k_rss_growth/lumagrid")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Spheres50kMemoryLegacy)
    ->Name("core_spheres50k_rss_growth/legacy")
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
