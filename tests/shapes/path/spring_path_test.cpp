// The spring's geometry builders, against the tests' own formulas.

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cmath>
#include <ostream>
#include <vector>

#include "shapes/path/bezier.h"
#include "oracle/SampledHelix.h"
#include "shapes/geometry/path_point.h"
#include "shapes/tube/helix_points.h"
#include "shapes/path/spring_schematic.h"
#include "shapes/path/tension_path.h"
#include "naming/ParamName.h"

namespace {

using lumagrid::detail::PathPoint;

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegreeF = 0.01745329238474369;  // pi / 180 in single precision
constexpr double kTenthF = 0.10000000149011612;   // 0.1f

void ExpectNear(const PathPoint& expected, const PathPoint& actual, double tolerance = 1e-12) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
  EXPECT_NEAR(actual.z, expected.z, tolerance);
}

void ExpectSame(const PathPoint& expected, const PathPoint& actual) {
  EXPECT_EQ(actual.x, expected.x);
  EXPECT_EQ(actual.y, expected.y);
  EXPECT_EQ(actual.z, expected.z);
}

PathPoint OwnBezier(const PathPoint& a, const PathPoint& b, const PathPoint& c, const PathPoint& d,
                    double t) {
  const double u = 1.0 - t;
  const double w0 = u * u * u;
  const double w1 = 3.0 * t * u * u;
  const double w2 = 3.0 * t * t * u;
  const double w3 = t * t * t;
  return {w0 * a.x + w1 * b.x + w2 * c.x + w3 * d.x, w0 * a.y + w1 * b.y + w2 * c.y + w3 * d.y,
          w0 * a.z + w1 * b.z + w2 * c.z + w3 * d.z};
}

PathPoint TurnedAboutZ(const PathPoint& p, double radians) {
  return {p.x * std::cos(radians) - p.y * std::sin(radians),
          p.x * std::sin(radians) + p.y * std::cos(radians), p.z};
}

// ---------------------------------------------------------------- Bezier

TEST(Bezier, EndsOnItsOuterControlPointsAndWeighsTheMiddle) {
  const PathPoint a{0.0, 0.0, 0.0};
  const PathPoint b{1.0, 2.0, 0.0};
  const PathPoint c{3.0, 2.0, 1.0};
  const PathPoint d{4.0, 0.0, 8.0};
  ExpectSame(a, lumagrid::detail::BezierPoint(a, b, c, d, 0.0));
  ExpectSame(d, lumagrid::detail::BezierPoint(a, b, c, d, 1.0));
  ExpectNear(
      {(0.0 + 3.0 + 9.0 + 4.0) / 8.0, (0.0 + 6.0 + 6.0 + 0.0) / 8.0, (0.0 + 0.0 + 3.0 + 8.0) / 8.0},
      lumagrid::detail::BezierPoint(a, b, c, d, 0.5));
}

TEST(Bezier, TransitionStepsTwelveSinglePrecisionTenths) {
  const std::array<double, lumagrid::detail::kTransitionPoints> ts =
      lumagrid::detail::TransitionParameters();
  double t = 0.0;
  for (int i = 0; i < 12; ++i) {
    EXPECT_EQ(ts[static_cast<std::size_t>(i)], t) << i;
    t += kTenthF;
  }
  // Accumulated tenths of 0.1f: not 1.0 and 1.1, but a little beyond both.
  EXPECT_GT(ts[10], 1.0);
  EXPECT_GT(ts[11], 1.1);
  EXPECT_LE(ts[11], static_cast<double>(1.1f));
}

TEST(Bezier, TransitionOvershootsItsEndPoint) {
  const PathPoint a{0.0, 0.0, 0.0};
  const PathPoint d{0.0, 0.0, 3.0};
  const std::array<PathPoint, 12> curve = lumagrid::detail::BezierTransition(a, a, d, d);
  double t = 0.0;
  for (int i = 0; i < 11; ++i) {
    t += kTenthF;
  }
  // The straight curve 3 t^2 (3 - 2 t): past t = 1 it turns back below 3.
  EXPECT_NEAR(curve[11].z, 3.0 * t * t * (3.0 - 2.0 * t), 1e-12);
  EXPECT_NE(curve[11].z, 3.0);
}

// ---------------------------------------------------------------- tension body

struct BodyCase {
  const char* name;
  double r;
  double R;
  double L;
  int n;
  unsigned int ends;
  int sides;
};

void PrintTo(const BodyCase& c, std::ostream* os) {
  *os << c.name;
}

// The body path written out from its description.
std::vector<PathPoint> OwnTensionPath(const BodyCase& c) {
  const double f = c.ends * 0.25;
  const double d = 2.0 * (c.R - c.r);
  const double N = c.n + f;
  const double B = c.L - d;
  const double p = B / N;
  const std::vector<PathPoint> helix =
      SampledHelix(c.R, 0.0, c.R - c.r, p, 0.0, N * 360.0, c.sides);
  const std::size_t count = helix.size();
  std::vector<PathPoint> path(count + 19, PathPoint{0.0, 0.0, 0.0});
  path[0] = {c.R, 0.0, -1.0};
  for (std::size_t i = 0; i < count; ++i) {
    path[10 + i] = helix[i];
  }
  const double alpha = std::atan2(((B - 2.0 * c.r) / N) * 0.5, 2.0 * (c.r + c.R));
  const PathPoint in3 = path[12];
  double t = 0.0;
  for (int i = 0; i < 12; ++i, t += kTenthF) {
    path[1 + static_cast<std::size_t>(i)] = OwnBezier(
        {c.R, 0.0, 0.0}, {c.R, 0.0, c.R - c.r},
        {c.R, std::cos(alpha) * c.r / 2.0, (c.R - c.r) + std::sin(alpha) * c.r / 2.0}, in3, t);
  }
  const std::size_t k = count + 7;
  const PathPoint out0 = path[k];
  const double turn = f * 360.0 * kDegreeF;
  const PathPoint out1 = TurnedAboutZ(
      {c.R, std::cos(alpha) * c.r / 2.0, (c.R - c.r) + B - std::sin(alpha) * c.r / 2.0}, turn);
  const PathPoint out2 = TurnedAboutZ({c.R, 0.0, (c.R - c.r) + B}, turn);
  const PathPoint out3 = TurnedAboutZ({c.R, 0.0, B + d}, turn);
  t = 0.0;
  for (int i = 0; i < 12; ++i, t += kTenthF) {
    path[k + static_cast<std::size_t>(i)] = OwnBezier(out0, out1, out2, out3, t);
  }
  return path;
}

class TensionBody : public ::testing::TestWithParam<BodyCase> {
 protected:
  std::vector<PathPoint> Built() const {
    const BodyCase& c = GetParam();
    return lumagrid::detail::TensionBodyPath(c.r, c.R, c.L, c.n, c.ends * 0.25, c.sides);
  }
};

TEST_P(TensionBody, MatchesItsDescription) {
  const std::vector<PathPoint> expected = OwnTensionPath(GetParam());
  const std::vector<PathPoint> actual = Built();
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    SCOPED_TRACE(i);
    ExpectNear(expected[i], actual[i]);
  }
}

TEST_P(TensionBody, StartsBelowTheFirstEndAndEndsBeyondTheTurnedOther) {
  const BodyCase& c = GetParam();
  const std::vector<PathPoint> path = Built();
  ASSERT_GE(path.size(), 23u);
  ExpectSame({c.R, 0.0, -1.0}, path[0]);
  ExpectSame({c.R, 0.0, 0.0}, path[1]);
  // Index size - 2 is t = 1 (give or take 0.1f's rounding): the top end,
  // turned by the twist.
  const PathPoint top = TurnedAboutZ({c.R, 0.0, c.L}, c.ends * 0.25 * 2.0 * kPi);
  ExpectNear(top, path[path.size() - 2], 1e-6);
  EXPECT_EQ(path.size(),
            lumagrid::detail::HelixPointCount((c.n + c.ends * 0.25) * 360.0, c.sides) + 19);
}

INSTANTIATE_TEST_SUITE_P(
    Twists, TensionBody,
    ::testing::Values(BodyCase{"Default", 0.1, 1.0, 5.0, 3, 0, 20},
                      BodyCase{"QuarterTwist", 0.1, 1.0, 5.0, 3, 1, 20},
                      BodyCase{"HalfTwist", 0.1, 1.0, 5.0, 3, 2, 20},
                      BodyCase{"ThreeQuarterTwist", 0.1, 1.0, 5.0, 3, 3, 20},
                      BodyCase{"FineAndLong", 0.05, 0.8, 9.0, 7, 1, 50},
                      BodyCase{"OneTurnCoarse", 0.2, 1.5, 4.0, 1, 0, 10},
                      // Four helix points only: the lead-out overwrites the lead-in.
                      BodyCase{"QuarterTurnOverlapsTheTransitions", 0.1, 1.0, 5.0, 0, 1, 3}),
    ParamName());

TEST(TensionBodyPath, TooManyTurnsGiveNoBody) {
  EXPECT_TRUE(lumagrid::detail::TensionBodyPath(0.1, 1.0, 5.0, 1000000, 0.0, 20).empty());
  EXPECT_TRUE(lumagrid::detail::TensionBodyPath(0.1, 1.0, 5.0, INT_MAX, 0.75, 50).empty());
  EXPECT_TRUE(lumagrid::detail::TensionBodyPath(0.1, 1.0, 5.0, 3, 1.0e9, 20).empty());
}

TEST(TensionBodyPath, NegativeTurnsStayInsideTheirPoints) {
  const std::vector<PathPoint> path = lumagrid::detail::TensionBodyPath(0.1, 1.0, 5.0, -2, 0.0, 20);
  EXPECT_EQ(path.size(), 40u + 4u + 19u);
}

// ---------------------------------------------------------------- schematic

TEST(CompressionZigzag, OpenStrokesFromSideToSide) {
  // R 1, L 3, 3 turns: pitch 1.
  const std::vector<PathPoint> z = lumagrid::detail::CompressionZigzag(1.0, 3.0, 3, false);
  const std::vector<PathPoint> expected{{-1, 0, 0},   {1, 0, 0.5}, {-1, 0, 1}, {1, 0, 1.5},
                                        {-1, 0, 2.0}, {1, 0, 2.5}, {-1, 0, 3}};
  ASSERT_EQ(z.size(), expected.size());
  for (std::size_t i = 0; i < z.size(); ++i) {
    ExpectSame(expected[i], z[i]);
  }
}

TEST(CompressionZigzag, ClosedEndsAddAFlatStrokeAtEachEnd) {
  const std::vector<PathPoint> z = lumagrid::detail::CompressionZigzag(2.0, 2.0, 1, true);
  const std::vector<PathPoint> expected{{-2, 0, 0}, {2, 0, 0},  {-2, 0, 0}, {2, 0, 1},
                                        {-2, 0, 2}, {-2, 0, 2}, {2, 0, 2}};
  ASSERT_EQ(z.size(), expected.size());
  for (std::size_t i = 0; i < z.size(); ++i) {
    ExpectSame(expected[i], z[i]);
  }
}

TEST(CompressionZigzag, AbsurdTurnsDrawNothing) {
  EXPECT_TRUE(lumagrid::detail::CompressionZigzag(1.0, 3.0, INT_MAX, false).empty());
  EXPECT_TRUE(lumagrid::detail::CompressionZigzag(1.0, 3.0, 1 << 20, true).empty());
  EXPECT_EQ(lumagrid::detail::CompressionZigzag(1.0, 3.0, 1000, true).size(), 2005u);
}

struct ZigzagCase {
  const char* name;
  unsigned int ends;
  double lastX;
  std::size_t points;
};

void PrintTo(const ZigzagCase& c, std::ostream* os) {
  *os << c.name;
}

class TensionZigzag : public ::testing::TestWithParam<ZigzagCase> {};

TEST_P(TensionZigzag, StrokesTurnsPlusOneAndEndsOnItsSide) {
  const ZigzagCase& c = GetParam();
  const double R = 1.0;
  const double L = 6.0;
  const int n = 2;
  const double f = c.ends * 0.25;
  const double p = (L - 2.0 * R) / (n + f);
  const std::vector<PathPoint> z = lumagrid::detail::TensionZigzag(R, L, n, f);
  ASSERT_EQ(z.size(), c.points);
  ExpectSame({R, 0, 0}, z[0]);
  ExpectSame({R, 0, R - p / 2.0}, z[1]);
  for (int i = 0; i <= n; ++i) {
    ExpectSame({-R, 0, i * p + R}, z[2 + 2 * static_cast<std::size_t>(i)]);
    ExpectSame({R, 0, i * p + R + p / 2.0}, z[3 + 2 * static_cast<std::size_t>(i)]);
  }
  ExpectSame({c.lastX, 0, L}, z.back());
}

INSTANTIATE_TEST_SUITE_P(
    Twists, TensionZigzag,
    ::testing::Values(ZigzagCase{"NoTwist", 0, 1.0, 9}, ZigzagCase{"QuarterTwist", 1, 1.0, 9},
                      // Only the half turn adds a stroke and ends on the far side.
                      ZigzagCase{"HalfTwist", 2, -1.0, 10},
                      ZigzagCase{"ThreeQuarterTwist", 3, 1.0, 9}),
    ParamName());

TEST(TensionZigzag, HalfTwistStrokeGoesOnePitchPastTheLast) {
  const double p = (6.0 - 2.0) / 2.5;
  const std::vector<PathPoint> z = lumagrid::detail::TensionZigzag(1.0, 6.0, 2, 0.5);
  ASSERT_EQ(z.size(), 10u);
  ExpectSame({-1.0, 0, 3 * p + 1.0}, z[8]);
}

TEST(TensionZigzag, AbsurdTurnsDrawNothing) {
  EXPECT_TRUE(lumagrid::detail::TensionZigzag(1.0, 6.0, INT_MAX, 0.5).empty());
}

TEST(HookArc, StepsTenDegreesWithTheSinglePrecisionFactor) {
  const std::vector<PathPoint> a = lumagrid::detail::HookArc(2.0, 0, 200);
  ASSERT_EQ(a.size(), 21u);
  for (std::size_t i = 0; i < a.size(); ++i) {
    const double deg = 10.0 * static_cast<double>(i);
    ExpectSame({2.0 * std::cos(deg * kDegreeF), 2.0 * std::sin(deg * kDegreeF), 0.0}, a[i]);
  }
  // The single-precision factor falls short of pi/180: 90 degrees is not
  // quite a right angle.
  EXPECT_GT(a[9].x, 1e-8);
}

TEST(HookArc, TopHookRunsFromMinusTwentyToOneEighty) {
  const std::vector<PathPoint> a = lumagrid::detail::HookArc(1.0, -20, 180);
  ASSERT_EQ(a.size(), 21u);
  ExpectSame({std::cos(-20 * kDegreeF), std::sin(-20 * kDegreeF), 0.0}, a.front());
  ExpectSame({std::cos(180 * kDegreeF), std::sin(180 * kDegreeF), 0.0}, a.back());
}

}  // namespace
