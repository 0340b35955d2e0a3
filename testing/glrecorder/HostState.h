// GL state that a host sets around a draw (viewport, clearing, blending, depth, shading, lights)
// and the library itself never touches. Internal.
#pragma once

#include <GL/gl.h>

#include <array>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace glrecorder::detail {

struct HostState {
  HostState() { reset(); }
  void reset();

  // glLightfv's value of pname for light; GL's default when never set.
  std::array<float, 4> light(GLenum light, GLenum pname) const;
  // The values glGet* returns for pname, or nothing when it is not host state.
  std::optional<std::vector<double>> value(GLenum pname) const;

  std::array<int, 4> viewport{};
  std::array<float, 4> clearColor{};
  double clearDepth = 1.0;
  GLenum blendSrc = GL_ONE;
  GLenum blendDst = GL_ZERO;
  bool depthMask = true;
  GLenum depthFunc = GL_LESS;
  GLenum shadeModel = GL_SMOOTH;
  GLenum cullFace = GL_BACK;
  GLenum frontFace = GL_CCW;
  GLenum colorMaterialFace = GL_FRONT_AND_BACK;
  GLenum colorMaterialMode = GL_AMBIENT_AND_DIFFUSE;
  std::map<std::pair<GLenum, GLenum>, std::array<float, 4>> lights;  // (light, pname)
  std::map<GLenum, std::array<float, 4>> lightModel;
};

// Number of values glLightfv / glLightModelfv take for pname; 0 for an unknown one.
std::size_t lightValues(GLenum pname);
std::size_t lightModelValues(GLenum pname);

}  // namespace glrecorder::detail
