#include "viewer.h"

#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLMatrixGuard.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/CGLSpring.h>
#include <lumagrid/CGLTorus.h>
#include <lumagrid/CoreProfileRenderer.h>
#include <lumagrid/ShapeDescription.h>

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "core_view.h"
#include "gallery_catalog.h"
#include "gallery_gltf.h"
#include "id_pass.h"
#include "pick.h"
#include "ray_pick.h"
#include "shape_info.h"

namespace viewer {
namespace {

constexpr double kTranslucentAlpha = 0.45;
constexpr double kMinZoom = 0.25;
constexpr double kMaxZoom = 12.0;

using Item = gallery::GalleryScene::Item;

// Through ColorSet rather than AlphaSet: a group hands its colour, alpha included, to its members.
// The highlight colour takes the alpha too, or a selected shape would stay opaque.
void setAlpha(CGLObject& shape, double alpha) {
  CGLColor colour = shape.ColorGet();
  colour.AlphaSet(alpha);
  shape.ColorSet(colour);
  CGLColor highlight = shape.HLColorGet();
  highlight.AlphaSet(alpha);
  shape.HLColorSet(highlight);
}

}  // namespace

Viewer::Viewer(int width, int height, Renderer renderer)
    : layout_(gallery::catalog().size(), width, height) {
  if (renderer == Renderer::CoreProfile) {
    coreRenderer_ = std::make_unique<lumagrid::CoreProfileRenderer>();
  }
  for (std::size_t i = 0; i < gallery::catalog().size(); ++i) {
    entries_.push_back(i);
    labels_.push_back(gallery::catalog()[i].label);
  }
  build();
}

Viewer::~Viewer() = default;

void Viewer::build() {
  scene_.reset();  // its display lists go before the new scene's are made
  scene_ = std::make_unique<gallery::GalleryScene>(entries_, layout_);
  const std::vector<Item>& items = scene_->items();
  if (builtAlpha_.empty()) {
    // The first build is the gallery's own picture: its selection and alphas are the start.
    for (std::size_t i = 0; i < items.size(); ++i) {
      CGLObject& shape = *items[i].shape;
      builtAlpha_.push_back(shape.AlphaGet());
      auto* spring = dynamic_cast<CGLSpring*>(&shape);
      builtShaded_.push_back(spring != nullptr ? springShadedMode(*spring) : -1);
      if (shape.IsSelected() != 0) {
        selected_ = i;
      }
    }
    alpha_ = builtAlpha_;
    hidden_.assign(items.size(), false);
  }
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Item& item = items[i];
    item.scene->SelectGLShape(item.shape, selected_ == i ? 1 : 0);
    item.scene->ShowGLShape(item.shape, hidden_[i] ? 0 : 1);
    if (alpha_[i] != builtAlpha_[i]) {
      setAlpha(*item.shape, alpha_[i]);
    }
    if (wireframe_ && builtShaded_[i] >= 0) {
      static_cast<CGLSpring*>(item.shape)->SetShadedMode(0);
    }
  }
  refreshTubes();
}

void Viewer::refreshTubes() {
  if (!core()) {
    tubes_.rebuildTori(*scene_, wireframe_);
  }
}

Camera Viewer::camera() const {
  if (core()) {
    return coreCamera(layout_, orbit_);
  }
  gallery::setUpView(layout_, orbit_);
  return currentCamera();
}

void Viewer::resize(int width, int height) {
  if (width == layout_.width() && height == layout_.height()) {
    return;
  }
  layout_ = gallery::Layout(entries_.size(), width, height);
  build();
}

void Viewer::draw() {
  if (core()) {
    // The renderer sorts each layer's translucent shapes after its opaque ones itself.
    const Camera view = camera();
    clearCore(view);
    drawError_.clear();
    drawCore(*coreRenderer_, *scene_, view, &drawError_);
    return;
  }
  gallery::setUpView(layout_, orbit_);
  // Shapes made translucent here stay in their opaque scene: hidden from it, they are drawn after
  // everything else, as the gallery draws its translucent layer.
  std::vector<const Item*> late;
  for (const Item& item : scene_->items()) {
    if (item.layer != gallery::Layer::Translucent && item.shape->AlphaGet() < 1.0 &&
        item.shape->IsVisible() != 0) {
      late.push_back(&item);
      item.scene->ShowGLShape(item.shape, 0);
    }
  }
  scene_->draw();
  glDepthMask(GL_FALSE);
  glEnable(GL_CULL_FACE);
  for (const Item* item : late) {
    item->scene->ShowGLShape(item->shape, 1);
    drawLate(*item);
  }
  glDisable(GL_CULL_FACE);
  glDepthMask(GL_TRUE);
  // The labels are laid out on the picture, so they only fit the view they were made for.
  if (orbit_.home()) {
    gallery::drawLabels(layout_, labels_);
  }
}

void Viewer::drawLate(const Item& item) {
  std::optional<gallery::FlatLighting> flat;
  if (item.layer == gallery::Layer::Flat) {
    flat.emplace();
  }
  glLineWidth(item.layer == gallery::Layer::Wire ? 1.0f : 2.0f);
  CGLMatrixGuard guard(item.popsExtra ? 1 : 0);
  item.shape->Draw();
}

void Viewer::turn(double yawDegrees, double pitchDegrees) {
  orbit_.yaw = std::fmod(orbit_.yaw + yawDegrees, 360.0);
  orbit_.pitch = std::clamp(orbit_.pitch + pitchDegrees, -90.0, 90.0);
}

void Viewer::zoom(double factor) {
  orbit_.zoom = std::clamp(orbit_.zoom * factor, kMinZoom, kMaxZoom);
}

void Viewer::resetView() {
  orbit_ = gallery::Orbit();
  orbit_.zoom = std::max(kMinZoom, zoomToHold(camera(), sceneBounds(*scene_)));
}

void Viewer::click(int x, int y) {
  const std::vector<Item>& items = scene_->items();
  const std::optional<std::size_t> picked =
      core() ? std::nullopt : pickAt(renderIdImage(*scene_, layout_, orbit_), x, y, items.size());
  if (selected_) {
    items[*selected_].scene->SelectGLShape(items[*selected_].shape, 0);
  }
  const std::optional<PixelRay> ray = rayThroughPixel(camera(), x, y);
  rayPicked_ = ray ? pickByRay(*scene_, *ray) : std::nullopt;
  selected_ = core() ? rayPicked_ : picked;
  if (selected_) {
    items[*selected_].scene->SelectGLShape(items[*selected_].shape, 1);
  }
  refreshTubes();
}

void Viewer::toggleWireframe() {
  wireframe_ = !wireframe_;
  for (std::size_t i = 0; i < scene_->items().size(); ++i) {
    CGLObject* shape = scene_->items()[i].shape;
    if (builtShaded_[i] >= 0) {
      auto* spring = static_cast<CGLSpring*>(shape);
      spring->SetShadedMode(wireframe_ ? 0 : builtShaded_[i]);
      // Storing the mode does not mark the spring; a scale by one does, without changing it.
      spring->ScaleLength(1.0);
    } else if (dynamic_cast<CGLTorus*>(shape) != nullptr) {
      shape->Move(0.0);  // a move by zero: only marks the torus for rebuilding
    }
  }
  refreshTubes();
}

void Viewer::toggleSelectedVisible() {
  if (!selected_) {
    return;
  }
  const Item& item = scene_->items()[*selected_];
  hidden_[*selected_] = !hidden_[*selected_];
  item.scene->ShowGLShape(item.shape, hidden_[*selected_] ? 0 : 1);
}

void Viewer::toggleSelectedTranslucent() {
  if (!selected_) {
    return;
  }
  const std::size_t i = *selected_;
  const double translucent = builtAlpha_[i] < 1.0 ? builtAlpha_[i] : kTranslucentAlpha;
  alpha_[i] = alpha_[i] < 1.0 ? 1.0 : translucent;
  setAlpha(*scene_->items()[i].shape, alpha_[i]);
  refreshTubes();
}

std::string Viewer::itemText(std::size_t i) const {
  const Item& item = scene_->items()[i];
  return gallery::catalog()[item.entry].label + ": " + lumagrid::DescribeShape(*item.shape) +
         (hidden_[i] ? " (hidden)" : "");
}

bool Viewer::exportGltf(const std::string& path, std::string* error) {
  return gallery::writeGalleryGltf(*scene_, layout_, labels_, path, error);
}

std::string Viewer::selectionText() const {
  return selected_ ? itemText(*selected_) : "nothing";
}

std::string Viewer::rayPickText() const {
  return rayPicked_ ? itemText(*rayPicked_) : "nothing";
}

}  // namespace viewer
