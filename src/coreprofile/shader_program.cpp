#include "coreprofile/shader_program.h"

#include <vector>

namespace lumagrid::detail {
namespace {

std::string InfoLog(GLuint object, bool isProgram) {
  GLint length = 0;
  if (isProgram) {
    glGetProgramiv(object, GL_INFO_LOG_LENGTH, &length);
  } else {
    glGetShaderiv(object, GL_INFO_LOG_LENGTH, &length);
  }
  std::vector<char> log(static_cast<std::size_t>(length > 0 ? length : 1), '\0');
  if (isProgram) {
    glGetProgramInfoLog(object, length, nullptr, log.data());
  } else {
    glGetShaderInfoLog(object, length, nullptr, log.data());
  }
  return std::string(log.data());
}

// The compiled shader, or 0 with the reason in `error`.
GLuint Compile(GLenum stage, const char* source, std::string& error) {
  const GLuint shader = glCreateShader(stage);
  glShaderSource(shader, 1, &source, nullptr);
  glCompileShader(shader);
  GLint compiled = GL_FALSE;
  glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
  if (compiled != GL_TRUE) {
    error = std::string(stage == GL_VERTEX_SHADER ? "the vertex" : "the fragment") +
            " shader does not compile: " + InfoLog(shader, false);
    glDeleteShader(shader);
    return 0;
  }
  return shader;
}

}  // namespace

ShaderProgram::ShaderProgram(const char* vertexSource, const char* fragmentSource) {
  const GLuint vertex = Compile(GL_VERTEX_SHADER, vertexSource, error_);
  const GLuint fragment = vertex != 0 ? Compile(GL_FRAGMENT_SHADER, fragmentSource, error_) : 0;
  if (vertex == 0 || fragment == 0) {
    glDeleteShader(vertex);
    return;
  }
  const GLuint program = glCreateProgram();
  glAttachShader(program, vertex);
  glAttachShader(program, fragment);
  glLinkProgram(program);
  // The program keeps what it linked; the shaders themselves go now (detached, or they would
  // live as long as the program).
  glDetachShader(program, vertex);
  glDetachShader(program, fragment);
  glDeleteShader(vertex);
  glDeleteShader(fragment);
  GLint linked = GL_FALSE;
  glGetProgramiv(program, GL_LINK_STATUS, &linked);
  if (linked != GL_TRUE) {
    error_ = "the shaders do not link: " + InfoLog(program, true);
    glDeleteProgram(program);
    return;
  }
  program_ = program;
}

ShaderProgram::~ShaderProgram() {
  if (program_ != 0) {
    glDeleteProgram(program_);
  }
}

}  // namespace lumagrid::detail
