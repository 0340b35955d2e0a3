#include "mesh/affine.h"

#include <cmath>

namespace lumagrid::detail {

namespace {

double At(const Affine& a, int row, int column) {
  return a.e[static_cast<std::size_t>(column * 4 + row)];
}

}  // namespace

Affine IdentityAffine() {
  return Affine{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
}

Affine AffineFrom(const double* glOrder) {
  Affine a{};
  for (std::size_t i = 0; i < 16; ++i) {
    a.e[i] = glOrder[i];
  }
  return a;
}

Affine Multiplied(const Affine& a, const Affine& b) {
  Affine c{};
  for (int column = 0; column < 4; ++column) {
    for (int row = 0; row < 4; ++row) {
      double sum = 0.0;
      for (int k = 0; k < 4; ++k) {
        sum += At(a, row, k) * At(b, k, column);
      }
      c.e[static_cast<std::size_t>(column * 4 + row)] = sum;
    }
  }
  return c;
}

Affine Translated(const Affine& a, double x, double y, double z) {
  Affine t = IdentityAffine();
  t.e[12] = x;
  t.e[13] = y;
  t.e[14] = z;
  return Multiplied(a, t);
}

Affine Rotated(const Affine& a, double degrees, double x, double y, double z) {
  const double length = std::sqrt(x * x + y * y + z * z);
  if (!(length > 0.0)) {
    return a;
  }
  x /= length;
  y /= length;
  z /= length;
  const double radians = degrees * (3.14159265358979323846 / 180.0);
  const double c = std::cos(radians);
  const double s = std::sin(radians);
  const double k = 1.0 - c;
  Affine r = IdentityAffine();
  r.e[0] = x * x * k + c;
  r.e[1] = y * x * k + z * s;
  r.e[2] = x * z * k - y * s;
  r.e[4] = x * y * k - z * s;
  r.e[5] = y * y * k + c;
  r.e[6] = y * z * k + x * s;
  r.e[8] = x * z * k + y * s;
  r.e[9] = y * z * k - x * s;
  r.e[10] = z * z * k + c;
  return Multiplied(a, r);
}

vec3d TransformedPoint(const Affine& a, const vec3d& p) {
  const double x = p.x();
  const double y = p.y();
  const double z = p.z();
  const double w = At(a, 3, 0) * x + At(a, 3, 1) * y + At(a, 3, 2) * z + At(a, 3, 3);
  const double scale = (w != 0.0 && w != 1.0) ? 1.0 / w : 1.0;
  return vec3d((At(a, 0, 0) * x + At(a, 0, 1) * y + At(a, 0, 2) * z + At(a, 0, 3)) * scale,
               (At(a, 1, 0) * x + At(a, 1, 1) * y + At(a, 1, 2) * z + At(a, 1, 3)) * scale,
               (At(a, 2, 0) * x + At(a, 2, 1) * y + At(a, 2, 2) * z + At(a, 2, 3)) * scale);
}

NormalTransform::NormalTransform(const Affine& a) : m_() {
  const double m00 = At(a, 0, 0), m01 = At(a, 0, 1), m02 = At(a, 0, 2);
  const double m10 = At(a, 1, 0), m11 = At(a, 1, 1), m12 = At(a, 1, 2);
  const double m20 = At(a, 2, 0), m21 = At(a, 2, 1), m22 = At(a, 2, 2);
  // The cofactor matrix is the inverse transpose times the determinant; the determinant's
  // size does not matter once normals are renormalised, only its sign.
  const double c00 = m11 * m22 - m12 * m21, c01 = m12 * m20 - m10 * m22,
               c02 = m10 * m21 - m11 * m20;
  const double c10 = m02 * m21 - m01 * m22, c11 = m00 * m22 - m02 * m20,
               c12 = m01 * m20 - m00 * m21;
  const double c20 = m01 * m12 - m02 * m11, c21 = m02 * m10 - m00 * m12,
               c22 = m00 * m11 - m01 * m10;
  const double det = m00 * c00 + m01 * c01 + m02 * c02;
  if (det == 0.0 || !std::isfinite(det)) {
    m_ = {m00, m01, m02, m10, m11, m12, m20, m21, m22};
    return;
  }
  const double sign = det > 0.0 ? 1.0 : -1.0;
  m_ = {sign * c00, sign * c01, sign * c02, sign * c10, sign * c11,
        sign * c12, sign * c20, sign * c21, sign * c22};
}

vec3d NormalTransform::operator()(const vec3d& n) const {
  const double x = m_[0] * n.x() + m_[1] * n.y() + m_[2] * n.z();
  const double y = m_[3] * n.x() + m_[4] * n.y() + m_[5] * n.z();
  const double z = m_[6] * n.x() + m_[7] * n.y() + m_[8] * n.z();
  const double length = std::sqrt(x * x + y * y + z * z);
  if (!(length > 0.0)) {
    return vec3d(0.0, 0.0, 0.0);
  }
  return vec3d(x / length, y / length, z / length);
}

}  // namespace lumagrid::detail
