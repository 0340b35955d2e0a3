#include <lumagrid/MQuat.h>

#include <lumagrid/mat4x4.h>

#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr double kTiny = 1e-10;

// Hamilton product a * b; both operands are read before anything is written.
// The SSE2 path runs the same operations per component in the same order:
// a - b is a + (-b) and -(a * b) is (-a) * b exactly, so results are
// identical to the scalar path's bit for bit.
inline MQuat product(MQuat const& a, MQuat const& b) {
#if defined(__SSE2__)
  __m128d const axy = _mm_loadu_pd(&a.x);
  __m128d const azw = _mm_loadu_pd(&a.z);
  __m128d const bxy = _mm_loadu_pd(&b.x);
  __m128d const bzw = _mm_loadu_pd(&b.z);
  __m128d const negHigh = _mm_set_pd(-0.0, 0.0);

  // The first two terms of each component may trade places (their sum is
  // the same either way); the third and fourth keep theirs.
  // Lanes x, y: x = a.x*b.w + a.w*b.x + a.y*b.z - a.z*b.y,
  //             y = a.w*b.y + a.y*b.w + a.z*b.x - a.x*b.z.
  __m128d const aww = _mm_unpackhi_pd(azw, azw);
  __m128d const ayz = _mm_shuffle_pd(axy, azw, 1);
  __m128d const azx = _mm_shuffle_pd(azw, axy, 0);
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
#else
  return MQuat(
      a.x * b.w + a.w * b.x + a.y * b.z - a.z * b.y, a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z,
      a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z);
#endif
}

// Logarithm of the turn from a to b, as the control-point rule needs it.
MQuat logDifference(MQuat const& a, MQuat const& b) {
  MQuat ai = a;
  ai.invert();
  MQuat d = product(ai, b);
  d.log();
  return d;
}

}  // namespace

MQuat::MQuat(vec3d const& axis, double angle) {
  double const l = axis.length();
  if (l < kTiny) {
    x = 0.0;
    y = 0.0;
    z = 0.0;
    w = 1.0;
    return;
  }
  // The half-angle is negated: this quaternion turns by -angle.
  double const half = angle * (-0.5);
  double const k = std::sin(half) / l;
  x = axis.x() * k;
  y = axis.y() * k;
  z = axis.z() * k;
  w = std::cos(half);
}

MQuat::MQuat(mat4x4 const& mat) {
  double const* e = mat;
  double const tr = e[0] + e[5] + e[10];
  if (tr > 0.0) {
    double const s = std::sqrt(tr + 1.0);
    w = 0.5 * s;
    double const r = 0.5 / s;
    x = (e[6] - e[9]) * r;
    y = (e[8] - e[2]) * r;
    z = (e[1] - e[4]) * r;
    return;
  }

  int i = e[5] > e[0] ? 1 : 0;
  if (e[10] > e[5 * i]) {
    i = 2;
  }
  int const j = (i + 1) % 3;
  int const k = (j + 1) % 3;

  double q[3];
  double const s = std::sqrt(e[5 * i] - (e[5 * k] + e[5 * j]) + 1.0);
  q[i] = 0.5 * s;
  if (std::fabs(s) < kTiny) {
    x = 0.0;
    y = 0.0;
    z = 0.0;
    w = 1.0;
    return;
  }
  double const r = 0.5 / s;
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

MQuat MQuat::operator*(MQuat const& b) const {
  return product(*this, b);
}

MQuat& MQuat::operator*=(MQuat const& b) {
  *this = product(*this, b);
  return *this;
}

void MQuat::mul(MQuat const& a, MQuat const& b) {
  *this = product(a, b);
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

double MQuat::dot(MQuat const& q) const {
  return x * q.x + y * q.y + z * q.z + w * q.w;
}

double MQuat::squared() const {
  return x * x + y * y + z * z + w * w;
}

void MQuat::normalize() {
  double const n = std::sqrt(squared());
  if (std::fabs(n) < kTiny) {
    identity();
    return;
  }
  scalar(1.0 / n);
}

void MQuat::invert() {
  double const n = std::sqrt(squared());
  if (std::fabs(n) < kTiny) {
    identity();
    return;
  }
  // Divides by the norm, not its square: the inverse only of a unit quaternion.
  double const r = 1.0 / n;
  x = -x * r;
  y = -y * r;
  z = -z * r;
  w = w * r;
}

void MQuat::log() {
  double const v = std::sqrt(x * x + y * y + z * z);
  double const f = std::fabs(v) < kTiny ? 0.0 : std::atan2(v, w) / v;
  x *= f;
  y *= f;
  z *= f;
  w = 0.0;
}

void MQuat::exp() {
  double const v = std::sqrt(x * x + y * y + z * z);
  double const f = std::fabs(v) < kTiny ? 1.0 : std::sin(v) / v;
  x *= f;
  y *= f;
  z *= f;
  w = std::cos(v);
}

bool MQuat::cmp(MQuat const& q, double eps) const {
  return std::fabs(x - q.x) < eps && std::fabs(y - q.y) < eps && std::fabs(z - q.z) < eps &&
         std::fabs(w - q.w) < eps;
}

bool MQuat::operator==(MQuat const& q) const {
  return cmp(q, kTiny);
}

bool MQuat::operator!=(MQuat const& q) const {
  return !cmp(q, kTiny);
}

void MQuat::slerp(MQuat const& a_, MQuat const& b_, double t) {
  // Copies, so that this may be either operand.
  MQuat const a = a_;
  MQuat const b = b_;
  double cs = a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w;
  if (cs + 1.0 > kTiny) {
    if (std::fabs(cs) > 1.0) {
      cs = cs / std::fabs(cs);
    }
    // A negative cosine is interpolated as it stands: the long arc is allowed.
    double const theta = std::acos(cs);
    double const s = std::sin(theta);
    double k0 = 1.0 - t;
    double k1 = t;
    if (std::fabs(s) > kTiny) {
      k0 = std::sin((1.0 - t) * theta) / s;
      k1 = std::sin(t * theta) / s;
    }
    x = k0 * a.x + k1 * b.x;
    y = k0 * a.y + k1 * b.y;
    z = k0 * a.z + k1 * b.z;
    w = k0 * a.w + k1 * b.w;
    return;
  }

  // Opposite quaternions: turn through a perpendicular one instead of b.
  double const h = 1.5707963267948966;
  double const k0 = std::sin((1.0 - t) * h);
  double const k1 = std::sin(t * h);
  double const px = -a.y;
  double const py = a.x;
  double const pz = -a.w;
  double const pw = a.z;
  x = k0 * a.x + k1 * px;
  y = k0 * a.y + k1 * py;
  z = k0 * a.z + k1 * pz;
  w = k0 * a.w + k1 * pw;
}

void MQuat::squad(MQuat const& p, MQuat const& a, MQuat const& b, MQuat const& q, double t) {
  MQuat outer;
  outer.slerp(p, q, t);
  MQuat controls;
  controls.slerp(a, b, t);
  slerp(outer, controls, 2.0 * t * (1.0 - t));
}

void MQuat::inner(MQuat const& prev, MQuat const& cur, MQuat const& next) {
  MQuat const toNext = logDifference(cur, next);
  MQuat const toPrev = logDifference(cur, prev);
  MQuat s(-0.25 * (toNext.x + toPrev.x), -0.25 * (toNext.y + toPrev.y),
          -0.25 * (toNext.z + toPrev.z), -0.25 * (toNext.w + toPrev.w));
  s.exp();
  *this = product(cur, s);
}
