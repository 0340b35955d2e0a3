#ifndef LUMAGRID_SRC_SHAPES_PATH_SPRING_TUBES_H
#define LUMAGRID_SRC_SHAPES_PATH_SPRING_TUBES_H

#include <vector>

#include "shapes/geometry/matrix_step.h"
#include "shapes/geometry/path_point.h"
#include "shapes/tube/helix_points.h"

namespace lumagrid::detail {

// The coil a CGLSpring draws: wire and coil radii, length, turns, the
// angle the helix starts at, and the sides its tubes are sampled for.
struct SpringCoil {
  double wireRadius;
  double radius;
  double length;
  int turns;
  double startAngle;
  int sides;
};

// A compression spring's tubes: the coil (none when it is too long to
// sample) and, with closed ends, a flat ring at the bottom and the top.
struct CompressionTubes {
  std::vector<HelixTube> coil;
  std::vector<HelixTube> rings;
};

CompressionTubes BuildCompressionTubes(const SpringCoil& s, bool closedEnds);

// A tension spring's tubes: the body as a poly-cylinder path (empty when too
// long to sample), and the two hooks, each drawn in its own frame.
struct TensionTubes {
  std::vector<PathPoint> body;
  HelixTube bottomHook;
  HelixTube topHook;
};

TensionTubes BuildTensionTubes(const SpringCoil& s, double twist);

// The frames a tension spring's hooks are drawn in, solid or schematic: each the matrix
// calls made after a push. The hooks' arcs open towards the body; `twist` turns the top one.
struct HookFrames {
  std::vector<MatrixStep> bottom;
  std::vector<MatrixStep> top;
};
HookFrames BuildHookFrames(double topHeight, double twist);

}  // namespace lumagrid::detail

#endif
