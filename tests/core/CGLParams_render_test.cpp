#include <lumagrid/CGLParams.h>

#include <GL/gl.h>
#include <gtest/gtest.h>

#include "realgl/RealGLTest.h"
#include "standin/QuadShape.h"

namespace {

class ParamsClippingPlanesRender : public headless::RealGLTest {
 protected:
  static void Projection(double m[16]) { glGetDoublev(GL_PROJECTION_MATRIX, m); }
  static void LoadOrtho(double l, double r, double b, double t, double n, double f) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(l, r, b, t, n, f);
    glMatrixMode(GL_MODELVIEW);
  }
  struct Planes {
    double n = 0.0;
    double f = 0.0;
  };
  static Planes ReadPlanes() {
    Planes p;
    CGLParams::GetClippingPlanes(p.n, p.f);
    return p;
  }
};

TEST_F(ParamsClippingPlanesRender, OrthoPlanesAreReadBack) {
  LoadOrtho(-1, 1, -1, 1, 1, 100);
  const Planes planes = ReadPlanes();
  // GL keeps the matrix in single precision.
  EXPECT_NEAR(planes.n, 1.0, 1e-5);
  EXPECT_NEAR(planes.f, 100.0, 1e-4);
  EXPECT_TRUE(noGLError());
}

TEST_F(ParamsClippingPlanesRender, SetThenGetRoundTripsAndKeepsTheOtherTerms) {
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
  const Planes planes = ReadPlanes();
  EXPECT_NEAR(planes.n, 2.0, 1e-5);
  EXPECT_NEAR(planes.f, 50.0, 1e-4);
  EXPECT_TRUE(noGLError());
}

TEST_F(ParamsClippingPlanesRender, ModelViewIsCurrentAfterwardsEvenFromProjection) {
  LoadOrtho(-1, 1, -1, 1, 1, 100);
  glMatrixMode(GL_PROJECTION);
  CGLParams::SetClippingPlanes(1.0, 10.0);
  GLint mode = 0;
  glGetIntegerv(GL_MATRIX_MODE, &mode);
  EXPECT_EQ(mode, GL_MODELVIEW);
  EXPECT_TRUE(noGLError());
}

TEST_F(ParamsClippingPlanesRender, NewFarPlaneClipsGeometryBeyondIt) {
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
