#include "shapes/quadric/torus_geometry.h"

namespace lumagrid::detail {

HelixTube BuildTorusRing(double innerRadius, double outerRadius, double startAngle,
                         double sweepAngle) {
  return {innerRadius, {outerRadius, 0.0, 0.0, 0.0, startAngle, sweepAngle}};
}

}  // namespace lumagrid::detail
