#include <lumagrid/MRot.h>

#include "math/tolerance.h"

#include <cmath>

using lumagrid::detail::kTolerance;

MRot::MRot() : axis(1.0, 0.0, 0.0), angle(0.0) {}

MRot::MRot(const vec3d& axis_, double angle_) : axis(axis_), angle(angle_) {}

MRot::MRot(const MQuat& q) : axis(0.0, 0.0, 0.0) {
  // No clamping: a w outside [-1, 1] gives a NaN angle. The factor -2 undoes
  // the negated half-angle of MQuat(axis, angle).
  const double t = std::acos(q.w);
  angle = t * (-2.0);
  const double s = std::sin(t);
  if (std::fabs(s) > kTolerance) {
    axis.set(q.x / s, q.y / s, q.z / s);
  }
}

void MRot::set(const vec3d& axis_, double angle_) {
  axis = axis_;
  angle = angle_;
}

MRot::operator MQuat() const {
  return MQuat(axis, angle);
}

bool MRot::cmp(const MRot& r, double eps) const {
  return std::fabs(axis.x() - r.axis.x()) < eps && std::fabs(axis.y() - r.axis.y()) < eps &&
         std::fabs(axis.z() - r.axis.z()) < eps && std::fabs(angle - r.angle) < eps;
}

bool MRot::operator==(const MRot& r) const {
  return cmp(r, kTolerance);
}

bool MRot::operator!=(const MRot& r) const {
  return !cmp(r, kTolerance);
}
