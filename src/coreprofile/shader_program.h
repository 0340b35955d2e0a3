#ifndef LUMAGRID_SRC_COREPROFILE_SHADER_PROGRAM_H
#define LUMAGRID_SRC_COREPROFILE_SHADER_PROGRAM_H

#include <epoxy/gl.h>

#include <string>

namespace lumagrid::detail {

// A linked program of one vertex and one fragment shader. Holds nothing when compiling or
// linking failed; error() then says why, with the driver's log.
class ShaderProgram {
 public:
  ShaderProgram(const char* vertexSource, const char* fragmentSource);
  ~ShaderProgram();
  ShaderProgram(const ShaderProgram&) = delete;
  ShaderProgram& operator=(const ShaderProgram&) = delete;

  bool ok() const { return program_ != 0; }
  const std::string& error() const { return error_; }
  GLuint id() const { return program_; }
  GLint uniform(const char* name) const { return glGetUniformLocation(program_, name); }

 private:
  GLuint program_ = 0;
  std::string error_;
};

}  // namespace lumagrid::detail

#endif
