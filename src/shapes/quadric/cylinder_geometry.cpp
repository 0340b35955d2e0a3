#include "shapes/quadric/cylinder_geometry.h"

namespace lumagrid::detail {

CylinderGeometry BuildCylinderGeometry(double baseRadius, double topRadius, double height,
                                       bool closed, int slices, int stacks) {
  return {{baseRadius, topRadius, height, slices, stacks},
          closed && baseRadius > 0.0,
          closed && topRadius > 0.0};
}

}  // namespace lumagrid::detail
