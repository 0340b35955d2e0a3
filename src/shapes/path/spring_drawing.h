#ifndef LUMAGRID_SRC_SHAPES_PATH_SPRING_DRAWING_H
#define LUMAGRID_SRC_SHAPES_PATH_SPRING_DRAWING_H

#include <vector>

#include "shapes/geometry/path_point.h"
#include "shapes/path/spring_tubes.h"

namespace lumagrid::detail {

// GLE's join styles for the spring's tubes: angled joins, normals along the path, with or
// without end caps.
constexpr int kSpringCapped = 0x412;
constexpr int kSpringOpen = 0x402;

// Which of its four drawings a spring makes for its type codes, and the end option.
struct SpringStyle {
  enum Drawing { None, CompressionTube, CompressionSchematic, TensionTube, TensionSchematic };
  Drawing drawing;
  unsigned int ends;
};
SpringStyle SpringStyleOf(unsigned int type, unsigned int type2);

// A tension spring's part turn for its end option.
double TensionTwist(unsigned int ends);

// A tension spring's schematic: the body's zigzag, and the hooks' arcs in their frames.
struct TensionSchematic {
  std::vector<PathPoint> zigzag;
  std::vector<PathPoint> bottomHook;
  std::vector<PathPoint> topHook;
  HookFrames frames;
};
TensionSchematic BuildTensionSchematic(const SpringCoil& s, unsigned int ends);

// The hooks' frames of a solid tension spring.
HookFrames TensionTubeHookFrames(const SpringCoil& s, unsigned int ends);

}  // namespace lumagrid::detail

#endif
