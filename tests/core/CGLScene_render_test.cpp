#include <lumagrid/CGLScene.h>

#include <GL/gl.h>
#include <gtest/gtest.h>

#include "core_probes.h"
#include "core_render.h"

namespace {

using headless::colorNear;

class SceneRender : public OrthoRenderTest {
 protected:
  // A quad of half-size 0.5 centred on (x, 0), in the scene.
  static QuadShape* AddQuadAt(CGLScene& scene, double x) {
    auto* q = new QuadShape(0.5f);
    q->Move(x, 0.0, 0.0);
    scene.AddGLShape(q);
    return q;
  }
};

TEST_F(SceneRender, SceneDrawsEachShapeInItsMaterialColour) {
  CGLScene scene;
  QuadShape* left = AddQuadAt(scene, -1.0);
  QuadShape* right = AddQuadAt(scene, 1.0);
  left->ColorSet(0x0000FFUL);
  right->ColorSet(0.5, 0.25, 0.0, 1.0);
  scene.DrawGLShapes();
  EXPECT_TRUE(noGLError());
  saveFramebuffer();
  EXPECT_TRUE(colorNear(pixel(kLeft, kMiddle), Lit(1.0, 0.0, 0.0), 2));
  EXPECT_TRUE(colorNear(pixel(kRight, kMiddle), Lit(0.5, 0.25, 0.0), 2));
  EXPECT_EQ(pixel(kMiddle, kMiddle), kBlack);
  EXPECT_EQ(modelviewDepth(), 1);
}

TEST_F(SceneRender, SelectedShapeShowsTheHighlightColour) {
  CGLScene scene;
  QuadShape* plain = AddQuadAt(scene, -1.0);
  QuadShape* picked = AddQuadAt(scene, 1.0);
  plain->ColorSet(0.0, 0.0, 0.5, 1.0);
  picked->ColorSet(0.0, 0.0, 0.5, 1.0);
  scene.SelectGLShape(picked, 1);
  scene.DrawGLShapes();
  EXPECT_TRUE(noGLError());
  saveFramebuffer();
  EXPECT_TRUE(colorNear(pixel(kLeft, kMiddle), Lit(0.0, 0.0, 0.5), 2));
  EXPECT_TRUE(colorNear(pixel(kRight, kMiddle), Lit(0.0, 1.0, 0.0), 2));
}

TEST_F(SceneRender, HiddenShapesAndHiddenScenesLeaveTheBackground) {
  CGLScene scene;
  auto* q = new QuadShape(1.5f);
  scene.AddGLShape(q);
  scene.ShowGLShape(q, 0);
  scene.DrawGLShapes();
  EXPECT_EQ(countDrawnPixels(), 0u);
  scene.ShowGLShape(q, 1);
  scene.ShowGLShapes(0);
  scene.DrawGLShapes();
  EXPECT_EQ(countDrawnPixels(), 0u);
  scene.ShowGLShapes(1);
  scene.DrawGLShapes();
  EXPECT_GT(countDrawnPixels(), 0u);
  EXPECT_TRUE(noGLError());
}

}  // namespace
