// The entry points a host calls around a draw: recorded, and their state read back.
#include <GL/gl.h>
#include <GL/glu.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>

#include "recorded/RecorderFixture.h"

namespace {

using GLRecorderHost = RecorderFixture;

TEST_F(GLRecorderHost, PerspectiveIsGlusMatrix) {
  glMatrixMode(GL_PROJECTION);
  gluPerspective(90.0, 2.0, 1.0, 3.0);
  // cot(45 degrees) = 1: x scaled by 1 / aspect, depth mapped from [-1, -3] to [-1, 1].
  expectMatrixNear(rec().matrix(GL_PROJECTION),
                   {0.5, 0, 0, 0, 0, 1, 0, 0, 0, 0, -2, -1, 0, 0, -3, 0});
  EXPECT_EQ(rec().log().back(), glrecorder::line("gluPerspective", 90.0, 2.0, 1.0, 3.0));
}

TEST_F(GLRecorderHost, DegeneratePerspectiveLeavesTheMatrix) {
  gluPerspective(60.0, 0.0, 1.0, 10.0);
  expectMatrixNear(rec().matrix(GL_MODELVIEW), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
}

TEST_F(GLRecorderHost, LookAtMovesTheEyeToTheOriginLookingDownMinusZ) {
  gluLookAt(0.0, -5.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0);
  // World +y is the view direction (-z in eye space), world +z is up (+y).
  expectMatrixNear(rec().matrix(GL_MODELVIEW), {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, -5, 1});
}

TEST_F(GLRecorderHost, FrustumAndLoadMatrix) {
  glFrustum(-1.0, 1.0, -1.0, 1.0, 1.0, 3.0);
  expectMatrixNear(rec().matrix(GL_MODELVIEW), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -2, -1, 0, 0, -3, 0});
  glFrustum(-1.0, 1.0, -1.0, 1.0, 0.0, 3.0);
  EXPECT_EQ(rec().pendingError(), static_cast<GLenum>(GL_INVALID_VALUE));

  const GLfloat m[16] = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 2, 3, 1};
  glLoadMatrixf(m);
  expectMatrixNear(rec().matrix(GL_MODELVIEW), {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 2, 3, 1});
}

TEST_F(GLRecorderHost, FramebufferStateReadsBack) {
  glViewport(0, 0, 640, 480);
  glClearColor(0.25f, 2.0f, -1.0f, 1.0f);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glDepthMask(GL_FALSE);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

  EXPECT_EQ(rec().get(GL_VIEWPORT), (std::vector<double>{0, 0, 640, 480}));
  EXPECT_EQ(rec().get(GL_COLOR_CLEAR_VALUE), (std::vector<double>{0.25, 1, 0, 1}));
  EXPECT_EQ(rec().get(GL_BLEND_SRC), (std::vector<double>{GL_SRC_ALPHA}));
  EXPECT_EQ(rec().get(GL_BLEND_DST), (std::vector<double>{GL_ONE_MINUS_SRC_ALPHA}));
  EXPECT_EQ(rec().get(GL_DEPTH_WRITEMASK), (std::vector<double>{0}));
  EXPECT_EQ(rec().pendingError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_LINES((std::vector<std::string>{
                   glrecorder::line("glViewport", 0, 0, 640, 480),
                   glrecorder::line("glClearColor", 0.25f, 2.0f, -1.0f, 1.0f),
                   glrecorder::line("glBlendFunc", glrecorder::en(GL_SRC_ALPHA),
                                    glrecorder::en(GL_ONE_MINUS_SRC_ALPHA)),
                   glrecorder::line("glDepthMask", 0),
                   glrecorder::line("glClear", GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT),
               }),
               rec().log());
}

TEST_F(GLRecorderHost, GetFloatvAnswersLikeGetDoublev) {
  glViewport(1, 2, 3, 4);
  GLfloat v[4] = {};
  glGetFloatv(GL_VIEWPORT, v);
  EXPECT_EQ((std::array<float, 4>{v[0], v[1], v[2], v[3]}),
            (std::array<float, 4>{1.0f, 2.0f, 3.0f, 4.0f}));
  EXPECT_TRUE(rec().get(GL_TEXTURE_ENV_MODE).empty());
  GLfloat unknown = 7.0f;
  glGetFloatv(GL_TEXTURE_ENV_MODE, &unknown);
  EXPECT_EQ(unknown, 7.0f);
  EXPECT_EQ(rec().pendingError(), static_cast<GLenum>(GL_INVALID_ENUM));
}

TEST_F(GLRecorderHost, LightPositionIsKeptInEyeCoordinates) {
  EXPECT_EQ(rec().light(GL_LIGHT0, GL_DIFFUSE), (std::array<float, 4>{1, 1, 1, 1}));
  EXPECT_EQ(rec().light(GL_LIGHT1, GL_DIFFUSE), (std::array<float, 4>{0, 0, 0, 1}));

  glTranslated(1.0, 2.0, 3.0);
  const GLfloat point[] = {1.0f, 0.0f, 0.0f, 1.0f};
  glLightfv(GL_LIGHT1, GL_POSITION, point);
  EXPECT_EQ(rec().light(GL_LIGHT1, GL_POSITION), (std::array<float, 4>{2, 2, 3, 1}));
  const GLfloat direction[] = {0.0f, 0.0f, 1.0f, 0.0f};
  glLightfv(GL_LIGHT0, GL_POSITION, direction);
  EXPECT_EQ(rec().light(GL_LIGHT0, GL_POSITION), (std::array<float, 4>{0, 0, 1, 0}));

  glLightfv(GL_LIGHT0 + 8, GL_POSITION, point);
  EXPECT_EQ(rec().pendingError(), static_cast<GLenum>(GL_INVALID_ENUM));
}

TEST_F(GLRecorderHost, HostCommandsAreCompiledIntoListsAndReplayed) {
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  glViewport(0, 0, 10, 10);
  glEndList();
  EXPECT_EQ(rec().get(GL_VIEWPORT), (std::vector<double>{0, 0, 0, 0}));
  glCallList(list);
  EXPECT_EQ(rec().get(GL_VIEWPORT), (std::vector<double>{0, 0, 10, 10}));
}

TEST_F(GLRecorderHost, FlushAndFinishAreRecordedOnly) {
  glFlush();
  glFinish();
  EXPECT_LINES((std::vector<std::string>{"glFlush()", "glFinish()"}), rec().log());
}

}  // namespace
