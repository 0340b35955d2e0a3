/// @file
/// A second way to draw a scene: OpenGL 3.3 core profile, without display lists or the fixed
/// function pipeline. The component Lumagrid::coreprofile (liblumagrid-coreprofile).
#ifndef LUMAGRID_COREPROFILERENDERER_H
#define LUMAGRID_COREPROFILERENDERER_H

#include <memory>
#include <string>
#include <vector>

class CGLScene;

/// Gives the renderer default visibility: the component, like the library, is built with
/// symbols hidden by default.
#define LUMAGRID_COREPROFILE_API __attribute__((visibility("default")))

namespace lumagrid {

/// A light as `glLightfv` takes it, in eye coordinates (as set under an identity model-view).
struct Light {
  /// `GL_POSITION`: w = 0 for a directional light, from that direction; w = 1 for a point.
  float position[4];
  /// `GL_DIFFUSE`.
  float diffuse[4];
};

/// What the fixed-function state of a legacy draw would hold: the matrices, the lights and the
/// light model's ambient colour.
struct View {
  /// The model-view matrix the scene is drawn under, column-major as `glLoadMatrixf` takes it.
  float modelView[16];
  /// The projection matrix, column-major.
  float projection[16];
  /// The enabled lights, at most eight.
  std::vector<Light> lights;
  /// `GL_LIGHT_MODEL_AMBIENT`.
  float ambient[4];
};

/// Draws a CGLScene in an OpenGL 3.3 core profile context (or a compatibility context of 3.3 or
/// later) with the look the fixed-function pipeline gives it: lit `AMBIENT_AND_DIFFUSE`
/// materials, highlight colour, alpha and visibility as the legacy draw shows them; line
/// shapes in their colour, unlit (a wireframe tube's lines lit by the tube's normals, as GL
/// lights them).
///
/// Unlike the legacy draw, translucent shapes come after the opaque ones, sorted back to front,
/// with depth writes off; shapes of the same mesh are drawn instanced; back faces of a mesh that
/// closes a surface are culled, which hides nothing seen from outside the shape (a camera inside
/// it sees none of it); and a shape's mesh is rebuilt only when its geometry changes. The shapes
/// are only read: their modified marks and display lists are left to the legacy draw.
class LUMAGRID_COREPROFILE_API CoreProfileRenderer {
 public:
  /// Needs the context that Draw() will draw into current; makes no GL call until Draw().
  CoreProfileRenderer();
  /// Frees every GL object the renderer made; the context must still be current.
  ~CoreProfileRenderer();
  /// Not copyable: it owns GL objects.
  CoreProfileRenderer(const CoreProfileRenderer&) = delete;
  /// Not copyable: it owns GL objects.
  CoreProfileRenderer& operator=(const CoreProfileRenderer&) = delete;

  /// Draws the scene's shown shapes into the current framebuffer (no clear), with depth test.
  /// @return false, with LastError() set, when there is no current context, the context is
  ///         below OpenGL 3.3, a shader does not compile or link, or GL reports an error; the
  ///         renderer then draws nothing and leaves the GL state as it found it.
  bool Draw(CGLScene& scene, const View& view);
  /// Why the last Draw() failed; empty after one that succeeded.
  std::string LastError() const;

  /// How many GL objects (buffers, vertex arrays, shaders, programs) the renderer holds now.
  std::size_t GLObjectCount() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace lumagrid

#endif
