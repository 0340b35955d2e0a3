#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "naming/ParamName.h"
#include "quadric_probes.h"
#include "recorded/CallLines.h"
#include "recorded/Shorthands.h"

namespace {

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

// The side, drawn outward, with the given quadric.
Lines Side(double base, double top, double height, const char* quad = q) {
  return {
      line("gluQuadricOrientation", quad, kOutside),
      line("gluCylinder", quad, base, top, height, 128, 8),
  };
}

// The base disk, facing -z.
Lines BaseDisk(double radius) {
  return {
      line("gluQuadricOrientation", q, kInside),
      line("gluDisk", q, 0.0, radius, 128, 1),
  };
}

// The top disk, facing +z, raised to the top and back.
Lines TopDisk(double radius, double height) {
  return {
      line("glPushMatrix"),
      line("gluQuadricOrientation", q, kOutside),
      line("glTranslated", 0.0, 0.0, height),
      line("gluDisk", q, 0.0, radius, 128, 1),
      line("glPopMatrix"),
  };
}

Lines UnitCylinderWithBothDisks() {
  return Join({Side(1.0, 1.0, 1.0), BaseDisk(1.0), TopDisk(1.0, 1.0)});
}

const CylinderCase kCylinderCases[] = {
    {"DefaultCylinder", [] { return std::make_unique<CGLCylinder>(); }, UnitCylinderWithBothDisks},
    // The default cone is deliberately a cylinder.
    {"DefaultConeIsTheDefaultCylinder", [] { return std::make_unique<CGLCone>(); },
     UnitCylinderWithBothDisks},
    {"ClosedCylinder", [] { return std::make_unique<CGLCylinder>(0.5, 2.0, true); },
     [] {
       return Join({Side(0.5, 0.5, 2.0), BaseDisk(0.5), TopDisk(0.5, 2.0)});
     }},
    {"OpenCylinderHasOnlyItsSide", [] { return std::make_unique<CGLCylinder>(0.5, 2.0, false); },
     [] { return Side(0.5, 0.5, 2.0); }},
    {"PointedConeHasOnlyItsBaseDisk", [] { return std::make_unique<CGLCone>(0.5, 2.0, true); },
     [] {
       return Join({Side(0.5, 0.0, 2.0), BaseDisk(0.5)});  // the quadric is left inside
     }},
    {"OpenPointedCone", [] { return std::make_unique<CGLCone>(0.5, 2.0, false); },
     [] { return Side(0.5, 0.0, 2.0); }},
    {"FourArgumentConeTakesBothRadii",
     [] { return std::make_unique<CGLCone>(0.75, 0.25, 3.0, true); },
     [] {
       return Join({Side(0.75, 0.25, 3.0), BaseDisk(0.75), TopDisk(0.25, 3.0)});
     }},
    {"ZeroBaseRadiusDrawsOnlyTheTopDisk",
     [] { return std::make_unique<CGLCone>(0.0, 0.7, 3.0, true); },
     [] {
       return Join({Side(0.0, 0.7, 3.0), TopDisk(0.7, 3.0)});
     }},
    {"NegativeBaseRadiusGetsNoDisk", [] { return std::make_unique<CGLCone>(-1.0, 0.5, 1.0, true); },
     [] {
       return Join({Side(-1.0, 0.5, 1.0), TopDisk(0.5, 1.0)});
     }},
    {"NegativeRadiusClosedCylinderGetsNoDisks",
     [] { return std::make_unique<CGLCylinder>(-1.0, 2.0, true); },
     [] { return Side(-1.0, -1.0, 2.0); }},
    {"ZeroRadiusClosedCylinderGetsNoDisks",
     [] { return std::make_unique<CGLCylinder>(0.0, 2.0, true); },
     [] { return Side(0.0, 0.0, 2.0); }},
    {"NaNRadiusGetsNoDisk", [] { return std::make_unique<CGLCylinder>(kNaN, 2.0, true); },
     [] { return Side(kNaN, kNaN, 2.0); }},
    {"NaNTopRadiusGetsNoTopDisk", [] { return std::make_unique<CGLCone>(1.0, kNaN, 2.0, true); },
     [] {
       return Join({Side(1.0, kNaN, 2.0), BaseDisk(1.0)});
     }},
    {"ZeroHeightKeepsBothDisks", [] { return std::make_unique<CGLCylinder>(1.0, 0.0, true); },
     [] {
       return Join({Side(1.0, 1.0, 0.0), BaseDisk(1.0), TopDisk(1.0, 0.0)});
     }},
    {"NegativeHeightTranslatesDown", [] { return std::make_unique<CGLCylinder>(1.0, -2.0, true); },
     [] {
       return Join({Side(1.0, 1.0, -2.0), BaseDisk(1.0), TopDisk(1.0, -2.0)});
     }},
    {"NaNHeightGoesToGlu", [] { return std::make_unique<CGLCylinder>(1.0, kNaN, false); },
     [] { return Side(1.0, 1.0, kNaN); }},
};

class CylinderCompile : public RecordedTestWithParam<CylinderCase> {};

TEST_P(CylinderCompile, ListHoldsTheSideAndDisksOfTheCase) {
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

INSTANTIATE_TEST_SUITE_P(Shapes, CylinderCompile, ::testing::ValuesIn(kCylinderCases), ParamName());

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
  EXPECT_LINES(Side(0.75, 0.25, 3.0), CompiledBody(copy));
}

TEST_F(Cylinder, AssignmentCarriesTheGeometry) {
  CGLCylinder a(1.0, 1.0, true);
  const CGLCylinder b(0.5, 4.0, false);
  CGLCylinder& result = (a = b);
  EXPECT_EQ(&result, &a);
  EXPECT_LINES(Side(0.5, 0.5, 4.0, "quad2"), CompiledBody(a));
}

TEST_F(Cylinder, ConeAssignmentCarriesTheGeometry) {
  CGLCone a;
  const CGLCone b(0.5, 4.0, false);
  CGLCone& result = (a = b);
  EXPECT_EQ(&result, &a);
  EXPECT_LINES(Side(0.5, 0.0, 4.0, "quad2"), CompiledBody(a));
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
