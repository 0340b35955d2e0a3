#include "math/mat4x4_inverse.h"

#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>

#include <type_traits>
#include <utility>
#endif

// Write a[r][c] for m[4r + c] (r selects the group of four that
// mat4x4::operator[] returns). Step k pivots on the first value of largest
// magnitude among a[r][c], r, c >= k; exchanges row k with the pivot's row
// and column k with its column, each time negating what moves out of place
// k; scales column k by -1/p and updates the rest of the matrix; and scales
// row k by 1/p. The exchanges are undone at the end in reverse order.

namespace {

constexpr double kPivotTiny = 1e-7;

}  // namespace

#if defined(__SSE2__)

namespace {

// Gauss-Jordan elimination with full pivoting, two lanes at a time: row r
// lives in registers as R[2r] (columns 0, 1) and R[2r + 1] (columns 2, 3).
// Every value is computed by the same operations, in the same order, as the
// element-by-element statement of the algorithm. The pivot position only
// selects code: each interchange and each elimination step is written for
// fixed rows and lanes, so nothing waits on an address computed from the
// pivot search.

#define LUMAGRID_INLINE inline __attribute__((always_inline))

template <typename F, int... I>
LUMAGRID_INLINE void unrolled(F&& f, std::integer_sequence<int, I...>) {
  (f(std::integral_constant<int, I>{}), ...);
}

template <int N, typename F>
LUMAGRID_INLINE void repeat(F&& f) {
  unrolled(f, std::make_integer_sequence<int, N>{});
}

LUMAGRID_INLINE __m128d allSigns() {
  return _mm_set1_pd(-0.0);
}

// Lane i of dst replaced by lane j of src.
template <int i, int j>
LUMAGRID_INLINE __m128d insertLane(__m128d dst, __m128d src) {
  if constexpr (i == 0 && j == 0) {
    return _mm_move_sd(dst, src);
  } else if constexpr (i == 0) {
    return _mm_shuffle_pd(src, dst, 3);
  } else if constexpr (j == 0) {
    return _mm_unpacklo_pd(dst, src);
  } else {
    return _mm_shuffle_pd(dst, src, 2);
  }
}

template <int i>
LUMAGRID_INLINE __m128d broadcastLane(__m128d v) {
  if constexpr (i == 0) {
    return _mm_unpacklo_pd(v, v);
  } else {
    return _mm_unpackhi_pd(v, v);
  }
}

// Rows k and q: forward, row k takes row q and row q takes minus row k;
// backward, row k takes minus row q and row q takes row k.
template <int k, int q, bool forward>
LUMAGRID_INLINE void exchangeRows(__m128d* R) {
  __m128d const kLo = R[2 * k];
  __m128d const kHi = R[2 * k + 1];
  if constexpr (forward) {
    R[2 * k] = R[2 * q];
    R[2 * k + 1] = R[2 * q + 1];
    R[2 * q] = _mm_xor_pd(kLo, allSigns());
    R[2 * q + 1] = _mm_xor_pd(kHi, allSigns());
  } else {
    R[2 * k] = _mm_xor_pd(R[2 * q], allSigns());
    R[2 * k + 1] = _mm_xor_pd(R[2 * q + 1], allSigns());
    R[2 * q] = kLo;
    R[2 * q + 1] = kHi;
  }
}

// Columns k < q in every row: forward, column k takes column q and column q
// takes minus column k; backward, column k takes minus column q and column
// q takes column k.
template <int k, int q, bool forward>
LUMAGRID_INLINE void exchangeColumns(__m128d* R) {
  repeat<4>([&](auto r) {
    __m128d& lo = R[2 * r];
    __m128d& hi = R[2 * r + 1];
    if constexpr (k / 2 == q / 2) {
      __m128d& h = k < 2 ? lo : hi;
      __m128d const swapped = _mm_shuffle_pd(h, h, 1);
      __m128d const sign = forward ? _mm_set_pd(-0.0, 0.0) : _mm_set_pd(0.0, -0.0);
      h = _mm_xor_pd(swapped, sign);
    } else {
      __m128d const oldLo = lo;
      __m128d const oldHi = hi;
      if constexpr (forward) {
        lo = insertLane<k, q - 2>(oldLo, oldHi);
        hi = insertLane<q - 2, k>(oldHi, _mm_xor_pd(oldLo, allSigns()));
      } else {
        lo = insertLane<k, q - 2>(oldLo, _mm_xor_pd(oldHi, allSigns()));
        hi = insertLane<q - 2, k>(oldHi, oldLo);
      }
    }
  });
}

// Backward exchanges for the final undoing, with row or column q >= k.
template <int k, bool rows>
LUMAGRID_INLINE void undoExchange(int q, __m128d* R) {
  auto with = [&](auto other) {
    constexpr int o = decltype(other)::value;
    if constexpr (o < 4) {
      if constexpr (rows) {
        exchangeRows<k, o, false>(R);
      } else {
        exchangeColumns<k, o, false>(R);
      }
    }
  };
  switch (q - k) {
    case 1:
      with(std::integral_constant<int, k + 1>{});
      break;
    case 2:
      with(std::integral_constant<int, k + 2>{});
      break;
    case 3:
      with(std::integral_constant<int, k + 3>{});
      break;
    default:
      break;
  }
}

// Row k with row pr, then column k with column pc: one dispatch on the
// pivot position, so that a well-predicted pivot costs no waiting at all.
template <int k, int pr, int pc>
LUMAGRID_INLINE void interchange(__m128d* R) {
  if constexpr (pr >= k && pc >= k) {
    if constexpr (pr != k) {
      exchangeRows<k, pr, true>(R);
    }
    if constexpr (pc != k) {
      exchangeColumns<k, pc, true>(R);
    }
  }
}

template <int k>
LUMAGRID_INLINE void interchangeAt(int pos, __m128d* R) {
  switch (pos) {
#define LUMAGRID_PIVOT_CASE(r, c) \
  case 4 * r + c:                 \
    interchange<k, r, c>(R);      \
    break;
    LUMAGRID_PIVOT_CASE(0, 1)
    LUMAGRID_PIVOT_CASE(0, 2)
    LUMAGRID_PIVOT_CASE(0, 3)
    LUMAGRID_PIVOT_CASE(1, 0)
    LUMAGRID_PIVOT_CASE(1, 1)
    LUMAGRID_PIVOT_CASE(1, 2)
    LUMAGRID_PIVOT_CASE(1, 3)
    LUMAGRID_PIVOT_CASE(2, 0)
    LUMAGRID_PIVOT_CASE(2, 1)
    LUMAGRID_PIVOT_CASE(2, 2)
    LUMAGRID_PIVOT_CASE(2, 3)
    LUMAGRID_PIVOT_CASE(3, 0)
    LUMAGRID_PIVOT_CASE(3, 1)
    LUMAGRID_PIVOT_CASE(3, 2)
    LUMAGRID_PIVOT_CASE(3, 3)
#undef LUMAGRID_PIVOT_CASE
    default:  // the pivot is already at row k, column k
      break;
  }
}

// The plain scan over rows and columns k..3, for when a NaN takes part: it
// never wins, except as the starting value.
int searchPivotScalar(double const* a, int k, double& magnitude) {
  double p = a[5 * k];
  int pos = 5 * k;
  for (int r = k; r < 4; ++r) {
    for (int c = k; c < 4; ++c) {
      if (std::fabs(a[4 * r + c]) > std::fabs(p)) {
        p = a[4 * r + c];
        pos = 4 * r + c;
      }
    }
  }
  magnitude = std::fabs(p);
  return pos;
}

// Position 4r + c of the first value of largest magnitude in rows and
// columns k..3, scanning row by row; its magnitude goes to `magnitude`.
// The largest magnitude is found first, then the first place that holds it:
// without NaNs that is exactly what the scan picks.
template <int k>
LUMAGRID_INLINE int searchPivot(__m128d const* R, double& magnitude) {
  // Candidate halves: R[first], R[first + stride], ...
  constexpr int first = k == 2 ? 5 : 2 * k;
  constexpr int stride = k == 2 ? 2 : 1;
  constexpr int count = k == 2 ? 2 : 8 - 2 * k;
  __m128d const abs = _mm_castsi128_pd(_mm_set1_epi64x(0x7FFFFFFFFFFFFFFF));
  // Column 0 drops out from step 1 on: its magnitude reads as 0.
  __m128d const absLo = k == 1 ? _mm_castsi128_pd(_mm_set_epi64x(0x7FFFFFFFFFFFFFFF, 0)) : abs;
  __m128d mag[count];
  repeat<count>([&](auto i) {
    constexpr int v = first + stride * i;
    mag[i] = _mm_and_pd(R[v], v % 2 == 0 ? absLo : abs);
  });
  // A NaN makes the comparisons meaningless: leave those cases to the scan.
  __m128d nan = _mm_cmpunord_pd(mag[0], mag[1]);
  repeat<count / 2 - 1>(
      [&](auto i) { nan = _mm_or_pd(nan, _mm_cmpunord_pd(mag[2 * i + 2], mag[2 * i + 3])); });
  if (__builtin_expect(_mm_movemask_pd(nan) != 0, 0)) {
    alignas(16) double a[16];
    repeat<8>([&](auto i) { _mm_store_pd(a + 2 * i, R[i]); });
    return searchPivotScalar(a, k, magnitude);
  }
  __m128d top[count];
  repeat<count>([&](auto i) { top[i] = mag[i]; });
  repeat<3>([&](auto level) {
    constexpr int step = 1 << level;
    repeat<count>([&](auto i) {
      if constexpr (i % (2 * step) == 0 && i + step < count) {
        top[i] = _mm_max_pd(top[i], top[i + step]);
      }
    });
  });
  __m128d m = _mm_max_sd(top[0], _mm_unpackhi_pd(top[0], top[0]));
  magnitude = _mm_cvtsd_f64(m);
  m = _mm_unpacklo_pd(m, m);
  // Two mask bits per place, in scan order.
  __m128i eq[8];
  repeat<8>([&](auto i) {
    if constexpr (i < count) {
      eq[i] = _mm_castpd_si128(_mm_cmpeq_pd(mag[i], m));
    } else {
      eq[i] = _mm_setzero_si128();
    }
  });
  auto bitsOf = [&](int i) {
    __m128i const bytes =
        _mm_packs_epi16(_mm_packs_epi32(eq[i], eq[i + 1]), _mm_packs_epi32(eq[i + 2], eq[i + 3]));
    return static_cast<unsigned>(_mm_movemask_epi8(bytes));
  };
  unsigned bits = bitsOf(0);
  if constexpr (count > 4) {
    bits |= bitsOf(4) << 16;
  }
  if constexpr (k == 1) {
    bits &= 0xFCFCFCu;  // column 0
  }
  int const t = __builtin_ctz(bits) >> 1;
  if constexpr (k == 0) {
    return t;
  } else if constexpr (k == 1) {
    return 4 + t;
  } else {
    return 10 + t + (t & 2);
  }
}

// The elimination proper, with the pivot at row k, column k.
template <int k>
LUMAGRID_INLINE void eliminate(__m128d* R) {
  constexpr int h = k / 2;  // half holding column k
  constexpr int o = 1 - h;  // the other half
  constexpr int lane = k % 2;
  constexpr int r1 = k == 0 ? 1 : 0;
  constexpr int r2 = k <= 1 ? 2 : 1;
  constexpr int r3 = k <= 2 ? 3 : 2;
  __m128d const pb = broadcastLane<lane>(R[2 * k + h]);
  __m128d const sign = allSigns();
  // a[r][k] = -(a[r][k] / p) for the three other rows.
  __m128d const num12 = lane == 0 ? _mm_unpacklo_pd(R[2 * r1 + h], R[2 * r2 + h])
                                  : _mm_unpackhi_pd(R[2 * r1 + h], R[2 * r2 + h]);
  __m128d const num3 = lane == 0 ? R[2 * r3 + h] : _mm_unpackhi_pd(R[2 * r3 + h], R[2 * r3 + h]);
  __m128d const f12 = _mm_xor_pd(_mm_div_pd(num12, pb), sign);
  __m128d const f3 = _mm_xor_pd(_mm_div_sd(num3, pb), sign);
  // Column k of row k reads 1.0 and column k of the other rows -0.0, so
  // that 1.0 * f + -0.0 leaves exactly f there while every other column
  // gets a[r][k] * a[k][c] + a[r][c].
  __m128d const kh = insertLane<lane, 0>(R[2 * k + h], _mm_set1_pd(1.0));
  __m128d const ko = R[2 * k + o];
  auto update = [&](int r, __m128d f) {
    __m128d const rh = insertLane<lane, 0>(R[2 * r + h], sign);
    R[2 * r + h] = _mm_add_pd(_mm_mul_pd(kh, f), rh);
    R[2 * r + o] = _mm_add_pd(_mm_mul_pd(ko, f), R[2 * r + o]);
  };
  update(r1, _mm_unpacklo_pd(f12, f12));
  update(r2, _mm_unpackhi_pd(f12, f12));
  update(r3, _mm_unpacklo_pd(f3, f3));
  // a[k][c] = a[k][c] / p, and a[k][k] = 1 / p.
  R[2 * k + h] = _mm_div_pd(kh, pb);
  R[2 * k + o] = _mm_div_pd(ko, pb);
}

LUMAGRID_INLINE void storeRows(double* m, __m128d const* R) {
  repeat<8>([&](auto i) { _mm_storeu_pd(m + 2 * i, R[i]); });
}

// One full step: pivot search, the threshold on the running product of
// pivots (kept as a magnitude: |d p| rounds like |d| |p|), interchanges and
// elimination. False leaves R as it was.
template <int k>
LUMAGRID_INLINE bool step(__m128d* R, double& d, int* P, int* Q) {
  double magnitude;
  int pos;
  if constexpr (k < 3) {
    pos = searchPivot<k>(R, magnitude);
  } else {
    pos = 15;
    magnitude = std::fabs(_mm_cvtsd_f64(_mm_unpackhi_pd(R[7], R[7])));
  }
  d *= magnitude;
  if (d < kPivotTiny) {
    return false;
  }
  P[k] = pos >> 2;
  Q[k] = pos & 3;
  interchangeAt<k>(pos, R);
  eliminate<k>(R);
  return true;
}

bool invert(double* m) {
  __m128d R[8];
  repeat<8>([&](auto i) { R[i] = _mm_loadu_pd(m + 2 * i); });
  double d = 1.0;
  int P[4];
  int Q[4];
  if (!step<0>(R, d, P, Q) || !step<1>(R, d, P, Q) || !step<2>(R, d, P, Q) ||
      !step<3>(R, d, P, Q)) {
    // Left as it stands, partly eliminated.
    storeRows(m, R);
    return false;
  }
  // Undo the interchanges, k = 2, 1, 0: the row exchange with Q[k] first,
  // then the column exchange with P[k].
  undoExchange<2, true>(Q[2], R);
  undoExchange<2, false>(P[2], R);
  undoExchange<1, true>(Q[1], R);
  undoExchange<1, false>(P[1], R);
  undoExchange<0, true>(Q[0], R);
  undoExchange<0, false>(P[0], R);
  storeRows(m, R);
  return true;
}

#undef LUMAGRID_INLINE

}  // namespace

#endif

namespace lumagrid {

bool invertInPlacePortable(double* m) {
  // a[r][c] is m[4r + c].
  auto a = [m](int r, int c) -> double& { return m[4 * r + c]; };
  int P[4];
  int Q[4];
  double d = 1.0;
  for (int k = 0; k < 4; ++k) {
    double p = a(k, k);
    P[k] = Q[k] = k;
    for (int r = k; r < 4; ++r) {
      for (int c = k; c < 4; ++c) {
        if (std::fabs(a(r, c)) > std::fabs(p)) {
          p = a(r, c);
          P[k] = r;
          Q[k] = c;
        }
      }
    }
    d *= p;
    if (std::fabs(d) < kPivotTiny) {
      return false;
    }
    if (P[k] != k) {
      for (int c = 0; c < 4; ++c) {
        double const t = a(k, c);
        a(k, c) = a(P[k], c);
        a(P[k], c) = -t;
      }
    }
    if (Q[k] != k) {
      for (int r = 0; r < 4; ++r) {
        double const t = a(r, k);
        a(r, k) = a(r, Q[k]);
        a(r, Q[k]) = -t;
      }
    }
    for (int r = 0; r < 4; ++r) {
      if (r != k) {
        a(r, k) = -(a(r, k) / p);
      }
    }
    for (int r = 0; r < 4; ++r) {
      for (int c = 0; c < 4; ++c) {
        if (r != k && c != k) {
          a(r, c) = a(r, k) * a(k, c) + a(r, c);
        }
      }
    }
    for (int c = 0; c < 4; ++c) {
      if (c != k) {
        a(k, c) = a(k, c) / p;
      }
    }
    a(k, k) = 1.0 / p;
  }
  for (int k = 2; k >= 0; --k) {
    if (Q[k] != k) {
      for (int c = 0; c < 4; ++c) {
        double const t = a(k, c);
        a(k, c) = -a(Q[k], c);
        a(Q[k], c) = t;
      }
    }
    if (P[k] != k) {
      for (int r = 0; r < 4; ++r) {
        double const t = a(r, k);
        a(r, k) = -a(r, P[k]);
        a(r, P[k]) = t;
      }
    }
  }
  return true;
}

bool invertInPlace(double* m) {
#if defined(__SSE2__)
  return invert(m);
#else
  return invertInPlacePortable(m);
#endif
}

}  // namespace lumagrid
