// A scene's items, bounds and picking, with values worked out by hand.
#include <gtest/gtest.h>
#include <lumagrid/SceneQuery.h>
#include <lumagrid/lumagrid.h>

#include <cmath>
#include <limits>
#include <vector>

#include "oracle/SceneOrder.h"
#include "recorded/RecordedTest.h"

namespace {

using lumagrid::Bounds;
using lumagrid::BoundsOf;
using lumagrid::Hit;
using lumagrid::Pick;
using lumagrid::SceneItem;
using lumagrid::SceneItems;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

vec3d Translation(const mat4x4& m) {
  return vec3d(m[3][0], m[3][1], m[3][2]);
}

class SceneQuery : public RecordedTest {
 protected:
  CGLScene scene_;
};

TEST_F(SceneQuery, ItemsComeInDrawingOrderWithHiddenOnesIncluded) {
  std::vector<CGLObject*> added;
  for (int i = 0; i < 20; ++i) {
    added.push_back(new CGLSphere(1.0));
    scene_.AddGLShape(added.back());
  }
  added[3]->SetVisible(false);
  const std::vector<SceneItem> items = SceneItems(scene_);
  const std::vector<CGLObject*> order = SceneVisitingOrder(added);
  ASSERT_EQ(items.size(), order.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(items[i].shape, order[i]) << i;
    EXPECT_EQ(items[i].shown, order[i] != added[3]) << i;
  }
}

TEST_F(SceneQuery, AnItemIsShownOnlyWhenTheSceneAndEveryEnclosingGroupShowIt) {
  auto* outer = new CGLGroup;
  auto* inner = new CGLGroup;
  auto* deep = new CGLSphere(1.0);
  auto* beside = new CGLSphere(1.0);
  inner->Add(deep);
  outer->Add(inner);
  outer->Add(beside);
  scene_.AddGLShape(outer);
  inner->SetVisible(false);
  std::vector<SceneItem> items = SceneItems(scene_);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_FALSE(items[0].shown);  // its own flag says visible; its group hides it
  EXPECT_TRUE(items[1].shown);
  scene_.ShowGLShapes(0);
  items = SceneItems(scene_);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_FALSE(items[1].shown);
}

TEST_F(SceneQuery, GroupsOpenIntoTheirMembersWithTheGroupsMatrixFirst) {
  auto* outer = new CGLGroup;
  auto* inner = new CGLGroup;
  auto* leaf = new CGLSphere(1.0);
  auto* after = new CGLSphere(1.0);
  outer->Scale(2.0);  // scales what follows it: the member's move doubles
  leaf->Move(1.0, 0.0, 0.0);
  inner->Move(0.0, 3.0, 0.0);
  inner->Add(leaf);
  outer->Add(inner);
  outer->Add(after);
  scene_.AddGLShape(outer);
  const std::vector<SceneItem> items = SceneItems(scene_);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0].shape, leaf);
  EXPECT_EQ(items[1].shape, after);
  // Group scale 2, then the inner group's move (0, 3, 0), then the leaf's (1, 0, 0).
  const vec3d t = Translation(items[0].world);
  EXPECT_DOUBLE_EQ(t.x(), 2.0);
  EXPECT_DOUBLE_EQ(t.y(), 6.0);
  EXPECT_DOUBLE_EQ(items[0].world[0][0], 2.0);
  // The inner group's extra pop does not reach the shape drawn after it.
  EXPECT_DOUBLE_EQ(Translation(items[1].world).y(), 0.0);
  EXPECT_DOUBLE_EQ(items[1].world[1][1], 2.0);
}

TEST_F(SceneQuery, AnEmptySceneHasNoItemsAndEmptyBounds) {
  EXPECT_TRUE(SceneItems(scene_).empty());
  EXPECT_TRUE(BoundsOf(scene_).empty);
}

TEST_F(SceneQuery, ShapeBoundsAreTheMeshsBoxInItsOwnFrame) {
  CGLCylinder cylinder(0.5, 2.0, true);
  cylinder.Move(10.0, 0.0, 0.0);  // not in the shape's own frame
  const Bounds b = BoundsOf(cylinder);
  ASSERT_FALSE(b.empty);
  EXPECT_NEAR(b.min.x(), -0.5, 1e-6);
  EXPECT_NEAR(b.max.x(), 0.5, 1e-6);
  EXPECT_NEAR(b.min.z(), 0.0, 1e-6);
  EXPECT_NEAR(b.max.z(), 2.0, 1e-6);
}

TEST_F(SceneQuery, AShapeWithoutGeometryHasEmptyBounds) {
  CGLPolyline polyline;
  EXPECT_TRUE(BoundsOf(polyline).empty);
}

TEST_F(SceneQuery, SceneBoundsHoldTheVisibleShapesInTheScenesFrame) {
  auto* a = new CGLSphere(1.0);
  auto* b = new CGLSphere(1.0);
  auto* hidden = new CGLSphere(50.0);
  a->Move(-3.0, 0.0, 0.0);
  b->Move(0.0, 4.0, 0.0);
  hidden->SetVisible(false);
  scene_.AddGLShape(a);
  scene_.AddGLShape(b);
  scene_.AddGLShape(hidden);
  const Bounds box = BoundsOf(scene_);
  ASSERT_FALSE(box.empty);
  EXPECT_NEAR(box.min.x(), -4.0, 1e-6);
  EXPECT_NEAR(box.max.x(), 1.0, 1e-6);
  EXPECT_NEAR(box.max.y(), 5.0, 1e-6);
  EXPECT_NEAR(box.min.z(), -1.0, 1e-6);
  scene_.ShowGLShapes(0);
  EXPECT_TRUE(BoundsOf(scene_).empty);
}

class Picking : public SceneQuery {
 protected:
  Hit untouched_{reinterpret_cast<CGLObject*>(0x1), -7.0, vec3d(1.0, 2.0, 3.0)};

  void ExpectUntouched(const Hit& hit) {
    EXPECT_EQ(hit.shape, untouched_.shape);
    EXPECT_EQ(hit.distance, -7.0);
  }
};

TEST_F(Picking, TheNearestShapeAlongTheRayInUnitsOfTheDirection) {
  auto* front = new CGLSphere(1.0);
  auto* back = new CGLSphere(1.0);
  back->Move(0.0, 0.0, -5.0);
  scene_.AddGLShape(back);
  scene_.AddGLShape(front);
  Hit hit = untouched_;
  ASSERT_TRUE(Pick(scene_, vec3d(0.0, 0.0, 10.0), vec3d(0.0, 0.0, -2.0), hit));
  EXPECT_EQ(hit.shape, front);
  // The sphere's pole lies at z = 1: 9 along the ray, 4.5 directions.
  EXPECT_NEAR(hit.distance, 4.5, 1e-6);
  EXPECT_NEAR(hit.point.z(), 1.0, 1e-6);
}

TEST_F(Picking, HiddenShapesAndShapesBehindTheOriginAreNotMet) {
  auto* hidden = new CGLSphere(1.0);
  auto* behind = new CGLSphere(1.0);
  hidden->SetVisible(false);
  behind->Move(0.0, 0.0, 20.0);
  scene_.AddGLShape(hidden);
  scene_.AddGLShape(behind);
  Hit hit = untouched_;
  EXPECT_FALSE(Pick(scene_, vec3d(0.0, 0.0, 10.0), vec3d(0.0, 0.0, -1.0), hit));
  ExpectUntouched(hit);
}

TEST_F(Picking, FromInsideAShapeTheRayMeetsItsFarSide) {
  auto* sphere = new CGLSphere(2.0);
  scene_.AddGLShape(sphere);
  Hit hit = untouched_;
  ASSERT_TRUE(Pick(scene_, vec3d(0.0, 0.0, 0.0), vec3d(0.0, 0.0, 1.0), hit));
  EXPECT_NEAR(hit.distance, 2.0, 1e-6);
}

TEST_F(Picking, AGroupsMemberIsTheShapeHit) {
  auto* group = new CGLGroup;
  auto* member = new CGLCylinder(0.5, 1.0, true);
  group->Add(member);
  group->Move(3.0, 0.0, 0.0);
  scene_.AddGLShape(group);
  Hit hit = untouched_;
  ASSERT_TRUE(Pick(scene_, vec3d(3.0, 0.0, 10.0), vec3d(0.0, 0.0, -1.0), hit));
  EXPECT_EQ(hit.shape, member);
  EXPECT_NEAR(hit.distance, 9.0, 1e-9);  // the top disk, at z = 1
}

TEST_F(Picking, LinesAreMetWithinTheTolerance) {
  auto* line = new CGLPolyline;
  line->AddVertex(-1.0, 0.0, 0.0);
  line->AddVertex(1.0, 0.0, 0.0);
  scene_.AddGLShape(line);
  Hit hit = untouched_;
  EXPECT_FALSE(Pick(scene_, vec3d(0.5, 0.05, 5.0), vec3d(0.0, 0.0, -1.0), hit));
  EXPECT_FALSE(Pick(scene_, vec3d(0.5, 0.05, 5.0), vec3d(0.0, 0.0, -1.0), hit, 0.04));
  ExpectUntouched(hit);
  ASSERT_TRUE(Pick(scene_, vec3d(0.5, 0.05, 5.0), vec3d(0.0, 0.0, -1.0), hit, 0.06));
  EXPECT_EQ(hit.shape, line);
  EXPECT_NEAR(hit.distance, 5.0, 1e-12);
}

TEST_F(Picking, IllFormedRaysMeetNothing) {
  scene_.AddGLShape(new CGLSphere(1.0));
  Hit hit = untouched_;
  const vec3d down(0.0, 0.0, -1.0);
  const vec3d above(0.0, 0.0, 5.0);
  EXPECT_FALSE(Pick(scene_, above, vec3d(0.0, 0.0, 0.0), hit));
  EXPECT_FALSE(Pick(scene_, above, vec3d(kNaN, 0.0, -1.0), hit));
  EXPECT_FALSE(Pick(scene_, vec3d(0.0, kNaN, 5.0), down, hit));
  EXPECT_FALSE(Pick(scene_, above, vec3d(0.0, 0.0, -HUGE_VAL), hit));
  EXPECT_FALSE(Pick(scene_, above, down, hit, -1.0));
  EXPECT_FALSE(Pick(scene_, above, down, hit, kNaN));
  ExpectUntouched(hit);
  EXPECT_TRUE(Pick(scene_, above, down, hit));
}

TEST_F(Picking, AHiddenSceneMeetsNothing) {
  scene_.AddGLShape(new CGLSphere(1.0));
  scene_.ShowGLShapes(0);
  Hit hit = untouched_;
  EXPECT_FALSE(Pick(scene_, vec3d(0.0, 0.0, 5.0), vec3d(0.0, 0.0, -1.0), hit));
}

TEST_F(Picking, ShapesWithNonFiniteSizesAreSteppedOver) {
  scene_.AddGLShape(new CGLSphere(kNaN));
  auto* real = new CGLSphere(1.0);
  scene_.AddGLShape(real);
  Hit hit = untouched_;
  ASSERT_TRUE(Pick(scene_, vec3d(0.0, 0.0, 5.0), vec3d(0.0, 0.0, -1.0), hit));
  EXPECT_EQ(hit.shape, real);
}

}  // namespace
