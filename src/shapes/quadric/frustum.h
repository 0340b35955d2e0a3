#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_FRUSTUM_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_FRUSTUM_H

namespace lumagrid::detail {

// A frustum along +z from its base, as gluCylinder takes it.
struct Frustum {
  double baseRadius;
  double topRadius;
  double length;
  int slices;
  int stacks;
};

}  // namespace lumagrid::detail

#endif
