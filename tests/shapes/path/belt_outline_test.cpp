// The belt outline builder, checked against circle geometry worked out here:
// tangent points from the angle between the radius and the line of centres,
// arcs from their end angles.
#include "shapes/path/belt_outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace {

using lumagrid::detail::BeltTypeCode;
using lumagrid::detail::BuildBeltOutline;
using lumagrid::detail::PathPoint;

const double kPi = std::acos(-1.0);
const double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kTol = 1e-12;

struct Expected {
  double x;
  double y;
};

::testing::AssertionResult near(const PathPoint& p, const Expected& e) {
  if (std::fabs(p.x - e.x) <= kTol && std::fabs(p.y - e.y) <= kTol && p.z == 0.0) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "(" << p.x << ", " << p.y << ", " << p.z << ") expected ("
                                       << e.x << ", " << e.y << ", 0)";
}

Expected onCircle(double cx, double r, double angle) {
  return {cx + r * std::cos(angle), r * std::sin(angle)};
}

double distance(const PathPoint& p, double cx) {
  return std::hypot(p.x - cx, p.y);
}

// The line p-q touches the circle (cx, r) at p when p is on it and the
// radius to p is perpendicular to the line.
void expectTangentAt(const PathPoint& p, const PathPoint& q, double cx, double r) {
  EXPECT_NEAR(distance(p, cx), std::fabs(r), 1e-12);
  const double dot = (p.x - cx) * (q.x - p.x) + p.y * (q.y - p.y);
  EXPECT_NEAR(dot, 0.0, 1e-12);
}

// The outline is one straight segment, from `from` to `to`.
void expectSegment(const std::vector<PathPoint>& pts, const Expected& from, const Expected& to) {
  ASSERT_EQ(pts.size(), 2u);
  EXPECT_TRUE(near(pts[0], from));
  EXPECT_TRUE(near(pts[1], to));
}

// Arc points a0 + i * sweep / k, i = 0 .. k, with k as the belt counts it.
void expectArc(const std::vector<PathPoint>& pts, std::size_t first, double cx, double r, double a0,
               double sweep, int k) {
  ASSERT_GE(pts.size(), first + static_cast<std::size_t>(k) + 1);
  for (int i = 0; i <= k; ++i) {
    EXPECT_TRUE(near(pts[first + i], onCircle(cx, r, a0 + sweep * i / k))) << "arc point " << i;
  }
}

TEST(BeltOutline, DefaultBeltHasTwoPlusElevenPlusElevenPoints) {
  const std::vector<PathPoint> pts = BuildBeltOutline(1.0, 1.0, 1.0, 20, 16);
  ASSERT_EQ(pts.size(), 2u + 11u + 11u);
  EXPECT_TRUE(near(pts[0], {1.0, 1.0}));  // upper straight, B end first
  EXPECT_TRUE(near(pts[1], {0.0, 1.0}));
  expectArc(pts, 2, 0.0, 1.0, kPi / 2, kPi, 10);    // A's left half, counter-clockwise
  expectArc(pts, 13, 1.0, 1.0, -kPi / 2, kPi, 10);  // B's right half
  EXPECT_TRUE(near(pts.back(), {1.0, 1.0}));        // closes on the first point
}

TEST(BeltOutline, EqualPulleysGiveHalfTheQualityStepsPerHalfTurn) {
  for (int quality : {20, 50}) {
    const double r = 0.5;
    const double e = 3.0;
    const std::vector<PathPoint> pts = BuildBeltOutline(r, r, e, quality, 16);
    const int k = quality / 2;
    ASSERT_EQ(pts.size(), 2u + 2u * static_cast<std::size_t>(k + 1)) << quality;
    EXPECT_TRUE(near(pts[0], {e, r}));
    EXPECT_TRUE(near(pts[1], {0.0, r}));
    expectArc(pts, 2, 0.0, r, kPi / 2, kPi, k);
    expectArc(pts, 3 + k, e, r, -kPi / 2, kPi, k);
  }
}

TEST(BeltOutline, LargerPulleyAIsWrappedOnItsFarSide) {
  const double r1 = 2.0, r2 = 1.0, e = 5.0;
  const std::vector<PathPoint> pts = BuildBeltOutline(r1, r2, e, 20, 16);
  // Outer tangents touch both circles at +-theta from the line of centres.
  const double theta = std::acos((r1 - r2) / e);
  ASSERT_GE(pts.size(), 2u);
  EXPECT_TRUE(near(pts[0], onCircle(e, r2, theta)));
  EXPECT_TRUE(near(pts[1], onCircle(0.0, r1, theta)));
  expectTangentAt(pts[1], pts[0], 0.0, r1);
  expectTangentAt(pts[0], pts[1], e, r2);

  const double sweepA = 2 * kPi - 2 * theta;
  const int kA = static_cast<int>(sweepA / (2 * kPi) * 20);
  const int kB = static_cast<int>(2 * theta / (2 * kPi) * 20);
  ASSERT_EQ(pts.size(), 2u + static_cast<std::size_t>(kA + 1 + kB + 1));
  expectArc(pts, 2, 0.0, r1, theta, sweepA, kA);
  expectArc(pts, 3 + kA, e, r2, -theta, 2 * theta, kB);
  // The lower straight joins A's last arc point to B's first.
  expectTangentAt(pts[2 + kA], pts[3 + kA], 0.0, r1);
}

// With B the larger pulley the arc on A runs from its lower tangent point
// counter-clockwise through the side that faces B, as the angles fall out.
TEST(BeltOutline, LargerPulleyBDrawsAsArcOnTheSideFacingB) {
  const double r1 = 1.0, r2 = 2.0, e = 5.0;
  const std::vector<PathPoint> pts = BuildBeltOutline(r1, r2, e, 20, 16);
  const double theta = std::acos((r2 - r1) / e);
  ASSERT_GE(pts.size(), 2u);
  // Tangent points at pi +- theta on both circles; the lower straight first.
  EXPECT_TRUE(near(pts[0], onCircle(e, r2, kPi + theta)));
  EXPECT_TRUE(near(pts[1], onCircle(0.0, r1, kPi + theta)));
  expectTangentAt(pts[1], pts[0], 0.0, r1);

  const double a0 = -(kPi - theta);
  const double sweepA = (kPi - theta) - a0;
  const int kA = static_cast<int>(sweepA / (2 * kPi) * 20);
  const double b0 = kPi - theta;
  const double sweepB = -(kPi - theta) - b0;  // clockwise
  const int kB = static_cast<int>(-sweepB / (2 * kPi) * 20);
  ASSERT_EQ(pts.size(), 2u + static_cast<std::size_t>(kA + 1 + kB + 1));
  expectArc(pts, 2, 0.0, r1, a0, sweepA, kA);
  EXPECT_GT(pts[2 + kA / 2].x, 0.0);  // through the side facing B
  expectArc(pts, 3 + kA, e, r2, b0, sweepB, kB);
}

TEST(BeltOutline, ArcCountsUseTheShortTurnAndTruncate) {
  // Quality 20 over a half turn: pi / 6.2831853071794 * 20 is a hair above
  // 10, so 11 points; a full-precision turn would give the same, but one
  // just below would drop a point.
  EXPECT_GT(kPi / 6.2831853071794 * 20, 10.0);
  EXPECT_EQ(BuildBeltOutline(1.0, 1.0, 1.0, 20, 16).size(), 24u);
  EXPECT_EQ(BuildBeltOutline(1.0, 1.0, 1.0, 50, 16).size(), 2u + 26u + 26u);
}

TEST(BeltOutline, WrapUsesFullPrecisionTwoPi) {
  // A's end angle -theta wraps to 2 pi - theta; with 6.2831853071794 it
  // would fall 1.9e-13 short, 3.7e-12 at this radius.
  const double r1 = 20.0, r2 = 10.0, e = 50.0;
  const double theta = std::acos((r1 - r2) / e);
  const std::vector<PathPoint> pts = BuildBeltOutline(r1, r2, e, 20, 16);
  const int kA = static_cast<int>((2 * kPi - 2 * theta) / (2 * kPi) * 20);
  ASSERT_GT(pts.size(), static_cast<std::size_t>(2 + kA));
  const Expected end = onCircle(0.0, r1, 2 * kPi - theta);
  EXPECT_NEAR(pts[2 + kA].x, end.x, 1e-13);
  EXPECT_NEAR(pts[2 + kA].y, end.y, 1e-13);
}

TEST(BeltOutline, ArcCountDividesByTheShortTurn) {
  // Here A's sweep is a hair under 12/18 of a turn: 6.2831853071794 counts
  // 12 steps where full-precision 2 pi would count 11.
  const std::vector<PathPoint> pts = BuildBeltOutline(4.5, 3.1, 2.8, 18, 16);
  EXPECT_EQ(pts.size(), 2u + 13u + 7u);
}

TEST(BeltOutline, ZeroEntraxeGivesNothing) {
  EXPECT_TRUE(BuildBeltOutline(1.0, 1.0, 0.0, 20, 16).empty());
  EXPECT_TRUE(BuildBeltOutline(1.0, 1.0, 0.0004, 20, 16).empty());
  EXPECT_TRUE(BuildBeltOutline(1.0, 1.0, 0.0, 20, 1).empty());
}

TEST(BeltOutline, NestedOrInternallyTouchingPulleysGiveNothing) {
  EXPECT_TRUE(BuildBeltOutline(3.0, 1.0, 1.0, 20, 16).empty());  // B inside A
  EXPECT_TRUE(BuildBeltOutline(1.0, 3.0, 1.0, 20, 16).empty());  // A inside B
  EXPECT_TRUE(BuildBeltOutline(2.0, 1.0, 1.0, 20, 16).empty());  // touching inside
  EXPECT_TRUE(BuildBeltOutline(2.0, 1.0, 1.0004, 20, 16).empty());
  for (unsigned char code : {1, 2, 4, 8}) {
    EXPECT_TRUE(BuildBeltOutline(3.0, 1.0, 1.0, 20, code).empty()) << int(code);
  }
}

TEST(BeltOutline, JustOutsideTheInternalTouchToleranceHasAnOutline) {
  EXPECT_FALSE(BuildBeltOutline(2.0, 1.0, 1.001, 20, 16).empty());
}

// ---------------------------------------------------------------- single tangents

struct SingleCase {
  const char* name;
  double r1, r2, e;
  unsigned char code;
};

// Separate pulleys A (r 1 at 0) and B (r 0.5 at 4).
constexpr double kR1 = 1.0, kR2 = 0.5, kE = 4.0;

TEST(BeltOutline, CodeOneIsTheUpperOuterTangentBEndFirst) {
  const std::vector<PathPoint> pts = BuildBeltOutline(kR1, kR2, kE, 20, 1);
  const double theta = std::acos((kR1 - kR2) / kE);
  expectSegment(pts, onCircle(kE, kR2, theta), onCircle(0.0, kR1, theta));
  expectTangentAt(pts[1], pts[0], 0.0, kR1);
  expectTangentAt(pts[0], pts[1], kE, kR2);
}

TEST(BeltOutline, CodeEightIsTheLowerOuterTangent) {
  const std::vector<PathPoint> pts = BuildBeltOutline(kR1, kR2, kE, 20, 8);
  const double theta = std::acos((kR1 - kR2) / kE);
  expectSegment(pts, onCircle(kE, kR2, -theta), onCircle(0.0, kR1, -theta));
}

TEST(BeltOutline, CodesTwoAndFourAreTheCrossedTangents) {
  // A crossed tangent touches A at +-phi and B at pi -+ phi, cos phi = (R + r) / d.
  const double phi = std::acos((kR1 + kR2) / kE);
  const std::vector<PathPoint> two = BuildBeltOutline(kR1, kR2, kE, 20, 2);
  expectSegment(two, onCircle(kE, kR2, -(kPi - phi)), onCircle(0.0, kR1, phi));
  expectTangentAt(two[1], two[0], 0.0, kR1);
  expectTangentAt(two[0], two[1], kE, kR2);

  const std::vector<PathPoint> four = BuildBeltOutline(kR1, kR2, kE, 20, 4);
  expectSegment(four, onCircle(kE, kR2, kPi - phi), onCircle(0.0, kR1, -phi));
  expectTangentAt(four[1], four[0], 0.0, kR1);
}

TEST(BeltOutline, CrossedTangentTakesPiAsThirteenDigits) {
  // B's point is at rot(r u, pi - phi) with pi = 3.1415926535897, not M_PI:
  // the two differ in the last bits of the result.
  const double phi = std::acos((kR1 + kR2) / kE);
  const double shortPi = 3.1415926535897;
  const double a = -(shortPi - phi);
  const double x = kE + (kR2 * std::cos(a) - 0.0 * std::sin(a));
  const double y = kR2 * std::sin(a) + 0.0 * std::cos(a);
  const std::vector<PathPoint> two = BuildBeltOutline(kR1, kR2, kE, 20, 2);
  ASSERT_EQ(two.size(), 2u);
  EXPECT_EQ(two[0].x, x);
  EXPECT_EQ(two[0].y, y);
  const double full = -(kPi - phi);
  EXPECT_NE(two[0].y, kR2 * std::sin(full));
}

TEST(BeltOutline, TouchingPulleysGiveTheCrossProductPoint) {
  // A (r 1 at 0) touches B (r 1 at 2) at (1, 0). The crossed codes give the
  // segment from there to (R u) x z = (0, -1, 0), taken as a position.
  for (unsigned char code : {2, 4}) {
    const std::vector<PathPoint> pts = BuildBeltOutline(1.0, 1.0, 2.0, 20, code);
    ASSERT_EQ(pts.size(), 2u) << int(code);
    EXPECT_TRUE(near(pts[0], {0.0, -1.0})) << int(code);
    EXPECT_TRUE(near(pts[1], {1.0, 0.0})) << int(code);
  }
}

TEST(BeltOutline, TouchingPulleysKeepTheOuterTangents) {
  const std::vector<PathPoint> one = BuildBeltOutline(1.0, 1.0, 2.0, 20, 1);
  expectSegment(one, {2.0, 1.0}, {0.0, 1.0});
}

TEST(BeltOutline, TouchingWithBTheLargerRunsFromTheCrossPointToTheTouch) {
  // B is the big circle: u points from B to A, T = B + R u = (1, 0) and the
  // cross product (R u) x z = (0, 2, 0); the segment is turned to run from
  // the small circle's side, so B's end (the touch point) comes first.
  const std::vector<PathPoint> pts = BuildBeltOutline(1.0, 2.0, 3.0, 20, 2);
  expectSegment(pts, {1.0, 0.0}, {0.0, 2.0});
}

TEST(BeltOutline, OverlappingPulleysHaveNoCrossedTangent) {
  for (unsigned char code : {2, 4}) {
    EXPECT_TRUE(BuildBeltOutline(1.0, 1.0, 1.0, 20, code).empty()) << int(code);
  }
  EXPECT_EQ(BuildBeltOutline(1.0, 1.0, 1.0, 20, 1).size(), 2u);
  EXPECT_EQ(BuildBeltOutline(1.0, 1.0, 1.0, 20, 8).size(), 2u);
}

TEST(BeltOutline, OtherSingleCodesGiveNothingForSeparatePulleys) {
  for (unsigned char code : {0, 3, 5, 15}) {
    EXPECT_TRUE(BuildBeltOutline(kR1, kR2, kE, 20, code).empty()) << int(code);
  }
}

TEST(BeltOutline, SwappedPulleysRunEachSegmentFromAToB) {
  // B larger: code 1's points are computed on the big circle (B) first, and
  // the outline still lists B's end first.
  const double r1 = 0.5, r2 = 1.0, e = 4.0;
  const double theta = std::acos((r2 - r1) / e);
  const std::vector<PathPoint> pts = BuildBeltOutline(r1, r2, e, 20, 1);
  expectSegment(pts, onCircle(e, r2, kPi + theta), onCircle(0.0, r1, kPi + theta));
}

TEST(BeltOutline, TypeCodesMapOneTwoFourEightBackwards) {
  EXPECT_EQ(BeltTypeCode(1), 8);
  EXPECT_EQ(BeltTypeCode(2), 4);
  EXPECT_EQ(BeltTypeCode(4), 2);
  EXPECT_EQ(BeltTypeCode(8), 1);
  for (int other : {0, 3, 5, 7, 9, 16, 255}) {
    EXPECT_EQ(BeltTypeCode(static_cast<unsigned char>(other)), 16) << other;
  }
}

// ---------------------------------------------------------------- bad input

TEST(BeltOutline, ZeroRadiiStopAfterTheStraight) {
  // Both tangents run centre to centre; A's centre has no angle.
  const std::vector<PathPoint> pts = BuildBeltOutline(0.0, 0.0, 2.0, 20, 16);
  expectSegment(pts, {2.0, 0.0}, {0.0, 0.0});
}

TEST(BeltOutline, NaNInputsGiveNoArcsAndNoCrash) {
  for (const auto& in : std::vector<std::vector<double>>{
           {kNaN, 1.0, 3.0}, {1.0, kNaN, 3.0}, {1.0, 1.0, kNaN}, {kNaN, kNaN, kNaN}}) {
    const std::vector<PathPoint> pts = BuildBeltOutline(in[0], in[1], in[2], 20, 16);
    EXPECT_LE(pts.size(), 2u);
    for (unsigned char code : {1, 2, 4, 8}) {
      EXPECT_LE(BuildBeltOutline(in[0], in[1], in[2], 20, code).size(), 2u);
    }
  }
}

TEST(BeltOutline, NegativeAndInfiniteValuesStayBounded) {
  const double inf = std::numeric_limits<double>::infinity();
  for (const auto& in : std::vector<std::vector<double>>{{-1.0, 1.0, 3.0},
                                                         {1.0, -1.0, 3.0},
                                                         {1.0, 1.0, -3.0},
                                                         {inf, 1.0, 3.0},
                                                         {1.0, 1.0, inf},
                                                         {1e300, 1e-300, 1e300}}) {
    for (int quality : {10, 20, 50}) {
      EXPECT_LE(BuildBeltOutline(in[0], in[1], in[2], quality, 16).size(), 2u + 2u * 51u);
    }
  }
}

TEST(BeltOutline, NegativeEntraxeMirrorsTheBelt) {
  const std::vector<PathPoint> pts = BuildBeltOutline(1.0, 1.0, -3.0, 20, 16);
  ASSERT_GE(pts.size(), 2u);
  for (const PathPoint& p : pts) {
    const double toA = std::hypot(p.x, p.y);
    const double toB = std::hypot(p.x + 3.0, p.y);
    EXPECT_TRUE(std::fabs(toA - 1.0) < 1e-9 || std::fabs(toB - 1.0) < 1e-9);
  }
}

// An arc shorter than one step has k = 0: only its start point is drawn.
TEST(BeltOutline, ArcOfCountZeroKeepsOnlyItsStartPoint) {
  // Pulley A far larger than B: B's contact arc 2 theta is below one step
  // of a 10-point turn.
  const double r1 = 10.0, r2 = 0.01, e = 10.5;
  const double theta = std::acos((r1 - r2) / e);
  ASSERT_LT(2 * theta / (2 * kPi) * 10, 1.0);
  const std::vector<PathPoint> pts = BuildBeltOutline(r1, r2, e, 10, 16);
  const double sweepA = 2 * kPi - 2 * theta;
  const int kA = static_cast<int>(sweepA / (2 * kPi) * 10);
  ASSERT_EQ(pts.size(), 2u + static_cast<std::size_t>(kA + 1) + 1u);
  EXPECT_TRUE(near(pts.back(), onCircle(e, r2, -theta)));
  for (const PathPoint& p : pts) {
    EXPECT_FALSE(std::isnan(p.x) || std::isnan(p.y));
  }
}

}  // namespace
