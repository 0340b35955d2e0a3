#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "math/bit_compare.h"

namespace {

using mathtest::bits;

void expectBits(const vec4d& v, double x, double y, double z, double w) {
  EXPECT_EQ(bits(v.x()), bits(x)) << "x: " << v.x() << " vs " << x;
  EXPECT_EQ(bits(v.y()), bits(y)) << "y: " << v.y() << " vs " << y;
  EXPECT_EQ(bits(v.z()), bits(z)) << "z: " << v.z() << " vs " << z;
  EXPECT_EQ(bits(v.w()), bits(w)) << "w: " << v.w() << " vs " << w;
}

void expectBits(const vec3d& v, double x, double y, double z) {
  EXPECT_EQ(bits(v.x()), bits(x)) << "x: " << v.x() << " vs " << x;
  EXPECT_EQ(bits(v.y()), bits(y)) << "y: " << v.y() << " vs " << y;
  EXPECT_EQ(bits(v.z()), bits(z)) << "z: " << v.z() << " vs " << z;
}

TEST(Vec4d, DefaultIsZero) {
  expectBits(vec4d(), 0.0, 0.0, 0.0, 0.0);
}

TEST(Vec4d, FromVec3dAddsAUnitWeight) {
  expectBits(vec4d(vec3d(1.0, 2.0, 3.0)), 1.0, 2.0, 3.0, 1.0);
}

TEST(Vec4d, SetZeroCopyAndAccessors) {
  vec4d v;
  v.set(1.0, 2.0, 3.0, 4.0);
  vec4d c;
  c.copy(v);
  expectBits(c, 1.0, 2.0, 3.0, 4.0);
  c.w() = 7.0;
  c[2] = 6.0;
  c.get(1) = 5.0;
  const vec4d& k = c;
  EXPECT_EQ(k.w(), 7.0);
  EXPECT_EQ(k[2], 6.0);
  EXPECT_EQ(k.get(1), 5.0);
  EXPECT_EQ(static_cast<const double*>(k)[3], 7.0);
  c.zero();
  expectBits(c, 0.0, 0.0, 0.0, 0.0);
}

TEST(Vec4d, ArithmeticCoversAllFourComponents) {
  const vec4d a(1.0, 2.0, 3.0, 4.0);
  const vec4d b(0.5, -1.0, 4.0, 2.0);
  expectBits(a + b, 1.5, 1.0, 7.0, 6.0);
  expectBits(+a, 1.0, 2.0, 3.0, 4.0);
  expectBits(a * 0.5, 0.5, 1.0, 1.5, 2.0);
  EXPECT_EQ(a * b, 0.5 - 2.0 + 12.0 + 8.0);
  EXPECT_EQ(a.dot(b), 0.5 - 2.0 + 12.0 + 8.0);
  vec4d c(a);
  c += b;
  expectBits(c, 1.5, 1.0, 7.0, 6.0);
  c *= 2.0;
  expectBits(c, 3.0, 2.0, 14.0, 12.0);
  vec4d d;
  d.add(a, b);
  expectBits(d, 1.5, 1.0, 7.0, 6.0);
  d.scalar(2.0);
  expectBits(d, 3.0, 2.0, 14.0, 12.0);
}

TEST(Vec4d, SubtractionSubtracts) {
  // Unlike mat4x4, where sub() and binary minus add.
  const vec4d a(1.0, 2.0, 3.0, 4.0);
  const vec4d b(0.5, -1.0, 4.0, 2.0);
  expectBits(a - b, 0.5, 3.0, -1.0, 2.0);
  vec4d c;
  c.sub(a, b);
  expectBits(c, 0.5, 3.0, -1.0, 2.0);
  c = a;
  c -= b;
  expectBits(c, 0.5, 3.0, -1.0, 2.0);
}

TEST(Vec4d, UnaryMinusAndNegFlipAllFourSignBits) {
  expectBits(-vec4d(0.0, 1.0, -2.0, 0.0), -0.0, -1.0, 2.0, -0.0);
  vec4d v(0.0, 1.0, -2.0, 0.0);
  v.neg();
  expectBits(v, -0.0, -1.0, 2.0, -0.0);
  v.abs();
  expectBits(v, 0.0, 1.0, 2.0, 0.0);
}

TEST(Vec4d, LengthCountsW) {
  const vec4d v(0.0, 0.0, 3.0, 4.0);
  EXPECT_EQ(v.squared(), 25.0);
  EXPECT_EQ(v.length(), 5.0);
}

TEST(Vec4d, NormalizeScalesAllFour) {
  vec4d v(0.0, 0.0, 3.0, 4.0);
  v.normalize();
  expectBits(v, 0.0, 0.0, 3.0 * (1.0 / 5.0), 4.0 * (1.0 / 5.0));
  EXPECT_TRUE(v == vec4d(0.0, 0.0, 0.6, 0.8));
}

TEST(Vec4d, NormalizeLeavesANearZeroVectorAsItIs) {
  vec4d z(0.0, 0.0, 0.0, 0.0);
  z.normalize();
  expectBits(z, 0.0, 0.0, 0.0, 0.0);
  // vec3d::normalize would clear this one.
  vec4d tiny(5e-11, 0.0, -0.0, 0.0);
  tiny.normalize();
  expectBits(tiny, 5e-11, 0.0, -0.0, 0.0);
}

TEST(Vec4d, HomogenizeScalesByW) {
  vec4d v(1.0, 2.0, 3.0, 2.0);
  v.homogenize();
  expectBits(v, 2.0, 4.0, 6.0, 2.0);
}

TEST(Vec4d, RationalizeDividesByW) {
  vec4d v(2.0, 4.0, 6.0, 2.0);
  EXPECT_EQ(v.rationalize(), 1.0);
  expectBits(v, 1.0, 2.0, 3.0, 1.0);
  vec4d t(1.0, 2.0, 5.0, 3.0);
  EXPECT_EQ(t.rationalize(), 1.0);
  const double r = 1.0 / 3.0;
  expectBits(t, 1.0 * r, 2.0 * r, 5.0 * r, 1.0);
}

TEST(Vec4d, RationalizeClearsANearZeroWeight) {
  vec4d v(2.0, 4.0, 6.0, 0.0);
  EXPECT_EQ(v.rationalize(), 0.0);
  expectBits(v, 0.0, 0.0, 0.0, 0.0);
  vec4d t(2.0, 4.0, 6.0, -9e-11);
  EXPECT_EQ(t.rationalize(), 0.0);
  expectBits(t, 0.0, 0.0, 0.0, 0.0);
}

TEST(Vec4d, CartesianizeIsRationalize) {
  vec4d v(2.0, 4.0, 6.0, 2.0);
  EXPECT_EQ(v.cartesianize(), 1.0);
  expectBits(v, 1.0, 2.0, 3.0, 1.0);
  vec4d z(2.0, 4.0, 6.0, 0.0);
  EXPECT_EQ(z.cartesianize(), 0.0);
  expectBits(z, 0.0, 0.0, 0.0, 0.0);
}

TEST(Vec4d, ConversionToVec3dIsGuarded) {
  const vec4d v(2.0, 4.0, 6.0, 0.0);
  expectBits(v.operator vec3d(), 0.0, 0.0, 0.0);
  // The vec3d constructor divides regardless.
  const double inf = std::numeric_limits<double>::infinity();
  expectBits(vec3d(v), inf, inf, inf);
}

TEST(Vec4d, ConversionToVec3dDividesByW) {
  const vec4d v(2.0, 4.0, 5.0, 3.0);
  const double r = 1.0 / 3.0;
  expectBits(v.operator vec3d(), 2.0 * r, 4.0 * r, 5.0 * r);
  const vec4d tiny(2.0, 4.0, 5.0, 5e-11);
  expectBits(tiny.operator vec3d(), 0.0, 0.0, 0.0);
}

TEST(Vec4d, EqualityIsAStrictToleranceOnAllFour) {
  const vec4d a(0.0, 0.0, 0.0, 0.0);
  EXPECT_TRUE(a == vec4d(0.0, 0.0, 0.0, 5e-11));
  EXPECT_FALSE(a != vec4d(0.0, 0.0, 0.0, 5e-11));
  EXPECT_FALSE(a == vec4d(0.0, 0.0, 0.0, 1e-10));
  EXPECT_TRUE(a != vec4d(0.0, 0.0, 0.0, 1e-10));
  EXPECT_TRUE(a.cmp(vec4d(0.4, 0.4, 0.4, 0.4), 0.5));
  EXPECT_FALSE(a.cmp(vec4d(0.4, 0.4, 0.4, 0.5), 0.5));
}

TEST(Vec4d, CmpFailsOnNaN) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(vec4d(0.0, 0.0, 0.0, nan).cmp(vec4d(0.0, 0.0, 0.0, nan), 1.0));
  EXPECT_TRUE(vec4d(0.0, 0.0, 0.0, nan) != vec4d(0.0, 0.0, 0.0, 0.0));
}

TEST(Vec4d, LerpOverFourComponents) {
  const vec4d a(0.1, 0.2, 0.3, 0.4);
  const vec4d b(0.7, 1.9, -0.4, 2.5);
  const double t = 0.3;
  vec4d v;
  v.lerp(a, b, t);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(bits(v[i]), bits((b[i] - a[i]) * t + a[i])) << i;
  }
}

TEST(Vec4d, LinearCombination) {
  vec4d v;
  v.linear_comb(2.0, vec4d(1.0, 0.0, -1.0, 0.5), -1.0, vec4d(0.0, 3.0, 1.0, 1.0));
  expectBits(v, 2.0, -3.0, -3.0, 0.0);
}

TEST(Vec4d, MinAndMaxOverFourComponents) {
  vec4d v(1.0, 5.0, -2.0, 3.0);
  v.min(vec4d(2.0, 3.0, -2.0, 0.0));
  expectBits(v, 1.0, 3.0, -2.0, 0.0);
  v.max(vec4d(0.0, 4.0, 7.0, -1.0));
  expectBits(v, 1.0, 4.0, 7.0, 0.0);
}

TEST(Vec4d, CubicAppliesTheHermiteRuleToW) {
  const vec4d p0(1.0, 0.0, 0.0, 2.0);
  const vec4d m0(0.0, 0.0, 0.0, 8.0);
  const vec4d m1(0.0, 0.0, 0.0, 16.0);
  const vec4d p1(0.0, 0.0, 0.0, 4.0);
  vec4d v;
  v.cubic(p0, m0, m1, p1, 0.0);
  expectBits(v, 1.0, 0.0, 0.0, 2.0);
  v.cubic(p0, m0, m1, p1, 1.0);
  expectBits(v, 0.0, 0.0, 0.0, 4.0);
  // t = 0.5: 0.5 * 2 + 0.5 * 4 + 0.125 * 8 - 0.125 * 16.
  v.cubic(p0, m0, m1, p1, 0.5);
  EXPECT_EQ(v.w(), 2.0);
  EXPECT_EQ(v.x(), 0.5);
}

}  // namespace
