#include "view_matrices.h"

#include <cmath>

namespace gallery {
namespace {

constexpr double kPi = 3.14159265358979323846;

double radians(double degrees) {
  return degrees * kPi / 180.0;
}

// Element at row r, column c.
double& at(Matrix4& a, int r, int c) {
  return a.m[4 * c + r];
}

void normalise(double v[3]) {
  const double length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
  if (length > 0.0) {
    for (int i = 0; i < 3; ++i) {
      v[i] /= length;
    }
  }
}

void cross(const double a[3], const double b[3], double out[3]) {
  out[0] = a[1] * b[2] - a[2] * b[1];
  out[1] = a[2] * b[0] - a[0] * b[2];
  out[2] = a[0] * b[1] - a[1] * b[0];
}

Matrix4 translation(double x, double y, double z) {
  Matrix4 t = identity();
  at(t, 0, 3) = x;
  at(t, 1, 3) = y;
  at(t, 2, 3) = z;
  return t;
}

}  // namespace

Matrix4 identity() {
  return scaling(1.0, 1.0, 1.0);
}

Matrix4 operator*(const Matrix4& a, const Matrix4& b) {
  Matrix4 out{};
  for (int c = 0; c < 4; ++c) {
    for (int r = 0; r < 4; ++r) {
      double sum = 0.0;
      for (int k = 0; k < 4; ++k) {
        sum += a.m[4 * k + r] * b.m[4 * c + k];
      }
      out.m[4 * c + r] = sum;
    }
  }
  return out;
}

Matrix4 scaling(double x, double y, double z) {
  Matrix4 s{};
  at(s, 0, 0) = x;
  at(s, 1, 1) = y;
  at(s, 2, 2) = z;
  at(s, 3, 3) = 1.0;
  return s;
}

Matrix4 rotation(double degrees, double x, double y, double z) {
  double axis[3] = {x, y, z};
  normalise(axis);
  const double c = std::cos(radians(degrees));
  const double s = std::sin(radians(degrees));
  Matrix4 r = identity();
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      at(r, i, j) = axis[i] * axis[j] * (1.0 - c) + (i == j ? c : 0.0);
    }
  }
  at(r, 0, 1) -= axis[2] * s;
  at(r, 0, 2) += axis[1] * s;
  at(r, 1, 0) += axis[2] * s;
  at(r, 1, 2) -= axis[0] * s;
  at(r, 2, 0) -= axis[1] * s;
  at(r, 2, 1) += axis[0] * s;
  return r;
}

Matrix4 perspective(double fieldOfView, double aspect, double zNear, double zFar) {
  const double f = 1.0 / std::tan(radians(fieldOfView) / 2.0);
  Matrix4 p{};
  at(p, 0, 0) = f / aspect;
  at(p, 1, 1) = f;
  at(p, 2, 2) = (zFar + zNear) / (zNear - zFar);
  at(p, 2, 3) = 2.0 * zFar * zNear / (zNear - zFar);
  at(p, 3, 2) = -1.0;
  return p;
}

Matrix4 lookAt(const double eye[3], const double centre[3], const double up[3]) {
  double forward[3] = {centre[0] - eye[0], centre[1] - eye[1], centre[2] - eye[2]};
  normalise(forward);
  double side[3];
  cross(forward, up, side);
  normalise(side);
  double trueUp[3];
  cross(side, forward, trueUp);
  Matrix4 r = identity();
  for (int c = 0; c < 3; ++c) {
    at(r, 0, c) = side[c];
    at(r, 1, c) = trueUp[c];
    at(r, 2, c) = -forward[c];
  }
  return r * translation(-eye[0], -eye[1], -eye[2]);
}

Matrix4 orthographic(double left, double right, double bottom, double top, double zNear,
                     double zFar) {
  Matrix4 o = identity();
  at(o, 0, 0) = 2.0 / (right - left);
  at(o, 1, 1) = 2.0 / (top - bottom);
  at(o, 2, 2) = -2.0 / (zFar - zNear);
  at(o, 0, 3) = -(right + left) / (right - left);
  at(o, 1, 3) = -(top + bottom) / (top - bottom);
  at(o, 2, 3) = -(zFar + zNear) / (zFar - zNear);
  return o;
}

void toFloats(const Matrix4& a, float out[16]) {
  for (int i = 0; i < 16; ++i) {
    out[i] = static_cast<float>(a.m[i]);
  }
}

}  // namespace gallery
