#include <lumagrid/CGLBelt.h>
#include <lumagrid/CGLPolyline.h>
#include <lumagrid/CGLScene.h>

#include <GL/gl.h>

#include <gtest/gtest.h>

#include <cstddef>

#include "render/OrthoRenderTest.h"

namespace {

using headless::Rgba;

class PathRender : public OrthoRenderTest {
 protected:
  CGLScene scene;
};

TEST_F(PathRender, PolylineDrawsItsSegments) {
  glDisable(GL_LIGHTING);
  auto* poly = new CGLPolyline;
  poly->ColorSet(0x00FF00ul);
  poly->AddVertex(-1.5, -1.5, 0.0);
  poly->AddVertex(1.5, -1.5, 0.0);
  poly->AddVertex(1.5, 1.5, 0.0);
  scene.AddGLShape(poly);
  scene.DrawGLShapes();

  EXPECT_TRUE(drawnNear(0.0, -1.5));
  EXPECT_TRUE(drawnNear(1.5, 0.0));
  EXPECT_FALSE(drawnNear(-1.5, 0.0));
  EXPECT_FALSE(drawn(centrePixel()));
  // Its own colour, compiled into the list: green, and nothing else.
  EXPECT_GT(countPixels([](const Rgba& c) { return c.g > 200 && c.r == 0 && c.b == 0; }), 150u);
  EXPECT_EQ(countPixels([](const Rgba& c) { return c.r != 0 || c.b != 0; }), 0u);
  EXPECT_EQ(modelviewDepth(), 1);
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(PathRender, SelectedPolylineStaysInItsNormalColour) {
  glDisable(GL_LIGHTING);
  auto* poly = new CGLPolyline;
  poly->ColorSet(0x0000FFul);
  poly->HLColorSet(0x00FF00ul);
  for (int i = -60; i <= 60; ++i) {
    poly->AddVertex(i / 32.0, 0.0, 0.0);
  }
  poly->Select(true);
  scene.AddGLShape(poly);
  scene.DrawGLShapes();
  const std::size_t red =
      countPixels([](const Rgba& c) { return c.r > 200 && c.g == 0 && c.b == 0; });
  const std::size_t green = countPixels([](const Rgba& c) { return c.g > 0; });
  EXPECT_GT(red, 100u);
  EXPECT_EQ(green, 0u);
  EXPECT_TRUE(noGLError());
}

TEST_F(PathRender, BeltOutlinesBothPulleys) {
  glDisable(GL_LIGHTING);
  auto* belt = new CGLBelt(0.5, 0.5, 2.0);
  belt->SetQuality(50);
  belt->Move(-1.0, 0.0, 0.0);
  scene.AddGLShape(belt);
  scene.DrawGLShapes();

  EXPECT_TRUE(drawnNear(0.0, 0.5));    // upper straight
  EXPECT_TRUE(drawnNear(0.0, -0.5));   // lower straight
  EXPECT_TRUE(drawnNear(-1.5, 0.0));   // A's far side
  EXPECT_TRUE(drawnNear(1.5, 0.0));    // B's far side
  EXPECT_FALSE(drawnNear(-1.0, 0.0));  // centres stay empty
  EXPECT_FALSE(drawnNear(1.0, 0.0));
  EXPECT_FALSE(drawn(centrePixel()));
  EXPECT_EQ(modelviewDepth(), 1);
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(PathRender, EmptyBeltDrawDirectLeavesAMatrixPushed) {
  CGLBelt belt(1.0, 1.0, 0.0);
  EXPECT_EQ(belt.DrawDirect(), 0);
  EXPECT_EQ(modelviewDepth(), 2);
  glPopMatrix();
  EXPECT_TRUE(noGLError());
}

TEST_F(PathRender, PolylineDrawDirectDrawsInTheCurrentFrame) {
  glDisable(GL_LIGHTING);
  CGLPolyline poly;
  poly.Move(5.0, 5.0, 0.0);  // ignored by DrawDirect
  poly.AddVertex(-1.0, 1.0, 0.0);
  poly.AddVertex(1.0, 1.0, 0.0);
  EXPECT_EQ(poly.DrawDirect(), 0);
  EXPECT_TRUE(drawnNear(0.0, 1.0));
  EXPECT_TRUE(noGLError());
}

}  // namespace
