#ifndef LUMAGRID_VEC3D_H
#define LUMAGRID_VEC3D_H

#include <lumagrid/lumagrid_export.h>

#include <iosfwd>
#include <type_traits>

class vec4d;

// Double-precision 3D vector. Three contiguous doubles x, y, z; usable as a
// double[3] wherever GL or GLE take one.
class LUMAGRID_API vec3d {
 public:
  vec3d();
  vec3d(double x, double y, double z);
  // Divides by w even when w is near zero (see vec4d's guarded conversion).
  vec3d(const vec4d& v);

  void set(double x, double y, double z);
  void zero();
  void copy(const vec3d& v);

  double& x() { return m_v[0]; }
  double& y() { return m_v[1]; }
  double& z() { return m_v[2]; }
  double x() const { return m_v[0]; }
  double y() const { return m_v[1]; }
  double z() const { return m_v[2]; }

  double& operator[](int i) { return m_v[i]; }
  double operator[](int i) const { return m_v[i]; }
  double& get(int i) { return m_v[i]; }
  double get(int i) const { return m_v[i]; }

  operator double*() { return m_v; }
  operator const double*() const { return m_v; }

  vec3d operator+(const vec3d& v) const;
  vec3d operator+() const;
  vec3d& operator+=(const vec3d& v);
  vec3d operator-(const vec3d& v) const;
  vec3d operator-() const;
  vec3d& operator-=(const vec3d& v);
  vec3d operator*(double s) const;
  vec3d& operator*=(double s);
  double operator*(const vec3d& v) const;

  void neg();
  void abs();
  void add(const vec3d& a, const vec3d& b);
  void sub(const vec3d& a, const vec3d& b);
  void scalar(double s);
  double dot(const vec3d& v) const;
  double squared() const;
  double length() const;
  void linear_comb(double a, vec3d u, double b, vec3d v);
  void cross(const vec3d& a, const vec3d& b);
  void lerp(const vec3d& a, const vec3d& b, double t);
  void min(const vec3d& v);
  void max(const vec3d& v);

  bool cmp(const vec3d& v, double eps) const;
  bool operator==(const vec3d& v) const;
  bool operator!=(const vec3d& v) const;

  void normalize();
  void homogenize();
  void rationalize();
  // A lone vec3d has no weight after it: w is taken as 1.0.
  void cartesianize();
  void perp(vec3d v);
  void normal(const vec3d& a, const vec3d& b, const vec3d& c);
  void cubic(const vec3d& p0, const vec3d& m0, const vec3d& m1, const vec3d& p1, double t);

 private:
  double m_v[3];
};

// GL and GLE take arrays of these as they stand.
static_assert(sizeof(vec3d) == 3 * sizeof(double), "vec3d is 3 doubles, no padding");
static_assert(std::is_trivially_copyable<vec3d>::value, "vec3d copies as raw memory");
static_assert(std::is_standard_layout<vec3d>::value, "vec3d has C layout");

LUMAGRID_API std::ostream& operator<<(std::ostream& os, const vec3d& v);

#endif
