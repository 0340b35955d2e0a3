#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_ARROW_GEOMETRY_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_ARROW_GEOMETRY_H

#include "shapes/quadric/frustum.h"

namespace lumagrid::detail {

// What an arrow draws, from its base up the +z axis.
struct ArrowGeometry {
  // A lite arrow's shaft is a line as long as the frustum below.
  bool lite;
  Frustum shaft;
  // `extraHeads` copies of `extraHead`, each half a head long, stacked one
  // on another below the last head.
  int extraHeads;
  Frustum extraHead;
  Frustum lastHead;
};

// An arrow of the given length and head radius, its shaft `fracLength` of
// the length and `fracRadius` of the radius, with `arrowNum` heads (one for
// any count below two). The shaft takes the given tessellation; lite heads
// have four slices and two stacks.
ArrowGeometry BuildArrowGeometry(double length, double radius, bool lite, int arrowNum,
                                 double fracLength, double fracRadius, int slices, int stacks);

}  // namespace lumagrid::detail

#endif
