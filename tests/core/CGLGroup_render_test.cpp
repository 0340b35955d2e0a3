#include <lumagrid/CGLGroup.h>

#include <GL/gl.h>
#include <gtest/gtest.h>

#include "core_probes.h"
#include "core_render.h"

namespace {

using headless::colorNear;

class GroupRender : public OrthoRenderTest {};

TEST_F(GroupRender, GroupDrawWithoutASpareMatrixUnderflows) {
  CGLGroup group;
  group.Add(new QuadShape(0.5f));
  ASSERT_EQ(modelviewDepth(), 1);
  group.Draw();
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_STACK_UNDERFLOW));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
  EXPECT_EQ(modelviewDepth(), 1);
  EXPECT_GT(countDrawnPixels(), 0u);  // the member is drawn all the same
}

TEST_F(GroupRender, HostKeepingASpareMatrixDrawsAGroupWithoutError) {
  CGLGroup group;
  auto* member = new QuadShape(0.5f);
  member->ColorSet(0x00FF00UL);
  group.Add(member);
  group.Move(1.0, 0.0, 0.0);
  glPushMatrix();  // the spare matrix the group's extra pop takes
  group.Draw();
  EXPECT_TRUE(noGLError());
  EXPECT_EQ(modelviewDepth(), 1);
  EXPECT_TRUE(colorNear(pixel(kRight, kMiddle), Lit(0.0, 1.0, 0.0), 2));
  EXPECT_EQ(pixel(kLeft, kMiddle), kBlack);
}

}  // namespace
