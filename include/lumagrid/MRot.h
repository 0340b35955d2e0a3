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
  MRot(vec3d const& axis, double angle);
  MRot(MQuat const& q);

  void set(vec3d const& axis, double angle);
  operator MQuat() const;

  bool cmp(MRot const& r, double eps) const;
  bool operator==(MRot const& r) const;
  bool operator!=(MRot const& r) const;
};

LUMAGRID_API std::ostream& operator<<(std::ostream& os, MRot const& r);

#endif
