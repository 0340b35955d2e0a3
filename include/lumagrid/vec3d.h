/// @file
/// The double-precision 3D vector vec3d and its text output.
#ifndef LUMAGRID_VEC3D_H
#define LUMAGRID_VEC3D_H

#include <lumagrid/lumagrid_export.h>

#include <iosfwd>
#include <type_traits>

class vec4d;

/// Double-precision 3D vector: three contiguous doubles x, y, z.
///
/// A plain value type for points, directions and normals, with no virtual
/// members. It is usable as a `double[3]` wherever GL or GLE take one, and an
/// array of vectors is a packed array of doubles. The default vector is zero.
/// Equality is a tolerance test (1e-10, strict), and a length or weight below
/// 1e-10 in magnitude counts as zero: such operations give the zero vector
/// rather than an error.
class LUMAGRID_API vec3d {
 public:
  /// The zero vector (0, 0, 0).
  vec3d();
  /// The vector (x, y, z).
  vec3d(double x, double y, double z);
  /// The point of a homogeneous vector: x, y and z times 1/w.
  ///
  /// Divides by w even when w is near zero, giving infinities or NaNs. Not
  /// explicit, so `vec3d p = v4;` and `vec3d(v4)` both divide; the guarded
  /// conversion, which gives (0, 0, 0) when |w| < 1e-10, is
  /// `v4.operator vec3d()`.
  vec3d(const vec4d& v);

  /// Sets x, y and z.
  void set(double x, double y, double z);
  /// Sets all three components to 0.0.
  void zero();
  /// Copies v's three components.
  void copy(const vec3d& v);

  /// Component x, y or z: a reference on a mutable vector, the value on a
  /// const one.
  ///@{
  double& x() { return m_v[0]; }
  double& y() { return m_v[1]; }
  double& z() { return m_v[2]; }
  double x() const { return m_v[0]; }
  double y() const { return m_v[1]; }
  double z() const { return m_v[2]; }
  ///@}

  /// Component i (0 for x, 1 for y, 2 for z), as a reference or as a value.
  /// The index is not checked.
  ///@{
  double& operator[](int i) { return m_v[i]; }
  double operator[](int i) const { return m_v[i]; }
  double& get(int i) { return m_v[i]; }
  double get(int i) const { return m_v[i]; }
  ///@}

  /// The address of x: the vector as the `double[3]` that GL and GLE take.
  ///@{
  operator double*() { return m_v; }
  operator const double*() const { return m_v; }
  ///@}

  /// New vector this + v.
  vec3d operator+(const vec3d& v) const;
  /// Copy of this vector.
  vec3d operator+() const;
  /// Adds v in place. @return this vector.
  vec3d& operator+=(const vec3d& v);
  /// New vector this - v.
  vec3d operator-(const vec3d& v) const;
  /// New vector with every sign bit flipped (0.0 becomes -0.0).
  vec3d operator-() const;
  /// Subtracts v in place. @return this vector.
  vec3d& operator-=(const vec3d& v);
  /// New vector scaled by s.
  vec3d operator*(double s) const;
  /// Scales by s in place. @return this vector.
  vec3d& operator*=(double s);
  /// Dot product, as dot().
  double operator*(const vec3d& v) const;

  /// Flips the sign of every component in place.
  void neg();
  /// Replaces every component by its absolute value.
  void abs();
  /// Sets this vector to a + b.
  void add(const vec3d& a, const vec3d& b);
  /// Sets this vector to a - b (a true difference, unlike mat4x4::sub()).
  void sub(const vec3d& a, const vec3d& b);
  /// Scales by s in place.
  void scalar(double s);
  /// Dot product x * v.x + y * v.y + z * v.z, summed in that order.
  double dot(const vec3d& v) const;
  /// Squared length, dot() with itself.
  double squared() const;
  /// Euclidean length, the square root of squared().
  double length() const;
  /// Sets this vector to a * u + b * v, component by component.
  void linear_comb(double a, vec3d u, double b, vec3d v);
  /// Sets this vector to the cross product a x b; it may be a or b.
  void cross(const vec3d& a, const vec3d& b);
  /// Sets this vector to (b - a) * t + a: a at t = 0, b at t = 1.
  void lerp(const vec3d& a, const vec3d& b, double t);
  /// Component-wise minimum: each component greater than v's takes v's.
  /// A NaN in this vector stays; a NaN in v is never taken.
  void min(const vec3d& v);
  /// Component-wise maximum: each component smaller than v's takes v's.
  /// A NaN in this vector stays; a NaN in v is never taken.
  void max(const vec3d& v);

  /// True when |this - v| < eps for x, y and z (strictly); a NaN difference
  /// fails.
  bool cmp(const vec3d& v, double eps) const;
  /// Tolerance equality: cmp() with 1e-10, and its negation. (0, 0, 0) equals
  /// (5e-11, 0, 0) but not (1e-10, 0, 0).
  ///@{
  bool operator==(const vec3d& v) const;
  bool operator!=(const vec3d& v) const;
  ///@}

  /// Scales to unit length; a vector shorter than 1e-10 becomes (0, 0, 0).
  void normalize();
  /// Reads the vector as a 2D point of weight z: multiplies x and y by z.
  void homogenize();
  /// Divides x and y by the weight z and sets z to 1.0; all three become 0.0
  /// when |z| < 1e-10.
  void rationalize();
  /// As rationalize(), but divides by the weight that follows z, not by z.
  ///
  /// A lone vec3d has no weight after it: w is taken as 1.0. So x and y keep
  /// their values and z becomes 1.0, or all three become 0.0 when
  /// |z| < 1e-10 (the test stays on z).
  void cartesianize();
  /// Sets this vector to a unit vector perpendicular to v.
  ///
  /// The component of v of least magnitude (a tie goes to the lower index) is
  /// zeroed and the other two trade places, the second negated: (0, v.z,
  /// -v.y), (v.z, 0, -v.x) or (v.y, -v.x, 0). The result is then normalised,
  /// unless v has length exactly 1.0 and the zeroed component is exactly 0.0.
  /// A zero v gives (0, 0, 0). v is a copy, so it may be this vector.
  void perp(vec3d v);
  /// Sets this vector to the unit normal (c - b) x (a - b) of the triangle
  /// a, b, c.
  ///
  /// The sign follows that order of the points; collinear points give
  /// (0, 0, 0).
  void normal(const vec3d& a, const vec3d& b, const vec3d& c);
  /// Cubic Hermite interpolation from p0 (t = 0) to p1 (t = 1), per component.
  ///
  /// Mind the order: the tangents stand between the two points.
  /// @param p0 start point.
  /// @param m0 tangent at p0.
  /// @param m1 tangent at p1.
  /// @param p1 end point.
  /// @param t  0 gives p0, 1 gives p1.
  void cubic(const vec3d& p0, const vec3d& m0, const vec3d& m1, const vec3d& p1, double t);

 private:
  double m_v[3];
};

// GL and GLE take arrays of these as they stand.
static_assert(sizeof(vec3d) == 3 * sizeof(double), "vec3d is 3 doubles, no padding");
static_assert(std::is_trivially_copyable<vec3d>::value, "vec3d copies as raw memory");
static_assert(std::is_standard_layout<vec3d>::value, "vec3d has C layout");

/// Writes v as `(x, y, z)`, with no line end. @return os.
///
/// The numbers follow the stream's own settings, which are left as they are;
/// a field width applies to the opening bracket only.
LUMAGRID_API std::ostream& operator<<(std::ostream& os, const vec3d& v);

#endif
