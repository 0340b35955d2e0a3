#ifndef LUMAGRID_SRC_COREPROFILE_GL_STATE_H
#define LUMAGRID_SRC_COREPROFILE_GL_STATE_H

#include <epoxy/gl.h>

namespace lumagrid::detail {

// The GL state a draw changes, restored when the guard goes: the host's own drawing goes on as
// it left it.
class GLStateGuard {
 public:
  GLStateGuard();
  ~GLStateGuard();
  GLStateGuard(const GLStateGuard&) = delete;
  GLStateGuard& operator=(const GLStateGuard&) = delete;

 private:
  GLint program_ = 0;
  GLint vertexArray_ = 0;
  GLint arrayBuffer_ = 0;
  GLboolean depthTest_ = GL_FALSE;
  GLboolean depthMask_ = GL_TRUE;
  GLboolean blend_ = GL_FALSE;
  GLint blendSource_[2] = {GL_ONE, GL_ONE};
  GLint blendDestination_[2] = {GL_ZERO, GL_ZERO};
  GLboolean cullFace_ = GL_FALSE;
  GLint cullFaceMode_ = GL_BACK;
};

}  // namespace lumagrid::detail

#endif
