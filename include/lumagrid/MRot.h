/// @file
/// The axis-angle rotation MRot and its text output.
#ifndef LUMAGRID_MROT_H
#define LUMAGRID_MROT_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/MQuat.h>
#include <lumagrid/vec3d.h>

#include <iosfwd>

/// Rotation as an axis and an angle in radians: four doubles, axis x, y, z
/// then the angle.
///
/// A plain value type; mat4x4::loadRotate() and mat4x4::rotate() take one,
/// and it converts to and from MQuat. Used as a transform it turns by minus
/// its angle about the axis in the column-vector reading, as MQuat(axis,
/// angle) does: the opposite sense to mat4x4::loadRotateX(). A trip through
/// MQuat gives the axis back as a unit vector and can negate both the axis
/// and the angle (a positive angle comes back negative): MRot(vec3d(0.6, 0,
/// 0.8), 0.5) comes back as ((-0.6, 0, -0.8), -0.5), the same rotation, yet
/// `==` is false. Compare rotations through their quaternions or matrices.
class LUMAGRID_API MRot {
 public:
  /// The rotation axis; it need not be unit length.
  vec3d axis;
  /// The angle in radians.
  double angle;

  /// Axis (1, 0, 0), angle 0: no turn.
  MRot();
  /// The given axis and angle (radians), stored as they are.
  MRot(const vec3d& axis, double angle);
  /// Axis and angle of q: angle = -2 acos(q.w), axis = (q.x, q.y, q.z)
  /// divided by sin(acos(q.w)).
  ///
  /// The axis stays (0, 0, 0) when that sine is below 1e-10 (the identity
  /// among others). q.w is not clamped: outside [-1, 1] the angle is NaN.
  MRot(const MQuat& q);

  /// Sets axis and angle (radians).
  void set(const vec3d& axis, double angle);
  /// The quaternion MQuat(axis, angle).
  operator MQuat() const;

  /// True when each of the four differences (axis x, y, z, then the angle) is
  /// strictly less than eps in magnitude; a NaN difference fails.
  bool cmp(const MRot& r, double eps) const;
  /// Tolerance equality: cmp() with 1e-10, and its negation. The same
  /// rotation written another way (axis and angle negated, or a longer axis)
  /// is not equal.
  ///@{
  bool operator==(const MRot& r) const;
  bool operator!=(const MRot& r) const;
  ///@}
};

/// Writes r as `(x, y, z,angle)`, the axis then the angle, with no line end.
/// @return os.
///
/// There is no space between the last comma and the angle. The numbers
/// follow the stream's own settings, which are left as they are; a field
/// width applies to the opening bracket only.
LUMAGRID_API std::ostream& operator<<(std::ostream& os, const MRot& r);

#endif
