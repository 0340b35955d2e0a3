// Picking by ray (lumagrid::Pick through the viewer's camera) beside the ID pass, both drawn for
// real headless: in every gallery cell they name the same shape, and the background neither.
#include <gtest/gtest.h>

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/testing/EglContext.h>

#include <cstddef>
#include <cstdlib>
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
#include "ray_pick.h"

namespace {

struct Pixel {
  int x;
  int y;
};

// The ID pass's shape at a pixel, or none.
using Picked = std::optional<std::size_t>;

class RayPickRender : public GalleryRenderTest {
 protected:
  void SetUp() override {
    GalleryRenderTest::SetUp();
    image_ = viewer::renderIdImage(*scene_, layout_, gallery::Orbit());
  }

  Picked byId(Pixel p) const { return viewer::pickAt(image_, p.x, p.y, scene_->shapeCount()); }

  Picked byRay(Pixel p) const {
    return viewer::rayPickAt(*scene_, layout_, gallery::Orbit(), p.x, p.y);
  }

  // Where cell i is checked: its centre, or the pixel nearest it whose neighbours (a square of
  // 2 * margin + 1) all show one shape of the cell, so that the point is not on a shape's edge
  // and not in a hole (a torus's, a star's). Wide squares first, so solids are met well inside;
  // lines, drawn kPickLineWidth wide, only fit small ones.
  std::optional<Pixel> pointOf(std::size_t cell) const {
    const gallery::Rect area = layout_.shapeArea(cell);
    const Pixel centre{area.x + area.width / 2, area.y + area.height / 2};
    for (const int margin : {3, 1}) {
      std::optional<Pixel> best;
      long bestDistance = 0;
      for (int y = area.y + margin; y < area.y + area.height - margin; ++y) {
        for (int x = area.x + margin; x < area.x + area.width - margin; ++x) {
          const long distance = static_cast<long>(x - centre.x) * (x - centre.x) +
                                static_cast<long>(y - centre.y) * (y - centre.y);
          if ((!best || distance < bestDistance) && showsOneShapeOf(cell, {x, y}, margin)) {
            best = Pixel{x, y};
            bestDistance = distance;
          }
        }
      }
      if (best) {
        return best;
      }
    }
    return std::nullopt;
  }

  bool showsOneShapeOf(std::size_t cell, Pixel p, int margin) const {
    const Picked here = byId(p);
    if (!here || scene_->items()[*here].entry != entries_[cell]) {
      return false;
    }
    for (int dy = -margin; dy <= margin; ++dy) {
      for (int dx = -margin; dx <= margin; ++dx) {
        if (byId({p.x + dx, p.y + dy}) != here) {
          return false;
        }
      }
    }
    return true;
  }

  std::string nameOf(const Picked& i) const {
    if (!i) {
      return "nothing";
    }
    return gallery::catalog()[scene_->items()[*i].entry].name + " #" + std::to_string(*i);
  }

  viewer::IdImage image_;
};

// One cell per test, so that a cell that fails is named on its own.
class RayPickCell : public RayPickRender, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(RayPickCell, PicksTheShapeTheIdPassShows) {
  const std::size_t cell = GetParam();
  const std::optional<Pixel> p = pointOf(cell);
  ASSERT_TRUE(p.has_value()) << "no pixel of the cell shows its shape";
  const Picked id = byId(*p);
  EXPECT_EQ(nameOf(byRay(*p)), nameOf(id)) << "at " << p->x << "," << p->y;
}

std::string cellName(const ::testing::TestParamInfo<std::size_t>& info) {
  std::string name = gallery::catalog()[info.param].name;
  for (char& c : name) {
    c = c == '-' ? '_' : c;
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(EveryCell, RayPickCell,
                         ::testing::Range<std::size_t>(0, gallery::catalog().size()), cellName);

TEST_F(RayPickRender, TheBackgroundPicksNothingEitherWay) {
  const gallery::Rect label = layout_.labelArea(0);
  for (const Pixel p : {Pixel{1, 1}, Pixel{kWidth - 2, kHeight - 2},
                        Pixel{label.x + 2, label.y + label.height / 2}}) {
    EXPECT_EQ(nameOf(byId(p)), "nothing") << p.x << "," << p.y;
    EXPECT_EQ(nameOf(byRay(p)), "nothing") << p.x << "," << p.y;
  }
}

TEST_F(RayPickRender, AHiddenShapeIsNotPicked) {
  const gallery::Rect area = layout_.shapeArea(gallery::findEntry("cone-pointed"));
  const Pixel centre{area.x + area.width / 2, area.y + area.height / 2};
  ASSERT_EQ(nameOf(byRay(centre)).rfind("cone-pointed", 0), 0u);
  for (const gallery::GalleryScene::Item& item : scene_->items()) {
    if (gallery::catalog()[item.entry].name == "cone-pointed") {
      item.scene->ShowGLShape(item.shape, 0);
    }
  }
  EXPECT_EQ(nameOf(byRay(centre)), "nothing");
}

// The gallery fills its view at any window shape: framing its bounds keeps the view, and a shape
// moved out of it makes the camera step back until the shape is in.
TEST_F(RayPickRender, FramingKeepsTheGalleryViewUnlessAShapeLeavesIt) {
  for (const Pixel size : {Pixel{kWidth, kHeight}, Pixel{960, 800}, Pixel{800, 600},
                           Pixel{1920, 1080}, Pixel{1000, 1600}}) {
    const gallery::Layout layout(gallery::catalog().size(), size.x, size.y);
    gallery::GalleryScene scene(entries_, layout);
    gallery::setUpView(layout, gallery::Orbit());
    const viewer::Camera home = viewer::currentCamera();
    EXPECT_EQ(viewer::zoomToHold(home, viewer::sceneBounds(scene)), 1.0) << size.x << "x" << size.y;
  }
  gallery::setUpView(layout_, gallery::Orbit());
  const viewer::Camera home = viewer::currentCamera();
  CGLObject& first = *scene_->items().front().shape;
  first.Move(3.0 * layout_.worldWidth(), 0.0, 0.0);
  const double zoom = viewer::zoomToHold(home, viewer::sceneBounds(*scene_));
  EXPECT_LT(zoom, 0.5);
  EXPECT_GT(zoom, 0.1);
}

}  // namespace
