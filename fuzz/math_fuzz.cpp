// Feeds the math toolkit any bit pattern and checks what must hold for every
// input where it is defined. Most of the value is in the paths the sanitizers
// get to see; the checks keep to what the arithmetic guarantees.
//
// Input: a sequence of operations. Each starts with one byte: its low seven
// bits pick the operation (modulo kOpCount), its high bit picks how the
// operation's numbers are read: clear for Tame() values, set for Raw() bit
// patterns. The operations work on a current matrix and quaternion, so that
// they compose.

#include <lumagrid/MQuat.h>
#include <lumagrid/MRot.h>
#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include "fuzz_input.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ios>
#include <sstream>
#include <string>

namespace {

enum Op : int {
  kLoadMatrix,
  kLoadQuat,
  kVec3Normalize,
  kVec3Perp,
  kCubic,
  kVec3Misc,
  kVec4Misc,
  kDetAdjoint,
  kInverse,
  kReorthogonalize,
  kArithmetic,
  kRowsCols,
  kAxisTransforms,
  kVectorProducts,
  kQuatFromMatrix,
  kSlerp,
  kQuatAlgebra,
  kRot,
  kAlign,
  kOrient,
  kMirror,
  kProj,
  kXform,
  kRotateBy,
  kOutput,
  kOpCount
};

constexpr double kTiny = 1e-10;  // the toolkit's near-zero threshold

// Equal, or both NaN.
bool Same(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

const double* E(const mat4x4& m) {
  return static_cast<const double*>(m);
}

bool Finite(double d) {
  return std::isfinite(d);
}
bool Finite(const vec3d& v) {
  return Finite(v.x()) && Finite(v.y()) && Finite(v.z());
}
bool Finite(const vec4d& v) {
  return Finite(v.x()) && Finite(v.y()) && Finite(v.z()) && Finite(v.w());
}
bool Finite(const MQuat& q) {
  return Finite(q.x) && Finite(q.y) && Finite(q.z) && Finite(q.w);
}
bool Finite(const mat4x4& m) {
  for (int k = 0; k < 16; ++k) {
    if (!Finite(E(m)[k]))
      return false;
  }
  return true;
}

double MaxAbs(const mat4x4& m) {
  double r = 0.0;
  for (int k = 0; k < 16; ++k)
    r = std::max(r, std::fabs(E(m)[k]));
  return r;
}

// Largest row sum of magnitudes.
double NormInf(const mat4x4& m) {
  double r = 0.0;
  for (int row = 0; row < 4; ++row) {
    double s = 0.0;
    for (int col = 0; col < 4; ++col)
      s += std::fabs(E(m)[4 * col + row]);
    r = std::max(r, s);
  }
  return r;
}

mat4x4 Identity() {
  mat4x4 m;
  m.identity();
  return m;
}

bool SameBits(const mat4x4& a, const mat4x4& b) {
  return std::memcmp(E(a), E(b), sizeof(double) * 16) == 0;
}

bool SameValues(const mat4x4& a, const mat4x4& b) {
  for (int k = 0; k < 16; ++k) {
    if (!Same(E(a)[k], E(b)[k]))
      return false;
  }
  return true;
}

// Exactly equal (0 and -0 alike); false for NaNs.
bool Equal(const mat4x4& a, const mat4x4& b) {
  for (int k = 0; k < 16; ++k) {
    if (!(E(a)[k] == E(b)[k]))
      return false;
  }
  return true;
}

bool Equal(const vec3d& a, const vec3d& b) {
  return a.x() == b.x() && a.y() == b.y() && a.z() == b.z();
}

// A multiple of 1/64 within [-512, 512], as FuzzInput::Tame() gives: sums
// of a few products of such values are exact.
bool IsTame(double d) {
  return std::fabs(d) <= 512.0 && std::floor(d * 64.0) == d * 64.0;
}
bool IsTame(const mat4x4& m) {
  for (int k = 0; k < 16; ++k) {
    if (!IsTame(E(m)[k]))
      return false;
  }
  return true;
}

bool IsZero(const vec3d& v) {
  return v.x() == 0.0 && v.y() == 0.0 && v.z() == 0.0;
}

// The product in the column-vector reading, summed in the library's order.
mat4x4 Product(const mat4x4& a, const mat4x4& b) {
  mat4x4 r;
  double* e = r;
  for (int c = 0; c < 4; ++c) {
    for (int row = 0; row < 4; ++row) {
      double s = 0.0;
      for (int k = 0; k < 4; ++k)
        s += E(a)[4 * k + row] * E(b)[4 * c + k];
      e[4 * c + row] = s;
    }
  }
  return r;
}

double QuatDistance(const MQuat& a, const MQuat& b) {
  return std::max(std::max(std::fabs(a.x - b.x), std::fabs(a.y - b.y)),
                  std::max(std::fabs(a.z - b.z), std::fabs(a.w - b.w)));
}

// Normalised by the library, and then of unit length up to rounding.
bool MakeUnit(MQuat& q) {
  q.normalize();
  return Finite(q) && std::fabs(q.squared() - 1.0) < 1e-12;
}

class MathFuzzer {
 public:
  explicit MathFuzzer(FuzzInput& in) : m_in(in) {
    m_m.identity();
    m_q.identity();
  }

  void Run() {
    while (!m_in.Empty()) {
      const int b = m_in.Byte();
      m_in.SetTame((b & 0x80) == 0);
      Step((b & 0x7F) % kOpCount);
    }
  }

 private:
  double Num() { return m_in.Number(); }
  vec3d Vec3() {
    const double x = Num();
    const double y = Num();
    const double z = Num();
    return vec3d(x, y, z);
  }
  vec4d Vec4() {
    const double x = Num();
    const double y = Num();
    const double z = Num();
    const double w = Num();
    return vec4d(x, y, z, w);
  }
  MQuat Quat() {
    const double x = Num();
    const double y = Num();
    const double z = Num();
    const double w = Num();
    return MQuat(x, y, z, w);
  }
  mat4x4 Matrix() {
    mat4x4 m;
    double* e = m;
    for (int k = 0; k < 16; ++k)
      e[k] = Num();
    return m;
  }
  // t for interpolations: tame ones stay within [-2, 3].
  double Param() {
    if (m_in.IsTame())
      return std::fmod(Num(), 5.0) / 2.0 + 0.5;
    return Num();
  }

  void Step(int op) {
    switch (op) {
      case kLoadMatrix:
        m_m = Matrix();
        break;
      case kLoadQuat:
        m_q = Quat();
        break;
      case kVec3Normalize:
        Vec3Normalize();
        break;
      case kVec3Perp:
        Vec3Perp();
        break;
      case kCubic:
        Cubic();
        break;
      case kVec3Misc:
        Vec3Misc();
        break;
      case kVec4Misc:
        Vec4Misc();
        break;
      case kDetAdjoint:
        DetAdjoint();
        break;
      case kInverse:
        Inverse();
        break;
      case kReorthogonalize:
        Reorthogonalize();
        break;
      case kArithmetic:
        Arithmetic();
        break;
      case kRowsCols:
        RowsCols();
        break;
      case kAxisTransforms:
        AxisTransforms();
        break;
      case kVectorProducts:
        VectorProducts();
        break;
      case kQuatFromMatrix:
        QuatFromMatrix();
        break;
      case kSlerp:
        Slerp();
        break;
      case kQuatAlgebra:
        QuatAlgebra();
        break;
      case kRot:
        Rot();
        break;
      case kAlign:
        Align();
        break;
      case kOrient:
        Orient();
        break;
      case kMirror:
        Mirror();
        break;
      case kProj:
        Proj();
        break;
      case kXform:
        Xform();
        break;
      case kRotateBy:
        RotateBy();
        break;
      case kOutput:
        Output();
        break;
      default:
        break;
    }
  }

  // ------------------------------------------------------------ vectors

  void Vec3Normalize() {
    const vec3d v = Vec3();
    vec3d n = v;
    n.normalize();
    const double l = v.length();
    if (l < kTiny) {
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

  void Vec3Perp() {
    const vec3d v = Vec3();
    vec3d p = Vec3();  // overwritten
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
        if (p[k] == 0.0 && a[k] == least)
          zeroedLeast = true;
      }
      FUZZ_CHECK(zeroedLeast);
    }
  }

  void Cubic() {
    const vec3d p0 = Vec3();
    const vec3d m0 = Vec3();
    const vec3d m1 = Vec3();
    const vec3d p1 = Vec3();
    const double t = Param();
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

  void Vec3Misc() {
    const vec3d a = Vec3();
    const vec3d b = Vec3();
    const vec3d c = Vec3();
    const double s = Num();

    const vec3d sum = a + b;
    const vec3d diff = a - b;
    const vec3d neg = -a;
    const vec3d scaled = a * s;
    for (int k = 0; k < 3; ++k) {
      FUZZ_CHECK(Same(sum[k], a[k] + b[k]));
      FUZZ_CHECK(Same(diff[k], a[k] - b[k]));
      FUZZ_CHECK(std::signbit(neg[k]) != std::signbit(a[k]));
      FUZZ_CHECK(Same(scaled[k], a[k] * s));
    }
    vec3d t;
    t.add(a, b);
    FUZZ_CHECK(Same(t.x(), sum.x()) && Same(t.y(), sum.y()) && Same(t.z(), sum.z()));
    t.sub(a, b);
    FUZZ_CHECK(Same(t.x(), diff.x()) && Same(t.y(), diff.y()) && Same(t.z(), diff.z()));
    t = a;
    t.neg();
    FUZZ_CHECK(std::memcmp(static_cast<const double*>(t), static_cast<const double*>(neg),
                           3 * sizeof(double)) == 0);
    t = a;
    t.abs();
    for (int k = 0; k < 3; ++k)
      FUZZ_CHECK(Same(t[k], std::fabs(a[k])));
    t = a;
    t += b;
    t -= c;
    t *= s;
    t.scalar(s);
    const vec3d plus = +a;
    FUZZ_CHECK(std::memcmp(static_cast<const double*>(plus), static_cast<const double*>(a),
                           3 * sizeof(double)) == 0);

    FUZZ_CHECK(Same(a.dot(b), b.dot(a)));
    FUZZ_CHECK(Same(a * b, a.dot(b)));
    FUZZ_CHECK(Same(a.squared(), a.dot(a)));
    FUZZ_CHECK(Same(a.length(), std::sqrt(a.squared())));

    vec3d x;
    x.cross(a, b);
    if (m_in.IsTame()) {
      // Small multiples of 1/64: every product and sum here is exact.
      FUZZ_CHECK(x.dot(a) == 0.0 && x.dot(b) == 0.0);
    }

    t.lerp(a, b, 0.0);
    if (Finite(a) && Finite(diff))
      FUZZ_CHECK(Equal(t, a));
    t.lerp(a, b, s);

    t = a;
    t.min(b);
    for (int k = 0; k < 3; ++k)
      FUZZ_CHECK(Same(t[k], a[k] > b[k] ? b[k] : a[k]));
    t = a;
    t.max(b);
    for (int k = 0; k < 3; ++k)
      FUZZ_CHECK(Same(t[k], b[k] > a[k] ? b[k] : a[k]));

    t.linear_comb(s, a, -s, b);
    t.normal(a, b, c);

    t = a;
    t.homogenize();
    FUZZ_CHECK(Same(t.z(), a.z()));
    t = a;
    t.rationalize();
    if (std::fabs(a.z()) < kTiny)
      FUZZ_CHECK(IsZero(t));
    else
      FUZZ_CHECK(t.z() == 1.0);
    t = a;
    t.cartesianize();
    if (std::fabs(a.z()) < kTiny)
      FUZZ_CHECK(IsZero(t));
    else
      FUZZ_CHECK(t.z() == 1.0);

    t.set(s, s, s);
    t.zero();
    FUZZ_CHECK(IsZero(t));
    t.copy(c);
    FUZZ_CHECK(std::memcmp(static_cast<const double*>(t), static_cast<const double*>(c),
                           3 * sizeof(double)) == 0);
    for (int k = 0; k < 3; ++k)
      FUZZ_CHECK(Same(t.get(k), c[k]));
  }

  void Vec4Misc() {
    const vec4d a = Vec4();
    const vec4d b = Vec4();
    const double s = Num();

    FUZZ_CHECK((a == a) == Finite(a));
    FUZZ_CHECK((a != a) == !Finite(a));

    vec4d n = a;
    n.normalize();
    const double l = a.length();
    if (l < kTiny) {
      // Left as it was, unlike vec3d::normalize.
      FUZZ_CHECK(std::memcmp(static_cast<const double*>(n), static_cast<const double*>(a),
                             sizeof(vec4d)) == 0);
    } else if (Finite(a) && Finite(l)) {
      FUZZ_CHECK(std::fabs(n.length() - 1.0) < 1e-13);
    }

    vec4d r = a;
    const double rr = r.rationalize();
    vec4d c = a;
    const double cr = c.cartesianize();
    if (std::fabs(a.w()) < kTiny) {
      FUZZ_CHECK(rr == 0.0 && cr == 0.0);
      FUZZ_CHECK(r.x() == 0.0 && r.y() == 0.0 && r.z() == 0.0 && r.w() == 0.0);
    } else {
      FUZZ_CHECK(rr == 1.0 && cr == 1.0 && r.w() == 1.0 && c.w() == 1.0);
    }
    for (int k = 0; k < 4; ++k)
      FUZZ_CHECK(Same(r[k], c[k]));

    const vec3d guarded = a.operator vec3d();
    if (std::fabs(a.w()) < kTiny)
      FUZZ_CHECK(IsZero(guarded));
    const vec3d divided(a);  // divides whatever w is
    static_cast<void>(divided);
    const vec4d lifted(vec3d(a.x(), a.y(), a.z()));
    FUZZ_CHECK(Same(lifted.x(), a.x()) && Same(lifted.y(), a.y()) && Same(lifted.z(), a.z()) &&
               lifted.w() == 1.0);

    const vec4d sum = a + b;
    const vec4d diff = a - b;
    const vec4d neg = -a;
    const vec4d scaled = a * s;
    for (int k = 0; k < 4; ++k) {
      FUZZ_CHECK(Same(sum[k], a[k] + b[k]));
      FUZZ_CHECK(Same(diff[k], a[k] - b[k]));
      FUZZ_CHECK(std::signbit(neg[k]) != std::signbit(a[k]));
      FUZZ_CHECK(Same(scaled[k], a[k] * s));
    }
    vec4d t;
    t.sub(a, b);
    for (int k = 0; k < 4; ++k)
      FUZZ_CHECK(Same(t[k], diff[k]));
    t.add(a, b);
    for (int k = 0; k < 4; ++k)
      FUZZ_CHECK(Same(t[k], sum[k]));
    t = a;
    t.min(b);
    for (int k = 0; k < 4; ++k)
      FUZZ_CHECK(Same(t[k], a[k] > b[k] ? b[k] : a[k]));
    t = a;
    t.max(b);
    for (int k = 0; k < 4; ++k)
      FUZZ_CHECK(Same(t[k], b[k] > a[k] ? b[k] : a[k]));
    t.lerp(a, b, 0.0);
    if (Finite(a) && Finite(diff))
      FUZZ_CHECK(t.x() == a.x() && t.y() == a.y() && t.z() == a.z() && t.w() == a.w());
    t.lerp(a, b, s);
    t = a;
    t.homogenize();
    FUZZ_CHECK(Same(t.w(), a.w()));
    t.neg();
    t.abs();
    t += b;
    t -= a;
    t *= s;
    t.scalar(s);
    t.linear_comb(s, a, s, b);
    FUZZ_CHECK(Same(a.dot(b), b.dot(a)));
    FUZZ_CHECK(Same(a * b, a.dot(b)));
    FUZZ_CHECK(Same(a.squared(), a.dot(a)));
  }

  // ------------------------------------------------------------ matrices

  void DetAdjoint() {
    const mat4x4 m = m_m;
    const double d = m.det();
    mat4x4 adj = m;
    adj.adjoint();
    const double big = MaxAbs(m);
    if (Finite(m) && big <= 1e50 && (big >= 1e-50 || big == 0.0)) {
      // adj(M) M = det(M) I, up to rounding of products of four values.
      const double tol = 1e-11 * big * big * big * big;
      const mat4x4 p = adj * m;
      for (int c = 0; c < 4; ++c) {
        for (int r = 0; r < 4; ++r)
          FUZZ_CHECK(std::fabs(E(p)[4 * c + r] - (r == c ? d : 0.0)) <= tol);
      }
    }
    if (m_in.Bool())
      m_m = adj;
  }

  void Inverse() {
    const mat4x4 m = m_m;
    mat4x4 x = m;
    const bool ok = x.inv();
    if (ok && Finite(m) && Finite(x)) {
      const double kappa = NormInf(m) * NormInf(x);
      if (kappa <= 1e6) {
        // Full pivoting is forward stable: both residuals stay below
        // c * eps * kappa^2.
        const double tol = 1e-13 * kappa * kappa + 1e-13;
        const mat4x4 right = m * x;
        const mat4x4 left = x * m;
        for (int c = 0; c < 4; ++c) {
          for (int r = 0; r < 4; ++r) {
            const double want = r == c ? 1.0 : 0.0;
            FUZZ_CHECK(std::fabs(E(right)[4 * c + r] - want) <= tol);
            FUZZ_CHECK(std::fabs(E(left)[4 * c + r] - want) <= tol);
          }
        }
      }
    }
    if (Equal(m, Identity())) {
      FUZZ_CHECK(ok);
      FUZZ_CHECK(Equal(x, Identity()));
    }
    // Kept whether or not it succeeded: a failed inverse is left partly
    // eliminated, and later operations get to see that too.
    m_m = x;
  }

  void Reorthogonalize() {
    const int n = m_in.SignedByte();
    mat4x4 r = m_m;
    r.reorthogonalize(n);
    if (n <= 1 && Finite(m_m)) {
      // Multiplied by the identity.
      FUZZ_CHECK(Equal(r, m_m));
    }
    m_m = r;
  }

  void Arithmetic() {
    const mat4x4 a = m_m;
    const mat4x4 b = Matrix();
    const double s = Num();

    const mat4x4 sum = a + b;
    const mat4x4 minus = a - b;  // adds
    mat4x4 t;
    t.add(a, b);
    FUZZ_CHECK(SameValues(t, sum));
    t.sub(a, b);  // adds too
    FUZZ_CHECK(SameValues(t, sum));
    FUZZ_CHECK(SameValues(minus, sum));
    for (int k = 0; k < 16; ++k)
      FUZZ_CHECK(Same(E(sum)[k], E(a)[k] + E(b)[k]));
    t = a;
    t += b;
    FUZZ_CHECK(SameValues(t, sum));
    t = a;
    t -= b;  // the one true subtraction
    for (int k = 0; k < 16; ++k)
      FUZZ_CHECK(Same(E(t)[k], E(a)[k] - E(b)[k]));
    t = a;
    t -= a;
    if (Finite(a)) {
      for (int k = 0; k < 16; ++k)
        FUZZ_CHECK(E(t)[k] == 0.0);
    }

    const mat4x4 neg = -a;
    for (int k = 0; k < 16; ++k)
      FUZZ_CHECK(std::signbit(E(neg)[k]) != std::signbit(E(a)[k]));
    t = a;
    t.neg();
    FUZZ_CHECK(SameBits(t, neg));
    FUZZ_CHECK(SameBits(+a, a));
    t = a;
    t.abs();
    for (int k = 0; k < 16; ++k)
      FUZZ_CHECK(Same(E(t)[k], std::fabs(E(a)[k])));

    const mat4x4 scaled = a * s;
    for (int k = 0; k < 16; ++k)
      FUZZ_CHECK(Same(E(scaled)[k], E(a)[k] * s));
    t = a;
    t *= s;
    FUZZ_CHECK(SameValues(t, scaled));
    t = a;
    t.scalar(s);
    FUZZ_CHECK(SameValues(t, scaled));

    const mat4x4 p = a * b;
    mat4x4 q;
    q.mul(a, b);
    FUZZ_CHECK(SameValues(p, q));
    t = a;
    t *= b;
    FUZZ_CHECK(SameValues(p, t));
    t = a;
    t *= t;
    FUZZ_CHECK(SameValues(t, a * a));
    if (m_in.IsTame() && IsTame(a)) {
      // Tame values times small products: the sums are exact, so the product
      // is the textbook one, and (AB)^T = B^T A^T to the bit.
      FUZZ_CHECK(Equal(p, Product(a, b)));
      mat4x4 at = a;
      at.transpose();
      mat4x4 bt = b;
      bt.transpose();
      mat4x4 pt = p;
      pt.transpose();
      FUZZ_CHECK(Equal(pt, bt * at));
    }

    t = a;
    t.transpose();
    mat4x4 u = a;
    u.swap();
    FUZZ_CHECK(SameBits(t, u));
    for (int c = 0; c < 4; ++c) {
      for (int r = 0; r < 4; ++r)
        FUZZ_CHECK(std::memcmp(&E(t)[4 * c + r], &E(a)[4 * r + c], sizeof(double)) == 0);
    }
    t.transpose();
    FUZZ_CHECK(SameBits(t, a));

    // A NaN difference passes cmp, so a matrix always equals itself.
    FUZZ_CHECK(a == a);
    FUZZ_CHECK(!(a != a));
    FUZZ_CHECK(a.cmp(b, s) == b.cmp(a, s));
    FUZZ_CHECK((a == b) == a.cmp(b, 1e-10));

    t.copy(b);
    FUZZ_CHECK(SameBits(t, b));
    t.zero();
    for (int k = 0; k < 16; ++k)
      FUZZ_CHECK(E(t)[k] == 0.0);

    switch (m_in.Byte() % 4) {
      case 0:
        m_m = p;
        break;
      case 1:
        m_m = sum;
        break;
      case 2:
        m_m = scaled;
        break;
      default:
        break;
    }
  }

  void RowsCols() {
    const int i = m_in.Byte() % 4;
    const int j = m_in.Byte() % 4;
    const vec3d v = Vec3();
    const vec4d w = Vec4();
    const double s = Num();
    const mat4x4 m = m_m;

    mat4x4 t = m;
    t.setRow(i, v);
    for (int c = 0; c < 3; ++c)
      FUZZ_CHECK(Same(E(t)[i + 4 * c], v[c]));
    if (i == 3)
      FUZZ_CHECK(E(t)[15] == 1.0);
    else
      FUZZ_CHECK(E(t)[i + 12] == 0.0);
    vec3d g = t.getRow(i);
    FUZZ_CHECK(Same(g.x(), v.x()) && Same(g.y(), v.y()) && Same(g.z(), v.z()));

    t = m;
    t.setRow(i, w);
    for (int c = 0; c < 4; ++c)
      FUZZ_CHECK(Same(E(t)[i + 4 * c], w[c]));

    t = m;
    t.setCol(i, v);
    for (int r = 0; r < 3; ++r)
      FUZZ_CHECK(Same(E(t)[4 * i + r], v[r]));
    if (i == 3)
      FUZZ_CHECK(E(t)[15] == 1.0);
    else
      FUZZ_CHECK(E(t)[4 * i + 3] == 0.0);
    g = t.getCol(i);
    FUZZ_CHECK(Same(g.x(), v.x()) && Same(g.y(), v.y()) && Same(g.z(), v.z()));

    t = m;
    t.setCol(i, w);
    for (int r = 0; r < 4; ++r)
      FUZZ_CHECK(Same(E(t)[4 * i + r], w[r]));

    t = m;
    t.set(i, j, s);
    FUZZ_CHECK(Same(t[i][j], s));
    FUZZ_CHECK(Same(E(t)[4 * i + j], s));
    m_m = t;
  }

  void AxisTransforms() {
    const double x = Num();
    const double y = Num();
    const double z = Num();
    const double a = Num();
    const mat4x4 m = m_m;

    mat4x4 t;
    t.loadTranslate(x, y, z);
    for (int k = 0; k < 12; ++k)
      FUZZ_CHECK(E(t)[k] == (k % 5 == 0 ? 1.0 : 0.0));
    FUZZ_CHECK(Same(E(t)[12], x) && Same(E(t)[13], y) && Same(E(t)[14], z) && E(t)[15] == 1.0);

    t = m;
    t.translate(x, y, z);
    for (int k = 0; k < 12; ++k)
      FUZZ_CHECK(Same(E(t)[k], E(m)[k]));
    FUZZ_CHECK(Same(E(t)[15], E(m)[15]));  // treated as affine
    mat4x4 u = m;
    u.translate(vec3d(x, y, z));
    FUZZ_CHECK(SameValues(t, u));
    u = m;
    u.translateNeg(vec3d(x, y, z));
    for (int k = 0; k < 12; ++k)
      FUZZ_CHECK(Same(E(u)[k], E(m)[k]));
    FUZZ_CHECK(Same(E(u)[15], E(m)[15]));

    t.loadScale(x, y, z);
    for (int k = 0; k < 16; ++k) {
      if (k == 0)
        FUZZ_CHECK(Same(E(t)[k], x));
      else if (k == 5)
        FUZZ_CHECK(Same(E(t)[k], y));
      else if (k == 10)
        FUZZ_CHECK(Same(E(t)[k], z));
      else if (k == 15)
        FUZZ_CHECK(E(t)[k] == 1.0);
      else
        FUZZ_CHECK(E(t)[k] == 0.0);
    }
    t = m;
    t.scale(x, y, z);
    const double f[3] = {x, y, z};
    for (int c = 0; c < 3; ++c) {
      for (int r = 0; r < 4; ++r)
        FUZZ_CHECK(Same(E(t)[4 * c + r], E(m)[4 * c + r] * f[c]));
    }
    for (int k = 12; k < 16; ++k)
      FUZZ_CHECK(SameBitsAt(t, m, k));
    u = m;
    u.scale(vec3d(x, y, z));
    FUZZ_CHECK(SameValues(t, u));

    t.loadRotateX(a);
    CheckAxisRotation(t, 0, 5, 6, 9, 10);
    t.loadRotateY(a);
    CheckAxisRotation(t, 5, 10, 8, 2, 0);
    t.loadRotateZ(a);
    CheckAxisRotation(t, 10, 0, 1, 4, 5);

    // Each axis rotation recombines two columns and leaves the other two.
    t = m;
    t.rotateX(a);
    CheckColumnsKept(t, m, 0, 3);
    t = m;
    t.rotateY(a);
    CheckColumnsKept(t, m, 1, 3);
    t = m;
    t.rotateZ(a);
    CheckColumnsKept(t, m, 2, 3);

    switch (m_in.Byte() % 6) {
      case 0:
        m_m.translate(x, y, z);
        break;
      case 1:
        m_m.scale(x, y, z);
        break;
      case 2:
        m_m.rotateX(a);
        break;
      case 3:
        m_m.rotateY(a);
        break;
      case 4:
        m_m.rotateZ(a);
        break;
      default:
        break;
    }
  }

  static bool SameBitsAt(const mat4x4& a, const mat4x4& b, int k) {
    return std::memcmp(&E(a)[k], &E(b)[k], sizeof(double)) == 0;
  }

  // one: the axis's 1.0; c1, c2 the cosines; ps, ns the +sin and -sin.
  static void CheckAxisRotation(const mat4x4& t, int one, int c1, int ps, int ns, int c2) {
    for (int k = 0; k < 16; ++k) {
      if (k == one || k == 15)
        FUZZ_CHECK(E(t)[k] == 1.0);
      else if (k != c1 && k != c2 && k != ps && k != ns)
        FUZZ_CHECK(E(t)[k] == 0.0);
    }
    FUZZ_CHECK(Same(E(t)[c1], E(t)[c2]));
    FUZZ_CHECK(Same(E(t)[ps], -E(t)[ns]));
  }

  static void CheckColumnsKept(const mat4x4& t, const mat4x4& m, int c0, int c1) {
    for (int r = 0; r < 4; ++r) {
      FUZZ_CHECK(SameBitsAt(t, m, 4 * c0 + r));
      FUZZ_CHECK(SameBitsAt(t, m, 4 * c1 + r));
    }
  }

  void VectorProducts() {
    const vec3d v = Vec3();
    const vec4d w = Vec4();
    const mat4x4& m = m_m;

    const vec3d p = m * v;
    vec3d pv = v;
    m.transform(pv);
    for (int k = 0; k < 3; ++k)
      FUZZ_CHECK(Same(p[k], pv[k]));

    const vec4d q = m * w;
    FUZZ_CHECK(Same(q.w(), q.z()));  // w is a copy of z
    vec4d qw = w;
    m.transform(qw);
    for (int k = 0; k < 3; ++k)
      FUZZ_CHECK(Same(q[k], qw[k]));

    if (m_in.IsTame() && IsTame(m)) {
      // Small multiples of 1/64 times the same: every sum is exact.
      for (int k = 0; k < 3; ++k) {
        const double want =
            ((v.x() * E(m)[k] + v.y() * E(m)[4 + k]) + v.z() * E(m)[8 + k]) + E(m)[12 + k];
        FUZZ_CHECK(p[k] == want);
      }
      const double w4 = ((w.x() * E(m)[3] + w.y() * E(m)[7]) + w.z() * E(m)[11]) + w.w() * E(m)[15];
      FUZZ_CHECK(qw.w() == w4);
    }
  }

  // ------------------------------------------------------------ quaternions

  void QuatFromMatrix() {
    const MQuat fromCurrent(m_m);
    static_cast<void>(fromCurrent);

    MQuat q = Quat();
    if (MakeUnit(q)) {
      // A rotation matrix gives back its quaternion, up to sign.
      mat4x4 r;
      r.loadRotate(q);
      const MQuat back(r);
      MQuat minus = q;
      minus.neg();
      FUZZ_CHECK(std::min(QuatDistance(back, q), QuatDistance(back, minus)) < 1e-9);
    }
    const MQuat fromIdentity(Identity());
    FUZZ_CHECK(fromIdentity.x == 0.0 && fromIdentity.y == 0.0 && fromIdentity.z == 0.0 &&
               fromIdentity.w == 1.0);
    m_q = q;
  }

  void Slerp() {
    MQuat a = m_q;
    MQuat b = Quat();
    const MQuat c = Quat();
    const MQuat d = Quat();
    const double t = Param();

    MQuat r;
    r.slerp(a, b, t);
    MQuat s;
    s.squad(a, b, c, d, t);
    MQuat in;
    in.inner(a, b, c);

    const bool tame = m_in.IsTame();
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
    m_q = in;
  }

  void QuatAlgebra() {
    const MQuat a = m_q;
    const MQuat b = Quat();
    const double s = Num();

    const MQuat p = a * b;
    MQuat t;
    t.mul(a, b);
    FUZZ_CHECK(Same(t.x, p.x) && Same(t.y, p.y) && Same(t.z, p.z) && Same(t.w, p.w));
    t = a;
    t *= b;
    FUZZ_CHECK(Same(t.x, p.x) && Same(t.y, p.y) && Same(t.z, p.z) && Same(t.w, p.w));
    if (m_in.IsTame() && IsTame(a.x) && IsTame(a.y) && IsTame(a.z) && IsTame(a.w)) {
      // Exact for small multiples of 1/64 (the current quaternion may be any).
      FUZZ_CHECK(p.x == a.x * b.w + a.w * b.x + a.y * b.z - a.z * b.y);
      FUZZ_CHECK(p.y == a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z);
      FUZZ_CHECK(p.z == a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x);
      FUZZ_CHECK(p.w == a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z);
    }

    FUZZ_CHECK((a == a) == Finite(a));
    FUZZ_CHECK((a != a) == !Finite(a));
    FUZZ_CHECK(Same(a.dot(b), b.dot(a)));
    FUZZ_CHECK(Same(a.squared(), a.dot(a)));

    const MQuat scaled = a * s;
    FUZZ_CHECK(Same(scaled.x, a.x * s) && Same(scaled.w, a.w * s));
    t = a;
    t *= s;
    t.scalar(s);
    t.neg();
    const MQuat negated = t;
    t.abs();
    FUZZ_CHECK(Same(t.x, std::fabs(negated.x)) && Same(t.w, std::fabs(negated.w)));

    MQuat n = a;
    n.normalize();
    MQuat inv = a;
    inv.invert();
    if (std::sqrt(a.squared()) < kTiny) {
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

    t.set(s, s, s, s);
    t.identity();
    FUZZ_CHECK(t.x == 0.0 && t.y == 0.0 && t.z == 0.0 && t.w == 1.0);
    m_q = m_in.Bool() ? p : n;
  }

  void Rot() {
    const vec3d axis = Vec3();
    const double angle = Num();

    const MRot def;
    FUZZ_CHECK(def.axis.x() == 1.0 && def.axis.y() == 0.0 && def.axis.z() == 0.0 &&
               def.angle == 0.0);
    MRot r(axis, angle);
    const MQuat q = r;
    const MQuat direct(axis, angle);
    FUZZ_CHECK(Same(q.x, direct.x) && Same(q.y, direct.y) && Same(q.z, direct.z) &&
               Same(q.w, direct.w));
    if (axis.length() < kTiny)
      FUZZ_CHECK(q.x == 0.0 && q.y == 0.0 && q.z == 0.0 && q.w == 1.0);

    const MRot back(m_q);
    if (m_q.w == 1.0) {
      FUZZ_CHECK(IsZero(back.axis));
      FUZZ_CHECK(back.angle == 0.0);
    }
    FUZZ_CHECK((r == r) == (Finite(axis) && Finite(angle)));
    FUZZ_CHECK((r != r) == !(r == r));
    FUZZ_CHECK(r.cmp(back, 1e-10) == back.cmp(r, 1e-10));
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

  // ------------------------------------------------------------ compound transforms

  void Align() {
    const vec3d a = Vec3();
    const vec3d b = Vec3();
    mat4x4 m;
    FUZZ_CHECK(m.loadAlign(a, b) == 1);
    vec3d an = a;
    an.normalize();
    vec3d bn = b;
    bn.normalize();
    vec3d c;
    c.cross(an, bn);
    if (Finite(a) && Finite(b) && std::fabs(an.length() - 1.0) < 1e-13 &&
        std::fabs(bn.length() - 1.0) < 1e-13 && c.length() > 1e-3) {
      // Takes direction a onto direction b.
      vec3d moved = an;
      m.transform(moved);
      for (int k = 0; k < 3; ++k)
        FUZZ_CHECK(std::fabs(moved[k] - bn[k]) < 1e-9);
    }
    if (m_in.Bool())
      m_m = m;
  }

  void Orient() {
    const vec3d p0 = Vec3();
    const vec3d p1 = Vec3();
    const vec3d p2 = Vec3();
    const vec3d q0 = Vec3();
    const vec3d q1 = Vec3();
    const vec3d q2 = Vec3();
    mat4x4 m;
    FUZZ_CHECK(m.loadOrient(p0, p1, p2) == 1);
    FUZZ_CHECK(E(m)[12] == 0.0 && E(m)[13] == 0.0 && E(m)[14] == 0.0 && E(m)[15] == 1.0);
    mat4x4 t;
    // loadOrient never fails, so neither does this.
    FUZZ_CHECK(t.loadAlign(p0, p1, p2, q0, q1, q2) == 1);
    if (m_in.Bool())
      m_m = m_in.Bool() ? m : t;
  }

  void Mirror() {
    const vec3d n = Vec3();
    mat4x4 m;
    m.loadMirror(n);
    const double l = n.length();
    if (Finite(n) && l >= 1e-2 && l <= 1e2) {
      // The Gram matrix of the frame with its first column negated.
      const double nn = n.squared();
      const double diag[4] = {-nn, 1.0, nn, 1.0};
      const double tol = 1e-11 * std::max(1.0, nn);
      for (int c = 0; c < 4; ++c) {
        for (int r = 0; r < 4; ++r)
          FUZZ_CHECK(std::fabs(E(m)[4 * c + r] - (r == c ? diag[r] : 0.0)) <= tol);
      }
    }
    if (m_in.Bool())
      m_m = m;
  }

  void Proj() {
    const double fovy = Num();
    const double zNear = Num();
    const double zFar = Num();
    const double aspect = Num();
    mat4x4 m;
    m.loadProj(fovy, zNear, zFar, aspect);
    for (int k : {1, 2, 3, 4, 6, 7, 8, 9, 12, 13, 15})
      FUZZ_CHECK(E(m)[k] == 0.0);
    FUZZ_CHECK(E(m)[14] == -1.0);
    mat4x4 t = m_m;
    t.proj(fovy, zNear, zFar, aspect);
    if (m_in.Bool())
      m_m = m_in.Bool() ? m : t;
  }

  void Xform() {
    double out[13];
    m_m.getXform(out);
    FUZZ_CHECK(out[12] == 1.0);
    mat4x4 back;
    back.loadXform(out);
    for (int k : {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14})
      FUZZ_CHECK(Same(E(back)[k], E(m_m)[k]));
    FUZZ_CHECK(E(back)[3] == 0.0 && E(back)[7] == 0.0 && E(back)[11] == 0.0 && E(back)[15] == 1.0);

    double in[13];
    for (double& v : in)
      v = Num();
    mat4x4 m;
    m.loadXform(in);
    for (int k = 0; k < 9; ++k)
      FUZZ_CHECK(Same(E(m)[k + k / 3], in[k] * in[12]));
    for (int k = 0; k < 3; ++k)
      FUZZ_CHECK(Same(E(m)[12 + k], in[9 + k]));
    if (m_in.Bool())
      m_m = m;
  }

  void RotateBy() {
    const MQuat q = Quat();
    const vec3d axis = Vec3();
    const double a = Num();

    mat4x4 m;
    m.loadRotate(q);
    for (int k : {3, 7, 11, 12, 13, 14})
      FUZZ_CHECK(E(m)[k] == 0.0);
    FUZZ_CHECK(E(m)[15] == 1.0);
    if (q.x == 0.0 && q.y == 0.0 && q.z == 0.0 && (q.w == 0.0 || std::fabs(q.w) == 2.0))
      FUZZ_CHECK(Equal(m, Identity()));

    mat4x4 t;
    t.loadRotate(axis, a);
    if (axis.length() < kTiny)
      FUZZ_CHECK(Equal(t, Identity()));

    switch (m_in.Byte() % 4) {
      case 0:
        m_m.rotate(q);
        break;
      case 1:
        m_m.rotate(axis, a);
        break;
      case 2:
        m_m.rotate(MRot(axis, a));
        break;
      default:
        m_m.loadRotate(MRot(axis, a));
        break;
    }
  }

  // ------------------------------------------------------------ text output

  void Output() {
    std::ostringstream os;
    const int flags = m_in.Byte();
    os.precision(m_in.Byte() % 26);
    switch (flags % 4) {
      case 1:
        os.setf(std::ios::fixed, std::ios::floatfield);
        break;
      case 2:
        os.setf(std::ios::scientific, std::ios::floatfield);
        break;
      case 3:
        os.setf(std::ios::fixed | std::ios::scientific, std::ios::floatfield);  // hexfloat
        break;
      default:
        break;
    }
    if ((flags & 4) != 0)
      os.setf(std::ios::showpos);
    if ((flags & 8) != 0)
      os.setf(std::ios::uppercase);
    if ((flags & 16) != 0)
      os.setf(std::ios::showpoint);
    const std::streamsize width = m_in.Byte() % 32;

    const vec3d v = Vec3();
    os.width(width);
    FUZZ_CHECK(&(os << v) == &os);
    CheckVectorText(os.str(), 2);

    os.str("");
    os.width(width);
    os << Vec4();
    CheckVectorText(os.str(), 3);

    os.str("");
    os.width(width);
    os << m_q;
    CheckVectorText(os.str(), 3);

    os.str("");
    os.width(width);
    os << MRot(v, Num());
    CheckVectorText(os.str(), 3);

    os.str("");
    os.width(width);
    FUZZ_CHECK(&(os << m_m) == &os);
    const std::string text = os.str();
    FUZZ_CHECK(std::count(text.begin(), text.end(), '\n') == 4);
    FUZZ_CHECK(!text.empty() && text.back() == '\n');
  }

  // "(" x ", " y ... ")": the last separator of a four-value type has no
  // space. Numbers print without commas in the classic locale.
  static void CheckVectorText(const std::string& text, int commas) {
    FUZZ_CHECK(!text.empty() && text.back() == ')');
    FUZZ_CHECK(text.find('(') != std::string::npos);
    FUZZ_CHECK(std::count(text.begin(), text.end(), ',') == commas);
    std::size_t spaced = 0;
    for (std::size_t at = text.find(", "); at != std::string::npos; at = text.find(", ", at + 1))
      ++spaced;
    FUZZ_CHECK(spaced == 2);
    FUZZ_CHECK(text.find('\n') == std::string::npos);
  }

  FuzzInput& m_in;
  mat4x4 m_m;
  MQuat m_q;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  MathFuzzer(in).Run();
  return 0;
}
