#ifndef LUMAGRID_SRC_MATH_ELEMENTWISE_H
#define LUMAGRID_SRC_MATH_ELEMENTWISE_H

#include <cmath>

namespace lumagrid::detail {

// a[i] becomes b[i] where a[i] > b[i]; a NaN in a stays, a NaN in b is not taken.
inline void takeSmaller(double* a, const double* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (a[i] > b[i]) {
      a[i] = b[i];
    }
  }
}

// a[i] becomes b[i] where b[i] > a[i]; a NaN in a stays, a NaN in b is not taken.
inline void takeLarger(double* a, const double* b, int n) {
  for (int i = 0; i < n; ++i) {
    if (b[i] > a[i]) {
      a[i] = b[i];
    }
  }
}

// Every |a[i] - b[i]| < eps; a NaN difference fails.
inline bool allCloserThan(const double* a, const double* b, int n, double eps) {
  for (int i = 0; i < n; ++i) {
    if (!(std::fabs(a[i] - b[i]) < eps)) {
      return false;
    }
  }
  return true;
}

// No |a[i] - b[i]| > eps; a NaN difference passes.
inline bool noneFartherThan(const double* a, const double* b, int n, double eps) {
  for (int i = 0; i < n; ++i) {
    if (std::fabs(a[i] - b[i]) > eps) {
      return false;
    }
  }
  return true;
}

}  // namespace lumagrid::detail

#endif
