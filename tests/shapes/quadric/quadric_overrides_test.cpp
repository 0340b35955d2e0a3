#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLQuadric.h>
#include <lumagrid/CGLSphere.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "probes/VirtualTable.h"
#include "recorded/RecordedTest.h"
#include "shapes/quadric/CGLBox.h"
#include "shapes/quadric/CGLCube.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Each shape overrides the operations that supply its geometry and nothing
// else; the tables are compared entry by entry with the base's.
class QuadricOverrides : public RecordedTest {};

TEST_F(QuadricOverrides, QuadricOverridesNothing) {
  const CGLObject base;
  const CGLQuadric quadric;
  EXPECT_THAT(OverriddenVirtuals(quadric, base), IsEmpty());
}

TEST_F(QuadricOverrides, SphereAndCylinderOverrideOnlyDisplayListMake) {
  const CGLQuadric base;
  EXPECT_THAT(OverriddenVirtuals(CGLSphere(), base), ElementsAre("DisplayListMake"));
  EXPECT_THAT(OverriddenVirtuals(CGLCylinder(), base), ElementsAre("DisplayListMake"));
}

TEST_F(QuadricOverrides, ConeOverridesNothingOfTheCylinder) {
  EXPECT_THAT(OverriddenVirtuals(CGLCone(), CGLCylinder()), IsEmpty());
}

TEST_F(QuadricOverrides, ArrowOverridesDisplayListMakeAndDrawDirect) {
  EXPECT_THAT(OverriddenVirtuals(CGLArrow(), CGLQuadric()),
              ElementsAre("DisplayListMake", "DrawDirect"));
}

TEST_F(QuadricOverrides, BoxOverridesOnlyDisplayListMakeAndCubeNothing) {
  EXPECT_THAT(OverriddenVirtuals(CGLBox(), CGLObject()), ElementsAre("DisplayListMake"));
  EXPECT_THAT(OverriddenVirtuals(CGLCube(), CGLBox()), IsEmpty());
}

TEST_F(QuadricOverrides, AxisOverridesNothingOfTheGroup) {
  EXPECT_THAT(OverriddenVirtuals(CGLAxis(), CGLGroup()), IsEmpty());
}

}  // namespace
