#include "tube_refresh.h"

#include <lumagrid/CGLSpring.h>
#include <lumagrid/CGLTorus.h>

#include <GL/gl.h>

namespace viewer {

// One short coil of the default quality, which is also GLE's default number of sides.
TubeRefresh::TubeRefresh() : primer_(new CGLSpring(0.01, 0.02, 1.0, 0.02, 1, 0.0)) {}

TubeRefresh::~TubeRefresh() = default;

void TubeRefresh::rebuildTori(const gallery::GalleryScene& scene, bool wireframe) {
  // GLE compiles normals into a tube only while lighting is on.
  glPushAttrib(GL_ENABLE_BIT);
  glEnable(GL_LIGHTING);
  primer_->SetShadedMode(wireframe ? 0 : 1);
  // Storing the mode does not mark the spring; a scale by one does, without changing it.
  primer_->ScaleLength(1.0);
  primer_->DisplayListMake();
  for (const gallery::GalleryScene::Item& item : scene.items()) {
    if (auto* torus = dynamic_cast<CGLTorus*>(item.shape)) {
      torus->DisplayListMake();  // compiles only when marked
    }
  }
  glPopAttrib();
}

}  // namespace viewer
