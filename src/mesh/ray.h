#ifndef LUMAGRID_SRC_MESH_RAY_H
#define LUMAGRID_SRC_MESH_RAY_H

#include <lumagrid/SceneQuery.h>
#include <lumagrid/vec3d.h>

namespace lumagrid::detail {

// A ray origin + t * direction, t >= 0.
struct Ray {
  vec3d origin;
  vec3d direction;
};

// The t at which the ray enters `box` grown by `pad` on every side (0 when it starts
// inside), or a negative value when it misses.
double EntersBox(const Ray& ray, const Bounds& box, double pad);

// The t at which the ray crosses the triangle, either face, or a negative value.
double CrossesTriangle(const Ray& ray, const vec3d& a, const vec3d& b, const vec3d& c);

// The t of the ray's point nearest the segment when they pass within `tolerance` of each
// other, or a negative value.
double PassesSegment(const Ray& ray, const vec3d& a, const vec3d& b, double tolerance);

}  // namespace lumagrid::detail

#endif
