// The gallery's camera and lights as the core-profile renderer takes them, computed rather than
// read back from GL (a core context has no matrix stack), and the gallery scene drawn through
// that renderer. It may merge with the gallery's own core-profile drawing.
#pragma once

#include <lumagrid/CoreProfileRenderer.h>

#include <string>

#include "gallery_layout.h"
#include "gallery_scene.h"
#include "gallery_view.h"
#include "ray_pick.h"

namespace viewer {

// The camera gallery::setUpView() sets for layout and orbit, without GL.
Camera coreCamera(const gallery::Layout& layout, const gallery::Orbit& orbit);

// The camera's matrices with the gallery's two lights and ambient.
lumagrid::View litView(const Camera& camera);

// The camera's matrices, no lights and ambient 1, as gallery::FlatLighting leaves the state: lit
// shapes show their material colour unshaded.
lumagrid::View flatView(const Camera& camera);

// Sets the camera's viewport and clears the picture to the gallery's background.
void clearCore(const Camera& camera);

// Draws the scene's layers in the gallery's order through renderer, each with the line width and
// lighting the legacy draw gives it. False, with the renderer's reason in *error, when a layer
// could not be drawn.
bool drawCore(lumagrid::CoreProfileRenderer& renderer, gallery::GalleryScene& scene,
              const Camera& camera, std::string* error);

}  // namespace viewer
