// The core-profile renderer in a real OpenGL 3.3 core context: the look worked out by hand from
// the fixed-function lighting, the order of translucent shapes, instancing, what it keeps and
// frees, the GL state it leaves, and the contexts it refuses.
#include <epoxy/gl.h>

#include <gtest/gtest.h>
#include <lumagrid/CoreProfileRenderer.h>
#include <lumagrid/lumagrid.h>
#include <lumagrid/testing/EglContext.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "coreprofile/shader_program.h"

namespace {

using headless::EglContext;
using lumagrid::CoreProfileRenderer;
using lumagrid::View;

constexpr int kSize = 64;

// Looking down -z at [-2, 2] x [-2, 2], depth [-10, 10] (glOrtho's matrix), one light.
View OrthoView(std::vector<lumagrid::Light> lights, float ambient) {
  View view{};
  for (int i = 0; i < 16; ++i) {
    view.modelView[i] = i % 5 == 0 ? 1.0f : 0.0f;
    view.projection[i] = 0.0f;
  }
  view.projection[0] = 0.5f;
  view.projection[5] = 0.5f;
  view.projection[10] = -0.1f;
  view.projection[15] = 1.0f;
  view.lights = std::move(lights);
  for (float& a : view.ambient) {
    a = ambient;
  }
  view.ambient[3] = 1.0f;
  return view;
}

// Unlit: every shape shows its colour.
View FlatView() {
  return OrthoView({}, 1.0f);
}

// A closed cylinder seen from above: its top disk faces the viewer, normal (0, 0, 1).
CGLCylinder* Disk(double radius, double z, double r, double g, double b, double a) {
  auto* disk = new CGLCylinder(radius, 0.1, true);
  disk->Move(0.0, 0.0, z);
  disk->ColorSet(r, g, b, a);
  return disk;
}

// A level as the framebuffer stores it.
int Level(double v) {
  return static_cast<int>(v * 255.0 + 0.5);
}

void ExpectPixel(const EglContext& context, int x, int y, int r, int g, int b, int slack = 1) {
  const headless::Rgba p = context.pixel(x, y);
  EXPECT_NEAR(p.r, r, slack) << x << ',' << y;
  EXPECT_NEAR(p.g, g, slack) << x << ',' << y;
  EXPECT_NEAR(p.b, b, slack) << x << ',' << y;
}

class CoreProfileRender : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(context_.ok()) << context_.error(); }
  void Clear() { glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT); }

  EglContext context_{kSize, kSize, 0, EglContext::Profile::Core};
  CGLScene scene_;
};

TEST_F(CoreProfileRender, LightsAFaceAsTheFixedFunctionPipelineDoes) {
  // Light from (0, 0.6, 0.8): n.l = 0.8 on the disk. Ambient 0.2, diffuse (1, 0.5, 0.25):
  // channel = c * (0.2 + 0.8 * diffuse).
  scene_.AddGLShape(Disk(1.5, 0.0, 0.5, 0.5, 1.0, 1.0));
  CoreProfileRenderer renderer;
  ASSERT_TRUE(renderer.Draw(
      scene_, OrthoView({{{0.0f, 0.6f, 0.8f, 0.0f}, {1.0f, 0.5f, 0.25f, 1.0f}}}, 0.2f)))
      << renderer.LastError();
  ExpectPixel(context_, kSize / 2, kSize / 2, Level(0.5 * (0.2 + 0.8)), Level(0.5 * (0.2 + 0.4)),
              Level(1.0 * (0.2 + 0.2)));
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(CoreProfileRender, LinesShowTheirColourUnlitAndASelectedShapeItsHighlight) {
  auto* line = new CGLPolyline;
  line->AddVertex(-2.0, 0.0, 0.0);
  line->AddVertex(2.0, 0.0, 0.0);
  line->ColorSet(0.2, 0.4, 0.6, 1.0);
  scene_.AddGLShape(line);
  auto* disk = Disk(0.5, 0.0, 1.0, 0.0, 0.0, 1.0);
  disk->Move(1.0, 1.0, 0.0);
  disk->HLColorSet(0.0, 1.0, 0.0, 1.0);
  disk->Select(true);
  scene_.AddGLShape(disk);
  CoreProfileRenderer renderer;
  // Lit by a light that leaves the line's missing normal nothing to light: it is not lit.
  ASSERT_TRUE(renderer.Draw(
      scene_, OrthoView({{{0.0f, 0.0f, 1.0f, 0.0f}, {1.0f, 1.0f, 1.0f, 1.0f}}}, 0.0f)))
      << renderer.LastError();
  // The line y = 0 covers the rows either side of the middle.
  const headless::Rgba p = context_.pixel(kSize / 4, kSize / 2);
  const headless::Rgba q = context_.pixel(kSize / 4, kSize / 2 - 1);
  const headless::Rgba& on = p.g > q.g ? p : q;
  EXPECT_EQ(on.r, Level(0.2));
  EXPECT_EQ(on.g, Level(0.4));
  EXPECT_EQ(on.b, Level(0.6));
  ExpectPixel(context_, kSize * 3 / 4, kSize * 3 / 4, 0, 255, 0);
}

TEST_F(CoreProfileRender, HiddenShapesAndMembersOfHiddenGroupsAreNotDrawn) {
  auto* hidden = Disk(1.5, 0.0, 1.0, 1.0, 1.0, 1.0);
  hidden->SetVisible(false);
  scene_.AddGLShape(hidden);
  auto* group = new CGLGroup;
  group->Add(Disk(1.5, 0.0, 1.0, 1.0, 1.0, 1.0));
  group->SetVisible(false);
  scene_.AddGLShape(group);
  CoreProfileRenderer renderer;
  ASSERT_TRUE(renderer.Draw(scene_, FlatView()));
  EXPECT_EQ(context_.countPixels([](const headless::Rgba& p) { return p.r != 0; }), 0u);
}

TEST_F(CoreProfileRender, TranslucentShapesBlendBackToFrontWhateverTheSceneOrder) {
  // Red at z = 0 and blue nearer at z = 0.5, both half transparent over black: red first, then
  // blue over it, gives (0.25, 0, 0.5); the other order would give (0.5, 0, 0.25).
  for (int order = 0; order < 2; ++order) {
    CGLScene scene;
    CGLObject* red = Disk(1.5, 0.0, 1.0, 0.0, 0.0, 0.5);
    CGLObject* blue = Disk(1.5, 0.5, 0.0, 0.0, 1.0, 0.5);
    scene.AddGLShape(order == 0 ? red : blue);
    scene.AddGLShape(order == 0 ? blue : red);
    Clear();
    CoreProfileRenderer renderer;
    ASSERT_TRUE(renderer.Draw(scene, FlatView())) << renderer.LastError();
    ExpectPixel(context_, kSize / 2, kSize / 2, Level(0.25), 0, Level(0.5), 2);
  }
}

TEST_F(CoreProfileRender, TranslucentShapesWriteNoDepthAndOpaqueOnesHideThem) {
  // A translucent disk in front of an opaque one: the opaque one shows through. A translucent
  // disk behind an opaque one: hidden.
  scene_.AddGLShape(Disk(1.5, 0.5, 0.0, 0.0, 1.0, 0.5));
  scene_.AddGLShape(Disk(1.0, 0.0, 1.0, 0.0, 0.0, 1.0));
  auto* behind = Disk(0.3, -0.5, 0.0, 1.0, 0.0, 0.5);
  scene_.AddGLShape(behind);
  CoreProfileRenderer renderer;
  ASSERT_TRUE(renderer.Draw(scene_, FlatView()));
  ExpectPixel(context_, kSize / 2, kSize / 2, Level(0.5), 0, Level(0.5), 2);
}

TEST_F(CoreProfileRender, ShapesOfOneMeshShareItsBuffers) {
  for (int i = 0; i < 100; ++i) {
    auto* sphere = new CGLSphere(0.1);
    sphere->Move(-1.8 + 0.036 * i, 0.0, 0.0);
    scene_.AddGLShape(sphere);
  }
  CoreProfileRenderer renderer;
  EXPECT_EQ(renderer.GLObjectCount(), 0u);
  ASSERT_TRUE(renderer.Draw(scene_, FlatView()));
  // The program, the instance buffer, and one mesh: its vertex array and two buffers.
  EXPECT_EQ(renderer.GLObjectCount(), 5u);
}

// Reads a shape's legacy modified mark without changing it.
struct ModifiedMark : CGLObject {
  static bool Of(const CGLObject& shape) { return shape.*&ModifiedMark::m_bModified; }
};

TEST_F(CoreProfileRender, RebuildsAMeshOnlyWhenTheGeometryChangesAndLeavesTheListsAlone) {
  auto* sphere = new CGLSphere(0.5);
  scene_.AddGLShape(sphere);
  CoreProfileRenderer renderer;
  ASSERT_TRUE(renderer.Draw(scene_, FlatView()));
  const std::size_t objects = renderer.GLObjectCount();
  sphere->ColorSet(0xFFul);
  sphere->Move(0.5, 0.0, 0.0);
  sphere->Select(true);
  ASSERT_TRUE(renderer.Draw(scene_, FlatView()));
  EXPECT_EQ(renderer.GLObjectCount(), objects);  // the same mesh, drawn elsewhere
  scene_.AddGLShape(new CGLSphere(0.7));
  ASSERT_TRUE(renderer.Draw(scene_, FlatView()));
  EXPECT_EQ(renderer.GLObjectCount(), objects + 3);  // a second mesh
  // The display list is the legacy draw's: still to be built, as the renderer never built it.
  EXPECT_TRUE(ModifiedMark::Of(*sphere));
}

TEST_F(CoreProfileRender, FreesEveryGLObjectItMade) {
  auto live = [] {
    std::size_t n = 0;
    for (GLuint name = 1; name < 512; ++name) {
      n += glIsBuffer(name) + glIsVertexArray(name) + glIsProgram(name) + glIsShader(name);
    }
    return n;
  };
  const std::size_t before = live();
  scene_.AddGLShape(new CGLSphere(0.5));
  scene_.AddGLShape(Disk(1.0, 0.0, 1.0, 0.0, 0.0, 0.5));
  {
    CoreProfileRenderer renderer;
    ASSERT_TRUE(renderer.Draw(scene_, FlatView()));
    EXPECT_EQ(live(), before + renderer.GLObjectCount());
  }
  EXPECT_EQ(live(), before);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

// Back faces of a closed mesh are culled; a mirrored shape's winding is turned round, so its
// near face must still show, lit, and not the far one behind it.
TEST_F(CoreProfileRender, AMirroredClosedShapeShowsItsNearFace) {
  CoreProfileRenderer renderer;
  CGLCylinder* disk = Disk(1.0, 0.0, 1.0, 0.0, 0.0, 1.0);
  disk->Scale(-1.0, 1.0, 1.0);
  scene_.AddGLShape(disk);
  Clear();
  ASSERT_TRUE(renderer.Draw(
      scene_, OrthoView({{{0.0f, 0.0f, 1.0f, 0.0f}, {1.0f, 1.0f, 1.0f, 1.0f}}}, 0.2f)))
      << renderer.LastError();
  ExpectPixel(context_, kSize / 2, kSize / 2, 255, 0, 0);
}

TEST_F(CoreProfileRender, LeavesTheGLStateAsItFoundIt) {
  glEnable(GL_BLEND);
  glBlendFunc(GL_ONE, GL_ONE);
  glDisable(GL_DEPTH_TEST);
  glDepthMask(GL_FALSE);
  glEnable(GL_CULL_FACE);
  glCullFace(GL_FRONT);
  scene_.AddGLShape(Disk(1.0, 0.0, 1.0, 0.0, 0.0, 0.5));
  scene_.AddGLShape(new CGLSphere(0.3));
  CoreProfileRenderer renderer;
  ASSERT_TRUE(renderer.Draw(scene_, FlatView()));
  GLint value = 0;
  EXPECT_TRUE(glIsEnabled(GL_BLEND));
  glGetIntegerv(GL_BLEND_SRC_RGB, &value);
  EXPECT_EQ(value, GL_ONE);
  glGetIntegerv(GL_BLEND_DST_RGB, &value);
  EXPECT_EQ(value, GL_ONE);
  EXPECT_FALSE(glIsEnabled(GL_DEPTH_TEST));
  GLboolean mask = GL_TRUE;
  glGetBooleanv(GL_DEPTH_WRITEMASK, &mask);
  EXPECT_EQ(mask, GL_FALSE);
  EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
  glGetIntegerv(GL_CULL_FACE_MODE, &value);
  EXPECT_EQ(value, GL_FRONT);
  glGetIntegerv(GL_CURRENT_PROGRAM, &value);
  EXPECT_EQ(value, 0);
  glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &value);
  EXPECT_EQ(value, 0);
}

// Bad state: false, a reason, nothing drawn, never a crash.

TEST_F(CoreProfileRender, RefusesMoreThanEightLights) {
  scene_.AddGLShape(new CGLSphere(0.5));
  CoreProfileRenderer renderer;
  std::vector<lumagrid::Light> lights(9, lumagrid::Light{{0, 0, 1, 0}, {1, 1, 1, 1}});
  EXPECT_FALSE(renderer.Draw(scene_, OrthoView(lights, 0.2f)));
  EXPECT_EQ(renderer.LastError(), "the view has 9 lights; at most 8 are drawn");
  EXPECT_TRUE(renderer.Draw(scene_, FlatView()));
  EXPECT_EQ(renderer.LastError(), "");
}

TEST_F(CoreProfileRender, AShaderThatDoesNotCompileIsReportedWithTheDriversLog) {
  const lumagrid::detail::ShaderProgram bad("#version 330 core\nvoid main() { nonsense; }\n",
                                            "#version 330 core\nvoid main() {}\n");
  EXPECT_FALSE(bad.ok());
  EXPECT_EQ(bad.error().rfind("the vertex shader does not compile: ", 0), 0u) << bad.error();
  EXPECT_GT(bad.error().size(), std::string("the vertex shader does not compile: ").size());
  GLenum error = glGetError();
  EXPECT_EQ(error, static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(CoreProfileRender, ANonFiniteViewOrShapeMatrixDrawsNothingOfIt) {
  auto* lost = Disk(1.5, 0.0, 1.0, 1.0, 1.0, 1.0);
  lost->Move(std::nan(""), 0.0, 0.0);
  scene_.AddGLShape(lost);
  CoreProfileRenderer renderer;
  ASSERT_TRUE(renderer.Draw(scene_, FlatView())) << renderer.LastError();
  View broken = FlatView();
  broken.modelView[0] = std::nanf("");
  scene_.AddGLShape(Disk(1.5, 0.0, 1.0, 1.0, 1.0, 1.0));
  ASSERT_TRUE(renderer.Draw(scene_, broken)) << renderer.LastError();
  EXPECT_EQ(context_.countPixels([](const headless::Rgba& p) { return p.r != 0; }), 0u);
  EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST(CoreProfileRenderer, RefusesToDrawWithoutACurrentContext) {
  CGLScene scene;
  scene.AddGLShape(new CGLSphere(0.5));
  CoreProfileRenderer renderer;
  EXPECT_FALSE(renderer.Draw(scene, FlatView()));
  EXPECT_EQ(renderer.LastError(), "no OpenGL context is current");
  EXPECT_EQ(renderer.GLObjectCount(), 0u);
}

TEST(CoreProfileRenderer, RefusesAContextBelowOpenGL33) {
  setenv("MESA_GL_VERSION_OVERRIDE", "2.1", 1);
  EglContext old(kSize, kSize);
  unsetenv("MESA_GL_VERSION_OVERRIDE");
  ASSERT_TRUE(old.ok()) << old.error();
  // Mesa reads it once, at its first context: ctest runs each test in a process of its own.
  if (EglContext::version().rfind("2.1", 0) != 0) {
    GTEST_SKIP() << "Mesa made its first context before this test; run it alone";
  }
  CGLScene scene;
  scene.AddGLShape(new CGLSphere(0.5));
  CoreProfileRenderer renderer;
  EXPECT_FALSE(renderer.Draw(scene, FlatView()));
  EXPECT_EQ(renderer.LastError(), "OpenGL 3.3 is needed; the current context has 2.1");
  EXPECT_EQ(renderer.GLObjectCount(), 0u);
}

}  // namespace
