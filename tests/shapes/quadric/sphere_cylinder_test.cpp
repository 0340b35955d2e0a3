#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLSphere.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <ostream>
#include <memory>
#include <string>
#include <vector>

#include "quadric_probes.h"

namespace {

using glrecorder::en;
using glrecorder::line;
using glrecorder::recorder;

using Lines = std::vector<std::string>;

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// ---------------------------------------------------------------- sphere

class Sphere : public RecordedTest {};

TEST_F(Sphere, CompilesOneGluSphereWithHandleRadiusAndTessellation) {
  CGLSphere sphere(2.5);
  EXPECT_LINES((Lines{line("gluSphere", "quad1", 2.5, 128, 8)}), CompiledBody(sphere));
}

TEST_F(Sphere, DefaultRadiusIsOne) {
  CGLSphere sphere;
  EXPECT_EQ(sphere.Radius(), 1.0);
  EXPECT_LINES((Lines{line("gluSphere", "quad1", 1.0, 128, 8)}), CompiledBody(sphere));
}

TEST_F(Sphere, RadiusReturnsTheConstructorValueExactly) {
  EXPECT_EQ(CGLSphere(0.1).Radius(), 0.1);
  EXPECT_EQ(CGLSphere(-3.25).Radius(), -3.25);
  EXPECT_TRUE(std::isnan(CGLSphere(kNaN).Radius()));
}

TEST_F(Sphere, TakesTheTessellationDefaultsAtConstruction) {
  CGLObject::s_nSlices4New = 16;
  CGLObject::s_nStacks4New = 4;
  Probe<CGLSphere> sphere(1.0);
  CGLObject::s_nSlices4New = 128;
  CGLObject::s_nStacks4New = 8;
  EXPECT_EQ(sphere.m_nSlices, 16);
  EXPECT_EQ(sphere.m_nStacks, 4);
  EXPECT_LINES((Lines{line("gluSphere", "quad1", 1.0, 16, 4)}), CompiledBody(sphere));
}

TEST_F(Sphere, CompileIsWrappedInNewListAndEndList) {
  CGLSphere sphere(0.5);
  recorder().clearCalls();
  sphere.DisplayListMake();
  EXPECT_LINES((Lines{line("glNewList", 1, en(GL_COMPILE)), line("gluSphere", "quad1", 0.5, 128, 8),
                      line("glEndList")}),
               CompiledBlock(recorder().log()));
}

TEST_F(Sphere, CopyKeepsRadiusAndListState) {
  Probe<CGLSphere> source(3.0);
  source.DisplayListMake();
  Probe<CGLSphere> copy(source);
  EXPECT_EQ(copy.Radius(), 3.0);
  EXPECT_EQ(copy.m_nDisplayList, source.m_nDisplayList);
  EXPECT_FALSE(copy.m_bModified);
}

TEST_F(Sphere, AssignmentCopiesTheRadius) {
  CGLSphere a(1.0);
  const CGLSphere b(4.0);
  CGLSphere& result = (a = b);
  EXPECT_EQ(&result, &a);
  EXPECT_EQ(a.Radius(), 4.0);
}

TEST_F(Sphere, DrawDirectDrawsNothing) {
  CGLSphere sphere;
  recorder().clearCalls();
  EXPECT_EQ(sphere.DrawDirect(), 0);
  EXPECT_TRUE(recorder().log().empty());
}

TEST_F(Sphere, BadRadiiGoToGluAsTheyAre) {
  for (double radius : {0.0, -1.0, kNaN}) {
    recorder().reset();
    CGLSphere sphere(radius);
    EXPECT_LINES((Lines{line("gluSphere", "quad1", radius, 128, 8)}), CompiledBody(sphere));
  }
}

// ---------------------------------------------------------------- protocol

class ListProtocol : public RecordedTest {};

TEST_F(ListProtocol, CurrentListMakesNothingAndReturnsOne) {
  Probe<CGLCylinder> cylinder;
  EXPECT_EQ(cylinder.DisplayListMake(), 0);
  EXPECT_FALSE(cylinder.m_bModified);
  recorder().clearCalls();
  EXPECT_EQ(cylinder.DisplayListMake(), 1);
  EXPECT_TRUE(recorder().log().empty());
}

TEST_F(ListProtocol, NoListKeepsTheMarkAndEmitsNoGeometry) {
  Probe<CGLSphere> sphere;
  recorder().setGenLists(glrecorder::GenLists::ReturnZero);
  recorder().clearCalls();
  EXPECT_EQ(sphere.DisplayListMake(), 0);
  EXPECT_TRUE(sphere.m_bModified);
  EXPECT_EQ(sphere.m_nDisplayList, -1);
  EXPECT_EQ(recorder().count("glNewList"), 0u);
  EXPECT_TRUE(GluLines(recorder().log()).empty());

  // The mark survived, so the next attempt builds.
  recorder().setGenLists(glrecorder::GenLists::Normal);
  EXPECT_EQ(sphere.DisplayListMake(), 0);
  EXPECT_FALSE(sphere.m_bModified);
  EXPECT_EQ(recorder().count("gluSphere"), 1u);
}

TEST_F(ListProtocol, UnknownListNameKeepsTheMark) {
  Probe<CGLCylinder> cylinder;
  recorder().setGenLists(glrecorder::GenLists::ReturnUnknown);
  EXPECT_EQ(cylinder.DisplayListMake(), 0);
  EXPECT_TRUE(cylinder.m_bModified);
  EXPECT_EQ(cylinder.m_nDisplayList, -1);
  EXPECT_EQ(recorder().count("gluCylinder"), 0u);
}

TEST_F(ListProtocol, SecondDrawReplaysTheListWithoutGlu) {
  CGLCylinder cylinder;
  cylinder.Draw();
  recorder().clearCalls();
  cylinder.Draw();
  EXPECT_TRUE(GluLines(recorder().log()).empty());
  EXPECT_EQ(recorder().count("glNewList"), 0u);
  EXPECT_LINES((Lines{line("glCallList", 1)}),
               glrecorder::lines(recorder().callsNamed("glCallList")));
}

TEST_F(ListProtocol, DrawCompilesInsideTheShapeTransformAndColour) {
  CGLSphere sphere(0.5);
  recorder().clearCalls();
  EXPECT_EQ(sphere.Draw(), 1);
  const Lines log = recorder().log();
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(log.front(), line("glPushMatrix"));
  EXPECT_EQ(log.back(), line("glPopMatrix"));
  EXPECT_EQ(log[log.size() - 2], line("glCallList", 1));
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
}

TEST_F(ListProtocol, ColourChangeRebuildsTheList) {
  CGLSphere sphere;
  sphere.Draw();
  sphere.ColorSet(0x0000FFUL);
  recorder().clearCalls();
  sphere.Draw();
  EXPECT_EQ(recorder().count("gluSphere"), 1u);
  // The existing name is reused.
  EXPECT_EQ(recorder().count("glGenLists"), 0u);
}

// ---------------------------------------------------------------- cylinder and cone

struct CylinderCase {
  const char* name;
  std::function<std::unique_ptr<CGLObject>()> make;
  std::function<Lines()> expected;
};

std::ostream& operator<<(std::ostream& os, const CylinderCase& c) {
  return os << c.name;
}

const char* const q = "quad1";
const glrecorder::Enum kOutside = en(GLU_OUTSIDE);
const glrecorder::Enum kInside = en(GLU_INSIDE);

Lines UnitCylinderWithBothDisks() {
  return {
      line("gluQuadricOrientation", q, kOutside),
      line("gluCylinder", q, 1.0, 1.0, 1.0, 128, 8),
      line("gluQuadricOrientation", q, kInside),
      line("gluDisk", q, 0.0, 1.0, 128, 1),  // base, facing -z
      line("glPushMatrix"),
      line("gluQuadricOrientation", q, kOutside),
      line("glTranslated", 0.0, 0.0, 1.0),
      line("gluDisk", q, 0.0, 1.0, 128, 1),  // top, facing +z
      line("glPopMatrix"),
  };
}

const CylinderCase kCylinderCases[] = {
    {"DefaultCylinder", [] { return std::make_unique<CGLCylinder>(); }, UnitCylinderWithBothDisks},
    // The default cone is deliberately a cylinder.
    {"DefaultConeIsTheDefaultCylinder", [] { return std::make_unique<CGLCone>(); },
     UnitCylinderWithBothDisks},
    {"ClosedCylinder", [] { return std::make_unique<CGLCylinder>(0.5, 2.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 0.5, 0.5, 2.0, 128, 8),
           line("gluQuadricOrientation", q, kInside),
           line("gluDisk", q, 0.0, 0.5, 128, 1),
           line("glPushMatrix"),
           line("gluQuadricOrientation", q, kOutside),
           line("glTranslated", 0.0, 0.0, 2.0),
           line("gluDisk", q, 0.0, 0.5, 128, 1),
           line("glPopMatrix"),
       };
     }},
    {"OpenCylinderHasOnlyItsSide", [] { return std::make_unique<CGLCylinder>(0.5, 2.0, false); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 0.5, 0.5, 2.0, 128, 8),
       };
     }},
    {"PointedConeHasOnlyItsBaseDisk", [] { return std::make_unique<CGLCone>(0.5, 2.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 0.5, 0.0, 2.0, 128, 8),
           line("gluQuadricOrientation", q, kInside),  // left inside
           line("gluDisk", q, 0.0, 0.5, 128, 1),
       };
     }},
    {"OpenPointedCone", [] { return std::make_unique<CGLCone>(0.5, 2.0, false); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 0.5, 0.0, 2.0, 128, 8),
       };
     }},
    {"FourArgumentConeTakesBothRadii",
     [] { return std::make_unique<CGLCone>(0.75, 0.25, 3.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 0.75, 0.25, 3.0, 128, 8),
           line("gluQuadricOrientation", q, kInside),
           line("gluDisk", q, 0.0, 0.75, 128, 1),
           line("glPushMatrix"),
           line("gluQuadricOrientation", q, kOutside),
           line("glTranslated", 0.0, 0.0, 3.0),
           line("gluDisk", q, 0.0, 0.25, 128, 1),
           line("glPopMatrix"),
       };
     }},
    {"ZeroBaseRadiusDrawsOnlyTheTopDisk",
     [] { return std::make_unique<CGLCone>(0.0, 0.7, 3.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 0.0, 0.7, 3.0, 128, 8),
           line("glPushMatrix"),
           line("gluQuadricOrientation", q, kOutside),
           line("glTranslated", 0.0, 0.0, 3.0),
           line("gluDisk", q, 0.0, 0.7, 128, 1),
           line("glPopMatrix"),
       };
     }},
    {"NegativeBaseRadiusGetsNoDisk", [] { return std::make_unique<CGLCone>(-1.0, 0.5, 1.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, -1.0, 0.5, 1.0, 128, 8),
           line("glPushMatrix"),
           line("gluQuadricOrientation", q, kOutside),
           line("glTranslated", 0.0, 0.0, 1.0),
           line("gluDisk", q, 0.0, 0.5, 128, 1),
           line("glPopMatrix"),
       };
     }},
    {"NegativeRadiusClosedCylinderGetsNoDisks",
     [] { return std::make_unique<CGLCylinder>(-1.0, 2.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, -1.0, -1.0, 2.0, 128, 8),
       };
     }},
    {"ZeroRadiusClosedCylinderGetsNoDisks",
     [] { return std::make_unique<CGLCylinder>(0.0, 2.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 0.0, 0.0, 2.0, 128, 8),
       };
     }},
    {"NaNRadiusGetsNoDisk", [] { return std::make_unique<CGLCylinder>(kNaN, 2.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, kNaN, kNaN, 2.0, 128, 8),
       };
     }},
    {"NaNTopRadiusGetsNoTopDisk", [] { return std::make_unique<CGLCone>(1.0, kNaN, 2.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 1.0, kNaN, 2.0, 128, 8),
           line("gluQuadricOrientation", q, kInside),
           line("gluDisk", q, 0.0, 1.0, 128, 1),
       };
     }},
    {"ZeroHeightKeepsBothDisks", [] { return std::make_unique<CGLCylinder>(1.0, 0.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 1.0, 1.0, 0.0, 128, 8),
           line("gluQuadricOrientation", q, kInside),
           line("gluDisk", q, 0.0, 1.0, 128, 1),
           line("glPushMatrix"),
           line("gluQuadricOrientation", q, kOutside),
           line("glTranslated", 0.0, 0.0, 0.0),
           line("gluDisk", q, 0.0, 1.0, 128, 1),
           line("glPopMatrix"),
       };
     }},
    {"NegativeHeightTranslatesDown", [] { return std::make_unique<CGLCylinder>(1.0, -2.0, true); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 1.0, 1.0, -2.0, 128, 8),
           line("gluQuadricOrientation", q, kInside),
           line("gluDisk", q, 0.0, 1.0, 128, 1),
           line("glPushMatrix"),
           line("gluQuadricOrientation", q, kOutside),
           line("glTranslated", 0.0, 0.0, -2.0),
           line("gluDisk", q, 0.0, 1.0, 128, 1),
           line("glPopMatrix"),
       };
     }},
    {"NaNHeightGoesToGlu", [] { return std::make_unique<CGLCylinder>(1.0, kNaN, false); },
     [] {
       return Lines{
           line("gluQuadricOrientation", q, kOutside),
           line("gluCylinder", q, 1.0, 1.0, kNaN, 128, 8),
       };
     }},
};

class CylinderCompile : public RecordedTestWithParam<CylinderCase> {};

TEST_P(CylinderCompile, EmitsTheStatedGluSequence) {
  std::unique_ptr<CGLObject> shape = GetParam().make();
  EXPECT_LINES(GetParam().expected(), CompiledBody(*shape));
}

TEST_P(CylinderCompile, LeavesTheMatrixStackBalanced) {
  std::unique_ptr<CGLObject> shape = GetParam().make();
  shape->Draw();
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(recorder().underflows(), 0);
  EXPECT_EQ(recorder().pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

INSTANTIATE_TEST_SUITE_P(Shapes, CylinderCompile, ::testing::ValuesIn(kCylinderCases),
                         [](const auto& info) { return std::string(info.param.name); });

class Cylinder : public RecordedTest {};

TEST_F(Cylinder, TakesTheTessellationDefaultsOfItsConstruction) {
  CGLObject::s_nSlices4New = 12;
  CGLObject::s_nStacks4New = 3;
  CGLCone cone(1.0, 2.0, false);
  CGLObject::s_nSlices4New = 128;
  CGLObject::s_nStacks4New = 8;
  EXPECT_LINES((Lines{line("gluQuadricOrientation", q, kOutside),
                      line("gluCylinder", q, 1.0, 0.0, 2.0, 12, 3)}),
               CompiledBody(cone));
}

TEST_F(Cylinder, EveryRebuildStartsOutsideAgain) {
  // A pointed cone leaves its quadric inside after the base disk.
  Probe<CGLCone> cone(1.0, 2.0, true);
  cone.DisplayListMake();
  EXPECT_EQ(recorder().quadricOrientation(cone.m_pQuadric), static_cast<GLenum>(GLU_INSIDE));
  cone.Move(0.0);
  recorder().clearCalls();
  cone.DisplayListMake();
  const Lines glu = GluLines(recorder().log());
  ASSERT_FALSE(glu.empty());
  EXPECT_EQ(glu.front(), line("gluQuadricOrientation", q, kOutside));
}

TEST_F(Cylinder, CopyCarriesTheGeometry) {
  CGLCone source(0.75, 0.25, 3.0, false);
  CGLCone copy(source);
  EXPECT_LINES((Lines{line("gluQuadricOrientation", q, kOutside),
                      line("gluCylinder", q, 0.75, 0.25, 3.0, 128, 8)}),
               CompiledBody(copy));
}

TEST_F(Cylinder, AssignmentCarriesTheGeometry) {
  CGLCylinder a(1.0, 1.0, true);
  const CGLCylinder b(0.5, 4.0, false);
  CGLCylinder& result = (a = b);
  EXPECT_EQ(&result, &a);
  EXPECT_LINES((Lines{line("gluQuadricOrientation", "quad2", kOutside),
                      line("gluCylinder", "quad2", 0.5, 0.5, 4.0, 128, 8)}),
               CompiledBody(a));
}

TEST_F(Cylinder, ConeAssignmentCarriesTheGeometry) {
  CGLCone a;
  const CGLCone b(0.5, 4.0, false);
  CGLCone& result = (a = b);
  EXPECT_EQ(&result, &a);
  EXPECT_LINES((Lines{line("gluQuadricOrientation", "quad2", kOutside),
                      line("gluCylinder", "quad2", 0.5, 0.0, 4.0, 128, 8)}),
               CompiledBody(a));
}

TEST_F(Cylinder, DrawDirectDrawsNothing) {
  CGLCylinder cylinder;
  CGLCone cone;
  recorder().clearCalls();
  EXPECT_EQ(cylinder.DrawDirect(), 0);
  EXPECT_EQ(cone.DrawDirect(), 0);
  EXPECT_TRUE(recorder().log().empty());
}

}  // namespace
