// The double beside the real libGL, as a host's test links it through Lumagrid::lumagrid: a call
// the double lacks reaches libGL, and unrecordedEntryPoints() must name it, and only it.
#include <GL/gl.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>

TEST(GLRecorderUnrecorded, ProgramWithLibGLNamesTheCallTheDoubleLacks) {
  glrecorder::recorder().reset();
  glEnable(GL_LIGHTING);  // the double's
  glPointSize(2.0f);      // libGL's: no context, so nothing happens
  EXPECT_EQ(glrecorder::recorder().count("glEnable"), 1u);
  EXPECT_EQ(glrecorder::unrecordedEntryPoints(), std::vector<std::string>{"glPointSize"});
}
