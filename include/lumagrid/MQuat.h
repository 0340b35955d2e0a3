#ifndef LUMAGRID_MQUAT_H
#define LUMAGRID_MQUAT_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/vec3d.h>

#include <iosfwd>

class mat4x4;

// Rotation quaternion; w is the scalar part. The identity is (0, 0, 0, 1).
class LUMAGRID_API MQuat {
 public:
  double x, y, z, w;

  MQuat() : x(0.0), y(0.0), z(0.0), w(1.0) {}  // the identity
  MQuat(double x_, double y_, double z_, double w_) : x(x_), y(y_), z(z_), w(w_) {}
  // Turns by -angle about axis in the column-vector reading.
  MQuat(vec3d const& axis, double angle);
  MQuat(mat4x4 const& m);

  void set(double x, double y, double z, double w);
  void identity();

  MQuat operator*(MQuat const& b) const;
  MQuat& operator*=(MQuat const& b);
  void mul(MQuat const& a, MQuat const& b);
  MQuat operator*(double s) const;
  MQuat& operator*=(double s);
  void scalar(double s);
  void neg();
  void abs();
  double dot(MQuat const& q) const;
  double squared() const;
  void normalize();
  void invert();
  void log();
  void exp();

  bool cmp(MQuat const& q, double eps) const;
  bool operator==(MQuat const& q) const;
  bool operator!=(MQuat const& q) const;

  // Interpolators write their result into this quaternion.
  void slerp(MQuat const& a, MQuat const& b, double t);
  void squad(MQuat const& p, MQuat const& a, MQuat const& b, MQuat const& q, double t);
  void inner(MQuat const& prev, MQuat const& cur, MQuat const& next);
};

LUMAGRID_API std::ostream& operator<<(std::ostream& os, MQuat const& q);

#endif
