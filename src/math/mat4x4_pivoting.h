#ifndef LUMAGRID_SRC_MATH_MAT4X4_PIVOTING_H
#define LUMAGRID_SRC_MATH_MAT4X4_PIVOTING_H

#include <cmath>
#include <type_traits>
#include <utility>

// What the two versions of the in-place inverse share: the threshold, the
// pivot search and the compile-time dispatch on the pivot's place.

namespace lumagrid::detail {

// The running product of the pivots must stay at least this large.
constexpr double kPivotTiny = 1e-7;

struct Pivot {
  int row;
  int col;
};

// f(0), f(1), ... f(N - 1), each index a compile-time constant: the loops
// over rows and columns then unroll, and the locals stay in registers.
template <class F, int... I>
inline void unrolled(F&& f, std::integer_sequence<int, I...>) {
  (f(std::integral_constant<int, I>{}), ...);
}

template <int N, class F>
inline void forEach(F&& f) {
  unrolled(f, std::make_integer_sequence<int, N>{});
}

// The first value of largest magnitude in rows and columns k..3, scanning
// row by row from a(k, k); largest is its magnitude. A NaN never wins,
// except where the scan starts. a(r, c) is called with compile-time r, c.
template <int k, class At>
inline Pivot findPivot(At&& a, double& largest) {
  Pivot p{k, k};
  largest = std::fabs(a(std::integral_constant<int, k>{}, std::integral_constant<int, k>{}));
  forEach<4>([&](auto r) {
    if constexpr (r >= k) {
      forEach<4>([&](auto c) {
        if constexpr (c >= k) {
          const double v = std::fabs(a(r, c));
          if (v > largest) {
            largest = v;
            p = Pivot{r, c};
          }
        }
      });
    }
  });
  return p;
}

// f(q) with q = i as a compile-time constant, when i != k. The pivot's place
// then picks code rather than addresses, so that, once the branch is
// predicted, nothing waits for the pivot search to finish.
template <int k, class F>
[[gnu::always_inline]] inline void unlessAt(int i, F&& f) {
  forEach<4>([&](auto q) {
    if constexpr (q != k) {
      if (i == q) {
        f(q);
      }
    }
  });
}

}  // namespace lumagrid::detail

#endif
