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
#include "ray_pick.h"
#include "tube_refresh.h"
#include "viewer_options.h"

namespace lumagrid {
class CoreProfileRenderer;
}

namespace viewer {

class Viewer {
 public:
  // With Renderer::CoreProfile the context must be an OpenGL 3.3 core one: nothing is drawn
  // through the fixed-function pipeline or display lists then.
  Viewer(int width, int height, Renderer renderer = Renderer::Legacy);
  ~Viewer();
  Viewer(const Viewer&) = delete;
  Viewer& operator=(const Viewer&) = delete;

  // Lays the cells out for the new size; selection and toggles are kept.
  void resize(int width, int height);
  // Draws a frame into the back buffer.
  void draw();
  // Why the last draw() drew nothing, when the core-profile renderer failed; empty otherwise.
  const std::string& drawError() const { return drawError_; }

  // Camera: degrees of turn, a zoom factor, and back to the gallery's view.
  void turn(double yawDegrees, double pitchDegrees);
  void zoom(double factor);
  // Frames the whole scene: the gallery's view, zoomed out as far as the visible shapes' bounds
  // need when they reach beyond it.
  void resetView();

  // Selects the shape under window pixel (x, y, from the top left) through its scene, or clears the
  // selection over the background, by the ID pass; picks by ray there too (rayPickText). Redraws
  // the back buffer with the ID pass. The core profile has no ID pass: the ray selects there.
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
  bool core() const { return coreRenderer_ != nullptr; }
  // The camera of the current orbit. The legacy one is set up in GL (clearing the picture).
  Camera camera() const;
  // Rebuilds the tori's display lists, which only the legacy draw has.
  void refreshTubes();
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

  // Set with Renderer::CoreProfile; it goes with the viewer, while the context is current.
  std::unique_ptr<lumagrid::CoreProfileRenderer> coreRenderer_;
  std::string drawError_;
};

}  // namespace viewer
