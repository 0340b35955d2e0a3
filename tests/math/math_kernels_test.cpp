// The kernels of <lumagrid/math_kernels.h> and their out-of-line copies on bad input: every
// non-finite or extreme value in every place gives the plain routine's bits (IEEE arithmetic,
// no trap, no special case), and an operand may be the result.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "math/bit_compare.h"
#include "math/mat4x4_transform.h"
#include "math/quat_product.h"

namespace {

using limits = std::numeric_limits<double>;

constexpr std::array<double, 8> kBadValues{limits::quiet_NaN(),
                                           -limits::quiet_NaN(),
                                           limits::infinity(),
                                           -limits::infinity(),
                                           limits::max(),
                                           limits::denorm_min(),
                                           -0.0,
                                           0.0};

// An ordinary value for every place but one.
double ordinary(int place) {
  return 0.25 + 0.5 * place;
}

bool sameBitsAnyNaN(const double* a, const double* b, int n) {
  return mathtest::firstBitDifferenceAnyNaN(a, b, n) < 0;
}

TEST(MathKernels, PointTransformOfABadValueInAnyPlaceGivesThePlainBits) {
  for (double bad : kBadValues) {
    for (int place = 0; place < 19; ++place) {
      std::array<double, 19> in{};
      for (int k = 0; k < 19; ++k) {
        in[k] = k == place ? bad : ordinary(k);
      }
      double plain[3] = {in[16], in[17], in[18]};
      lumagrid::detail::transformPointPlain(in.data(), plain);

      double call[3] = {in[16], in[17], in[18]};
      lumagrid::detail::transformPointCall(in.data(), call);
      EXPECT_TRUE(sameBitsAnyNaN(plain, call, 3)) << "value " << bad << " at " << place;

      mat4x4 m;
      for (int k = 0; k < 16; ++k) {
        static_cast<double*>(m)[k] = in[k];
      }
      vec3d v(in[16], in[17], in[18]);
      m.transform(v);  // the inline kernel where there is one
      EXPECT_TRUE(sameBitsAnyNaN(plain, static_cast<const double*>(v), 3))
          << "value " << bad << " at " << place;
    }
  }
}

TEST(MathKernels, NaNInTheBottomRowLeavesThePoint) {
  // The bottom row is computed beside the others and dropped: a NaN there
  // reaches nothing.
  mat4x4 m;
  m.identity();
  static_cast<double*>(m)[3] = limits::quiet_NaN();  // row 3 of column 0: dropped
  vec3d v(1.0, 2.0, 3.0);
  m.transform(v);
  EXPECT_EQ(v.x(), 1.0);
  EXPECT_EQ(v.y(), 2.0);
  EXPECT_EQ(v.z(), 3.0);
}

TEST(MathKernels, QuaternionProductOfABadValueInAnyPlaceGivesThePlainBits) {
  for (double bad : kBadValues) {
    for (int place = 0; place < 8; ++place) {
      std::array<double, 8> in{};
      for (int k = 0; k < 8; ++k) {
        in[k] = k == place ? bad : ordinary(k);
      }
      const MQuat a(in[0], in[1], in[2], in[3]);
      const MQuat b(in[4], in[5], in[6], in[7]);
      const MQuat plain = lumagrid::detail::quatProductPlain(a, b);
      const MQuat call = lumagrid::detail::quatProductCall(a, b);
      const MQuat inlined = a * b;
      EXPECT_TRUE(sameBitsAnyNaN(&plain.x, &call.x, 4)) << "value " << bad << " at " << place;
      EXPECT_TRUE(sameBitsAnyNaN(&plain.x, &inlined.x, 4)) << "value " << bad << " at " << place;
    }
  }
}

TEST(MathKernels, QuaternionProductMayOverwriteEitherOperand) {
  const MQuat a(0.5, -1.25, 2.0, 0.75);
  const MQuat b(-0.3, 0.6, 1.5, -2.0);
  const MQuat expected = lumagrid::detail::quatProductPlain(a, b);

  MQuat left = a;
  left *= b;  // the result written over the left operand
  EXPECT_TRUE(mathtest::sameBits(&expected.x, &left.x, 4));

  MQuat right = b;
  right.mul(a, right);  // and over the right one
  EXPECT_TRUE(mathtest::sameBits(&expected.x, &right.x, 4));

#if defined(LUMAGRID_INLINE_KERNELS)
  double r[4] = {a.x, a.y, a.z, a.w};
  lumagrid::detail::quatProductSse2(r, &b.x, r);
  EXPECT_TRUE(mathtest::sameBits(&expected.x, r, 4));
  double s[4] = {b.x, b.y, b.z, b.w};
  lumagrid::detail::quatProductSse2(&a.x, s, s);
  EXPECT_TRUE(mathtest::sameBits(&expected.x, s, 4));
#endif
}

}  // namespace
