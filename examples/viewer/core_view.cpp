#include "core_view.h"

#include <lumagrid/CoreProfileRenderer.h>

namespace viewer {

Camera coreCamera(const gallery::Layout& layout, const gallery::Orbit& orbit) {
  const lumagrid::View view = gallery::coreView(layout, orbit);
  Camera camera{};
  for (int i = 0; i < 16; ++i) {
    camera.modelview[i] = view.modelView[i];
    camera.projection[i] = view.projection[i];
  }
  camera.viewport[2] = layout.width();
  camera.viewport[3] = layout.height();
  return camera;
}

}  // namespace viewer
