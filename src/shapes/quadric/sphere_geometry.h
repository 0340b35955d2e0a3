#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_SPHERE_GEOMETRY_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_SPHERE_GEOMETRY_H

namespace lumagrid::detail {

// A sphere about the origin, as gluSphere takes it.
struct SphereGeometry {
  double radius;
  int slices;
  int stacks;
};

SphereGeometry BuildSphereGeometry(double radius, int slices, int stacks);

}  // namespace lumagrid::detail

#endif
