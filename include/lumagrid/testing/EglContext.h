// A headless OpenGL compatibility context for tests and batch jobs that draw for real: EGL on
// Mesa's surfaceless platform (no X, no Wayland, no GPU needed), llvmpipe, rendering into a
// framebuffer object with a depth buffer. GL calls made through libGL (GLVND) by the program or by
// any library it links reach this context once it is current.
//
//   find_package(Lumagrid REQUIRED COMPONENTS headless)
//   target_link_libraries(render_job PRIVATE Lumagrid::lumagrid Lumagrid::headless)
//
//   headless::EglContext gl(512, 512);  // current, in the state applyDefaultState() sets
//   if (!gl.ok()) { std::cerr << gl.error() << '\n'; return 1; }
//   scene.DrawGLShapes();
//   gl.savePng("scene.png");
//
// The kit's reference is share/doc/lumagrid/testing-kit.md in the install tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace headless {

struct Rgba {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
  std::uint8_t a = 0;

  friend bool operator==(const Rgba& x, const Rgba& y) {
    return x.r == y.r && x.g == y.g && x.b == y.b && x.a == y.a;
  }
  friend bool operator!=(const Rgba& x, const Rgba& y) { return !(x == y); }
};

// Prints as rgba(r, g, b, a), for test messages.
std::string toString(const Rgba& c);
std::ostream& operator<<(std::ostream& os, const Rgba& c);

class EglContext {
 public:
  // Creates the context and its width x height framebuffer, makes it current and applies
  // applyDefaultState(). Check ok() before use; error() says what failed. With samples > 0 the
  // framebuffer is multisampled (as many samples as the driver allows, at most that many) and
  // every read resolves it first.
  EglContext(int width, int height, int samples = 0);
  ~EglContext();
  EglContext(const EglContext&) = delete;
  EglContext& operator=(const EglContext&) = delete;

  bool ok() const { return error_.empty(); }
  const std::string& error() const { return error_; }
  int width() const { return width_; }
  int height() const { return height_; }
  // Samples per pixel of the framebuffer; 0 when it is not multisampled.
  int samples() const { return samples_; }

  bool makeCurrent();

  // The scene every test starts from: viewport over the whole framebuffer, black clear colour,
  // colour and depth cleared; projection glOrtho(-2, 2, -2, 2, -10, 10), modelview identity,
  // matrix mode GL_MODELVIEW; GL_LIGHTING and GL_LIGHT0 on, the light directional from the
  // viewer (position (0, 0, 1, 0) in eye space); GL_DEPTH_TEST and GL_NORMALIZE on.
  void applyDefaultState();

  // Copies the multisampled framebuffer into the single-sampled one that reads see; nothing to do
  // without multisampling. The reads below call it.
  void resolve() const;

  // Pixels in GL window coordinates: x from the left, y from the bottom.
  Rgba pixel(int x, int y) const;
  // The whole framebuffer, bottom row first, width() pixels a row.
  std::vector<Rgba> readPixels() const;
  std::size_t countPixels(const std::function<bool(const Rgba&)>& predicate) const;
  // Writes the framebuffer as an RGBA PNG, top row first. Returns false (and says why in *why)
  // on failure.
  bool savePng(const std::string& path, std::string* why = nullptr) const;

  // GL_RENDERER and GL_VERSION of the current context.
  static std::string renderer();
  static std::string version();

 private:
  struct Handles;
  std::unique_ptr<Handles> h_;
  int width_;
  int height_;
  int samples_ = 0;
  std::string error_;
};

}  // namespace headless
