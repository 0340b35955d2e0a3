#ifndef LUMAGRID_MROT_H
#define LUMAGRID_MROT_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/MQuat.h>
#include <lumagrid/vec3d.h>

#include <iosfwd>

// Rotation as an axis and an angle in radians: four doubles in that order.
class LUMAGRID_API MRot {
 public:
  vec3d axis;
  double angle;

  MRot();  // axis (1, 0, 0), angle 0
  MRot(const vec3d& axis, double angle);
  MRot(const MQuat& q);

  void set(const vec3d& axis, double angle);
  operator MQuat() const;

  bool cmp(const MRot& r, double eps) const;
  bool operator==(const MRot& r) const;
  bool operator!=(const MRot& r) const;
};

LUMAGRID_API std::ostream& operator<<(std::ostream& os, const MRot& r);

#endif
