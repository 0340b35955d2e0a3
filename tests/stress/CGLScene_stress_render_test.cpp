// Many shapes of every kind added, drawn, re-coloured, hidden and deleted in a random order, in a
// real context: GL must report no error, and the process must give its memory back.
#include <GL/gl.h>
#include <malloc.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLBelt.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLMatrixGuard.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLPolyline.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/CGLSphere.h>
#include <lumagrid/CGLSpring.h>
#include <lumagrid/CGLTorus.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <random>
#include <vector>

#include "realgl/RealGLTest.h"

#if defined(__SANITIZE_ADDRESS__)
#define LUMAGRID_STRESS_UNDER_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define LUMAGRID_STRESS_UNDER_ASAN 1
#endif
#endif

namespace {

using headless::RealGLTest;

#if defined(LUMAGRID_STRESS_UNDER_ASAN)
// ASan's redzones and shadow take several times the memory (about 0.8 GB for 10,000 shapes); a
// tenth of the count keeps CI within bounds. Its allocator keeps freed memory in quarantine and
// never hands it back, so RSS says nothing there: LeakSanitizer checks the frees at exit instead.
constexpr std::size_t kShapeCount = 10000;
constexpr bool kCheckResidentMemory = false;
#else
constexpr std::size_t kShapeCount = 100000;
constexpr bool kCheckResidentMemory = true;
#endif

enum class Kind { Sphere, Cylinder, Cone, Torus, Arrow, Axis, Polyline, Belt, Spring, Group };
constexpr std::size_t kKindCount = 10;
constexpr std::size_t kGroupKinds = 2;  // Axis and Group

// Every drawn group pops one matrix more than it pushes, and the model-view stack holds only 32:
// shapes are spread over scenes of kPerScene, each drawn inside a guard with a spare per group,
// leaving room above the spares for a group's own push and its members' pushes.
constexpr std::size_t kPerScene = 100;
constexpr int kGroupsPerScene = static_cast<int>(kPerScene / kKindCount * kGroupKinds);
constexpr int kNestingRoom = 8;

// Resident set size in bytes, after handing the heap's free pages back to the system: glibc keeps
// freed blocks for reuse, which would hide whether the shapes' memory was released at all.
std::size_t residentBytes() {
  malloc_trim(0);
  std::FILE* f = std::fopen("/proc/self/statm", "r");
  if (f == nullptr) {
    return 0;
  }
  unsigned long size = 0;
  unsigned long resident = 0;
  const int read = std::fscanf(f, "%lu %lu", &size, &resident);
  std::fclose(f);
  if (read != 2) {
    return 0;
  }
  return static_cast<std::size_t>(resident) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

CGLObject* makeShape(Kind kind, std::mt19937& rng) {
  std::uniform_real_distribution<double> at(-1.8, 1.8);
  CGLObject* p = nullptr;
  switch (kind) {
    case Kind::Sphere:
      p = new CGLSphere(0.03);
      break;
    case Kind::Cylinder:
      p = new CGLCylinder(0.02, 0.06, true);
      break;
    case Kind::Cone:
      p = new CGLCone(0.03, 0.06, true);
      break;
    case Kind::Torus:
      p = new CGLTorus(0.01, 0.03, 0.0, 270.0);
      break;
    case Kind::Arrow:
      p = new CGLArrow(0.08, 0.02, false, 2, 0.7, 0.4);
      break;
    case Kind::Axis:
      p = new CGLAxis(0.08, 0.01, true);
      break;
    case Kind::Polyline: {
      auto* line = new CGLPolyline();
      line->AddVertex(0.0, 0.0, 0.0);
      line->AddVertex(0.05, 0.02, 0.0);
      line->AddVertex(0.02, 0.06, 0.01);
      p = line;
      break;
    }
    case Kind::Belt: {
      auto* belt = new CGLBelt(0.02, 0.01, 0.06);
      belt->SetQuality(10);
      p = belt;
      break;
    }
    case Kind::Spring: {
      auto* spring = new CGLSpring(0.004, 0.02, 0.0, 0.08, 2, 0.0);
      spring->SetQuality(10);
      p = spring;
      break;
    }
    case Kind::Group: {
      auto* group = new CGLGroup();
      group->Add(new CGLSphere(0.02));
      auto* cone = new CGLCone(0.02, 0.04, false);
      cone->MoveTo(0.03, 0.0, 0.0);
      group->Add(cone);
      p = group;
      break;
    }
  }
  p->MoveTo(at(rng), at(rng), 0.0);
  return p;
}

enum class Op { Recolour, Hide, Delete };

class SceneStress : public RealGLTest {
 protected:
  int framebufferWidth() const override { return 64; }
  int framebufferHeight() const override { return 64; }

  void SetUp() override {
    savedSlices_ = CGLObject::s_nSlices4New;
    savedStacks_ = CGLObject::s_nStacks4New;
    // Coarse tessellation: the test is about the shapes' life, not their look.
    CGLObject::s_nSlices4New = 4;
    CGLObject::s_nStacks4New = 2;
    RealGLTest::SetUp();
  }
  void TearDown() override {
    RealGLTest::TearDown();
    CGLObject::s_nSlices4New = savedSlices_;
    CGLObject::s_nStacks4New = savedStacks_;
  }

  void drawAll(std::vector<std::unique_ptr<CGLScene>>& scenes) {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    for (auto& scene : scenes) {
      CGLMatrixGuard guard(kGroupsPerScene);
      scene->DrawGLShapes();
    }
    glFinish();
  }

 private:
  int savedSlices_ = 0;
  int savedStacks_ = 0;
};

TEST_F(SceneStress, ShapesOfEveryKindLiveAndDieWithoutGLErrorsOrRetainedMemory) {
  GLint maxDepth = 0;
  glGetIntegerv(GL_MAX_MODELVIEW_STACK_DEPTH, &maxDepth);
  GLint depth = 0;
  glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
  ASSERT_LE(depth + kGroupsPerScene + kNestingRoom, maxDepth);

  std::mt19937 rng(20240611u);
  const std::size_t sceneCount = (kShapeCount + kPerScene - 1) / kPerScene;
  std::vector<std::unique_ptr<CGLScene>> scenes;
  for (std::size_t i = 0; i < sceneCount; ++i) {
    scenes.push_back(std::make_unique<CGLScene>());
  }

  // Shape i is of kind i % 10 and lives in scene i / kPerScene, so every scene holds exactly
  // kGroupsPerScene groups; the order of addition is random.
  std::vector<std::size_t> order(kShapeCount);
  for (std::size_t i = 0; i < kShapeCount; ++i) {
    order[i] = i;
  }
  std::shuffle(order.begin(), order.end(), rng);
  std::vector<CGLObject*> shapes(kShapeCount, nullptr);
  for (const std::size_t i : order) {
    shapes[i] = makeShape(static_cast<Kind>(i % kKindCount), rng);
    scenes[i / kPerScene]->AddGLShape(shapes[i]);
  }

  drawAll(scenes);
  ASSERT_TRUE(noGLError()) << "first full draw";
  const std::size_t afterFirstDraw = residentBytes();
  ASSERT_GT(afterFirstDraw, 0u);

  // Each shape comes up three times in a shuffled list: re-coloured the first time, hidden the
  // second, deleted the third, so its operations interleave at random with everyone else's.
  std::vector<std::size_t> turns;
  turns.reserve(3 * kShapeCount);
  for (std::size_t k = 0; k < 3; ++k) {
    turns.insert(turns.end(), order.begin(), order.end());
  }
  std::shuffle(turns.begin(), turns.end(), rng);
  std::vector<unsigned char> seen(kShapeCount, 0);
  std::uniform_int_distribution<unsigned long> colour(0ul, 0xFFFFFFul);
  const std::size_t drawEvery = turns.size() / 10;
  std::size_t errors = 0;
  for (std::size_t t = 0; t < turns.size(); ++t) {
    const std::size_t i = turns[t];
    const std::size_t s = i / kPerScene;
    switch (static_cast<Op>(seen[i]++)) {
      case Op::Recolour:
        shapes[i]->ColorSet(colour(rng));
        break;
      case Op::Hide:
        scenes[s]->ShowGLShape(shapes[i], 0);
        break;
      case Op::Delete:
        ASSERT_EQ(scenes[s]->DeleteGLShape(shapes[i]), 1);
        shapes[i] = nullptr;
        break;
    }
    if ((t + 1) % drawEvery == 0) {
      drawAll(scenes);
      if (!noGLError()) {
        ++errors;
      }
    }
  }
  drawAll(scenes);
  EXPECT_TRUE(noGLError());
  EXPECT_EQ(errors, 0u) << "draws during the shuffled operations reported GL errors";
  EXPECT_EQ(glIsList(1), GL_FALSE) << "a display list outlived its shape";

  const std::size_t afterDeletion = residentBytes();
  std::printf("shapes %zu, RSS after the first draw %zu KiB, after deleting all %zu KiB\n",
              kShapeCount, afterFirstDraw / 1024, afterDeletion / 1024);
  if (kCheckResidentMemory) {
    EXPECT_LE(static_cast<double>(afterDeletion), 1.05 * static_cast<double>(afterFirstDraw));
  }
}

}  // namespace
