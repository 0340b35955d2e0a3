// Cross-checks of the matrix algebra against Eigen, which reads the same
// column-major storage through Eigen::Map<Eigen::Matrix4d>.

#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <Eigen/Dense>

#include <cmath>
#include <random>

#include "math/random_values.h"

namespace {

using MapM = Eigen::Map<Eigen::Matrix4d>;
using MapCM = Eigen::Map<const Eigen::Matrix4d>;

MapCM view(const mat4x4& m) {
  return MapCM(static_cast<const double*>(m));
}

// Random, with a dominant diagonal so that the condition number stays small.
mat4x4 wellConditioned(mathtest::RandomValues& rng) {
  mat4x4 m = rng.matrix();
  std::uniform_int_distribution<int> sign(0, 1);
  for (int i = 0; i < 4; ++i) {
    m[i][i] += sign(rng.engine()) ? 4.0 : -4.0;
  }
  return m;
}

double maxAbsDiff(const Eigen::Matrix4d& a, const Eigen::Matrix4d& b) {
  return (a - b).cwiseAbs().maxCoeff();
}

constexpr int kCases = 1000;

TEST(Mat4x4Eigen, ProductMatchesEigen) {
  mathtest::RandomValues rng(101);
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 a = rng.matrix(-10.0, 10.0);
    const mat4x4 b = rng.matrix(-10.0, 10.0);
    const Eigen::Matrix4d expected = view(a) * view(b);
    ASSERT_LT(maxAbsDiff(view(a * b), expected), 1e-12) << "case " << n;
  }
}

TEST(Mat4x4Eigen, DetMatchesEigen) {
  mathtest::RandomValues rng(202);
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 m = rng.matrix(-3.0, 3.0);
    const double expected = view(m).determinant();
    ASSERT_NEAR(m.det(), expected, 1e-12 * (1.0 + std::fabs(expected))) << "case " << n;
  }
}

TEST(Mat4x4Eigen, TransposedDetIsTheSame) {
  mathtest::RandomValues rng(203);
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 m = rng.matrix(-3.0, 3.0);
    mat4x4 t = m;
    t.transpose();
    ASSERT_NEAR(t.det(), m.det(), 1e-12) << "case " << n;
  }
}

TEST(Mat4x4Eigen, AdjugateTimesMatrixIsDetTimesIdentity) {
  mathtest::RandomValues rng(303);
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 m = rng.matrix(-3.0, 3.0);
    mat4x4 a = m;
    a.adjoint();
    const double d = m.det();
    const Eigen::Matrix4d expected = d * Eigen::Matrix4d::Identity();
    ASSERT_LT(maxAbsDiff(view(a) * view(m), expected), 1e-10) << "case " << n;
    ASSERT_LT(maxAbsDiff(view(m) * view(a), expected), 1e-10) << "case " << n;
  }
}

TEST(Mat4x4Eigen, AdjugateOfWellConditionedIsDetTimesEigensInverse) {
  mathtest::RandomValues rng(304);
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 m = wellConditioned(rng);
    mat4x4 a = m;
    a.adjoint();
    const Eigen::Matrix4d expected = m.det() * view(m).inverse();
    ASSERT_LT(maxAbsDiff(view(a), expected), 1e-10 * expected.cwiseAbs().maxCoeff())
        << "case " << n;
  }
}

TEST(Mat4x4Eigen, InverseMatchesEigen) {
  mathtest::RandomValues rng(404);
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 m = wellConditioned(rng);
    mat4x4 inv = m;
    ASSERT_TRUE(inv.inv()) << "case " << n;
    const Eigen::Matrix4d expected = view(m).inverse();
    ASSERT_LT(maxAbsDiff(view(inv), expected), 1e-13) << "case " << n;
  }
}

TEST(Mat4x4Eigen, InverseOfGeneralRandomMatricesMatchesEigen) {
  mathtest::RandomValues rng(405);
  int inverted = 0;
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 m = rng.matrix(-2.0, 2.0);
    const Eigen::Matrix4d em = view(m);
    Eigen::JacobiSVD<Eigen::Matrix4d> svd(em);
    const double cond = svd.singularValues()(0) / svd.singularValues()(3);
    if (cond > 1e4) {
      continue;
    }
    mat4x4 inv = m;
    ASSERT_TRUE(inv.inv()) << "case " << n;
    const Eigen::Matrix4d expected = em.inverse();
    ASSERT_LT(maxAbsDiff(view(inv), expected), 1e-15 * cond * expected.cwiseAbs().maxCoeff() * 16)
        << "case " << n;
    ++inverted;
  }
  EXPECT_GT(inverted, kCases / 2);
}

TEST(Mat4x4Eigen, InverseTimesMatrixIsIdentity) {
  mathtest::RandomValues rng(406);
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 m = wellConditioned(rng);
    mat4x4 inv = m;
    ASSERT_TRUE(inv.inv());
    mat4x4 id;
    id.identity();
    ASSERT_TRUE((inv * m).cmp(id, 1e-14)) << "case " << n;
    ASSERT_TRUE((m * inv).cmp(id, 1e-14)) << "case " << n;
  }
}

TEST(Mat4x4Eigen, PointTransformMatchesEigen) {
  mathtest::RandomValues rng(505);
  for (int n = 0; n < kCases; ++n) {
    mat4x4 m = rng.matrix(-2.0, 2.0);
    // An affine bottom row, as the transform treats it.
    m[0][3] = m[1][3] = m[2][3] = 0.0;
    m[3][3] = 1.0;
    vec3d v = rng.vector(-100.0, 100.0);
    const Eigen::Vector4d expected = view(m) * Eigen::Vector4d(v.x(), v.y(), v.z(), 1.0);
    const vec3d r = m * v;
    m.transform(v);
    for (int k = 0; k < 3; ++k) {
      ASSERT_NEAR(v[k], expected[k], 1e-12) << "case " << n;
      ASSERT_EQ(r[k], v[k]) << "case " << n;
    }
  }
}

TEST(Mat4x4Eigen, Vec4dTransformMatchesEigen) {
  mathtest::RandomValues rng(506);
  for (int n = 0; n < kCases; ++n) {
    const mat4x4 m = rng.matrix(-2.0, 2.0);
    vec4d v(rng.vector(-10.0, 10.0));
    v.w() = rng.uniform(-10.0, 10.0);
    const Eigen::Vector4d expected = view(m) * Eigen::Vector4d(v.x(), v.y(), v.z(), v.w());
    const vec4d shortcut = m * v;
    m.transform(v);
    for (int k = 0; k < 4; ++k) {
      ASSERT_NEAR(v[k], expected[k], 1e-12) << "case " << n;
    }
    ASSERT_NEAR(shortcut.z(), expected[2], 1e-12);
    ASSERT_EQ(shortcut.w(), shortcut.z());
  }
}

TEST(Mat4x4Eigen, AxisTransformsMatchEigensProducts) {
  mathtest::RandomValues rng(607);
  for (int n = 0; n < 200; ++n) {
    const mat4x4 m = rng.matrix(-2.0, 2.0);
    const double a = rng.uniform(-3.0, 3.0);
    mat4x4 r;
    r.loadRotateX(a);
    mat4x4 x = m;
    x.rotateX(a);
    ASSERT_LT(maxAbsDiff(view(x), view(m) * view(r)), 1e-14);
    r.loadRotateY(a);
    mat4x4 y = m;
    y.rotateY(a);
    ASSERT_LT(maxAbsDiff(view(y), view(m) * view(r)), 1e-14);
    r.loadRotateZ(a);
    mat4x4 z = m;
    z.rotateZ(a);
    ASSERT_LT(maxAbsDiff(view(z), view(m) * view(r)), 1e-14);
    mat4x4 affine = m;
    affine[0][3] = affine[1][3] = affine[2][3] = 0.0;
    mat4x4 t;
    t.loadTranslate(0.5, -1.5, 2.0);
    mat4x4 tr = affine;
    tr.translate(0.5, -1.5, 2.0);
    ASSERT_LT(maxAbsDiff(view(tr), view(affine) * view(t)), 1e-14);
    mat4x4 s;
    s.loadScale(2.0, -0.5, 3.0);
    mat4x4 sc = m;
    sc.scale(2.0, -0.5, 3.0);
    ASSERT_LT(maxAbsDiff(view(sc), view(m) * view(s)), 1e-14);
  }
}

}  // namespace
