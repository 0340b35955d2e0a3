/// @file
/// The homogeneous double-precision vector vec4d and its text output.
#ifndef LUMAGRID_VEC4D_H
#define LUMAGRID_VEC4D_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/vec3d.h>

#include <iosfwd>
#include <type_traits>

/// Homogeneous double-precision vector: four contiguous doubles x, y, z, w.
///
/// The four-component companion of vec3d, taken by mat4x4's setRow(),
/// setCol(), operator*() and transform(). Its operations follow vec3d's over
/// all four components; where they differ (normalize() of a near-zero vector,
/// the weight operations) the member says so. The default vector is zero, and
/// equality is a tolerance test (1e-10, strict).
class LUMAGRID_API vec4d {
 public:
  /// The zero vector (0, 0, 0, 0).
  vec4d();
  /// The vector (x, y, z, w).
  vec4d(double x, double y, double z, double w);
  /// The point v with weight 1: (v.x, v.y, v.z, 1.0).
  vec4d(const vec3d& v);

  /// Sets x, y, z and w.
  void set(double x, double y, double z, double w);
  /// Sets all four components to 0.0.
  void zero();
  /// Copies v's four components.
  void copy(const vec4d& v);

  /// Component x, y, z or w: a reference on a mutable vector, the value on a
  /// const one.
  ///@{
  double& x() { return m_v[0]; }
  double& y() { return m_v[1]; }
  double& z() { return m_v[2]; }
  double& w() { return m_v[3]; }
  double x() const { return m_v[0]; }
  double y() const { return m_v[1]; }
  double z() const { return m_v[2]; }
  double w() const { return m_v[3]; }
  ///@}

  /// Component i (0 to 3 for x, y, z, w), as a reference or as a value. The
  /// index is not checked.
  ///@{
  double& operator[](int i) { return m_v[i]; }
  double operator[](int i) const { return m_v[i]; }
  double& get(int i) { return m_v[i]; }
  double get(int i) const { return m_v[i]; }
  ///@}

  /// The address of x: the vector as a `double[4]`.
  ///@{
  operator double*() { return m_v; }
  operator const double*() const { return m_v; }
  ///@}

  /// New vector this + v.
  vec4d operator+(const vec4d& v) const;
  /// Copy of this vector.
  vec4d operator+() const;
  /// Adds v in place. @return this vector.
  vec4d& operator+=(const vec4d& v);
  /// New vector this - v.
  vec4d operator-(const vec4d& v) const;
  /// New vector with every sign bit flipped (0.0 becomes -0.0).
  vec4d operator-() const;
  /// Subtracts v in place. @return this vector.
  vec4d& operator-=(const vec4d& v);
  /// New vector scaled by s.
  vec4d operator*(double s) const;
  /// Scales by s in place. @return this vector.
  vec4d& operator*=(double s);
  /// Dot product, as dot().
  double operator*(const vec4d& v) const;

  /// Flips the sign of every component in place.
  void neg();
  /// Replaces every component by its absolute value.
  void abs();
  /// Sets this vector to a + b.
  void add(const vec4d& a, const vec4d& b);
  /// Sets this vector to a - b (a true difference, unlike mat4x4::sub()).
  void sub(const vec4d& a, const vec4d& b);
  /// Scales by s in place.
  void scalar(double s);
  /// Dot product over all four components, summed x, y, z, w.
  double dot(const vec4d& v) const;
  /// Squared length, dot() with itself (w included).
  double squared() const;
  /// Euclidean length over all four components, the square root of squared().
  double length() const;
  /// Sets this vector to a * u + b * v, component by component.
  void linear_comb(double a, vec4d u, double b, vec4d v);
  /// Sets this vector to (b - a) * t + a: a at t = 0, b at t = 1.
  void lerp(const vec4d& a, const vec4d& b, double t);
  /// Component-wise minimum: each component greater than v's takes v's.
  /// A NaN in this vector stays; a NaN in v is never taken.
  void min(const vec4d& v);
  /// Component-wise maximum: each component smaller than v's takes v's.
  /// A NaN in this vector stays; a NaN in v is never taken.
  void max(const vec4d& v);

  /// True when |this - v| < eps for all four components (strictly); a NaN
  /// difference fails.
  bool cmp(const vec4d& v, double eps) const;
  /// Tolerance equality: cmp() with 1e-10, and its negation.
  ///@{
  bool operator==(const vec4d& v) const;
  bool operator!=(const vec4d& v) const;
  ///@}

  /// Scales all four components to unit length.
  ///
  /// A vector shorter than 1e-10 is left as it is (vec3d::normalize() clears
  /// it instead).
  void normalize();
  /// Multiplies x, y and z by w; w is kept.
  void homogenize();
  /// Divides x, y and z by w and sets w to 1.0.
  ///
  /// When |w| < 1e-10 all four become 0.0 instead.
  /// @return 1.0 when it divided, 0.0 when it cleared the vector.
  double rationalize();
  /// The same operation as rationalize(), under another name.
  /// @return 1.0 when it divided, 0.0 when it cleared the vector.
  double cartesianize();
  /// Cubic Hermite interpolation from p0 (t = 0) to p1 (t = 1), over all four
  /// components.
  ///
  /// The same rule and argument order as vec3d::cubic(): the tangents stand
  /// between the two points.
  /// @param p0 start point.
  /// @param m0 tangent at p0.
  /// @param m1 tangent at p1.
  /// @param p1 end point.
  /// @param t  0 gives p0, 1 gives p1.
  void cubic(const vec4d& p0, const vec4d& m0, const vec4d& m1, const vec4d& p1, double t);

  /// Guarded conversion: (0, 0, 0) when |w| < 1e-10, else x, y, z times 1/w.
  ///
  /// Explicit, so that copy-initialising a vec3d picks vec3d(vec4d const&),
  /// which always divides. Casts pick that constructor too: call
  /// `v.operator vec3d()` for this one.
  explicit operator vec3d() const;

 private:
  double m_v[4];
};

// GL and GLE take arrays of these as they stand.
static_assert(sizeof(vec4d) == 4 * sizeof(double), "vec4d is 4 doubles, no padding");
static_assert(std::is_trivially_copyable<vec4d>::value, "vec4d copies as raw memory");
static_assert(std::is_standard_layout<vec4d>::value, "vec4d has C layout");

/// Writes v as `(x, y, z,w)`, with no line end. @return os.
///
/// There is no space between the last comma and w, unlike the first two. The
/// numbers follow the stream's own settings, which are left as they are; a
/// field width applies to the opening bracket only.
LUMAGRID_API std::ostream& operator<<(std::ostream& os, const vec4d& v);

#endif
