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
#include "naming/ParamName.h"
#include "probes/Probe.h"
#include "recorded/LogSlices.h"
#include "recorded/RecordedTest.h"
#include "recorded/Shorthands.h"
#include "recorded/SilentCall.h"

namespace {

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
      (Lines{glrecorder::withGle(
          line("gleToroid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0), 530, 7)}),
      glrecorder::gleLines(recorder().listCalls(1)));
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
  EXPECT_TRUE(ReturnsSilently(0, [&] { return torus.DrawDirect(); }));
}

TEST_F(Torus, DegenerateValuesPassUnchanged) {
  CGLTorus torus(-1.0, 0.0, -30.0, 0.0);
  EXPECT_LINES((Lines{line("gleSetJoinStyle", 530),
                      line("gleToroid", -1.0, 0.0, 0.0, 0.0, 0.0, nullptr, nullptr, -30.0, 0.0)}),
               CompiledBody(torus));
}

// Angles GLE cannot sample: it would size its buffers from them without a bound.
struct UnsampledRing {
  const char* name;
  double start;
  double sweep;
};

class TorusUnsampled : public RecordedTestWithParam<UnsampledRing> {};

TEST_P(TorusUnsampled, CompilesAnEmptyListAndKeepsTheJoinStyle) {
  CGLTorus torus(0.1, 1.0, GetParam().start, GetParam().sweep);
  gleSetJoinStyle(TUBE_JN_RAW);
  recorder().clearCalls();
  EXPECT_EQ(torus.DisplayListMake(), 0);
  const Lines block = CompiledBlock(recorder().log());
  ASSERT_FALSE(block.empty());
  EXPECT_EQ(block.front(), line("glNewList", 1, en(GL_COMPILE)));
  EXPECT_EQ(block.back(), line("glEndList"));
  EXPECT_EQ(recorder().count("gleToroid"), 0u);
  EXPECT_EQ(recorder().gleJoinStyle(), 530);
  // Nothing the list would draw: only GLE settings and queries, which a list does not hold.
  for (const glrecorder::Call& c : recorder().listCalls(1)) {
    EXPECT_TRUE(c.immediate) << c.str();
  }
  EXPECT_EQ(torus.DisplayListMake(), 1);  // current, like any other list
}

TEST_P(TorusUnsampled, DrawsNothingAndKeepsTheStackBalanced) {
  CGLTorus torus(0.1, 1.0, GetParam().start, GetParam().sweep);
  EXPECT_EQ(torus.Draw(), 1);
  EXPECT_EQ(torus.Draw(), 1);
  EXPECT_TRUE(recorder().primitives().empty());
  EXPECT_EQ(recorder().count("gleToroid"), 0u);
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(recorder().pendingError(), GLenum{GL_NO_ERROR});
}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// 20 sides: a sweep of d degrees takes floor(d * 20 / 360) + 4 samples, at most 2^20.
INSTANTIATE_TEST_SUITE_P(BadAngles, TorusUnsampled,
                         ::testing::Values(UnsampledRing{"NaNStart", kNaN, 360.0},
                                           UnsampledRing{"InfiniteStart", kInf, 360.0},
                                           UnsampledRing{"MinusInfiniteStart", -kInf, 90.0},
                                           UnsampledRing{"NaNSweep", 0.0, kNaN},
                                           UnsampledRing{"InfiniteSweep", 0.0, kInf},
                                           UnsampledRing{"MinusInfiniteSweep", 45.0, -kInf},
                                           UnsampledRing{"SweepOverTwoToTheTwentySamples", 0.0,
                                                         18874296.0},
                                           UnsampledRing{"NegativeSweepOverTheLimit", 0.0, -1.0e9}),
                         ParamName());

TEST_F(Torus, LongestSampledSweepStillReachesGle) {
  // floor(18874295 * 20 / 360) + 4 = 1048575 samples, one short of 2^20.
  const double sweep = 18874295.0;
  CGLTorus torus(0.1, 1.0, 0.0, sweep);
  EXPECT_LINES((Lines{line("gleSetJoinStyle", 530), line("gleGetNumSides"),
                      line("gleToroid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, sweep)}),
               CompiledBody(torus));
}

TEST_F(Torus, SweepsWithinOneTurnDoNotAskForTheSides) {
  for (const double sweep : {360.0, -360.0, 359.5, 1.0e-300}) {
    CGLTorus torus(0.1, 1.0, 1.0e300, sweep);
    EXPECT_LINES((Lines{line("gleSetJoinStyle", 530), line("gleToroid", 0.1, 1.0, 0.0, 0.0, 0.0,
                                                           nullptr, nullptr, 1.0e300, sweep)}),
                 CompiledBody(torus));
    recorder().reset();
  }
}

TEST_F(Torus, LongSweepsAreMeasuredWithTheSidesInForce) {
  // 9437200 degrees: floor(9437200 * 20 / 360) + 4 = 524292 samples with 20 sides,
  // floor(9437200 * 40 / 360) + 4 = 1048581 with 40.
  const double sweep = 9437200.0;
  CGLTorus twenty(0.1, 1.0, 0.0, sweep);
  twenty.DisplayListMake();
  EXPECT_EQ(recorder().count("gleToroid"), 1u);
  gleSetNumSides(40);
  CGLTorus forty(0.1, 1.0, 0.0, sweep);
  recorder().clearCalls();
  forty.DisplayListMake();
  EXPECT_EQ(recorder().count("gleToroid"), 0u);
  EXPECT_EQ(recorder().count("glEndList"), 1u);
}

}  // namespace
