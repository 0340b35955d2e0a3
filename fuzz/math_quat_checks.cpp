// MQuat and MRot on any input: round trips through matrices, interpolation
// end points, the product's forms agreeing, and axis-angle conversions. The
// formulas on single values are the unit tests' job.

#include <lumagrid/MRot.h>

#include "math_fuzz.h"

#include <algorithm>
#include <cmath>

namespace mathfuzz {

namespace {

double QuatDistance(const MQuat& a, const MQuat& b) {
  return std::max(std::max(std::fabs(a.x - b.x), std::fabs(a.y - b.y)),
                  std::max(std::fabs(a.z - b.z), std::fabs(a.w - b.w)));
}

// Normalised by the library, and then of unit length up to rounding.
bool MakeUnit(MQuat& q) {
  q.normalize();
  return Finite(q) && std::fabs(q.squared() - 1.0) < 1e-12;
}
}  // namespace

void QuatFromMatrix(MathState& fz) {
  const MQuat fromCurrent(fz.matrix);
  static_cast<void>(fromCurrent);

  MQuat q = fz.Quat();
  if (MakeUnit(q)) {
    // A rotation matrix gives back its quaternion, up to sign.
    mat4x4 r;
    r.loadRotate(q);
    const MQuat back(r);
    MQuat minus = q;
    minus.neg();
    FUZZ_CHECK(std::min(QuatDistance(back, q), QuatDistance(back, minus)) < 1e-9);
  }
  fz.quat = q;
}

void Slerp(MathState& fz) {
  MQuat a = fz.quat;
  MQuat b = fz.Quat();
  const MQuat c = fz.Quat();
  const MQuat d = fz.Quat();
  const double t = fz.Param();

  MQuat r;
  r.slerp(a, b, t);
  MQuat s;
  s.squad(a, b, c, d, t);
  MQuat in;
  in.inner(a, b, c);

  const bool tame = fz.in.IsTame();
  if (Finite(a) && Finite(b) && Finite(a.dot(b))) {
    // Weights exactly (1, 0) at t = 0 on every branch.
    r.slerp(a, b, 0.0);
    FUZZ_CHECK(QuatDistance(r, a) <= 1e-12 * std::sqrt(a.squared()));
  }
  if (Finite(a) && Finite(b) && Finite(c) && Finite(d) && Finite(a.dot(d)) && Finite(b.dot(c)) &&
      Finite(a.dot(b))) {
    // squad(p, a, b, q, 0) = slerp(p, a, 0) = p.
    s.squad(a, b, c, d, 0.0);
    FUZZ_CHECK(QuatDistance(s, a) <= 1e-12 * std::sqrt(a.squared()));
  }
  if (tame && MakeUnit(a)) {
    // A unit quaternion interpolated with itself stays put.
    r.slerp(a, a, t);
    FUZZ_CHECK(QuatDistance(r, a) < 1e-9);
  }
  fz.quat = in;
}

void QuatAlgebra(MathState& fz) {
  const MQuat a = fz.quat;
  const MQuat b = fz.Quat();
  const double s = fz.Num();

  const MQuat p = a * b;
  MQuat t;
  t.mul(a, b);
  FUZZ_CHECK(equalOrBothNaN(&t.x, &p.x, 4));
  t = a;
  t *= b;
  FUZZ_CHECK(equalOrBothNaN(&t.x, &p.x, 4));

  FUZZ_CHECK((a == a) == Finite(a));
  FUZZ_CHECK((a != a) == !Finite(a));
  FUZZ_CHECK(equalOrBothNaN(a.dot(b), b.dot(a)));
  FUZZ_CHECK(equalOrBothNaN(a.squared(), a.dot(a)));

  const MQuat scaled = a * s;
  t = a;
  t *= s;
  FUZZ_CHECK(equalOrBothNaN(&t.x, &scaled.x, 4));
  t.scalar(s);
  t.neg();
  t.abs();

  MQuat n = a;
  n.normalize();
  MQuat inv = a;
  inv.invert();
  if (std::sqrt(a.squared()) < kTolerance) {
    FUZZ_CHECK(n.x == 0.0 && n.y == 0.0 && n.z == 0.0 && n.w == 1.0);
    FUZZ_CHECK(inv.x == 0.0 && inv.y == 0.0 && inv.z == 0.0 && inv.w == 1.0);
  }

  MQuat l = a;
  l.log();
  FUZZ_CHECK(l.w == 0.0);
  MQuat e = b;
  e.exp();

  MQuat u = a;
  if (MakeUnit(u)) {
    // For a unit quaternion the conjugate is the inverse.
    MQuat conj = u;
    conj.invert();
    const MQuat one = u * conj;
    FUZZ_CHECK(QuatDistance(one, MQuat()) < 1e-12);
    const double v = std::sqrt(u.x * u.x + u.y * u.y + u.z * u.z);
    if (v >= 1e-6) {
      MQuat back = u;
      back.log();
      back.exp();
      FUZZ_CHECK(QuatDistance(back, u) < 1e-9);
    }
    MQuat w = b;
    if (MakeUnit(w)) {
      const MQuat uw = u * w;
      FUZZ_CHECK(std::fabs(uw.squared() - 1.0) < 1e-12);
    }
  }

  fz.quat = fz.in.Bool() ? p : n;
}

void Rot(MathState& fz) {
  const vec3d axis = fz.Vec3();
  const double angle = fz.Num();

  MRot r(axis, angle);
  const MQuat q = r;
  const MQuat direct(axis, angle);
  FUZZ_CHECK(equalOrBothNaN(&q.x, &direct.x, 4));
  if (axis.length() < kTolerance) {
    FUZZ_CHECK(q.x == 0.0 && q.y == 0.0 && q.z == 0.0 && q.w == 1.0);
  }

  const MRot back(fz.quat);
  if (fz.quat.w == 1.0) {
    FUZZ_CHECK(IsZero(back.axis));
    FUZZ_CHECK(back.angle == 0.0);
  }
  FUZZ_CHECK((r == r) == (Finite(axis) && Finite(angle)));
  FUZZ_CHECK((r != r) == !(r == r));
  FUZZ_CHECK(r.cmp(back, kTolerance) == back.cmp(r, kTolerance));
  r.set(axis, -angle);
  MRot copy = r;
  copy = back;

  mat4x4 byRot;
  byRot.loadRotate(r);
  mat4x4 byQuat;
  byQuat.loadRotate(MQuat(r));
  mat4x4 byAxis;
  byAxis.loadRotate(axis, -angle);
  if (Finite(axis) && Finite(angle) && axis.length() <= 1e3 && std::fabs(angle) <= 1e3) {
    FUZZ_CHECK(byRot.cmp(byQuat, 1e-12));
    FUZZ_CHECK(byRot.cmp(byAxis, 1e-12));
  }
}

}  // namespace mathfuzz
