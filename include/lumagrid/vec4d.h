#ifndef LUMAGRID_VEC4D_H
#define LUMAGRID_VEC4D_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/vec3d.h>

#include <iosfwd>
#include <type_traits>

// Homogeneous double-precision vector: four contiguous doubles x, y, z, w.
class LUMAGRID_API vec4d {
 public:
  vec4d();
  vec4d(double x, double y, double z, double w);
  // (v.x, v.y, v.z, 1.0)
  vec4d(const vec3d& v);

  void set(double x, double y, double z, double w);
  void zero();
  void copy(const vec4d& v);

  double& x() { return m_v[0]; }
  double& y() { return m_v[1]; }
  double& z() { return m_v[2]; }
  double& w() { return m_v[3]; }
  double x() const { return m_v[0]; }
  double y() const { return m_v[1]; }
  double z() const { return m_v[2]; }
  double w() const { return m_v[3]; }

  double& operator[](int i) { return m_v[i]; }
  double operator[](int i) const { return m_v[i]; }
  double& get(int i) { return m_v[i]; }
  double get(int i) const { return m_v[i]; }

  operator double*() { return m_v; }
  operator const double*() const { return m_v; }

  vec4d operator+(const vec4d& v) const;
  vec4d operator+() const;
  vec4d& operator+=(const vec4d& v);
  vec4d operator-(const vec4d& v) const;
  vec4d operator-() const;
  vec4d& operator-=(const vec4d& v);
  vec4d operator*(double s) const;
  vec4d& operator*=(double s);
  double operator*(const vec4d& v) const;

  void neg();
  void abs();
  void add(const vec4d& a, const vec4d& b);
  void sub(const vec4d& a, const vec4d& b);
  void scalar(double s);
  double dot(const vec4d& v) const;
  double squared() const;
  double length() const;
  void linear_comb(double a, vec4d u, double b, vec4d v);
  void lerp(const vec4d& a, const vec4d& b, double t);
  void min(const vec4d& v);
  void max(const vec4d& v);

  bool cmp(const vec4d& v, double eps) const;
  bool operator==(const vec4d& v) const;
  bool operator!=(const vec4d& v) const;

  void normalize();
  void homogenize();
  double rationalize();
  double cartesianize();
  void cubic(const vec4d& p0, const vec4d& m0, const vec4d& m1, const vec4d& p1, double t);

  // Guarded conversion: (0, 0, 0) when |w| < 1e-10. Explicit, so that
  // copy-initialising a vec3d picks vec3d(vec4d const&), which always divides.
  // Casts pick that constructor too: call v.operator vec3d() for this one.
  explicit operator vec3d() const;

 private:
  double m_v[4];
};

// GL and GLE take arrays of these as they stand.
static_assert(sizeof(vec4d) == 4 * sizeof(double), "vec4d is 4 doubles, no padding");
static_assert(std::is_trivially_copyable<vec4d>::value, "vec4d copies as raw memory");
static_assert(std::is_standard_layout<vec4d>::value, "vec4d has C layout");

LUMAGRID_API std::ostream& operator<<(std::ostream& os, const vec4d& v);

#endif
