#include "coreprofile/gl_state.h"

namespace lumagrid::detail {

GLStateGuard::GLStateGuard() {
  glGetIntegerv(GL_CURRENT_PROGRAM, &program_);
  glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &vertexArray_);
  glGetIntegerv(GL_ARRAY_BUFFER_BINDING, &arrayBuffer_);
  depthTest_ = glIsEnabled(GL_DEPTH_TEST);
  glGetBooleanv(GL_DEPTH_WRITEMASK, &depthMask_);
  blend_ = glIsEnabled(GL_BLEND);
  glGetIntegerv(GL_BLEND_SRC_RGB, &blendSource_[0]);
  glGetIntegerv(GL_BLEND_SRC_ALPHA, &blendSource_[1]);
  glGetIntegerv(GL_BLEND_DST_RGB, &blendDestination_[0]);
  glGetIntegerv(GL_BLEND_DST_ALPHA, &blendDestination_[1]);
  cullFace_ = glIsEnabled(GL_CULL_FACE);
  glGetIntegerv(GL_CULL_FACE_MODE, &cullFaceMode_);
}

namespace {

void Set(GLenum capability, GLboolean on) {
  if (on == GL_TRUE) {
    glEnable(capability);
  } else {
    glDisable(capability);
  }
}

}  // namespace

GLStateGuard::~GLStateGuard() {
  glUseProgram(static_cast<GLuint>(program_));
  glBindVertexArray(static_cast<GLuint>(vertexArray_));
  glBindBuffer(GL_ARRAY_BUFFER, static_cast<GLuint>(arrayBuffer_));
  Set(GL_DEPTH_TEST, depthTest_);
  glDepthMask(depthMask_);
  Set(GL_BLEND, blend_);
  glBlendFuncSeparate(
      static_cast<GLenum>(blendSource_[0]), static_cast<GLenum>(blendDestination_[0]),
      static_cast<GLenum>(blendSource_[1]), static_cast<GLenum>(blendDestination_[1]));
  Set(GL_CULL_FACE, cullFace_);
  glCullFace(static_cast<GLenum>(cullFaceMode_));
}

}  // namespace lumagrid::detail
