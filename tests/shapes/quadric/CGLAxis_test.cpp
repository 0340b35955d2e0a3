#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "quadric_probes.h"
#include "math/matrix_equality.h"
#include "recorded/Shorthands.h"
#include "shapes/quadric/CGLBox.h"
#include "shapes/quadric/CGLCube.h"

namespace {

const double kHalfPi = 1.5707963267948966;

// ---------------------------------------------------------------- axis triad

class Axis : public RecordedTest {};

const CGLArrow& ArrowAt(const AxisProbe& axis, std::size_t i) {
  return dynamic_cast<const CGLArrow&>(*axis.m_arrObjects.at(i));
}

TEST_F(Axis, HasThreeArrowsThenACube) {
  AxisProbe axis;
  ASSERT_EQ(axis.m_arrObjects.size(), 4u);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NE(dynamic_cast<CGLArrow*>(axis.m_arrObjects[i]), nullptr) << i;
  }
  EXPECT_NE(dynamic_cast<CGLCube*>(axis.m_arrObjects[3]), nullptr);
}

TEST_F(Axis, DefaultTriadIsUnitLongThinAndNotLite) {
  AxisProbe axis;
  EXPECT_EQ(axis.m_dLength, 1.0);
  EXPECT_EQ(axis.m_dRadius, 0.05);
  EXPECT_FALSE(axis.m_bLite);
  for (std::size_t i = 0; i < 3; ++i) {
    const CGLArrow& arrow = ArrowAt(axis, i);
    EXPECT_EQ(arrow.*MemberPointers::kLength, 1.0) << i;
    EXPECT_EQ(arrow.*MemberPointers::kRadius, 0.05) << i;
    EXPECT_FALSE(arrow.*MemberPointers::kLite) << i;
  }
  const CGLObject& cube = *axis.m_arrObjects[3];
  EXPECT_EQ(static_cast<const CGLBox&>(cube).*BoxMemberPointers::kSizeX, 0.05);
  EXPECT_EQ(static_cast<const CGLBox&>(cube).*BoxMemberPointers::kSizeY, 0.05);
  EXPECT_EQ(static_cast<const CGLBox&>(cube).*BoxMemberPointers::kSizeZ, 0.05);
}

TEST_F(Axis, ArrowsHaveOneTwoAndThreeHeadsAndStockFractions) {
  AxisProbe axis(2.0, 0.1, true);
  for (std::size_t i = 0; i < 3; ++i) {
    const CGLArrow& arrow = ArrowAt(axis, i);
    EXPECT_EQ(arrow.*MemberPointers::kArrowNum, static_cast<int>(i) + 1);
    EXPECT_EQ(arrow.*MemberPointers::kFracLength, 0.8);
    EXPECT_EQ(arrow.*MemberPointers::kFracRadius, 0.4);
    EXPECT_EQ(arrow.*MemberPointers::kLength, 2.0);
    EXPECT_EQ(arrow.*MemberPointers::kRadius, 0.1);
    EXPECT_TRUE(arrow.*MemberPointers::kLite);
  }
  const auto& cube = static_cast<const CGLBox&>(*axis.m_arrObjects[3]);
  EXPECT_EQ(cube.*BoxMemberPointers::kSizeX, 0.1);
  EXPECT_EQ(cube.*BoxMemberPointers::kSizeY, 0.1);
  EXPECT_EQ(cube.*BoxMemberPointers::kSizeZ, 0.1);
}

TEST_F(Axis, ArrowsTakeTheTessellationDefaults) {
  CGLObject::s_nSlices4New = 20;
  CGLObject::s_nStacks4New = 5;
  AxisProbe axis;
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(ArrowAt(axis, i).*MemberPointers::kSlices, 20);
    EXPECT_EQ(ArrowAt(axis, i).*MemberPointers::kStacks, 5);
  }
}

// m sends the tip of an unturned arrow of length 2, (0, 0, 2), to (x, y, z),
// each within 1e-12.
::testing::AssertionResult TipAt(const mat4x4& m, double x, double y, double z) {
  const std::array<double, 3> tip = Transform(m, {0.0, 0.0, 2.0});
  if (std::fabs(tip[0] - x) <= 1e-12 && std::fabs(tip[1] - y) <= 1e-12 &&
      std::fabs(tip[2] - z) <= 1e-12) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << "tip at (" << tip[0] << ", " << tip[1] << ", " << tip[2] << ")";
}

TEST_F(Axis, XArrowIsTurnedAboutYOntoPlusX) {
  AxisProbe axis(2.0, 0.1, false);
  mat4x4 expected;
  expected.identity();
  expected.rotateY(kHalfPi);
  const mat4x4& m = axis.m_arrObjects[0]->*MemberPointers::kMatrix;
  EXPECT_TRUE(mathtest::equalNoNaN(m, expected));
  EXPECT_TRUE(TipAt(m, 2.0, 0.0, 0.0));
}

TEST_F(Axis, YArrowIsTurnedAboutXOntoPlusY) {
  AxisProbe axis(2.0, 0.1, false);
  mat4x4 expected;
  expected.identity();
  expected.rotateX(-kHalfPi);
  const mat4x4& m = axis.m_arrObjects[1]->*MemberPointers::kMatrix;
  EXPECT_TRUE(mathtest::equalNoNaN(m, expected));
  EXPECT_TRUE(TipAt(m, 0.0, 2.0, 0.0));
}

TEST_F(Axis, ZArrowAndCubeAreNotTurned) {
  AxisProbe axis;
  mat4x4 identity;
  identity.identity();
  EXPECT_TRUE(mathtest::equalNoNaN(axis.m_arrObjects[2]->*MemberPointers::kMatrix, identity));
  EXPECT_TRUE(mathtest::equalNoNaN(axis.m_arrObjects[3]->*MemberPointers::kMatrix, identity));
  EXPECT_TRUE(mathtest::equalNoNaN(axis.*MemberPointers::kMatrix, identity));
}

TEST_F(Axis, ChildrenKeepTheDefaultColour) {
  AxisProbe axis;
  for (CGLObject* child : axis.m_arrObjects) {
    EXPECT_EQ(child->ColorGet(), CGLColor());
  }
  EXPECT_EQ(axis.ColorGet(), CGLColor());
}

TEST_F(Axis, LiteTriadCompilesLiteArrows) {
  AxisProbe axis(2.0, 0.1, true);
  axis.m_arrObjects[2]->DisplayListMake();
  const double s = 2.0 * 0.8;
  const double h = (1.0 - 0.8) * 2.0;
  const char* const q = "quad3";  // the z arrow's
  EXPECT_LINES((Lines{
                   line("glColor3d", 0.5, 0.5, 0.5),
                   line("glBegin", en(GL_LINES)),
                   line("glVertex3f", 0.0f, 0.0f, 0.0f),
                   line("glVertex3f", 0.0f, 0.0f, 1.6f),
                   line("glEnd"),
                   line("glTranslated", 0.0, 0.0, s),
                   line("gluQuadricOrientation", q, en(GLU_OUTSIDE)),
                   line("gluCylinder", q, 0.1, 0.05, h * 0.5, 4, 2),
                   line("gluQuadricOrientation", q, en(GLU_INSIDE)),
                   line("gluDisk", q, 0.0, 0.1, 4, 1),
                   line("glTranslated", 0.0, 0.0, h * 0.5),
                   line("gluQuadricOrientation", q, en(GLU_OUTSIDE)),
                   line("gluCylinder", q, 0.1, 0.05, h * 0.5, 4, 2),
                   line("gluQuadricOrientation", q, en(GLU_INSIDE)),
                   line("gluDisk", q, 0.0, 0.1, 4, 1),
                   line("glTranslated", 0.0, 0.0, h * 0.5),
                   line("gluQuadricOrientation", q, en(GLU_OUTSIDE)),
                   line("gluCylinder", q, 0.1, 0.0, h, 4, 2),
                   line("gluQuadricOrientation", q, en(GLU_INSIDE)),
                   line("gluDisk", q, 0.0, 0.1, 4, 1),
               }),
               recorder().listLog(1));
}

TEST_F(Axis, ConstructionMakesThreeQuadricsAndDestructionFreesThem) {
  {
    CGLAxis axis;
    EXPECT_EQ(recorder().quadricsCreated(), 3);
    axis.Draw();
  }
  EXPECT_EQ(recorder().liveQuadrics(), 0);
  EXPECT_EQ(recorder().doubleDeletes(), 0);
  EXPECT_EQ(recorder().count("glDeleteLists"), 4u);
}

// Only the push, pop and list calls of a log.
Lines Skeleton(const Lines& log) {
  Lines out;
  for (const std::string& l : log) {
    if (l == "glPushMatrix()" || l == "glPopMatrix()" || l.rfind("glNewList(", 0) == 0 ||
        l == "glEndList()" || l.rfind("glCallList(", 0) == 0) {
      out.push_back(l);
    }
  }
  return out;
}

TEST_F(Axis, DrawPopsTwice) {
  CGLAxis axis;
  recorder().clearCalls();
  EXPECT_EQ(axis.Draw(), 1);
  const auto compile = [](int n) { return line("glNewList", n, en(GL_COMPILE)); };
  EXPECT_LINES((Lines{
                   line("glPushMatrix"),  // the triad's
                   line("glPushMatrix"), compile(1), line("glEndList"), line("glCallList", 1),
                   line("glPopMatrix"),  // x arrow
                   line("glPushMatrix"), compile(2), line("glEndList"), line("glCallList", 2),
                   line("glPopMatrix"),  // y arrow
                   line("glPushMatrix"), compile(3), line("glEndList"), line("glCallList", 3),
                   line("glPopMatrix"),  // z arrow
                   line("glPushMatrix"), compile(4), line("glEndList"), line("glCallList", 4),
                   line("glPopMatrix"),  // cube
                   line("glPopMatrix"),  // the group's DisplayListMake
                   line("glPopMatrix"),  // DrawFinish: one more than pushed
               }),
               Skeleton(recorder().log()));
  // With no spare matrix the last pop underflows.
  EXPECT_EQ(recorder().underflows(GL_MODELVIEW), 1);
}

TEST_F(Axis, DrawLeavesTheStackOneLevelShallower) {
  CGLAxis axis;
  glPushMatrix();  // the spare matrix a host keeps for groups
  axis.Draw();
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(recorder().underflows(), 0);
  EXPECT_TRUE(recorder().errors().empty());
}

TEST_F(Axis, SecondDrawReplaysTheListsWithoutGlu) {
  CGLAxis axis;
  glPushMatrix();
  axis.Draw();
  recorder().clearCalls();
  glPushMatrix();
  axis.Draw();
  EXPECT_TRUE(GluLines(recorder().log()).empty());
  EXPECT_EQ(recorder().count("glNewList"), 0u);
  EXPECT_EQ(recorder().count("glCallList"), 4u);
}

TEST_F(Axis, DrawDirectDrawsTheArrowsButNotTheCube) {
  CGLAxis axis;
  axis.Move(5.0);
  recorder().clearCalls();
  EXPECT_EQ(axis.DrawDirect(), 1);
  EXPECT_EQ(recorder().count("glBegin"), 0u);  // no GL_QUADS: the cube has no immediate mode
  EXPECT_EQ(recorder().count("glNewList"), 0u);
  // One head, then two, then three: 1 + 2 + 3 head cylinders and 3 shafts.
  EXPECT_EQ(recorder().count("gluCylinder"), 9u);
  // Each arrow brackets itself; the triad pushes nothing of its own.
  EXPECT_EQ(recorder().count("glPushMatrix"), 3u);
  EXPECT_EQ(recorder().count("glPopMatrix"), 3u);
  const Lines log = recorder().log();
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log.front(), line("glPushMatrix"));
  // The triad's own transform (translation by 5) is not applied.
  for (const glrecorder::Call& c : recorder().callsNamed("glMultMatrixd")) {
    EXPECT_EQ(c.str().find(", 5, 5, 5, 1]"), std::string::npos) << c.str();
  }
}

TEST_F(Axis, LiteDrawDirectDrawsThreeLines) {
  CGLAxis axis(1.0, 0.05, true);
  axis.DrawDirect();
  std::size_t lines = 0;
  for (const glrecorder::Primitive& p : recorder().primitives()) {
    lines += p.mode == GL_LINES ? 1u : 0u;
  }
  EXPECT_EQ(lines, 3u);
  EXPECT_EQ(recorder().primitives().size(), 3u);
}

TEST_F(Axis, ColourReachesEveryChild) {
  AxisProbe axis;
  axis.ColorSet(0x0000FFUL);
  for (CGLObject* child : axis.m_arrObjects) {
    EXPECT_EQ(child->ColorGet(), CGLColor(1.0, 0.0, 0.0, 1.0));
  }
}

TEST_F(Axis, LiteShaftsPointAlongTheirAxesWhenDrawn) {
  CGLAxis axis(2.0, 0.1, true);
  glPushMatrix();
  axis.Draw();
  std::vector<glrecorder::Primitive> shafts;
  for (const glrecorder::Primitive& p : recorder().primitives()) {
    if (p.mode == GL_LINES) {
      shafts.push_back(p);
    }
  }
  ASSERT_EQ(shafts.size(), 3u);
  const double s = static_cast<float>(2.0 * 0.8);
  const std::array<std::array<double, 3>, 3> ends{{{s, 0.0, 0.0}, {0.0, s, 0.0}, {0.0, 0.0, s}}};
  for (std::size_t i = 0; i < 3; ++i) {
    ASSERT_EQ(shafts[i].eyeVertices.size(), 2u);
    for (int k = 0; k < 3; ++k) {
      EXPECT_NEAR(shafts[i].eyeVertices[0][k], 0.0, 1e-12) << i;
      EXPECT_NEAR(shafts[i].eyeVertices[1][k], ends[i][k], 1e-12) << i << " " << k;
    }
  }
}

}  // namespace
