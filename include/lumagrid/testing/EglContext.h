/// @file
/// A headless OpenGL compatibility context for tests and batch jobs that draw for real: EGL on
/// Mesa's surfaceless platform (no X, no Wayland, no GPU needed), llvmpipe, rendering into a
/// framebuffer object with a depth buffer. GL calls made through libGL (GLVND) by the program or by
/// any library it links reach this context once it is current.
///
/// @code
///   find_package(Lumagrid REQUIRED COMPONENTS headless)
///   target_link_libraries(render_job PRIVATE Lumagrid::lumagrid Lumagrid::headless)
///
///   headless::EglContext gl(512, 512);  // current, in the state applyDefaultState() sets
///   if (!gl.ok()) { std::cerr << gl.error() << '\n'; return 1; }
///   scene.DrawGLShapes();
///   gl.savePng("scene.png");
/// @endcode
///
/// The kit's reference is docs/testing-kit.md, installed as share/doc/lumagrid/testing-kit.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

/// A real OpenGL context with no display, with pixel read-back and PNG output
/// (Lumagrid::headless).
namespace headless {

/// One pixel as read back: GL_RGBA, one byte a channel.
struct Rgba {
  /// Red, 0 to 255.
  std::uint8_t r = 0;
  /// Green, 0 to 255.
  std::uint8_t g = 0;
  /// Blue, 0 to 255.
  std::uint8_t b = 0;
  /// Alpha, 0 to 255.
  std::uint8_t a = 0;

  /// Equal when all four channels are.
  friend bool operator==(const Rgba& x, const Rgba& y) {
    return x.r == y.r && x.g == y.g && x.b == y.b && x.a == y.a;
  }
  /// Different when any channel is.
  friend bool operator!=(const Rgba& x, const Rgba& y) { return !(x == y); }
};

/// @name Printing pixels
/// Both print rgba(r, g, b, a), for test messages.
///@{

/// The pixel as text.
std::string toString(const Rgba& c);
/// Writes toString(c).
std::ostream& operator<<(std::ostream& os, const Rgba& c);
///@}

/// A real OpenGL context with no display, drawing into a framebuffer object with depth.
///
/// A test or batch job constructs one, checks ok(), draws (the context is current and in the
/// state applyDefaultState() sets), then reads pixels back or saves a PNG. It is desktop OpenGL
/// with no version requested, so Mesa gives a compatibility profile and GL 1.1 fixed function
/// works. Mesa 22 crashes when a display list holding GLU geometry is replayed in feedback mode:
/// check pixels, not feedback buffers.
class EglContext {
 public:
  /// The kind of context to make.
  enum class Profile {
    /// Desktop OpenGL with no version requested: Mesa's compatibility profile, fixed function
    /// and display lists included.
    Compatibility,
    /// OpenGL 3.3 core profile: no fixed function, no display lists, as a modern host has.
    Core
  };

  /// Creates the context and its width x height framebuffer, makes it current and applies
  /// applyDefaultState(). Check ok() before use; error() says what failed.
  ///
  /// With samples > 0 the framebuffer is multisampled (as many samples as the driver allows, at
  /// most that many) and every read resolves it first. Sets LIBGL_ALWAYS_SOFTWARE=1, unless it is
  /// already set, before it opens the display.
  EglContext(int width, int height, int samples = 0);
  /// The same with a profile of choice. A Profile::Core context's default state leaves out the
  /// fixed-function part (matrices and light), which a core profile does not have.
  EglContext(int width, int height, int samples, Profile profile);
  /// Deletes the framebuffer (making the context current for that) and destroys the context.
  ~EglContext();
  /// Not copyable: it owns the context.
  EglContext(const EglContext&) = delete;
  /// Not copyable: it owns the context.
  EglContext& operator=(const EglContext&) = delete;

  /// Whether the context and its framebuffer were made: no error() recorded.
  bool ok() const { return error_.empty(); }
  /// What failed, empty when nothing did.
  const std::string& error() const { return error_; }
  /// Framebuffer width, in pixels.
  int width() const { return width_; }
  /// Framebuffer height, in pixels.
  int height() const { return height_; }
  /// Samples per pixel of the framebuffer; 0 when it is not multisampled.
  int samples() const { return samples_; }
  /// The profile it was made with.
  Profile profile() const { return profile_; }

  /// Makes this context current again (after another one was).
  /// @return false on failure, with error() saying why.
  bool makeCurrent();

  /// The scene every test starts from: viewport over the whole framebuffer, black clear colour,
  /// colour and depth cleared, GL_DEPTH_TEST on; in a compatibility context also projection
  /// glOrtho(-2, 2, -2, 2, -10, 10), modelview identity, matrix mode GL_MODELVIEW; GL_LIGHTING and
  /// GL_LIGHT0 on, the light directional from the viewer (position (0, 0, 1, 0) in eye space);
  /// GL_DEPTH_TEST and GL_NORMALIZE on.
  void applyDefaultState();

  /// Copies the multisampled framebuffer into the single-sampled one that reads see; nothing to
  /// do without multisampling. The reads below call it.
  void resolve() const;

  /// One pixel, in GL window coordinates: x from the left, y from the bottom.
  Rgba pixel(int x, int y) const;
  /// The whole framebuffer, bottom row first, width() pixels a row.
  std::vector<Rgba> readPixels() const;
  /// The number of pixels for which `predicate` is true.
  std::size_t countPixels(const std::function<bool(const Rgba&)>& predicate) const;
  /// Writes the framebuffer as an RGBA PNG, top row first.
  /// @return false on failure, saying why in `*why` when `why` is not null.
  bool savePng(const std::string& path, std::string* why = nullptr) const;

  /// GL_RENDERER of the current context (empty when there is none).
  static std::string renderer();
  /// GL_VERSION of the current context (empty when there is none).
  static std::string version();

 private:
  struct Handles;
  std::unique_ptr<Handles> h_;
  int width_;
  int height_;
  int samples_ = 0;
  Profile profile_ = Profile::Compatibility;
  std::string error_;
};

}  // namespace headless
