#ifndef LUMAGRID_SRC_SHAPES_PATH_BELT_OUTLINE_H
#define LUMAGRID_SRC_SHAPES_PATH_BELT_OUTLINE_H

#include <vector>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// Belt-type codes as CGLBelt stores them.
constexpr unsigned char kFullBelt = 16;

// The belt's outline in drawing order, pulley A of radius r1 at the origin
// and pulley B of radius r2 at (entraxe, 0, 0). A code below 16 gives one
// single tangent (end on B first); 16 gives the closed outline over both
// pulleys with `quality` arc points per full turn. Empty when the pulleys
// admit no tangent.
std::vector<PathPoint> BuildBeltOutline(double r1, double r2, double entraxe, int quality,
                                        unsigned char code);

// The same, into `out` (its old contents replaced), so that a caller that
// rebuilds often keeps one buffer.
void BuildBeltOutline(double r1, double r2, double entraxe, int quality, unsigned char code,
                      std::vector<PathPoint>& out);

// CGLBelt::SetBType's mapping of the host's type to the stored code.
unsigned char BeltTypeCode(unsigned char type);

}  // namespace lumagrid::detail

#endif
