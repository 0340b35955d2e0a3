#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <ostream>
#include <random>
#include <string>

#include "math/bit_compare.h"
#include "math/random_values.h"

namespace {

using mathtest::bits;

const double kPi = 3.14159265358979323846;

mat4x4 fromArray(const double (&e)[16]) {
  mat4x4 m;
  std::memcpy(static_cast<double*>(m), e, sizeof e);
  return m;
}

mat4x4 sample() {
  const double e[16] = {1.5, -2.0, 3.0,   0.25, 5.0,  6.5,  -7.0, 0.5,
                        9.0, 10.0, -11.5, 0.75, 13.0, 14.0, 15.5, 2.0};
  return fromArray(e);
}

::testing::AssertionResult bitsEqual(const mat4x4& m, const double* e) {
  const double* a = m;
  for (int i = 0; i < 16; ++i) {
    if (bits(a[i]) != bits(e[i])) {
      return ::testing::AssertionFailure() << "index " << i << ": " << a[i] << " vs " << e[i];
    }
  }
  return ::testing::AssertionSuccess();
}

::testing::AssertionResult bitsEqual(const mat4x4& m, const mat4x4& n) {
  return bitsEqual(m, static_cast<const double*>(n));
}

void expectBits(const vec3d& v, double x, double y, double z) {
  EXPECT_EQ(bits(v.x()), bits(x)) << "x: " << v.x() << " vs " << x;
  EXPECT_EQ(bits(v.y()), bits(y)) << "y: " << v.y() << " vs " << y;
  EXPECT_EQ(bits(v.z()), bits(z)) << "z: " << v.z() << " vs " << z;
}

void expectBits(const vec4d& v, double x, double y, double z, double w) {
  EXPECT_EQ(bits(v.x()), bits(x)) << "x: " << v.x() << " vs " << x;
  EXPECT_EQ(bits(v.y()), bits(y)) << "y: " << v.y() << " vs " << y;
  EXPECT_EQ(bits(v.z()), bits(z)) << "z: " << v.z() << " vs " << z;
  EXPECT_EQ(bits(v.w()), bits(w)) << "w: " << v.w() << " vs " << w;
}

// sample() with (1, -2, 0.5) in its own axes added to (sign 1) or taken from
// (sign -1) its translation, the step summed x, y, z.
void sampleMovedBy(double sign, double (&e)[16]) {
  const mat4x4 original = sample();
  const double* s = original;
  std::memcpy(e, s, sizeof e);
  for (int r = 0; r < 3; ++r) {
    const double step = 1.0 * s[r] + -2.0 * s[4 + r] + 0.5 * s[8 + r];
    e[12 + r] = sign > 0.0 ? s[12 + r] + step : s[12 + r] - step;
  }
}

TEST(Mat4x4Axis, LoadTranslateIsIdentityWithATranslation) {
  mat4x4 m = sample();
  m.loadTranslate(1.0, 2.0, 3.0);
  const double e[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1};
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4Axis, TranslateMultipliesOnTheRight) {
  mat4x4 m = sample();
  m.translate(1.0, -2.0, 0.5);
  double e[16];
  sampleMovedBy(1.0, e);
  EXPECT_TRUE(bitsEqual(m, e));
  mat4x4 v = sample();
  v.translate(vec3d(1.0, -2.0, 0.5));
  EXPECT_TRUE(bitsEqual(v, e));
}

TEST(Mat4x4Axis, TranslateLeavesIndex15Unchanged) {
  // Index 3 is non-zero, so a full product would change index 15.
  mat4x4 m = sample();
  ASSERT_NE(m[0][3], 0.0);
  m.translate(1.0, 2.0, 3.0);
  EXPECT_EQ(m[3][3], 2.0);
  m.translateNeg(vec3d(1.0, 2.0, 3.0));
  EXPECT_EQ(m[3][3], 2.0);
}

TEST(Mat4x4Axis, TranslateNegSubtractsTheSameSum) {
  mat4x4 m = sample();
  m.translateNeg(vec3d(1.0, -2.0, 0.5));
  double e[16];
  sampleMovedBy(-1.0, e);
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4Axis, LoadScaleIsDiagonal) {
  mat4x4 m = sample();
  m.loadScale(2.0, 3.0, 4.0);
  const double e[16] = {2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1};
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4Axis, ScaleMultipliesAllFourRowsOfTheFirstThreeColumns) {
  mat4x4 m = sample();
  m.scale(2.0, -1.0, 0.5);
  const mat4x4 original = sample();
  const double* s = original;
  double e[16];
  for (int i = 0; i < 16; ++i) {
    const double f[4] = {2.0, -1.0, 0.5, 1.0};
    e[i] = i < 12 ? s[i] * f[i / 4] : s[i];
  }
  EXPECT_TRUE(bitsEqual(m, e));
  mat4x4 v = sample();
  v.scale(vec3d(2.0, -1.0, 0.5));
  EXPECT_TRUE(bitsEqual(v, e));
}

struct LoadRotateCase {
  const char* name;
  void (mat4x4::*load)(double);
  int cosIndex[2];
  int sinIndex;
  int minusSinIndex;
  int oneIndex;
};

void PrintTo(const LoadRotateCase& c, std::ostream* os) {
  *os << c.name;
}

class Mat4x4LoadRotate : public ::testing::TestWithParam<LoadRotateCase> {};

TEST_P(Mat4x4LoadRotate, PlacesCosinesAndSines) {
  const LoadRotateCase& c = GetParam();
  const double a = 0.7;
  mat4x4 m = sample();
  (m.*c.load)(a);
  double e[16] = {};
  e[c.cosIndex[0]] = std::cos(a);
  e[c.cosIndex[1]] = std::cos(a);
  e[c.sinIndex] = std::sin(a);
  e[c.minusSinIndex] = -std::sin(a);
  e[c.oneIndex] = 1.0;
  e[15] = 1.0;
  EXPECT_TRUE(bitsEqual(m, e));
}

INSTANTIATE_TEST_SUITE_P(
    Mat4x4Axis, Mat4x4LoadRotate,
    ::testing::Values(LoadRotateCase{"X", &mat4x4::loadRotateX, {5, 10}, 6, 9, 0},
                      LoadRotateCase{"Y", &mat4x4::loadRotateY, {0, 10}, 8, 2, 5},
                      LoadRotateCase{"Z", &mat4x4::loadRotateZ, {0, 5}, 1, 4, 10}),
    [](const ::testing::TestParamInfo<LoadRotateCase>& info) {
      return std::string(info.param.name);
    });

TEST(Mat4x4Axis, LoadRotateZQuarterTurnTakesXToY) {
  mat4x4 m;
  m.loadRotateZ(kPi / 2);
  vec3d v(1.0, 0.0, 0.0);
  m.transform(v);
  EXPECT_TRUE(v == vec3d(0.0, 1.0, 0.0));
}

TEST(Mat4x4Axis, RotateZOfIdentityEqualsLoadRotateZ) {
  mat4x4 m;
  m.identity();
  m.rotateZ(kPi / 2);
  mat4x4 l;
  l.loadRotateZ(kPi / 2);
  EXPECT_TRUE(bitsEqual(m, l));
}

TEST(Mat4x4Axis, RotateXYOfIdentityEqualLoadRotateXY) {
  mat4x4 m;
  m.identity();
  m.rotateX(0.4);
  mat4x4 l;
  l.loadRotateX(0.4);
  EXPECT_TRUE(bitsEqual(m, l));
  m.identity();
  m.rotateY(-1.1);
  l.loadRotateY(-1.1);
  EXPECT_TRUE(bitsEqual(m, l));
}

struct RotateCase {
  const char* name;
  void (mat4x4::*rotate)(double);
  int first;   // column that takes + sin of the second
  int second;  // column that takes - sin of the first
  int untouched[2];
};

void PrintTo(const RotateCase& c, std::ostream* os) {
  *os << c.name;
}

class Mat4x4Rotate : public ::testing::TestWithParam<RotateCase> {};

TEST_P(Mat4x4Rotate, MixesTwoColumnsAndLeavesTheOthers) {
  const RotateCase& rc = GetParam();
  const double a = 0.9;
  const double c = std::cos(a);
  const double s = std::sin(a);
  mat4x4 m = sample();
  (m.*rc.rotate)(a);
  const mat4x4 o = sample();
  for (int r = 0; r < 4; ++r) {
    EXPECT_EQ(bits(m[rc.first][r]), bits(o[rc.first][r] * c + o[rc.second][r] * s)) << r;
    EXPECT_EQ(bits(m[rc.second][r]), bits(o[rc.second][r] * c - o[rc.first][r] * s)) << r;
    for (int u : rc.untouched) {
      EXPECT_EQ(bits(m[u][r]), bits(o[u][r])) << "column " << u << " row " << r;
    }
  }
}

// rotateY mixes col0 = col0 c - col2 s and col2 = col2 c + col0 s: column 2
// is the "first" one in this table's terms.
INSTANTIATE_TEST_SUITE_P(Mat4x4Axis, Mat4x4Rotate,
                         ::testing::Values(RotateCase{"X", &mat4x4::rotateX, 1, 2, {0, 3}},
                                           RotateCase{"Y", &mat4x4::rotateY, 2, 0, {1, 3}},
                                           RotateCase{"Z", &mat4x4::rotateZ, 0, 1, {2, 3}}),
                         [](const ::testing::TestParamInfo<RotateCase>& info) {
                           return std::string(info.param.name);
                         });

TEST(Mat4x4Axis, RotateMultipliesOnTheRight) {
  mat4x4 m = sample();
  mat4x4 r;
  r.loadRotateY(0.3);
  const mat4x4 expected = m * r;
  m.rotateY(0.3);
  EXPECT_TRUE(m.cmp(expected, 1e-14));
  m = sample();
  r.loadRotateX(-0.8);
  const mat4x4 expectedX = m * r;
  m.rotateX(-0.8);
  EXPECT_TRUE(m.cmp(expectedX, 1e-14));
}

TEST(Mat4x4Axis, TimesVec3dIgnoresTheBottomRow) {
  const mat4x4 m = sample();
  const vec3d v(2.0, -1.0, 0.5);
  const double* e = m;
  const vec3d r = m * v;
  // No division by a weight.
  expectBits(r, 2.0 * e[0] + -1.0 * e[4] + 0.5 * e[8] + e[12],
             2.0 * e[1] + -1.0 * e[5] + 0.5 * e[9] + e[13],
             2.0 * e[2] + -1.0 * e[6] + 0.5 * e[10] + e[14]);
  vec3d t = v;
  m.transform(t);
  expectBits(t, r.x(), r.y(), r.z());
}

TEST(Mat4x4Axis, TransformVec3dSumsInOrder) {
  mat4x4 m;
  m.identity();
  m[0][0] = 1e16;
  m[1][0] = 1.0;
  m[2][0] = -1e16;
  m[3][0] = 1.0;
  vec3d v(1.0, 1.0, 1.0);
  m.transform(v);
  EXPECT_EQ(v.x(), 1.0);
}

TEST(Mat4x4Axis, TimesVec4dCopiesZIntoW) {
  mat4x4 m;
  m.identity();
  expectBits(m * vec4d(1.0, 2.0, 3.0, 1.0), 1.0, 2.0, 3.0, 3.0);
  const mat4x4 s = sample();
  const double* e = s;
  const vec4d r = s * vec4d(2.0, -1.0, 0.5, 3.0);
  const double z = 2.0 * e[2] + -1.0 * e[6] + 0.5 * e[10] + 3.0 * e[14];
  expectBits(r, 2.0 * e[0] + -1.0 * e[4] + 0.5 * e[8] + 3.0 * e[12],
             2.0 * e[1] + -1.0 * e[5] + 0.5 * e[9] + 3.0 * e[13], z, z);
}

TEST(Mat4x4Axis, TransformVec4dIsTheFullProduct) {
  const mat4x4 s = sample();
  const double* e = s;
  vec4d v(2.0, -1.0, 0.5, 3.0);
  s.transform(v);
  expectBits(v, 2.0 * e[0] + -1.0 * e[4] + 0.5 * e[8] + 3.0 * e[12],
             2.0 * e[1] + -1.0 * e[5] + 0.5 * e[9] + 3.0 * e[13],
             2.0 * e[2] + -1.0 * e[6] + 0.5 * e[10] + 3.0 * e[14],
             2.0 * e[3] + -1.0 * e[7] + 0.5 * e[11] + 3.0 * e[15]);
  mat4x4 id;
  id.identity();
  vec4d u(1.0, 2.0, 3.0, 1.0);
  id.transform(u);
  expectBits(u, 1.0, 2.0, 3.0, 1.0);
}

TEST(Mat4x4Axis, TransformMatchesTheOrderedSumsOnRandomInputs) {
  mathtest::RandomValues rng(1234);
  for (int n = 0; n < 1000; ++n) {
    double e[16];
    rng.fill(e, 16, -5.0, 5.0);
    double p[4];
    rng.fill(p, 4, -5.0, 5.0);
    const mat4x4 m = fromArray(e);
    vec3d v(p[0], p[1], p[2]);
    m.transform(v);
    for (int k = 0; k < 3; ++k) {
      const double expected = p[0] * e[k] + p[1] * e[4 + k] + p[2] * e[8 + k] + e[12 + k];
      ASSERT_EQ(bits(v[k]), bits(expected)) << "case " << n << " k " << k;
    }
    vec4d w(p[0], p[1], p[2], p[3]);
    m.transform(w);
    for (int k = 0; k < 4; ++k) {
      const double expected = p[0] * e[k] + p[1] * e[4 + k] + p[2] * e[8 + k] + p[3] * e[12 + k];
      ASSERT_EQ(bits(w[k]), bits(expected)) << "case " << n << " k " << k;
    }
  }
}

}  // namespace
