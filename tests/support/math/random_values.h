#ifndef LUMAGRID_TESTS_SUPPORT_MATH_RANDOM_VALUES_H
#define LUMAGRID_TESTS_SUPPORT_MATH_RANDOM_VALUES_H

// Seeded random inputs for the math tests, fuzzers and benchmarks: the same
// values on every run.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace mathtest {

class RandomValues {
 public:
  explicit RandomValues(std::uint32_t seed) : rng_(seed) {}

  // In [lo, hi).
  double uniform(double lo, double hi) {
    return std::uniform_real_distribution<double>(lo, hi)(rng_);
  }

  // A whole number in [-range, range]: plenty of equal magnitudes, zeros
  // and exact arithmetic.
  double smallInt(int range) { return std::uniform_int_distribution<int>(-range, range)(rng_); }

  // Values of every kind: mostly ordinary ones at varied scales, some with
  // random exponents, and now and then zeros, infinities, denormals or NaN.
  double anyKind() {
    const int kind = static_cast<int>(rng_() % 64);
    if (kind < 40) {
      return uniform(-1.0, 1.0) * std::ldexp(1.0, static_cast<int>(rng_() % 41) - 20);
    }
    if (kind < 60) {
      return std::ldexp(uniform(-1.0, 1.0), static_cast<int>(rng_() % 2001) - 1000);
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

  void fill(double* e, int n, double lo = -1.0, double hi = 1.0) {
    for (int i = 0; i < n; ++i) {
      e[i] = uniform(lo, hi);
    }
  }

  void fillSmallInts(double* e, int n, int range = 2) {
    for (int i = 0; i < n; ++i) {
      e[i] = smallInt(range);
    }
  }

  vec3d vector(double lo, double hi) {
    const double x = uniform(lo, hi);
    const double y = uniform(lo, hi);
    const double z = uniform(lo, hi);
    return vec3d(x, y, z);
  }

  // A unit vector, drawn in the ball and not too short before scaling.
  vec3d direction() {
    for (;;) {
      const vec3d v = vector(-1.0, 1.0);
      const double l = v.length();
      if (l > 0.1 && l <= 1.0) {
        return v * (1.0 / l);
      }
    }
  }

  MQuat unitQuat() {
    MQuat q = quat();
    while (q.squared() < 0.01) {
      q = quat();
    }
    q.normalize();
    return q;
  }

  mat4x4 matrix(double lo = -1.0, double hi = 1.0) {
    mat4x4 m;
    fill(m, 16, lo, hi);
    return m;
  }

  // For draws the helpers above do not cover.
  std::mt19937& engine() { return rng_; }

 private:
  MQuat quat() {
    const double x = uniform(-1.0, 1.0);
    const double y = uniform(-1.0, 1.0);
    const double z = uniform(-1.0, 1.0);
    const double w = uniform(-1.0, 1.0);
    return MQuat(x, y, z, w);
  }

  std::mt19937 rng_;
};

}  // namespace mathtest

#endif
