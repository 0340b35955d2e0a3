// gtest fixture giving each test a fresh, current EglContext in its default state.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include <lumagrid/testing/EglContext.h>

namespace headless {

class RealGLTest : public ::testing::Test {
 protected:
  // Fails the test (it is never skipped) when no context can be had.
  void SetUp() override;
  void TearDown() override;

  // Framebuffer size; override both to change it.
  virtual int framebufferWidth() const { return 128; }
  virtual int framebufferHeight() const { return 128; }

  EglContext& context() { return *context_; }

  // Shorthands for the context's helpers.
  Rgba pixel(int x, int y) const { return context_->pixel(x, y); }
  Rgba centrePixel() const {
    return context_->pixel(context_->width() / 2, context_->height() / 2);
  }
  std::size_t countPixels(const std::function<bool(const Rgba&)>& predicate) const {
    return context_->countPixels(predicate);
  }
  // Pixels that are not the black background.
  std::size_t countDrawnPixels() const;

  // Success when glGetError reports nothing; otherwise lists every pending error (which clears
  // them): EXPECT_TRUE(noGLError()).
  static ::testing::AssertionResult noGLError();

  // Saves the framebuffer as <dir>/<suite>.<test>[.<tag>].png, where dir is
  // $LUMAGRID_RENDER_OUTPUT_DIR or, by default, render-output in the working directory (ctest runs
  // the suites in <build>/tests). Returns the path,
  // or an empty string (with a test failure) if the file could not be written.
  std::string saveFramebuffer(const std::string& tag = "");

 private:
  std::unique_ptr<EglContext> context_;
};

// Each channel within tolerance of the expected value.
::testing::AssertionResult colorNear(const Rgba& actual, const Rgba& expected, int tolerance);

}  // namespace headless
