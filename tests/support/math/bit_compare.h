#ifndef LUMAGRID_TESTS_SUPPORT_MATH_BIT_COMPARE_H
#define LUMAGRID_TESTS_SUPPORT_MATH_BIT_COMPARE_H

// Comparing doubles by their bits, for results that must not change by a
// single rounding.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace mathtest {

inline std::uint64_t bits(double v) {
  std::uint64_t b;
  std::memcpy(&b, &v, sizeof b);
  return b;
}

// The double whose bits are b.
inline double fromBits(std::uint64_t b) {
  double v;
  std::memcpy(&v, &b, sizeof v);
  return v;
}

// The same bit pattern, NaN payloads and signed zeros included.
inline bool sameBits(double a, double b) {
  return bits(a) == bits(b);
}

inline bool sameBits(const double* a, const double* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (!sameBits(a[i], b[i])) {
      return false;
    }
  }
  return true;
}

// The same bits in every double of two vectors, quaternions or matrices.
template <class T>
bool sameBitsAll(const T& a, const T& b) {
  static_assert(std::is_trivially_copyable<T>::value && sizeof(T) % sizeof(double) == 0,
                "a type made of doubles only");
  return sameBits(reinterpret_cast<const double*>(&a), reinterpret_cast<const double*>(&b),
                  static_cast<int>(sizeof(T) / sizeof(double)));
}

// The same bits, except that two NaNs always match: x86 takes a NaN's sign
// and payload from whichever operand comes first, and the compiler is free to
// order the operands of a + or a *.
inline bool sameBitsAnyNaN(double a, double b) {
  return (std::isnan(a) && std::isnan(b)) || sameBits(a, b);
}

// The first place where a and b differ that way, or -1.
inline int firstBitDifferenceAnyNaN(const double* a, const double* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (!sameBitsAnyNaN(a[i], b[i])) {
      return i;
    }
  }
  return -1;
}

}  // namespace mathtest

#endif
