#ifndef LUMAGRID_SRC_SHAPES_TUBE_WIRE_SWEEP_H
#define LUMAGRID_SRC_SHAPES_TUBE_WIRE_SWEEP_H

#include <cstddef>
#include <vector>

#include "shapes/tube/helix_points.h"
#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// No sweep returns more lines than this, for the same reason as
// kMaxPathPoints.
constexpr std::size_t kMaxWireLines = std::size_t{1} << 20;

// A vertex of the wireframe with the tube's outward normal there.
struct WireVertex {
  PathPoint position;
  PathPoint normal;
};

// A flat end of the tube: its outline, counter-clockwise seen from outside.
struct WireCap {
  std::vector<PathPoint> outline;
  PathPoint normal;
};

// The wireframe of a tube: for each step of the path and each side of the
// cross-section one line (a pair of vertices in `lines`), and the caps.
struct WireSweep {
  std::vector<WireVertex> lines;
  std::vector<WireCap> caps;
};

// A circle of `radius` and `sides` sides swept along `path` as GLE sweeps a
// poly-cylinder: the first and last points only give the directions of the
// end cuts, the joints are mitred, and the cross-section is carried along
// without twist. Empty for fewer than four points, or too many lines.
WireSweep SweepAlongPath(const std::vector<PathPoint>& path, double radius, int sides, bool caps);

// The same circle swept as GLE lathes a toroid: upright in the plane
// through the axis at each sample of the helix.
WireSweep LatheAroundAxis(const Helix& helix, double radius, int sides, bool caps);

}  // namespace lumagrid::detail

#endif
