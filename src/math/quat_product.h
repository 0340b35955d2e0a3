#ifndef LUMAGRID_SRC_MATH_QUAT_PRODUCT_H
#define LUMAGRID_SRC_MATH_QUAT_PRODUCT_H

#include <lumagrid/MQuat.h>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace lumagrid::detail {

// Hamilton product a * b; both operands are read before anything is written.
inline MQuat quatProductPlain(const MQuat& a, const MQuat& b) {
  return MQuat(
      a.x * b.w + a.w * b.x + a.y * b.z - a.z * b.y, a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z,
      a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z);
}

#if defined(__SSE2__)
// The same, two components at a time, with the same operations per component
// in the same order: a - b is a + (-b) and -(a * b) is (-a) * b exactly.
[[gnu::always_inline]] inline MQuat quatProductSse2(const MQuat& a, const MQuat& b) {
  const __m128d axy = _mm_loadu_pd(&a.x);
  const __m128d azw = _mm_loadu_pd(&a.z);
  const __m128d bxy = _mm_loadu_pd(&b.x);
  const __m128d bzw = _mm_loadu_pd(&b.z);
  const __m128d negHigh = _mm_set_pd(-0.0, 0.0);

  // The first two terms of each component may trade places (their sum is
  // the same either way); the third and fourth keep theirs.
  // Lanes x, y: x = a.x*b.w + a.w*b.x + a.y*b.z - a.z*b.y,
  //             y = a.w*b.y + a.y*b.w + a.z*b.x - a.x*b.z.
  const __m128d aww = _mm_unpackhi_pd(azw, azw);
  const __m128d ayz = _mm_shuffle_pd(axy, azw, 1);
  const __m128d azx = _mm_shuffle_pd(azw, axy, 0);
  __m128d xy = _mm_mul_pd(aww, bxy);
  xy = _mm_add_pd(xy, _mm_mul_pd(axy, _mm_unpackhi_pd(bzw, bzw)));
  xy = _mm_add_pd(xy, _mm_mul_pd(ayz, _mm_shuffle_pd(bzw, bxy, 0)));
  xy = _mm_sub_pd(xy, _mm_mul_pd(azx, _mm_shuffle_pd(bxy, bzw, 1)));

  // Lanes z, w: z = a.w*b.z + a.z*b.w + a.x*b.y - a.y*b.x,
  //             w = a.w*b.w - a.x*b.x - a.y*b.y - a.z*b.z.
  __m128d zw = _mm_mul_pd(aww, bzw);
  zw = _mm_add_pd(zw, _mm_mul_pd(_mm_xor_pd(azx, negHigh), _mm_shuffle_pd(bzw, bxy, 1)));
  zw = _mm_add_pd(zw, _mm_mul_pd(_mm_xor_pd(axy, negHigh), _mm_unpackhi_pd(bxy, bxy)));
  zw = _mm_sub_pd(zw, _mm_mul_pd(ayz, _mm_unpacklo_pd(bxy, bzw)));

  MQuat r;
  _mm_storeu_pd(&r.x, xy);
  _mm_storeu_pd(&r.z, zw);
  return r;
}
#endif

[[gnu::always_inline]] inline MQuat quatProduct(const MQuat& a, const MQuat& b) {
#if defined(__SSE2__)
  return quatProductSse2(a, b);
#else
  return quatProductPlain(a, b);
#endif
}

}  // namespace lumagrid::detail

#endif
