#ifndef LUMAGRID_TESTS_SUPPORT_MATH_MATRIX_EQUALITY_H
#define LUMAGRID_TESTS_SUPPORT_MATH_MATRIX_EQUALITY_H

// Exact equality of values (of two matrices, or of n doubles), in the two
// senses the tests need. Both take -0.0 and 0.0 as equal.

#include <lumagrid/mat4x4.h>

#include <cmath>

namespace mathtest {

// Equal, or both NaN: for results that may legitimately be NaN.
inline bool equalOrBothNaN(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

inline bool equalOrBothNaN(const double* a, const double* b, int n) {
  for (int k = 0; k < n; ++k) {
    if (!equalOrBothNaN(a[k], b[k])) {
      return false;
    }
  }
  return true;
}

inline bool equalOrBothNaN(const mat4x4& a, const mat4x4& b) {
  return equalOrBothNaN(a, b, 16);
}

// Equal as doubles compare: a NaN anywhere makes them differ.
inline bool equalNoNaN(const mat4x4& a, const mat4x4& b) {
  const double* pa = a;
  const double* pb = b;
  for (int k = 0; k < 16; ++k) {
    if (!(pa[k] == pb[k])) {
      return false;
    }
  }
  return true;
}

}  // namespace mathtest

#endif
