#ifndef LUMAGRID_SRC_SHAPES_TUBE_TUBE_FILL_H
#define LUMAGRID_SRC_SHAPES_TUBE_TUBE_FILL_H

namespace lumagrid::detail::gl {

// Whether the tubes below are drawn solid (the default) or as wireframes.
// Process-wide, like GLE's own settings: whoever sets it leaves it set.
void SetTubeFilled(bool filled);
bool TubeFilled();

}  // namespace lumagrid::detail::gl

#endif
