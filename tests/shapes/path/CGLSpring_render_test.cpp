// Springs and tori in a real context: the wireframe tubes cover the same
// place as the solid ones.

#include <lumagrid/CGLSpring.h>
#include <lumagrid/CGLTorus.h>

#include <GL/gl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

#include "realgl/RealGLTest.h"
#include "naming/ParamName.h"

namespace {

using headless::Rgba;

struct Box {
  int left = 1 << 20;
  int right = -1;
  int bottom = 1 << 20;
  int top = -1;
  std::size_t pixels = 0;
};

// glOrtho(-2, 2, -2, 2, ...) over 128 x 128 pixels: 32 pixels a unit.
class SpringRender : public headless::RealGLTest {
 protected:
  void SetUp() override {
    headless::RealGLTest::SetUp();
    glDisable(GL_LIGHTING);
  }

  // The drawn pixels' bounding box, after drawing `draw` on a clear frame.
  Box Footprint(const std::function<void()>& draw) {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    draw();
    glPopMatrix();
    glFinish();
    const std::vector<Rgba> frame = context().readPixels();
    Box box;
    for (std::size_t i = 0; i < frame.size(); ++i) {
      const Rgba& p = frame[i];
      if (p.r == 0 && p.g == 0 && p.b == 0) {
        continue;
      }
      const int x = static_cast<int>(i % 128);
      const int y = static_cast<int>(i / 128);
      box.left = std::min(box.left, x);
      box.right = std::max(box.right, x);
      box.bottom = std::min(box.bottom, y);
      box.top = std::max(box.top, y);
      ++box.pixels;
    }
    return box;
  }

  // The same place, within `slack` pixels, and fewer pixels for the wires.
  static void ExpectSamePlace(const Box& solid, const Box& wire, int slack) {
    ASSERT_GT(solid.pixels, 0u);
    ASSERT_GT(wire.pixels, 0u);
    EXPECT_NEAR(wire.left, solid.left, slack);
    EXPECT_NEAR(wire.right, solid.right, slack);
    EXPECT_NEAR(wire.bottom, solid.bottom, slack);
    EXPECT_NEAR(wire.top, solid.top, slack);
    EXPECT_LT(wire.pixels, solid.pixels);
  }

  // Spring axis up the screen, from y = -1.5.
  static void SideOn() {
    glRotated(-90.0, 1.0, 0.0, 0.0);
    glTranslated(0.0, 0.0, -1.5);
  }
};

TEST_F(SpringRender, SolidCompressionSpringSpansItsLengthAndCoil) {
  CGLSpring spring(0.1, 1.0, 1.0, 3.0, 4, 0.0);
  const Box box = Footprint([&] {
    SideOn();
    spring.Draw();
  });
  // x from -(R + r) to R + r, y from -1.5 - r to 1.5 + r: pixels 28.8 .. 99.2, 11.8 .. 116.2.
  EXPECT_NEAR(box.left, 29, 2);
  EXPECT_NEAR(box.right, 99, 2);
  EXPECT_NEAR(box.bottom, 12, 2);
  EXPECT_NEAR(box.top, 116, 2);
  saveFramebuffer();
  EXPECT_TRUE(noGLError());
}

struct Variant {
  const char* name;
  unsigned int type;
  unsigned int type2;
};

class SpringWireRender : public SpringRender, public ::testing::WithParamInterface<Variant> {};

TEST_P(SpringWireRender, WireframeCoversTheSolidSpringsPlace) {
  // A thick wire, so that the wireframe leaves gaps between its lines.
  CGLSpring spring(0.35, 1.0, 1.0, 3.0, 2, 0.0);
  spring.SetType(GetParam().type);
  spring.SetType2(GetParam().type2);
  const Box solid = Footprint([&] {
    SideOn();
    spring.Draw();
  });
  spring.SetShadedMode(0);
  spring.SetLength(3.0);  // the shading shows at the next rebuild
  const Box wire = Footprint([&] {
    SideOn();
    spring.Draw();
  });
  ExpectSamePlace(solid, wire, 2);
  saveFramebuffer();
  spring.SetShadedMode(1);
  spring.SetLength(3.0);
  Footprint([&] { spring.Draw(); });  // solid tubes again for later tests
  EXPECT_TRUE(noGLError());
}

INSTANTIATE_TEST_SUITE_P(Families, SpringWireRender,
                         ::testing::Values(Variant{"OpenCompression", 0, 0},
                                           Variant{"ClosedCompression", 0, 1},
                                           Variant{"Tension", 1, 0},
                                           Variant{"TwistedTension", 1, 1}),
                         ParamName());

TEST_F(SpringRender, TorusAfterAWireframeSpringIsAWireframeInTheSamePlace) {
  CGLSpring solidSpring;
  solidSpring.SetType(2);  // draws nothing but sets the tubes
  CGLSpring wireSpring;
  wireSpring.SetType(2);
  wireSpring.SetShadedMode(0);

  CGLTorus solid(0.3, 1.2, 0.0, 360.0);
  const Box filled = Footprint([&] {
    solidSpring.Draw();
    solid.Draw();
  });
  CGLTorus wire(0.3, 1.2, 0.0, 360.0);
  const Box lines = Footprint([&] {
    wireSpring.Draw();
    wire.Draw();
  });
  // Outer radius 1.5: pixels 16 .. 112.
  EXPECT_NEAR(filled.left, 16, 2);
  EXPECT_NEAR(filled.right, 112, 2);
  ExpectSamePlace(filled, lines, 2);
  saveFramebuffer();
  Footprint([&] { solidSpring.Draw(); });
  EXPECT_TRUE(noGLError());
}

TEST_F(SpringRender, SchematicSpringIsThinLines) {
  CGLSpring spring(0.1, 1.0, 1.0, 3.0, 4, 0.0);
  spring.SetType2(8);
  // Looked at along y: the zigzag lies in the x-z plane.
  const Box box = Footprint([&] {
    SideOn();
    spring.Draw();
  });
  EXPECT_NEAR(box.left, 32, 1);
  EXPECT_NEAR(box.right, 96, 1);
  EXPECT_LT(box.pixels, 1000u);
  EXPECT_TRUE(noGLError());
}

}  // namespace
