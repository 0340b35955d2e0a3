#include "mesh/ray.h"

#include <algorithm>
#include <cmath>

namespace lumagrid::detail {

namespace {

vec3d Sub(const vec3d& a, const vec3d& b) {
  return vec3d(a.x() - b.x(), a.y() - b.y(), a.z() - b.z());
}

double Dot(const vec3d& a, const vec3d& b) {
  return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

vec3d Cross(const vec3d& a, const vec3d& b) {
  return vec3d(a.y() * b.z() - a.z() * b.y(), a.z() * b.x() - a.x() * b.z(),
               a.x() * b.y() - a.y() * b.x());
}

constexpr double kMiss = -1.0;

}  // namespace

double EntersBox(const Ray& ray, const Bounds& box, double pad) {
  if (box.empty) {
    return kMiss;
  }
  double enter = 0.0;
  double leave = HUGE_VAL;
  for (int i = 0; i < 3; ++i) {
    const double lo = box.min[i] - pad;
    const double hi = box.max[i] + pad;
    const double o = ray.origin[i];
    const double d = ray.direction[i];
    if (d == 0.0) {
      if (o < lo || o > hi) {
        return kMiss;
      }
      continue;
    }
    double t0 = (lo - o) / d;
    double t1 = (hi - o) / d;
    if (t0 > t1) {
      std::swap(t0, t1);
    }
    enter = std::max(enter, t0);
    leave = std::min(leave, t1);
    if (!(enter <= leave)) {
      return kMiss;
    }
  }
  return enter;
}

double CrossesTriangle(const Ray& ray, const vec3d& a, const vec3d& b, const vec3d& c) {
  const vec3d ab = Sub(b, a);
  const vec3d ac = Sub(c, a);
  const vec3d p = Cross(ray.direction, ac);
  const double det = Dot(ab, p);
  if (det == 0.0 || !std::isfinite(det)) {
    return kMiss;
  }
  const double inverse = 1.0 / det;
  const vec3d s = Sub(ray.origin, a);
  const double u = Dot(s, p) * inverse;
  if (u < 0.0 || u > 1.0) {
    return kMiss;
  }
  const vec3d q = Cross(s, ab);
  const double v = Dot(ray.direction, q) * inverse;
  if (v < 0.0 || u + v > 1.0) {
    return kMiss;
  }
  const double t = Dot(ac, q) * inverse;
  return t >= 0.0 ? t : kMiss;
}

double PassesSegment(const Ray& ray, const vec3d& a, const vec3d& b, double tolerance) {
  // The closest points of the ray and the segment, each clamped to its own range.
  const vec3d d1 = ray.direction;
  const vec3d d2 = Sub(b, a);
  const vec3d r = Sub(ray.origin, a);
  const double aa = Dot(d1, d1);
  const double ee = Dot(d2, d2);
  const double f = Dot(d2, r);
  const double c = Dot(d1, r);
  double t = 0.0;
  double s = 0.0;
  if (ee == 0.0) {
    t = std::max(0.0, -c / aa);
  } else {
    const double bb = Dot(d1, d2);
    const double denominator = aa * ee - bb * bb;
    t = denominator != 0.0 ? std::max(0.0, (bb * f - c * ee) / denominator) : 0.0;
    s = std::clamp((bb * t + f) / ee, 0.0, 1.0);
    t = std::max(0.0, (bb * s - c) / aa);
  }
  const vec3d onRay(ray.origin.x() + t * d1.x(), ray.origin.y() + t * d1.y(),
                    ray.origin.z() + t * d1.z());
  const vec3d onSegment(a.x() + s * d2.x(), a.y() + s * d2.y(), a.z() + s * d2.z());
  const vec3d gap = Sub(onRay, onSegment);
  return Dot(gap, gap) <= tolerance * tolerance ? t : kMiss;
}

}  // namespace lumagrid::detail
