#include <lumagrid/CGLBelt.h>

#include <GL/gl.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "naming/ParamName.h"
#include "probes/CountedPoint.h"
#include "probes/Probe.h"
#include "recorded/LogSlices.h"
#include "recorded/RecordedTest.h"
#include "recorded/Shorthands.h"
#include "recorded/SilentCall.h"

namespace {

static_assert(!std::is_copy_constructible_v<CGLBelt>, "a belt owns its points");
static_assert(!std::is_copy_assignable_v<CGLBelt>, "a belt owns its points");

class BeltProbe : public Probe<CGLBelt> {
 public:
  using Probe<CGLBelt>::Probe;
  using CGLBelt::BuildProfile;
  using CGLBelt::m_aVertex;
  using CGLBelt::m_bShaded;
  using CGLBelt::m_dEntraxe;
  using CGLBelt::m_dRadius1;
  using CGLBelt::m_dRadius2;
  using CGLBelt::m_nBType;
  using CGLBelt::m_nQuality;
  using CGLBelt::m_nSection;
};

// Vertices compiled into the shape's list.
std::size_t CompiledVertexCount(CGLObject& shape) {
  recorder().clearCalls();
  shape.DisplayListMake();
  std::size_t n = 0;
  for (const glrecorder::Call& c : recorder().compiledCalls()) {
    n += c.name == "glVertex3d" ? 1 : 0;
  }
  return n;
}

// The point lies at (x, y), each within 1e-15.
::testing::AssertionResult NearXY(const CGLPoint* p, double x, double y) {
  if (std::fabs(p->X() - x) <= 1e-15 && std::fabs(p->Y() - y) <= 1e-15) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << "(" << p->X() << ", " << p->Y() << ") expected (" << x << ", " << y << ")";
}

class Belt : public RecordedTest {};

TEST_F(Belt, DefaultsAreUnitPulleysAtUnitDistance) {
  BeltProbe belt;
  EXPECT_EQ(belt.m_bShaded, 1);
  EXPECT_EQ(belt.m_nQuality, 20);
  EXPECT_TRUE(belt.m_aVertex.empty());
  EXPECT_EQ(belt.m_dRadius1, 1.0);
  EXPECT_EQ(belt.m_dRadius2, 1.0);
  EXPECT_EQ(belt.m_dEntraxe, 1.0);
  EXPECT_EQ(belt.m_nBType, 16);
  EXPECT_TRUE(belt.m_bModified);
}

TEST_F(Belt, ConstructorTakesRadiiThenEntraxe) {
  BeltProbe belt(2.0, 0.5, 7.0);
  EXPECT_EQ(belt.m_dRadius1, 2.0);
  EXPECT_EQ(belt.m_dRadius2, 0.5);
  EXPECT_EQ(belt.m_dEntraxe, 7.0);
  EXPECT_EQ(belt.m_nQuality, 20);
  EXPECT_EQ(belt.m_nBType, 16);
}

TEST_F(Belt, DefaultBeltCompilesTwoPlusElevenPlusElevenVertices) {
  CGLBelt belt;
  EXPECT_EQ(CompiledVertexCount(belt), 24u);
  const std::vector<glrecorder::Call> list = recorder().listCalls(1);
  ASSERT_EQ(list.size(), 2u + 24u);
  EXPECT_EQ(list.front().str(), line("glBegin", en(GL_LINE_STRIP)));
  EXPECT_EQ(list.back().str(), line("glEnd"));
  // No colour and no transform of its own: the base supplies both.
  EXPECT_EQ(recorder().count("glColor3d"), 0u);
}

TEST_F(Belt, DefaultBeltStartsWithTheUpperStraight) {
  BeltProbe belt;
  belt.DisplayListMake();
  ASSERT_EQ(belt.m_aVertex.size(), 24u);
  EXPECT_TRUE(NearXY(belt.m_aVertex[0], 1.0, 1.0));
  EXPECT_TRUE(NearXY(belt.m_aVertex[1], 0.0, 1.0));
  // A's leftmost point is the middle of its arc, B's rightmost of its own.
  EXPECT_NEAR(belt.m_aVertex[2 + 5]->X(), -1.0, 1e-15);
  EXPECT_NEAR(belt.m_aVertex[13 + 5]->X(), 2.0, 1e-15);
  for (const CGLPoint* p : belt.m_aVertex) {
    EXPECT_EQ(p->Z(), 0.0);
  }
}

TEST_F(Belt, EqualPulleysAtQualityFiftyGiveTwentySixPointsPerArc) {
  CGLBelt belt(0.5, 0.5, 2.0);
  belt.SetQuality(50);
  EXPECT_EQ(CompiledVertexCount(belt), 2u + 26u + 26u);
}

TEST_F(Belt, ZeroEntraxeCompilesNothingAndStaysModified) {
  BeltProbe belt(1.0, 1.0, 0.0);
  recorder().clearCalls();
  EXPECT_EQ(belt.DisplayListMake(), 0);
  EXPECT_TRUE(belt.m_bModified);
  EXPECT_EQ(recorder().count("glNewList"), 0u);
}

TEST_F(Belt, FailedRebuildKeepsTheOldList) {
  BeltProbe belt;
  belt.DisplayListMake();
  const Lines before = recorder().listLog(1);
  belt.SetEntraxe(0.0);
  EXPECT_TRUE(belt.m_bModified);
  EXPECT_EQ(belt.DisplayListMake(), 0);
  EXPECT_TRUE(belt.m_bModified);
  EXPECT_EQ(recorder().listLog(1), before);
}

// ---------------------------------------------------------------- type codes

TEST_F(Belt, SetBTypeMapsTheHostTypeToTheCode) {
  BeltProbe belt;
  belt.DisplayListMake();
  const struct {
    unsigned char type;
    unsigned char code;
  } cases[] = {{1, 8}, {2, 4}, {4, 2}, {8, 1}, {3, 16}, {16, 16}, {0, 16}, {255, 16}};
  for (const auto& c : cases) {
    belt.SetBType(c.type);
    EXPECT_EQ(belt.m_nBType, c.code) << int(c.type);
  }
  EXPECT_FALSE(belt.m_bModified);
}

struct TypeCase {
  const char* name;
  double r1, r2, entraxe;
  unsigned char type;
  std::size_t vertices;
};

void PrintTo(const TypeCase& c, std::ostream* os) {
  *os << c.name;
}

class BeltType : public RecordedTestWithParam<TypeCase> {};

TEST_P(BeltType, CompilesTheExpectedVertexCount) {
  const TypeCase& c = GetParam();
  BeltProbe belt(c.r1, c.r2, c.entraxe);
  belt.SetBType(c.type);
  recorder().clearCalls();
  EXPECT_EQ(CompiledVertexCount(belt), c.vertices);
  EXPECT_EQ(belt.m_bModified, c.vertices == 0);
}

// Separate: A r 1 at 0, B r 0.5 at 4 (full belt: cos theta = 1/8, A's far
// side 2 pi - 2 theta counts 10 steps of a 20-point turn, B's 2 theta 9). Touching: r 1 and 1 at 2.
// Overlapping: r 1 and 1 at 1.
INSTANTIATE_TEST_SUITE_P(
    SeparateTouchingOverlapping, BeltType,
    ::testing::Values(
        TypeCase{"SeparateOne", 1.0, 0.5, 4.0, 1, 2}, TypeCase{"SeparateTwo", 1.0, 0.5, 4.0, 2, 2},
        TypeCase{"SeparateFour", 1.0, 0.5, 4.0, 4, 2},
        TypeCase{"SeparateEight", 1.0, 0.5, 4.0, 8, 2},
        TypeCase{"SeparateThreeIsFull", 1.0, 0.5, 4.0, 3, 2 + 11 + 10},
        TypeCase{"SeparateSixteenIsFull", 1.0, 0.5, 4.0, 16, 2 + 11 + 10},
        TypeCase{"TouchingOne", 1.0, 1.0, 2.0, 1, 2}, TypeCase{"TouchingTwo", 1.0, 1.0, 2.0, 2, 2},
        TypeCase{"TouchingFour", 1.0, 1.0, 2.0, 4, 2},
        TypeCase{"TouchingEight", 1.0, 1.0, 2.0, 8, 2},
        TypeCase{"TouchingThreeIsFull", 1.0, 1.0, 2.0, 3, 24},
        TypeCase{"TouchingSixteenIsFull", 1.0, 1.0, 2.0, 16, 24},
        TypeCase{"OverlappingOne", 1.0, 1.0, 1.0, 1, 2},
        TypeCase{"OverlappingTwoHasNoTangent", 1.0, 1.0, 1.0, 2, 0},
        TypeCase{"OverlappingFourHasNoTangent", 1.0, 1.0, 1.0, 4, 0},
        TypeCase{"OverlappingEight", 1.0, 1.0, 1.0, 8, 2},
        TypeCase{"OverlappingThreeIsFull", 1.0, 1.0, 1.0, 3, 24},
        TypeCase{"OverlappingSixteenIsFull", 1.0, 1.0, 1.0, 16, 24},
        TypeCase{"CoincidentFull", 1.0, 1.0, 0.0, 16, 0},
        TypeCase{"CoincidentOne", 1.0, 1.0, 0.0, 1, 0},
        TypeCase{"NestedFull", 3.0, 1.0, 1.0, 16, 0}, TypeCase{"NestedEight", 1.0, 3.0, 1.0, 1, 0},
        TypeCase{"ZeroRadii", 0.0, 0.0, 2.0, 16, 2}),
    ParamName());

TEST_F(Belt, SingleTangentListsTheEndOnBFirst) {
  // SetBType(8) stores code 1: the upper outer tangent of equal pulleys.
  BeltProbe belt(1.0, 1.0, 3.0);
  belt.SetBType(8);
  belt.DisplayListMake();
  ASSERT_EQ(belt.m_aVertex.size(), 2u);
  EXPECT_TRUE(NearXY(belt.m_aVertex[0], 3.0, 1.0));
  EXPECT_TRUE(NearXY(belt.m_aVertex[1], 0.0, 1.0));
  // SetBType(1) stores code 8: the lower one.
  belt.SetBType(1);
  belt.Move(0.0);
  belt.DisplayListMake();
  ASSERT_EQ(belt.m_aVertex.size(), 2u);
  EXPECT_NEAR(belt.m_aVertex[0]->Y(), -1.0, 1e-15);
}

// ---------------------------------------------------------------- setters

TEST_F(Belt, SetSectionStoresAlwaysAndAcceptsZeroToThree) {
  BeltProbe belt;
  belt.DisplayListMake();
  for (unsigned int s = 0; s <= 3; ++s) {
    EXPECT_TRUE(belt.SetSection(s, 1.0, 2.0, 3.0));
    EXPECT_EQ(belt.m_nSection, s);
  }
  EXPECT_FALSE(belt.SetSection(4, 0.0, 0.0, 0.0));
  EXPECT_EQ(belt.m_nSection, 4u);
  EXPECT_FALSE(belt.m_bModified);
}

TEST_F(Belt, SetEntraxeMarksForRebuild) {
  BeltProbe belt;
  belt.DisplayListMake();
  belt.SetEntraxe(3.0);
  EXPECT_EQ(belt.m_dEntraxe, 3.0);
  EXPECT_TRUE(belt.m_bModified);
}

TEST_F(Belt, SetQualityKeepsTenToFiftyWithoutMarking) {
  BeltProbe belt;
  belt.DisplayListMake();
  unsigned int unused = 77;
  belt.SetQuality(5);
  EXPECT_EQ(belt.GetQuality(unused), 20);
  belt.SetQuality(10);
  EXPECT_EQ(belt.GetQuality(unused), 10);
  belt.SetQuality(50);
  EXPECT_EQ(belt.GetQuality(unused), 50);
  belt.SetQuality(51);
  belt.SetQuality(9);
  belt.SetQuality(0xFFFFFFFFu);
  EXPECT_EQ(belt.GetQuality(unused), 50);
  EXPECT_EQ(unused, 77u);
  EXPECT_FALSE(belt.m_bModified);
}

TEST_F(Belt, SetQualityShowsOnlyAtTheNextRebuild) {
  CGLBelt belt(0.5, 0.5, 2.0);
  EXPECT_EQ(CompiledVertexCount(belt), 24u);
  belt.SetQuality(50);
  EXPECT_EQ(CompiledVertexCount(belt), 0u);  // still current
  belt.Move(0.0);
  EXPECT_EQ(CompiledVertexCount(belt), 54u);
}

TEST_F(Belt, SetShadedModeStoresOnly) {
  BeltProbe belt;
  belt.DisplayListMake();
  belt.SetShadedMode(0);
  EXPECT_EQ(belt.m_bShaded, 0);
  EXPECT_FALSE(belt.m_bModified);
}

TEST_F(Belt, SetBTypeShowsOnlyAtTheNextRebuild) {
  BeltProbe belt(1.0, 0.5, 4.0);
  belt.DisplayListMake();
  belt.SetBType(2);
  EXPECT_EQ(CompiledVertexCount(belt), 0u);
  belt.Select(true);
  EXPECT_EQ(CompiledVertexCount(belt), 2u);
}

// ---------------------------------------------------------------- vertices

TEST_F(Belt, AddVertexOverloadsAppendWithoutMarking) {
  BeltProbe belt;
  belt.DisplayListMake();
  belt.InitVertex();
  double p3[] = {1.0, 2.0, 3.0};
  CGLPoint p(4.0, 5.0, 6.0);
  auto* owned = new CGLPoint(7.0, 8.0, 9.0);
  EXPECT_TRUE(belt.AddVertex(p3));
  EXPECT_TRUE(belt.AddVertex(10.0, 11.0, 12.0));
  EXPECT_TRUE(belt.AddVertex(p));
  EXPECT_TRUE(belt.AddVertex(owned));
  ASSERT_EQ(belt.m_aVertex.size(), 4u);
  EXPECT_EQ(belt.m_aVertex[0]->Z(), 3.0);
  EXPECT_EQ(belt.m_aVertex[1]->X(), 10.0);
  EXPECT_NE(belt.m_aVertex[2], &p);
  EXPECT_EQ(belt.m_aVertex[2]->Y(), 5.0);
  EXPECT_EQ(belt.m_aVertex[3], owned);
  EXPECT_FALSE(belt.m_bModified);
  EXPECT_TRUE(belt.InitVertex());
  EXPECT_TRUE(belt.m_aVertex.empty());
  EXPECT_FALSE(belt.m_bModified);
}

TEST_F(Belt, NullVerticesAreNotStored) {
  BeltProbe belt;
  EXPECT_TRUE(belt.AddVertex(static_cast<CGLPoint*>(nullptr)));
  EXPECT_TRUE(belt.AddVertex(static_cast<double*>(nullptr)));
  EXPECT_TRUE(belt.m_aVertex.empty());
}

TEST_F(Belt, DeletesItsPointsThroughTheVirtualDestructor) {
  int deaths = 0;
  {
    BeltProbe belt;
    belt.AddVertex(new CountedPoint(0, 0, 0, &deaths));
    belt.AddVertex(new CountedPoint(1, 0, 0, &deaths));
    belt.DisplayListMake();  // the rebuild replaces them
    EXPECT_EQ(deaths, 2);
    belt.AddVertex(new CountedPoint(2, 0, 0, &deaths));
  }
  EXPECT_EQ(deaths, 3);
}

TEST_F(Belt, HandVerticesAreDrawnDirectlyUntilTheNextRebuild) {
  BeltProbe belt;
  belt.AddVertex(5.0, 6.0, 7.0);
  recorder().clearCalls();
  EXPECT_EQ(belt.DrawDirect(), 0);
  EXPECT_EQ(recorder().callsNamed("glVertex3d").size(), 1u);
  belt.DisplayListMake();
  recorder().clearCalls();
  belt.DrawDirect();
  EXPECT_EQ(recorder().callsNamed("glVertex3d").size(), 24u);
}

// ---------------------------------------------------------------- DrawDirect

TEST_F(Belt, DrawDirectDrawsTheArrayInsideTheTransform) {
  BeltProbe belt(1.0, 1.0, 3.0);
  belt.SetBType(8);
  belt.DisplayListMake();
  recorder().clearCalls();
  EXPECT_EQ(belt.DrawDirect(), 0);
  const Lines log = recorder().log();
  ASSERT_EQ(log.size(), 8u);
  EXPECT_EQ(log[0], line("glPushMatrix"));
  EXPECT_EQ(log[1].rfind("glMultMatrixd(", 0), 0u);
  EXPECT_EQ(log[3], line("glBegin", en(GL_LINE_STRIP)));
  EXPECT_EQ(log[7], line("glPopMatrix"));
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
}

TEST_F(Belt, DrawDirectOfAnEmptyBeltLeavesOneMatrixPushed) {
  CGLBelt belt;
  recorder().clearCalls();
  EXPECT_EQ(belt.DrawDirect(), 0);
  EXPECT_EQ(recorder().count("glPushMatrix"), 1u);
  EXPECT_EQ(recorder().count("glPopMatrix"), 0u);
  EXPECT_EQ(recorder().count("glBegin"), 0u);
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 2);
}

TEST_F(Belt, DrawDirectOfAnInvisibleBeltDoesNothing) {
  CGLBelt belt;
  belt.SetVisible(false);
  EXPECT_TRUE(ReturnsSilently(1, [&] { return belt.DrawDirect(); }));
}

TEST_F(Belt, DrawDirectDoesNotRebuild) {
  BeltProbe belt;
  recorder().clearCalls();
  belt.DrawDirect();
  EXPECT_TRUE(belt.m_aVertex.empty());
  EXPECT_TRUE(belt.m_bModified);
}

TEST_F(Belt, DrawBuildsTheListThroughTheBase) {
  CGLBelt belt;
  recorder().clearCalls();
  EXPECT_EQ(belt.Draw(), 1);
  EXPECT_EQ(recorder().count("glCallList"), 1u);
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
}

TEST_F(Belt, NaNValuesDrawWithoutCrashing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  BeltProbe belt(nan, 1.0, 2.0);
  belt.DisplayListMake();
  EXPECT_LE(belt.m_aVertex.size(), 2u);
  belt.SetEntraxe(nan);
  belt.DisplayListMake();
  EXPECT_LE(belt.m_aVertex.size(), 2u);
}

}  // namespace
