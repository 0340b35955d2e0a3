#ifndef LUMAGRID_SRC_SHAPES_PATH_SPRING_DRAW_H
#define LUMAGRID_SRC_SHAPES_PATH_SPRING_DRAW_H

namespace lumagrid::detail {

// What the spring's drawings need of a CGLSpring.
struct SpringSize {
  double wireRadius;
  double radius;
  double length;
  int turns;
  double startAngle;
  int sides;
};

// The four drawings, each with its end option. They emit GL and GLE calls
// only; the geometry comes from the builders beside them.
void DrawCompressionTube(const SpringSize& s, unsigned int ends);
void DrawCompressionSchematic(const SpringSize& s, unsigned int ends);
void DrawTensionTube(const SpringSize& s, unsigned int ends);
void DrawTensionSchematic(const SpringSize& s, unsigned int ends);

}  // namespace lumagrid::detail

#endif
