#ifndef LUMAGRID_SRC_SHAPES_PATH_SPRING_SCHEMATIC_H
#define LUMAGRID_SRC_SHAPES_PATH_SPRING_SCHEMATIC_H

#include <vector>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// The zigzag of a compression spring in the x-z plane, coil radius R,
// length L, n turns; closed ends add a flat stroke at each end. Empty when
// n is too large to draw.
std::vector<PathPoint> CompressionZigzag(double R, double L, int n, bool closed);

// The zigzag of a tension spring's body, n + 1 strokes and the part turn
// `twist`; a half turn ends the strip on the far side. Empty when n is too
// large to draw.
std::vector<PathPoint> TensionZigzag(double R, double L, int n, double twist);

// The arc of radius R in the x-y plane from `from` to `to` degrees, every
// 10 degrees.
std::vector<PathPoint> HookArc(double R, int from, int to);

}  // namespace lumagrid::detail

#endif
