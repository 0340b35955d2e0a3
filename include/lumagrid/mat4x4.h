/// @file
/// The double-precision 4x4 matrix mat4x4 and its text output.
#ifndef LUMAGRID_MAT4X4_H
#define LUMAGRID_MAT4X4_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/math_kernels.h>
#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include <cstddef>
#include <iosfwd>
#include <type_traits>

class MQuat;
class MRot;

/// Double-precision 4x4 matrix stored in OpenGL's order.
///
/// Index 4c + r holds row r, column c of a matrix acting on column vectors,
/// so the sixteen values go to glMultMatrixd as they stand and indices 12,
/// 13, 14 hold the translation. The drawables keep their placement in one.
/// Transforms come in pairs: `load...` replaces the whole matrix, the other
/// multiplies it on the right (this = this * X, so X acts first, in the
/// matrix's own frame), as OpenGL's matrix calls do. All angles are in
/// radians. The default matrix is unset; start from identity().
///
/// Quirks callers rely on: sub() and the binary operator-() add;
/// operator*(const vec4d&) copies z into w; inv() can fail and then leaves
/// the matrix half eliminated; loadRotate() about an axis turns the opposite
/// way to loadRotateX(), loadRotateY() and loadRotateZ().
class LUMAGRID_API mat4x4 {
 public:
  /// Leaves the values unset, like a built-in array.
  mat4x4() = default;

  /// The address of index 0: the sixteen values as glMultMatrixd takes them.
  ///@{
  operator double*() { return m_e; }
  operator const double*() const { return m_e; }
  ///@}
  /// Column i: `m[i][j]` is row j of column i (index 4i + j). The index is
  /// not checked.
  ///@{
  double* operator[](int i) { return m_e + 4 * i; }
  const double* operator[](int i) const { return m_e + 4 * i; }
  ///@}
  /// Stores v at index 4i + j, that is column i, row j (as `m[i][j]`).
  /// The indices are not checked.
  void set(int i, int j, double v) { m_e[4 * i + j] = v; }

  /// Copies all sixteen values of m.
  void copy(const mat4x4& m);
  /// Sets all sixteen values to 0.0.
  void zero();
  /// Loads the identity.
  void identity();
  /// Row i, columns 0 to 2 take v; column 3 of that row takes 0.0, or 1.0
  /// when i is 3.
  void setRow(int i, const vec3d& v);
  /// Row i takes v.x, v.y, v.z, v.w in columns 0 to 3.
  void setRow(int i, const vec4d& v);
  /// Column i, rows 0 to 2 take v; row 3 of that column takes 0.0, or 1.0
  /// when i is 3.
  void setCol(int i, const vec3d& v);
  /// Column i takes v.x, v.y, v.z, v.w in rows 0 to 3.
  void setCol(int i, const vec4d& v);
  /// Row i, columns 0 to 2 (indices i, i + 4, i + 8).
  vec3d getRow(int i) const;
  /// Column i, rows 0 to 2 (indices 4i to 4i + 2).
  vec3d getCol(int i) const;

  /// New matrix this + m.
  mat4x4 operator+(const mat4x4& m) const;
  /// Copy of this matrix.
  mat4x4 operator+() const;
  /// Adds m in place. @return this matrix.
  mat4x4& operator+=(const mat4x4& m);
  /// New matrix with every sign bit flipped (0.0 becomes -0.0).
  mat4x4 operator-() const;
  /// New matrix this + m: adds, like sub(); callers rely on it.
  ///
  /// `m - m` is 2m. operator-=() is the one that subtracts.
  mat4x4 operator-(const mat4x4& m) const;
  /// Subtracts m in place (a true difference, unlike the binary minus).
  /// @return this matrix.
  mat4x4& operator-=(const mat4x4& m);
  /// New matrix, the product this * m: m acts first on a column vector.
  mat4x4 operator*(const mat4x4& m) const;
  /// Sets this matrix to this * m; m may be this matrix. @return this matrix.
  mat4x4& operator*=(const mat4x4& m);
  /// New matrix with every value scaled by s.
  mat4x4 operator*(double s) const;
  /// Scales every value by s in place. @return this matrix.
  mat4x4& operator*=(double s);

  /// Flips the sign of every value in place.
  void neg();
  /// Replaces every value by its absolute value.
  void abs();
  /// Scales every value by s in place.
  void scalar(double s);
  /// Sets this matrix to a + b.
  void add(const mat4x4& a, const mat4x4& b);
  /// Sets this matrix to a + b as well: adds its operands, like add(); callers
  /// rely on that.
  void sub(const mat4x4& a, const mat4x4& b);
  /// Sets this matrix to the product a * b; the destination must be neither
  /// operand (operator*=() squares in place).
  void mul(const mat4x4& a, const mat4x4& b);
  /// Transposes in place.
  void transpose();
  /// Transposes in place, as transpose().
  void swap();
  /// Determinant.
  double det() const;
  /// Replaces the matrix by its adjugate, the transposed cofactor matrix
  /// (adjugate * m = det() * identity); nothing is divided by the determinant.
  void adjoint();
  /// Inverts in place by Gauss-Jordan elimination with full pivoting.
  ///
  /// Fails when the running product of the pivots (the determinant as it
  /// builds up) falls below 1e-7 in magnitude, so a uniform scale of 0.001
  /// already fails. A failed inverse leaves the matrix partly eliminated, not
  /// restored: invert a copy when the original matters.
  /// @return true on success, false on failure.
  bool inv();
  /// Multiplies the matrix on the right by a truncated series meant to pull
  /// it towards orthogonality.
  ///
  /// The series sums c[j] * Q^j for j below min(n, 10), with c the binomial
  /// coefficients of (1 + x)^(-1/2). Q is built with sub(), which adds, so Q
  /// is transpose(m) * m + identity rather than minus the identity: n <= 1
  /// leaves the matrix unchanged (but for negative zeros, which turn
  /// positive), and reorthogonalize(2) of the identity gives the zero matrix.
  void reorthogonalize(int n);

  /// True unless some value differs from m's by more than eps.
  ///
  /// A difference of exactly eps passes, and so does a NaN difference (unlike
  /// vec3d::cmp(), which is strict).
  bool cmp(const mat4x4& m, double eps) const;
  /// Tolerance equality: cmp() with 1e-10, and its negation.
  ///@{
  bool operator==(const mat4x4& m) const;
  bool operator!=(const mat4x4& m) const;
  ///@}

  // Axis transforms: load* replaces the matrix, the others multiply it on
  // the right (this = this * X).

  /// Loads a translation: the identity with x, y, z at indices 12, 13, 14.
  void loadTranslate(double x, double y, double z);
  /// Translates by (x, y, z) on the right, along the matrix's own axes.
  ///
  /// Only indices 12, 13, 14 change: the matrix is treated as affine, and
  /// index 15 is left as it is even when the bottom row is not (0, 0, 0, 1).
  ///@{
  void translate(double x, double y, double z);
  void translate(const vec3d& t);
  ///@}
  /// Translates by -t on the right, with translate()'s affine shortcut.
  void translateNeg(const vec3d& t);
  /// Loads the scale diag(x, y, z, 1).
  void loadScale(double x, double y, double z);
  /// Scales by diag(x, y, z, 1) on the right: columns 0, 1, 2 (all four rows)
  /// are multiplied by x, y, z.
  ///@{
  void scale(double x, double y, double z);
  void scale(const vec3d& s);
  ///@}
  /// Loads a rotation by a radians about the x, y or z axis.
  ///
  /// Counter-clockwise seen from the positive axis (right-handed):
  /// loadRotateZ(pi/2) takes (1, 0, 0) to (0, 1, 0). loadRotate() about an
  /// axis turns the other way.
  ///@{
  void loadRotateX(double a);
  void loadRotateY(double a);
  void loadRotateZ(double a);
  ///@}
  /// Rotates by a radians about the matrix's own x, y or z axis, on the right
  /// (the matrix of loadRotateX(), loadRotateY() or loadRotateZ() multiplied
  /// in); only the two other columns change.
  ///@{
  void rotateX(double a);
  void rotateY(double a);
  void rotateZ(double a);
  ///@}

  /// The point v moved by the matrix: rows 0 to 2 times (v, 1).
  ///
  /// The bottom row is not used and nothing is divided by a weight.
  /// operator*() returns a new vector, transform() moves v in place. Both are
  /// inline, yet give the library's own bits whatever the host's
  /// floating-point contraction flags.
  ///@{
  vec3d operator*(const vec3d& v) const;
  void transform(vec3d& v) const;
  ///@}
  /// The n points in moved by the matrix into out: out[i] gets the bits
  /// transform() would give in[i].
  ///
  /// For hosts that move many points: the matrix is read once, and where the
  /// processor has AVX the points are moved four rows at a time. Points are
  /// taken in order, each read whole before its result is written, so out
  /// may be in, and any overlap gives what n calls of transform() in order
  /// would. Nothing happens when n is 0 or either pointer is null.
  void transform(const vec3d* in, vec3d* out, std::size_t n) const;
  /// New vector: x, y, z are rows 0 to 2 times v, and w of the result is a
  /// copy of its z; the bottom row is not used. transform(vec4d&) gives the
  /// full product.
  vec4d operator*(const vec4d& v) const;
  /// Full product in place: all four rows times v, the bottom row included.
  void transform(vec4d& v) const;

  // Compound transforms.

  /// Loads the rotation matrix of q.
  ///
  /// q is normalised on the way (its products are scaled by 2/|q|^2), except
  /// that |q|^2 < 1e-10 scales by 1, so (0, 0, 0, 0) gives the identity.
  void loadRotate(const MQuat& q);
  /// Rotates by q on the right: this = this * (rotation matrix of q).
  void rotate(const MQuat& q);
  /// Loads the rotation of MQuat(axis, a): a turn by -a radians about the
  /// axis.
  ///
  /// The opposite sense to loadRotateX(), loadRotateY() and loadRotateZ():
  /// loadRotate(vec3d(0, 0, 1), pi/2) takes (1, 0, 0) to (0, -1, 0). An axis
  /// shorter than 1e-10 gives the identity. The MRot overload takes r.axis
  /// and r.angle.
  ///@{
  void loadRotate(const MRot& r);
  void loadRotate(const vec3d& axis, double a);
  ///@}
  /// Rotates on the right by MQuat(axis, a): a turn by -a radians about the
  /// axis, like loadRotate(axis, a). The MRot overload takes r.axis and
  /// r.angle.
  ///@{
  void rotate(const MRot& r);
  void rotate(const vec3d& axis, double a);
  ///@}
  /// Loads a perspective projection; not OpenGL's perspective matrix.
  ///
  /// fovy is the vertical field of view in radians; mind the argument order.
  /// The horizontal and vertical scales are 2/tan(fovy/2) and
  /// 2 * aspect/tan(fovy/2) (twice the usual, and aspect scales the height);
  /// index 10 is -(zNear + zFar)/(zFar - zNear); the -1 stands at index 14
  /// and the depth offset -2 * zFar * zNear/(zFar - zNear) at index 11, that
  /// is transposed from OpenGL's places; index 15 is 0.0.
  void loadProj(double fovy, double zNear, double zFar, double aspect);
  /// Multiplies by loadProj()'s matrix on the right.
  void proj(double fovy, double zNear, double zFar, double aspect);
  /// Loads diag(-n.n, 1, n.n, 1), whatever the direction of n: not a
  /// reflection.
  ///
  /// The product of the frame (n, perpendicular, their cross product) taken
  /// as rows with the same frame taken as columns, the first negated: its
  /// Gram matrix. Callers rely on this result; n = 0 gives diag(0, 0, 0, 1)
  /// up to signs of zero.
  void loadMirror(vec3d n);
  /// Loads the rotation that takes direction a onto direction b (both
  /// normalised first).
  ///
  /// For parallel (or zero) directions the frame it builds is singular; its
  /// failed inverse is used as it stands and the result is meaningless.
  /// @return 1, always.
  int loadAlign(vec3d a, vec3d b);
  /// Loads the change from the frame of triangle p0, p1, p2 to that of
  /// triangle q0, q1, q2.
  ///
  /// That is inverse(loadOrient(p0, p2 - p0, p1 - p0)) *
  /// loadOrient(q0, q2 - q0, q1 - q0): the second argument handed to
  /// loadOrient() is the difference p2 - p0, not the point p2, and callers
  /// rely on that. The inverse is not checked.
  /// @return 1; 0 (with the identity loaded) if a frame could not be built,
  /// which loadOrient() never reports.
  int loadAlign(vec3d p0, vec3d p1, vec3d p2, vec3d q0, vec3d q1, vec3d q2);
  /// Loads the orientation frame of an eye at e looking at c, with up vector
  /// up.
  ///
  /// f = normalised e - c, s = normalised up x f, u = normalised f x s. The
  /// axes s, u, f stand in columns 0 to 2 and their offsets -s.e, -u.e, -f.e
  /// in the bottom row (indices 3, 7, 11): the transpose of an OpenGL viewing
  /// matrix, which callers rely on. Degenerate input gives zero axes.
  /// @return 1, always.
  int loadOrient(vec3d e, vec3d c, vec3d up);
  /// Writes the 13-value exchange form to out.
  ///
  /// out[0..8] is the upper 3x3 part column by column (indices 0-2, 4-6,
  /// 8-10), out[9..11] the translation (indices 12-14) and out[12] the
  /// scale, always 1.0. The bottom row is not written.
  void getXform(double* const out) const;
  /// Loads the 13-value exchange form of getXform() from in.
  ///
  /// The upper 3x3 part is in[0..8] multiplied by the scale in[12]; the
  /// translation in[9..11] is taken unscaled; the bottom row becomes
  /// (0, 0, 0, 1).
  void loadXform(double* const in);

 private:
  double m_e[16];
};

// GL and GLE take arrays of these as they stand.
static_assert(sizeof(mat4x4) == 16 * sizeof(double), "mat4x4 is 16 doubles, no padding");
static_assert(std::is_trivially_copyable<mat4x4>::value, "mat4x4 copies as raw memory");
static_assert(std::is_standard_layout<mat4x4>::value, "mat4x4 has C layout");

/// Writes m as four lines, one per column (as operator[]() returns them).
///
/// Each line is the column's four values separated by single spaces, ended
/// by std::endl, so every line flushes the stream; a translation prints as
/// the fourth line (loadTranslate(1, 2, 3) gives 1 0 0 0, 0 1 0 0, 0 0 1 0,
/// 1 2 3 1). The numbers follow the stream's own settings, which are left as
/// they are. @return os.
LUMAGRID_API std::ostream& operator<<(std::ostream& os, const mat4x4& m);

namespace lumagrid::detail {

/// The point v (three values) moved by the sixteen values m in place: the
/// upper three rows, each summed x, y, z, then the translation. Out of line,
/// with the library's own flags: the bits the inline path must give.
LUMAGRID_API void transformPointCall(const double* m, double* v);

/// The point transform the members below and the library's own code use:
/// in moved by m, written to out, which may be in.
[[gnu::always_inline]] inline void transformPoint(const double* m, const double* in, double* out) {
#if defined(LUMAGRID_INLINE_KERNELS)
  transformPointSse2(m, in, out);
#else
  double v[3] = {in[0], in[1], in[2]};
  transformPointCall(m, v);
  out[0] = v[0];
  out[1] = v[1];
  out[2] = v[2];
#endif
}

}  // namespace lumagrid::detail

inline void mat4x4::transform(vec3d& v) const {
  lumagrid::detail::transformPoint(m_e, v, v);
}

inline vec3d mat4x4::operator*(const vec3d& v) const {
  // A copy rather than vec3d(), whose constructor is out of line; every
  // value is overwritten.
  vec3d r(v);
  lumagrid::detail::transformPoint(m_e, v, r);
  return r;
}

#endif
