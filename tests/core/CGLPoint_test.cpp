#include <lumagrid/CGLPoint.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <ostream>
#include <limits>
#include <string>
#include <vector>

#include "core_probes.h"
#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "naming/ParamName.h"
#include "recorded/RecordedTest.h"

namespace {

using glrecorder::line;
using glrecorder::LinesEq;

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

void ExpectXYZ(const CGLPoint& p, double x, double y, double z) {
  EXPECT_EQ(p.X(), x);
  EXPECT_EQ(p.Y(), y);
  EXPECT_EQ(p.Z(), z);
}

TEST(Point, DefaultIsOrigin) {
  ExpectXYZ(CGLPoint(), 0.0, 0.0, 0.0);
}

TEST(Point, ConstructorAndCopyKeepComponents) {
  const CGLPoint p(1.5, -2.0, 3.25);
  ExpectXYZ(p, 1.5, -2.0, 3.25);
  const CGLPoint q(p);
  ExpectXYZ(q, 1.5, -2.0, 3.25);
}

TEST(Point, SettersStoreOneComponentAndReturnOne) {
  CGLPoint p;
  EXPECT_EQ(p.XSet(1.0), 1);
  EXPECT_EQ(p.YSet(2.0), 1);
  EXPECT_EQ(p.ZSet(3.0), 1);
  ExpectXYZ(p, 1.0, 2.0, 3.0);
}

TEST(Point, MoveToPointAddsWhileMoveToDoublesAssigns) {
  CGLPoint a(1, 1, 1);
  EXPECT_EQ(a.MoveTo(CGLPoint(1, 2, 3)), 1);
  ExpectXYZ(a, 2, 3, 4);  // adds, like Move(const CGLPoint&)
  CGLPoint b(1, 1, 1);
  EXPECT_EQ(b.MoveTo(1, 2, 3), 1);
  ExpectXYZ(b, 1, 2, 3);
}

TEST(Point, MoveAddsOffsets) {
  CGLPoint p(1, 2, 3);
  EXPECT_EQ(p.Move(1, 1, 1), 1);
  ExpectXYZ(p, 2, 3, 4);
  EXPECT_EQ(p.Move(CGLPoint(-2, -3, -4)), 1);
  ExpectXYZ(p, 0, 0, 0);
}

TEST(Point, SingleAxisMovesAddAndSingleAxisMoveTosSet) {
  CGLPoint p(1, 2, 3);
  EXPECT_EQ(p.MoveX(1), 1);
  EXPECT_EQ(p.MoveY(1), 1);
  EXPECT_EQ(p.MoveZ(1), 1);
  ExpectXYZ(p, 2, 3, 4);
  EXPECT_EQ(p.MoveXTo(7), 1);
  EXPECT_EQ(p.MoveYTo(8), 1);
  EXPECT_EQ(p.MoveZTo(9), 1);
  ExpectXYZ(p, 7, 8, 9);
  EXPECT_EQ(p.MoveXGet(), 7);
  EXPECT_EQ(p.MoveYGet(), 8);
  EXPECT_EQ(p.MoveZGet(), 9);
  EXPECT_EQ(&p.MoveGet(), &p);
  EXPECT_EQ(&p.TranslateGet(), &p);
}

TEST(Point, TranslateXAddsAndReturnsOne) {
  CGLPoint p;
  EXPECT_EQ(p.TranslateX(2.0), 1);
  ExpectXYZ(p, 2, 0, 0);
}

TEST(Point, DivisionByZeroScalarChangesNothing) {
  CGLPoint p(1, 2, 3);
  const CGLPoint& r = (p /= 0.0);
  EXPECT_EQ(&r, &p);
  ExpectXYZ(p, 1, 2, 3);
}

TEST(Point, DivisionByTwoHalvesEveryComponent) {
  CGLPoint p(1, 2, 3);
  p /= 2.0;
  ExpectXYZ(p, 0.5, 1, 1.5);
}

TEST(Point, PointDivisionIsGuardedByTheDividend) {
  CGLPoint a(0, 2, 4);
  a /= CGLPoint(1, 1, 1);
  ExpectXYZ(a, 0, 2, 4);  // a zero in this point blocks the whole division
  CGLPoint b(2, 4, 6);
  b /= CGLPoint(0, 1, 1);
  ExpectXYZ(b, kInf, 4, 6);  // a zero divisor is not tested
  CGLPoint c(2, 4, 0);
  c /= CGLPoint(2, 2, 2);
  ExpectXYZ(c, 2, 4, 0);
  CGLPoint d(2, 4, 6);
  d /= CGLPoint(2, 4, 3);
  ExpectXYZ(d, 1, 1, 2);
}

TEST(Point, CompoundOperatorsWorkPerComponent) {
  CGLPoint p(1, 2, 3);
  EXPECT_EQ(&(p += CGLPoint(1, 1, 1)), &p);
  ExpectXYZ(p, 2, 3, 4);
  EXPECT_EQ(&(p -= CGLPoint(1, 2, 3)), &p);
  ExpectXYZ(p, 1, 1, 1);
  EXPECT_EQ(&(p *= CGLPoint(2, 3, 4)), &p);
  ExpectXYZ(p, 2, 3, 4);
  EXPECT_EQ(&(p += 1.0), &p);
  ExpectXYZ(p, 3, 4, 5);
  EXPECT_EQ(&(p -= 2.0), &p);
  ExpectXYZ(p, 1, 2, 3);
  EXPECT_EQ(&(p *= -2.0), &p);
  ExpectXYZ(p, -2, -4, -6);
}

TEST(Point, DoubleAssignmentSetsAllThree) {
  CGLPoint p(1, 2, 3);
  const CGLPoint& r = (p = 4.5);
  EXPECT_EQ(&r, &p);
  ExpectXYZ(p, 4.5, 4.5, 4.5);
}

TEST(Point, SelfAssignmentKeepsComponents) {
  CGLPoint p(1, 2, 3);
  CGLPoint& alias = p;
  p = alias;
  ExpectXYZ(p, 1, 2, 3);
}

TEST(Point, EqualsDoubleOnlyWhenAllThreeEqualIt) {
  EXPECT_TRUE(CGLPoint(1, 1, 1) == 1.0);
  EXPECT_FALSE(CGLPoint(1, 1, 1) != 1.0);
  EXPECT_FALSE(CGLPoint(1, 1, 2) == 1.0);
  EXPECT_FALSE(CGLPoint(2, 1, 1) == 1.0);
  EXPECT_TRUE(CGLPoint(1, 2, 1) != 1.0);
}

TEST(Point, PointEqualityIsExact) {
  EXPECT_TRUE(CGLPoint(1, 2, 3) == CGLPoint(1, 2, 3));
  EXPECT_FALSE(CGLPoint(1, 2, 3) == CGLPoint(1, 2, std::nextafter(3.0, 4.0)));
  EXPECT_TRUE(CGLPoint(1, 2, 3) != CGLPoint(1, 2, 4));
}

TEST(Point, NaNComponentIsNeverEqual) {
  const CGLPoint p(kNaN, 1, 1);
  EXPECT_FALSE(p == p);
  EXPECT_TRUE(p != p);
  EXPECT_FALSE(p == 1.0);
}

// Records which Move member its Translate synonyms reached.
class RecordingPoint : public CGLPoint {
 public:
  std::vector<std::string> calls;
  long Move(double, double, double) override { return Log("Move3"); }
  long Move(const CGLPoint&) override { return Log("MoveP"); }
  long MoveTo(double, double, double) override { return Log("MoveTo3"); }
  long MoveTo(const CGLPoint&) override { return Log("MoveToP"); }
  long MoveX(double) override { return Log("MoveX"); }
  long MoveY(double) override { return Log("MoveY"); }
  long MoveZ(double) override { return Log("MoveZ"); }
  long MoveXTo(double) override { return Log("MoveXTo"); }
  long MoveYTo(double) override { return Log("MoveYTo"); }
  long MoveZTo(double) override { return Log("MoveZTo"); }
  const CGLPoint& MoveGet() override {
    ++gets;
    return *this;
  }
  double MoveXGet() override { return 10.0; }
  double MoveYGet() override { return 20.0; }
  double MoveZGet() override { return 30.0; }
  int gets = 0;

 private:
  long Log(const char* name) {
    calls.push_back(name);
    return 7;  // distinguishes a forwarded result from a fixed 1
  }
};

struct SynonymCase {
  const char* name;
  std::function<long(CGLPoint&)> call;
  const char* reached;
};

// Names the case in test listings instead of dumping its bytes.
void PrintTo(const SynonymCase& c, std::ostream* os) {
  *os << c.name;
}

class PointTranslateSynonym : public ::testing::TestWithParam<SynonymCase> {};

TEST_P(PointTranslateSynonym, GoesThroughTheVirtualMoveMember) {
  RecordingPoint p;
  EXPECT_EQ(GetParam().call(p), 7);
  ASSERT_EQ(p.calls.size(), 1u);
  EXPECT_EQ(p.calls[0], GetParam().reached);
}

INSTANTIATE_TEST_SUITE_P(
    Synonyms, PointTranslateSynonym,
    ::testing::Values(
        SynonymCase{"Translate3", [](CGLPoint& p) { return p.Translate(1, 2, 3); }, "Move3"},
        SynonymCase{"TranslateP", [](CGLPoint& p) { return p.Translate(CGLPoint()); }, "MoveP"},
        SynonymCase{"TranslateTo3", [](CGLPoint& p) { return p.TranslateTo(1, 2, 3); }, "MoveTo3"},
        SynonymCase{"TranslateToP", [](CGLPoint& p) { return p.TranslateTo(CGLPoint()); },
                    "MoveToP"},
        SynonymCase{"TranslateX", [](CGLPoint& p) { return p.TranslateX(1); }, "MoveX"},
        SynonymCase{"TranslateY", [](CGLPoint& p) { return p.TranslateY(1); }, "MoveY"},
        SynonymCase{"TranslateZ", [](CGLPoint& p) { return p.TranslateZ(1); }, "MoveZ"},
        SynonymCase{"TranslateXTo", [](CGLPoint& p) { return p.TranslateXTo(1); }, "MoveXTo"},
        SynonymCase{"TranslateYTo", [](CGLPoint& p) { return p.TranslateYTo(1); }, "MoveYTo"},
        SynonymCase{"TranslateZTo", [](CGLPoint& p) { return p.TranslateZTo(1); }, "MoveZTo"}),
    ParamName());

TEST(Point, TranslateGettersGoThroughTheVirtualMoveGetters) {
  RecordingPoint p;
  EXPECT_EQ(p.TranslateXGet(), 10.0);
  EXPECT_EQ(p.TranslateYGet(), 20.0);
  EXPECT_EQ(p.TranslateZGet(), 30.0);
  p.TranslateGet();
  EXPECT_EQ(p.gets, 1);
}

TEST(PointAbi, VirtualTableOrderIsDestructorThenMovesThenTranslates) {
  using P = CGLPoint;
  // The destructor takes two slots (complete and deleting).
  EXPECT_EQ(VtableSlot(static_cast<long (P::*)(double, double, double)>(&P::Move)), 2);
  EXPECT_EQ(VtableSlot(static_cast<long (P::*)(const P&)>(&P::Move)), 3);
  EXPECT_EQ(VtableSlot(static_cast<long (P::*)(double, double, double)>(&P::MoveTo)), 4);
  EXPECT_EQ(VtableSlot(static_cast<long (P::*)(const P&)>(&P::MoveTo)), 5);
  EXPECT_EQ(VtableSlot(&P::MoveX), 6);
  EXPECT_EQ(VtableSlot(&P::MoveY), 7);
  EXPECT_EQ(VtableSlot(&P::MoveZ), 8);
  EXPECT_EQ(VtableSlot(&P::MoveXTo), 9);
  EXPECT_EQ(VtableSlot(&P::MoveYTo), 10);
  EXPECT_EQ(VtableSlot(&P::MoveZTo), 11);
  EXPECT_EQ(VtableSlot(&P::MoveGet), 12);
  EXPECT_EQ(VtableSlot(&P::MoveXGet), 13);
  EXPECT_EQ(VtableSlot(&P::MoveYGet), 14);
  EXPECT_EQ(VtableSlot(&P::MoveZGet), 15);
  EXPECT_EQ(VtableSlot(static_cast<long (P::*)(double, double, double)>(&P::Translate)), 16);
  EXPECT_EQ(VtableSlot(static_cast<long (P::*)(const P&)>(&P::Translate)), 17);
  EXPECT_EQ(VtableSlot(static_cast<long (P::*)(double, double, double)>(&P::TranslateTo)), 18);
  EXPECT_EQ(VtableSlot(static_cast<long (P::*)(const P&)>(&P::TranslateTo)), 19);
  EXPECT_EQ(VtableSlot(&P::TranslateX), 20);
  EXPECT_EQ(VtableSlot(&P::TranslateY), 21);
  EXPECT_EQ(VtableSlot(&P::TranslateZ), 22);
  EXPECT_EQ(VtableSlot(&P::TranslateXTo), 23);
  EXPECT_EQ(VtableSlot(&P::TranslateYTo), 24);
  EXPECT_EQ(VtableSlot(&P::TranslateZTo), 25);
  EXPECT_EQ(VtableSlot(&P::TranslateGet), 26);
  EXPECT_EQ(VtableSlot(&P::TranslateXGet), 27);
  EXPECT_EQ(VtableSlot(&P::TranslateYGet), 28);
  EXPECT_EQ(VtableSlot(&P::TranslateZGet), 29);
  EXPECT_EQ(VtableSlot(&P::X), -1);
}

// The point's layout: a virtual-table pointer, then x, y and z.
static_assert(sizeof(CGLPoint) == sizeof(void*) + 3 * sizeof(double), "vptr + x, y, z");

// ---------------------------------------------------------------- GL calls

class PointGL : public RecordedTest {};

TEST_F(PointGL, GLTranslateAndGLScaleSendSinglePrecision) {
  const CGLPoint p(1.0 / 3.0, -2.5, 1e-3);
  EXPECT_EQ(p.GLTranslate(), 1);
  EXPECT_EQ(p.GLScale(), 1);
  const float x = static_cast<float>(1.0 / 3.0);
  EXPECT_THAT(glrecorder::recorder().log(), LinesEq({
                                                line("glTranslatef", x, -2.5f, 1e-3f),
                                                line("glScalef", x, -2.5f, 1e-3f),
                                            }));
}

TEST_F(PointGL, GLRotateTurnsAboutXThenYThenZInDegrees) {
  const CGLPoint p(90.0, 0.0, 0.0);
  EXPECT_EQ(p.GLRotate(), 1);
  EXPECT_THAT(glrecorder::recorder().log(), LinesEq({
                                                "glRotatef(90, 1, 0, 0)",
                                                "glRotatef(0, 0, 1, 0)",
                                                "glRotatef(0, 0, 0, 1)",
                                            }));
  glrecorder::recorder().clearCalls();
  CGLPoint(10.0, 20.0, 30.0).GLRotate();
  EXPECT_THAT(glrecorder::recorder().log(), LinesEq({
                                                "glRotatef(10, 1, 0, 0)",
                                                "glRotatef(20, 0, 1, 0)",
                                                "glRotatef(30, 0, 0, 1)",
                                            }));
}

}  // namespace
