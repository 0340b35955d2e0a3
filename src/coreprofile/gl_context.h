#ifndef LUMAGRID_SRC_COREPROFILE_GL_CONTEXT_H
#define LUMAGRID_SRC_COREPROFILE_GL_CONTEXT_H

namespace lumagrid::detail {

// Whether the calling thread has an EGL or GLX context current. Asked of the libraries the host
// has loaded, without loading any: with neither loaded there can be no context.
bool HasCurrentContext();

// The current context's OpenGL version as major * 10 + minor (33 for 3.3); 0 when there is no
// current context or it is OpenGL ES.
int CurrentGLVersion();

}  // namespace lumagrid::detail

#endif
