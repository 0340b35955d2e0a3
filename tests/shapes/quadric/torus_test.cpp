#include <lumagrid/CGLTorus.h>

#include <GL/gl.h>
#include <GL/gle.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "probes/Probe.h"
#include "recorded/LogSlices.h"
#include "recorded/RecordedTest.h"

namespace {

using glrec::en;
using glrec::line;
using glrec::recorder;

using Lines = std::vector<std::string>;

class Torus : public RecordedTest {};

TEST_F(Torus, DefaultCompilesJoinStyleThenAFullToroid) {
  CGLTorus torus;
  EXPECT_LINES((Lines{line("gleSetJoinStyle", 530),
                      line("gleToroid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0)}),
               CompiledBody(torus));
}

TEST_F(Torus, JoinStyleIsEdgeNormalsWithCapsAndAngledJoins) {
  EXPECT_EQ(TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE, 530);
}

TEST_F(Torus, HalfRingPassesItsArgumentsInOrder) {
  CGLTorus torus(0.2, 2.0, 90.0, 180.0);
  EXPECT_LINES((Lines{line("gleSetJoinStyle", 530),
                      line("gleToroid", 0.2, 2.0, 0.0, 0.0, 0.0, nullptr, nullptr, 90.0, 180.0)}),
               CompiledBody(torus));
}

TEST_F(Torus, GettersReturnTheConstructorArgumentsInOrder) {
  CGLTorus torus(0.25, 3.5, -45.0, 270.0);
  EXPECT_EQ(torus.innerRadius(), 0.25);
  EXPECT_EQ(torus.outerRadius(), 3.5);
  EXPECT_EQ(torus.startAngle(), -45.0);
  EXPECT_EQ(torus.sweepAngle(), 270.0);
}

TEST_F(Torus, DefaultGettersAreTheStockRing) {
  CGLTorus torus;
  EXPECT_EQ(torus.innerRadius(), 0.1);
  EXPECT_EQ(torus.outerRadius(), 1.0);
  EXPECT_EQ(torus.startAngle(), 0.0);
  EXPECT_EQ(torus.sweepAngle(), 360.0);
}

TEST_F(Torus, CompileIsWrappedInNewListAndEndList) {
  CGLTorus torus;
  recorder().clearCalls();
  EXPECT_EQ(torus.DisplayListMake(), 0);
  EXPECT_LINES((Lines{line("glNewList", 1, en(GL_COMPILE)), line("gleSetJoinStyle", 530),
                      line("gleToroid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0),
                      line("glEndList")}),
               CompiledBlock(recorder().log()));
  EXPECT_EQ(torus.DisplayListMake(), 1);  // current now
}

TEST_F(Torus, LeavesTheJoinStyleForLaterLists) {
  gleSetJoinStyle(TUBE_JN_RAW);
  CGLTorus torus;
  torus.DisplayListMake();
  EXPECT_EQ(recorder().gleJoinStyle(), 530);
  EXPECT_EQ(gleGetJoinStyle(), 530);
}

TEST_F(Torus, SweepsWithTheSidesInForceAtCompile) {
  gleSetNumSides(7);
  CGLTorus torus;
  torus.DisplayListMake();
  EXPECT_LINES(
      (Lines{glrec::withGle(
          line("gleToroid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0), 530, 7)}),
      glrec::gleLines(recorder().listCalls(1)));
  EXPECT_EQ(recorder().gleNumSides(), 7);  // never set by the torus
}

TEST_F(Torus, SetsNoTessellationAndNoQuadric) {
  Probe<CGLTorus> torus;
  recorder().clearCalls();
  torus.DisplayListMake();
  EXPECT_EQ(recorder().count("gluNewQuadric"), 0u);
  EXPECT_EQ(recorder().count("gleSetNumSides"), 0u);
  EXPECT_EQ(torus.m_pQuadric, nullptr);
}

TEST_F(Torus, DrawsThroughTheBasePipeline) {
  CGLTorus torus;
  recorder().clearCalls();
  EXPECT_EQ(torus.Draw(), 1);
  const Lines log = recorder().log();
  ASSERT_GE(log.size(), 2u);
  EXPECT_EQ(log.front(), line("glPushMatrix"));
  EXPECT_EQ(log.back(), line("glPopMatrix"));
  EXPECT_EQ(recorder().count("glCallList"), 1u);
}

TEST_F(Torus, DrawDirectDrawsNothing) {
  CGLTorus torus;
  recorder().clearCalls();
  EXPECT_EQ(torus.DrawDirect(), 0);
  EXPECT_TRUE(recorder().log().empty());
}

TEST_F(Torus, DegenerateValuesPassUnchanged) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  CGLTorus torus(-1.0, 0.0, nan, 0.0);
  EXPECT_LINES((Lines{line("gleSetJoinStyle", 530),
                      line("gleToroid", -1.0, 0.0, 0.0, 0.0, 0.0, nullptr, nullptr, nan, 0.0)}),
               CompiledBody(torus));
}

TEST_F(Torus, CopyAndAssignmentKeepTheRingAndShareTheList) {
  Probe<CGLTorus> source(0.3, 2.0, 10.0, 20.0);
  source.DisplayListMake();
  Probe<CGLTorus> copy(source);
  EXPECT_EQ(copy.innerRadius(), 0.3);
  EXPECT_EQ(copy.sweepAngle(), 20.0);
  EXPECT_EQ(copy.m_nDisplayList, source.m_nDisplayList);
  Probe<CGLTorus> assigned;
  assigned = source;
  EXPECT_EQ(assigned.outerRadius(), 2.0);
  EXPECT_EQ(assigned.startAngle(), 10.0);
  EXPECT_EQ(assigned.m_nDisplayList, source.m_nDisplayList);
  EXPECT_FALSE(assigned.m_bModified);
}

}  // namespace
