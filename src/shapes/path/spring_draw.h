#ifndef LUMAGRID_SRC_SHAPES_PATH_SPRING_DRAW_H
#define LUMAGRID_SRC_SHAPES_PATH_SPRING_DRAW_H

#include "shapes/path/spring_tubes.h"

namespace lumagrid::detail::gl {

// The four drawings, each with its end option. They emit GL and GLE calls
// only; the geometry comes from the builders beside them.
void DrawCompressionTube(const SpringCoil& s, unsigned int ends);
void DrawCompressionSchematic(const SpringCoil& s, unsigned int ends);
void DrawTensionTube(const SpringCoil& s, unsigned int ends);
void DrawTensionSchematic(const SpringCoil& s, unsigned int ends);

}  // namespace lumagrid::detail::gl

#endif
