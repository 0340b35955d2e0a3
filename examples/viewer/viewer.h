// The viewer's model of the gallery scene: camera, selection, toggles, drawing and picking,
// without any window toolkit. Every call needs the OpenGL context current.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "gallery_layout.h"
#include "gallery_scene.h"
#include "gallery_view.h"
#include "tube_refresh.h"

namespace viewer {

class Viewer {
 public:
  Viewer(int width, int height);
  Viewer(const Viewer&) = delete;
  Viewer& operator=(const Viewer&) = delete;

  // Lays the cells out for the new size; selection and toggles are kept.
  void resize(int width, int height);
  // Draws a frame into the back buffer.
  void draw();

  // Camera: degrees of turn, a zoom factor, and back to the gallery's view.
  void turn(double yawDegrees, double pitchDegrees);
  void zoom(double factor);
  // Frames the whole scene: the gallery's view, zoomed out as far as the visible shapes' bounds
  // need when they reach beyond it.
  void resetView();

  // Selects the shape under window pixel (x, y, from the top left) through its scene, or clears the
  // selection over the background, by the ID pass; picks by ray there too (rayPickText). Redraws
  // the back buffer with the ID pass.
  void click(int x, int y);
  void toggleWireframe();
  void toggleSelectedVisible();
  void toggleSelectedTranslucent();
  // Writes the scene, as shown, as glTF with its view file beside it (gallery_gltf.h). False,
  // with the reason in *error, when it cannot.
  bool exportGltf(const std::string& path, std::string* error);

  // "nothing", or the picked shape's cell label, class and parameters.
  std::string selectionText() const;
  // The same for the last click's pick by ray (ray_pick.h), which selects nothing.
  std::string rayPickText() const;
  int width() const { return layout_.width(); }
  int height() const { return layout_.height(); }

 private:
  void build();
  void drawLate(const gallery::GalleryScene::Item& item);
  std::string itemText(std::size_t i) const;

  std::vector<std::size_t> entries_;
  std::vector<std::string> labels_;
  gallery::Layout layout_;
  gallery::Orbit orbit_;
  TubeRefresh tubes_;
  std::unique_ptr<gallery::GalleryScene> scene_;

  // What the viewer changed, by item index, reapplied when a resize rebuilds the scene.
  std::optional<std::size_t> selected_;
  std::optional<std::size_t> rayPicked_;
  std::vector<bool> hidden_;
  std::vector<double> alpha_;
  std::vector<double> builtAlpha_;
  std::vector<int> builtShaded_;  // a spring's shaded mode, -1 for other shapes
  bool wireframe_ = false;
};

}  // namespace viewer
