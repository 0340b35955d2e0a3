// The gallery's 30 cells drawn by the legacy draw in a compatibility context and by the
// core-profile renderer in a core context, same size, camera and lights, no multisampling: each
// cell's shape must cover the same pixels and show the same mean colour.
#include <gtest/gtest.h>

#include <lumagrid/CoreProfileRenderer.h>
#include <lumagrid/testing/EglContext.h>

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "gallery_catalog.h"
#include "gallery_layout.h"
#include "gallery_scene.h"
#include "gallery_view.h"

namespace {

constexpr int kWidth = 900;
constexpr int kHeight = 760;
constexpr double kMinIntersectionOverUnion = 0.95;
constexpr double kMaxMeanColourDifference = 10.0;  // levels of 255, per channel

using Pixels = std::vector<headless::Rgba>;

std::vector<std::size_t> everyEntry() {
  std::vector<std::size_t> entries(gallery::catalog().size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    entries[i] = i;
  }
  return entries;
}

const gallery::Layout& layout() {
  static const gallery::Layout theLayout(gallery::catalog().size(), kWidth, kHeight);
  return theLayout;
}

// The two pictures, drawn once for every test, and the GL errors each frame left.
struct Pictures {
  bool legacyContext = false;
  bool coreContext = false;
  GLenum legacyError = GL_NO_ERROR;
  Pixels legacy;
  std::vector<GLenum> coreErrors;
  std::vector<bool> coreDrawn;
  std::string coreFailure;
  std::vector<Pixels> core;  // two consecutive frames
};

Pictures drawBoth() {
  Pictures p;
  {
    headless::EglContext gl(kWidth, kHeight, 0);
    p.legacyContext = gl.ok();
    if (gl.ok()) {
      gallery::setUpView(layout());
      gallery::GalleryScene scene(everyEntry(), layout());
      scene.draw();
      p.legacyError = glGetError();
      p.legacy = gl.readPixels();
    }
  }
  {
    headless::EglContext gl(kWidth, kHeight, 0, headless::EglContext::Profile::Core);
    p.coreContext = gl.ok();
    if (gl.ok()) {
      gallery::GalleryScene scene(everyEntry(), layout());
      lumagrid::CoreProfileRenderer renderer;
      for (int frame = 0; frame < 2; ++frame) {
        gallery::clearPicture(layout());
        p.coreDrawn.push_back(scene.draw(renderer, gallery::coreView(layout())));
        if (!p.coreDrawn.back() && p.coreFailure.empty()) {
          p.coreFailure = renderer.LastError();
        }
        p.coreErrors.push_back(glGetError());
        p.core.push_back(gl.readPixels());
      }
    }
  }
  return p;
}

const Pictures& pictures() {
  static const Pictures drawn = drawBoth();
  return drawn;
}

// Differs from the cleared background.
bool isShape(const headless::Rgba& c) {
  const gallery::Rgb8 b = gallery::kBackground;
  return std::abs(c.r - b.r) + std::abs(c.g - b.g) + std::abs(c.b - b.b) > 0;
}

// What one cell's shape area shows in both pictures.
struct CellAgreement {
  std::size_t legacyPixels = 0;
  std::size_t corePixels = 0;
  double intersectionOverUnion = 0.0;
  double colourDifference = 0.0;  // the largest channel's difference of the two means
};

CellAgreement compareCell(const Pixels& legacy, const Pixels& core, std::size_t cell) {
  const gallery::Rect r = layout().shapeArea(cell);
  std::size_t both = 0;
  std::size_t either = 0;
  CellAgreement a;
  double legacySum[3] = {0, 0, 0};
  double coreSum[3] = {0, 0, 0};
  for (int y = r.y; y < r.y + r.height; ++y) {
    const int row = kHeight - 1 - y;  // read back bottom row first
    for (int x = r.x; x < r.x + r.width; ++x) {
      const std::size_t i = static_cast<std::size_t>(row) * kWidth + static_cast<std::size_t>(x);
      const headless::Rgba& l = legacy[i];
      const headless::Rgba& c = core[i];
      const bool inLegacy = isShape(l);
      const bool inCore = isShape(c);
      both += inLegacy && inCore ? 1 : 0;
      either += inLegacy || inCore ? 1 : 0;
      if (inLegacy) {
        ++a.legacyPixels;
        legacySum[0] += l.r;
        legacySum[1] += l.g;
        legacySum[2] += l.b;
      }
      if (inCore) {
        ++a.corePixels;
        coreSum[0] += c.r;
        coreSum[1] += c.g;
        coreSum[2] += c.b;
      }
    }
  }
  a.intersectionOverUnion = either == 0 ? 0.0 : static_cast<double>(both) / either;
  if (a.legacyPixels > 0 && a.corePixels > 0) {
    for (int k = 0; k < 3; ++k) {
      a.colourDifference = std::max(
          a.colourDifference, std::abs(legacySum[k] / a.legacyPixels - coreSum[k] / a.corePixels));
    }
  } else {
    a.colourDifference = 255.0;
  }
  return a;
}

class GalleryAgreement : public ::testing::Test {
 protected:
  void SetUp() override {
    const Pictures& p = pictures();
    ASSERT_TRUE(p.legacyContext) << "no compatibility context";
    ASSERT_TRUE(p.coreContext) << "no OpenGL 3.3 core context";
    ASSERT_EQ(p.core.size(), 2u);
  }
};

TEST_F(GalleryAgreement, EveryFrameLeavesNoGLError) {
  const Pictures& p = pictures();
  EXPECT_EQ(p.legacyError, static_cast<GLenum>(GL_NO_ERROR));
  for (std::size_t frame = 0; frame < p.coreErrors.size(); ++frame) {
    EXPECT_TRUE(p.coreDrawn[frame]) << "frame " << frame << ": " << p.coreFailure;
    EXPECT_EQ(p.coreErrors[frame], static_cast<GLenum>(GL_NO_ERROR)) << "frame " << frame;
  }
}

TEST_F(GalleryAgreement, ConsecutiveDrawsGiveTheSamePixels) {
  const Pictures& p = pictures();
  EXPECT_TRUE(p.core[0] == p.core[1]);
}

TEST_F(GalleryAgreement, EveryCellCoversTheSamePixelsInTheSameMeanColour) {
  const Pictures& p = pictures();
  double minIntersectionOverUnion = 1.0;
  double maxColourDifference = 0.0;
  std::printf("cell  entry                 legacy    core    IoU  colour diff\n");
  for (std::size_t cell = 0; cell < layout().cells(); ++cell) {
    const std::string& name = gallery::catalog()[cell].name;
    const CellAgreement a = compareCell(p.legacy, p.core[0], cell);
    std::printf("%4zu  %-20s %7zu %7zu  %5.3f  %5.2f\n", cell, name.c_str(), a.legacyPixels,
                a.corePixels, a.intersectionOverUnion, a.colourDifference);
    EXPECT_GE(a.intersectionOverUnion, kMinIntersectionOverUnion) << "cell " << cell << " " << name;
    EXPECT_LE(a.colourDifference, kMaxMeanColourDifference) << "cell " << cell << " " << name;
    minIntersectionOverUnion = std::min(minIntersectionOverUnion, a.intersectionOverUnion);
    maxColourDifference = std::max(maxColourDifference, a.colourDifference);
  }
  std::printf("lowest IoU %.3f, largest colour difference %.2f\n", minIntersectionOverUnion,
              maxColourDifference);
}

}  // namespace
