#include <lumagrid/mat4x4.h>

#include <cmath>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

void mat4x4::loadTranslate(double x, double y, double z) {
  identity();
  m_e[12] = x;
  m_e[13] = y;
  m_e[14] = z;
}

void mat4x4::translate(double x, double y, double z) {
  // Affine only: the bottom row, and so index 15, is left as it is.
  m_e[12] += x * m_e[0] + y * m_e[4] + z * m_e[8];
  m_e[13] += x * m_e[1] + y * m_e[5] + z * m_e[9];
  m_e[14] += x * m_e[2] + y * m_e[6] + z * m_e[10];
}

void mat4x4::translate(vec3d const& t) {
  translate(t.x(), t.y(), t.z());
}

void mat4x4::translateNeg(vec3d const& t) {
  double const x = t.x();
  double const y = t.y();
  double const z = t.z();
  m_e[12] -= x * m_e[0] + y * m_e[4] + z * m_e[8];
  m_e[13] -= x * m_e[1] + y * m_e[5] + z * m_e[9];
  m_e[14] -= x * m_e[2] + y * m_e[6] + z * m_e[10];
}

void mat4x4::loadScale(double x, double y, double z) {
  zero();
  m_e[0] = x;
  m_e[5] = y;
  m_e[10] = z;
  m_e[15] = 1.0;
}

void mat4x4::scale(double x, double y, double z) {
  for (int r = 0; r < 4; ++r) {
    m_e[r] *= x;
    m_e[4 + r] *= y;
    m_e[8 + r] *= z;
  }
}

void mat4x4::scale(vec3d const& s) {
  scale(s.x(), s.y(), s.z());
}

void mat4x4::loadRotateX(double a) {
  double const c = std::cos(a);
  double const s = std::sin(a);
  zero();
  m_e[0] = 1.0;
  m_e[5] = c;
  m_e[6] = s;
  m_e[9] = -s;
  m_e[10] = c;
  m_e[15] = 1.0;
}

void mat4x4::loadRotateY(double a) {
  double const c = std::cos(a);
  double const s = std::sin(a);
  zero();
  m_e[0] = c;
  m_e[2] = -s;
  m_e[5] = 1.0;
  m_e[8] = s;
  m_e[10] = c;
  m_e[15] = 1.0;
}

void mat4x4::loadRotateZ(double a) {
  double const c = std::cos(a);
  double const s = std::sin(a);
  zero();
  m_e[0] = c;
  m_e[1] = s;
  m_e[4] = -s;
  m_e[5] = c;
  m_e[10] = 1.0;
  m_e[15] = 1.0;
}

void mat4x4::rotateX(double a) {
  double const c = std::cos(a);
  double const s = std::sin(a);
  for (int r = 0; r < 4; ++r) {
    double const c1 = m_e[4 + r];
    double const c2 = m_e[8 + r];
    m_e[4 + r] = c1 * c + c2 * s;
    m_e[8 + r] = c2 * c - c1 * s;
  }
}

void mat4x4::rotateY(double a) {
  double const c = std::cos(a);
  double const s = std::sin(a);
  for (int r = 0; r < 4; ++r) {
    double const c0 = m_e[r];
    double const c2 = m_e[8 + r];
    m_e[r] = c0 * c - c2 * s;
    m_e[8 + r] = c2 * c + c0 * s;
  }
}

void mat4x4::rotateZ(double a) {
  double const c = std::cos(a);
  double const s = std::sin(a);
  for (int r = 0; r < 4; ++r) {
    double const c0 = m_e[r];
    double const c1 = m_e[4 + r];
    m_e[r] = c0 * c + c1 * s;
    m_e[4 + r] = c1 * c - c0 * s;
  }
}

vec3d mat4x4::operator*(vec3d const& v) const {
  vec3d r(v);
  transform(r);
  return r;
}

void mat4x4::transform(vec3d& v) const {
#if defined(__SSE2__)
  // Rows 0-1 and rows 2-3 side by side; row 3 is computed and dropped.
  double* const p = v;
  __m128d const xy = _mm_loadu_pd(p);
  __m128d const x = _mm_unpacklo_pd(xy, xy);
  __m128d const y = _mm_unpackhi_pd(xy, xy);
  __m128d const z = _mm_load1_pd(p + 2);
  __m128d lo = _mm_mul_pd(_mm_loadu_pd(m_e), x);
  __m128d hi = _mm_mul_pd(_mm_loadu_pd(m_e + 2), x);
  lo = _mm_add_pd(lo, _mm_mul_pd(_mm_loadu_pd(m_e + 4), y));
  hi = _mm_add_pd(hi, _mm_mul_pd(_mm_loadu_pd(m_e + 6), y));
  lo = _mm_add_pd(lo, _mm_mul_pd(_mm_loadu_pd(m_e + 8), z));
  hi = _mm_add_pd(hi, _mm_mul_pd(_mm_loadu_pd(m_e + 10), z));
  lo = _mm_add_pd(lo, _mm_loadu_pd(m_e + 12));
  hi = _mm_add_pd(hi, _mm_loadu_pd(m_e + 14));
  _mm_storeu_pd(p, lo);
  _mm_store_sd(p + 2, hi);
#else
  double const x = v.x();
  double const y = v.y();
  double const z = v.z();
  v.x() = x * m_e[0] + y * m_e[4] + z * m_e[8] + m_e[12];
  v.y() = x * m_e[1] + y * m_e[5] + z * m_e[9] + m_e[13];
  v.z() = x * m_e[2] + y * m_e[6] + z * m_e[10] + m_e[14];
#endif
}

vec4d mat4x4::operator*(vec4d const& v) const {
  double const x = v.x();
  double const y = v.y();
  double const z = v.z();
  double const w = v.w();
  double const rz = x * m_e[2] + y * m_e[6] + z * m_e[10] + w * m_e[14];
  // The bottom row is not used: w repeats the z just computed.
  return vec4d(x * m_e[0] + y * m_e[4] + z * m_e[8] + w * m_e[12],
               x * m_e[1] + y * m_e[5] + z * m_e[9] + w * m_e[13], rz, rz);
}

void mat4x4::transform(vec4d& v) const {
  double const x = v.x();
  double const y = v.y();
  double const z = v.z();
  double const w = v.w();
  v.set(x * m_e[0] + y * m_e[4] + z * m_e[8] + w * m_e[12],
        x * m_e[1] + y * m_e[5] + z * m_e[9] + w * m_e[13],
        x * m_e[2] + y * m_e[6] + z * m_e[10] + w * m_e[14],
        x * m_e[3] + y * m_e[7] + z * m_e[11] + w * m_e[15]);
}
