// vec3d and vec4d on any input: normalisation, perpendiculars, Hermite end
// points, and the named and operator forms of each operation agreeing. What a
// single value shows (the component-wise formulas, set, copy, min, max) is
// the unit tests' job.

#include "math_fuzz.h"

#include <algorithm>
#include <cmath>

namespace mathfuzz {

void Vec3Normalize(MathState& fz) {
  const vec3d v = fz.Vec3();
  vec3d n = v;
  n.normalize();
  const double l = v.length();
  if (l < kTolerance) {
    FUZZ_CHECK(IsZero(n));
  } else if (Finite(v) && std::isinf(l)) {
    // The squares overflow: every component is scaled by 1/inf.
    FUZZ_CHECK(IsZero(n));
  } else if (Finite(v) && Finite(l)) {
    FUZZ_CHECK(std::fabs(n.length() - 1.0) < 1e-13);
  }
  FUZZ_CHECK((v == v) == Finite(v));
  FUZZ_CHECK((v != v) == !Finite(v));
}

void Vec3Perp(MathState& fz) {
  const vec3d v = fz.Vec3();
  vec3d p = fz.Vec3();  // overwritten
  p.perp(v);
  if (Finite(v) && Finite(v.squared())) {
    // Either cleared by normalize(), or of unit length.
    FUZZ_CHECK(IsZero(p) || std::fabs(p.length() - 1.0) < 1e-13);
    FUZZ_CHECK(std::fabs(p.dot(v)) <= 1e-13 * v.length() + 1e-300);
    // Exactly one component is zeroed, and it is one of least magnitude.
    const double a[3] = {std::fabs(v.x()), std::fabs(v.y()), std::fabs(v.z())};
    const double least = std::min(a[0], std::min(a[1], a[2]));
    bool zeroedLeast = false;
    for (int k = 0; k < 3; ++k) {
      if (p[k] == 0.0 && a[k] == least) {
        zeroedLeast = true;
      }
    }
    FUZZ_CHECK(zeroedLeast);
  }
}

void Cubic(MathState& fz) {
  const vec3d p0 = fz.Vec3();
  const vec3d m0 = fz.Vec3();
  const vec3d m1 = fz.Vec3();
  const vec3d p1 = fz.Vec3();
  const double t = fz.Param();
  vec3d r;
  r.cubic(p0, m0, m1, p1, t);
  const vec4d q0(p0.x(), p0.y(), p0.z(), m0.x());
  const vec4d n0(m0.y(), m0.z(), m1.x(), m1.y());
  const vec4d n1(m1.z(), p1.x(), p1.y(), p1.z());
  const vec4d q1(t, p0.y(), m1.z(), p1.x());
  vec4d r4;
  r4.cubic(q0, n0, n1, q1, t);
  if (Finite(p0) && Finite(m0) && Finite(m1) && Finite(p1)) {
    // The Hermite weights are exactly (1, 0, 0, 0) at 0 and (0, 1, 0, 0) at 1.
    r.cubic(p0, m0, m1, p1, 0.0);
    FUZZ_CHECK(Equal(r, p0));
    r.cubic(p0, m0, m1, p1, 1.0);
    FUZZ_CHECK(Equal(r, p1));
  }
  if (Finite(q0) && Finite(n0) && Finite(n1) && Finite(q1)) {
    r4.cubic(q0, n0, n1, q1, 0.0);
    FUZZ_CHECK(r4.x() == q0.x() && r4.y() == q0.y() && r4.z() == q0.z() && r4.w() == q0.w());
    r4.cubic(q0, n0, n1, q1, 1.0);
    FUZZ_CHECK(r4.x() == q1.x() && r4.y() == q1.y() && r4.z() == q1.z() && r4.w() == q1.w());
  }
}

void Vec3Misc(MathState& fz) {
  const vec3d a = fz.Vec3();
  const vec3d b = fz.Vec3();
  const vec3d c = fz.Vec3();
  const double s = fz.Num();

  const vec3d sum = a + b;
  const vec3d diff = a - b;
  const vec3d neg = -a;
  for (int k = 0; k < 3; ++k) {
    FUZZ_CHECK(std::signbit(neg[k]) != std::signbit(a[k]));
  }
  vec3d t;
  t.add(a, b);
  FUZZ_CHECK(equalOrBothNaN(t, sum, 3));
  t.sub(a, b);
  FUZZ_CHECK(equalOrBothNaN(t, diff, 3));
  t = a;
  t.neg();
  FUZZ_CHECK(sameBitsAll(t, neg));
  t = a;
  t.abs();
  t = a;
  t += b;
  t -= c;
  t *= s;
  t.scalar(s);
  const vec3d plus = +a;
  FUZZ_CHECK(sameBitsAll(plus, a));

  FUZZ_CHECK(equalOrBothNaN(a.dot(b), b.dot(a)));
  FUZZ_CHECK(equalOrBothNaN(a * b, a.dot(b)));
  FUZZ_CHECK(equalOrBothNaN(a.squared(), a.dot(a)));
  FUZZ_CHECK(equalOrBothNaN(a.length(), std::sqrt(a.squared())));

  vec3d x;
  x.cross(a, b);
  if (fz.in.IsTame()) {
    // Small multiples of 1/64: every product and sum here is exact.
    FUZZ_CHECK(x.dot(a) == 0.0 && x.dot(b) == 0.0);
  }

  t.lerp(a, b, 0.0);
  if (Finite(a) && Finite(diff)) {
    FUZZ_CHECK(Equal(t, a));
  }
  t.lerp(a, b, s);
  t = a;
  t.min(b);
  t.max(c);
  t.linear_comb(s, a, -s, b);
  t.normal(a, b, c);

  t = a;
  t.homogenize();
  FUZZ_CHECK(equalOrBothNaN(t.z(), a.z()));
  t = a;
  t.rationalize();
  if (std::fabs(a.z()) < kTolerance) {
    FUZZ_CHECK(IsZero(t));
  } else {
    FUZZ_CHECK(t.z() == 1.0);
  }
  t = a;
  t.cartesianize();
  if (std::fabs(a.z()) < kTolerance) {
    FUZZ_CHECK(IsZero(t));
  } else {
    FUZZ_CHECK(t.z() == 1.0);
  }
}

void Vec4Misc(MathState& fz) {
  const vec4d a = fz.Vec4();
  const vec4d b = fz.Vec4();
  const double s = fz.Num();

  FUZZ_CHECK((a == a) == Finite(a));
  FUZZ_CHECK((a != a) == !Finite(a));

  vec4d n = a;
  n.normalize();
  const double l = a.length();
  if (l < kTolerance) {
    // Left as it was, unlike vec3d::normalize.
    FUZZ_CHECK(sameBitsAll(n, a));
  } else if (Finite(a) && Finite(l)) {
    FUZZ_CHECK(std::fabs(n.length() - 1.0) < 1e-13);
  }

  vec4d r = a;
  const double rr = r.rationalize();
  vec4d c = a;
  const double cr = c.cartesianize();
  if (std::fabs(a.w()) < kTolerance) {
    FUZZ_CHECK(rr == 0.0 && cr == 0.0);
    FUZZ_CHECK(r.x() == 0.0 && r.y() == 0.0 && r.z() == 0.0 && r.w() == 0.0);
  } else {
    FUZZ_CHECK(rr == 1.0 && cr == 1.0 && r.w() == 1.0 && c.w() == 1.0);
  }
  for (int k = 0; k < 4; ++k) {
    FUZZ_CHECK(equalOrBothNaN(r[k], c[k]));
  }

  const vec3d guarded = a.operator vec3d();
  if (std::fabs(a.w()) < kTolerance) {
    FUZZ_CHECK(IsZero(guarded));
  }
  const vec3d divided(a);  // divides whatever w is
  static_cast<void>(divided);
  const vec4d lifted(vec3d(a.x(), a.y(), a.z()));
  FUZZ_CHECK(equalOrBothNaN(lifted.x(), a.x()) && equalOrBothNaN(lifted.y(), a.y()) &&
             equalOrBothNaN(lifted.z(), a.z()) && lifted.w() == 1.0);

  const vec4d sum = a + b;
  const vec4d diff = a - b;
  const vec4d neg = -a;
  for (int k = 0; k < 4; ++k) {
    FUZZ_CHECK(std::signbit(neg[k]) != std::signbit(a[k]));
  }
  vec4d t;
  t.sub(a, b);
  FUZZ_CHECK(equalOrBothNaN(t, diff, 4));
  t.add(a, b);
  FUZZ_CHECK(equalOrBothNaN(t, sum, 4));
  t = a;
  t.min(b);
  t.max(a);
  t.lerp(a, b, 0.0);
  if (Finite(a) && Finite(diff)) {
    FUZZ_CHECK(t.x() == a.x() && t.y() == a.y() && t.z() == a.z() && t.w() == a.w());
  }
  t.lerp(a, b, s);
  t = a;
  t.homogenize();
  FUZZ_CHECK(equalOrBothNaN(t.w(), a.w()));
  t.neg();
  t.abs();
  t += b;
  t -= a;
  t *= s;
  t.scalar(s);
  t.linear_comb(s, a, s, b);
  FUZZ_CHECK(equalOrBothNaN(a.dot(b), b.dot(a)));
  FUZZ_CHECK(equalOrBothNaN(a * b, a.dot(b)));
  FUZZ_CHECK(equalOrBothNaN(a.squared(), a.dot(a)));
}

}  // namespace mathfuzz
