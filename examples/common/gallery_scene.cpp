#include "gallery_scene.h"

#include <lumagrid/CGLMatrixGuard.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/CoreProfileRenderer.h>

#include <GL/gl.h>

#include "gallery_view.h"

namespace gallery {

void GalleryScene::Layer::draw() {
  CGLMatrixGuard guard(groups);
  scene.DrawGLShapes();
}

GalleryScene::GalleryScene(const std::vector<std::size_t>& entries, const Layout& layout) {
  for (std::size_t i = 0; i < entries.size(); ++i) {
    std::vector<PlacedShape> placed =
        buildShapes(entries[i], layout.shapeCentre(i), layout.shapeScale());
    for (PlacedShape& p : placed) {
      Layer& layer = p.layer == gallery::Layer::Lit    ? lit_
                     : p.layer == gallery::Layer::Wire ? wire_
                     : p.layer == gallery::Layer::Flat ? flat_
                                                       : translucent_;
      layer.groups += p.popsExtra ? 1 : 0;
      items_.push_back({p.shape.get(), &layer.scene, entries[i], p.layer, p.popsExtra});
      layer.scene.AddGLShape(p.shape.release());  // the scene owns it now
    }
  }
}

void GalleryScene::draw() {
  lit_.draw();
  glLineWidth(1.0f);
  wire_.draw();
  glLineWidth(2.0f);
  {
    FlatLighting flat;
    flat_.draw();
  }
  // Translucent shapes test depth against the rest but do not hide each other; only their
  // front faces are blended, so a sphere does not show its own far side.
  glDepthMask(GL_FALSE);
  glEnable(GL_CULL_FACE);
  translucent_.draw();
  glDisable(GL_CULL_FACE);
  glDepthMask(GL_TRUE);
}

bool GalleryScene::draw(lumagrid::CoreProfileRenderer& renderer, const lumagrid::View& view) {
  // Line widths as draw() has them; the renderer culls and blends the translucent layer itself.
  glLineWidth(2.0f);
  if (!renderer.Draw(lit_.scene, view)) {
    return false;
  }
  glLineWidth(1.0f);
  if (!renderer.Draw(wire_.scene, view)) {
    return false;
  }
  glLineWidth(2.0f);
  return renderer.Draw(flat_.scene, flatView(view)) && renderer.Draw(translucent_.scene, view);
}

}  // namespace gallery
