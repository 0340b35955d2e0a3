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

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "recorded/RecordedTest.h"
#include "standin/QuadShape.h"

namespace {

using glrec::en;
using glrec::line;

class CGLMatrixGuardTest : public RecordedTest {
 protected:
  // The host's own matrix, which a draw must not leave behind changed.
  void SetUp() override {
    RecordedTest::SetUp();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslated(1.0, 2.0, 3.0);
    m_hostMatrix = glrec::recorder().matrix(GL_MODELVIEW);
  }

  static int Depth() { return glrec::recorder().stackDepth(GL_MODELVIEW); }

  glrec::Matrix m_hostMatrix{};
};

// A group that moves its members, so that a lost matrix would show.
CGLGroup* MovedGroup() {
  auto* group = new CGLGroup;
  group->Move(0.5, 0.5, 0.5);
  group->Add(new QuadShape);
  return group;
}

TEST_F(CGLMatrixGuardTest, GroupDrawWithoutGuardUnderflows) {
  std::unique_ptr<CGLGroup> group(MovedGroup());
  group->Draw();
  EXPECT_EQ(1, glrec::recorder().underflows(GL_MODELVIEW));
  EXPECT_EQ(GL_STACK_UNDERFLOW, glGetError());
}

TEST_F(CGLMatrixGuardTest, GroupThatPopsTwiceLeavesDepthAndMatrix) {
  std::unique_ptr<CGLGroup> group(MovedGroup());
  {
    CGLMatrixGuard guard;
    EXPECT_EQ(2, Depth());
    group->Draw();
    EXPECT_EQ(1, Depth());  // one shallower: the group's extra pop took the spare
  }
  EXPECT_EQ(1, Depth());
  EXPECT_EQ(0, glrec::recorder().underflows());
  EXPECT_EQ(m_hostMatrix, glrec::recorder().matrix(GL_MODELVIEW));
  EXPECT_EQ(static_cast<GLenum>(GL_NO_ERROR), glGetError());
}

TEST_F(CGLMatrixGuardTest, SceneWithAxisTriadKeepsHostMatrix) {
  CGLScene scene;
  auto* axis = new CGLAxis(1.0, 0.1, true);
  axis->Move(4.0, 0.0, 0.0);
  scene.AddGLShape(axis);
  glPushMatrix();  // the host draws one level down
  glTranslated(0.0, 0.0, -5.0);
  const glrec::Matrix inner = glrec::recorder().matrix(GL_MODELVIEW);
  {
    CGLMatrixGuard guard;
    scene.DrawGLShapes();
  }
  EXPECT_EQ(2, Depth());
  EXPECT_EQ(inner, glrec::recorder().matrix(GL_MODELVIEW));
  glPopMatrix();
  EXPECT_EQ(m_hostMatrix, glrec::recorder().matrix(GL_MODELVIEW));
  EXPECT_EQ(0, glrec::recorder().underflows());
}

TEST_F(CGLMatrixGuardTest, OneSparePerGroup) {
  std::unique_ptr<CGLGroup> first(MovedGroup());
  std::unique_ptr<CGLGroup> second(MovedGroup());
  {
    CGLMatrixGuard guard(2);
    first->Draw();
    second->Draw();
  }
  EXPECT_EQ(1, Depth());
  EXPECT_EQ(0, glrec::recorder().underflows());
  EXPECT_EQ(m_hostMatrix, glrec::recorder().matrix(GL_MODELVIEW));
}

TEST_F(CGLMatrixGuardTest, PopsWhatAnEmptyBeltLeftPushed) {
  CGLBelt belt(1.0, 1.0, 0.0);  // no outline: DrawDirect keeps its push
  {
    CGLMatrixGuard guard(0);
    belt.DrawDirect();
    EXPECT_EQ(2, Depth());
  }
  EXPECT_EQ(1, Depth());
  EXPECT_EQ(m_hostMatrix, glrec::recorder().matrix(GL_MODELVIEW));
}

TEST_F(CGLMatrixGuardTest, ExactCallsAroundABalancedDraw) {
  glrec::recorder().clearCalls();
  { CGLMatrixGuard guard; }
  const std::array<double, 16> host = m_hostMatrix;
  EXPECT_THAT(glrec::recorder().log(), glrec::LinesEq({
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

TEST_F(CGLMatrixGuardTest, LeavesTheMatrixModeItFound) {
  glMatrixMode(GL_PROJECTION);
  std::unique_ptr<CGLGroup> group(MovedGroup());
  {
    CGLMatrixGuard guard;
    glMatrixMode(GL_MODELVIEW);  // the host draws in model-view
    group->Draw();
    glMatrixMode(GL_PROJECTION);
  }
  EXPECT_EQ(static_cast<GLenum>(GL_PROJECTION), glrec::recorder().matrixMode());
  EXPECT_EQ(1, glrec::recorder().stackDepth(GL_PROJECTION));
  EXPECT_EQ(1, Depth());
  EXPECT_EQ(m_hostMatrix, glrec::recorder().matrix(GL_MODELVIEW));
}

TEST_F(CGLMatrixGuardTest, SparesStopAtTheStackLimit) {
  glrec::recorder().setMaxStackDepth(GL_MODELVIEW, 3);
  {
    CGLMatrixGuard guard(5);
    EXPECT_EQ(3, Depth());
  }
  EXPECT_EQ(0, glrec::recorder().overflows());
  EXPECT_EQ(1, Depth());
}

TEST_F(CGLMatrixGuardTest, SavesDepthAndMatrixAtConstruction) {
  CGLMatrixGuard guard;
  EXPECT_EQ(1, guard.SavedDepth());
  glrec::Matrix saved{};
  std::copy(guard.SavedMatrix(), guard.SavedMatrix() + 16, saved.begin());
  EXPECT_EQ(m_hostMatrix, saved);
}

}  // namespace
