// Where a routine has a two-lane SSE2 version beside its plain one, both are
// always compiled, and they must give the same values on every input: the
// values the other tests use, seeded random ones, special values, and the
// math fuzz corpus read as raw doubles.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

#include "math/mat4x4_inverse.h"
#include "math/mat4x4_product.h"
#include "math/mat4x4_transform.h"
#include "math/point_batch.h"
#include "math/quat_product.h"
#include "math/bit_compare.h"
#include "math/random_values.h"

namespace {

std::vector<double> specialValues() {
  using limits = std::numeric_limits<double>;
  return {0.0,
          -0.0,
          1.0,
          -1.0,
          0.5,
          3.0,
          1e-300,
          -1e300,
          limits::infinity(),
          -limits::infinity(),
          limits::quiet_NaN(),
          -limits::quiet_NaN(),
          limits::denorm_min(),
          -limits::denorm_min(),
          limits::min() / 4.0,
          limits::max(),
          limits::epsilon(),
          -2.5};
}

// Every input pool: seeded uniform values, small integers (equal magnitudes
// and exact sums), specials mixed with ordinary values, random bit patterns,
// and the bytes of the math fuzz corpus.
std::vector<double> inputPool() {
  std::vector<double> pool;
  mathtest::RandomValues random(20240611);
  std::vector<double> chunk(4096);
  random.fill(chunk.data(), static_cast<int>(chunk.size()), -10.0, 10.0);
  pool.insert(pool.end(), chunk.begin(), chunk.end());
  random.fillSmallInts(chunk.data(), static_cast<int>(chunk.size()), 3);
  pool.insert(pool.end(), chunk.begin(), chunk.end());

  const std::vector<double> specials = specialValues();
  std::mt19937& rng = random.engine();
  std::uniform_int_distribution<std::size_t> pick(0, specials.size() - 1);
  for (int i = 0; i < 4096; ++i) {
    pool.push_back(i % 3 == 0 ? random.uniform(-2.0, 2.0) : specials[pick(rng)]);
  }
  std::uniform_int_distribution<std::uint64_t> bits;
  for (int i = 0; i < 4096; ++i) {
    pool.push_back(mathtest::fromBits(bits(rng)));
  }

  const std::filesystem::path corpus =
      std::filesystem::path(__FILE__).parent_path() / ".." / ".." / "fuzz" / "corpus" / "math";
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(corpus, ec)) {
    std::ifstream in(entry.path(), std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
    for (std::size_t at = 0; at + sizeof(double) <= bytes.size(); at += sizeof(double)) {
      double d;
      std::memcpy(&d, bytes.data() + at, sizeof d);
      pool.push_back(d);
    }
  }
  return pool;
}

const std::vector<double>& pool() {
  static const std::vector<double> values = inputPool();
  return values;
}

::testing::AssertionResult sameBits(const double* a, const double* b, int n) {
  const int at = mathtest::firstBitDifferenceAnyNaN(a, b, n);
  if (at >= 0) {
    return ::testing::AssertionFailure() << "place " << at << ": " << a[at] << " vs " << b[at];
  }
  return ::testing::AssertionSuccess();
}

// Groups of n values starting at each offset, so that every value meets
// every place in turn.
template <class F>
void forEachGroup(int n, F f) {
  const std::vector<double>& p = pool();
  for (std::size_t at = 0; at + static_cast<std::size_t>(n) <= p.size(); at += 3) {
    f(p.data() + at, at);
  }
}

TEST(Sse2Paths, PoolHoldsTheFuzzCorpus) {
  // 4 x 4096 generated values; the corpus adds its own.
  EXPECT_GT(pool().size(), 4u * 4096u);
}

#if defined(LUMAGRID_INLINE_KERNELS)

TEST(Sse2Paths, MatrixProductGivesThePlainBits) {
  const std::vector<double>& p = pool();
  forEachGroup(32, [&](const double* in, std::size_t at) {
    double plain[16];
    double lanes[16];
    lumagrid::detail::matrixProductPlain(plain, in, in + 16);
    lumagrid::detail::matrixProductSse2(lanes, in, in + 16);
    ASSERT_TRUE(sameBits(plain, lanes, 16)) << "offset " << at;
  });
  // In place, on either operand.
  double a[16];
  double b[16];
  double c[16];
  std::memcpy(a, p.data(), sizeof a);
  std::memcpy(b, p.data() + 16, sizeof b);
  std::memcpy(c, a, sizeof c);
  lumagrid::detail::matrixProductPlain(a, a, b);
  lumagrid::detail::matrixProductSse2(c, c, b);
  EXPECT_TRUE(sameBits(a, c, 16));
}

TEST(Sse2Paths, InverseGivesThePlainBits) {
  // Success and every value, the partly eliminated ones of a failure too.
  int successes = 0;
  int failures = 0;
  const auto check = [&](const double* in, std::size_t at) {
    double plain[16];
    double lanes[16];
    std::memcpy(plain, in, sizeof plain);
    std::memcpy(lanes, in, sizeof lanes);
    const bool ok = lumagrid::detail::invertInPlacePlain(plain);
    ASSERT_EQ(lumagrid::detail::invertInPlaceSse2(lanes), ok) << "case " << at;
    ASSERT_TRUE(sameBits(plain, lanes, 16)) << "case " << at;
    ++(ok ? successes : failures);
  };
  forEachGroup(16, check);
  // Entries of a few magnitudes only: ties between pivots everywhere, and
  // failures at every step.
  mathtest::RandomValues random(7);
  for (int n = 0; n < 20000; ++n) {
    double e[16];
    random.fillSmallInts(e, 16, 1 + n % 3);
    check(e, static_cast<std::size_t>(n));
  }
  EXPECT_GT(successes, 10000);
  EXPECT_GT(failures, 1000);
}

TEST(Sse2Paths, PointTransformGivesThePlainBits) {
  forEachGroup(19, [&](const double* in, std::size_t at) {
    double plain[3] = {in[16], in[17], in[18]};
    double lanes[3] = {in[16], in[17], in[18]};
    lumagrid::detail::transformPointPlain(in, plain);
    lumagrid::detail::transformPointSse2(in, lanes, lanes);
    ASSERT_TRUE(sameBits(plain, lanes, 3)) << "offset " << at;
  });
}

TEST(Sse2Paths, PointTransformIntoAnotherPointGivesThePlainBits) {
  forEachGroup(19, [&](const double* in, std::size_t at) {
    double plain[3];
    double lanes[3];
    lumagrid::detail::transformPointPlain(in, in + 16, plain);
    lumagrid::detail::transformPointSse2(in, in + 16, lanes);
    ASSERT_TRUE(sameBits(plain, lanes, 3)) << "offset " << at;
  });
}

TEST(Sse2Paths, QuaternionProductGivesThePlainBits) {
  forEachGroup(8, [&](const double* in, std::size_t at) {
    const MQuat a(in[0], in[1], in[2], in[3]);
    const MQuat b(in[4], in[5], in[6], in[7]);
    const MQuat plain = lumagrid::detail::quatProductPlain(a, b);
    MQuat lanes;
    lumagrid::detail::quatProductSse2(&a.x, &b.x, &lanes.x);
    ASSERT_TRUE(sameBits(&plain.x, &lanes.x, 4)) << "offset " << at;
  });
}

#endif

TEST(Sse2Paths, PublicOperationsUseTheSharedRoutines) {
  // The library's own operators give what the plain routines give.
  forEachGroup(32, [&](const double* in, std::size_t at) {
    mat4x4 a;
    mat4x4 b;
    std::memcpy(static_cast<double*>(a), in, 16 * sizeof(double));
    std::memcpy(static_cast<double*>(b), in + 16, 16 * sizeof(double));
    const mat4x4 r = a * b;
    double plain[16];
    lumagrid::detail::matrixProductPlain(plain, in, in + 16);
    ASSERT_TRUE(sameBits(static_cast<const double*>(r), plain, 16)) << "offset " << at;

    vec3d v(in[16], in[17], in[18]);
    a.transform(v);
    double point[3] = {in[16], in[17], in[18]};
    lumagrid::detail::transformPointPlain(in, point);
    ASSERT_TRUE(sameBits(static_cast<const double*>(v), point, 3)) << "offset " << at;

    const MQuat q(in[0], in[1], in[2], in[3]);
    const MQuat s(in[4], in[5], in[6], in[7]);
    const MQuat qs = q * s;
    const MQuat expected = lumagrid::detail::quatProductPlain(q, s);
    ASSERT_TRUE(sameBits(&qs.x, &expected.x, 4)) << "offset " << at;

    mat4x4 inverse = a;
    double plainInverse[16];
    std::memcpy(plainInverse, in, sizeof plainInverse);
    ASSERT_EQ(inverse.inv(), lumagrid::detail::invertInPlacePlain(plainInverse)) << "offset " << at;
    ASSERT_TRUE(sameBits(static_cast<const double*>(inverse), plainInverse, 16)) << "offset " << at;
  });
}

// A matrix and kBatchPoints points from each group of the pool, moved by
// every batch kernel and by the public member: each must give, point by
// point, the bits of the single transform.
constexpr int kBatchPoints = 7;

TEST(Sse2Paths, EveryBatchKernelGivesTheSingleTransformBits) {
  ASSERT_TRUE(lumagrid::detail::haveAvxPointBatch() == lumagrid::detail::haveSse2PointBatch());
  if (lumagrid::detail::haveAvxPointBatch()) {
    // Fail rather than skip: a green run means the four-lane kernel ran.
    ASSERT_TRUE(lumagrid::detail::runsAvx()) << "this processor has no AVX";
  }
  using Kernel = void (*)(const double*, const vec3d*, vec3d*, std::size_t);
  const Kernel kernels[] = {lumagrid::detail::transformPointsPlain,
                            lumagrid::detail::transformPointsSse2,
                            lumagrid::detail::transformPointsAvx};
  forEachGroup(16 + 3 * kBatchPoints, [&](const double* in, std::size_t at) {
    mat4x4 m;
    std::memcpy(static_cast<double*>(m), in, 16 * sizeof(double));
    vec3d points[kBatchPoints];
    vec3d single[kBatchPoints];
    for (int i = 0; i < kBatchPoints; ++i) {
      points[i].set(in[16 + 3 * i], in[17 + 3 * i], in[18 + 3 * i]);
      single[i] = m * points[i];
    }
    for (const Kernel kernel : kernels) {
      vec3d out[kBatchPoints];
      kernel(m, points, out, kBatchPoints);
      for (int i = 0; i < kBatchPoints; ++i) {
        ASSERT_TRUE(sameBits(out[i], single[i], 3)) << "offset " << at << " point " << i;
      }
    }
    vec3d out[kBatchPoints];
    m.transform(points, out, kBatchPoints);
    for (int i = 0; i < kBatchPoints; ++i) {
      ASSERT_TRUE(sameBits(out[i], single[i], 3)) << "offset " << at << " point " << i;
    }
  });
}

}  // namespace
