#include <lumagrid/mat4x4.h>

#include "math/mat4x4_transform.h"

#include <cmath>

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

void mat4x4::translate(const vec3d& t) {
  translate(t.x(), t.y(), t.z());
}

void mat4x4::translateNeg(const vec3d& t) {
  const double x = t.x();
  const double y = t.y();
  const double z = t.z();
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

void mat4x4::scale(const vec3d& s) {
  scale(s.x(), s.y(), s.z());
}

namespace {

// The turn by (c, s) = (cos a, sin a) that takes axis i towards axis j,
// written into the identity m.
void loadTurn(double* m, int i, int j, double c, double s) {
  m[4 * i + i] = c;
  m[4 * i + j] = s;
  m[4 * j + i] = -s;
  m[4 * j + j] = c;
}

// m times that turn: columns i and j recombined, the other two kept.
void turnColumns(double* m, int i, int j, double c, double s) {
  for (int r = 0; r < 4; ++r) {
    const double ci = m[4 * i + r];
    const double cj = m[4 * j + r];
    m[4 * i + r] = ci * c + cj * s;
    m[4 * j + r] = cj * c - ci * s;
  }
}

}  // namespace

void mat4x4::loadRotateX(double a) {
  identity();
  loadTurn(m_e, 1, 2, std::cos(a), std::sin(a));
}

void mat4x4::loadRotateY(double a) {
  identity();
  loadTurn(m_e, 2, 0, std::cos(a), std::sin(a));
}

void mat4x4::loadRotateZ(double a) {
  identity();
  loadTurn(m_e, 0, 1, std::cos(a), std::sin(a));
}

void mat4x4::rotateX(double a) {
  turnColumns(m_e, 1, 2, std::cos(a), std::sin(a));
}

void mat4x4::rotateY(double a) {
  turnColumns(m_e, 2, 0, std::cos(a), std::sin(a));
}

void mat4x4::rotateZ(double a) {
  turnColumns(m_e, 0, 1, std::cos(a), std::sin(a));
}

// The out-of-line copy, for hosts whose compiler cannot inline the SSE2
// kernel: built with the library's flags, it takes the two-lane path where
// the library has it (same bits as the plain one, and faster).
void lumagrid::detail::transformPointCall(const double* m, double* v) {
#if defined(LUMAGRID_INLINE_KERNELS)
  transformPointSse2(m, v, v);
#else
  transformPointPlain(m, v);
#endif
}

vec4d mat4x4::operator*(const vec4d& v) const {
  const double x = v.x();
  const double y = v.y();
  const double z = v.z();
  const double w = v.w();
  const double rz = x * m_e[2] + y * m_e[6] + z * m_e[10] + w * m_e[14];
  // The bottom row is not used: w repeats the z just computed.
  return vec4d(x * m_e[0] + y * m_e[4] + z * m_e[8] + w * m_e[12],
               x * m_e[1] + y * m_e[5] + z * m_e[9] + w * m_e[13], rz, rz);
}

void mat4x4::transform(vec4d& v) const {
  const double x = v.x();
  const double y = v.y();
  const double z = v.z();
  const double w = v.w();
  v.set(x * m_e[0] + y * m_e[4] + z * m_e[8] + w * m_e[12],
        x * m_e[1] + y * m_e[5] + z * m_e[9] + w * m_e[13],
        x * m_e[2] + y * m_e[6] + z * m_e[10] + w * m_e[14],
        x * m_e[3] + y * m_e[7] + z * m_e[11] + w * m_e[15]);
}
