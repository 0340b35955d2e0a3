#include "math/point_batch.h"

#include <lumagrid/mat4x4.h>

#include "math/mat4x4_transform.h"

#if defined(LUMAGRID_INLINE_KERNELS) && defined(__x86_64__)
#include <immintrin.h>
#define LUMAGRID_AVX_POINT_BATCH 1
#endif

namespace lumagrid::detail {

void transformPointsPlain(const double* m, const vec3d* in, vec3d* out, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    transformPointPlain(m, in[i], out[i]);
  }
}

bool haveSse2PointBatch() {
#if defined(LUMAGRID_INLINE_KERNELS)
  return true;
#else
  return false;
#endif
}

void transformPointsSse2(const double* m, const vec3d* in, vec3d* out, std::size_t n) {
#if defined(LUMAGRID_INLINE_KERNELS)
  // transformPointSse2() with the matrix held in registers across points.
  const __m128d c0lo = _mm_loadu_pd(m);
  const __m128d c0hi = _mm_loadu_pd(m + 2);
  const __m128d c1lo = _mm_loadu_pd(m + 4);
  const __m128d c1hi = _mm_loadu_pd(m + 6);
  const __m128d c2lo = _mm_loadu_pd(m + 8);
  const __m128d c2hi = _mm_loadu_pd(m + 10);
  const __m128d c3lo = _mm_loadu_pd(m + 12);
  const __m128d c3hi = _mm_loadu_pd(m + 14);
  for (std::size_t i = 0; i < n; ++i) {
    const double* p = in[i];
    const __m128d x = _mm_set1_pd(p[0]);
    const __m128d y = _mm_set1_pd(p[1]);
    const __m128d z = _mm_set1_pd(p[2]);
    __m128d lo = _mm_add_pd(_mm_mul_pd(c0lo, x), _mm_mul_pd(c1lo, y));
    __m128d hi = _mm_add_pd(_mm_mul_pd(c0hi, x), _mm_mul_pd(c1hi, y));
    lo = _mm_add_pd(_mm_add_pd(lo, _mm_mul_pd(c2lo, z)), c3lo);
    hi = _mm_add_pd(_mm_add_pd(hi, _mm_mul_pd(c2hi, z)), c3hi);
    double* q = out[i];
    _mm_storeu_pd(q, lo);
    _mm_store_sd(q + 2, hi);
  }
#else
  transformPointsPlain(m, in, out, n);
#endif
}

bool haveAvxPointBatch() {
#if defined(LUMAGRID_AVX_POINT_BATCH)
  return true;
#else
  return false;
#endif
}

bool runsAvx() {
#if defined(LUMAGRID_AVX_POINT_BATCH)
  return __builtin_cpu_supports("avx");
#else
  return false;
#endif
}

#if defined(LUMAGRID_AVX_POINT_BATCH)
namespace {

// All four rows of a point in one register. Only "avx": without FMA in the
// target, no product can be fused with the sum it feeds.
[[gnu::target("avx")]] void transformPointsAvxKernel(const double* m, const vec3d* in, vec3d* out,
                                                     std::size_t n) {
  const __m256d c0 = _mm256_loadu_pd(m);
  const __m256d c1 = _mm256_loadu_pd(m + 4);
  const __m256d c2 = _mm256_loadu_pd(m + 8);
  const __m256d c3 = _mm256_loadu_pd(m + 12);
  for (std::size_t i = 0; i < n; ++i) {
    const double* p = in[i];
    __m256d r = _mm256_add_pd(_mm256_mul_pd(c0, _mm256_broadcast_sd(p)),
                              _mm256_mul_pd(c1, _mm256_broadcast_sd(p + 1)));
    r = _mm256_add_pd(_mm256_add_pd(r, _mm256_mul_pd(c2, _mm256_broadcast_sd(p + 2))), c3);
    double* q = out[i];
    _mm_storeu_pd(q, _mm256_castpd256_pd128(r));
    _mm_store_sd(q + 2, _mm256_extractf128_pd(r, 1));
  }
}

}  // namespace
#endif

void transformPointsAvx(const double* m, const vec3d* in, vec3d* out, std::size_t n) {
#if defined(LUMAGRID_AVX_POINT_BATCH)
  if (runsAvx()) {
    transformPointsAvxKernel(m, in, out, n);
    return;
  }
#endif
  transformPointsSse2(m, in, out, n);
}

}  // namespace lumagrid::detail

void mat4x4::transform(const vec3d* in, vec3d* out, std::size_t n) const {
  if (in == nullptr || out == nullptr) {
    return;
  }
  // The widest kernel this processor runs; each gives the same bits.
  static const bool avx = lumagrid::detail::runsAvx();
  if (avx) {
    lumagrid::detail::transformPointsAvx(m_e, in, out, n);
  } else {
    lumagrid::detail::transformPointsSse2(m_e, in, out, n);
  }
}
