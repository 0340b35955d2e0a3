#include "math/mat4x4_inverse.h"

#if defined(LUMAGRID_INLINE_KERNELS)

#include "math/mat4x4_pivoting.h"

// invertInPlacePlain() with the matrix held in eight registers, two values
// each: the same operations on the same values in the same order, so the
// same bits, but the divisions go two at a time.

namespace lumagrid::detail {
namespace {

// Row r holds columns 0-1 in lo[r] and columns 2-3 in hi[r].
struct Lanes {
  __m128d lo[4];
  __m128d hi[4];

  template <int c>
  __m128d& half(int r) {
    return c < 2 ? lo[r] : hi[r];
  }

  template <int c>
  double at(int r) {
    const __m128d h = half<c>(r);
    return _mm_cvtsd_f64(c % 2 ? _mm_unpackhi_pd(h, h) : h);
  }

  template <int c>
  void set(int r, double x) {
    __m128d& h = half<c>(r);
    h = c % 2 ? _mm_unpacklo_pd(h, _mm_set_sd(x)) : _mm_move_sd(h, _mm_set_sd(x));
  }
};

inline __m128d signBits() {
  return _mm_set1_pd(-0.0);
}

// The sign bit in the lane of column c, within its half.
template <int c>
inline __m128d signOf() {
  return c % 2 ? _mm_set_pd(-0.0, 0.0) : _mm_set_pd(0.0, -0.0);
}

// Row i takes row j and row j takes minus row i.
template <int i, int j>
inline void swapRows(Lanes& a) {
  const __m128d lo = a.lo[i];
  const __m128d hi = a.hi[i];
  a.lo[i] = a.lo[j];
  a.hi[i] = a.hi[j];
  a.lo[j] = _mm_xor_pd(lo, signBits());
  a.hi[j] = _mm_xor_pd(hi, signBits());
}

// Columns i and j of one row trade places, signs unchanged.
template <int i, int j>
inline void exchangeLanes(__m128d& lo, __m128d& hi) {
  if constexpr (i > j) {
    exchangeLanes<j, i>(lo, hi);
  } else if constexpr (i == 0 && j == 1) {
    lo = _mm_shuffle_pd(lo, lo, 1);
  } else if constexpr (i == 2 && j == 3) {
    hi = _mm_shuffle_pd(hi, hi, 1);
  } else if constexpr (i == 0 && j == 2) {
    const __m128d l = _mm_move_sd(lo, hi);
    hi = _mm_move_sd(hi, lo);
    lo = l;
  } else if constexpr (i == 1 && j == 3) {
    const __m128d l = _mm_shuffle_pd(lo, hi, 2);
    hi = _mm_shuffle_pd(hi, lo, 2);
    lo = l;
  } else if constexpr (i == 0 && j == 3) {
    const __m128d l = _mm_shuffle_pd(hi, lo, 3);
    hi = _mm_shuffle_pd(hi, lo, 0);
    lo = l;
  } else {
    static_assert(i == 1 && j == 2, "two different columns");
    const __m128d l = _mm_unpacklo_pd(lo, hi);
    hi = _mm_shuffle_pd(lo, hi, 3);
    lo = l;
  }
}

// Column i takes column j and column j takes minus column i.
template <int i, int j>
inline void swapColumns(Lanes& a) {
  forEach<4>([&](auto r) {
    a.half<i>(r) = _mm_xor_pd(a.half<i>(r), signOf<i>());
    exchangeLanes<i, j>(a.lo[r], a.hi[r]);
  });
}

// eliminate() of the plain version: the three quotients of column k by the
// pivot take two divisions, the pivot row two more.
template <int k>
inline void eliminate(Lanes& a) {
  const __m128d p = _mm_set1_pd(a.at<k>(k));
  __m128d pivotLo = a.lo[k];
  __m128d pivotHi = a.hi[k];
  if constexpr (k < 2) {
    pivotLo = k == 0 ? _mm_move_sd(pivotLo, _mm_set1_pd(1.0))
                     : _mm_unpacklo_pd(pivotLo, _mm_set1_pd(1.0));
  } else {
    pivotHi = k == 2 ? _mm_move_sd(pivotHi, _mm_set1_pd(1.0))
                     : _mm_unpacklo_pd(pivotHi, _mm_set1_pd(1.0));
  }
  // The other rows, in order.
  constexpr int rows[3] = {k == 0 ? 1 : 0, k <= 1 ? 2 : 1, k <= 2 ? 3 : 2};
  const auto columnK = [&](__m128d x, __m128d y) {
    return k % 2 ? _mm_unpackhi_pd(x, y) : _mm_unpacklo_pd(x, y);
  };
  const __m128d q01 = columnK(a.half<k>(rows[0]), a.half<k>(rows[1]));
  // Both lanes of q2 hold the third row's value; f2 is then its broadcast.
  const __m128d q2 = columnK(a.half<k>(rows[2]), a.half<k>(rows[2]));
  const __m128d f01 = _mm_xor_pd(_mm_div_pd(q01, p), signBits());
  const __m128d f2 = _mm_xor_pd(_mm_div_pd(q2, p), signBits());
  const __m128d f[3] = {_mm_unpacklo_pd(f01, f01), _mm_unpackhi_pd(f01, f01), f2};
  forEach<3>([&](auto n) {
    constexpr int r = rows[n];
    a.set<k>(r, -0.0);
    a.lo[r] = _mm_add_pd(mulRounded(f[n], pivotLo), a.lo[r]);
    a.hi[r] = _mm_add_pd(mulRounded(f[n], pivotHi), a.hi[r]);
  });
  a.lo[k] = _mm_div_pd(pivotLo, p);
  a.hi[k] = _mm_div_pd(pivotHi, p);
}

// step() of the plain version.
template <int k>
[[gnu::always_inline]] inline bool step(Lanes& a, double& product, Pivot* pivots) {
  double largest;
  const Pivot p = findPivot<k>([&](auto r, auto c) { return a.at<c>(r); }, largest);
  product *= largest;
  if (product < kPivotTiny) {
    return false;
  }
  unlessAt<k>(p.row, [&](auto q) { swapRows<k, q>(a); });
  unlessAt<k>(p.col, [&](auto q) { swapColumns<k, q>(a); });
  eliminate<k>(a);
  pivots[k] = p;
  return true;
}

}  // namespace

bool invertInPlaceSse2(double* m) {
  Lanes a;
  forEach<4>([&](auto r) {
    a.lo[r] = _mm_loadu_pd(m + 4 * r);
    a.hi[r] = _mm_loadu_pd(m + 4 * r + 2);
  });
  Pivot pivots[4];
  double product = 1.0;
  const bool ok = step<0>(a, product, pivots) && step<1>(a, product, pivots) &&
                  step<2>(a, product, pivots) && step<3>(a, product, pivots);
  if (ok) {
    forEach<3>([&](auto j) {
      constexpr int k = 2 - j;
      unlessAt<k>(pivots[k].col, [&](auto q) { swapRows<q, k>(a); });
      unlessAt<k>(pivots[k].row, [&](auto q) { swapColumns<q, k>(a); });
    });
  }
  // On failure, left partly eliminated, as it stands.
  forEach<4>([&](auto r) {
    _mm_storeu_pd(m + 4 * r, a.lo[r]);
    _mm_storeu_pd(m + 4 * r + 2, a.hi[r]);
  });
  return ok;
}

}  // namespace lumagrid::detail

#endif
