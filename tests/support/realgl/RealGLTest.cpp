#include "realgl/RealGLTest.h"

#include <lumagrid/testing/GLErrors.h>

#include <GL/gl.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace headless {

void RealGLTest::SetUp() {
  context_ = std::make_unique<EglContext>(framebufferWidth(), framebufferHeight());
  if (!context_->ok()) {
    FAIL() << "Could not create the headless OpenGL context (EGL, Mesa surfaceless platform, "
              "llvmpipe): "
           << context_->error();
  }
}

void RealGLTest::TearDown() {
  context_.reset();
}

std::size_t RealGLTest::countDrawnPixels() const {
  return countPixels([](const Rgba& p) { return p.r != 0 || p.g != 0 || p.b != 0; });
}

::testing::AssertionResult RealGLTest::noGLError() {
  std::string pending;
  for (const std::string& name : pendingGLErrors()) {
    pending += (pending.empty() ? "" : ", ") + name;
  }
  if (pending.empty()) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure() << "glGetError reported " << pending;
}

std::string RealGLTest::saveFramebuffer(const std::string& tag) {
  const char* fromEnvironment = std::getenv("LUMAGRID_RENDER_OUTPUT_DIR");
  const std::filesystem::path dir =
      fromEnvironment != nullptr && *fromEnvironment != '\0' ? fromEnvironment : "render-output";
  std::error_code ignored;
  std::filesystem::create_directories(dir, ignored);
  const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(info->test_suite_name()) + "." + info->name();
  if (!tag.empty()) {
    name += "." + tag;
  }
  // Parameterised names contain slashes.
  for (char& c : name) {
    if (c == '/') {
      c = '_';
    }
  }
  const std::string path = (dir / (name + ".png")).string();
  std::string why;
  if (!context_->savePng(path, &why)) {
    ADD_FAILURE() << "Could not save " << path << ": " << why;
    return {};
  }
  return path;
}

::testing::AssertionResult colorNear(const Rgba& actual, const Rgba& expected, int tolerance) {
  auto near = [tolerance](int a, int b) { return a - b <= tolerance && b - a <= tolerance; };
  if (near(actual.r, expected.r) && near(actual.g, expected.g) && near(actual.b, expected.b) &&
      near(actual.a, expected.a)) {
    return ::testing::AssertionSuccess();
  }
  return ::testing::AssertionFailure()
         << actual << " is not within " << tolerance << " of " << expected;
}

}  // namespace headless
