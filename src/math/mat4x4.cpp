#include <lumagrid/mat4x4.h>

#include "math/elementwise.h"
#include "math/mat4x4_inverse.h"
#include "math/mat4x4_product.h"

#include "math/tolerance.h"

#include <cmath>

using lumagrid::detail::kTolerance;
using lumagrid::detail::matrixProduct;

namespace {

// Expansion down the first column of the rows (a, b, c; d, e, f; g, h, i).
double det3(double a, double b, double c, double d, double e, double f, double g, double h,
            double i) {
  return (e * i - f * h) * a - (b * i - c * h) * d + (b * f - c * e) * g;
}

}  // namespace

void mat4x4::copy(const mat4x4& m) {
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

void mat4x4::setRow(int i, const vec3d& v) {
  m_e[i] = v.x();
  m_e[i + 4] = v.y();
  m_e[i + 8] = v.z();
  m_e[i + 12] = i == 3 ? 1.0 : 0.0;
}

void mat4x4::setRow(int i, const vec4d& v) {
  m_e[i] = v.x();
  m_e[i + 4] = v.y();
  m_e[i + 8] = v.z();
  m_e[i + 12] = v.w();
}

void mat4x4::setCol(int i, const vec3d& v) {
  m_e[4 * i] = v.x();
  m_e[4 * i + 1] = v.y();
  m_e[4 * i + 2] = v.z();
  m_e[4 * i + 3] = i == 3 ? 1.0 : 0.0;
}

void mat4x4::setCol(int i, const vec4d& v) {
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

mat4x4 mat4x4::operator+(const mat4x4& m) const {
  mat4x4 r;
  r.add(*this, m);
  return r;
}

mat4x4 mat4x4::operator+() const {
  return *this;
}

mat4x4& mat4x4::operator+=(const mat4x4& m) {
  add(*this, m);
  return *this;
}

mat4x4 mat4x4::operator-() const {
  mat4x4 r(*this);
  r.neg();
  return r;
}

mat4x4 mat4x4::operator-(const mat4x4& m) const {
  // Binary minus adds, like sub(); callers rely on that.
  mat4x4 r;
  r.sub(*this, m);
  return r;
}

mat4x4& mat4x4::operator-=(const mat4x4& m) {
  for (int k = 0; k < 16; ++k) {
    m_e[k] -= m.m_e[k];
  }
  return *this;
}

mat4x4 mat4x4::operator*(const mat4x4& m) const {
  mat4x4 r;
  matrixProduct(r.m_e, m_e, m.m_e);
  return r;
}

mat4x4& mat4x4::operator*=(const mat4x4& m) {
  mat4x4 r;
  matrixProduct(r.m_e, m_e, m.m_e);
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

void mat4x4::add(const mat4x4& a, const mat4x4& b) {
  for (int k = 0; k < 16; ++k) {
    m_e[k] = a.m_e[k] + b.m_e[k];
  }
}

void mat4x4::sub(const mat4x4& a, const mat4x4& b) {
  // Adds its operands, like add(): callers rely on that.
  add(a, b);
}

void mat4x4::mul(const mat4x4& a, const mat4x4& b) {
  matrixProduct(m_e, a.m_e, b.m_e);
}

void mat4x4::transpose() {
  for (int c = 0; c < 4; ++c) {
    for (int r = c + 1; r < 4; ++r) {
      const double t = m_e[4 * c + r];
      m_e[4 * c + r] = m_e[4 * r + c];
      m_e[4 * r + c] = t;
    }
  }
}

void mat4x4::swap() {
  transpose();
}

double mat4x4::det() const {
  const double* e = m_e;
  return e[0] * det3(e[5], e[6], e[7], e[9], e[10], e[11], e[13], e[14], e[15]) -
         e[4] * det3(e[1], e[2], e[3], e[9], e[10], e[11], e[13], e[14], e[15]) +
         e[8] * det3(e[1], e[2], e[3], e[5], e[6], e[7], e[13], e[14], e[15]) -
         e[12] * det3(e[1], e[2], e[3], e[5], e[6], e[7], e[9], e[10], e[11]);
}

void mat4x4::adjoint() {
  const double e[16] = {m_e[0], m_e[1], m_e[2],  m_e[3],  m_e[4],  m_e[5],  m_e[6],  m_e[7],
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
      const double d = det3(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]);
      m_e[4 * i + j] = (i + j) % 2 == 0 ? d : -d;
    }
  }
}

bool mat4x4::inv() {
  return lumagrid::detail::invertInPlace(m_e);
}

void mat4x4::reorthogonalize(int n) {
  static const double kCoeff[10] = {
      1.0,         -0.5,         0.375,          -0.3125,           0.2734375,
      -0.24609375, 0.2255859375, -0.20947265625, 0.196380615234375, -0.1854705810546875};
  const int terms = n < 10 ? n : 10;
  const mat4x4 a(*this);
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

bool mat4x4::cmp(const mat4x4& m, double eps) const {
  return lumagrid::detail::noneFartherThan(m_e, m.m_e, 16, eps);
}

bool mat4x4::operator==(const mat4x4& m) const {
  return cmp(m, kTolerance);
}

bool mat4x4::operator!=(const mat4x4& m) const {
  return !cmp(m, kTolerance);
}
