#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_CYLINDER_GEOMETRY_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_CYLINDER_GEOMETRY_H

#include "shapes/quadric/frustum.h"

namespace lumagrid::detail {

// What a cylinder or cone draws: its side, and the disks that close it.
struct CylinderGeometry {
  Frustum side;
  bool baseDisk;
  bool topDisk;
};

// A closed cylinder has a disk at each end whose radius is above zero (a
// zero apex or a NaN radius gets none); an open one has no disks.
CylinderGeometry BuildCylinderGeometry(double baseRadius, double topRadius, double height,
                                       bool closed, int slices, int stacks);

}  // namespace lumagrid::detail

#endif
