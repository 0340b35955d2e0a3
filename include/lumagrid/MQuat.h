#ifndef LUMAGRID_MQUAT_H
#define LUMAGRID_MQUAT_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/vec3d.h>

#include <iosfwd>

class mat4x4;

// Rotation quaternion; w is the scalar part. The identity is (0, 0, 0, 1).
class LUMAGRID_API MQuat {
 public:
  double x, y, z, w;

  MQuat() : x(0.0), y(0.0), z(0.0), w(1.0) {}  // the identity
  MQuat(double x_, double y_, double z_, double w_) : x(x_), y(y_), z(z_), w(w_) {}
  // Turns by -angle about axis in the column-vector reading.
  MQuat(const vec3d& axis, double angle);
  MQuat(const mat4x4& m);

  void set(double x, double y, double z, double w);
  void identity();

  MQuat operator*(const MQuat& b) const;
  MQuat& operator*=(const MQuat& b);
  void mul(const MQuat& a, const MQuat& b);
  MQuat operator*(double s) const;
  MQuat& operator*=(double s);
  void scalar(double s);
  void neg();
  void abs();
  double dot(const MQuat& q) const;
  double squared() const;
  void normalize();
  void invert();
  void log();
  void exp();

  bool cmp(const MQuat& q, double eps) const;
  bool operator==(const MQuat& q) const;
  bool operator!=(const MQuat& q) const;

  // Interpolators write their result into this quaternion.
  void slerp(const MQuat& a, const MQuat& b, double t);
  void squad(const MQuat& p, const MQuat& a, const MQuat& b, const MQuat& q, double t);
  void inner(const MQuat& prev, const MQuat& cur, const MQuat& next);
};

LUMAGRID_API std::ostream& operator<<(std::ostream& os, const MQuat& q);

namespace lumagrid::detail {

// Hamilton product a * b, out of line with the library's own flags: the bits
// the inline path must give.
LUMAGRID_API MQuat quatProductCall(const MQuat& a, const MQuat& b);

#if defined(LUMAGRID_INLINE_KERNELS)
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
  __m128d xy = mulRounded(aww, bxy);
  xy = _mm_add_pd(xy, mulRounded(axy, _mm_unpackhi_pd(bzw, bzw)));
  xy = _mm_add_pd(xy, mulRounded(ayz, _mm_shuffle_pd(bzw, bxy, 0)));
  xy = _mm_sub_pd(xy, mulRounded(azx, _mm_shuffle_pd(bxy, bzw, 1)));

  // Lanes z, w: z = a.w*b.z + a.z*b.w + a.x*b.y - a.y*b.x,
  //             w = a.w*b.w - a.x*b.x - a.y*b.y - a.z*b.z.
  __m128d zw = mulRounded(aww, bzw);
  zw = _mm_add_pd(zw, mulRounded(_mm_xor_pd(azx, negHigh), _mm_shuffle_pd(bzw, bxy, 1)));
  zw = _mm_add_pd(zw, mulRounded(_mm_xor_pd(axy, negHigh), _mm_unpackhi_pd(bxy, bxy)));
  zw = _mm_sub_pd(zw, mulRounded(ayz, _mm_unpacklo_pd(bxy, bzw)));

  MQuat r;
  _mm_storeu_pd(&r.x, xy);
  _mm_storeu_pd(&r.z, zw);
  return r;
}
#endif

// The product the members below and the library's own code use.
[[gnu::always_inline]] inline MQuat quatProductInline(const MQuat& a, const MQuat& b) {
#if defined(LUMAGRID_INLINE_KERNELS)
  return quatProductSse2(a, b);
#else
  return quatProductCall(a, b);
#endif
}

}  // namespace lumagrid::detail

inline MQuat MQuat::operator*(const MQuat& b) const {
  return lumagrid::detail::quatProductInline(*this, b);
}

inline MQuat& MQuat::operator*=(const MQuat& b) {
  *this = lumagrid::detail::quatProductInline(*this, b);
  return *this;
}

inline void MQuat::mul(const MQuat& a, const MQuat& b) {
  *this = lumagrid::detail::quatProductInline(a, b);
}

#endif
