#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include "math/elementwise.h"
#include "math/tolerance.h"

#include <cmath>

using lumagrid::detail::kTolerance;

vec3d::vec3d() : m_v{0.0, 0.0, 0.0} {}

vec3d::vec3d(double x, double y, double z) : m_v{x, y, z} {}

vec3d::vec3d(const vec4d& v) {
  if (std::fabs(v.w()) < kTolerance) {
    zero();
  }
  // No early return: a near-zero w still divides, so the zeroing never survives.
  const double r = 1.0 / v.w();
  m_v[0] = v.x() * r;
  m_v[1] = v.y() * r;
  m_v[2] = v.z() * r;
}

void vec3d::set(double x, double y, double z) {
  m_v[0] = x;
  m_v[1] = y;
  m_v[2] = z;
}

void vec3d::zero() {
  set(0.0, 0.0, 0.0);
}

void vec3d::copy(const vec3d& v) {
  set(v.m_v[0], v.m_v[1], v.m_v[2]);
}

vec3d vec3d::operator+(const vec3d& v) const {
  return vec3d(m_v[0] + v.m_v[0], m_v[1] + v.m_v[1], m_v[2] + v.m_v[2]);
}

vec3d vec3d::operator+() const {
  return *this;
}

vec3d& vec3d::operator+=(const vec3d& v) {
  m_v[0] += v.m_v[0];
  m_v[1] += v.m_v[1];
  m_v[2] += v.m_v[2];
  return *this;
}

vec3d vec3d::operator-(const vec3d& v) const {
  return vec3d(m_v[0] - v.m_v[0], m_v[1] - v.m_v[1], m_v[2] - v.m_v[2]);
}

vec3d vec3d::operator-() const {
  return vec3d(-m_v[0], -m_v[1], -m_v[2]);
}

vec3d& vec3d::operator-=(const vec3d& v) {
  m_v[0] -= v.m_v[0];
  m_v[1] -= v.m_v[1];
  m_v[2] -= v.m_v[2];
  return *this;
}

vec3d vec3d::operator*(double s) const {
  return vec3d(m_v[0] * s, m_v[1] * s, m_v[2] * s);
}

vec3d& vec3d::operator*=(double s) {
  scalar(s);
  return *this;
}

double vec3d::operator*(const vec3d& v) const {
  return dot(v);
}

void vec3d::neg() {
  m_v[0] = -m_v[0];
  m_v[1] = -m_v[1];
  m_v[2] = -m_v[2];
}

void vec3d::abs() {
  m_v[0] = std::fabs(m_v[0]);
  m_v[1] = std::fabs(m_v[1]);
  m_v[2] = std::fabs(m_v[2]);
}

void vec3d::add(const vec3d& a, const vec3d& b) {
  set(a.m_v[0] + b.m_v[0], a.m_v[1] + b.m_v[1], a.m_v[2] + b.m_v[2]);
}

void vec3d::sub(const vec3d& a, const vec3d& b) {
  set(a.m_v[0] - b.m_v[0], a.m_v[1] - b.m_v[1], a.m_v[2] - b.m_v[2]);
}

void vec3d::scalar(double s) {
  m_v[0] *= s;
  m_v[1] *= s;
  m_v[2] *= s;
}

double vec3d::dot(const vec3d& v) const {
  return m_v[0] * v.m_v[0] + m_v[1] * v.m_v[1] + m_v[2] * v.m_v[2];
}

double vec3d::squared() const {
  return dot(*this);
}

double vec3d::length() const {
  return std::sqrt(squared());
}

void vec3d::linear_comb(double a, vec3d u, double b, vec3d v) {
  set(a * u.m_v[0] + b * v.m_v[0], a * u.m_v[1] + b * v.m_v[1], a * u.m_v[2] + b * v.m_v[2]);
}

void vec3d::cross(const vec3d& a, const vec3d& b) {
  set(a.m_v[1] * b.m_v[2] - a.m_v[2] * b.m_v[1], a.m_v[2] * b.m_v[0] - a.m_v[0] * b.m_v[2],
      a.m_v[0] * b.m_v[1] - a.m_v[1] * b.m_v[0]);
}

void vec3d::lerp(const vec3d& a, const vec3d& b, double t) {
  set((b.m_v[0] - a.m_v[0]) * t + a.m_v[0], (b.m_v[1] - a.m_v[1]) * t + a.m_v[1],
      (b.m_v[2] - a.m_v[2]) * t + a.m_v[2]);
}

void vec3d::min(const vec3d& v) {
  lumagrid::detail::takeSmaller(m_v, v.m_v, 3);
}

void vec3d::max(const vec3d& v) {
  lumagrid::detail::takeLarger(m_v, v.m_v, 3);
}

bool vec3d::cmp(const vec3d& v, double eps) const {
  return lumagrid::detail::allCloserThan(m_v, v.m_v, 3, eps);
}

bool vec3d::operator==(const vec3d& v) const {
  return cmp(v, kTolerance);
}

bool vec3d::operator!=(const vec3d& v) const {
  return !cmp(v, kTolerance);
}

void vec3d::normalize() {
  const double l = length();
  if (std::fabs(l) < kTolerance) {
    zero();
    return;
  }
  scalar(1.0 / l);
}

void vec3d::homogenize() {
  m_v[0] *= m_v[2];
  m_v[1] *= m_v[2];
}

void vec3d::rationalize() {
  if (std::fabs(m_v[2]) < kTolerance) {
    zero();
    return;
  }
  const double r = 1.0 / m_v[2];
  m_v[0] *= r;
  m_v[1] *= r;
  m_v[2] = 1.0;
}

void vec3d::cartesianize() {
  // The weight is tested on z but divides by w, which a lone vec3d lacks.
  if (std::fabs(m_v[2]) < kTolerance) {
    zero();
    return;
  }
  const double w = 1.0;
  const double r = 1.0 / w;
  m_v[0] *= r;
  m_v[1] *= r;
  m_v[2] = 1.0;
}

void vec3d::perp(vec3d v) {
  const double a = std::fabs(v.m_v[0]);
  const double b = std::fabs(v.m_v[1]);
  const double c = std::fabs(v.m_v[2]);
  int k;
  if (b >= a) {
    k = c >= a ? 0 : 2;
  } else {
    k = c >= b ? 1 : 2;
  }
  const int i = k == 0 ? 1 : 0;
  const int j = k == 2 ? 1 : 2;
  m_v[k] = 0.0;
  m_v[i] = v.m_v[j];
  m_v[j] = -v.m_v[i];
  if (v.length() == 1.0 && v.m_v[k] == 0.0) {
    return;
  }
  normalize();
}

void vec3d::normal(const vec3d& a, const vec3d& b, const vec3d& c) {
  const vec3d u = c - b;
  const vec3d w = a - b;
  cross(u, w);
  normalize();
}

void vec3d::cubic(const vec3d& p0, const vec3d& m0, const vec3d& m1, const vec3d& p1, double t) {
  const double t2 = t * t;
  const double t3 = t2 * t;
  const double h00 = 2.0 * t3 - 3.0 * t2 + 1.0;
  const double h01 = 3.0 * t2 - 2.0 * t3;
  const double h10 = t3 - 2.0 * t2 + t;
  const double h11 = t3 - t2;
  for (int i = 0; i < 3; ++i) {
    m_v[i] = h00 * p0.m_v[i] + h01 * p1.m_v[i] + h10 * m0.m_v[i] + h11 * m1.m_v[i];
  }
}
