#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLParams.h>
#include <lumagrid/CGLScene.h>

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <vector>

#include "core_probes.h"
#include "realgl/RealGLTest.h"

namespace {

using headless::colorNear;
using headless::Rgba;

// The fixture's ortho(-2, 2) maps x = -1 and x = 1 to these columns of 128.
constexpr int kLeft = 32;
constexpr int kRight = 96;
constexpr int kMiddle = 64;

// Lit head-on by the fixture's white light with the default ambient model:
// each channel shows 1.2 times the material colour, clamped.
Rgba Lit(double r, double g, double b) {
  auto c = [](double v) {
    const double x = v * 1.2 > 1.0 ? 1.0 : v * 1.2;
    return static_cast<std::uint8_t>(x * 255.0 + 0.5);
  };
  return Rgba{c(r), c(g), c(b), 255};
}

const Rgba kBlack{0, 0, 0, 255};

class CoreRenderTest : public headless::RealGLTest {};

GLint ModelViewDepth() {
  GLint depth = 0;
  glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
  return depth;
}

TEST_F(CoreRenderTest, SceneDrawsEachShapeInItsMaterialColour) {
  CGLScene scene;
  auto* left = new QuadShape(0.5f);
  auto* right = new QuadShape(0.5f);
  left->Move(-1.0, 0.0, 0.0);
  right->Move(1.0, 0.0, 0.0);
  left->ColorSet(0x0000FFUL);
  right->ColorSet(0.5, 0.25, 0.0, 1.0);
  scene.AddGLShape(left);
  scene.AddGLShape(right);
  scene.DrawGLShapes();
  EXPECT_TRUE(noGLError());
  saveFramebuffer();
  EXPECT_TRUE(colorNear(pixel(kLeft, kMiddle), Lit(1.0, 0.0, 0.0), 2));
  EXPECT_TRUE(colorNear(pixel(kRight, kMiddle), Lit(0.5, 0.25, 0.0), 2));
  EXPECT_EQ(pixel(kMiddle, kMiddle), kBlack);
  EXPECT_EQ(ModelViewDepth(), 1);
}

TEST_F(CoreRenderTest, SelectedShapeShowsTheHighlightColour) {
  CGLScene scene;
  auto* plain = new QuadShape(0.5f);
  auto* picked = new QuadShape(0.5f);
  plain->Move(-1.0, 0.0, 0.0);
  picked->Move(1.0, 0.0, 0.0);
  plain->ColorSet(0.0, 0.0, 0.5, 1.0);
  picked->ColorSet(0.0, 0.0, 0.5, 1.0);
  scene.AddGLShape(plain);
  scene.AddGLShape(picked);
  scene.SelectGLShape(picked, 1);
  scene.DrawGLShapes();
  EXPECT_TRUE(noGLError());
  saveFramebuffer();
  EXPECT_TRUE(colorNear(pixel(kLeft, kMiddle), Lit(0.0, 0.0, 0.5), 2));
  EXPECT_TRUE(colorNear(pixel(kRight, kMiddle), Lit(0.0, 1.0, 0.0), 2));
}

TEST_F(CoreRenderTest, HiddenShapesAndHiddenScenesLeaveTheBackground) {
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

TEST_F(CoreRenderTest, ListIsCompiledOnceAndReplayedWithNewColours) {
  QuadShape q(1.0f);
  q.ColorSet(0x0000FFUL);
  q.Draw();
  const GLuint name = static_cast<GLuint>(q.m_nDisplayList);
  EXPECT_EQ(glIsList(name), GL_TRUE);
  EXPECT_FALSE(q.m_bModified);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  q.ColorSet(0xFF0000UL);
  q.Draw();
  EXPECT_EQ(static_cast<GLuint>(q.m_nDisplayList), name);
  EXPECT_TRUE(colorNear(centrePixel(), Lit(0.0, 0.0, 1.0), 2));
  EXPECT_TRUE(noGLError());
}

TEST_F(CoreRenderTest, CopyDrawsThroughTheSharedListAndDestructionDeletesIt) {
  GLuint name = 0;
  {
    QuadShape q(1.0f);
    q.Draw();
    name = static_cast<GLuint>(q.m_nDisplayList);
    QuadShape copy(q);
    copy.ColorSet(0.0, 1.0, 0.0, 1.0);
    copy.m_bModified = false;  // a copy of a current shape replays the list as it is
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    copy.Draw();
    EXPECT_TRUE(colorNear(centrePixel(), Lit(0.0, 1.0, 0.0), 2));
    copy.m_nDisplayList = -1;  // leave the deletion to the original
  }
  EXPECT_EQ(glIsList(name), GL_FALSE);
  EXPECT_TRUE(noGLError());
}

TEST_F(CoreRenderTest, DirectDrawMatchesTheListDraw) {
  QuadShape q(1.0f);
  q.ColorSet(0.25, 0.5, 0.75, 1.0);
  EXPECT_EQ(q.DrawDirect(), 0);
  EXPECT_EQ(q.m_nDisplayList, -1);
  const std::vector<Rgba> direct = context().readPixels();
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  q.Draw();
  EXPECT_TRUE(context().readPixels() == direct);
  EXPECT_TRUE(colorNear(centrePixel(), Lit(0.25, 0.5, 0.75), 2));
  EXPECT_TRUE(noGLError());
}

TEST_F(CoreRenderTest, GroupDrawWithoutASpareMatrixUnderflows) {
  CGLGroup group;
  group.Add(new QuadShape(0.5f));
  ASSERT_EQ(ModelViewDepth(), 1);
  group.Draw();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_STACK_UNDERFLOW));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_EQ(ModelViewDepth(), 1);
  EXPECT_GT(countDrawnPixels(), 0u);  // the member is drawn all the same
}

TEST_F(CoreRenderTest, HostKeepingASpareMatrixDrawsAGroupWithoutError) {
  CGLGroup group;
  auto* member = new QuadShape(0.5f);
  member->ColorSet(0x00FF00UL);
  group.Add(member);
  group.Move(1.0, 0.0, 0.0);
  glPushMatrix();  // the spare matrix the group's extra pop takes
  group.Draw();
  EXPECT_TRUE(noGLError());
  EXPECT_EQ(ModelViewDepth(), 1);
  EXPECT_TRUE(colorNear(pixel(kRight, kMiddle), Lit(0.0, 1.0, 0.0), 2));
  EXPECT_EQ(pixel(kLeft, kMiddle), kBlack);
}

// ---------------------------------------------------------------- clipping planes

class ClippingPlanesTest : public headless::RealGLTest {
 protected:
  static void Projection(double m[16]) { glGetDoublev(GL_PROJECTION_MATRIX, m); }
  static void LoadOrtho(double l, double r, double b, double t, double n, double f) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(l, r, b, t, n, f);
    glMatrixMode(GL_MODELVIEW);
  }
};

TEST_F(ClippingPlanesTest, OrthoPlanesAreReadBack) {
  LoadOrtho(-1, 1, -1, 1, 1, 100);
  double n = 0.0;
  double f = 0.0;
  CGLParams::GetClippingPlanes(n, f);
  // GL keeps the matrix in single precision.
  EXPECT_NEAR(n, 1.0, 1e-5);
  EXPECT_NEAR(f, 100.0, 1e-4);
  EXPECT_TRUE(noGLError());
}

TEST_F(ClippingPlanesTest, SetThenGetRoundTripsAndKeepsTheOtherTerms) {
  LoadOrtho(-3, 5, -2, 4, 1, 100);
  double before[16];
  Projection(before);
  CGLParams::SetClippingPlanes(2.0, 50.0);
  double after[16];
  Projection(after);
  for (int i : {0, 5, 12, 13}) {
    EXPECT_EQ(after[i], before[i]) << "element " << i;
  }
  EXPECT_EQ(after[10], static_cast<double>(static_cast<float>(-2.0 / 48.0)));
  EXPECT_EQ(after[14], static_cast<double>(static_cast<float>(-52.0 / 48.0)));
  double n = 0.0;
  double f = 0.0;
  CGLParams::GetClippingPlanes(n, f);
  EXPECT_NEAR(n, 2.0, 1e-5);
  EXPECT_NEAR(f, 50.0, 1e-4);
  EXPECT_TRUE(noGLError());
}

TEST_F(ClippingPlanesTest, ModelViewIsCurrentAfterwardsEvenFromProjection) {
  LoadOrtho(-1, 1, -1, 1, 1, 100);
  glMatrixMode(GL_PROJECTION);
  CGLParams::SetClippingPlanes(1.0, 10.0);
  GLint mode = 0;
  glGetIntegerv(GL_MATRIX_MODE, &mode);
  EXPECT_EQ(mode, GL_MODELVIEW);
  EXPECT_TRUE(noGLError());
}

TEST_F(ClippingPlanesTest, NewFarPlaneClipsGeometryBeyondIt) {
  LoadOrtho(-2, 2, -2, 2, -10, 10);
  CGLParams::SetClippingPlanes(1.0, 4.0);
  QuadShape q(1.0f);
  q.MoveTo(0.0, 0.0, -5.0);  // 5 in front of the eye: beyond the far plane
  q.Draw();
  EXPECT_EQ(countDrawnPixels(), 0u);
  q.MoveTo(0.0, 0.0, -2.0);
  q.Draw();
  EXPECT_GT(countDrawnPixels(), 0u);
  EXPECT_TRUE(noGLError());
}

}  // namespace
