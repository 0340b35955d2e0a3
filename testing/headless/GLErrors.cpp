#include <lumagrid/testing/GLErrors.h>

#include <GL/gl.h>

#include <cstdio>

namespace headless {

std::string glErrorName(unsigned int error) {
  switch (error) {
    case GL_INVALID_ENUM:
      return "GL_INVALID_ENUM";
    case GL_INVALID_VALUE:
      return "GL_INVALID_VALUE";
    case GL_INVALID_OPERATION:
      return "GL_INVALID_OPERATION";
    case GL_STACK_OVERFLOW:
      return "GL_STACK_OVERFLOW";
    case GL_STACK_UNDERFLOW:
      return "GL_STACK_UNDERFLOW";
    case GL_OUT_OF_MEMORY:
      return "GL_OUT_OF_MEMORY";
    default: {
      char buffer[16];
      std::snprintf(buffer, sizeof buffer, "0x%04X", error);
      return buffer;
    }
  }
}

std::vector<std::string> pendingGLErrors() {
  std::vector<std::string> errors;
  for (GLenum e = glGetError(); e != GL_NO_ERROR && errors.size() < 16; e = glGetError()) {
    errors.push_back(glErrorName(e));
  }
  return errors;
}

}  // namespace headless
