// The picking pass: draws every visible shape of a gallery scene in its ID colour (pick.h) into
// the current framebuffer and reads it back.
#pragma once

#include "gallery_layout.h"
#include "gallery_scene.h"
#include "gallery_view.h"
#include "pick.h"

namespace viewer {

// Thin lines are hard to hit: the pass draws them wider than the picture does, in pixels.
constexpr float kPickLineWidth = 7.0f;

// Needs the context current. Overwrites the colour and depth buffers: draw the frame afterwards.
IdImage renderIdImage(gallery::GalleryScene& scene, const gallery::Layout& layout,
                      const gallery::Orbit& orbit);

}  // namespace viewer
