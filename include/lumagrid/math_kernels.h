/// @file
/// The inline kernels behind mat4x4's point transform and MQuat's product.
///
/// Not part of the API: mat4x4.h and MQuat.h include it, and everything in
/// it but LUMAGRID_INLINE_KERNELS lives in lumagrid::detail. The smallest
/// kernels (point transform, quaternion product) are inline for speed, yet
/// must give the library's bits in a host built with FMA contraction. Where the
/// compiler takes GNU asm and targets SSE2 they are written here on
/// mulRounded(); elsewhere the headers call the library's out-of-line copies.
/// Defining LUMAGRID_PORTABLE_MATH before the first include turns every SSE2
/// kernel off, so that CI builds and tests the plain ones as the library
/// itself would use them.
#ifndef LUMAGRID_MATH_KERNELS_H
#define LUMAGRID_MATH_KERNELS_H

#if defined(__SSE2__) && defined(__GNUC__) && !defined(LUMAGRID_PORTABLE_MATH)
#include <emmintrin.h>
/// Defined (to 1) where the inline SSE2 kernels are in use: the compiler
/// takes GNU asm, targets SSE2, and LUMAGRID_PORTABLE_MATH is not defined.
/// Where it is not defined, the inline members call the library's
/// out-of-line kernels. Either way the results are the same bits.
#define LUMAGRID_INLINE_KERNELS 1

/// Internal kernels; hosts use mat4x4::transform() and MQuat's product.
namespace lumagrid::detail {

/// a * b rounded on its own: the empty asm hides the product from the
/// optimizer, so it cannot be fused with the sum it feeds, whatever the
/// host's -ffp-contract or -mfma, and costs no instruction. (GCC will not
/// inline a function carrying its own fp-contract setting, and clang's
/// pragma does not reach into the intrinsics' bodies.)
[[gnu::always_inline]] inline __m128d mulRounded(__m128d a, __m128d b) {
  __m128d p = _mm_mul_pd(a, b);
  __asm__("" : "+x"(p));
  return p;
}

/// The point in (three values) moved by the sixteen values m, written to
/// out, rows 0-1 and rows 2-3 side by side; row 3 is computed and dropped.
/// Each row is summed x, y, z, then the translation. in is read as three
/// doubles, not as a pair: a point just stored by the host then forwards
/// from the store buffer. All of in is read before out is written, so out
/// may be in.
[[gnu::always_inline]] inline void transformPointSse2(const double* m, const double* in,
                                                      double* out) {
  const __m128d x = _mm_set1_pd(in[0]);
  const __m128d y = _mm_set1_pd(in[1]);
  const __m128d z = _mm_set1_pd(in[2]);
  __m128d lo = mulRounded(_mm_loadu_pd(m), x);
  __m128d hi = mulRounded(_mm_loadu_pd(m + 2), x);
  lo = _mm_add_pd(lo, mulRounded(_mm_loadu_pd(m + 4), y));
  hi = _mm_add_pd(hi, mulRounded(_mm_loadu_pd(m + 6), y));
  lo = _mm_add_pd(lo, mulRounded(_mm_loadu_pd(m + 8), z));
  hi = _mm_add_pd(hi, mulRounded(_mm_loadu_pd(m + 10), z));
  lo = _mm_add_pd(lo, _mm_loadu_pd(m + 12));
  hi = _mm_add_pd(hi, _mm_loadu_pd(m + 14));
  _mm_storeu_pd(out, lo);
  _mm_store_sd(out + 2, hi);
}

/// Hamilton product r = a * b of quaternions stored x, y, z, w (w the scalar
/// part), two components at a time, with the same operations per component
/// in the same order as the plain product: a - b is a + (-b) and -(a * b) is
/// (-a) * b exactly. r may be a or b: every value is read before any is
/// written.
[[gnu::always_inline]] inline void quatProductSse2(const double* a, const double* b, double* r) {
  const __m128d axy = _mm_loadu_pd(a);
  const __m128d azw = _mm_loadu_pd(a + 2);
  const __m128d bxy = _mm_loadu_pd(b);
  const __m128d bzw = _mm_loadu_pd(b + 2);
  // (y, z) pairs straight from memory: two loads instead of two shuffles,
  // which are what this kernel waits on.
  const __m128d ayz = _mm_loadu_pd(a + 1);
  const __m128d byz = _mm_loadu_pd(b + 1);
  const __m128d negHigh = _mm_set_pd(-0.0, 0.0);

  // The first two terms of each component may trade places (their sum is
  // the same either way); the third and fourth keep theirs.
  // Lanes x, y: x = a.x*b.w + a.w*b.x + a.y*b.z - a.z*b.y,
  //             y = a.w*b.y + a.y*b.w + a.z*b.x - a.x*b.z.
  const __m128d aww = _mm_unpackhi_pd(azw, azw);
  const __m128d azx = _mm_shuffle_pd(azw, axy, 0);
  __m128d xy = mulRounded(aww, bxy);
  xy = _mm_add_pd(xy, mulRounded(axy, _mm_unpackhi_pd(bzw, bzw)));
  xy = _mm_add_pd(xy, mulRounded(ayz, _mm_shuffle_pd(bzw, bxy, 0)));
  xy = _mm_sub_pd(xy, mulRounded(azx, byz));

  // Lanes z, w: z = a.w*b.z + a.z*b.w + a.x*b.y - a.y*b.x,
  //             w = a.w*b.w - a.x*b.x - a.y*b.y - a.z*b.z.
  __m128d zw = mulRounded(aww, bzw);
  zw = _mm_add_pd(zw, mulRounded(_mm_xor_pd(azx, negHigh), _mm_shuffle_pd(bzw, bxy, 1)));
  zw = _mm_add_pd(zw, mulRounded(_mm_xor_pd(axy, negHigh), _mm_unpackhi_pd(bxy, bxy)));
  zw = _mm_sub_pd(zw, mulRounded(ayz, _mm_unpacklo_pd(bxy, bzw)));

  _mm_storeu_pd(r, xy);
  _mm_storeu_pd(r + 2, zw);
}

}  // namespace lumagrid::detail
#endif

#endif
