/// @file
/// The rotation quaternion MQuat and its text output.
#ifndef LUMAGRID_MQUAT_H
#define LUMAGRID_MQUAT_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/math_kernels.h>
#include <lumagrid/vec3d.h>

#include <iosfwd>

class mat4x4;

/// Rotation quaternion (x, y, z, w); w is the scalar part.
///
/// A plain value type of four public doubles. The default is the identity
/// (0, 0, 0, 1). mat4x4::loadRotate() and mat4x4::rotate() turn one into a
/// matrix; slerp(), squad() and inner() animate orientations. Built from an
/// axis and an angle (radians) it turns by minus that angle, as MRot and
/// mat4x4::loadRotate() about an axis do. Equality is a tolerance test
/// (1e-10, strict).
class LUMAGRID_API MQuat {
 public:
  /// The vector part x, y, z, then the scalar part w.
  ///@{
  double x, y, z, w;
  ///@}

  /// The identity (0, 0, 0, 1).
  MQuat() : x(0.0), y(0.0), z(0.0), w(1.0) {}
  /// The quaternion (x_, y_, z_, w_), w_ the scalar part.
  MQuat(double x_, double y_, double z_, double w_) : x(x_), y(y_), z(z_), w(w_) {}
  /// Turns by -angle (radians) about axis in the column-vector reading.
  ///
  /// The half-angle is negated: (axis * sin(-angle/2)/|axis|, cos(-angle/2)).
  /// The axis need not be unit length; one shorter than 1e-10 gives the
  /// identity.
  MQuat(const vec3d& axis, double angle);
  /// The rotation in the upper-left 3x3 part of m, which should be a rotation
  /// matrix; the rest of m is not read.
  MQuat(const mat4x4& m);

  /// Sets the four values, w the scalar part.
  void set(double x, double y, double z, double w);
  /// Sets the identity (0, 0, 0, 1).
  void identity();

  /// New quaternion, the Hamilton product this * b.
  ///
  /// Inline, yet gives the library's own bits whatever the host's
  /// floating-point contraction flags.
  MQuat operator*(const MQuat& b) const;
  /// Sets this quaternion to the Hamilton product this * b. @return this
  /// quaternion.
  MQuat& operator*=(const MQuat& b);
  /// Sets this quaternion to the Hamilton product a * b; it may be a or b.
  void mul(const MQuat& a, const MQuat& b);
  /// Scales all four values by s: operator*() returns a new quaternion,
  /// operator*=() (which returns this one) and scalar() scale in place.
  ///@{
  MQuat operator*(double s) const;
  MQuat& operator*=(double s);
  void scalar(double s);
  ///@}
  /// Flips the sign of all four values.
  void neg();
  /// Replaces all four values by their absolute values.
  void abs();
  /// Four-term dot product, summed x, y, z, w.
  double dot(const MQuat& q) const;
  /// Squared norm x^2 + y^2 + z^2 + w^2.
  double squared() const;
  /// Scales to unit norm; a norm below 1e-10 gives the identity.
  void normalize();
  /// Conjugate divided by the norm, not by its square: the inverse of a unit
  /// quaternion only.
  ///
  /// A norm below 1e-10 gives the identity.
  void invert();
  /// Logarithm of a unit quaternion: the vector part scaled by
  /// atan2(|v|, w)/|v|, and w = 0.
  ///
  /// A vector part shorter than 1e-10 becomes zero.
  void log();
  /// Exponential of a pure quaternion: the vector part scaled by
  /// sin(|v|)/|v|, and w = cos(|v|).
  ///
  /// The w it starts from is ignored; a vector part shorter than 1e-10 is
  /// kept as it is.
  void exp();

  /// True when each of the four differences, x first, is strictly less than
  /// eps in magnitude; a NaN difference fails.
  bool cmp(const MQuat& q, double eps) const;
  /// Tolerance equality: cmp() with 1e-10, and its negation. q and -q are the
  /// same rotation yet not equal.
  ///@{
  bool operator==(const MQuat& q) const;
  bool operator!=(const MQuat& q) const;
  ///@}

  // Interpolators write their result into this quaternion.

  /// Spherical linear interpolation from a (t = 0) to b (t = 1), written into
  /// this quaternion, which may be a or b.
  ///
  /// b is taken as given: when a.dot(b) < 0 it turns the long way round
  /// (negate b first for the short arc). Operands whose angle has a sine of
  /// at most 1e-10 use the linear weights 1 - t and t. Opposite operands
  /// (a.dot(b) + 1 <= 1e-10) turn through (-a.y, a.x, -a.w, a.z) instead of
  /// b, so `slerp(q, -q, 1)` is that quaternion, a half turn away from q.
  void slerp(const MQuat& a, const MQuat& b, double t);
  /// Cubic interpolation from p (t = 0) to q (t = 1) with the control
  /// quaternions a and b (see inner()), written into this quaternion.
  ///
  /// slerp(slerp(p, q, t), slerp(a, b, t), 2t(1 - t)), with slerp()'s long
  /// arcs. This quaternion may be any operand.
  void squad(const MQuat& p, const MQuat& a, const MQuat& b, const MQuat& q, double t);
  /// Control quaternion at cur for squad(), from the keys prev, cur and next,
  /// written into this quaternion, which may be any operand.
  ///
  /// cur * exp(-(d(cur, next) + d(cur, prev))/4), where d(a, b) is the log()
  /// of (a inverted as by invert()) * b.
  void inner(const MQuat& prev, const MQuat& cur, const MQuat& next);
};

/// Writes q as `(x, y, z,w)`, with no line end. @return os.
///
/// There is no space between the last comma and w, unlike the first two. The
/// numbers follow the stream's own settings, which are left as they are; a
/// field width applies to the opening bracket only.
LUMAGRID_API std::ostream& operator<<(std::ostream& os, const MQuat& q);

namespace lumagrid::detail {

/// Hamilton product a * b, out of line with the library's own flags: the bits
/// the inline path must give.
LUMAGRID_API MQuat quatProductCall(const MQuat& a, const MQuat& b);

/// The product the members below and the library's own code use.
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
