// mat4x4 on its own, on any input: determinant and adjugate, inverse
// residuals, reorthogonalisation, the product against the reference one, the
// named and operator forms agreeing, and rows and columns read back. The
// element-wise formulas are the unit tests' job.

#include "math_fuzz.h"

#include <algorithm>
#include <cmath>

namespace mathfuzz {

namespace {

double MaxAbs(const mat4x4& m) {
  double r = 0.0;
  for (int k = 0; k < 16; ++k) {
    r = std::max(r, std::fabs(Elements(m)[k]));
  }
  return r;
}

// Largest row sum of magnitudes.
double NormInf(const mat4x4& m) {
  double r = 0.0;
  for (int row = 0; row < 4; ++row) {
    double s = 0.0;
    for (int col = 0; col < 4; ++col) {
      s += std::fabs(Elements(m)[4 * col + row]);
    }
    r = std::max(r, s);
  }
  return r;
}

// The product in the column-vector reading, summed in the library's order.
mat4x4 ReferenceProduct(const mat4x4& a, const mat4x4& b) {
  mat4x4 r;
  reference::product(r, Elements(a), Elements(b));
  return r;
}

}  // namespace

void DetAdjoint(MathState& fz) {
  const mat4x4 m = fz.matrix;
  const double d = m.det();
  mat4x4 adj = m;
  adj.adjoint();
  const double big = MaxAbs(m);
  if (Finite(m) && big <= 1e50 && (big >= 1e-50 || big == 0.0)) {
    // adj(M) M = det(M) I, up to rounding of products of four values.
    const double tol = 1e-11 * big * big * big * big;
    const mat4x4 p = adj * m;
    for (int c = 0; c < 4; ++c) {
      for (int r = 0; r < 4; ++r) {
        FUZZ_CHECK(std::fabs(Elements(p)[4 * c + r] - (r == c ? d : 0.0)) <= tol);
      }
    }
  }
  if (fz.in.Bool()) {
    fz.matrix = adj;
  }
}

void Inverse(MathState& fz) {
  const mat4x4 m = fz.matrix;
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
          FUZZ_CHECK(std::fabs(Elements(right)[4 * c + r] - want) <= tol);
          FUZZ_CHECK(std::fabs(Elements(left)[4 * c + r] - want) <= tol);
        }
      }
    }
  }
  if (equalNoNaN(m, Identity())) {
    FUZZ_CHECK(ok);
    FUZZ_CHECK(equalNoNaN(x, Identity()));
  }
  // Kept whether or not it succeeded: a failed inverse is left partly
  // eliminated, and later operations get to see that too.
  fz.matrix = x;
}

void Reorthogonalize(MathState& fz) {
  const int n = fz.in.SignedByte();
  mat4x4 r = fz.matrix;
  r.reorthogonalize(n);
  if (n <= 1 && Finite(fz.matrix)) {
    // Multiplied by the identity.
    FUZZ_CHECK(equalNoNaN(r, fz.matrix));
  }
  fz.matrix = r;
}

void Arithmetic(MathState& fz) {
  const mat4x4 a = fz.matrix;
  const mat4x4 b = fz.Matrix();
  const double s = fz.Num();

  const mat4x4 sum = a + b;
  const mat4x4 minus = a - b;  // adds
  mat4x4 t;
  t.add(a, b);
  FUZZ_CHECK(equalOrBothNaN(t, sum));
  t.sub(a, b);  // adds too
  FUZZ_CHECK(equalOrBothNaN(t, sum));
  FUZZ_CHECK(equalOrBothNaN(minus, sum));
  t = a;
  t += b;
  FUZZ_CHECK(equalOrBothNaN(t, sum));
  t = a;
  t -= a;
  if (Finite(a)) {
    for (int k = 0; k < 16; ++k) {
      FUZZ_CHECK(Elements(t)[k] == 0.0);
    }
  }

  const mat4x4 neg = -a;
  for (int k = 0; k < 16; ++k) {
    FUZZ_CHECK(std::signbit(Elements(neg)[k]) != std::signbit(Elements(a)[k]));
  }
  t = a;
  t.neg();
  FUZZ_CHECK(sameBitsAll(t, neg));
  FUZZ_CHECK(sameBitsAll(+a, a));
  t = a;
  t.abs();

  const mat4x4 scaled = a * s;
  t = a;
  t *= s;
  FUZZ_CHECK(equalOrBothNaN(t, scaled));
  t = a;
  t.scalar(s);
  FUZZ_CHECK(equalOrBothNaN(t, scaled));

  const mat4x4 p = a * b;
  mat4x4 q;
  q.mul(a, b);
  FUZZ_CHECK(equalOrBothNaN(p, q));
  t = a;
  t *= b;
  FUZZ_CHECK(equalOrBothNaN(p, t));
  t = a;
  t *= t;
  FUZZ_CHECK(equalOrBothNaN(t, a * a));
  if (fz.in.IsTame() && IsTame(a)) {
    // Tame values times small products: the sums are exact, so the product
    // is the textbook one, and (AB)^T = B^T A^T to the bit.
    FUZZ_CHECK(equalNoNaN(p, ReferenceProduct(a, b)));
    mat4x4 at = a;
    at.transpose();
    mat4x4 bt = b;
    bt.transpose();
    mat4x4 pt = p;
    pt.transpose();
    FUZZ_CHECK(equalNoNaN(pt, bt * at));
  }

  t = a;
  t.transpose();
  mat4x4 u = a;
  u.swap();
  FUZZ_CHECK(sameBitsAll(t, u));
  t.transpose();
  FUZZ_CHECK(sameBitsAll(t, a));

  // A NaN difference passes cmp, so a matrix always equals itself.
  FUZZ_CHECK(a == a);
  FUZZ_CHECK(!(a != a));
  FUZZ_CHECK(a.cmp(b, s) == b.cmp(a, s));
  FUZZ_CHECK((a == b) == a.cmp(b, kTolerance));

  switch (fz.in.Byte() % 4) {
    case 0:
      fz.matrix = p;
      break;
    case 1:
      fz.matrix = sum;
      break;
    case 2:
      fz.matrix = scaled;
      break;
    default:
      break;
  }
}

void RowsCols(MathState& fz) {
  const int i = fz.in.Byte() % 4;
  const int j = fz.in.Byte() % 4;
  const vec3d v = fz.Vec3();
  const vec4d w = fz.Vec4();
  const double s = fz.Num();
  const mat4x4 m = fz.matrix;

  // What is written reads back, whatever the values.
  mat4x4 t = m;
  t.setRow(i, v);
  FUZZ_CHECK(equalOrBothNaN(t.getRow(i), v, 3));
  t = m;
  t.setCol(i, v);
  FUZZ_CHECK(equalOrBothNaN(t.getCol(i), v, 3));
  t = m;
  t.setRow(i, w);
  t.setCol(j, w);
  t = m;
  t.set(i, j, s);
  FUZZ_CHECK(equalOrBothNaN(t[i][j], s));
  fz.matrix = t;
}

}  // namespace mathfuzz
