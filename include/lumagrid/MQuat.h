#ifndef LUMAGRID_MQUAT_H
#define LUMAGRID_MQUAT_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/math_kernels.h>
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

// The product the members below and the library's own code use.
[[gnu::always_inline]] inline MQuat quatProduct(const MQuat& a, const MQuat& b) {
#if defined(LUMAGRID_INLINE_KERNELS)
  MQuat r;
  quatProductSse2(&a.x, &b.x, &r.x);
  return r;
#else
  return quatProductCall(a, b);
#endif
}

}  // namespace lumagrid::detail

inline MQuat MQuat::operator*(const MQuat& b) const {
  return lumagrid::detail::quatProduct(*this, b);
}

inline MQuat& MQuat::operator*=(const MQuat& b) {
  *this = lumagrid::detail::quatProduct(*this, b);
  return *this;
}

inline void MQuat::mul(const MQuat& a, const MQuat& b) {
  *this = lumagrid::detail::quatProduct(a, b);
}

#endif
