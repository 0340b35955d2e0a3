#include <lumagrid/CGLScene.h>
#include <lumagrid/CGLTorus.h>

#include <GL/gl.h>
#include <GL/gle.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>

#include "render/OrthoRenderTest.h"

namespace {

using headless::Rgba;

class TorusRender : public OrthoRenderTest {
 protected:
  void TearDown() override {
    gleSetNumSides(20);
    RealGLTest::TearDown();
  }

  static void clear() { glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT); }

  CGLScene scene;
};

TEST_F(TorusRender, FullRingCoversItsCircleAndLeavesTheHole) {
  auto* torus = new CGLTorus(0.2, 1.2, 0.0, 360.0);
  torus->ColorSet(0x0000FFul);
  scene.AddGLShape(torus);
  scene.DrawGLShapes();

  for (const auto& p : {std::pair{1.2, 0.0}, {-1.2, 0.0}, {0.0, 1.2}, {0.0, -1.2}}) {
    EXPECT_TRUE(drawn(at(p.first, p.second))) << p.first << ", " << p.second;
  }
  EXPECT_FALSE(drawn(centrePixel()));
  EXPECT_FALSE(drawn(at(0.85, 0.0)));
  EXPECT_FALSE(drawn(at(1.55, 0.0)));
  // An annulus 2 * 0.2 wide about radius 1.2, in pixels.
  const double area = 2.0 * 3.14159265 * 1.2 * 0.4 * 32.0 * 32.0;
  EXPECT_NEAR(static_cast<double>(countDrawnPixels()), area, area * 0.1);
  EXPECT_GT(at(1.2, 0.0).r, 60);
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(TorusRender, HalfRingFromNinetyDegreesCoversTheLeftSide) {
  auto* torus = new CGLTorus(0.2, 1.2, 90.0, 180.0);
  scene.AddGLShape(torus);
  scene.DrawGLShapes();

  EXPECT_TRUE(drawn(at(-1.2, 0.0)));
  EXPECT_TRUE(drawn(at(-0.6, 1.0)));
  EXPECT_FALSE(drawn(at(1.2, 0.0)));
  EXPECT_FALSE(drawn(at(0.6, -1.0)));
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(TorusRender, KeepsTheSidesInForceWhenItsListWasBuilt) {
  gleSetNumSides(3);
  auto* coarse = new CGLTorus(0.4, 1.2, 0.0, 360.0);
  scene.AddGLShape(coarse);
  scene.DrawGLShapes();
  const std::size_t built = countDrawnPixels();

  gleSetNumSides(40);
  clear();
  scene.DrawGLShapes();  // replays the three-sided list
  EXPECT_EQ(countDrawnPixels(), built);

  clear();
  coarse->Move(0.0);  // rebuilt under 40 sides
  scene.DrawGLShapes();
  const std::size_t rebuilt = countDrawnPixels();
  EXPECT_GT(rebuilt, built + built / 20);
  EXPECT_EQ(gleGetJoinStyle(), TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE);
  EXPECT_TRUE(noGLError());
}

// GLE would ask malloc for about 2^64 bytes for these; the ring is left out instead.
TEST_F(TorusRender, AnglesThatCannotBeSampledDrawNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  scene.AddGLShape(new CGLTorus(0.2, 1.2, nan, 360.0));
  scene.AddGLShape(new CGLTorus(0.2, 1.2, -inf, 360.0));
  scene.AddGLShape(new CGLTorus(0.2, 1.2, 0.0, nan));
  scene.AddGLShape(new CGLTorus(0.2, 1.2, 0.0, inf));
  scene.AddGLShape(new CGLTorus(0.2, 1.2, 0.0, -1.0e12));
  scene.DrawGLShapes();
  scene.DrawGLShapes();
  EXPECT_EQ(countDrawnPixels(), 0u);
  EXPECT_EQ(gleGetJoinStyle(), TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE);
  EXPECT_TRUE(noGLError());
}

}  // namespace
