// mat4x4::transform(in, out, n): hand-worked values, Eigen, aliasing, and
// the inputs that must do nothing.

#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <Eigen/Dense>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "math/bit_compare.h"
#include "math/random_values.h"

namespace {

using mathtest::sameBitsAll;

// Scale by 2 on every axis, then move by (1, 2, 3); the bottom row is set
// to values transform() must not read.
mat4x4 scaleThenMove() {
  const double e[16] = {2, 0, 0, 7, 0, 2, 0, 7, 0, 0, 2, 7, 1, 2, 3, 7};
  mat4x4 m;
  std::memcpy(static_cast<double*>(m), e, sizeof e);
  return m;
}

TEST(PointBatch, MovesEachPointByHand) {
  const vec3d in[3] = {vec3d(1, 1, 1), vec3d(0, 0, 0), vec3d(-1, 0.5, 4)};
  vec3d out[3];
  scaleThenMove().transform(in, out, 3);
  EXPECT_TRUE(sameBitsAll(out[0], vec3d(3, 4, 5)));
  EXPECT_TRUE(sameBitsAll(out[1], vec3d(1, 2, 3)));
  EXPECT_TRUE(sameBitsAll(out[2], vec3d(-1, 3, 11)));
}

TEST(PointBatch, AgreesWithEigen) {
  mathtest::RandomValues rng(1123);
  for (int round = 0; round < 200; ++round) {
    double e[16];
    rng.fill(e, 16, -3.0, 3.0);
    mat4x4 m;
    std::memcpy(static_cast<double*>(m), e, sizeof e);
    const Eigen::Map<const Eigen::Matrix4d> em(e);
    std::vector<vec3d> in(17);
    for (vec3d& p : in) {
      double v[3];
      rng.fill(v, 3, -10.0, 10.0);
      p.set(v[0], v[1], v[2]);
    }
    std::vector<vec3d> out(in.size());
    m.transform(in.data(), out.data(), in.size());
    for (std::size_t i = 0; i < in.size(); ++i) {
      const Eigen::Vector3d p(in[i].x(), in[i].y(), in[i].z());
      const Eigen::Vector3d expected = em.topLeftCorner<3, 3>() * p + em.col(3).head<3>();
      for (int k = 0; k < 3; ++k) {
        EXPECT_NEAR(out[i][k], expected[k], 1e-12) << "round " << round << " point " << i;
      }
    }
  }
}

TEST(PointBatch, InPlaceGivesTheSingleTransform) {
  const mat4x4 m = scaleThenMove();
  std::vector<vec3d> points = {vec3d(1, 1, 1), vec3d(2, -3, 0.25), vec3d(5, 6, 7)};
  std::vector<vec3d> expected = points;
  for (vec3d& p : expected) {
    m.transform(p);
  }
  m.transform(points.data(), points.data(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_TRUE(sameBitsAll(points[i], expected[i])) << "point " << i;
  }
}

// Any overlap gives what single transforms, point after point, would give.
TEST(PointBatch, OverlapGivesTheSingleTransformsInOrder) {
  const mat4x4 m = scaleThenMove();
  for (int shift : {-2, -1, 1, 2}) {
    std::vector<vec3d> batch(8);
    for (std::size_t i = 0; i < batch.size(); ++i) {
      batch[i].set(double(i), 1.0 - double(i), 0.5 * double(i));
    }
    std::vector<vec3d> single = batch;
    const std::size_t from = shift < 0 ? 2 : 0;
    const std::size_t n = 5;
    for (std::size_t i = 0; i < n; ++i) {
      single[from + shift + i] = m * single[from + i];
    }
    m.transform(batch.data() + from, batch.data() + from + shift, n);
    for (std::size_t i = 0; i < batch.size(); ++i) {
      EXPECT_TRUE(sameBitsAll(batch[i], single[i])) << "shift " << shift << " point " << i;
    }
  }
}

TEST(PointBatch, NothingToMoveLeavesOutAlone) {
  const mat4x4 m = scaleThenMove();
  const vec3d in[1] = {vec3d(1, 1, 1)};
  vec3d out[1] = {vec3d(9, 9, 9)};
  m.transform(in, out, 0);
  EXPECT_TRUE(sameBitsAll(out[0], vec3d(9, 9, 9)));
  m.transform(nullptr, out, 1);
  EXPECT_TRUE(sameBitsAll(out[0], vec3d(9, 9, 9)));
  m.transform(in, nullptr, 1);
  m.transform(nullptr, nullptr, std::numeric_limits<std::size_t>::max());
}

TEST(PointBatch, NaNAndInfinityPassAsTheSingleTransformPassesThem) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const mat4x4 m = scaleThenMove();
  const vec3d in[3] = {vec3d(nan, 0, 0), vec3d(inf, 1, 1), vec3d(0, 0, inf)};
  vec3d out[3];
  m.transform(in, out, 3);
  for (int i = 0; i < 3; ++i) {
    const vec3d single = m * in[i];
    for (int k = 0; k < 3; ++k) {
      EXPECT_TRUE(mathtest::sameBitsAnyNaN(out[i][k], single[k])) << i << " " << k;
    }
  }
  // Row 0: inf * 2 + 1 * 0 + 1 * 0 + 1 is inf; rows 1 and 2 meet inf * 0.
  EXPECT_EQ(out[1].x(), inf);
  EXPECT_TRUE(std::isnan(out[1].y()));
  EXPECT_TRUE(std::isnan(out[1].z()));
}

}  // namespace
