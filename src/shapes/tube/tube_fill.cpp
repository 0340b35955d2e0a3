#include "shapes/tube/tube_fill.h"

namespace lumagrid::detail::gl {

namespace {

bool g_filled = true;

}  // namespace

void SetTubeFilled(bool filled) {
  g_filled = filled;
}

bool TubeFilled() {
  return g_filled;
}

}  // namespace lumagrid::detail::gl
