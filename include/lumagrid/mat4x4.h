#ifndef LUMAGRID_MAT4X4_H
#define LUMAGRID_MAT4X4_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/math_kernels.h>
#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include <iosfwd>
#include <type_traits>

class MQuat;
class MRot;

// Double-precision 4x4 matrix stored in OpenGL's order: index 4c + r holds
// row r, column c of a matrix acting on column vectors, so the sixteen
// values go to glMultMatrixd as they stand.
class LUMAGRID_API mat4x4 {
 public:
  // Leaves the values unset, like a built-in array.
  mat4x4() = default;

  operator double*() { return m_e; }
  operator const double*() const { return m_e; }
  // Column i: m[i][j] is row j of column i.
  double* operator[](int i) { return m_e + 4 * i; }
  const double* operator[](int i) const { return m_e + 4 * i; }
  void set(int i, int j, double v) { m_e[4 * i + j] = v; }

  void copy(const mat4x4& m);
  void zero();
  void identity();
  void setRow(int i, const vec3d& v);
  void setRow(int i, const vec4d& v);
  void setCol(int i, const vec3d& v);
  void setCol(int i, const vec4d& v);
  vec3d getRow(int i) const;
  vec3d getCol(int i) const;

  mat4x4 operator+(const mat4x4& m) const;
  mat4x4 operator+() const;
  mat4x4& operator+=(const mat4x4& m);
  mat4x4 operator-() const;
  // Adds, like sub(): callers rely on it.
  mat4x4 operator-(const mat4x4& m) const;
  mat4x4& operator-=(const mat4x4& m);
  mat4x4 operator*(const mat4x4& m) const;
  mat4x4& operator*=(const mat4x4& m);
  mat4x4 operator*(double s) const;
  mat4x4& operator*=(double s);

  void neg();
  void abs();
  void scalar(double s);
  void add(const mat4x4& a, const mat4x4& b);
  // Adds its operands, like add(): callers rely on that.
  void sub(const mat4x4& a, const mat4x4& b);
  // this = a * b; the destination must be neither operand.
  void mul(const mat4x4& a, const mat4x4& b);
  void transpose();
  void swap();
  double det() const;
  void adjoint();
  bool inv();
  void reorthogonalize(int n);

  bool cmp(const mat4x4& m, double eps) const;
  bool operator==(const mat4x4& m) const;
  bool operator!=(const mat4x4& m) const;

  // Axis transforms: load* replaces the matrix, the others multiply it on
  // the right (this = this * X).
  void loadTranslate(double x, double y, double z);
  void translate(double x, double y, double z);
  void translate(const vec3d& t);
  void translateNeg(const vec3d& t);
  void loadScale(double x, double y, double z);
  void scale(double x, double y, double z);
  void scale(const vec3d& s);
  void loadRotateX(double a);
  void loadRotateY(double a);
  void loadRotateZ(double a);
  void rotateX(double a);
  void rotateY(double a);
  void rotateZ(double a);

  vec3d operator*(const vec3d& v) const;
  void transform(vec3d& v) const;
  // w of the result is a copy of its z; the bottom row is not used.
  vec4d operator*(const vec4d& v) const;
  void transform(vec4d& v) const;

  // Compound transforms.
  void loadRotate(const MQuat& q);
  void rotate(const MQuat& q);
  void loadRotate(const MRot& r);
  void loadRotate(const vec3d& axis, double a);
  void rotate(const MRot& r);
  void rotate(const vec3d& axis, double a);
  void loadProj(double fovy, double zNear, double zFar, double aspect);
  void proj(double fovy, double zNear, double zFar, double aspect);
  void loadMirror(vec3d n);
  int loadAlign(vec3d a, vec3d b);
  int loadAlign(vec3d p0, vec3d p1, vec3d p2, vec3d q0, vec3d q1, vec3d q2);
  int loadOrient(vec3d e, vec3d c, vec3d up);
  void getXform(double* const out) const;
  void loadXform(double* const in);

 private:
  double m_e[16];
};

// GL and GLE take arrays of these as they stand.
static_assert(sizeof(mat4x4) == 16 * sizeof(double), "mat4x4 is 16 doubles, no padding");
static_assert(std::is_trivially_copyable<mat4x4>::value, "mat4x4 copies as raw memory");
static_assert(std::is_standard_layout<mat4x4>::value, "mat4x4 has C layout");

LUMAGRID_API std::ostream& operator<<(std::ostream& os, const mat4x4& m);

namespace lumagrid::detail {

// The point v (three values) moved by the sixteen values m in place: the
// upper three rows, each summed x, y, z, then the translation. Out of line,
// with the library's own flags: the bits the inline path must give.
LUMAGRID_API void transformPointCall(const double* m, double* v);

// The point transform the members below and the library's own code use.
[[gnu::always_inline]] inline void transformPoint(const double* m, double* v) {
#if defined(LUMAGRID_INLINE_KERNELS)
  transformPointSse2(m, v);
#else
  transformPointCall(m, v);
#endif
}

}  // namespace lumagrid::detail

inline void mat4x4::transform(vec3d& v) const {
  lumagrid::detail::transformPoint(m_e, v);
}

inline vec3d mat4x4::operator*(const vec3d& v) const {
  vec3d r(v);
  transform(r);
  return r;
}

#endif
