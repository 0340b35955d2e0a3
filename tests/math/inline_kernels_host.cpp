// A host built to fuse every a * b + c it can (-O3 -march=native
// -ffp-contract=fast): the kernels inlined from the headers must still give
// the bits of the library's out-of-line ones, compiled with contraction off.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>

namespace {

constexpr int kRounds = 200000;

// Equal bits; NaNs are equal whatever their payload, which x86 takes from
// whichever operand comes first.
bool sameBits(double a, double b) {
  if (std::isnan(a) && std::isnan(b)) {
    return true;
  }
  std::uint64_t x = 0;
  std::uint64_t y = 0;
  std::memcpy(&x, &a, sizeof x);
  std::memcpy(&y, &b, sizeof y);
  return x == y;
}

// Values of every kind: mostly ordinary ones at varied scales, some with
// random exponents, and now and then zeros, infinities, denormals or NaN.
class Values {
 public:
  explicit Values(std::uint32_t seed) : rng_(seed) {}

  double next() {
    const int kind = static_cast<int>(rng_() % 64);
    if (kind < 40) {
      return std::uniform_real_distribution<double>(-1.0, 1.0)(rng_) *
             std::ldexp(1.0, static_cast<int>(rng_() % 41) - 20);
    }
    if (kind < 60) {
      return std::ldexp(std::uniform_real_distribution<double>(-1.0, 1.0)(rng_),
                        static_cast<int>(rng_() % 2001) - 1000);
    }
    static constexpr double kSpecial[] = {0.0,
                                          -0.0,
                                          std::numeric_limits<double>::infinity(),
                                          -std::numeric_limits<double>::infinity(),
                                          std::numeric_limits<double>::denorm_min(),
                                          -4.9e-320,
                                          std::numeric_limits<double>::quiet_NaN(),
                                          1.0};
    return kSpecial[rng_() % 8];
  }

 private:
  std::mt19937 rng_;
};

TEST(InlineKernels, ThisHostContracts) {
#if defined(__FMA__)
  // (1 + 2^-30)(1 - 2^-30) - 1 is -2^-60 fused and 0 rounded twice: a host
  // that fuses gives the former, so the checks below face real contraction.
  volatile double a = 1.0 + std::ldexp(1.0, -30);
  volatile double b = 1.0 - std::ldexp(1.0, -30);
  volatile double c = -1.0;
  const double x = a;
  const double y = b;
  const double z = c;
  EXPECT_EQ(x * y + z, -std::ldexp(1.0, -60));
#else
  GTEST_SKIP() << "no FMA on this target: nothing could be fused";
#endif
}

TEST(InlineKernels, PointTransformGivesTheLibraryBits) {
  Values values(20240601);
  for (int round = 0; round < kRounds; ++round) {
    mat4x4 m;
    for (int k = 0; k < 16; ++k) {
      static_cast<double*>(m)[k] = values.next();
    }
    const vec3d p(values.next(), values.next(), values.next());
    vec3d library(p);
    lumagrid::detail::transformPointCall(m, library);
    vec3d inPlace(p);
    m.transform(inPlace);
    const vec3d product = m * p;
    for (int i = 0; i < 3; ++i) {
      ASSERT_TRUE(sameBits(inPlace[i], library[i]))
          << "round " << round << " element " << i << ": " << inPlace[i] << " vs " << library[i];
      ASSERT_TRUE(sameBits(product[i], library[i]))
          << "round " << round << " element " << i << ": " << product[i] << " vs " << library[i];
    }
  }
}

TEST(InlineKernels, QuaternionProductGivesTheLibraryBits) {
  Values values(19700101);
  for (int round = 0; round < kRounds; ++round) {
    const MQuat a(values.next(), values.next(), values.next(), values.next());
    const MQuat b(values.next(), values.next(), values.next(), values.next());
    const MQuat library = lumagrid::detail::quatProductCall(a, b);
    const MQuat product = a * b;
    MQuat assigned(a);
    assigned *= b;
    MQuat mul;
    mul.mul(a, b);
    const MQuat* const results[] = {&product, &assigned, &mul};
    for (const MQuat* q : results) {
      ASSERT_TRUE(sameBits(q->x, library.x) && sameBits(q->y, library.y) &&
                  sameBits(q->z, library.z) && sameBits(q->w, library.w))
          << "round " << round << ": " << q->x << " " << q->y << " " << q->z << " " << q->w
          << " vs " << library.x << " " << library.y << " " << library.z << " " << library.w;
    }
  }
}

}  // namespace
