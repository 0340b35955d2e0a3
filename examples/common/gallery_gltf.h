// The gallery's scene as glTF, with the camera and cells the PNG was drawn with beside it.
#pragma once

#include <string>
#include <vector>

#include "gallery_layout.h"
#include "gallery_scene.h"

namespace gallery {

// "docs/gallery.glb" gives "docs/gallery.view.json".
std::string viewFileFor(const std::string& gltfPath);

// Writes the scene to `path` (binary unless it ends in .gltf) and its view file: the picture's
// size, the home camera and, per cell, its label and where its shape is drawn, in pixels from
// the top left. False, with the reason in *error, when either cannot be written.
bool writeGalleryGltf(GalleryScene& scene, const Layout& layout,
                      const std::vector<std::string>& labels, const std::string& path,
                      std::string* error);

}  // namespace gallery
