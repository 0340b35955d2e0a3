#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <ostream>
#include <string>

#include "math/bit_compare.h"

namespace {

using mathtest::bits;

void expectBits(const vec3d& v, double x, double y, double z) {
  EXPECT_EQ(bits(v.x()), bits(x)) << "x: " << v.x() << " vs " << x;
  EXPECT_EQ(bits(v.y()), bits(y)) << "y: " << v.y() << " vs " << y;
  EXPECT_EQ(bits(v.z()), bits(z)) << "z: " << v.z() << " vs " << z;
}

// A value x for which multiplying by the reciprocal of d differs from x / d.
double reciprocalDiffers(double d) {
  for (double x = 1.0; x < 1000.0; x += 1.0) {
    if (x * (1.0 / d) != x / d) {
      return x;
    }
  }
  return std::numeric_limits<double>::quiet_NaN();
}

TEST(Vec3d, DefaultIsZero) {
  expectBits(vec3d(), 0.0, 0.0, 0.0);
}

TEST(Vec3d, ZeroClearsToAllBitsZero) {
  vec3d v(-0.0, 5.0, -7.0);
  v.zero();
  const double zeros[3] = {0.0, 0.0, 0.0};
  EXPECT_EQ(std::memcmp(static_cast<const double*>(v), zeros, sizeof zeros), 0);
}

TEST(Vec3d, SetCopyAndAccessors) {
  vec3d v;
  v.set(1.0, 2.0, 3.0);
  vec3d w;
  w.copy(v);
  expectBits(w, 1.0, 2.0, 3.0);
  w.x() = 4.0;
  w[1] = 5.0;
  w.get(2) = 6.0;
  const vec3d& c = w;
  EXPECT_EQ(c.x(), 4.0);
  EXPECT_EQ(c[1], 5.0);
  EXPECT_EQ(c.get(2), 6.0);
  EXPECT_EQ(c.y(), 5.0);
  EXPECT_EQ(c.z(), 6.0);
}

TEST(Vec3d, PointerConversionExposesTheThreeComponents) {
  vec3d v(1.0, 2.0, 3.0);
  double* p = v;
  p[2] = 9.0;
  EXPECT_EQ(v.z(), 9.0);
  const vec3d& c = v;
  const double* q = c;
  EXPECT_EQ(q, &v.x());
  EXPECT_EQ(q[1], 2.0);
}

TEST(Vec3d, ArithmeticOperators) {
  const vec3d a(1.0, 2.0, 3.0);
  const vec3d b(0.5, -1.0, 4.0);
  expectBits(a + b, 1.5, 1.0, 7.0);
  expectBits(+a, 1.0, 2.0, 3.0);
  expectBits(a - b, 0.5, 3.0, -1.0);
  expectBits(a * 2.0, 2.0, 4.0, 6.0);
  EXPECT_EQ(a * b, 0.5 - 2.0 + 12.0);
  vec3d c(a);
  c += b;
  expectBits(c, 1.5, 1.0, 7.0);
  c -= b;
  expectBits(c, 1.0, 2.0, 3.0);
  c *= -1.0;
  expectBits(c, -1.0, -2.0, -3.0);
}

TEST(Vec3d, CompoundOperatorsReturnThis) {
  vec3d v(1.0, 1.0, 1.0);
  EXPECT_EQ(&(v += v), &v);
  EXPECT_EQ(&(v -= v), &v);
  EXPECT_EQ(&(v *= 2.0), &v);
  vec3d w;
  EXPECT_EQ(&(w = v), &w);
}

TEST(Vec3d, UnaryMinusFlipsTheSignBitOfZeros) {
  // 0 - x would give +0 here.
  expectBits(-vec3d(0.0, -0.0, 1.0), -0.0, 0.0, -1.0);
  vec3d v(0.0, -0.0, 1.0);
  v.neg();
  expectBits(v, -0.0, 0.0, -1.0);
}

TEST(Vec3d, AbsClearsSignBits) {
  vec3d v(-0.0, -2.0, 3.0);
  v.abs();
  expectBits(v, 0.0, 2.0, 3.0);
}

TEST(Vec3d, NamedArithmetic) {
  vec3d v;
  v.add(vec3d(1.0, 2.0, 3.0), vec3d(1.0, 1.0, 1.0));
  expectBits(v, 2.0, 3.0, 4.0);
  v.sub(vec3d(1.0, 2.0, 3.0), vec3d(1.0, 1.0, 1.0));
  expectBits(v, 0.0, 1.0, 2.0);
  v.scalar(3.0);
  expectBits(v, 0.0, 3.0, 6.0);
}

TEST(Vec3d, DotSquaredAndLength) {
  const vec3d v(3.0, 0.0, 4.0);
  EXPECT_EQ(v.dot(vec3d(1.0, 2.0, 3.0)), 15.0);
  EXPECT_EQ(v.squared(), 25.0);
  EXPECT_EQ(v.length(), 5.0);
}

TEST(Vec3d, DotSumsLeftToRight) {
  const vec3d a(1e16, 1.0, -1e16);
  const vec3d b(1.0, 1.0, 1.0);
  // (1e16 + 1) - 1e16 loses the 1; any other grouping keeps it.
  EXPECT_EQ(a.dot(b), 0.0);
  EXPECT_EQ(a * b, 0.0);
}

TEST(Vec3d, LinearCombination) {
  vec3d v;
  v.linear_comb(2.0, vec3d(1.0, 0.0, -1.0), -1.0, vec3d(0.0, 3.0, 1.0));
  expectBits(v, 2.0, -3.0, -3.0);
}

TEST(Vec3d, CrossProduct) {
  vec3d v;
  v.cross(vec3d(1.0, 0.0, 0.0), vec3d(0.0, 1.0, 0.0));
  expectBits(v, 0.0, 0.0, 1.0);
  v.cross(vec3d(1.0, 2.0, 3.0), vec3d(4.0, 5.0, 6.0));
  expectBits(v, -3.0, 6.0, -3.0);
}

TEST(Vec3d, CrossMayAliasItsOperands) {
  vec3d v(1.0, 2.0, 3.0);
  v.cross(v, vec3d(4.0, 5.0, 6.0));
  expectBits(v, -3.0, 6.0, -3.0);
}

TEST(Vec3d, LerpIsDifferenceTimesTPlusStart) {
  const vec3d a(0.1, 0.2, 0.3);
  const vec3d b(0.7, 1.9, -0.4);
  const double t = 0.3;
  // Guard: the blended form rounds differently for these values.
  ASSERT_NE((b.x() - a.x()) * t + a.x(), a.x() * (1.0 - t) + b.x() * t);
  vec3d v;
  v.lerp(a, b, t);
  expectBits(v, (b.x() - a.x()) * t + a.x(), (b.y() - a.y()) * t + a.y(),
             (b.z() - a.z()) * t + a.z());
}

TEST(Vec3d, MinAndMaxAreComponentWise) {
  vec3d v(1.0, 5.0, -2.0);
  v.min(vec3d(2.0, 3.0, -2.0));
  expectBits(v, 1.0, 3.0, -2.0);
  v.max(vec3d(0.0, 4.0, 7.0));
  expectBits(v, 1.0, 4.0, 7.0);
}

TEST(Vec3d, MinAndMaxKeepANaNComponent) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  // fmin/fmax would drop the NaN.
  vec3d v(nan, 1.0, 1.0);
  v.min(vec3d(0.0, 0.0, 0.0));
  EXPECT_TRUE(std::isnan(v.x()));
  v.max(vec3d(5.0, 5.0, 5.0));
  EXPECT_TRUE(std::isnan(v.x()));
  EXPECT_EQ(v.y(), 5.0);
}

TEST(Vec3d, MinAndMaxIgnoreANaNArgument) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  vec3d v(1.0, 1.0, 1.0);
  v.min(vec3d(nan, 0.0, 2.0));
  expectBits(v, 1.0, 0.0, 1.0);
  v.max(vec3d(nan, 0.5, 2.0));
  expectBits(v, 1.0, 0.5, 2.0);
}

TEST(Vec3d, EqualityIsAStrictTolerance) {
  EXPECT_TRUE(vec3d(0.0, 0.0, 0.0) == vec3d(5e-11, 0.0, 0.0));
  EXPECT_FALSE(vec3d(0.0, 0.0, 0.0) != vec3d(5e-11, 0.0, 0.0));
  // A difference of exactly the tolerance fails.
  EXPECT_FALSE(vec3d(0.0, 0.0, 0.0) == vec3d(1e-10, 0.0, 0.0));
  EXPECT_TRUE(vec3d(0.0, 0.0, 0.0) != vec3d(1e-10, 0.0, 0.0));
  EXPECT_FALSE(vec3d(0.0, 0.0, 0.0) == vec3d(0.0, 0.0, 1e-10));
}

TEST(Vec3d, CmpUsesItsTolerance) {
  EXPECT_TRUE(vec3d(1.0, 2.0, 3.0).cmp(vec3d(1.4, 2.4, 2.6), 0.5));
  EXPECT_FALSE(vec3d(1.0, 2.0, 3.0).cmp(vec3d(1.0, 2.5, 3.0), 0.5));
}

TEST(Vec3d, CmpFailsOnNaN) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(vec3d(nan, 0.0, 0.0).cmp(vec3d(nan, 0.0, 0.0), 1.0));
  EXPECT_FALSE(vec3d(0.0, 0.0, nan) == vec3d(0.0, 0.0, 0.0));
}

TEST(Vec3d, NormalizeMakesUnitLength) {
  vec3d v(3.0, 0.0, 4.0);
  v.normalize();
  expectBits(v, 3.0 * (1.0 / 5.0), 0.0, 4.0 * (1.0 / 5.0));
  EXPECT_TRUE(v == vec3d(0.6, 0.0, 0.8));
}

TEST(Vec3d, NormalizeMultipliesByTheReciprocal) {
  const double l = 3.0;
  const double x = reciprocalDiffers(l);
  ASSERT_FALSE(std::isnan(x));
  vec3d v(0.0, 0.0, l);
  v.normalize();
  EXPECT_EQ(v.z(), 1.0);
  vec3d w(x, 0.0, 0.0);
  const double len = w.length();
  w.normalize();
  EXPECT_EQ(bits(w.x()), bits(x * (1.0 / len)));
}

TEST(Vec3d, NormalizeClearsNearZeroVectors) {
  vec3d z(0.0, 0.0, 0.0);
  z.normalize();
  expectBits(z, 0.0, 0.0, 0.0);
  vec3d tiny(5e-11, 0.0, 0.0);
  tiny.normalize();
  expectBits(tiny, 0.0, 0.0, 0.0);
  vec3d negTiny(0.0, -3e-11, -4e-11);
  negTiny.normalize();
  expectBits(negTiny, 0.0, 0.0, 0.0);
}

TEST(Vec3d, HomogenizeScalesXAndYByZ) {
  vec3d v(2.0, 4.0, 3.0);
  v.homogenize();
  expectBits(v, 6.0, 12.0, 3.0);
}

TEST(Vec3d, RationalizeDividesByZ) {
  vec3d v(2.0, 4.0, 2.0);
  v.rationalize();
  expectBits(v, 1.0, 2.0, 1.0);
}

TEST(Vec3d, RationalizeMultipliesByTheReciprocal) {
  const double x = reciprocalDiffers(3.0);
  ASSERT_FALSE(std::isnan(x));
  vec3d v(x, 1.0, 3.0);
  v.rationalize();
  expectBits(v, x * (1.0 / 3.0), 1.0 * (1.0 / 3.0), 1.0);
}

TEST(Vec3d, RationalizeClearsANearZeroWeight) {
  vec3d v(2.0, 4.0, 0.0);
  v.rationalize();
  expectBits(v, 0.0, 0.0, 0.0);
  vec3d w(2.0, 4.0, -5e-11);
  w.rationalize();
  expectBits(w, 0.0, 0.0, 0.0);
}

TEST(Vec3d, CartesianizeOfALoneVectorKeepsXAndY) {
  // The divisor is the weight after the vector, 1.0 for a lone one; z only
  // decides whether the vector is cleared.
  vec3d v(2.0, 4.0, 2.0);
  v.cartesianize();
  expectBits(v, 2.0, 4.0, 1.0);
}

TEST(Vec3d, CartesianizeTestsZ) {
  vec3d v(2.0, 4.0, 5e-11);
  v.cartesianize();
  expectBits(v, 0.0, 0.0, 0.0);
}

TEST(Vec3d, ConstructionFromVec4dDividesByW) {
  expectBits(vec3d(vec4d(2.0, 4.0, 6.0, 2.0)), 1.0, 2.0, 3.0);
  const double x = reciprocalDiffers(3.0);
  ASSERT_FALSE(std::isnan(x));
  expectBits(vec3d(vec4d(x, 0.0, 0.0, 3.0)), x * (1.0 / 3.0), 0.0, 0.0);
}

TEST(Vec3d, ConstructionFromVec4dDividesEvenByAZeroW) {
  const double inf = std::numeric_limits<double>::infinity();
  const vec3d v(vec4d(2.0, 4.0, -6.0, 0.0));
  expectBits(v, inf, inf, -inf);
  const vec3d n(vec4d(0.0, 1.0, 1.0, 0.0));
  EXPECT_TRUE(std::isnan(n.x()));
}

TEST(Vec3d, ConstructionFromVec4dDoesNotClearATinyW) {
  const vec3d v(vec4d(1.0, 2.0, 4.0, 5e-11));
  const double r = 1.0 / 5e-11;
  expectBits(v, 1.0 * r, 2.0 * r, 4.0 * r);
}

struct PerpCase {
  const char* name;
  vec3d in;
  vec3d out;
};

void PrintTo(const PerpCase& c, std::ostream* os) {
  *os << c.name;
}

class Vec3dPerp : public ::testing::TestWithParam<PerpCase> {};

TEST_P(Vec3dPerp, GivesTheExpectedPerpendicular) {
  const PerpCase& c = GetParam();
  vec3d v;
  v.perp(c.in);
  expectBits(v, c.out.x(), c.out.y(), c.out.z());
  EXPECT_NEAR(v.dot(c.in), 0.0, 1e-15);
}

const double kHalfRoot2 = 1.0 / std::sqrt(2.0);
const double kRoot5 = std::sqrt(5.0);

INSTANTIATE_TEST_SUITE_P(
    Vec3d, Vec3dPerp,
    ::testing::Values(
        // Unit input with v[k] == 0: kept as (v.z, 0, -v.x).
        PerpCase{"UnitX", vec3d(1, 0, 0), vec3d(0, 0, -1)},
        PerpCase{"UnitY", vec3d(0, 1, 0), vec3d(0, 0, -1)},
        PerpCase{"UnitZ", vec3d(0, 0, 1), vec3d(0, 1, -0.0)},
        // All magnitudes tie: the lowest index is zeroed.
        PerpCase{"AllTie", vec3d(1, 1, 1), vec3d(0, 1 * kHalfRoot2, -1 * kHalfRoot2)},
        PerpCase{"LongZ", vec3d(0, 0, 2), vec3d(0, 1, -0.0)},
        // Tie between y and z, both smaller than x: y is zeroed.
        PerpCase{"TieYZ", vec3d(2, 1, 1), vec3d(1 * (1 / kRoot5), 0, -2 * (1 / kRoot5))},
        // Tie between x and z, both smaller than y: x is zeroed.
        PerpCase{"TieXZ", vec3d(1, 2, 1), vec3d(0, 1 * (1 / kRoot5), -2 * (1 / kRoot5))},
        // x and y tie, z smallest: z is zeroed.
        PerpCase{"ZSmallest", vec3d(-3, 3, 1),
                 vec3d(3 * (1 / std::sqrt(18.0)), 3 * (1 / std::sqrt(18.0)), 0)},
        // Negative components count by magnitude.
        PerpCase{"NegativeSmallestY", vec3d(-4, -0.5, 3), vec3d(3 * (1 / 5.0), 0, 4 * (1 / 5.0))}),
    [](const ::testing::TestParamInfo<PerpCase>& info) { return std::string(info.param.name); });

TEST(Vec3d, PerpMayTakeItself) {
  vec3d v(0.0, 0.0, 2.0);
  v.perp(v);
  expectBits(v, 0.0, 1.0, -0.0);
}

TEST(Vec3d, PerpNormalisesAUnitInputWhoseZeroedComponentIsNonZero) {
  // Unit length alone does not skip the normalisation: v[k] must be 0 too.
  const vec3d in(0.36, 0.48, 0.8);
  ASSERT_EQ(in.length(), 1.0);
  vec3d v;
  v.perp(in);
  const double r = 1.0 / vec3d(0.0, 0.8, -0.48).length();
  expectBits(v, 0.0, 0.8 * r, -0.48 * r);
}

TEST(Vec3d, NormalOfThreePoints) {
  vec3d n;
  n.normal(vec3d(0, 0, 0), vec3d(1, 0, 0), vec3d(1, 1, 0));
  // (0, 1, 0) x (-1, 0, 0): y is 0 * -1 - 0 * 0 = -0.
  expectBits(n, 0.0, -0.0, 1.0);
}

TEST(Vec3d, NormalFollowsTheOperandOrder) {
  vec3d n;
  n.normal(vec3d(0, 0, 0), vec3d(1, 1, 0), vec3d(1, 0, 0));
  expectBits(n, 0.0, -0.0, -1.0);
  // (c - b) x (a - b), normalised.
  n.normal(vec3d(0, 0, 0), vec3d(2, 0, 0), vec3d(0, 0, 3));
  expectBits(n, 0.0, -1.0, 0.0);
}

TEST(Vec3d, NormalOfCollinearPointsIsZero) {
  vec3d n;
  n.normal(vec3d(0, 0, 0), vec3d(1, 1, 1), vec3d(2, 2, 2));
  expectBits(n, 0.0, 0.0, 0.0);
}

TEST(Vec3d, CubicHitsItsEndPoints) {
  const vec3d p0(1.0, 2.0, 3.0);
  const vec3d m0(10.0, -20.0, 30.0);
  const vec3d m1(-7.0, 8.0, 9.0);
  const vec3d p1(-1.0, 0.5, 4.0);
  vec3d v;
  v.cubic(p0, m0, m1, p1, 0.0);
  expectBits(v, 1.0, 2.0, 3.0);
  v.cubic(p0, m0, m1, p1, 1.0);
  expectBits(v, -1.0, 0.5, 4.0);
}

TEST(Vec3d, CubicTakesStartTangentSecondAndEndTangentThird) {
  const vec3d p0(0.0, 0.0, 0.0);
  const vec3d m0(8.0, 0.0, 0.0);
  const vec3d m1(0.0, 8.0, 0.0);
  const vec3d p1(0.0, 0.0, 0.0);
  vec3d v;
  // At t = 0.5: h10 = 0.125, h11 = -0.125.
  v.cubic(p0, m0, m1, p1, 0.5);
  expectBits(v, 1.0, -1.0, 0.0);
}

TEST(Vec3d, CubicSumsTheHermiteTermsInOrder) {
  // At t = 0.37 the Hermite curve is at (1.00092763, -0.27281417, 0.766839)
  // exactly; the literals are the bits of h00 p0 + h01 p1 + h10 m0 + h11 m1
  // summed in that order (swapping the middle two terms changes y and z).
  const vec3d p0(0.3, -1.7, 2.9);
  const vec3d m0(0.11, 5.3, -0.7);
  const vec3d m1(-2.2, 0.01, 1.3);
  const vec3d p1(1.9, 0.4, -3.3);
  vec3d v;
  v.cubic(p0, m0, m1, p1, 0.37);
  EXPECT_EQ(bits(v.x()), bits(0x1.003ccb0c83461p+0));
  EXPECT_EQ(bits(v.y()), bits(-0x1.175c9908243bdp-2));
  EXPECT_EQ(bits(v.z()), bits(0x1.889f1f14983dbp-1));
}

}  // namespace
