#include <lumagrid/MQuat.h>

#include <lumagrid/mat4x4.h>

#include "math/angles.h"
#include "math/quat_product.h"
#include "math/tolerance.h"

#include <cmath>

using lumagrid::detail::kTolerance;
using lumagrid::detail::quatProduct;

namespace {

// Logarithm of the turn from a to b, as the control-point rule needs it.
MQuat logDifference(const MQuat& a, const MQuat& b) {
  MQuat ai = a;
  ai.invert();
  MQuat d = quatProduct(ai, b);
  d.log();
  return d;
}

// slerp() of opposite quaternions: a turn through a perpendicular one
// instead of b. Out of line, so that the common case keeps its registers.
[[gnu::noinline, gnu::cold]] MQuat slerpOpposite(const MQuat& a, double t) {
  const double h = lumagrid::detail::kHalfPi;
  const double k0 = std::sin((1.0 - t) * h);
  const double k1 = std::sin(t * h);
  const double px = -a.y;
  const double py = a.x;
  const double pz = -a.w;
  const double pw = a.z;
  return MQuat(k0 * a.x + k1 * px, k0 * a.y + k1 * py, k0 * a.z + k1 * pz, k0 * a.w + k1 * pw);
}

}  // namespace

MQuat::MQuat(const vec3d& axis, double angle) {
  const double l = axis.length();
  if (l < kTolerance) {
    x = 0.0;
    y = 0.0;
    z = 0.0;
    w = 1.0;
    return;
  }
  // The half-angle is negated: this quaternion turns by -angle.
  const double half = angle * (-0.5);
  const double k = std::sin(half) / l;
  x = axis.x() * k;
  y = axis.y() * k;
  z = axis.z() * k;
  w = std::cos(half);
}

MQuat::MQuat(const mat4x4& mat) {
  const double* e = mat;
  const double tr = e[0] + e[5] + e[10];
  if (tr > 0.0) {
    const double s = std::sqrt(tr + 1.0);
    w = 0.5 * s;
    const double r = 0.5 / s;
    x = (e[6] - e[9]) * r;
    y = (e[8] - e[2]) * r;
    z = (e[1] - e[4]) * r;
    return;
  }

  int i = e[5] > e[0] ? 1 : 0;
  if (e[10] > e[5 * i]) {
    i = 2;
  }
  const int j = (i + 1) % 3;
  const int k = (j + 1) % 3;

  double q[3];
  const double s = std::sqrt(e[5 * i] - (e[5 * k] + e[5 * j]) + 1.0);
  q[i] = 0.5 * s;
  if (std::fabs(s) < kTolerance) {
    x = 0.0;
    y = 0.0;
    z = 0.0;
    w = 1.0;
    return;
  }
  const double r = 0.5 / s;
  w = (e[4 * j + k] - e[4 * k + j]) * r;
  q[j] = (e[4 * j + i] + e[4 * i + j]) * r;
  q[k] = (e[4 * k + i] + e[4 * i + k]) * r;
  x = q[0];
  y = q[1];
  z = q[2];
}

void MQuat::set(double x_, double y_, double z_, double w_) {
  x = x_;
  y = y_;
  z = z_;
  w = w_;
}

void MQuat::identity() {
  set(0.0, 0.0, 0.0, 1.0);
}

// The out-of-line copy, for hosts whose compiler cannot inline the SSE2
// kernel: built with the library's flags, it takes the two-lane path where
// the library has it (same bits as the plain one, and faster).
MQuat lumagrid::detail::quatProductCall(const MQuat& a, const MQuat& b) {
#if defined(LUMAGRID_INLINE_KERNELS)
  MQuat r;
  quatProductSse2(&a.x, &b.x, &r.x);
  return r;
#else
  return quatProductPlain(a, b);
#endif
}

MQuat MQuat::operator*(double s) const {
  return MQuat(x * s, y * s, z * s, w * s);
}

MQuat& MQuat::operator*=(double s) {
  scalar(s);
  return *this;
}

void MQuat::scalar(double s) {
  x *= s;
  y *= s;
  z *= s;
  w *= s;
}

void MQuat::neg() {
  x = -x;
  y = -y;
  z = -z;
  w = -w;
}

void MQuat::abs() {
  x = std::fabs(x);
  y = std::fabs(y);
  z = std::fabs(z);
  w = std::fabs(w);
}

double MQuat::dot(const MQuat& q) const {
  return x * q.x + y * q.y + z * q.z + w * q.w;
}

double MQuat::squared() const {
  return x * x + y * y + z * z + w * w;
}

void MQuat::normalize() {
  const double n = std::sqrt(squared());
  if (std::fabs(n) < kTolerance) {
    identity();
    return;
  }
  scalar(1.0 / n);
}

void MQuat::invert() {
  const double n = std::sqrt(squared());
  if (std::fabs(n) < kTolerance) {
    identity();
    return;
  }
  // Divides by the norm, not its square: the inverse only of a unit quaternion.
  const double r = 1.0 / n;
  x = -x * r;
  y = -y * r;
  z = -z * r;
  w = w * r;
}

void MQuat::log() {
  const double v = std::sqrt(x * x + y * y + z * z);
  const double f = std::fabs(v) < kTolerance ? 0.0 : std::atan2(v, w) / v;
  x *= f;
  y *= f;
  z *= f;
  w = 0.0;
}

void MQuat::exp() {
  const double v = std::sqrt(x * x + y * y + z * z);
  const double f = std::fabs(v) < kTolerance ? 1.0 : std::sin(v) / v;
  x *= f;
  y *= f;
  z *= f;
  w = std::cos(v);
}

bool MQuat::cmp(const MQuat& q, double eps) const {
  return std::fabs(x - q.x) < eps && std::fabs(y - q.y) < eps && std::fabs(z - q.z) < eps &&
         std::fabs(w - q.w) < eps;
}

bool MQuat::operator==(const MQuat& q) const {
  return cmp(q, kTolerance);
}

bool MQuat::operator!=(const MQuat& q) const {
  return !cmp(q, kTolerance);
}

void MQuat::slerp(const MQuat& a, const MQuat& b, double t) {
  double cs = a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w;
  if (!(cs + 1.0 > kTolerance)) {
    *this = slerpOpposite(a, t);
    return;
  }
  if (std::fabs(cs) > 1.0) {
    cs = cs / std::fabs(cs);
  }
  // A negative cosine is interpolated as it stands: the long arc is allowed.
  const double theta = std::acos(cs);
  const double s = std::sin(theta);
  double k0 = 1.0 - t;
  double k1 = t;
  if (std::fabs(s) > kTolerance) {
    k0 = std::sin((1.0 - t) * theta) / s;
    k1 = std::sin(t * theta) / s;
  }
  // No copies of a and b: each component reads only its own, so this may be
  // either operand.
  x = k0 * a.x + k1 * b.x;
  y = k0 * a.y + k1 * b.y;
  z = k0 * a.z + k1 * b.z;
  w = k0 * a.w + k1 * b.w;
}

void MQuat::squad(const MQuat& p, const MQuat& a, const MQuat& b, const MQuat& q, double t) {
  MQuat outer;
  outer.slerp(p, q, t);
  MQuat controls;
  controls.slerp(a, b, t);
  slerp(outer, controls, 2.0 * t * (1.0 - t));
}

void MQuat::inner(const MQuat& prev, const MQuat& cur, const MQuat& next) {
  const MQuat toNext = logDifference(cur, next);
  const MQuat toPrev = logDifference(cur, prev);
  MQuat s(-0.25 * (toNext.x + toPrev.x), -0.25 * (toNext.y + toPrev.y),
          -0.25 * (toNext.z + toPrev.z), -0.25 * (toNext.w + toPrev.w));
  s.exp();
  *this = quatProduct(cur, s);
}
