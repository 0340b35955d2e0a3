#ifndef LUMAGRID_SRC_SHAPES_GEOMETRY_PATH_POINT_H
#define LUMAGRID_SRC_SHAPES_GEOMETRY_PATH_POINT_H

#include <cstddef>

namespace lumagrid::detail {

// A point (or direction) of a computed path, as the builders return it.
struct PathPoint {
  double x;
  double y;
  double z;
};

// No builder returns more points than this: absurd turn counts draw nothing
// rather than exhaust memory.
constexpr std::size_t kMaxPathPoints = std::size_t{1} << 20;

}  // namespace lumagrid::detail

#endif
