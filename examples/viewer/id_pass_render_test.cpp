// The ID pass drawn for real, headless (EGL on llvmpipe, no window), then picked.
#include <gtest/gtest.h>

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/testing/EglContext.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "gallery_catalog.h"
#include "gallery_render_test.h"
#include "gallery_layout.h"
#include "gallery_scene.h"
#include "gallery_view.h"
#include "id_pass.h"
#include "pick.h"

namespace {

class IdPassRender : public GalleryRenderTest {
 protected:
  // The centre of the cell that shows the entry called name, in window pixels from the top left.
  std::pair<int, int> centreOf(const std::string& name) const {
    const gallery::Rect r = layout_.shapeArea(gallery::findEntry(name));
    return {r.x + r.width / 2, r.y + r.height / 2};
  }

  std::optional<std::string> entryPickedAt(int x, int y) {
    const viewer::IdImage image = viewer::renderIdImage(*scene_, layout_, gallery::Orbit());
    const std::optional<std::size_t> i = viewer::pickAt(image, x, y, scene_->shapeCount());
    if (!i) {
      return std::nullopt;
    }
    return gallery::catalog()[scene_->items()[*i].entry].name;
  }
};

TEST_F(IdPassRender, ACellCentrePicksTheShapeDrawnThere) {
  for (const char* name :
       {"cylinder-closed", "cone-pointed", "cone-truncated", "arrow-1-head", "spring-closed"}) {
    const auto [x, y] = centreOf(name);
    EXPECT_EQ(entryPickedAt(x, y), std::optional<std::string>(name)) << name;
  }
}

TEST_F(IdPassRender, TheTranslucentSphereIsPickedBeforeTheRodInside) {
  const auto [x, y] = centreOf("sphere-alpha");
  const viewer::IdImage image = viewer::renderIdImage(*scene_, layout_, gallery::Orbit());
  const std::optional<std::size_t> i = viewer::pickAt(image, x, y, scene_->shapeCount());
  ASSERT_TRUE(i.has_value());
  EXPECT_LT(scene_->items()[*i].shape->AlphaGet(), 1.0);
}

TEST_F(IdPassRender, TheBackgroundPicksNothing) {
  EXPECT_EQ(entryPickedAt(1, 1), std::nullopt);
  // The label band under a cell holds no shape.
  const gallery::Rect label = layout_.labelArea(0);
  EXPECT_EQ(entryPickedAt(label.x + 2, label.y + label.height / 2), std::nullopt);
}

TEST_F(IdPassRender, AHiddenShapeIsNotPicked) {
  const auto [x, y] = centreOf("cone-pointed");
  for (const gallery::GalleryScene::Item& item : scene_->items()) {
    if (gallery::catalog()[item.entry].name == "cone-pointed") {
      item.scene->ShowGLShape(item.shape, 0);
    }
  }
  EXPECT_EQ(entryPickedAt(x, y), std::nullopt);
}

// No blending, dithering or shading reaches the IDs: every pixel is a shape's colour or black.
TEST_F(IdPassRender, EveryPixelIsAShapeOrTheBackground) {
  const viewer::IdImage image = viewer::renderIdImage(*scene_, layout_, gallery::Orbit());
  ASSERT_EQ(image.rgba.size(), static_cast<std::size_t>(kWidth * kHeight * 4));
  std::vector<std::size_t> seen(scene_->shapeCount(), 0);
  std::size_t strays = 0;
  for (std::size_t at = 0; at < image.rgba.size(); at += 4) {
    const std::optional<std::size_t> i =
        viewer::indexOfColour({image.rgba[at], image.rgba[at + 1], image.rgba[at + 2]});
    if (i && *i < seen.size()) {
      ++seen[*i];
    } else if (i) {
      ++strays;
    }
  }
  EXPECT_EQ(strays, 0u);
  for (std::size_t i = 0; i < seen.size(); ++i) {
    EXPECT_GT(seen[i], 0u) << "shape " << i << " ("
                           << gallery::catalog()[scene_->items()[i].entry].name << ") not drawn";
  }
}

}  // namespace
