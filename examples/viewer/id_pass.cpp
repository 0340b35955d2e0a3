#include "id_pass.h"

#include <lumagrid/CGLMatrixGuard.h>
#include <lumagrid/CGLObject.h>

#include <GL/gl.h>

#include <cstddef>

namespace viewer {
namespace {

constexpr GLfloat kBlack[] = {0.0f, 0.0f, 0.0f, 1.0f};

}  // namespace

IdImage renderIdImage(gallery::GalleryScene& scene, const gallery::Layout& layout,
                      const gallery::Orbit& orbit) {
  gallery::setUpView(layout, orbit);
  glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

  // Shapes set their own ambient and diffuse material and some compile a glColor into their list,
  // so the ID rides on the emission: with no light and no ambient, the lit colour is the emission
  // alone, whatever the shape sets, and it is flat over lines and faces alike.
  glDisable(GL_LIGHT0);
  glDisable(GL_LIGHT1);
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kBlack);
  glDisable(GL_BLEND);
  glDisable(GL_DITHER);
  glLineWidth(kPickLineWidth);

  const std::vector<gallery::GalleryScene::Item>& items = scene.items();
  for (std::size_t i = 0; i < items.size() && i < kMaxPickable; ++i) {
    const IdColour c = idColour(i);
    const GLfloat emission[] = {c.r / 255.0f, c.g / 255.0f, c.b / 255.0f, 1.0f};
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, emission);
    CGLMatrixGuard guard(items[i].popsExtra ? 1 : 0);
    items[i].shape->Draw();  // skips a hidden shape by itself
  }
  glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, kBlack);
  glEnable(GL_DITHER);

  IdImage image;
  image.width = layout.width();
  image.height = layout.height();
  image.rgba.assign(
      static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 4, 0);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, image.width, image.height, GL_RGBA, GL_UNSIGNED_BYTE, image.rgba.data());
  return image;
}

}  // namespace viewer
