// A host built to fuse every a * b + c it can (-O3 -mfma -ffp-contract=fast):
// the kernels inlined from the headers must still give the bits of the
// library's out-of-line ones, compiled with contraction off.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <cmath>

#include "math/bit_compare.h"
#include "math/any_quat.h"
#include "math/random_values.h"

#if !defined(__FMA__)
#error "built without -mfma: nothing here could be fused"
#endif
#if !defined(LUMAGRID_INLINE_KERNELS)
#error "no inline kernels in this host: there would be nothing to compare"
#endif

namespace {

using mathtest::anyQuat;

using mathtest::sameBitsAnyNaN;

constexpr int kRounds = 200000;

// Code built with -mfma cannot run without FMA: say so as a failure, not a
// skip, so that a green run always means the kernels were compared.
::testing::AssertionResult cpuRunsFma() {
  if (__builtin_cpu_supports("fma")) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "this CPU has no FMA: the kernels cannot be checked here";
}

TEST(InlineKernels, ThisHostContracts) {
  ASSERT_TRUE(cpuRunsFma());
  // (1 + 2^-30)(1 - 2^-30) - 1 is -2^-60 fused and 0 rounded twice: a host
  // that fuses gives the former, so the checks below face real contraction.
  volatile double a = 1.0 + std::ldexp(1.0, -30);
  volatile double b = 1.0 - std::ldexp(1.0, -30);
  volatile double c = -1.0;
  const double x = a;
  const double y = b;
  const double z = c;
  EXPECT_EQ(x * y + z, -std::ldexp(1.0, -60));
}

TEST(InlineKernels, PointTransformGivesTheLibraryBits) {
  ASSERT_TRUE(cpuRunsFma());
  mathtest::RandomValues values(20240601);
  for (int round = 0; round < kRounds; ++round) {
    mat4x4 m;
    for (int k = 0; k < 16; ++k) {
      static_cast<double*>(m)[k] = values.anyKind();
    }
    const double px = values.anyKind();
    const double py = values.anyKind();
    const double pz = values.anyKind();
    const vec3d p(px, py, pz);
    vec3d library(p);
    lumagrid::detail::transformPointCall(m, library);
    vec3d inPlace(p);
    m.transform(inPlace);
    const vec3d product = m * p;
    for (int i = 0; i < 3; ++i) {
      ASSERT_TRUE(sameBitsAnyNaN(inPlace[i], library[i]))
          << "round " << round << " element " << i << ": " << inPlace[i] << " vs " << library[i];
      ASSERT_TRUE(sameBitsAnyNaN(product[i], library[i]))
          << "round " << round << " element " << i << ": " << product[i] << " vs " << library[i];
    }
  }
}

TEST(InlineKernels, BatchTransformGivesTheInlineBits) {
  ASSERT_TRUE(cpuRunsFma());
  mathtest::RandomValues values(20261123);
  constexpr int kPoints = 9;
  for (int round = 0; round < kRounds / kPoints; ++round) {
    mat4x4 m;
    for (int k = 0; k < 16; ++k) {
      static_cast<double*>(m)[k] = values.anyKind();
    }
    vec3d points[kPoints];
    for (vec3d& p : points) {
      const double x = values.anyKind();
      const double y = values.anyKind();
      const double z = values.anyKind();
      p.set(x, y, z);
    }
    vec3d moved[kPoints];
    m.transform(points, moved, kPoints);
    for (int i = 0; i < kPoints; ++i) {
      const vec3d inline_ = m * points[i];
      for (int k = 0; k < 3; ++k) {
        ASSERT_TRUE(sameBitsAnyNaN(moved[i][k], inline_[k]))
            << "round " << round << " point " << i << " element " << k << ": " << moved[i][k]
            << " vs " << inline_[k];
      }
    }
  }
}

TEST(InlineKernels, QuaternionProductGivesTheLibraryBits) {
  ASSERT_TRUE(cpuRunsFma());
  mathtest::RandomValues values(19700101);
  for (int round = 0; round < kRounds; ++round) {
    const MQuat a = anyQuat(values);
    const MQuat b = anyQuat(values);
    const MQuat library = lumagrid::detail::quatProductCall(a, b);
    const MQuat product = a * b;
    MQuat assigned(a);
    assigned *= b;
    MQuat mul;
    mul.mul(a, b);
    const MQuat* const results[] = {&product, &assigned, &mul};
    for (const MQuat* q : results) {
      ASSERT_EQ(mathtest::firstBitDifferenceAnyNaN(&q->x, &library.x, 4), -1)
          << "round " << round << ": " << q->x << " " << q->y << " " << q->z << " " << q->w
          << " vs " << library.x << " " << library.y << " " << library.z << " " << library.w;
    }
  }
}

}  // namespace
