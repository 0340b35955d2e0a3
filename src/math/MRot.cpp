#include <lumagrid/MRot.h>

#include <cmath>

namespace {

constexpr double kTiny = 1e-10;

}  // namespace

MRot::MRot() : axis(1.0, 0.0, 0.0), angle(0.0) {}

MRot::MRot(vec3d const& axis_, double angle_) : axis(axis_), angle(angle_) {}

MRot::MRot(MQuat const& q) : axis(0.0, 0.0, 0.0) {
  // No clamping: a w outside [-1, 1] gives a NaN angle. The factor -2 undoes
  // the negated half-angle of MQuat(axis, angle).
  double const t = std::acos(q.w);
  angle = t * (-2.0);
  double const s = std::sin(t);
  if (std::fabs(s) > kTiny) {
    axis.set(q.x / s, q.y / s, q.z / s);
  }
}

void MRot::set(vec3d const& axis_, double angle_) {
  axis = axis_;
  angle = angle_;
}

MRot::operator MQuat() const {
  return MQuat(axis, angle);
}

bool MRot::cmp(MRot const& r, double eps) const {
  return std::fabs(axis.x() - r.axis.x()) < eps && std::fabs(axis.y() - r.axis.y()) < eps &&
         std::fabs(axis.z() - r.axis.z()) < eps && std::fabs(angle - r.angle) < eps;
}

bool MRot::operator==(MRot const& r) const {
  return cmp(r, kTiny);
}

bool MRot::operator!=(MRot const& r) const {
  return !cmp(r, kTiny);
}
