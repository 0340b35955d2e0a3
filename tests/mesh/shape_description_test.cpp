#include <gtest/gtest.h>

#include <lumagrid/lumagrid.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>
#include <memory>

#include "recorded/RecordedTest.h"

namespace {

using lumagrid::DescribeShape;

// Shapes are built without a context: describing one makes no GL call.
TEST(DescribeShape, NamesTheConeAndItsRadii) {
  CGLCone cone(0.75, 0.4, 1.4, true);
  EXPECT_EQ(DescribeShape(cone), "CGLCone base 0.75 top 0.4 height 1.4 closed");
}

TEST(DescribeShape, TellsAnOpenCylinderFromACone) {
  CGLCylinder cylinder(0.6, 1.5, false);
  EXPECT_EQ(DescribeShape(cylinder), "CGLCylinder base 0.6 top 0.6 height 1.5 open");
}

TEST(DescribeShape, GivesTheTorusAnglesInDegrees) {
  CGLTorus torus(0.28, 0.8, 0.0, 180.0);
  EXPECT_EQ(DescribeShape(torus), "CGLTorus tube 0.28 ring 0.8 start 0 sweep 180");
}

TEST(DescribeShape, AddsTheAlphaOfATranslucentShape) {
  CGLSphere sphere(0.95);
  sphere.AlphaSet(0.45);
  EXPECT_EQ(DescribeShape(sphere), "CGLSphere radius 0.95 alpha 0.45");
}

TEST(DescribeShape, NamesTheAxisBeforeItsGroup) {
  auto axis = std::make_unique<CGLAxis>(1.1, 0.12, false);
  EXPECT_EQ(DescribeShape(*axis), "CGLAxis length 1.1 radius 0.12");
}

TEST(DescribeShape, NamesTheTriadsCentreBoxByItsEdges) {
  CGLScene scene;
  scene.AddGLShape(new CGLAxis(1.1, 0.12, false));
  std::vector<std::string> names;
  for (const lumagrid::SceneItem& item : lumagrid::SceneItems(scene)) {
    names.push_back(DescribeShape(*item.shape));
  }
  EXPECT_NE(std::find(names.begin(), names.end(), "CGLBox size 0.12 0.12 0.12"), names.end());
}

TEST(DescribeShape, SaysWhichSpringAndHowItIsDrawn) {
  CGLSpring spring(0.06, 0.5, 1.0, 1.9, 5, 0.0);
  spring.SetShadedMode(0);
  EXPECT_EQ(DescribeShape(spring),
            "CGLSpring compression wire 0.06 coil 0.5 length 1.9 turns 5 ends 0 wireframe");
  spring.SetType(1);
  spring.SetType2(9);
  EXPECT_EQ(DescribeShape(spring),
            "CGLSpring tension wire 0.06 coil 0.5 length 1.9 turns 5 ends 1 schematic");
}

TEST(DescribeShape, CountsThePolylineVertices) {
  CGLPolyline line;
  line.AddVertex(0.0, 0.0, 0.0);
  line.AddVertex(1.0, 0.0, 0.0);
  EXPECT_EQ(DescribeShape(line), "CGLPolyline vertices 2");
}

TEST(DescribeShape, GivesTheBeltPulleysAndType) {
  CGLBelt belt(0.6, 0.35, 1.45);
  belt.SetBType(4);
  EXPECT_EQ(DescribeShape(belt), "CGLBelt r1 0.6 r2 0.35 entraxe 1.45 type 4");
  belt.SetBType(16);
  EXPECT_EQ(DescribeShape(belt), "CGLBelt r1 0.6 r2 0.35 entraxe 1.45 full");
}

TEST(DescribeShape, WritesNonFiniteParametersAsTheyAre) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  CGLSphere sphere(nan);
  EXPECT_EQ(DescribeShape(sphere), "CGLSphere radius nan");
  CGLCylinder cylinder(std::numeric_limits<double>::infinity(), 1.0, true);
  EXPECT_EQ(DescribeShape(cylinder), "CGLCylinder base inf top inf height 1 closed");
  // NaN is not below 1, so no alpha is written.
  sphere.AlphaSet(nan);
  EXPECT_EQ(DescribeShape(sphere), "CGLSphere radius nan");
}

TEST(DescribeShape, NamesAHostSubclassAfterItsLibraryClass) {
  struct Ball : CGLSphere {
    Ball() : CGLSphere(2.0) {}
  };
  struct Custom : CGLObject {};
  Ball ball;
  Custom custom;
  EXPECT_EQ(DescribeShape(ball), "CGLSphere radius 2");
  EXPECT_EQ(DescribeShape(custom), "CGLObject");
  CGLGroup group;
  EXPECT_EQ(DescribeShape(group), "CGLGroup");
}

class DescribeDrawnShape : public RecordedTest {};

TEST_F(DescribeDrawnShape, MakesNoCallAndMarksNothing) {
  CGLSpring spring(0.06, 0.5, 1.0, 1.9, 5, 0.0);
  spring.Draw();
  glrecorder::recorder().clearCalls();
  (void)DescribeShape(spring);
  EXPECT_TRUE(glrecorder::recorder().log().empty());
  spring.Draw();
  EXPECT_EQ(glrecorder::recorder().count("glNewList"), 0u);
}

}  // namespace
