#include <lumagrid/CGLMatrixGuard.h>

#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLBelt.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLScene.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <GL/gl.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "recorded/RecordedTest.h"
#include "standin/QuadShape.h"

namespace {

using glrecorder::en;
using glrecorder::line;

class MatrixGuard : public RecordedTest {
 protected:
  // The host's own matrix, which a draw must not leave behind changed.
  void SetUp() override {
    RecordedTest::SetUp();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslated(1.0, 2.0, 3.0);
    m_hostMatrix = glrecorder::recorder().matrix(GL_MODELVIEW);
  }

  static int Depth() { return glrecorder::recorder().stackDepth(GL_MODELVIEW); }

  glrecorder::Matrix m_hostMatrix{};
};

// A group that moves its members, so that a lost matrix would show.
CGLGroup* MovedGroup() {
  auto* group = new CGLGroup;
  group->Move(0.5, 0.5, 0.5);
  group->Add(new QuadShape);
  return group;
}

TEST_F(MatrixGuard, GroupDrawWithoutGuardUnderflows) {
  std::unique_ptr<CGLGroup> group(MovedGroup());
  group->Draw();
  EXPECT_EQ(1, glrecorder::recorder().underflows(GL_MODELVIEW));
  EXPECT_EQ(GL_STACK_UNDERFLOW, glGetError());
}

// A host that pushes its camera and draws, without a spare matrix, a group and then a shape.
struct CameraFrame {
  double memberZ;  // eye z of the group's member
  double laterZ;   // eye z of the shape drawn after the group
  int underflows;  // after the host's own closing pop
};

CameraFrame DrawUnderPushedCamera(bool guarded) {
  const int underflowsBefore = glrecorder::recorder().underflows(GL_MODELVIEW);
  glLoadIdentity();
  glPushMatrix();
  glTranslated(0.0, 0.0, -5.0);  // the camera
  glrecorder::recorder().clearCalls();
  std::unique_ptr<CGLGroup> group(new CGLGroup);
  group->Add(new QuadShape);
  QuadShape later;
  {
    std::unique_ptr<CGLMatrixGuard> guard(guarded ? new CGLMatrixGuard(1) : nullptr);
    group->Draw();
    later.Draw();
  }
  glPopMatrix();
  const std::vector<glrecorder::Primitive>& drawn = glrecorder::recorder().primitives();
  if (drawn.size() != 2) {
    ADD_FAILURE() << drawn.size() << " primitives";
    return {};
  }
  return {drawn[0].eyeVertices[0][2], drawn[1].eyeVertices[0][2],
          glrecorder::recorder().underflows(GL_MODELVIEW) - underflowsBefore};
}

TEST_F(MatrixGuard, WithoutSpareMatrixShapesAfterAGroupLoseAPushedCamera) {
  const CameraFrame bare = DrawUnderPushedCamera(false);
  EXPECT_EQ(bare.memberZ, -5.0);  // members are drawn before the extra pop
  EXPECT_EQ(bare.laterZ, 0.0);    // the camera was popped: drawn at the eye
  EXPECT_EQ(bare.underflows, 1);  // the host's own pop finds the stack empty
  const CameraFrame guarded = DrawUnderPushedCamera(true);
  EXPECT_EQ(guarded.memberZ, -5.0);
  EXPECT_EQ(guarded.laterZ, -5.0);
  EXPECT_EQ(guarded.underflows, 0);
}

TEST_F(MatrixGuard, GroupThatPopsTwiceLeavesDepthAndMatrix) {
  std::unique_ptr<CGLGroup> group(MovedGroup());
  {
    CGLMatrixGuard guard;
    EXPECT_EQ(2, Depth());
    group->Draw();
    EXPECT_EQ(1, Depth());  // one shallower: the group's extra pop took the spare
  }
  EXPECT_EQ(1, Depth());
  EXPECT_EQ(0, glrecorder::recorder().underflows());
  EXPECT_EQ(m_hostMatrix, glrecorder::recorder().matrix(GL_MODELVIEW));
  EXPECT_EQ(static_cast<GLenum>(GL_NO_ERROR), glGetError());
}

TEST_F(MatrixGuard, SceneWithAxisTriadKeepsHostMatrix) {
  CGLScene scene;
  auto* axis = new CGLAxis(1.0, 0.1, true);
  axis->Move(4.0, 0.0, 0.0);
  scene.AddGLShape(axis);
  glPushMatrix();  // the host draws one level down
  glTranslated(0.0, 0.0, -5.0);
  const glrecorder::Matrix inner = glrecorder::recorder().matrix(GL_MODELVIEW);
  {
    CGLMatrixGuard guard;
    scene.DrawGLShapes();
  }
  EXPECT_EQ(2, Depth());
  EXPECT_EQ(inner, glrecorder::recorder().matrix(GL_MODELVIEW));
  glPopMatrix();
  EXPECT_EQ(m_hostMatrix, glrecorder::recorder().matrix(GL_MODELVIEW));
  EXPECT_EQ(0, glrecorder::recorder().underflows());
}

TEST_F(MatrixGuard, OneSparePerGroup) {
  std::unique_ptr<CGLGroup> first(MovedGroup());
  std::unique_ptr<CGLGroup> second(MovedGroup());
  {
    CGLMatrixGuard guard(2);
    first->Draw();
    second->Draw();
  }
  EXPECT_EQ(1, Depth());
  EXPECT_EQ(0, glrecorder::recorder().underflows());
  EXPECT_EQ(m_hostMatrix, glrecorder::recorder().matrix(GL_MODELVIEW));
}

TEST_F(MatrixGuard, PopsWhatAnEmptyBeltLeftPushed) {
  CGLBelt belt(1.0, 1.0, 0.0);  // no outline: DrawDirect keeps its push
  {
    CGLMatrixGuard guard(0);
    belt.DrawDirect();
    EXPECT_EQ(2, Depth());
  }
  EXPECT_EQ(1, Depth());
  EXPECT_EQ(m_hostMatrix, glrecorder::recorder().matrix(GL_MODELVIEW));
}

TEST_F(MatrixGuard, ExactCallsAroundABalancedDraw) {
  glrecorder::recorder().clearCalls();
  { CGLMatrixGuard guard; }
  const std::array<double, 16> host = m_hostMatrix;
  EXPECT_THAT(glrecorder::recorder().log(),
              glrecorder::LinesEq({
                  line("glGetIntegerv", en(GL_MATRIX_MODE)),
                  line("glGetDoublev", en(GL_MODELVIEW_MATRIX)),
                  line("glGetIntegerv", en(GL_MODELVIEW_STACK_DEPTH)),
                  line("glGetIntegerv", en(GL_MAX_MODELVIEW_STACK_DEPTH)),
                  "glPushMatrix()",
                  line("glGetIntegerv", en(GL_MATRIX_MODE)),
                  line("glGetIntegerv", en(GL_MODELVIEW_STACK_DEPTH)),
                  "glPopMatrix()",  // the spare nobody took
                  "glLoadIdentity()",
                  line("glMultMatrixd", host),
              }));
}

TEST_F(MatrixGuard, LeavesTheMatrixModeItFound) {
  glMatrixMode(GL_PROJECTION);
  std::unique_ptr<CGLGroup> group(MovedGroup());
  {
    CGLMatrixGuard guard;
    glMatrixMode(GL_MODELVIEW);  // the host draws in model-view
    group->Draw();
    glMatrixMode(GL_PROJECTION);
  }
  EXPECT_EQ(static_cast<GLenum>(GL_PROJECTION), glrecorder::recorder().matrixMode());
  EXPECT_EQ(1, glrecorder::recorder().stackDepth(GL_PROJECTION));
  EXPECT_EQ(1, Depth());
  EXPECT_EQ(m_hostMatrix, glrecorder::recorder().matrix(GL_MODELVIEW));
}

TEST_F(MatrixGuard, SparesStopAtTheStackLimit) {
  glrecorder::recorder().setMaxStackDepth(GL_MODELVIEW, 3);
  {
    CGLMatrixGuard guard(5);
    EXPECT_EQ(3, Depth());
  }
  EXPECT_EQ(0, glrecorder::recorder().overflows());
  EXPECT_EQ(1, Depth());
}

TEST_F(MatrixGuard, SavesDepthAndMatrixAtConstruction) {
  CGLMatrixGuard guard;
  EXPECT_EQ(1, guard.SavedDepth());
  glrecorder::Matrix saved{};
  std::copy(guard.SavedMatrix(), guard.SavedMatrix() + 16, saved.begin());
  EXPECT_EQ(m_hostMatrix, saved);
}

}  // namespace
