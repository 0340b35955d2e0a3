#ifndef LUMAGRID_SRC_SHAPES_PATH_TENSION_PATH_H
#define LUMAGRID_SRC_SHAPES_PATH_TENSION_PATH_H

#include <vector>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// The poly-cylinder path of a tension spring's body, wire radius r, coil
// radius R, length L, n turns extended by `twist` turns, helix sampled for
// `sides` sides: a direction point, the Bezier lead-in from (R, 0, 0), the
// helix, the lead-out turned by the twist, ending (as a direction point)
// just past (R, 0, L). Empty when the helix would be too long.
std::vector<PathPoint> TensionBodyPath(double r, double R, double L, int n, double twist,
                                       int sides);

}  // namespace lumagrid::detail

#endif
