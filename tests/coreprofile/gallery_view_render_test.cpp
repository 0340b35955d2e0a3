// The renderer's view of the gallery is the fixed-function state setUpView leaves: the same
// matrices, lights and ambient, read back from a compatibility context, turned and zoomed too.
#include <gtest/gtest.h>

#include <lumagrid/CoreProfileRenderer.h>
#include <lumagrid/testing/EglContext.h>

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>

#include "gallery_layout.h"
#include "gallery_view.h"

namespace {

// GL keeps the matrices in float and composes them in its own order.
constexpr float kTolerance = 2e-6f;

void expectNear(const float* gl, const float* view, int n, const char* what) {
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(gl[i], view[i], kTolerance * std::max(1.0f, std::fabs(gl[i])))
        << what << " [" << i << "]";
  }
}

struct NamedOrbit {
  const char* name;
  gallery::Orbit orbit;
};

// Test names and messages show the orbit's name, not its bytes.
void PrintTo(const NamedOrbit& o, std::ostream* os) {
  *os << o.name;
}

class GalleryView : public ::testing::TestWithParam<NamedOrbit> {
 protected:
  headless::EglContext gl_{320, 240, 0};
  gallery::Layout layout_{30, 320, 240};
};

TEST_P(GalleryView, HasTheMatricesAndLightsSetUpViewSets) {
  ASSERT_TRUE(gl_.ok()) << gl_.error();
  gallery::setUpView(layout_, GetParam().orbit);
  const lumagrid::View view = gallery::coreView(layout_, GetParam().orbit);
  float matrix[16];
  glGetFloatv(GL_PROJECTION_MATRIX, matrix);
  expectNear(matrix, view.projection, 16, "projection");
  glGetFloatv(GL_MODELVIEW_MATRIX, matrix);
  expectNear(matrix, view.modelView, 16, "model-view");

  ASSERT_EQ(view.lights.size(), 2u);
  for (GLenum i = 0; i < 2; ++i) {
    float value[4];
    glGetLightfv(GL_LIGHT0 + i, GL_POSITION, value);
    expectNear(value, view.lights[i].position, 4, "light position");
    glGetLightfv(GL_LIGHT0 + i, GL_DIFFUSE, value);
    expectNear(value, view.lights[i].diffuse, 4, "light diffuse");
  }
  float ambient[4];
  glGetFloatv(GL_LIGHT_MODEL_AMBIENT, ambient);
  expectNear(ambient, view.ambient, 4, "ambient");
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_P(GalleryView, FlatViewIsWhatFlatLightingLeaves) {
  ASSERT_TRUE(gl_.ok()) << gl_.error();
  gallery::setUpView(layout_, GetParam().orbit);
  const lumagrid::View lit = gallery::coreView(layout_, GetParam().orbit);
  const lumagrid::View flat = gallery::flatView(lit);
  gallery::FlatLighting flatLighting;
  EXPECT_FALSE(glIsEnabled(GL_LIGHT0));
  EXPECT_FALSE(glIsEnabled(GL_LIGHT1));
  EXPECT_TRUE(flat.lights.empty());
  float ambient[4];
  glGetFloatv(GL_LIGHT_MODEL_AMBIENT, ambient);
  expectNear(ambient, flat.ambient, 4, "ambient");
  expectNear(lit.modelView, flat.modelView, 16, "model-view");
  expectNear(lit.projection, flat.projection, 16, "projection");
}

gallery::Orbit orbit(double yaw, double pitch, double zoom) {
  gallery::Orbit o;
  o.yaw = yaw;
  o.pitch = pitch;
  o.zoom = zoom;
  return o;
}

INSTANTIATE_TEST_SUITE_P(Orbits, GalleryView,
                         ::testing::Values(NamedOrbit{"Home", gallery::Orbit()},
                                           NamedOrbit{"TurnedZoomedIn", orbit(30.0, -20.0, 1.5)},
                                           NamedOrbit{"SteepZoomedOut", orbit(-140.0, 75.0, 0.6)},
                                           NamedOrbit{"ZoomedIn", orbit(0.0, 0.0, 2.0)}),
                         [](const ::testing::TestParamInfo<NamedOrbit>& info) {
                           return std::string(info.param.name);
                         });

}  // namespace
