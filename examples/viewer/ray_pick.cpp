#include "ray_pick.h"

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "id_pass.h"

namespace viewer {
namespace {

// The layers' scenes, each once, in the items' order.
std::vector<CGLScene*> layersOf(const gallery::GalleryScene& scene) {
  std::vector<CGLScene*> layers;
  for (const gallery::GalleryScene::Item& item : scene.items()) {
    if (std::find(layers.begin(), layers.end(), item.scene) == layers.end()) {
      layers.push_back(item.scene);
    }
  }
  return layers;
}

std::optional<vec3d> unproject(const Camera& camera, double x, double y, double depth) {
  double p[3];
  if (gluUnProject(x, y, depth, camera.modelview, camera.projection, camera.viewport, &p[0], &p[1],
                   &p[2]) != GL_TRUE) {
    return std::nullopt;
  }
  return vec3d(p[0], p[1], p[2]);
}

}  // namespace

Camera currentCamera() {
  Camera camera{};
  glGetDoublev(GL_MODELVIEW_MATRIX, camera.modelview);
  glGetDoublev(GL_PROJECTION_MATRIX, camera.projection);
  glGetIntegerv(GL_VIEWPORT, camera.viewport);
  return camera;
}

std::optional<PixelRay> rayThroughPixel(const Camera& camera, int x, int y) {
  // GL counts rows from the bottom; a pixel's centre is half a pixel in.
  const double gx = x + 0.5;
  const double gy = camera.viewport[1] + camera.viewport[3] - y - 0.5;
  double centre[3];
  if (gluProject(0.0, 0.0, 0.0, camera.modelview, camera.projection, camera.viewport, &centre[0],
                 &centre[1], &centre[2]) != GL_TRUE) {
    return std::nullopt;
  }
  const std::optional<vec3d> nearPoint = unproject(camera, gx, gy, 0.0);
  const std::optional<vec3d> farPoint = unproject(camera, gx, gy, 1.0);
  const std::optional<vec3d> here = unproject(camera, gx, gy, centre[2]);
  const std::optional<vec3d> beside = unproject(camera, gx + 1.0, gy, centre[2]);
  if (!nearPoint || !farPoint || !here || !beside) {
    return std::nullopt;
  }
  return PixelRay{*nearPoint, *farPoint - *nearPoint, (*beside - *here).length()};
}

std::optional<std::size_t> pickByRay(const gallery::GalleryScene& scene, const PixelRay& ray) {
  const double tolerance = ray.perPixel * kPickLineWidth / 2;
  const auto pick = [&](CGLScene& layer, lumagrid::Hit& hit) {
    return lumagrid::Pick(layer, ray.origin, ray.direction, hit, tolerance);
  };
  CGLScene* nearestLayer = nullptr;
  lumagrid::Hit nearest{};
  for (CGLScene* layer : layersOf(scene)) {
    lumagrid::Hit hit{};
    if (pick(*layer, hit) && (nearestLayer == nullptr || hit.distance < nearest.distance)) {
      nearest = hit;
      nearestLayer = layer;
    }
  }
  if (nearestLayer == nullptr) {
    return std::nullopt;
  }
  const std::vector<gallery::GalleryScene::Item>& items = scene.items();
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].shape == nearest.shape) {
      return i;
    }
  }
  // A group's member (an axis of a triad): the group that owns it is the one whose hiding
  // takes the member out of the ray's way.
  for (std::size_t i = 0; i < items.size(); ++i) {
    CGLObject& shape = *items[i].shape;
    if (items[i].scene != nearestLayer || shape.IsVisible() == 0) {
      continue;
    }
    shape.SetVisible(false);
    lumagrid::Hit again{};
    const bool met = pick(*nearestLayer, again);
    shape.SetVisible(true);
    if (!met || again.shape != nearest.shape) {
      return i;
    }
  }
  return std::nullopt;
}

std::optional<std::size_t> rayPickAt(const gallery::GalleryScene& scene,
                                     const gallery::Layout& layout, const gallery::Orbit& orbit,
                                     int x, int y) {
  gallery::setUpView(layout, orbit);
  const std::optional<PixelRay> ray = rayThroughPixel(currentCamera(), x, y);
  return ray ? pickByRay(scene, *ray) : std::nullopt;
}

lumagrid::Bounds sceneBounds(const gallery::GalleryScene& scene) {
  lumagrid::Bounds all;
  for (CGLScene* layer : layersOf(scene)) {
    const lumagrid::Bounds box = lumagrid::BoundsOf(*layer);
    if (box.empty) {
      continue;
    }
    if (all.empty) {
      all = box;
      continue;
    }
    for (int i = 0; i < 3; ++i) {
      all.min[i] = std::min(all.min[i], box.min[i]);
      all.max[i] = std::max(all.max[i], box.max[i]);
    }
  }
  return all;
}

double zoomToHold(const Camera& camera, const lumagrid::Bounds& box) {
  if (box.empty) {
    return 1.0;
  }
  // Each corner is taken across to the plane through the world's centre that faces the camera,
  // where the gallery's view is exact: a corner nearer the camera than the shapes in it would
  // otherwise swell under perspective, and a box around shapes standing out of that plane at
  // the picture's edges has such corners far from any shape. The zoom scales the picture about
  // its centre, so the corner farthest out sets it; less than half a pixel out changes no pixel.
  const double* m = camera.modelview;
  const double identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const double halfWidth = camera.viewport[2] / 2.0;
  const double halfHeight = camera.viewport[3] / 2.0;
  double reach = 1.0;
  for (int corner = 0; corner < 8; ++corner) {
    const double x = (corner & 1) != 0 ? box.max.x() : box.min.x();
    const double y = (corner & 2) != 0 ? box.max.y() : box.min.y();
    const double z = (corner & 4) != 0 ? box.max.z() : box.min.z();
    const double eyeX = m[0] * x + m[4] * y + m[8] * z + m[12];
    const double eyeY = m[1] * x + m[5] * y + m[9] * z + m[13];
    double w[3];
    if (gluProject(eyeX, eyeY, m[14], identity, camera.projection, camera.viewport, &w[0], &w[1],
                   &w[2]) != GL_TRUE) {
      continue;
    }
    const double dx = std::abs(w[0] - camera.viewport[0] - halfWidth);
    const double dy = std::abs(w[1] - camera.viewport[1] - halfHeight);
    if (dx > halfWidth + 0.5 || dy > halfHeight + 0.5) {
      reach = std::max({reach, dx / halfWidth, dy / halfHeight});
    }
  }
  return 1.0 / reach;
}

}  // namespace viewer
