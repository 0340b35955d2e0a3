#include <lumagrid/MRot.h>
#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <type_traits>

namespace {

static_assert(sizeof(MRot) == 4 * sizeof(double), "MRot is four doubles");
static_assert(std::is_standard_layout<MRot>::value, "MRot is standard-layout");
static_assert(std::is_trivially_copyable<MRot>::value, "MRot is trivially copyable");
static_assert(offsetof(MRot, axis) == 0 && offsetof(MRot, angle) == 3 * sizeof(double),
              "MRot holds the axis, then the angle");

constexpr double kPi = 3.141592653589793;

void expectRot(const MRot& r, double x, double y, double z, double angle) {
  EXPECT_EQ(r.axis.x(), x);
  EXPECT_EQ(r.axis.y(), y);
  EXPECT_EQ(r.axis.z(), z);
  EXPECT_EQ(r.angle, angle);
}

TEST(MRot, DefaultIsNoTurnAboutX) {
  expectRot(MRot(), 1, 0, 0, 0);
}

TEST(MRot, AxisAndAngleAreStored) {
  expectRot(MRot(vec3d(1, 2, 3), 0.5), 1, 2, 3, 0.5);
  MRot r;
  r.set(vec3d(-1, 0, 2), -1.5);
  expectRot(r, -1, 0, 2, -1.5);
}

TEST(MRot, CopyKeepsAllFourValues) {
  const MRot a(vec3d(1, 2, 3), 4);
  MRot b = a;
  expectRot(b, 1, 2, 3, 4);
  MRot c;
  c = a;
  expectRot(c, 1, 2, 3, 4);
}

TEST(MRot, AxisAndAngleAreFourContiguousDoubles) {
  const MRot r(vec3d(1, 2, 3), 4);
  double d[4];
  std::memcpy(d, &r, sizeof d);
  EXPECT_EQ(d[0], 1.0);
  EXPECT_EQ(d[1], 2.0);
  EXPECT_EQ(d[2], 3.0);
  EXPECT_EQ(d[3], 4.0);
}

TEST(MRot, FromQuaternionDoublesTheNegatedHalfAngle) {
  const MQuat q(0, 0, -std::sin(kPi / 6), std::cos(kPi / 6));
  const MRot r(q);
  const double t = std::acos(q.w);
  expectRot(r, 0, 0, q.z / std::sin(t), t * (-2.0));
  // A conventional conversion would give +pi/3 about (0, 0, -1).
  EXPECT_NEAR(r.angle, -kPi / 3, 1e-15);
  EXPECT_NEAR(r.axis.z(), -1.0, 1e-15);
}

TEST(MRot, HalfTurnAboutZComesBackNegated) {
  const MRot r(MQuat(vec3d(0, 0, 1), kPi));
  EXPECT_EQ(r.axis.x(), 0.0);
  EXPECT_EQ(r.axis.y(), 0.0);
  EXPECT_EQ(r.axis.z(), -1.0);
  EXPECT_NEAR(r.angle, -kPi, 1e-15);
}

TEST(MRot, RoundTripNegatesAxisAndAngle) {
  const MRot r(vec3d(0.6, 0, 0.8), 0.5);
  const MRot back(static_cast<MQuat>(r));
  EXPECT_TRUE(back.cmp(MRot(vec3d(-0.6, 0, -0.8), -0.5), 1e-14));
  EXPECT_FALSE(back == r);

  // It is still the same rotation.
  mat4x4 a;
  a.loadRotate(r);
  mat4x4 b;
  b.loadRotate(back);
  EXPECT_TRUE(a.cmp(b, 1e-14));
}

TEST(MRot, IdentityQuaternionLeavesTheAxisCleared) {
  const MRot r{MQuat()};
  // The default axis (1, 0, 0) is not used here.
  expectRot(r, 0, 0, 0, 0);
  EXPECT_TRUE(std::signbit(r.angle));
}

TEST(MRot, TinySineLeavesTheAxisCleared) {
  // sin(acos(-1)) is about 1.2e-16, not zero, but below the 1e-10 threshold.
  const MRot r{MQuat(0.5, 0, 0, -1)};
  expectRot(r, 0, 0, 0, std::acos(-1.0) * (-2.0));
}

TEST(MRot, ScalarPartBeyondOneIsNotClamped) {
  const MRot r{MQuat(0, 0, 0, 1.0000001)};
  EXPECT_TRUE(std::isnan(r.angle));
  // sin of a NaN fails the axis test, so the axis stays cleared.
  EXPECT_EQ(r.axis.x(), 0.0);
  EXPECT_EQ(r.axis.y(), 0.0);
  EXPECT_EQ(r.axis.z(), 0.0);
}

TEST(MRot, ConvertsToTheAxisAngleQuaternion) {
  const MRot r(vec3d(0, 3, 4), 1.0);
  const MQuat q = r;
  const MQuat expected(vec3d(0, 3, 4), 1.0);
  EXPECT_EQ(q.x, expected.x);
  EXPECT_EQ(q.y, expected.y);
  EXPECT_EQ(q.z, expected.z);
  EXPECT_EQ(q.w, expected.w);
}

TEST(MRot, EqualityIsAStrictToleranceTest) {
  const MRot a(vec3d(0, 0, 0), 0);
  EXPECT_TRUE(a == MRot(vec3d(5e-11, 0, 0), 0));
  EXPECT_FALSE(a == MRot(vec3d(0, 0, 0), 1e-10));
  EXPECT_TRUE(a != MRot(vec3d(0, 1e-10, 0), 0));
  EXPECT_FALSE(a != MRot(vec3d(0, 0, -5e-11), 5e-11));
}

TEST(MRot, CmpTestsEveryComponent) {
  const MRot a(vec3d(1, 2, 3), 4);
  EXPECT_TRUE(a.cmp(MRot(vec3d(1.05, 1.95, 3.05), 3.95), 0.1));
  EXPECT_FALSE(a.cmp(MRot(vec3d(1.2, 2, 3), 4), 0.1));
  EXPECT_FALSE(a.cmp(MRot(vec3d(1, 2.2, 3), 4), 0.1));
  EXPECT_FALSE(a.cmp(MRot(vec3d(1, 2, 3.2), 4), 0.1));
  EXPECT_FALSE(a.cmp(MRot(vec3d(1, 2, 3), 4.2), 0.1));
}

TEST(MRot, NanNeverCompares) {
  const MRot a(vec3d(0, 0, 1), std::nan(""));
  EXPECT_FALSE(a == a);
  EXPECT_TRUE(a != a);
}

}  // namespace
