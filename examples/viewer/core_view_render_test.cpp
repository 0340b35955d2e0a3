// The viewer's camera in core-profile mode against the one gallery::setUpView() leaves in GL,
// headless (EGL on llvmpipe). The core-profile picture itself is checked against the legacy draw
// by the gallery's agreement test.
#include <gtest/gtest.h>

#include <lumagrid/testing/EglContext.h>

#include <cmath>
#include <cstdlib>
#include <ostream>
#include <string>

#include "core_view.h"
#include "gallery_catalog.h"
#include "gallery_layout.h"
#include "gallery_view.h"
#include "ray_pick.h"

namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 500;

const gallery::Layout& layout() {
  static const gallery::Layout layout(gallery::catalog().size(), kWidth, kHeight);
  return layout;
}

struct OrbitCase {
  const char* name;
  gallery::Orbit orbit;
};

// Named in test output by its name: gtest would print the bytes, a pointer among them.
void PrintTo(const OrbitCase& c, std::ostream* os) {
  *os << c.name;
}

class CoreCamera : public ::testing::TestWithParam<OrbitCase> {};

// GL composes the legacy matrices in single precision: they agree to float rounding.
TEST_P(CoreCamera, IsTheCameraSetUpViewLeaves) {
  headless::EglContext context(kWidth, kHeight);
  ASSERT_TRUE(context.ok()) << context.error();
  const gallery::Orbit orbit = GetParam().orbit;
  gallery::setUpView(layout(), orbit);
  const viewer::Camera legacy = viewer::currentCamera();
  const viewer::Camera core = viewer::coreCamera(layout(), orbit);
  for (int i = 0; i < 16; ++i) {
    EXPECT_NEAR(core.modelview[i], legacy.modelview[i], 1e-5 * (1 + std::abs(legacy.modelview[i])))
        << "modelview[" << i << "]";
    EXPECT_NEAR(core.projection[i], legacy.projection[i],
                1e-5 * (1 + std::abs(legacy.projection[i])))
        << "projection[" << i << "]";
  }
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(core.viewport[i], legacy.viewport[i]) << "viewport[" << i << "]";
  }
}

INSTANTIATE_TEST_SUITE_P(
    Orbits, CoreCamera,
    ::testing::Values(OrbitCase{"Home", {}}, OrbitCase{"Yawed", {35.0, 0.0, 1.0}},
                      OrbitCase{"Pitched", {0.0, -60.0, 1.0}}, OrbitCase{"Zoomed", {0.0, 0.0, 2.5}},
                      OrbitCase{"TurnedAndZoomedOut", {-120.0, 45.0, 0.4}}),
    [](const ::testing::TestParamInfo<OrbitCase>& info) { return std::string(info.param.name); });

}  // namespace
