#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_TORUS_GEOMETRY_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_TORUS_GEOMETRY_H

#include "shapes/tube/helix_points.h"

namespace lumagrid::detail {

// A torus's ring: a tube of the inner radius around a flat circle of the
// outer radius, from the start angle through the sweep, in degrees.
HelixTube BuildTorusRing(double innerRadius, double outerRadius, double startAngle,
                         double sweepAngle);

}  // namespace lumagrid::detail

#endif
