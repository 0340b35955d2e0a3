#ifndef LUMAGRID_SRC_SHAPES_PATH_SPRING_DRAW_H
#define LUMAGRID_SRC_SHAPES_PATH_SPRING_DRAW_H

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

namespace gl {

// The four drawings, each with its end option. They emit GL and GLE calls
// only; the geometry comes from the builders beside them.
void DrawCompressionTube(const SpringCoil& s, unsigned int ends);
void DrawCompressionSchematic(const SpringCoil& s, unsigned int ends);
void DrawTensionTube(const SpringCoil& s, unsigned int ends);
void DrawTensionSchematic(const SpringCoil& s, unsigned int ends);

}  // namespace gl

}  // namespace lumagrid::detail

#endif
