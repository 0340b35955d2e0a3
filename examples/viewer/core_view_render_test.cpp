// The viewer's core-profile side: its computed camera against the one gallery::setUpView() leaves
// in GL, and the gallery drawn through the core-profile renderer against the legacy draw, both
// headless (EGL on llvmpipe).
#include <gtest/gtest.h>

#include <lumagrid/CoreProfileRenderer.h>
#include <lumagrid/testing/EglContext.h>

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <ostream>
#include <string>
#include <vector>

#include "core_view.h"
#include "gallery_catalog.h"
#include "gallery_layout.h"
#include "gallery_scene.h"
#include "gallery_view.h"
#include "ray_pick.h"

namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 500;

std::vector<std::size_t> allEntries() {
  std::vector<std::size_t> entries;
  for (std::size_t i = 0; i < gallery::catalog().size(); ++i) {
    entries.push_back(i);
  }
  return entries;
}

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

TEST(CoreView, FlatViewHasNoLightsAndFullAmbient) {
  const viewer::Camera camera = viewer::coreCamera(layout(), gallery::Orbit());
  const lumagrid::View flat = viewer::flatView(camera);
  EXPECT_TRUE(flat.lights.empty());
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(flat.ambient[i], 1.0f);
  }
  EXPECT_EQ(viewer::litView(camera).lights.size(), 2u);
}

// Pixels of each cell that are not the background, read back bottom row first.
std::vector<std::size_t> coverage(const headless::EglContext& context) {
  const std::vector<headless::Rgba> pixels = context.readPixels();
  std::vector<std::size_t> counts;
  const gallery::Rgb8 bg = gallery::kBackground;
  for (std::size_t i = 0; i < layout().cells(); ++i) {
    const gallery::Rect r = layout().shapeArea(i);
    std::size_t n = 0;
    for (int y = r.y; y < r.y + r.height; ++y) {
      for (int x = r.x; x < r.x + r.width; ++x) {
        const headless::Rgba& p = pixels[static_cast<std::size_t>(kHeight - 1 - y) * kWidth +
                                         static_cast<std::size_t>(x)];
        n += std::abs(p.r - bg.r) + std::abs(p.g - bg.g) + std::abs(p.b - bg.b) > 24 ? 1 : 0;
      }
    }
    counts.push_back(n);
  }
  return counts;
}

// The legacy draw's coverage; the scene goes before its context, with its display lists.
std::vector<std::size_t> legacyCoverage() {
  headless::EglContext context(kWidth, kHeight);
  if (!context.ok()) {
    ADD_FAILURE() << context.error();
    return {};
  }
  gallery::GalleryScene scene(allEntries(), layout());
  gallery::setUpView(layout());
  scene.draw();
  return coverage(context);
}

// Each layer reaches the picture, with its view and line width: every cell covers about as much
// of the picture as the legacy draw's.
TEST(CoreDraw, EveryCellCoversWhatTheLegacyDrawCovers) {
  const std::vector<std::size_t> legacy = legacyCoverage();
  headless::EglContext context(kWidth, kHeight, 0, headless::EglContext::Profile::Core);
  ASSERT_TRUE(context.ok()) << context.error();
  gallery::GalleryScene scene(allEntries(), layout());
  lumagrid::CoreProfileRenderer renderer;  // goes before its context
  const viewer::Camera camera = viewer::coreCamera(layout(), gallery::Orbit());
  viewer::clearCore(camera);
  std::string error;
  ASSERT_TRUE(viewer::drawCore(renderer, scene, camera, &error)) << error;
  const std::vector<std::size_t> core = coverage(context);
  ASSERT_EQ(core.size(), legacy.size());
  for (std::size_t i = 0; i < core.size(); ++i) {
    EXPECT_GT(legacy[i], 0u) << gallery::catalog()[i].name;
    EXPECT_NEAR(static_cast<double>(core[i]), static_cast<double>(legacy[i]), 0.15 * legacy[i])
        << gallery::catalog()[i].name;
  }
}

}  // namespace
