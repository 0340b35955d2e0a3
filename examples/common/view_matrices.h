// The matrices the fixed-function calls of the gallery's view build, computed in double: for a
// renderer that takes them as data.
#pragma once

namespace gallery {

// Column-major, as glLoadMatrixd takes it.
struct Matrix4 {
  double m[16];
};

Matrix4 identity();
// a * b: b applied first, as a glMultMatrix of b after a.
Matrix4 operator*(const Matrix4& a, const Matrix4& b);

// What glScaled, glRotated (degrees about an axis of any length), gluPerspective, gluLookAt and
// glOrtho multiply the current matrix by.
Matrix4 scaling(double x, double y, double z);
Matrix4 rotation(double degrees, double x, double y, double z);
Matrix4 perspective(double fieldOfView, double aspect, double zNear, double zFar);
Matrix4 lookAt(const double eye[3], const double centre[3], const double up[3]);
Matrix4 orthographic(double left, double right, double bottom, double top, double zNear,
                     double zFar);

// The matrix rounded to float, as GL keeps it.
void toFloats(const Matrix4& a, float out[16]);

}  // namespace gallery
