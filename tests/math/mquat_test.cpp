#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>

#include <gtest/gtest.h>

#include <Eigen/Geometry>

#include <cmath>
#include <cstddef>
#include <ostream>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "math/random_values.h"

namespace {

static_assert(sizeof(MQuat) == 4 * sizeof(double), "MQuat is four doubles");
static_assert(std::is_standard_layout<MQuat>::value, "MQuat is standard-layout");
static_assert(std::is_trivially_copyable<MQuat>::value, "MQuat is trivially copyable");
static_assert(offsetof(MQuat, x) == 0 && offsetof(MQuat, y) == 8 && offsetof(MQuat, z) == 16 &&
                  offsetof(MQuat, w) == 24,
              "MQuat holds x, y, z, w in that order");

constexpr double kPi = 3.141592653589793;

void expectQuat(const MQuat& q, double x, double y, double z, double w) {
  EXPECT_EQ(q.x, x);
  EXPECT_EQ(q.y, y);
  EXPECT_EQ(q.z, z);
  EXPECT_EQ(q.w, w);
}

void expectQuatNear(const MQuat& q, double x, double y, double z, double w, double tol) {
  EXPECT_NEAR(q.x, x, tol);
  EXPECT_NEAR(q.y, y, tol);
  EXPECT_NEAR(q.z, z, tol);
  EXPECT_NEAR(q.w, w, tol);
}

Eigen::Quaterniond toEigen(const MQuat& q) {
  return Eigen::Quaterniond(q.w, q.x, q.y, q.z);
}

// A turn about z by angle, as this library builds it from (0, 0, 1) and -angle.
MQuat aboutZ(double angle) {
  return MQuat(0.0, 0.0, std::sin(angle), std::cos(angle));
}

// ---------------------------------------------------------------- construction

TEST(MQuat, DefaultIsIdentity) {
  expectQuat(MQuat(), 0, 0, 0, 1);
}

TEST(MQuat, FourValuesAreStoredInOrder) {
  expectQuat(MQuat(1, 2, 3, 4), 1, 2, 3, 4);
  MQuat q;
  q.set(5, 6, 7, 8);
  expectQuat(q, 5, 6, 7, 8);
  q.identity();
  expectQuat(q, 0, 0, 0, 1);
}

TEST(MQuat, CopyKeepsAllFourValues) {
  const MQuat a(1, 2, 3, 4);
  MQuat b = a;
  expectQuat(b, 1, 2, 3, 4);
  MQuat c;
  c = a;
  expectQuat(c, 1, 2, 3, 4);
}

TEST(MQuat, AxisAngleNegatesTheHalfAngle) {
  const MQuat q(vec3d(0, 0, 1), kPi / 2);
  // A conventional quaternion would have z = +sin(pi/4).
  expectQuat(q, 0, 0, std::sin(kPi / 2 * -0.5), std::cos(kPi / 2 * -0.5));
  EXPECT_LT(q.z, 0.0);
}

TEST(MQuat, AxisAngleDividesByTheAxisLength) {
  const MQuat q(vec3d(0, 3, 4), 1.0);
  const double k = std::sin(-0.5) / 5.0;
  expectQuat(q, 0, 3 * k, 4 * k, std::cos(-0.5));
}

TEST(MQuat, HalfTurnAboutZHasATinyScalarPart) {
  const MQuat q(vec3d(0, 0, 1), kPi);
  expectQuat(q, 0, 0, -1, std::cos(-kPi / 2));
  EXPECT_GT(q.w, 0.0);
  EXPECT_LT(q.w, 1e-16);
}

TEST(MQuat, ShortAxisGivesTheIdentity) {
  expectQuat(MQuat(vec3d(0, 0, 0), 1.0), 0, 0, 0, 1);
  expectQuat(MQuat(vec3d(5e-11, 0, 0), 1.0), 0, 0, 0, 1);
  // Just at the threshold the axis counts.
  EXPECT_NE(MQuat(vec3d(1e-10, 0, 0), 1.0).x, 0.0);
}

TEST(MQuat, AxisAngleMatchesEigenWithTheAngleNegated) {
  mathtest::RandomValues rnd(11);
  for (int n = 0; n < 200; ++n) {
    const vec3d axis = rnd.direction() * rnd.uniform(0.5, 3.0);
    const double angle = rnd.uniform(-2 * kPi, 2 * kPi);
    const MQuat q(axis, angle);
    const Eigen::Quaterniond e(
        Eigen::AngleAxisd(-angle, Eigen::Vector3d(axis.x(), axis.y(), axis.z()).normalized()));
    expectQuatNear(q, e.x(), e.y(), e.z(), e.w(), 1e-15);
  }
}

// ---------------------------------------------------------------- products

TEST(MQuat, HamiltonProductOfUnitVectors) {
  const MQuat i(1, 0, 0, 0), j(0, 1, 0, 0), k(0, 0, 1, 0);
  expectQuat(i * j, 0, 0, 1, 0);
  expectQuat(j * i, 0, 0, -1, 0);
  expectQuat(j * k, 1, 0, 0, 0);
  expectQuat(k * i, 0, 1, 0, 0);
  expectQuat(i * i, 0, 0, 0, -1);
}

TEST(MQuat, HamiltonProductGivesKnownValues) {
  // (0.3, -1.7, 2.9, 0.11)(5.3, -0.7, -2.2, 0.01) is (6.356, 15.936, 8.587,
  // 3.6011) exactly; the literals are its nearest doubles, which the library's
  // sums reach here.
  const MQuat p = MQuat(0.3, -1.7, 2.9, 0.11) * MQuat(5.3, -0.7, -2.2, 0.01);
  EXPECT_EQ(p.x, 0x1.96c8b43958106p+2);
  EXPECT_EQ(p.y, 0x1.fdf3b645a1cacp+3);
  EXPECT_EQ(p.z, 0x1.12c8b43958106p+3);
  EXPECT_EQ(p.w, 0x1.ccf0d844d013bp+1);
}

TEST(MQuat, HamiltonProductSumsEachComponentInOrder) {
  mathtest::RandomValues rnd(12);
  for (int n = 0; n < 2000; ++n) {
    const MQuat a(rnd.uniform(-3, 3), rnd.uniform(-3, 3), rnd.uniform(-3, 3), rnd.uniform(-3, 3));
    const MQuat b(rnd.uniform(-3, 3), rnd.uniform(-3, 3), rnd.uniform(-3, 3), rnd.uniform(-3, 3));
    const double x = a.x * b.w + a.w * b.x + a.y * b.z - a.z * b.y;
    const double y = a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z;
    const double z = a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x;
    const double w = a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z;
    expectQuat(a * b, x, y, z, w);
    MQuat m;
    m.mul(a, b);
    expectQuat(m, x, y, z, w);
    MQuat c = a;
    c *= b;
    expectQuat(c, x, y, z, w);
  }
}

TEST(MQuat, ProductMatchesEigen) {
  mathtest::RandomValues rnd(13);
  for (int n = 0; n < 200; ++n) {
    const MQuat a = rnd.unitQuat();
    const MQuat b = rnd.unitQuat();
    const Eigen::Quaterniond e = toEigen(a) * toEigen(b);
    expectQuatNear(a * b, e.x(), e.y(), e.z(), e.w(), 1e-15);
  }
}

TEST(MQuat, ProductOfAxisAnglesComposesTheTurns) {
  const MQuat a(vec3d(0, 0, 1), 0.3);
  const MQuat b(vec3d(0, 0, 1), 0.4);
  EXPECT_TRUE((a * b).cmp(MQuat(vec3d(0, 0, 1), 0.7), 1e-15));
}

TEST(MQuat, MulAndTimesEqualsAllowAliasing) {
  const MQuat a(1, 2, 3, 4);
  const MQuat b(-2, 0.5, 1, 3);
  const MQuat ab = a * b;
  const MQuat aa = a * a;

  MQuat q = a;
  q.mul(q, b);
  expectQuat(q, ab.x, ab.y, ab.z, ab.w);
  q = b;
  q.mul(a, q);
  expectQuat(q, ab.x, ab.y, ab.z, ab.w);
  q = a;
  q.mul(q, q);
  expectQuat(q, aa.x, aa.y, aa.z, aa.w);
  q = a;
  q *= q;
  expectQuat(q, aa.x, aa.y, aa.z, aa.w);
}

// ---------------------------------------------------------------- scalar operations

TEST(MQuat, ScalarOperationsActOnAllFour) {
  const MQuat q(1, -2, 3, -4);
  expectQuat(q * 2.0, 2, -4, 6, -8);
  MQuat a = q;
  a *= 0.5;
  expectQuat(a, 0.5, -1, 1.5, -2);
  a = q;
  a.scalar(-1.0);
  expectQuat(a, -1, 2, -3, 4);
  a = q;
  a.neg();
  expectQuat(a, -1, 2, -3, 4);
  a = q;
  a.abs();
  expectQuat(a, 1, 2, 3, 4);
}

TEST(MQuat, NegFlipsTheSignOfZero) {
  MQuat q(0, 0, 0, 1);
  q.neg();
  EXPECT_TRUE(std::signbit(q.x));
  EXPECT_TRUE(std::signbit(q.y));
  EXPECT_TRUE(std::signbit(q.z));
  EXPECT_EQ(q.w, -1.0);
}

TEST(MQuat, DotAndSquaredUseAllFourTerms) {
  const MQuat a(1, 2, 3, 4);
  const MQuat b(5, -6, 7, 0.5);
  EXPECT_EQ(a.dot(b), 5.0 - 12.0 + 21.0 + 2.0);
  EXPECT_EQ(a.squared(), 30.0);
}

TEST(MQuat, NormalizeScalesToUnitLength) {
  MQuat q(0, 0, 3, 4);
  q.normalize();
  expectQuat(q, 0, 0, 3 * (1.0 / 5.0), 4 * (1.0 / 5.0));
}

TEST(MQuat, NormalizeOfNearZeroGivesTheIdentity) {
  MQuat q(0, 0, 0, 0);
  q.normalize();
  expectQuat(q, 0, 0, 0, 1);
  q.set(5e-11, 0, 0, 0);
  q.normalize();
  expectQuat(q, 0, 0, 0, 1);
}

TEST(MQuat, InvertOfUnitQuaternionIsItsConjugate) {
  MQuat q(0, 0, 0.6, 0.8);
  q.invert();
  expectQuatNear(q, 0, 0, -0.6, 0.8, 1e-16);
  mathtest::RandomValues rnd(14);
  for (int n = 0; n < 50; ++n) {
    const MQuat a = rnd.unitQuat();
    MQuat b = a;
    b.invert();
    EXPECT_TRUE((a * b).cmp(MQuat(), 1e-15));
  }
}

TEST(MQuat, InvertDividesByTheNormNotItsSquare) {
  MQuat q(0, 0, 0, 2);
  q.invert();
  // The true inverse would be (0, 0, 0, 0.5).
  expectQuat(q, 0, 0, 0, 1);
  q.set(0, 0, 3, 4);
  q.invert();
  expectQuat(q, 0, 0, -3 * (1.0 / 5.0), 4 * (1.0 / 5.0));
}

TEST(MQuat, InvertOfNearZeroGivesTheIdentity) {
  MQuat q(0, 0, 0, 0);
  q.invert();
  expectQuat(q, 0, 0, 0, 1);
}

TEST(MQuat, InvertOfATinyQuaternionGivesTheIdentity) {
  // A test for an exact zero would give (-1, 0, 0, 0) here.
  MQuat q(5e-11, 0, 0, 0);
  q.invert();
  expectQuat(q, 0, 0, 0, 1);
}

TEST(MQuat, LogOfIdentityIsZero) {
  MQuat q;
  q.log();
  expectQuat(q, 0, 0, 0, 0);
}

TEST(MQuat, LogClearsATinyVectorPart) {
  // atan2(v, w) / v would keep x at about 5e-11.
  MQuat q(5e-11, 0, 0, 1);
  q.log();
  expectQuat(q, 0, 0, 0, 0);
}

TEST(MQuat, LogGivesTheHalfAngleVector) {
  MQuat q = aboutZ(0.3);
  q.log();
  expectQuatNear(q, 0, 0, 0.3, 0, 1e-16);
  EXPECT_EQ(q.w, 0.0);
  // A non-unit quaternion keeps its direction and drops its scalar part.
  q.set(0, 0, 2, 2);
  q.log();
  expectQuatNear(q, 0, 0, kPi / 4, 0, 1e-16);
}

TEST(MQuat, ExpOfZeroIsTheIdentity) {
  MQuat q(0, 0, 0, 0);
  q.exp();
  expectQuat(q, 0, 0, 0, 1);
  // The scalar part is ignored.
  q.set(0, 0, 0, 5);
  q.exp();
  expectQuat(q, 0, 0, 0, 1);
}

TEST(MQuat, ExpUndoesLogForUnitQuaternions) {
  MQuat q(0, 0, 0.3, 0);
  q.exp();
  expectQuatNear(q, 0, 0, std::sin(0.3), std::cos(0.3), 1e-16);
  mathtest::RandomValues rnd(15);
  for (int n = 0; n < 100; ++n) {
    const MQuat a = rnd.unitQuat();
    MQuat b = a;
    b.log();
    b.exp();
    EXPECT_TRUE(b.cmp(a, 1e-14));
  }
}

// ---------------------------------------------------------------- comparison

TEST(MQuat, EqualityIsAStrictToleranceTest) {
  EXPECT_TRUE(MQuat(0, 0, 0, 0) == MQuat(5e-11, 0, 0, 0));
  EXPECT_FALSE(MQuat(0, 0, 0, 0) == MQuat(1e-10, 0, 0, 0));
  EXPECT_TRUE(MQuat(0, 0, 0, 0) != MQuat(0, 0, 0, 1e-10));
  EXPECT_FALSE(MQuat(0, 0, 0, 0) != MQuat(0, 0, -5e-11, 0));
}

TEST(MQuat, CmpTestsEveryComponent) {
  const MQuat a(1, 2, 3, 4);
  EXPECT_TRUE(a.cmp(MQuat(1.05, 2.05, 2.95, 3.95), 0.1));
  EXPECT_FALSE(a.cmp(MQuat(1.2, 2, 3, 4), 0.1));
  EXPECT_FALSE(a.cmp(MQuat(1, 2.2, 3, 4), 0.1));
  EXPECT_FALSE(a.cmp(MQuat(1, 2, 3.2, 4), 0.1));
  EXPECT_FALSE(a.cmp(MQuat(1, 2, 3, 4.2), 0.1));
}

TEST(MQuat, NanNeverCompares) {
  const MQuat a(0, 0, 0, std::nan(""));
  EXPECT_FALSE(a == a);
  EXPECT_TRUE(a != a);
}

// ---------------------------------------------------------------- from a matrix

mat4x4 diagonal(double a, double b, double c) {
  mat4x4 m;
  m.identity();
  m.set(0, 0, a);
  m.set(1, 1, b);
  m.set(2, 2, c);
  return m;
}

TEST(MQuat, FromIdentityMatrix) {
  expectQuat(MQuat(diagonal(1, 1, 1)), 0, 0, 0, 1);
}

struct HalfTurnCase {
  std::string name;
  double e0, e5, e10;
  double x, y, z, w;
};

void PrintTo(const HalfTurnCase& c, std::ostream* os) {
  *os << c.name;
}

class MQuatHalfTurn : public testing::TestWithParam<HalfTurnCase> {};

TEST_P(MQuatHalfTurn, PicksTheLargestDiagonalValue) {
  const HalfTurnCase& c = GetParam();
  expectQuat(MQuat(diagonal(c.e0, c.e5, c.e10)), c.x, c.y, c.z, c.w);
}

const double kHalfRoot2 = 0.5 * std::sqrt(2.0);

INSTANTIATE_TEST_SUITE_P(
    Branches, MQuatHalfTurn,
    testing::Values(HalfTurnCase{"AboutX", 1, -1, -1, 1, 0, 0, 0},
                    HalfTurnCase{"AboutY", -1, 1, -1, 0, 1, 0, 0},
                    HalfTurnCase{"AboutZ", -1, -1, 1, 0, 0, 1, 0},
                    // All three tie: the lowest index wins.
                    HalfTurnCase{"TieGoesToX", -1, -1, -1, kHalfRoot2, 0, 0, 0},
                    // A zero trace is not positive; y and z tie and y wins.
                    HalfTurnCase{"ZeroTraceTieGoesToY", -1, 0.5, 0.5, 0, kHalfRoot2, 0, 0}),
    [](const testing::TestParamInfo<HalfTurnCase>& info) { return info.param.name; });

TEST(MQuat, FromMatrixPairsTheOffDiagonalValues) {
  // Not a rotation: every off-diagonal value distinct, so each pairing shows.
  mat4x4 m;
  m.zero();
  const double v[16] = {2, 0.1, 0.2, 0, 0.3, -1, 0.5, 0, 0.7, 1.1, -0.5, 0, 0, 0, 0, 1};
  for (int i = 0; i < 16; ++i) {
    static_cast<double*>(m)[i] = v[i];
  }
  // tr = 0.5 > 0
  const double s = std::sqrt(0.5 + 1.0);
  const double r = 0.5 / s;
  expectQuat(MQuat(m), (0.5 - 1.1) * r, (0.7 - 0.2) * r, (0.1 - 0.3) * r, 0.5 * s);

  // tr = 2 - 3 - 0.5 < 0, largest diagonal value e0: i = 0, j = 1, k = 2.
  static_cast<double*>(m)[5] = -3;
  const double s0 = std::sqrt(2 - (-0.5 + -3) + 1.0);
  const double r0 = 0.5 / s0;
  expectQuat(MQuat(m), 0.5 * s0, (0.3 + 0.1) * r0, (0.2 + 0.7) * r0, (0.5 - 1.1) * r0);
}

struct RoundTripCase {
  std::string name;
  int branch;  // -1 for a positive trace, else the index picked
  double angleLo, angleHi;
  int dominantAxis;  // -1 for any direction
};

void PrintTo(const RoundTripCase& c, std::ostream* os) {
  *os << c.name;
}

class MQuatRoundTrip : public testing::TestWithParam<RoundTripCase> {};

int branchOf(const mat4x4& m) {
  const double* e = m;
  if (e[0] + e[5] + e[10] > 0.0) {
    return -1;
  }
  int i = e[5] > e[0] ? 1 : 0;
  if (e[10] > e[5 * i]) {
    i = 2;
  }
  return i;
}

TEST_P(MQuatRoundTrip, MatrixToQuaternionToMatrix) {
  const RoundTripCase& c = GetParam();
  mathtest::RandomValues rnd(100 + static_cast<unsigned>(c.branch + 1));
  int tested = 0;
  for (int n = 0; n < 400; ++n) {
    vec3d axis = rnd.direction();
    if (c.dominantAxis >= 0) {
      axis[c.dominantAxis] = 3.0 * (axis[c.dominantAxis] < 0 ? -1.0 : 1.0);
    }
    const double angle = rnd.uniform(c.angleLo, c.angleHi);
    const MQuat q(axis, angle);
    mat4x4 m;
    m.loadRotate(q);
    ASSERT_EQ(branchOf(m), c.branch) << "sample " << n;

    const MQuat back(m);
    EXPECT_NEAR(back.squared(), 1.0, 1e-14);
    EXPECT_TRUE(back.cmp(q, 1e-14) || back.cmp(q * -1.0, 1e-14)) << "sample " << n;
    mat4x4 again;
    again.loadRotate(back);
    EXPECT_TRUE(again.cmp(m, 1e-14)) << "sample " << n;
    ++tested;
  }
  EXPECT_EQ(tested, 400);
}

INSTANTIATE_TEST_SUITE_P(
    Branches, MQuatRoundTrip,
    testing::Values(RoundTripCase{"PositiveTrace", -1, -2.0, 2.0, -1},
                    RoundTripCase{"NearHalfTurnAboutX", 0, kPi - 0.3, kPi + 0.3, 0},
                    RoundTripCase{"NearHalfTurnAboutY", 1, kPi - 0.3, kPi + 0.3, 1},
                    RoundTripCase{"NearHalfTurnAboutZ", 2, kPi - 0.3, kPi + 0.3, 2}),
    [](const testing::TestParamInfo<RoundTripCase>& info) { return info.param.name; });

// ---------------------------------------------------------------- slerp

TEST(MQuatSlerp, EndpointsAreTheOperands) {
  mathtest::RandomValues rnd(21);
  for (int n = 0; n < 100; ++n) {
    const MQuat a = rnd.unitQuat();
    const MQuat b = rnd.unitQuat();
    MQuat r;
    r.slerp(a, b, 0.0);
    EXPECT_TRUE(r.cmp(a, 1e-14));
    r.slerp(a, b, 1.0);
    EXPECT_TRUE(r.cmp(b, 1e-14));
  }
}

TEST(MQuatSlerp, MatchesEigenWhereTheArcsAgree) {
  mathtest::RandomValues rnd(22);
  int compared = 0;
  for (int n = 0; n < 300; ++n) {
    const MQuat a = rnd.unitQuat();
    const MQuat b = rnd.unitQuat();
    if (a.dot(b) < 0.0) {
      continue;
    }
    for (double t : {0.1, 0.25, 0.5, 0.75, 0.9}) {
      MQuat r;
      r.slerp(a, b, t);
      const Eigen::Quaterniond e = toEigen(a).slerp(t, toEigen(b));
      expectQuatNear(r, e.x(), e.y(), e.z(), e.w(), 1e-13);
    }
    ++compared;
  }
  EXPECT_GT(compared, 100);
}

TEST(MQuatSlerp, MidpointOfTwoTurnsAboutZ) {
  MQuat r;
  r.slerp(aboutZ(0.2), aboutZ(0.8), 0.5);
  expectQuatNear(r, 0, 0, std::sin(0.5), std::cos(0.5), 1e-15);
}

TEST(MQuatSlerp, NegativeCosineTakesTheLongArc) {
  const MQuat a;
  const MQuat b(0, 0, -std::sin(0.3), -std::cos(0.3));  // the same turn as aboutZ(0.3)
  const double theta = std::acos(a.dot(b));
  for (double t : {0.25, 0.5, 0.75}) {
    MQuat r;
    r.slerp(a, b, t);
    const double k0 = std::sin((1 - t) * theta) / std::sin(theta);
    const double k1 = std::sin(t * theta) / std::sin(theta);
    expectQuatNear(r, 0, 0, k1 * b.z, k0 + k1 * b.w, 1e-14);
    // The shorter arc would go through aboutZ(0.3 * t) instead.
    const Eigen::Quaterniond e = toEigen(a).slerp(t, toEigen(b));
    EXPECT_GT(std::fabs(r.z - e.z()) + std::fabs(r.w - e.w()), 0.1);
  }
}

TEST(MQuatSlerp, EqualOperandsUseLinearWeights) {
  // cs is exactly 1, so the angle and its sine are 0.
  const MQuat a(0.5, -0.5, 0.5, 0.5);
  for (double t : {0.0, 0.3, 0.5, 1.0, 1.7}) {
    MQuat r;
    r.slerp(a, a, t);
    EXPECT_TRUE(r == a) << t;
  }
}

TEST(MQuatSlerp, CosineBeyondOneIsClamped) {
  // cs = 4 is clamped to 1: no angle, so linear weights and no normalisation.
  MQuat r;
  r.slerp(MQuat(0, 0, 0, 2), MQuat(0, 0, 0, 2), 0.5);
  expectQuat(r, 0, 0, 0, 2);
  r.slerp(MQuat(0, 0, 0, 2), MQuat(0, 0, 0.1, 2), 0.5);
  expectQuat(r, 0, 0, 0.5 * 0.1, 0.5 * 2 + 0.5 * 2);
}

TEST(MQuatSlerp, OppositeQuaternionsTurnThroughAPerpendicular) {
  MQuat a(0.1, 0.2, 0.3, 0.4);
  a.normalize();
  MQuat minusA = a;
  minusA.neg();
  const double h = 1.5707963267948966;
  for (double t : {0.0, 0.25, 0.5, 1.0}) {
    MQuat r;
    r.slerp(a, minusA, t);
    const double k0 = std::sin((1 - t) * h);
    const double k1 = std::sin(t * h);
    expectQuat(r, k0 * a.x + k1 * -a.y, k0 * a.y + k1 * a.x, k0 * a.z + k1 * -a.w,
               k0 * a.w + k1 * a.z);
  }
  MQuat r;
  r.slerp(a, minusA, 1.0);
  expectQuat(r, -a.y, a.x, -a.w, a.z);
}

TEST(MQuatSlerp, OppositeBranchIgnoresTheSecondOperand) {
  const MQuat a(0, 0, 0, 1);
  MQuat r1;
  r1.slerp(a, MQuat(0, 0, 0, -1), 0.5);
  MQuat r2;
  r2.slerp(a, MQuat(0, 0, 0, -2), 0.5);
  expectQuat(r1, r2.x, r2.y, r2.z, r2.w);
  expectQuat(r1, 0, 0, -std::sin(0.5 * 1.5707963267948966), std::sin(0.5 * 1.5707963267948966));
}

TEST(MQuatSlerp, ResultMayAliasEitherOperand) {
  const MQuat a = aboutZ(0.1);
  const MQuat b(0.3, 0.1, 0.2, 0.9);
  MQuat expected;
  expected.slerp(a, b, 0.3);

  MQuat q = a;
  q.slerp(q, b, 0.3);
  expectQuat(q, expected.x, expected.y, expected.z, expected.w);
  q = b;
  q.slerp(a, q, 0.3);
  expectQuat(q, expected.x, expected.y, expected.z, expected.w);

  MQuat o(0.1, 0.2, 0.3, 0.4);
  o.normalize();
  MQuat minusO = o;
  minusO.neg();
  MQuat opposite;
  opposite.slerp(o, minusO, 0.3);
  o.slerp(o, minusO, 0.3);
  expectQuat(o, opposite.x, opposite.y, opposite.z, opposite.w);
}

// ---------------------------------------------------------------- squad and inner

TEST(MQuatSquad, EndpointsAreTheOuterQuaternions) {
  const MQuat p = aboutZ(0.0), a(0.1, 0.2, 0.1, 0.9), b(-0.2, 0.1, 0.3, 0.8), q(0.3, 0, 0, 0.95);
  MQuat r;
  r.squad(p, a, b, q, 0.0);
  EXPECT_TRUE(r == p);
  r.squad(p, a, b, q, 1.0);
  EXPECT_TRUE(r == q);
}

TEST(MQuatSquad, BlendsOuterAndControlArcs) {
  // All on one circle: the angles interpolate linearly. Outer arc at t = 0.25
  // is 0.2, control arc 0.3, blended with weight 2t(1 - t) = 0.375.
  MQuat r;
  r.squad(aboutZ(0.0), aboutZ(0.2), aboutZ(0.6), aboutZ(0.8), 0.25);
  expectQuatNear(r, 0, 0, std::sin(0.2375), std::cos(0.2375), 1e-15);
}

TEST(MQuatSquad, ResultMayAliasAnOperand) {
  const MQuat p = aboutZ(0.0), a(0.1, 0.2, 0.1, 0.9), b(-0.2, 0.1, 0.3, 0.8), q(0.3, 0, 0, 0.95);
  MQuat expected;
  expected.squad(p, a, b, q, 0.4);
  const MQuat operands[4] = {p, a, b, q};
  for (int which = 0; which < 4; ++which) {
    MQuat v[4] = {operands[0], operands[1], operands[2], operands[3]};
    v[which].squad(v[0], v[1], v[2], v[3], 0.4);
    expectQuat(v[which], expected.x, expected.y, expected.z, expected.w);
  }
}

TEST(MQuatInner, EqualNeighboursGiveTheCurrentQuaternion) {
  const MQuat q(0.1, 0.2, 0.3, 0.9);
  MQuat r;
  r.inner(q, q, q);
  EXPECT_TRUE(r.cmp(q, 1e-15));
}

TEST(MQuatInner, ControlPointOnOneCircle) {
  // -0.25 * ((0.9 - 0.5) + (0.2 - 0.5)) = -0.025
  MQuat r;
  r.inner(aboutZ(0.2), aboutZ(0.5), aboutZ(0.9));
  expectQuatNear(r, 0, 0, std::sin(0.475), std::cos(0.475), 1e-15);
}

Eigen::Quaterniond eigenLog(const Eigen::Quaterniond& q) {
  const double v = q.vec().norm();
  const double f = v < 1e-10 ? 0.0 : std::atan2(v, q.w()) / v;
  return Eigen::Quaterniond(0.0, q.x() * f, q.y() * f, q.z() * f);
}

Eigen::Quaterniond eigenExp(const Eigen::Vector3d& v) {
  const double n = v.norm();
  const double f = n < 1e-10 ? 1.0 : std::sin(n) / n;
  return Eigen::Quaterniond(std::cos(n), v.x() * f, v.y() * f, v.z() * f);
}

TEST(MQuatInner, MatchesAnIndependentControlPointRule) {
  mathtest::RandomValues rnd(31);
  for (int n = 0; n < 100; ++n) {
    const MQuat prev = rnd.unitQuat(), cur = rnd.unitQuat(), next = rnd.unitQuat();
    const Eigen::Quaterniond c = toEigen(cur);
    const Eigen::Vector3d s = -0.25 * (eigenLog(c.conjugate() * toEigen(next)).vec() +
                                       eigenLog(c.conjugate() * toEigen(prev)).vec());
    const Eigen::Quaterniond e = c * eigenExp(s);
    MQuat r;
    r.inner(prev, cur, next);
    expectQuatNear(r, e.x(), e.y(), e.z(), e.w(), 1e-13);
  }
}

TEST(MQuatInner, ResultMayAliasAnOperand) {
  const MQuat prev(0.1, 0.2, 0.3, 0.9), cur(-0.3, 0.1, 0.2, 0.9), next(0.2, -0.1, 0.4, 0.85);
  MQuat expected;
  expected.inner(prev, cur, next);
  const MQuat operands[3] = {prev, cur, next};
  for (int which = 0; which < 3; ++which) {
    MQuat v[3] = {operands[0], operands[1], operands[2]};
    v[which].inner(v[0], v[1], v[2]);
    expectQuat(v[which], expected.x, expected.y, expected.z, expected.w);
  }
}

}  // namespace
