#include "shapes/quadric/sphere_geometry.h"

namespace lumagrid::detail {

SphereGeometry BuildSphereGeometry(double radius, int slices, int stacks) {
  return {radius, slices, stacks};
}

}  // namespace lumagrid::detail
