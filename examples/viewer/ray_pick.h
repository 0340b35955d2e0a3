// Picking by geometry: the camera's ray through a pixel met with the shapes' meshes
// (lumagrid::Pick), beside the colour pass of id_pass.h; and framing the scene by its bounds.
#pragma once

#include <lumagrid/SceneQuery.h>
#include <lumagrid/vec3d.h>

#include <cstddef>
#include <optional>

#include "gallery_layout.h"
#include "gallery_scene.h"
#include "gallery_view.h"

namespace viewer {

// The matrices and viewport a draw projects with, as GL holds them.
struct Camera {
  double modelview[16];
  double projection[16];
  int viewport[4];
};

// Needs the context current: what the last setUpView() left.
Camera currentCamera();

// The ray from the near plane to the far plane through the centre of window pixel (x, y), from
// the top left; a world unit of t is the whole depth of the view. perPixel is the width of one
// pixel in world units at the depth of the world's centre, where the gallery's shapes stand.
struct PixelRay {
  vec3d origin;
  vec3d direction;
  double perPixel;
};
std::optional<PixelRay> rayThroughPixel(const Camera& camera, int x, int y);

// The item of scene nearest along the ray, through all of its layers, or none; a group's member
// gives the group's item. Line shapes count within half the ID pass's line width of the ray, as
// that pass draws them.
std::optional<std::size_t> pickByRay(const gallery::GalleryScene& scene, const PixelRay& ray);

// Sets up the view for orbit (clearing the picture), then picks by ray at window pixel (x, y).
std::optional<std::size_t> rayPickAt(const gallery::GalleryScene& scene,
                                     const gallery::Layout& layout, const gallery::Orbit& orbit,
                                     int x, int y);

// The box around every visible shape of every layer of scene.
lumagrid::Bounds sceneBounds(const gallery::GalleryScene& scene);

// The zoom, at most 1, at which the camera's picture holds box's extent across the view, in the
// plane through the world's centre that faces the camera: 1 when it already does to half a pixel,
// less when the box reaches farther. The camera is taken at zoom 1.
double zoomToHold(const Camera& camera, const lumagrid::Bounds& box);

}  // namespace viewer
