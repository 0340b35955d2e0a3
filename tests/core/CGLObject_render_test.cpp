#include <lumagrid/CGLObject.h>

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <vector>

#include "core_probes.h"
#include "core_render.h"

namespace {

using headless::colorNear;
using headless::Rgba;

class ObjectRender : public OrthoRenderTest {};

TEST_F(ObjectRender, ListIsCompiledOnceAndReplayedWithNewColours) {
  QuadShape q(1.0f);
  q.ColorSet(0x0000FFUL);
  q.Draw();
  const GLuint name = static_cast<GLuint>(q.m_nDisplayList);
  EXPECT_EQ(glIsList(name), GL_TRUE);
  EXPECT_FALSE(q.m_bModified);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  q.ColorSet(0xFF0000UL);
  q.Draw();
  EXPECT_EQ(static_cast<GLuint>(q.m_nDisplayList), name);
  EXPECT_TRUE(colorNear(centrePixel(), Lit(0.0, 0.0, 1.0), 2));
  EXPECT_TRUE(noGLError());
}

TEST_F(ObjectRender, CopyDrawsThroughTheSharedListAndDestructionDeletesIt) {
  GLuint name = 0;
  {
    QuadShape q(1.0f);
    q.Draw();
    name = static_cast<GLuint>(q.m_nDisplayList);
    QuadShape copy(q);
    copy.ColorSet(0.0, 1.0, 0.0, 1.0);
    copy.m_bModified = false;  // a copy of a current shape replays the list as it is
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    copy.Draw();
    EXPECT_TRUE(colorNear(centrePixel(), Lit(0.0, 1.0, 0.0), 2));
    copy.m_nDisplayList = -1;  // leave the deletion to the original
  }
  EXPECT_EQ(glIsList(name), GL_FALSE);
  EXPECT_TRUE(noGLError());
}

TEST_F(ObjectRender, DirectDrawMatchesTheListDraw) {
  QuadShape q(1.0f);
  q.ColorSet(0.25, 0.5, 0.75, 1.0);
  EXPECT_EQ(q.DrawDirect(), 0);
  EXPECT_EQ(q.m_nDisplayList, -1);
  const std::vector<Rgba> direct = context().readPixels();
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  q.Draw();
  EXPECT_TRUE(context().readPixels() == direct);
  EXPECT_TRUE(colorNear(centrePixel(), Lit(0.25, 0.5, 0.75), 2));
  EXPECT_TRUE(noGLError());
}

}  // namespace
