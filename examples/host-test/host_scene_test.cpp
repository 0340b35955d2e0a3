// The host's drawing code under test, without a GPU or a display: Lumagrid::glrecorder stands in
// for libGL, libGLU and libgle, records every call and answers what the code reads back.
#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "host_scene.h"

namespace {

glrecorder::Recorder& gl() {
  return glrecorder::recorder();
}

// Calls that took effect, with the lists glCallList replayed expanded in place.
std::size_t executedCount(const std::string& name) {
  std::size_t n = 0;
  for (const glrecorder::Call& call : gl().executedCalls()) {
    n += call.name == name ? 1 : 0;
  }
  return n;
}

class HostScene : public ::testing::Test {
 protected:
  // The recorder before the scene: the scene's quadrics are then named quad1, quad2...
  void SetUp() override { gl().reset(); }
};

// Lumagrid::lumagrid brings the real libGL along: a call the double lacks would reach it
// unrecorded. None does.
TEST_F(HostScene, EveryGLCallIsRecorded) {
  EXPECT_EQ(glrecorder::unrecordedEntryPoints(), std::vector<std::string>{});
}

TEST_F(HostScene, SetsUpTheViewBeforeDrawing) {
  CGLScene scene;
  host::buildScene(scene);
  gl().clearCalls();  // the shapes' construction is not the frame's business
  host::drawFrame(scene, 640, 480);

  const std::vector<std::string> log = gl().log();
  ASSERT_GE(log.size(), 7u);
  EXPECT_LINES((std::vector<std::string>{
                   glrecorder::line("glViewport", 0, 0, 640, 480),
                   glrecorder::line("glClearColor", 0.1f, 0.1f, 0.1f, 1.0f),
                   glrecorder::line("glClear", GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT),
                   glrecorder::line("glMatrixMode", glrecorder::en(GL_PROJECTION)),
                   "glLoadIdentity()",
                   glrecorder::line("gluPerspective", 35.0, 640.0 / 480, 1.0, 20.0),
                   glrecorder::line("glMatrixMode", glrecorder::en(GL_MODELVIEW)),
               }),
               std::vector<std::string>(log.begin(), log.begin() + 7));
  EXPECT_EQ(gl().get(GL_VIEWPORT), (std::vector<double>{0, 0, 640, 480}));
  EXPECT_TRUE(gl().isEnabled(GL_LIGHTING));
  EXPECT_TRUE(gl().isEnabled(GL_DEPTH_TEST));
}

TEST_F(HostScene, LightStaysWithTheCamera) {
  CGLScene scene;
  host::drawFrame(scene, 640, 480);

  const std::array<float, 4> position = gl().light(GL_LIGHT0, GL_POSITION);
  EXPECT_EQ(position, (std::array<float, 4>{0.5f, 0.5f, 1.0f, 0.0f}));
}

TEST_F(HostScene, CompilesEachShapeOnceAndReplaysItAfterwards) {
  CGLScene scene;
  host::buildScene(scene);
  host::drawFrame(scene, 640, 480);
  EXPECT_EQ(gl().count("glNewList"), 2u);
  EXPECT_EQ(gl().count("gluSphere"), 1u);
  EXPECT_EQ(gl().count("gluCylinder"), 1u);

  gl().clearCalls();
  host::drawFrame(scene, 640, 480);
  EXPECT_EQ(gl().count("glNewList"), 0u);
  EXPECT_EQ(gl().count("glCallList"), 2u);
  // Replaying the lists draws the same geometry again.
  EXPECT_EQ(executedCount("gluSphere"), 1u);
}

TEST_F(HostScene, LeavesTheMatrixStacksAsItFoundThemWithoutErrors) {
  CGLScene scene;
  host::buildScene(scene);
  host::drawFrame(scene, 640, 480);

  EXPECT_EQ(gl().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(gl().stackDepth(GL_PROJECTION), 1);
  EXPECT_EQ(gl().matrixMode(), static_cast<GLenum>(GL_MODELVIEW));
  EXPECT_EQ(gl().underflows(), 0);
  EXPECT_EQ(gl().overflows(), 0);
  EXPECT_EQ(gl().pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

}  // namespace
