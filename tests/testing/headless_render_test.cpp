#include <EGL/egl.h>
#include <GL/gl.h>
#include <GL/glu.h>

#include <gtest/gtest.h>

#include <lumagrid/CGLColor.h>

#include <string>

#include "realgl/RealGLTest.h"

namespace {

using headless::colorNear;
using headless::RealGLTest;
using HeadlessContext = RealGLTest;
using headless::Rgba;

TEST_F(HeadlessContext, ContextIsCurrentAndRunsOnLlvmpipe) {
  EXPECT_NE(eglGetCurrentContext(), EGL_NO_CONTEXT);
  EXPECT_NE(context().renderer().find("llvmpipe"), std::string::npos) << context().renderer();
  EXPECT_TRUE(noGLError());
}

TEST_F(HeadlessContext, DefaultStateIsTheDocumentedScene) {
  GLint viewport[4] = {};
  glGetIntegerv(GL_VIEWPORT, viewport);
  EXPECT_EQ(viewport[2], 128);
  EXPECT_EQ(viewport[3], 128);
  GLdouble projection[16];
  glGetDoublev(GL_PROJECTION_MATRIX, projection);
  EXPECT_DOUBLE_EQ(projection[0], 0.5);
  EXPECT_DOUBLE_EQ(projection[5], 0.5);
  EXPECT_FLOAT_EQ(static_cast<float>(projection[10]), -0.1f);  // Mesa keeps matrices in floats
  GLint mode = 0;
  glGetIntegerv(GL_MATRIX_MODE, &mode);
  EXPECT_EQ(mode, GL_MODELVIEW);
  EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
  EXPECT_TRUE(glIsEnabled(GL_LIGHT0));
  EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
  EXPECT_TRUE(glIsEnabled(GL_NORMALIZE));
  EXPECT_EQ(centrePixel(), (Rgba{0, 0, 0, 255}));
  EXPECT_TRUE(noGLError());
}

TEST_F(HeadlessContext, ClearColourReadsBack) {
  glClearColor(1.0f, 0.5f, 0.0f, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT);
  EXPECT_TRUE(colorNear(pixel(0, 0), Rgba{255, 128, 0, 255}, 1));
  EXPECT_TRUE(colorNear(pixel(127, 127), Rgba{255, 128, 0, 255}, 1));
  EXPECT_EQ(countPixels([](const Rgba& p) { return p.r == 255 && p.b == 0; }), 128u * 128u);
  EXPECT_TRUE(noGLError());
}

TEST_F(HeadlessContext, LitSphereCoversTheCentreAndLeavesTheCorners) {
  GLUquadric* quadric = gluNewQuadric();
  gluSphere(quadric, 1.0, 32, 16);
  gluDeleteQuadric(quadric);

  // Lit head-on by the default material: ambient 0.2 x 0.2 plus diffuse 0.8 x 1.
  const Rgba centre = centrePixel();
  EXPECT_TRUE(colorNear(centre, Rgba{214, 214, 214, 255}, 3));
  EXPECT_EQ(pixel(0, 0), (Rgba{0, 0, 0, 255}));
  EXPECT_EQ(pixel(127, 127), (Rgba{0, 0, 0, 255}));
  // A unit sphere under a 4 x 4 view covers pi / 16 of the framebuffer.
  const double covered = static_cast<double>(countDrawnPixels()) / (128.0 * 128.0);
  EXPECT_NEAR(covered, 3.14159265 / 16.0, 0.01);
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(HeadlessContext, DisplayListOfGluGeometryReplays) {
  GLUquadric* quadric = gluNewQuadric();
  const GLuint list = glGenLists(1);
  ASSERT_NE(list, 0u);
  glNewList(list, GL_COMPILE);
  gluSphere(quadric, 0.5, 16, 8);
  glEndList();
  EXPECT_EQ(centrePixel(), (Rgba{0, 0, 0, 255}));  // compiled, not drawn
  glTranslated(1.0, 0.0, 0.0);
  glCallList(list);
  glDeleteLists(list, 1);
  gluDeleteQuadric(quadric);
  // Centred at x = 1, that is at pixel 96 of 128.
  EXPECT_NE(pixel(96, 64), (Rgba{0, 0, 0, 255}));
  EXPECT_EQ(centrePixel(), (Rgba{0, 0, 0, 255}));
  EXPECT_TRUE(noGLError());
}

TEST_F(HeadlessContext, LibraryGlCallsReachTheContext) {
  // liblumagrid.so calls glMaterialfv through its own link to libGL.
  CGLColor colour(0.25, 0.5, 0.75, 1.0);
  colour.GLColor();
  GLfloat diffuse[4] = {};
  glGetMaterialfv(GL_FRONT, GL_DIFFUSE, diffuse);
  EXPECT_FLOAT_EQ(diffuse[0], 0.25f);
  EXPECT_FLOAT_EQ(diffuse[1], 0.5f);
  EXPECT_FLOAT_EQ(diffuse[2], 0.75f);
  EXPECT_TRUE(noGLError());
}

TEST_F(HeadlessContext, NoGLErrorReportsPendingErrors) {
  glPopMatrix();  // at depth 1
  const ::testing::AssertionResult result = noGLError();
  EXPECT_FALSE(result);
  EXPECT_STREQ(result.message(), "glGetError reported GL_STACK_UNDERFLOW");
  EXPECT_TRUE(noGLError());
}

TEST_F(HeadlessContext, EachTestStartsFromAFreshContext) {
  // Runs after tests that translated the modelview matrix and changed the clear colour.
  GLdouble modelview[16];
  glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
  EXPECT_EQ(modelview[12], 0.0);
  GLfloat clear[4];
  glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
  EXPECT_EQ(clear[0], 0.0f);
  GLint depth = 0;
  glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
  EXPECT_EQ(depth, 1);
}

class SmallFramebuffer : public RealGLTest {
 protected:
  int framebufferWidth() const override { return 16; }
  int framebufferHeight() const override { return 8; }
};

TEST_F(SmallFramebuffer, FramebufferSizeCanBeChosen) {
  EXPECT_EQ(context().width(), 16);
  EXPECT_EQ(context().height(), 8);
  EXPECT_EQ(context().readPixels().size(), 128u);
  GLint viewport[4] = {};
  glGetIntegerv(GL_VIEWPORT, viewport);
  EXPECT_EQ(viewport[2], 16);
  EXPECT_EQ(viewport[3], 8);
}

}  // namespace
