#include <lumagrid/mat4x4.h>

#include "math/mat4x4_inverse.h"

#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr double kTiny = 1e-10;

// Expansion down the first column of the rows (a, b, c; d, e, f; g, h, i).
double det3(double a, double b, double c, double d, double e, double f, double g, double h,
            double i) {
  return (e * i - f * h) * a - (b * i - c * h) * d + (b * f - c * e) * g;
}

// r = a * b, each element summed left to right from 0.0. All of a and a
// whole column of b are read before a column of r is written.
#if defined(__SSE2__)
inline __attribute__((always_inline)) void productColumn(double* r, __m128d const* a,
                                                         double const* b) {
  __m128d const b01 = _mm_loadu_pd(b);
  __m128d const b23 = _mm_loadu_pd(b + 2);
  __m128d const b0 = _mm_unpacklo_pd(b01, b01);
  __m128d const b1 = _mm_unpackhi_pd(b01, b01);
  __m128d const b2 = _mm_unpacklo_pd(b23, b23);
  __m128d const b3 = _mm_unpackhi_pd(b23, b23);
  // Starting from +0.0 turns an all-(-0.0) sum into +0.0.
  __m128d lo = _mm_add_pd(_mm_setzero_pd(), _mm_mul_pd(a[0], b0));
  __m128d hi = _mm_add_pd(_mm_setzero_pd(), _mm_mul_pd(a[1], b0));
  lo = _mm_add_pd(lo, _mm_mul_pd(a[2], b1));
  hi = _mm_add_pd(hi, _mm_mul_pd(a[3], b1));
  lo = _mm_add_pd(lo, _mm_mul_pd(a[4], b2));
  hi = _mm_add_pd(hi, _mm_mul_pd(a[5], b2));
  lo = _mm_add_pd(lo, _mm_mul_pd(a[6], b3));
  hi = _mm_add_pd(hi, _mm_mul_pd(a[7], b3));
  _mm_storeu_pd(r, lo);
  _mm_storeu_pd(r + 2, hi);
}

inline __attribute__((always_inline)) void product(double* r, double const* a, double const* b) {
  __m128d const cols[8] = {_mm_loadu_pd(a),      _mm_loadu_pd(a + 2), _mm_loadu_pd(a + 4),
                           _mm_loadu_pd(a + 6),  _mm_loadu_pd(a + 8), _mm_loadu_pd(a + 10),
                           _mm_loadu_pd(a + 12), _mm_loadu_pd(a + 14)};
  productColumn(r, cols, b);
  productColumn(r + 4, cols, b + 4);
  productColumn(r + 8, cols, b + 8);
  productColumn(r + 12, cols, b + 12);
}
#else
void product(double* r, double const* a, double const* b) {
  double cols[16];
  for (int k = 0; k < 16; ++k) {
    cols[k] = a[k];
  }
  for (int c = 0; c < 4; ++c) {
    double column[4];
    for (int row = 0; row < 4; ++row) {
      double s = 0.0;
      for (int k = 0; k < 4; ++k) {
        s += cols[4 * k + row] * b[4 * c + k];
      }
      column[row] = s;
    }
    for (int row = 0; row < 4; ++row) {
      r[4 * c + row] = column[row];
    }
  }
}
#endif

}  // namespace

void mat4x4::copy(mat4x4 const& m) {
  for (int k = 0; k < 16; ++k) {
    m_e[k] = m.m_e[k];
  }
}

void mat4x4::zero() {
  for (double& e : m_e) {
    e = 0.0;
  }
}

void mat4x4::identity() {
  zero();
  m_e[0] = m_e[5] = m_e[10] = m_e[15] = 1.0;
}

void mat4x4::setRow(int i, vec3d const& v) {
  m_e[i] = v.x();
  m_e[i + 4] = v.y();
  m_e[i + 8] = v.z();
  m_e[i + 12] = i == 3 ? 1.0 : 0.0;
}

void mat4x4::setRow(int i, vec4d const& v) {
  m_e[i] = v.x();
  m_e[i + 4] = v.y();
  m_e[i + 8] = v.z();
  m_e[i + 12] = v.w();
}

void mat4x4::setCol(int i, vec3d const& v) {
  m_e[4 * i] = v.x();
  m_e[4 * i + 1] = v.y();
  m_e[4 * i + 2] = v.z();
  m_e[4 * i + 3] = i == 3 ? 1.0 : 0.0;
}

void mat4x4::setCol(int i, vec4d const& v) {
  m_e[4 * i] = v.x();
  m_e[4 * i + 1] = v.y();
  m_e[4 * i + 2] = v.z();
  m_e[4 * i + 3] = v.w();
}

vec3d mat4x4::getRow(int i) const {
  return vec3d(m_e[i], m_e[i + 4], m_e[i + 8]);
}

vec3d mat4x4::getCol(int i) const {
  return vec3d(m_e[4 * i], m_e[4 * i + 1], m_e[4 * i + 2]);
}

mat4x4 mat4x4::operator+(mat4x4 const& m) const {
  mat4x4 r;
  r.add(*this, m);
  return r;
}

mat4x4 mat4x4::operator+() const {
  return *this;
}

mat4x4& mat4x4::operator+=(mat4x4 const& m) {
  add(*this, m);
  return *this;
}

mat4x4 mat4x4::operator-() const {
  mat4x4 r(*this);
  r.neg();
  return r;
}

mat4x4 mat4x4::operator-(mat4x4 const& m) const {
  // Binary minus adds, like sub(); callers rely on that.
  mat4x4 r;
  r.sub(*this, m);
  return r;
}

mat4x4& mat4x4::operator-=(mat4x4 const& m) {
  for (int k = 0; k < 16; ++k) {
    m_e[k] -= m.m_e[k];
  }
  return *this;
}

mat4x4 mat4x4::operator*(mat4x4 const& m) const {
  mat4x4 r;
  product(r.m_e, m_e, m.m_e);
  return r;
}

mat4x4& mat4x4::operator*=(mat4x4 const& m) {
  mat4x4 r;
  product(r.m_e, m_e, m.m_e);
  copy(r);
  return *this;
}

mat4x4 mat4x4::operator*(double s) const {
  mat4x4 r(*this);
  r.scalar(s);
  return r;
}

mat4x4& mat4x4::operator*=(double s) {
  scalar(s);
  return *this;
}

void mat4x4::neg() {
  for (double& e : m_e) {
    e = -e;
  }
}

void mat4x4::abs() {
  for (double& e : m_e) {
    e = std::fabs(e);
  }
}

void mat4x4::scalar(double s) {
  for (double& e : m_e) {
    e *= s;
  }
}

void mat4x4::add(mat4x4 const& a, mat4x4 const& b) {
  for (int k = 0; k < 16; ++k) {
    m_e[k] = a.m_e[k] + b.m_e[k];
  }
}

void mat4x4::sub(mat4x4 const& a, mat4x4 const& b) {
  // Adds its operands, like add(): callers rely on that.
  add(a, b);
}

void mat4x4::mul(mat4x4 const& a, mat4x4 const& b) {
  product(m_e, a.m_e, b.m_e);
}

void mat4x4::transpose() {
  for (int c = 0; c < 4; ++c) {
    for (int r = c + 1; r < 4; ++r) {
      double const t = m_e[4 * c + r];
      m_e[4 * c + r] = m_e[4 * r + c];
      m_e[4 * r + c] = t;
    }
  }
}

void mat4x4::swap() {
  transpose();
}

double mat4x4::det() const {
  double const* e = m_e;
  return e[0] * det3(e[5], e[6], e[7], e[9], e[10], e[11], e[13], e[14], e[15]) -
         e[4] * det3(e[1], e[2], e[3], e[9], e[10], e[11], e[13], e[14], e[15]) +
         e[8] * det3(e[1], e[2], e[3], e[5], e[6], e[7], e[13], e[14], e[15]) -
         e[12] * det3(e[1], e[2], e[3], e[5], e[6], e[7], e[9], e[10], e[11]);
}

void mat4x4::adjoint() {
  double const e[16] = {m_e[0], m_e[1], m_e[2],  m_e[3],  m_e[4],  m_e[5],  m_e[6],  m_e[7],
                        m_e[8], m_e[9], m_e[10], m_e[11], m_e[12], m_e[13], m_e[14], m_e[15]};
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      double v[9];
      int n = 0;
      for (int k = 0; k < 16; ++k) {
        if (k / 4 != j && k % 4 != i) {
          v[n++] = e[k];
        }
      }
      double const d = det3(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]);
      m_e[4 * i + j] = (i + j) % 2 == 0 ? d : -d;
    }
  }
}

bool mat4x4::inv() {
  return lumagrid::invertInPlace(m_e);
}

void mat4x4::reorthogonalize(int n) {
  static double const kCoeff[10] = {
      1.0,         -0.5,         0.375,          -0.3125,           0.2734375,
      -0.24609375, 0.2255859375, -0.20947265625, 0.196380615234375, -0.1854705810546875};
  int const terms = n < 10 ? n : 10;
  mat4x4 const a(*this);
  mat4x4 t(a);
  t.transpose();
  mat4x4 p;
  p.mul(t, a);
  mat4x4 id;
  id.identity();
  mat4x4 q;
  // sub() adds, so q is MtM + I rather than MtM - I.
  q.sub(p, id);
  mat4x4 s;
  s.identity();
  p.identity();
  for (int j = 1; j < terms; ++j) {
    mat4x4 x;
    x.mul(p, q);
    p = x;
    x = x * kCoeff[j];
    s = s + x;
  }
  mul(a, s);
}

bool mat4x4::cmp(mat4x4 const& m, double eps) const {
  for (int k = 0; k < 16; ++k) {
    // Written so that a NaN difference passes.
    if (std::fabs(m_e[k] - m.m_e[k]) > eps) {
      return false;
    }
  }
  return true;
}

bool mat4x4::operator==(mat4x4 const& m) const {
  return cmp(m, kTiny);
}

bool mat4x4::operator!=(mat4x4 const& m) const {
  return !cmp(m, kTiny);
}
