#include <lumagrid/MQuat.h>
#include <lumagrid/MRot.h>
#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>

#include <gtest/gtest.h>

#include <Eigen/Geometry>

#include <array>
#include <cmath>
#include <ostream>
#include <random>
#include <string>

#include "math/random_values.h"

namespace {

constexpr double kPi = 3.141592653589793;

using Values = std::array<double, 16>;

mat4x4 fromValues(const Values& v) {
  mat4x4 m;
  for (int i = 0; i < 16; ++i) {
    static_cast<double*>(m)[i] = v[i];
  }
  return m;
}

mat4x4 filledWith(double v) {
  Values values;
  values.fill(v);
  return fromValues(values);
}

mat4x4 diagonal(double a, double b, double c, double d) {
  return fromValues({a, 0, 0, 0, 0, b, 0, 0, 0, 0, c, 0, 0, 0, 0, d});
}

mat4x4 identityMatrix() {
  return diagonal(1, 1, 1, 1);
}

// Exact, index by index (0.0 and -0.0 count as equal).
void expectMatrix(const mat4x4& m, const mat4x4& expected) {
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(static_cast<const double*>(m)[i], static_cast<const double*>(expected)[i])
        << "index " << i;
  }
}

void expectMatrixNear(const mat4x4& m, const mat4x4& expected, double tol) {
  for (int i = 0; i < 16; ++i) {
    EXPECT_NEAR(static_cast<const double*>(m)[i], static_cast<const double*>(expected)[i], tol)
        << "index " << i;
  }
}

void expectVecNear(const vec3d& v, double x, double y, double z, double tol) {
  EXPECT_NEAR(v.x(), x, tol);
  EXPECT_NEAR(v.y(), y, tol);
  EXPECT_NEAR(v.z(), z, tol);
}

// The top-left 3x3 of m against an Eigen rotation, the rest identity.
void expectRotationNear(const mat4x4& m, const Eigen::Matrix3d& r, double tol) {
  for (int c = 0; c < 3; ++c) {
    for (int row = 0; row < 3; ++row) {
      EXPECT_NEAR(m[c][row], r(row, c), tol) << "row " << row << " column " << c;
    }
    EXPECT_EQ(m[c][3], 0.0);
    EXPECT_EQ(m[3][c], 0.0);
  }
  EXPECT_EQ(m[3][3], 1.0);
}

Eigen::Vector3d toEigen(const vec3d& v) {
  return Eigen::Vector3d(v.x(), v.y(), v.z());
}

// ---------------------------------------------------------------- quaternion rotations

TEST(Mat4x4Compound, LoadRotateGivesTheRotationOfTheNormalisedQuaternion) {
  // q / |q| turns by the matrix 1 - 2(yy + zz), 2(xy + wz), ... over n = 2.35:
  // 0.446808..., 0.382978..., 0.808510..., each within 1.5 ulps of the exact
  // value. The literals are the bits of the library's order of operations.
  const MQuat q(0.1, -0.7, 0.4, 1.3);
  mat4x4 m = filledWith(7.0);
  m.loadRotate(q);
  expectMatrix(m, fromValues({0x1.c9882b9310574p-2, 0x1.882b931057264p-2, 0x1.9df51b3bea368p-1, 0,
                              -0x1.0116e06894274p-1, 0x1.b5ec6438a5954p-1, -0x1.0572620ae4c41p-3, 0,
                              -0x1.7b190e29654f8p-1, -0x1.654f85fdd23f4p-2, 0x1.2620ae4c415cap-1, 0,
                              0, 0, 0, 1}));
}

TEST(Mat4x4Compound, LoadRotateMatchesEigenRotationMatrix) {
  mathtest::RandomValues rnd(41);
  for (int n = 0; n < 200; ++n) {
    const MQuat q = rnd.unitQuat();
    mat4x4 m;
    m.loadRotate(q);
    expectRotationNear(m, Eigen::Quaterniond(q.w, q.x, q.y, q.z).toRotationMatrix(), 1e-14);
  }
}

TEST(Mat4x4Compound, LoadRotateNormalisesImplicitly) {
  const MQuat q(0.1, -0.7, 0.4, 0.5);
  mat4x4 a;
  a.loadRotate(q);
  mat4x4 b;
  b.loadRotate(q * 3.0);
  expectMatrixNear(b, a, 1e-15);
  Eigen::Quaterniond e(q.w, q.x, q.y, q.z);
  e.normalize();
  expectRotationNear(b, e.toRotationMatrix(), 1e-14);
}

TEST(Mat4x4Compound, LoadRotateOfZeroQuaternionIsTheIdentity) {
  mat4x4 m = filledWith(7.0);
  m.loadRotate(MQuat(0, 0, 0, 0));
  expectMatrix(m, identityMatrix());
}

TEST(Mat4x4Compound, LoadRotateOfScaledIdentityIsTheIdentity) {
  mat4x4 m = filledWith(7.0);
  m.loadRotate(MQuat(0, 0, 0, 2));
  expectMatrix(m, identityMatrix());
}

TEST(Mat4x4Compound, LoadRotateOfATinyQuaternionUsesAUnitScale) {
  // n = 2.5e-11 is below 1e-10, so s = 1.0 rather than 2 / n.
  mat4x4 m = filledWith(7.0);
  m.loadRotate(MQuat(5e-6, 0, 0, 0));
  const double xx = 5e-6 * 5e-6;
  expectMatrix(m, fromValues({1, 0, 0, 0, 0, 1.0 - (0.0 + xx), 0, 0, 0, 0, 1.0 - (0.0 + xx), 0,  //
                              0, 0, 0, 1}));
}

TEST(Mat4x4Compound, AxisAngleTurnsOppositeToLoadRotateZ) {
  mat4x4 m;
  m.loadRotate(vec3d(0, 0, 1), kPi / 2);
  vec3d v(1, 0, 0);
  m.transform(v);
  expectVecNear(v, 0, -1, 0, 1e-15);

  mat4x4 z;
  z.loadRotateZ(kPi / 2);
  vec3d w(1, 0, 0);
  z.transform(w);
  expectVecNear(w, 0, 1, 0, 1e-15);
}

TEST(Mat4x4Compound, ZeroAxisGivesTheIdentity) {
  mat4x4 m = filledWith(7.0);
  m.loadRotate(vec3d(0, 0, 0), 1.2);
  expectMatrix(m, identityMatrix());
  m = filledWith(7.0);
  m.loadRotate(MRot(vec3d(0, 0, 0), 1.2));
  expectMatrix(m, identityMatrix());
}

TEST(Mat4x4Compound, AxisAngleOverloadsGoThroughTheQuaternion) {
  const vec3d axis(0.3, -1.2, 2.0);
  const double a = 0.83;
  mat4x4 viaQuat;
  viaQuat.loadRotate(MQuat(axis, a));
  mat4x4 viaAxis;
  viaAxis.loadRotate(axis, a);
  expectMatrix(viaAxis, viaQuat);
  mat4x4 viaRot;
  viaRot.loadRotate(MRot(axis, a));
  expectMatrix(viaRot, viaQuat);
}

TEST(Mat4x4Compound, AxisAngleMatchesEigenWithTheAngleNegated) {
  mathtest::RandomValues rnd(42);
  for (int n = 0; n < 200; ++n) {
    const vec3d axis = rnd.vector(-2, 2);
    const double a = rnd.uniform(-4, 4);
    mat4x4 m;
    m.loadRotate(axis, a);
    const Eigen::AngleAxisd e(-a, toEigen(axis).normalized());
    expectRotationNear(m, e.toRotationMatrix(), 1e-14);
  }
}

mat4x4 someAffineMatrix() {
  return fromValues({0.9, 0.1, -0.3, 0.0,  //
                     -0.2, 1.1, 0.4, 0.0,  //
                     0.5, -0.6, 0.8, 0.0,  //
                     1.0, 2.0, 3.0, 1.0});
}

TEST(Mat4x4Compound, RotateMultipliesOnTheRight) {
  const MQuat q(0.2, -0.4, 0.1, 0.9);
  mat4x4 r;
  r.loadRotate(q);
  const mat4x4 m = someAffineMatrix();
  mat4x4 expected;
  expected.mul(m, r);

  mat4x4 a = m;
  a.rotate(q);
  expectMatrix(a, expected);
}

TEST(Mat4x4Compound, RotateByAxisAngleMultipliesOnTheRight) {
  const vec3d axis(1, 2, -0.5);
  const double angle = -0.7;
  mat4x4 r;
  r.loadRotate(MQuat(axis, angle));
  const mat4x4 m = someAffineMatrix();
  mat4x4 expected;
  expected.mul(m, r);

  mat4x4 a = m;
  a.rotate(axis, angle);
  expectMatrix(a, expected);
  mat4x4 b = m;
  b.rotate(MRot(axis, angle));
  expectMatrix(b, expected);
}

// ---------------------------------------------------------------- projection

TEST(Mat4x4Compound, LoadProjGivesTheScalesAndDepthTerms) {
  // fovy 0.9, near 0.5, far 20, aspect 1.5: e0 = 2 / tan(0.45) = 4.140314...,
  // e5 = 1.5 e0 = 6.210472..., e10 = -20.5 / 19.5 and e11 = -20 / 19.5, to the
  // bit the library's order of operations gives.
  mat4x4 m = filledWith(7.0);
  m.loadProj(0.9, 0.5, 20.0, 1.5);
  expectMatrix(m, fromValues({0x1.08faea9a2e61fp+2, 0, 0, 0,                       //
                              0, 0x1.8d785fe74592fp+2, 0, 0,                       //
                              0, 0, -0x1.0d20d20d20d21p+0, -0x1.0690690690690p+0,  //
                              0, 0, -1, 0}));
}

TEST(Mat4x4Compound, LoadProjHasFactorTwoAndTransposedPlacement) {
  mat4x4 m;
  m.loadProj(kPi / 2, 1.0, 3.0, 2.0);
  const double* e = m;
  // A conventional perspective would give 0.5, 1, -1 at index 11 and -3 at 14.
  EXPECT_NEAR(e[0], 2.0, 1e-14);
  EXPECT_NEAR(e[5], 4.0, 1e-14);
  EXPECT_EQ(e[10], -2.0);
  EXPECT_EQ(e[11], -3.0);
  EXPECT_EQ(e[14], -1.0);
  EXPECT_EQ(e[15], 0.0);
}

TEST(Mat4x4Compound, ProjMultipliesOnTheRight) {
  mat4x4 p;
  p.loadProj(1.1, 0.1, 100.0, 4.0 / 3.0);
  const mat4x4 m = someAffineMatrix();
  mat4x4 expected;
  expected.mul(m, p);

  mat4x4 a = m;
  a.proj(1.1, 0.1, 100.0, 4.0 / 3.0);
  expectMatrix(a, expected);
}

// ---------------------------------------------------------------- mirror

struct MirrorCase {
  std::string name;
  double nx, ny, nz;
  double d0, d1, d2;
};

void PrintTo(const MirrorCase& c, std::ostream* os) {
  *os << c.name;
}

class Mat4x4Mirror : public testing::TestWithParam<MirrorCase> {};

TEST_P(Mat4x4Mirror, GivesTheSignedGramDiagonal) {
  const MirrorCase& c = GetParam();
  mat4x4 m = filledWith(7.0);
  m.loadMirror(vec3d(c.nx, c.ny, c.nz));
  expectMatrixNear(m, diagonal(c.d0, c.d1, c.d2, 1.0), 1e-14);
}

INSTANTIATE_TEST_SUITE_P(Normals, Mat4x4Mirror,
                         testing::Values(MirrorCase{"UnitY", 0, 1, 0, -1, 1, 1},
                                         MirrorCase{"UnitX", 1, 0, 0, -1, 1, 1},
                                         MirrorCase{"LongZ", 0, 0, 2, -4, 1, 4},
                                         MirrorCase{"OneTwoThree", 1, 2, 3, -14, 1, 14},
                                         // No reflection at all: the frame collapses.
                                         MirrorCase{"Zero", 0, 0, 0, 0, 0, 0}),
                         [](const testing::TestParamInfo<MirrorCase>& info) {
                           return info.param.name;
                         });

TEST(Mat4x4Compound, MirrorIgnoresTheDirectionOfTheNormal) {
  mathtest::RandomValues rnd(43);
  for (int n = 0; n < 100; ++n) {
    const vec3d v = rnd.vector(-3, 3);
    const double nn = v.dot(v);
    mat4x4 m;
    m.loadMirror(v);
    expectMatrixNear(m, diagonal(-nn, 1.0, nn, 1.0), 1e-13);
  }
}

// ---------------------------------------------------------------- align

TEST(Mat4x4Compound, AlignXOntoY) {
  mat4x4 m = filledWith(7.0);
  EXPECT_EQ(m.loadAlign(vec3d(1, 0, 0), vec3d(0, 1, 0)), 1);
  expectMatrixNear(m, fromValues({0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}), 1e-15);
}

TEST(Mat4x4Compound, AlignTakesTheFirstDirectionOntoTheSecond) {
  mathtest::RandomValues rnd(44);
  for (int n = 0; n < 200; ++n) {
    vec3d a = rnd.vector(-5, 5);
    vec3d b = rnd.vector(-5, 5);
    vec3d c;
    c.cross(a, b);
    if (c.length() < 1e-3 * a.length() * b.length()) {
      continue;
    }
    mat4x4 m;
    ASSERT_EQ(m.loadAlign(a, b), 1);

    a.normalize();
    b.normalize();
    vec3d moved = a;
    m.transform(moved);
    expectVecNear(moved, b.x(), b.y(), b.z(), 1e-12);
    // The smallest turn, about a x b.
    const Eigen::Matrix3d e =
        Eigen::Quaterniond::FromTwoVectors(toEigen(a), toEigen(b)).toRotationMatrix();
    expectRotationNear(m, e, 1e-12);
  }
}

TEST(Mat4x4Compound, AlignOfParallelDirectionsUsesTheFailedInverse) {
  // The frame is singular; inv() stops after two pivots and its partial
  // result goes into the product: no identity, and still 1.
  mat4x4 m = filledWith(7.0);
  EXPECT_EQ(m.loadAlign(vec3d(2, 0, 0), vec3d(1, 0, 0)), 1);
  expectMatrix(m, diagonal(1, 0, 0, 0));

  EXPECT_EQ(m.loadAlign(vec3d(1, 0, 0), vec3d(-3, 0, 0)), 1);
  expectMatrix(m, diagonal(-1, 0, 0, 0));
}

// ---------------------------------------------------------------- orient

TEST(Mat4x4Compound, OrientAlongZIsTheIdentityWithAnOffset) {
  mat4x4 m = filledWith(7.0);
  EXPECT_EQ(m.loadOrient(vec3d(0, 0, 5), vec3d(0, 0, 0), vec3d(0, 1, 0)), 1);
  expectMatrix(m, fromValues({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, -5, 0, 0, 0, 1}));
}

TEST(Mat4x4Compound, OrientPutsTheFrameInColumnsAndOffsetsInTheBottomRow) {
  const vec3d e(1, 2, 3), c(0.5, -1, 2), up(0, 0, 1);
  vec3d f = e - c;
  f.normalize();
  vec3d s;
  s.cross(up, f);
  s.normalize();
  vec3d u;
  u.cross(f, s);
  u.normalize();

  mat4x4 m;
  EXPECT_EQ(m.loadOrient(e, c, up), 1);
  expectMatrix(m, fromValues({s.x(), s.y(), s.z(), -s.dot(e),  //
                              u.x(), u.y(), u.z(), -u.dot(e),  //
                              f.x(), f.y(), f.z(), -f.dot(e),  //
                              0, 0, 0, 1}));
  // A viewing matrix would carry the offsets in the translation instead.
  const double* v = m;
  EXPECT_NE(v[3], 0.0);
  EXPECT_NE(v[7], 0.0);
  EXPECT_NE(v[11], 0.0);
}

TEST(Mat4x4Compound, OrientOfCoincidentPointsStillReturnsOne) {
  mat4x4 m;
  EXPECT_EQ(m.loadOrient(vec3d(1, 1, 1), vec3d(1, 1, 1), vec3d(0, 1, 0)), 1);
  expectMatrix(m, fromValues({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
}

// ---------------------------------------------------------------- align of triples

mat4x4 tripleAlignment(const vec3d& p0, const vec3d& p1, const vec3d& p2, const vec3d& q0,
                       const vec3d& q1, const vec3d& q2) {
  mat4x4 o1;
  o1.loadOrient(p0, p2, p1);
  o1.inv();
  mat4x4 o2;
  o2.loadOrient(q0, q2, q1);
  mat4x4 r;
  r.mul(o1, o2);
  return r;
}

TEST(Mat4x4Compound, TripleAlignPassesDifferencesToOrient) {
  const vec3d p0(1, 1, 0), p1(2, 1, 0.5), p2(1, 3, -1);
  const vec3d q0(-1, 0, 2), q1(0, 0.5, 2), q2(-2, 1, 3);
  mat4x4 m = filledWith(7.0);
  EXPECT_EQ(m.loadAlign(p0, p1, p2, q0, q1, q2), 1);
  expectMatrix(m, tripleAlignment(p0, p1 - p0, p2 - p0, q0, q1 - q0, q2 - q0));
  // Passing the points themselves would build other frames.
  EXPECT_FALSE(m.cmp(tripleAlignment(p0, p1, p2, q0, q1, q2), 1e-6));
}

TEST(Mat4x4Compound, TripleAlignOfEqualTriplesIsTheIdentity) {
  const vec3d p0(1, 1, 0), p1(2, 1, 0.5), p2(1, 3, -1);
  mat4x4 m;
  EXPECT_EQ(m.loadAlign(p0, p1, p2, p0, p1, p2), 1);
  expectMatrixNear(m, identityMatrix(), 1e-14);
}

TEST(Mat4x4Compound, TripleAlignOfDegenerateTriplesStillReturnsOne) {
  const vec3d z(0, 0, 0);
  mat4x4 m;
  EXPECT_EQ(m.loadAlign(z, z, z, z, z, z), 1);
}

// ---------------------------------------------------------------- exchange form

TEST(Mat4x4Compound, GetXformWritesThirteenValues) {
  const mat4x4 m = fromValues({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
  double out[14];
  out[13] = -99.0;
  m.getXform(out);
  const double expected[13] = {1, 2, 3, 5, 6, 7, 9, 10, 11, 13, 14, 15, 1.0};
  for (int i = 0; i < 13; ++i) {
    EXPECT_EQ(out[i], expected[i]) << "value " << i;
  }
  EXPECT_EQ(out[13], -99.0);
}

TEST(Mat4x4Compound, XformRoundTripResetsTheBottomRow) {
  const mat4x4 m = fromValues({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
  double values[13];
  m.getXform(values);
  mat4x4 back = filledWith(7.0);
  back.loadXform(values);
  expectMatrix(back, fromValues({1, 2, 3, 0, 5, 6, 7, 0, 9, 10, 11, 0, 13, 14, 15, 1}));
}

TEST(Mat4x4Compound, LoadXformScalesOnlyTheThreeByThreePart) {
  double values[13] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0.5};
  mat4x4 m = filledWith(7.0);
  m.loadXform(values);
  expectMatrix(m, fromValues({0.5, 1, 1.5, 0, 2, 2.5, 3, 0, 3.5, 4, 4.5, 0, 10, 11, 12, 1}));
}

}  // namespace
