#ifndef LUMAGRID_SRC_MATH_MAT4X4_TRANSFORM_H
#define LUMAGRID_SRC_MATH_MAT4X4_TRANSFORM_H

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace lumagrid::detail {

// The point v (three values) moved by the sixteen values m in place: the
// upper three rows, each summed x, y, z, then the translation.
inline void transformPointPlain(const double* m, double* v) {
  const double x = v[0];
  const double y = v[1];
  const double z = v[2];
  v[0] = x * m[0] + y * m[4] + z * m[8] + m[12];
  v[1] = x * m[1] + y * m[5] + z * m[9] + m[13];
  v[2] = x * m[2] + y * m[6] + z * m[10] + m[14];
}

#if defined(__SSE2__)
// The same, rows 0-1 and rows 2-3 side by side; row 3 is computed and
// dropped.
[[gnu::always_inline]] inline void transformPointSse2(const double* m, double* v) {
  const __m128d xy = _mm_loadu_pd(v);
  const __m128d x = _mm_unpacklo_pd(xy, xy);
  const __m128d y = _mm_unpackhi_pd(xy, xy);
  const __m128d z = _mm_load1_pd(v + 2);
  __m128d lo = _mm_mul_pd(_mm_loadu_pd(m), x);
  __m128d hi = _mm_mul_pd(_mm_loadu_pd(m + 2), x);
  lo = _mm_add_pd(lo, _mm_mul_pd(_mm_loadu_pd(m + 4), y));
  hi = _mm_add_pd(hi, _mm_mul_pd(_mm_loadu_pd(m + 6), y));
  lo = _mm_add_pd(lo, _mm_mul_pd(_mm_loadu_pd(m + 8), z));
  hi = _mm_add_pd(hi, _mm_mul_pd(_mm_loadu_pd(m + 10), z));
  lo = _mm_add_pd(lo, _mm_loadu_pd(m + 12));
  hi = _mm_add_pd(hi, _mm_loadu_pd(m + 14));
  _mm_storeu_pd(v, lo);
  _mm_store_sd(v + 2, hi);
}
#endif

[[gnu::always_inline]] inline void transformPoint(const double* m, double* v) {
#if defined(__SSE2__)
  transformPointSse2(m, v);
#else
  transformPointPlain(m, v);
#endif
}

}  // namespace lumagrid::detail

#endif
