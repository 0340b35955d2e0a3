// A host that draws its scene in an OpenGL 3.3 core profile context through Lumagrid::coreprofile:
// a lit sphere, a translucent cone and a polyline in a headless context, then checks the pixels.
// Then the refusals: Draw with no context current, and in a context below 3.3 (a compatibility
// context Mesa is told to report as 2.1, made by a second run of this program, since Mesa reads
// that setting once a process). Exits 0 when every answer is the one expected below.
#include <lumagrid/CoreProfileRenderer.h>
#include <lumagrid/lumagrid.h>
#include <lumagrid/testing/EglContext.h>

#include <EGL/egl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr int kSize = 128;

int failures = 0;

void Expect(bool ok, const std::string& what) {
  if (!ok) {
    std::fprintf(stderr, "coreprofile_host: %s\n", what.c_str());
    ++failures;
  }
}

// Within two steps a channel: llvmpipe rounds, lighting is per vertex.
bool Near(const headless::Rgba& c, int r, int g, int b) {
  return std::abs(c.r - r) <= 2 && std::abs(c.g - g) <= 2 && std::abs(c.b - b) <= 2;
}

// What the legacy draw would have under EglContext's default state: glOrtho(-2, 2, -2, 2, -10,
// 10), identity model-view, one white light from the viewer, the light model's default ambient.
lumagrid::View DefaultView() {
  lumagrid::View view{};
  const float identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const float ortho[16] = {0.5f, 0, 0, 0, 0, 0.5f, 0, 0, 0, 0, -0.1f, 0, 0, 0, 0, 1};
  for (int i = 0; i < 16; ++i) {
    view.modelView[i] = identity[i];
    view.projection[i] = ortho[i];
  }
  view.lights.push_back({{0, 0, 1, 0}, {1, 1, 1, 1}});
  const float ambient[4] = {0.2f, 0.2f, 0.2f, 1.0f};
  for (int i = 0; i < 4; ++i) {
    view.ambient[i] = ambient[i];
  }
  return view;
}

// y of a polyline that runs through the middle of pixel row 16, not along a pixel edge.
constexpr double kLineY = (16.5 / (kSize / 2.0) - 1.0) * 2.0;

void FillScene(CGLScene& scene) {
  auto* sphere = new CGLSphere(0.5);
  sphere->ColorSet(0.25, 0.5, 0.75, 1.0);
  scene.AddGLShape(sphere);
  auto* cone = new CGLCone(0.5, 1.0, true);
  cone->Move(1.3, 0.0, 0.0);
  cone->ColorSet(1.0, 0.0, 0.0, 0.4);
  scene.AddGLShape(cone);
  auto* line = new CGLPolyline();
  line->AddVertex(-1.8, kLineY, 0.0);
  line->AddVertex(1.8, kLineY, 0.0);
  line->ColorSet(1.0, 1.0, 0.0, 1.0);
  scene.AddGLShape(line);
}

// Pixel column or row of a world coordinate under the view above.
int PixelOf(double world) {
  return static_cast<int>((world / 2.0 + 1.0) * kSize / 2.0);
}

void DrawInCoreProfile(CGLScene& scene) {
  headless::EglContext gl(kSize, kSize, 0, headless::EglContext::Profile::Core);
  if (!gl.ok()) {
    Expect(false, "no core-profile context: " + gl.error());
    return;
  }
  std::printf("context: OpenGL %s on %s\n", headless::EglContext::version().c_str(),
              headless::EglContext::renderer().c_str());
  lumagrid::CoreProfileRenderer renderer;
  const bool drew = renderer.Draw(scene, DefaultView());
  Expect(drew, "Draw failed: " + renderer.LastError());

  // Facing the light: ambient 0.2 plus diffuse 1.0 of (0.25, 0.5, 0.75), unlit it would be
  // (64, 128, 191).
  const headless::Rgba sphere = gl.pixel(kSize / 2, kSize / 2);
  Expect(Near(sphere, 77, 153, 230), "the sphere's centre is " + headless::toString(sphere) +
                                         ", not lit rgba(77, 153, 230, 255)");
  const headless::Rgba cone = gl.pixel(PixelOf(1.3), kSize / 2);
  Expect(cone.r > 0 && cone.r <= 110 && cone.g == 0 && cone.b == 0,
         "the translucent cone's centre is " + headless::toString(cone) +
             ", not red blended at 0.4 over black");
  const std::size_t linePixels =
      gl.countPixels([](const headless::Rgba& c) { return c.r == 255 && c.g == 255 && c.b == 0; });
  const headless::Rgba onLine = gl.pixel(PixelOf(-1.5), PixelOf(kLineY));
  Expect(onLine.r == 255 && onLine.g == 255 && onLine.b == 0,
         "the polyline's pixel is " + headless::toString(onLine) + ", not its flat yellow");
  Expect(linePixels >= 100, "only " + std::to_string(linePixels) + " pixels are the polyline's");
  std::printf(
      "drew a sphere, a cone and a polyline (%zu GL objects): sphere centre %s, cone %s, "
      "%zu polyline pixels\n",
      renderer.GLObjectCount(), headless::toString(sphere).c_str(),
      headless::toString(cone).c_str(), linePixels);

  // No context current: refused, with a reason, and no GL call made.
  const EGLDisplay display = eglGetCurrentDisplay();
  eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  const bool drewWithout = renderer.Draw(scene, DefaultView());
  const std::string why = renderer.LastError();
  Expect(!drewWithout, "Draw without a current context succeeded");
  Expect(!why.empty(), "Draw without a current context gave no reason");
  std::printf("without a current context: %s (%s)\n", drewWithout ? "drawn" : "refused",
              why.c_str());
  // The renderer frees its GL objects in the context that holds them.
  Expect(gl.makeCurrent(), "the core-profile context could not be made current again");
}

constexpr const char* kBelow33 = "--below-3.3";

// In the run that DrawBelow33InAChild starts, where Mesa reports OpenGL 2.1.
void DrawBelow33(CGLScene& scene) {
  headless::EglContext gl(kSize, kSize);
  if (!gl.ok()) {
    Expect(false, "no compatibility context: " + gl.error());
    return;
  }
  lumagrid::CoreProfileRenderer renderer;
  const bool drew = renderer.Draw(scene, DefaultView());
  Expect(!drew, "Draw in an OpenGL " + headless::EglContext::version() + " context succeeded");
  Expect(!renderer.LastError().empty(), "Draw below OpenGL 3.3 gave no reason");
  std::printf("in an OpenGL %s context: %s (%s)\n", headless::EglContext::version().c_str(),
              drew ? "drawn" : "refused", renderer.LastError().c_str());
}

void DrawBelow33InAChild(const char* program) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    setenv("MESA_GL_VERSION_OVERRIDE", "2.1", 1);
    execl("/proc/self/exe", program, kBelow33, static_cast<char*>(nullptr));
    std::perror("coreprofile_host: exec");
    _exit(127);
  }
  int status = 0;
  const bool ran = child > 0 && waitpid(child, &status, 0) == child;
  Expect(ran && WIFEXITED(status) && WEXITSTATUS(status) == 0,
         "the run below OpenGL 3.3 failed (status " + std::to_string(status) + ")");
}

}  // namespace

int main(int argc, char** argv) {
  CGLScene scene;  // owns and deletes the shapes
  FillScene(scene);
  if (argc > 1 && std::strcmp(argv[1], kBelow33) == 0) {
    DrawBelow33(scene);
  } else {
    DrawInCoreProfile(scene);
    DrawBelow33InAChild(argv[0]);
  }
  return failures == 0 ? 0 : 1;
}
