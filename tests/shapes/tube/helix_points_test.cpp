// The helix the torus and the springs sweep along, sampled as GLE samples it.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <ostream>
#include <vector>

#include "naming/ParamName.h"
#include "oracle/SampledHelix.h"
#include "shapes/geometry/path_point.h"
#include "shapes/tube/helix_points.h"

namespace {

using lumagrid::detail::PathPoint;

constexpr double kPi = 3.14159265358979323846;

void ExpectNear(const PathPoint& expected, const PathPoint& actual, double tolerance = 1e-12) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
  EXPECT_NEAR(actual.z, expected.z, tolerance);
}

struct CountCase {
  const char* name;
  double sweep;
  int sides;
  std::size_t count;
};

void PrintTo(const CountCase& c, std::ostream* os) {
  *os << c.name;
}

class HelixCount : public ::testing::TestWithParam<CountCase> {};

TEST_P(HelixCount, IsSweptSidesPlusFour) {
  EXPECT_EQ(lumagrid::detail::HelixPointCount(GetParam().sweep, GetParam().sides),
            GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(
    Sweeps, HelixCount,
    ::testing::Values(CountCase{"OneTurn", 360.0, 20, 24}, CountCase{"ThreeTurns", 1080.0, 20, 64},
                      CountCase{"BackwardsCountsTheSame", -360.0, 20, 24},
                      CountCase{"HookArcTruncates", 200.0, 20, 15},
                      CountCase{"QuarterTurnOfTen", 90.0, 10, 6},
                      CountCase{"NoSweepIsTheDirectionPointsAndTwo", 0.0, 20, 4},
                      CountCase{"NoSidesIsTheBareFour", 360.0, 0, 4},
                      CountCase{"MillionTurnsIsTooMany", 360.0e6, 20, 0},
                      CountCase{"IntMaxTurnsIsTooMany", 360.0 * INT_MAX, 50, 0},
                      CountCase{"HugeSidesIsTooMany", 360.0, INT_MAX, 0},
                      CountCase{"InfiniteIsTooMany", std::numeric_limits<double>::infinity(), 20,
                                0},
                      CountCase{"NaNIsNothing", std::numeric_limits<double>::quiet_NaN(), 20, 0}),
    ParamName());

TEST(HelixPoints, MatchTheSampledHelix) {
  const lumagrid::detail::Helix helix{1.5, 0.25, 0.3, 2.0, 30.0, 720.0};
  const std::vector<PathPoint> expected = SampledHelix(1.5, 0.25, 0.3, 2.0, 30.0, 720.0, 20);
  const std::vector<PathPoint> actual = lumagrid::detail::HelixPoints(helix, 20);
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    ExpectNear(expected[i], actual[i]);
  }
}

TEST(HelixPoints, FirstAndLastAreDirectionPointsOneStepOutside) {
  // One turn at 20 sides: 24 points, 21 steps of 360/21 degrees.
  const std::vector<PathPoint> p =
      lumagrid::detail::HelixPoints(lumagrid::detail::Helix{2.0, 0.0, 0.0, 3.0, 0.0, 360.0}, 20);
  ASSERT_EQ(p.size(), 24u);
  const double step = 2.0 * kPi / 21.0;
  ExpectNear({2.0 * std::cos(-step), 2.0 * std::sin(-step), -3.0 / 21.0}, p.front());
  ExpectNear({2.0, 0.0, 0.0}, p[1]);
  ExpectNear({2.0, 0.0, 3.0}, p[22], 1e-12);
  ExpectNear({2.0 * std::cos(step), 2.0 * std::sin(step), 3.0 + 3.0 / 21.0}, p.back());
}

TEST(HelixPoints, RadiusChangeIsPerFullTurn) {
  const std::vector<PathPoint> p =
      lumagrid::detail::HelixPoints(lumagrid::detail::Helix{1.0, 0.5, 0.0, 0.0, 90.0, 360.0}, 10);
  ASSERT_EQ(p.size(), 14u);
  ExpectNear({0.0, 1.0, 0.0}, p[1]);
  ExpectNear({0.0, 1.5, 0.0}, p[12]);
}

TEST(HelixPoints, TooLongAHelixHasNone) {
  EXPECT_TRUE(
      lumagrid::detail::HelixPoints(lumagrid::detail::Helix{1.0, 0.0, 0.0, 1.0, 0.0, 3.6e8}, 20)
          .empty());
}

}  // namespace
