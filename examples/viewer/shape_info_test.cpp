#include <gtest/gtest.h>

#include <lumagrid/lumagrid.h>

#include <memory>

#include "shape_info.h"

namespace {

using viewer::describeShape;

// Shapes are built without a context: describing one makes no GL call.
TEST(DescribeShape, NamesTheConeAndItsRadii) {
  CGLCone cone(0.75, 0.4, 1.4, true);
  EXPECT_EQ(describeShape(cone), "CGLCone base 0.75 top 0.4 height 1.4 closed");
}

TEST(DescribeShape, TellsAnOpenCylinderFromACone) {
  CGLCylinder cylinder(0.6, 1.5, false);
  EXPECT_EQ(describeShape(cylinder), "CGLCylinder base 0.6 top 0.6 height 1.5 open");
}

TEST(DescribeShape, GivesTheTorusAnglesInDegrees) {
  CGLTorus torus(0.28, 0.8, 0.0, 180.0);
  EXPECT_EQ(describeShape(torus), "CGLTorus tube 0.28 ring 0.8 start 0 sweep 180");
}

TEST(DescribeShape, AddsTheAlphaOfATranslucentShape) {
  CGLSphere sphere(0.95);
  sphere.AlphaSet(0.45);
  EXPECT_EQ(describeShape(sphere), "CGLSphere radius 0.95 alpha 0.45");
}

TEST(DescribeShape, NamesTheAxisBeforeItsGroup) {
  auto axis = std::make_unique<CGLAxis>(1.1, 0.12, false);
  EXPECT_EQ(describeShape(*axis), "CGLAxis length 1.1 radius 0.12");
}

TEST(DescribeShape, SaysWhichSpringAndHowItIsDrawn) {
  CGLSpring spring(0.06, 0.5, 1.0, 1.9, 5, 0.0);
  spring.SetShadedMode(0);
  EXPECT_EQ(describeShape(spring),
            "CGLSpring compression wire 0.06 coil 0.5 length 1.9 turns 5 ends 0 wireframe");
  spring.SetType(1);
  spring.SetType2(9);
  EXPECT_EQ(describeShape(spring),
            "CGLSpring tension wire 0.06 coil 0.5 length 1.9 turns 5 ends 1 schematic");
  EXPECT_EQ(viewer::springShadedMode(spring), 0);
}

TEST(DescribeShape, CountsThePolylineVertices) {
  CGLPolyline line;
  line.AddVertex(0.0, 0.0, 0.0);
  line.AddVertex(1.0, 0.0, 0.0);
  EXPECT_EQ(describeShape(line), "CGLPolyline vertices 2");
}

TEST(DescribeShape, GivesTheBeltPulleysAndType) {
  CGLBelt belt(0.6, 0.35, 1.45);
  belt.SetBType(4);
  EXPECT_EQ(describeShape(belt), "CGLBelt r1 0.6 r2 0.35 entraxe 1.45 type 4");
  belt.SetBType(16);
  EXPECT_EQ(describeShape(belt), "CGLBelt r1 0.6 r2 0.35 entraxe 1.45 full");
}

}  // namespace
