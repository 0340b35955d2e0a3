#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/CGLSphere.h>

#include <GL/gl.h>

#include <gtest/gtest.h>

#include <string>

#include "render/OrthoRenderTest.h"

namespace {

using headless::Rgba;

const double kHalfPi = 1.5707963267948966;
const unsigned long kRed = 0x0000FFUL;
const unsigned long kGreen = 0x00FF00UL;
const unsigned long kBlue = 0xFF0000UL;

enum class Channel { Red, Green, Blue };

class QuadricRender : public OrthoRenderTest {
 protected:
  // Lit by a pure-colour material: that channel is bright, the others dark.
  static ::testing::AssertionResult litIn(const Rgba& p, Channel c) {
    const int r = p.r, g = p.g, b = p.b;
    const int main = c == Channel::Red ? r : c == Channel::Green ? g : b;
    const int other = c == Channel::Red ? g + b : c == Channel::Green ? r + b : r + g;
    if (main > 100 && other == 0) {
      return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << headless::toString(p);
  }

  // Shapes drawn through a scene, as a host does.
  CGLScene scene;
};

TEST_F(QuadricRender, SphereCoversTheCentreAndNotTheCorners) {
  auto* sphere = new CGLSphere(1.0);
  sphere->ColorSet(kRed);
  scene.AddGLShape(sphere);
  scene.DrawGLShapes();

  EXPECT_TRUE(litIn(centrePixel(), Channel::Red));
  EXPECT_FALSE(drawn(pixel(0, 0)));
  EXPECT_FALSE(drawn(pixel(127, 127)));
  EXPECT_TRUE(drawn(at(0.9, 0.0)));
  EXPECT_FALSE(drawn(at(1.1, 0.0)));
  const double covered = static_cast<double>(countDrawnPixels()) / (128.0 * 128.0);
  EXPECT_NEAR(covered, 3.14159265 / 16.0, 0.01);
  EXPECT_EQ(modelviewDepth(), 1);
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(QuadricRender, SecondDrawReplaysTheSameSphere) {
  auto* sphere = new CGLSphere(0.5);
  sphere->ColorSet(kGreen);
  scene.AddGLShape(sphere);
  scene.DrawGLShapes();
  const std::size_t first = countDrawnPixels();
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  scene.DrawGLShapes();
  EXPECT_EQ(countDrawnPixels(), first);
  EXPECT_TRUE(litIn(centrePixel(), Channel::Green));
  EXPECT_TRUE(noGLError());
}

TEST_F(QuadricRender, CylinderStandsOnTheXYPlaneAndRisesAlongZ) {
  // Turned so that its axis runs up the screen: a 2 x 1 rectangle above y = 0.
  auto* cylinder = new CGLCylinder(1.0, 1.0, true);
  cylinder->ColorSet(kGreen);
  cylinder->RotateX(-kHalfPi);
  scene.AddGLShape(cylinder);
  scene.DrawGLShapes();

  EXPECT_TRUE(litIn(at(0.0, 0.5), Channel::Green));
  EXPECT_TRUE(drawn(at(0.9, 0.9)));
  EXPECT_TRUE(drawn(at(-0.9, 0.1)));
  EXPECT_FALSE(drawn(at(0.0, -0.2)));
  EXPECT_FALSE(drawn(at(0.0, 1.2)));
  EXPECT_FALSE(drawn(at(1.2, 0.5)));
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(QuadricRender, ClosedCylinderSeenEndOnShowsItsLitTopDisk) {
  auto* cylinder = new CGLCylinder(1.0, 1.0, true);
  cylinder->ColorSet(kBlue);
  scene.AddGLShape(cylinder);
  scene.DrawGLShapes();
  // The top disk faces the viewer and the light: lit head-on.
  EXPECT_TRUE(litIn(centrePixel(), Channel::Blue));
  EXPECT_GT(centrePixel().b, 200);
  EXPECT_FALSE(drawn(at(1.2, 0.0)));
  EXPECT_TRUE(noGLError());
}

TEST_F(QuadricRender, ConeNarrowsToItsApex) {
  auto* cone = new CGLCone(1.0, 2.0, true);
  cone->ColorSet(kBlue);
  cone->Move(0.0, -1.0, 0.0);
  cone->RotateX(-kHalfPi);
  scene.AddGLShape(cone);
  scene.DrawGLShapes();

  // Base at y = -1, apex at y = 1: half width 1 - (y + 1) / 2.
  EXPECT_TRUE(litIn(at(0.0, -0.5), Channel::Blue));
  EXPECT_TRUE(drawn(at(0.6, -0.9)));
  EXPECT_TRUE(drawn(at(0.0, 0.8)));
  EXPECT_FALSE(drawn(at(0.6, 0.5)));
  EXPECT_FALSE(drawn(at(0.0, 1.2)));
  EXPECT_FALSE(drawn(at(0.0, -1.2)));
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

// An arrow along +z turned onto +x and shifted left: from x = -1.5, shaft
// to x = 0.9 with radius 0.2, head from 0.9 to 1.5 with base radius 0.5.
// Lifted by half a pixel so that a line shaft runs through pixel centres.
CGLArrow* SideArrow(bool lite) {
  auto* arrow = new CGLArrow(3.0, 0.5, lite, 1, 0.8, 0.4);
  arrow->ColorSet(kRed);
  arrow->Move(-1.5, 1.0 / 64.0, 0.0);
  arrow->RotateY(kHalfPi);
  return arrow;
}

TEST_F(QuadricRender, ArrowSeenFromTheSideHasAThinShaftAndAWideHead) {
  scene.AddGLShape(SideArrow(false));
  scene.DrawGLShapes();

  EXPECT_TRUE(litIn(at(0.0, 0.0), Channel::Red));  // shaft
  EXPECT_TRUE(drawn(at(-1.4, 0.1)));
  EXPECT_FALSE(drawn(at(0.0, 0.3)));  // beside the shaft
  EXPECT_TRUE(drawn(at(1.0, 0.35)));  // the head is wider
  EXPECT_TRUE(drawn(at(1.4, 0.0)));
  EXPECT_FALSE(drawn(at(1.6, 0.0)));  // past the tip
  EXPECT_FALSE(drawn(at(-1.6, 0.0)));
  EXPECT_EQ(modelviewDepth(), 1);
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(QuadricRender, ArrowDrawDirectCoversTheSamePixelsAsDraw) {
  CGLArrow* listed = SideArrow(false);
  scene.AddGLShape(listed);
  scene.DrawGLShapes();
  const std::vector<Rgba> viaList = context().readPixels();

  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  CGLArrow* direct = SideArrow(false);
  EXPECT_EQ(direct->DrawDirect(), 0);
  delete direct;
  EXPECT_EQ(context().readPixels(), viaList);
  EXPECT_TRUE(noGLError());
}

TEST_F(QuadricRender, LiteArrowHasALineShaftAndAPyramidHead) {
  scene.AddGLShape(SideArrow(true));
  scene.DrawGLShapes();
  EXPECT_TRUE(drawn(at(0.0, 0.0)));   // the line
  EXPECT_FALSE(drawn(at(0.0, 0.1)));  // no solid shaft
  EXPECT_TRUE(litIn(at(1.0, 0.0), Channel::Red));
  EXPECT_FALSE(drawn(at(1.6, 0.0)));
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(QuadricRender, AxisTriadPointsAlongXAndYAndAtTheViewer) {
  auto* axis = new CGLAxis(1.5, 0.15, false);
  axis->ColorSet(kGreen);
  scene.AddGLShape(axis);
  // A group pops once more than it pushes: keep a spare matrix.
  glPushMatrix();
  scene.DrawGLShapes();
  EXPECT_EQ(modelviewDepth(), 1);

  EXPECT_TRUE(litIn(at(0.8, 0.0), Channel::Green));  // x arrow
  EXPECT_TRUE(litIn(at(0.0, 0.8), Channel::Green));  // y arrow
  EXPECT_TRUE(drawn(at(1.3, 0.0)));
  EXPECT_TRUE(drawn(at(0.0, 1.3)));
  EXPECT_FALSE(drawn(at(-0.8, 0.0)));
  EXPECT_FALSE(drawn(at(0.0, -0.8)));
  EXPECT_FALSE(drawn(at(0.8, 0.8)));
  // The z arrow points at the viewer: its heads cover the origin.
  EXPECT_TRUE(litIn(centrePixel(), Channel::Green));
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

TEST_F(QuadricRender, AxisTriadWithoutASpareMatrixUnderflows) {
  scene.AddGLShape(new CGLAxis());
  scene.DrawGLShapes();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_STACK_UNDERFLOW));
  EXPECT_TRUE(noGLError());
}

}  // namespace
