#include <lumagrid/CGLScene.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/CGLShapeMap.h"
#include "core_expect.h"
#include "core_probes.h"
#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "oracle/SceneOrder.h"
#include "recorded/RecordedTest.h"

namespace {

using Log = std::vector<const CGLObject*>;

// The scene's visiting order of the shapes, given in the order they were added.
Log ExpectedOrder(const Log& added) {
  return SceneVisitingOrder(added);
}

// A logging shape placed at an address of the test's choosing, so that
// tests can put shapes into chosen buckets.
class ArenaShape : public LoggingShape {
 public:
  using LoggingShape::LoggingShape;
  static void* operator new(std::size_t size) {
    EXPECT_LE(size, kSlot);
    return s_pNext;
  }
  // The arena owns the memory.
  static void operator delete(void*) noexcept {}

  static constexpr std::size_t kSlot = 512;
  static constexpr std::size_t kSlots = 4096;
  static void* Slot(std::size_t i) { return s_arena + i * kSlot; }
  static void* s_pNext;
  alignas(64) static unsigned char s_arena[kSlots * kSlot];
};

void* ArenaShape::s_pNext = nullptr;
alignas(64) unsigned char ArenaShape::s_arena[ArenaShape::kSlots * ArenaShape::kSlot];

ArenaShape* NewAt(void* where, Log* drawn, Log* deleted = nullptr) {
  ArenaShape::s_pNext = where;
  return new ArenaShape(drawn, deleted);
}

// Three shapes at the given slots, added to the scene in that order.
std::array<ArenaShape*, 3> AddedAt(const std::vector<void*>& slots, CGLScene* scene, Log* drawn) {
  std::array<ArenaShape*, 3> shapes{};
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    shapes[i] = NewAt(slots[i], drawn);
  }
  for (ArenaShape* p : shapes) {
    scene->AddGLShape(p);
  }
  return shapes;
}

// Arena slots grouped by the bucket they hash to.
std::map<std::uint32_t, std::vector<void*>> SlotsByBucket() {
  std::map<std::uint32_t, std::vector<void*>> m;
  for (std::size_t i = 0; i < ArenaShape::kSlots; ++i) {
    m[SceneBucket(ArenaShape::Slot(i))].push_back(ArenaShape::Slot(i));
  }
  return m;
}

std::vector<void*> ThreeSlotsInOneBucket() {
  for (auto& [bucket, slots] : SlotsByBucket()) {
    if (slots.size() >= 3) {
      return {slots[0], slots[1], slots[2]};
    }
  }
  ADD_FAILURE() << "no bucket with three arena slots";
  return {};
}

class Scene : public RecordedTest {};

// ---------------------------------------------------------------- basics

TEST_F(Scene, NewSceneDrawsNothingAndDeletesNothing) {
  CGLScene scene;
  ObjectProbe stranger;
  EXPECT_EQ(scene.DeleteGLShape(&stranger), 0);
  EXPECT_EQ(scene.DeleteGLShape(nullptr), 0);
  scene.DrawGLShapes();
  EXPECT_EQ(scene.SetMatrix(Identity()), 1);
  EXPECT_TRUE(glrecorder::recorder().log().empty());
}

TEST_F(Scene, AddGLShapeAlwaysReturnsOne) {
  CGLScene scene;
  Log drawn;
  auto* p = new LoggingShape(&drawn);
  EXPECT_EQ(scene.AddGLShape(p), 1);
  EXPECT_EQ(scene.AddGLShape(p), 1);
  EXPECT_EQ(scene.AddGLShape(nullptr), 1);
  scene.DeleteGLShape(nullptr);
}

TEST_F(Scene, AddingTwiceAndDeletingOnceDeletesTheShapeOnce) {
  int deaths = 0;
  CGLScene scene;
  auto* p = new CountedShape(&deaths);
  scene.AddGLShape(p);
  scene.AddGLShape(p);
  EXPECT_EQ(scene.DeleteGLShape(p), 1);
  EXPECT_EQ(deaths, 1);
  glrecorder::recorder().clearCalls();
  scene.DrawGLShapes();
  EXPECT_TRUE(glrecorder::recorder().log().empty());
}

TEST_F(Scene, DeletingAnUnknownShapeLeavesItAlive) {
  int deaths = 0;
  CGLScene scene;
  CountedShape outside(&deaths);
  EXPECT_EQ(scene.DeleteGLShape(&outside), 0);
  EXPECT_EQ(deaths, 0);
}

TEST_F(Scene, DeletedShapeIsGoneFromLaterVisits) {
  Log drawn;
  CGLScene scene;
  auto* a = new LoggingShape(&drawn);
  auto* b = new LoggingShape(&drawn);
  scene.AddGLShape(a);
  scene.AddGLShape(b);
  EXPECT_EQ(scene.DeleteGLShape(a), 1);
  EXPECT_EQ(scene.DeleteGLShape(a), 0);
  scene.DrawGLShapes();
  EXPECT_EQ(drawn, Log{b});
}

// ---------------------------------------------------------------- show / select

TEST_F(Scene, ShowGLShapeHidesAShapeInTheScene) {
  CGLScene scene;
  auto* p = new QuadShape;
  scene.AddGLShape(p);
  scene.ShowGLShape(p, 0);
  EXPECT_EQ(p->IsVisible(), 0);
  glrecorder::recorder().clearCalls();
  scene.DrawGLShapes();
  EXPECT_TRUE(glrecorder::recorder().log().empty());
  scene.ShowGLShape(p, 7);  // any non-zero value shows
  EXPECT_EQ(p->IsVisible(), 1);
}

TEST_F(Scene, ShowGLShapeLeavesAShapeOutsideTheSceneUntouched) {
  CGLScene scene;
  QuadShape outside;
  scene.ShowGLShape(&outside, 0);
  EXPECT_EQ(outside.IsVisible(), 1);
  outside.SetVisible(false);
  scene.ShowGLShape(&outside, 1);
  EXPECT_EQ(outside.IsVisible(), 0);
}

TEST_F(Scene, SelectGLShapeSelectsOnlyShapesInTheScene) {
  CGLScene scene;
  auto* p = new ObjectProbe;
  scene.AddGLShape(p);
  scene.SelectGLShape(p, 3);
  EXPECT_EQ(p->IsSelected(), 1);
  scene.SelectGLShape(p, 0);
  EXPECT_EQ(p->IsSelected(), 0);
  ObjectProbe outside;
  scene.SelectGLShape(&outside, 1);
  EXPECT_EQ(outside.IsSelected(), 0);
}

TEST_F(Scene, ShowGLShapesZeroSilencesTheWholeScene) {
  CGLScene scene;
  auto* p = new QuadShape;
  scene.AddGLShape(p);
  scene.ShowGLShapes(0);
  scene.DrawGLShapes();
  EXPECT_TRUE(glrecorder::recorder().log().empty());
  EXPECT_EQ(p->IsVisible(), 1);  // the shapes' own flags are untouched
  scene.ShowGLShapes(2);
  scene.DrawGLShapes();
  EXPECT_EQ(glrecorder::recorder().count("glCallList"), 1u);
}

class SceneProbe : public CGLScene {
 public:
  using CGLScene::m_bShowShapes;
};

TEST_F(Scene, ShowGLShapesStoresTheIntUnchanged) {
  SceneProbe scene;
  EXPECT_EQ(scene.m_bShowShapes, 1);
  scene.ShowGLShapes(2);
  EXPECT_EQ(scene.m_bShowShapes, 2);
  scene.ShowGLShapes(-7);
  EXPECT_EQ(scene.m_bShowShapes, -7);
  scene.ShowGLShapes(0);
  EXPECT_EQ(scene.m_bShowShapes, 0);
}

// ---------------------------------------------------------------- ownership

TEST_F(Scene, ResetGLShapesDeletesAllAndEmptiesTheScene) {
  int deaths = 0;
  CGLScene scene;
  for (int i = 0; i < 3; ++i) {
    scene.AddGLShape(new CountedShape(&deaths));
  }
  scene.ResetGLShapes();
  EXPECT_EQ(deaths, 3);
  glrecorder::recorder().clearCalls();
  scene.DrawGLShapes();
  EXPECT_TRUE(glrecorder::recorder().log().empty());
  scene.AddGLShape(new CountedShape(&deaths));  // still usable
  scene.DrawGLShapes();
  EXPECT_EQ(glrecorder::recorder().count("glPushMatrix"), 1u);
}

TEST_F(Scene, DestroyingTheSceneDeletesItsShapes) {
  int deaths = 0;
  {
    CGLScene scene;
    scene.AddGLShape(new CountedShape(&deaths));
    scene.AddGLShape(new CountedShape(&deaths));
  }
  EXPECT_EQ(deaths, 2);
}

TEST_F(Scene, NullShapeIsStoredAndSkippedByReset) {
  int deaths = 0;
  CGLScene scene;
  scene.AddGLShape(nullptr);
  scene.AddGLShape(new CountedShape(&deaths));
  scene.ResetGLShapes();
  EXPECT_EQ(deaths, 1);
  scene.AddGLShape(nullptr);
  EXPECT_EQ(scene.DeleteGLShape(nullptr), 1);  // found, and deleting null is harmless
  EXPECT_EQ(scene.DeleteGLShape(nullptr), 0);
}

TEST_F(Scene, NullShapeIsSkippedByEveryPass) {
  Log drawn;
  Log deleted;
  auto* a = new LoggingShape(&drawn, &deleted);
  auto* b = new LoggingShape(&drawn, &deleted);
  {
    CGLScene scene;
    scene.AddGLShape(a);
    scene.AddGLShape(nullptr);
    scene.AddGLShape(b);

    scene.DrawGLShapes();
    EXPECT_EQ(drawn, ExpectedOrder({a, b}));
    drawn.clear();
    EXPECT_EQ(scene.SetMatrix(Identity()), 1);
    double raw[16] = {2.0, 0.0, 0.0, 0.0, 0.0, 2.0, 0.0, 0.0,
                      0.0, 0.0, 2.0, 0.0, 0.0, 0.0, 0.0, 1.0};
    EXPECT_EQ(scene.SetMatrix(raw), 1);
    EXPECT_EQ(drawn.size(), 4u);  // each shape twice, nothing for null
    EXPECT_EQ(static_cast<const double*>(a->m_matrix)[0], 2.0);
    scene.ShowGLShape(nullptr, 0);
    scene.SelectGLShape(nullptr, 1);
    scene.ShowGLShapes(0);
    scene.ShowGLShapes(1);
    EXPECT_EQ(a->IsVisible(), 1);
    EXPECT_EQ(b->IsSelected(), 0);
    drawn.clear();
    scene.DrawGLShapes();
    EXPECT_EQ(drawn, ExpectedOrder({a, b}));
    EXPECT_TRUE(deleted.empty());
    // Still stored: deleting null finds it once.
    EXPECT_EQ(scene.DeleteGLShape(nullptr), 1);
    EXPECT_EQ(scene.DeleteGLShape(nullptr), 0);
    scene.AddGLShape(nullptr);
  }
  std::sort(deleted.begin(), deleted.end());
  Log both = {a, b};
  std::sort(both.begin(), both.end());
  EXPECT_EQ(deleted, both);
}

TEST_F(Scene, NullShapeDoesNotChangeWhatRealShapesDraw) {
  auto draw = [](bool withNull) {
    glrecorder::recorder().reset();
    CGLScene scene;
    auto* q = new QuadShape(0.5f);
    q->Move(0.0, 0.0, 0.0);
    scene.AddGLShape(q);
    if (withNull) {
      scene.AddGLShape(nullptr);
    }
    scene.DrawGLShapes();
    scene.SelectGLShape(q, 1);
    scene.DrawGLShapes();
    return glrecorder::recorder().log();
  };
  ExpectNullChangesNothing(draw);
}

// ---------------------------------------------------------------- matrices

TEST_F(Scene, SetMatrixReplacesEveryShapesMatrixWithoutMarkingModified) {
  CGLScene scene;
  auto* a = new ObjectProbe;
  auto* b = new ObjectProbe;
  a->Move(5.0, 6.0, 7.0);
  a->m_bModified = false;
  b->m_bModified = false;
  scene.AddGLShape(a);
  scene.AddGLShape(b);
  mat4x4 m;
  m.loadScale(2.0, 3.0, 4.0);
  EXPECT_EQ(scene.SetMatrix(m), 1);
  EXPECT_TRUE(mathtest::equalOrBothNaN(a->m_matrix, m));
  EXPECT_TRUE(mathtest::equalOrBothNaN(b->m_matrix, m));
  double raw[16];
  for (int i = 0; i < 16; ++i) {
    raw[i] = 100.0 + i;
  }
  EXPECT_EQ(scene.SetMatrix(raw), 1);
  EXPECT_EQ(static_cast<const double*>(a->m_matrix)[15], 115.0);
  EXPECT_EQ(static_cast<const double*>(b->m_matrix)[0], 100.0);
  EXPECT_FALSE(a->m_bModified);
  EXPECT_FALSE(b->m_bModified);
}

// ---------------------------------------------------------------- order

TEST_F(Scene, VisitingOrderFollowsTheHashForManyShapes) {
  Log drawn;
  Log deleted;
  Log added;
  CGLScene scene;
  for (int i = 0; i < 400; ++i) {
    auto* p = new LoggingShape(&drawn, &deleted);
    added.push_back(p);
    scene.AddGLShape(p);
  }
  const Log expected = ExpectedOrder(added);
  ASSERT_NE(expected, added);  // the test would be weak if insertion order matched

  scene.DrawGLShapes();
  EXPECT_EQ(drawn, expected);
  drawn.clear();
  scene.SetMatrix(Identity());
  EXPECT_EQ(drawn, expected);
  drawn.clear();
  double raw[16] = {};
  scene.SetMatrix(raw);
  EXPECT_EQ(drawn, expected);
  scene.ResetGLShapes();
  EXPECT_EQ(deleted, expected);
}

TEST_F(Scene, OrderIsNotChangedByDeletingAndAddingOthers) {
  Log drawn;
  Log added;
  CGLScene scene;
  std::vector<LoggingShape*> shapes;
  for (int i = 0; i < 200; ++i) {
    shapes.push_back(new LoggingShape(&drawn));
    scene.AddGLShape(shapes.back());
  }
  for (int i = 0; i < 200; i += 3) {
    scene.DeleteGLShape(shapes[i]);
  }
  for (int i = 0; i < 200; ++i) {
    if (i % 3 != 0) {
      added.push_back(shapes[i]);
    }
  }
  scene.DrawGLShapes();
  EXPECT_EQ(drawn, ExpectedOrder(added));
}

TEST_F(Scene, WithinABucketTheNewestShapeComesFirst) {
  const std::vector<void*> slots = ThreeSlotsInOneBucket();
  ASSERT_EQ(slots.size(), 3u);
  Log drawn;
  CGLScene scene;
  const auto [a, b, c] = AddedAt(slots, &scene, &drawn);
  scene.DrawGLShapes();
  EXPECT_EQ(drawn, (Log{c, b, a}));
}

TEST_F(Scene, AddingAgainKeepsTheShapesPlaceInItsBucket) {
  const std::vector<void*> slots = ThreeSlotsInOneBucket();
  ASSERT_EQ(slots.size(), 3u);
  Log drawn;
  CGLScene scene;
  const auto [a, b, c] = AddedAt(slots, &scene, &drawn);
  scene.AddGLShape(a);
  scene.DrawGLShapes();
  EXPECT_EQ(drawn, (Log{c, b, a}));  // not moved to the head
}

TEST_F(Scene, DeletingFromTheMiddleOfABucketKeepsTheRest) {
  const std::vector<void*> slots = ThreeSlotsInOneBucket();
  ASSERT_EQ(slots.size(), 3u);
  Log drawn;
  CGLScene scene;
  const auto [a, b, c] = AddedAt(slots, &scene, &drawn);
  EXPECT_EQ(scene.DeleteGLShape(b), 1);
  scene.DrawGLShapes();
  EXPECT_EQ(drawn, (Log{c, a}));
}

TEST_F(Scene, BucketsAreVisitedInAscendingOrderWhateverTheAdditionOrder) {
  auto byBucket = SlotsByBucket();
  ASSERT_GE(byBucket.size(), 3u);
  auto it = byBucket.begin();
  void* low = it->second[0];
  std::advance(it, static_cast<long>(byBucket.size() / 2));
  void* middle = it->second[0];
  void* high = byBucket.rbegin()->second[0];
  Log drawn;
  CGLScene scene;
  ArenaShape* h = NewAt(high, &drawn);
  ArenaShape* l = NewAt(low, &drawn);
  ArenaShape* m = NewAt(middle, &drawn);
  scene.AddGLShape(h);
  scene.AddGLShape(m);
  scene.AddGLShape(l);
  scene.DrawGLShapes();
  EXPECT_EQ(drawn, (Log{l, m, h}));
}

TEST_F(Scene, DeletingTenThousandInRandomOrderKeepsOrderAndOwnership) {
  constexpr std::size_t kShapes = 10000;
  Log drawn;
  Log deleted;
  CGLScene scene;
  std::vector<LoggingShape*> shapes;
  for (std::size_t i = 0; i < kShapes; ++i) {
    shapes.push_back(new LoggingShape(&drawn, &deleted));
    scene.AddGLShape(shapes.back());
  }
  std::vector<std::size_t> victims(kShapes);
  for (std::size_t i = 0; i < kShapes; ++i) {
    victims[i] = i;
  }
  std::shuffle(victims.begin(), victims.end(), std::mt19937(1234));
  std::vector<bool> alive(kShapes, true);
  Log expectedDeaths;
  for (std::size_t n = 0; n < kShapes; ++n) {
    LoggingShape* victim = shapes[victims[n]];
    expectedDeaths.push_back(victim);
    ASSERT_EQ(scene.DeleteGLShape(victim), 1);
    alive[victims[n]] = false;
    if (n % 2500 == 0 || n == kShapes - 2) {
      Log survivors;
      for (std::size_t i = 0; i < kShapes; ++i) {
        if (alive[i]) {
          survivors.push_back(shapes[i]);
          scene.SelectGLShape(shapes[i], 1);  // each survivor is still found
          ASSERT_EQ(shapes[i]->IsSelected(), 1);
        }
      }
      drawn.clear();
      scene.DrawGLShapes();
      ASSERT_EQ(drawn, ExpectedOrder(survivors)) << "after " << n + 1 << " deletions";
    }
  }
  EXPECT_EQ(deleted, expectedDeaths);
  drawn.clear();
  scene.DrawGLShapes();
  EXPECT_TRUE(drawn.empty());
}

// ---------------------------------------------------------------- drawing

TEST_F(Scene, DrawGLShapesIssuesNothingOfItsOwn) {
  CGLScene scene;
  auto* p = new ObjectProbe;  // a bare object: push, multiply, material, pop
  scene.AddGLShape(p);
  scene.DrawGLShapes();
  EXPECT_THAT(glrecorder::recorder().log(),
              ::testing::ElementsAre("glPushMatrix()", ::testing::StartsWith("glMultMatrixd("),
                                     ::testing::StartsWith("glMaterialfv("), "glPopMatrix()"));
}

TEST_F(Scene, HiddenShapesAreSkippedByTheirOwnDraw) {
  CGLScene scene;
  auto* shown = new QuadShape;
  auto* hidden = new QuadShape;
  scene.AddGLShape(shown);
  scene.AddGLShape(hidden);
  hidden->SetVisible(false);
  scene.DrawGLShapes();
  EXPECT_EQ(glrecorder::recorder().count("glPushMatrix"), 1u);
  EXPECT_EQ(glrecorder::recorder().count("glCallList"), 1u);
  EXPECT_EQ(glrecorder::recorder().stackDepth(GL_MODELVIEW), 1);
}

}  // namespace
