// The rotation matrix of a quaternion and slerp, held bit for bit to their
// plain forms written out here: the library's versions are tuned for speed
// and must not move a single rounding.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <cmath>

#include "math/bit_compare.h"
#include "math/any_quat.h"
#include "math/random_values.h"

namespace {

using mathtest::anyQuat;

constexpr int kRounds = 100000;

// 2/n normalises a non-unit quaternion; n below 1e-10 keeps the scale 2/1.
mat4x4 plainRotation(const MQuat& q) {
  const double n = q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w;
  const double s = std::fabs(n) < 1e-10 ? 1.0 : 2.0 / n;
  const double xs = q.x * s;
  const double ys = q.y * s;
  const double zs = q.z * s;
  const double xx = q.x * xs;
  const double yy = q.y * ys;
  const double zz = q.z * zs;
  const double xy = q.x * ys;
  const double xz = q.x * zs;
  const double yz = q.y * zs;
  const double wx = q.w * xs;
  const double wy = q.w * ys;
  const double wz = q.w * zs;
  const double e[16] = {1.0 - (zz + yy),
                        xy + wz,
                        xz - wy,
                        0.0,
                        xy - wz,
                        1.0 - (zz + xx),
                        yz + wx,
                        0.0,
                        xz + wy,
                        yz - wx,
                        1.0 - (yy + xx),
                        0.0,
                        0.0,
                        0.0,
                        0.0,
                        1.0};
  mat4x4 m;
  for (int k = 0; k < 16; ++k) {
    static_cast<double*>(m)[k] = e[k];
  }
  return m;
}

MQuat plainSlerp(const MQuat& a, const MQuat& b, double t) {
  double cs = a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w;
  if (cs + 1.0 > 1e-10) {
    if (std::fabs(cs) > 1.0) {
      cs = cs / std::fabs(cs);
    }
    const double theta = std::acos(cs);
    const double s = std::sin(theta);
    double k0 = 1.0 - t;
    double k1 = t;
    if (std::fabs(s) > 1e-10) {
      k0 = std::sin((1.0 - t) * theta) / s;
      k1 = std::sin(t * theta) / s;
    }
    return MQuat(k0 * a.x + k1 * b.x, k0 * a.y + k1 * b.y, k0 * a.z + k1 * b.z,
                 k0 * a.w + k1 * b.w);
  }
  const double h = 1.5707963267948966;
  const double k0 = std::sin((1.0 - t) * h);
  const double k1 = std::sin(t * h);
  return MQuat(k0 * a.x + k1 * -a.y, k0 * a.y + k1 * a.x, k0 * a.z + k1 * -a.w,
               k0 * a.w + k1 * a.z);
}

::testing::AssertionResult sameBits(const double* a, const double* b, int n) {
  const int at = mathtest::firstBitDifferenceAnyNaN(a, b, n);
  if (at >= 0) {
    return ::testing::AssertionFailure() << "place " << at << ": " << a[at] << " vs " << b[at];
  }
  return ::testing::AssertionSuccess();
}

TEST(RotationKernels, RotationMatrixGivesThePlainBits) {
  mathtest::RandomValues values(4242);
  for (int round = 0; round < kRounds; ++round) {
    const MQuat q = anyQuat(values);
    mat4x4 m;
    m.loadRotate(q);
    const mat4x4 expected = plainRotation(q);
    ASSERT_TRUE(sameBits(m, expected, 16)) << "round " << round;
  }
}

TEST(RotationKernels, SlerpGivesThePlainBits) {
  mathtest::RandomValues values(2424);
  for (int round = 0; round < kRounds; ++round) {
    MQuat a = anyQuat(values);
    MQuat b = round % 7 == 0 ? MQuat(-a.x, -a.y, -a.z, -a.w) : anyQuat(values);
    if (round % 3 == 0) {
      // Unit quaternions, the case slerp is for.
      a.normalize();
      b.normalize();
    }
    const double t = round % 5 == 0 ? values.anyKind() : values.uniform(0.0, 1.0);
    const MQuat expected = plainSlerp(a, b, t);
    MQuat r;
    r.slerp(a, b, t);
    ASSERT_TRUE(sameBits(&r.x, &expected.x, 4)) << "round " << round;
    // Into either operand.
    MQuat intoA = a;
    intoA.slerp(intoA, b, t);
    ASSERT_TRUE(sameBits(&intoA.x, &expected.x, 4)) << "round " << round;
    MQuat intoB = b;
    intoB.slerp(a, intoB, t);
    ASSERT_TRUE(sameBits(&intoB.x, &expected.x, 4)) << "round " << round;
  }
}

}  // namespace
