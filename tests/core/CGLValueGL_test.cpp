#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLPoint.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core_probes.h"
#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "recorded/RecordedTest.h"

namespace {

using glrecorder::en;
using glrecorder::line;
using glrecorder::LinesEq;

class ValueGLTest : public RecordedTest {};

TEST_F(ValueGLTest, GLColorSetsTheFrontMaterialFromTheFloatCopy) {
  ColorProbe c(0.1, 1.0 / 3.0, 0.9, 0.25);
  c.GLColor();
  const std::array<float, 4> f = {0.1f, static_cast<float>(1.0 / 3.0), 0.9f, 0.25f};
  EXPECT_THAT(glrecorder::recorder().log(),
              LinesEq({line("glMaterialfv", en(GL_FRONT), en(GL_AMBIENT_AND_DIFFUSE), f)}));
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(c.GL()[i], f[static_cast<std::size_t>(i)]);
  }
  EXPECT_EQ(glrecorder::recorder().material(GL_FRONT, GL_AMBIENT), f);
  EXPECT_EQ(glrecorder::recorder().material(GL_FRONT, GL_DIFFUSE), f);
}

TEST_F(ValueGLTest, CopiesDoNotCarryTheFloatCopyUntilTheirOwnGLColor) {
  ColorProbe c(0.2, 0.4, 0.6, 0.8);
  c.GLColor();
  ColorProbe copy(c);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(copy.GL()[i], 0.0f);
  }
  ColorProbe assigned(0.7);
  assigned.GLColor();
  assigned = c;
  EXPECT_EQ(assigned.GL()[0], 0.7f);  // still its own last GLColor
  EXPECT_EQ(assigned.Red(), 0.2);
  copy.GLColor();
  EXPECT_EQ(copy.GL()[3], 0.8f);
}

TEST_F(ValueGLTest, GLTranslateAndGLScaleSendSinglePrecision) {
  const CGLPoint p(1.0 / 3.0, -2.5, 1e-3);
  EXPECT_EQ(p.GLTranslate(), 1);
  EXPECT_EQ(p.GLScale(), 1);
  const float x = static_cast<float>(1.0 / 3.0);
  EXPECT_THAT(glrecorder::recorder().log(), LinesEq({
                                                line("glTranslatef", x, -2.5f, 1e-3f),
                                                line("glScalef", x, -2.5f, 1e-3f),
                                            }));
}

TEST_F(ValueGLTest, GLRotateTurnsAboutXThenYThenZInDegrees) {
  const CGLPoint p(90.0, 0.0, 0.0);
  EXPECT_EQ(p.GLRotate(), 1);
  EXPECT_THAT(glrecorder::recorder().log(), LinesEq({
                                                "glRotatef(90, 1, 0, 0)",
                                                "glRotatef(0, 0, 1, 0)",
                                                "glRotatef(0, 0, 0, 1)",
                                            }));
  glrecorder::recorder().clearCalls();
  CGLPoint(10.0, 20.0, 30.0).GLRotate();
  EXPECT_THAT(glrecorder::recorder().log(), LinesEq({
                                                "glRotatef(10, 1, 0, 0)",
                                                "glRotatef(20, 0, 1, 0)",
                                                "glRotatef(30, 0, 0, 1)",
                                            }));
}

}  // namespace
