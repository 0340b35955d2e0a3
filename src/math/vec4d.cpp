#include <lumagrid/vec4d.h>

#include "math/elementwise.h"
#include "math/tolerance.h"

#include <cmath>

using lumagrid::detail::kTolerance;

vec4d::vec4d() : m_v{0.0, 0.0, 0.0, 0.0} {}

vec4d::vec4d(double x, double y, double z, double w) : m_v{x, y, z, w} {}

vec4d::vec4d(const vec3d& v) : m_v{v.x(), v.y(), v.z(), 1.0} {}

void vec4d::set(double x, double y, double z, double w) {
  m_v[0] = x;
  m_v[1] = y;
  m_v[2] = z;
  m_v[3] = w;
}

void vec4d::zero() {
  set(0.0, 0.0, 0.0, 0.0);
}

void vec4d::copy(const vec4d& v) {
  set(v.m_v[0], v.m_v[1], v.m_v[2], v.m_v[3]);
}

vec4d vec4d::operator+(const vec4d& v) const {
  return vec4d(m_v[0] + v.m_v[0], m_v[1] + v.m_v[1], m_v[2] + v.m_v[2], m_v[3] + v.m_v[3]);
}

vec4d vec4d::operator+() const {
  return *this;
}

vec4d& vec4d::operator+=(const vec4d& v) {
  add(*this, v);
  return *this;
}

vec4d vec4d::operator-(const vec4d& v) const {
  return vec4d(m_v[0] - v.m_v[0], m_v[1] - v.m_v[1], m_v[2] - v.m_v[2], m_v[3] - v.m_v[3]);
}

vec4d vec4d::operator-() const {
  return vec4d(-m_v[0], -m_v[1], -m_v[2], -m_v[3]);
}

vec4d& vec4d::operator-=(const vec4d& v) {
  sub(*this, v);
  return *this;
}

vec4d vec4d::operator*(double s) const {
  return vec4d(m_v[0] * s, m_v[1] * s, m_v[2] * s, m_v[3] * s);
}

vec4d& vec4d::operator*=(double s) {
  scalar(s);
  return *this;
}

double vec4d::operator*(const vec4d& v) const {
  return dot(v);
}

void vec4d::neg() {
  set(-m_v[0], -m_v[1], -m_v[2], -m_v[3]);
}

void vec4d::abs() {
  set(std::fabs(m_v[0]), std::fabs(m_v[1]), std::fabs(m_v[2]), std::fabs(m_v[3]));
}

void vec4d::add(const vec4d& a, const vec4d& b) {
  set(a.m_v[0] + b.m_v[0], a.m_v[1] + b.m_v[1], a.m_v[2] + b.m_v[2], a.m_v[3] + b.m_v[3]);
}

void vec4d::sub(const vec4d& a, const vec4d& b) {
  set(a.m_v[0] - b.m_v[0], a.m_v[1] - b.m_v[1], a.m_v[2] - b.m_v[2], a.m_v[3] - b.m_v[3]);
}

void vec4d::scalar(double s) {
  m_v[0] *= s;
  m_v[1] *= s;
  m_v[2] *= s;
  m_v[3] *= s;
}

double vec4d::dot(const vec4d& v) const {
  return m_v[0] * v.m_v[0] + m_v[1] * v.m_v[1] + m_v[2] * v.m_v[2] + m_v[3] * v.m_v[3];
}

double vec4d::squared() const {
  return dot(*this);
}

double vec4d::length() const {
  return std::sqrt(squared());
}

void vec4d::linear_comb(double a, vec4d u, double b, vec4d v) {
  set(a * u.m_v[0] + b * v.m_v[0], a * u.m_v[1] + b * v.m_v[1], a * u.m_v[2] + b * v.m_v[2],
      a * u.m_v[3] + b * v.m_v[3]);
}

void vec4d::lerp(const vec4d& a, const vec4d& b, double t) {
  set((b.m_v[0] - a.m_v[0]) * t + a.m_v[0], (b.m_v[1] - a.m_v[1]) * t + a.m_v[1],
      (b.m_v[2] - a.m_v[2]) * t + a.m_v[2], (b.m_v[3] - a.m_v[3]) * t + a.m_v[3]);
}

void vec4d::min(const vec4d& v) {
  lumagrid::detail::takeSmaller(m_v, v.m_v, 4);
}

void vec4d::max(const vec4d& v) {
  lumagrid::detail::takeLarger(m_v, v.m_v, 4);
}

bool vec4d::cmp(const vec4d& v, double eps) const {
  return lumagrid::detail::allCloserThan(m_v, v.m_v, 4, eps);
}

bool vec4d::operator==(const vec4d& v) const {
  return cmp(v, kTolerance);
}

bool vec4d::operator!=(const vec4d& v) const {
  return !cmp(v, kTolerance);
}

void vec4d::normalize() {
  const double l = length();
  // Unlike vec3d::normalize, a near-zero vector is left as it is.
  if (std::fabs(l) < kTolerance) {
    return;
  }
  scalar(1.0 / l);
}

void vec4d::homogenize() {
  m_v[0] *= m_v[3];
  m_v[1] *= m_v[3];
  m_v[2] *= m_v[3];
}

double vec4d::rationalize() {
  if (std::fabs(m_v[3]) < kTolerance) {
    zero();
    return 0.0;
  }
  const double r = 1.0 / m_v[3];
  m_v[0] *= r;
  m_v[1] *= r;
  m_v[2] *= r;
  m_v[3] = 1.0;
  return 1.0;
}

double vec4d::cartesianize() {
  return rationalize();
}

void vec4d::cubic(const vec4d& p0, const vec4d& m0, const vec4d& m1, const vec4d& p1, double t) {
  const double t2 = t * t;
  const double t3 = t2 * t;
  const double h00 = 2.0 * t3 - 3.0 * t2 + 1.0;
  const double h01 = 3.0 * t2 - 2.0 * t3;
  const double h10 = t3 - 2.0 * t2 + t;
  const double h11 = t3 - t2;
  for (int i = 0; i < 4; ++i) {
    m_v[i] = h00 * p0.m_v[i] + h01 * p1.m_v[i] + h10 * m0.m_v[i] + h11 * m1.m_v[i];
  }
}

vec4d::operator vec3d() const {
  if (std::fabs(m_v[3]) < kTolerance) {
    return vec3d(0.0, 0.0, 0.0);
  }
  const double r = 1.0 / m_v[3];
  return vec3d(m_v[0] * r, m_v[1] * r, m_v[2] * r);
}
