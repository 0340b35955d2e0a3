#include <lumagrid/CGLParams.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "recorded/RecordedTest.h"

namespace {

using glrecorder::en;
using glrecorder::line;
using glrecorder::LinesEq;

class Params : public RecordedTest {
 protected:
  // An orthographic projection, left current in the given mode.
  static void Ortho(double l, double r, double b, double t, double n, double f, GLenum mode) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(l, r, b, t, n, f);
    glMatrixMode(mode);
    glrecorder::recorder().clearCalls();
  }
};

TEST_F(Params, GetClippingPlanesInvertsTheOrthographicDepthTerms) {
  Ortho(-1, 1, -1, 1, 1, 100, GL_MODELVIEW);
  double n = 0.0;
  double f = 0.0;
  CGLParams::GetClippingPlanes(n, f);
  EXPECT_NEAR(n, 1.0, 1e-12);
  EXPECT_NEAR(f, 100.0, 1e-12);
  const auto proj = glrecorder::recorder().matrix(GL_PROJECTION);
  EXPECT_EQ(n, (proj[14] + 1.0) / proj[10]);
  EXPECT_EQ(f, n - 2.0 / proj[10]);
  EXPECT_THAT(glrecorder::recorder().log(),
              ::testing::ElementsAre(::testing::StartsWith("glGetDoublev(GL_PROJECTION_MATRIX")));
}

TEST_F(Params, SetClippingPlanesRewritesOnlyTheDepthTerms) {
  Ortho(-3, 5, -2, 4, 1, 100, GL_MODELVIEW);
  const auto before = glrecorder::recorder().matrix(GL_PROJECTION);
  CGLParams::SetClippingPlanes(2.0, 50.0);
  auto expected = before;
  expected[10] = -2.0 / (50.0 - 2.0);
  expected[14] = -(50.0 + 2.0) / (50.0 - 2.0);
  EXPECT_THAT(glrecorder::recorder().log(),
              LinesEq({
                  line("glGetDoublev", en(GL_PROJECTION_MATRIX)),
                  "glMatrixMode(GL_PROJECTION)",
                  "glLoadIdentity()",
                  line("glMultMatrixd", glrecorder::doubles(expected.data(), 16)),
                  "glMatrixMode(GL_MODELVIEW)",
              }));
  const auto after = glrecorder::recorder().matrix(GL_PROJECTION);
  for (int i : {0, 5, 12, 13}) {
    EXPECT_EQ(after[static_cast<std::size_t>(i)], before[static_cast<std::size_t>(i)]) << i;
  }
  double n = 0.0;
  double f = 0.0;
  CGLParams::GetClippingPlanes(n, f);
  EXPECT_NEAR(n, 2.0, 1e-12);
  EXPECT_NEAR(f, 50.0, 1e-12);
}

TEST_F(Params, SetClippingPlanesLeavesModelViewCurrentWhateverCameBefore) {
  Ortho(-1, 1, -1, 1, 1, 100, GL_PROJECTION);
  ASSERT_EQ(glrecorder::recorder().matrixMode(), static_cast<GLenum>(GL_PROJECTION));
  CGLParams::SetClippingPlanes(1.0, 10.0);
  EXPECT_EQ(glrecorder::recorder().matrixMode(), static_cast<GLenum>(GL_MODELVIEW));
  EXPECT_EQ(glrecorder::recorder().stackDepth(GL_MODELVIEW), 1);
}

TEST_F(Params, EqualPlanesLoadInfiniteTermsUnchecked) {
  Ortho(-1, 1, -1, 1, 1, 100, GL_MODELVIEW);
  CGLParams::SetClippingPlanes(5.0, 5.0);
  const auto after = glrecorder::recorder().matrix(GL_PROJECTION);
  EXPECT_TRUE(std::isinf(after[10]));
  EXPECT_TRUE(std::isinf(after[14]));
}

TEST_F(Params, ZeroDepthScaleYieldsNonFiniteDistances) {
  Ortho(-1, 1, -1, 1, 1, 100, GL_MODELVIEW);
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glScalef(1.0f, 1.0f, 0.0f);
  glMatrixMode(GL_MODELVIEW);
  double n = 0.0;
  double f = 0.0;
  CGLParams::GetClippingPlanes(n, f);
  EXPECT_FALSE(std::isfinite(n));
  EXPECT_FALSE(std::isfinite(f));
}

TEST(ParamsShape, HasNoDataButAVirtualDestructor) {
  static_assert(std::has_virtual_destructor<CGLParams>::value, "virtual destructor");
  static_assert(sizeof(CGLParams) == sizeof(void*), "no data members");
  CGLParams a;
  CGLParams b(a);
  b = a;
}

}  // namespace
