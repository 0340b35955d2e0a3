#include "glrecorder/HostState.h"

namespace glrecorder::detail {
namespace {

std::vector<double> first(const std::array<float, 4>& v, std::size_t n) {
  return std::vector<double>(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(n));
}

std::vector<double> one(double v) {
  return {v};
}

}  // namespace

std::size_t lightValues(GLenum pname) {
  switch (pname) {
    case GL_AMBIENT:
    case GL_DIFFUSE:
    case GL_SPECULAR:
    case GL_POSITION:
      return 4;
    case GL_SPOT_DIRECTION:
      return 3;
    case GL_SPOT_EXPONENT:
    case GL_SPOT_CUTOFF:
    case GL_CONSTANT_ATTENUATION:
    case GL_LINEAR_ATTENUATION:
    case GL_QUADRATIC_ATTENUATION:
      return 1;
    default:
      return 0;
  }
}

std::size_t lightModelValues(GLenum pname) {
  switch (pname) {
    case GL_LIGHT_MODEL_AMBIENT:
      return 4;
    case GL_LIGHT_MODEL_LOCAL_VIEWER:
    case GL_LIGHT_MODEL_TWO_SIDE:
      return 1;
    default:
      return 0;
  }
}

void HostState::reset() {
  viewport = {0, 0, 0, 0};  // GL sizes it to the first window; the double has none
  clearColor = {0.0f, 0.0f, 0.0f, 0.0f};
  clearDepth = 1.0;
  blendSrc = GL_ONE;
  blendDst = GL_ZERO;
  depthMask = true;
  depthFunc = GL_LESS;
  shadeModel = GL_SMOOTH;
  cullFace = GL_BACK;
  frontFace = GL_CCW;
  colorMaterialFace = GL_FRONT_AND_BACK;
  colorMaterialMode = GL_AMBIENT_AND_DIFFUSE;
  lights.clear();
  lightModel = {{GL_LIGHT_MODEL_AMBIENT, {0.2f, 0.2f, 0.2f, 1.0f}},
                {GL_LIGHT_MODEL_LOCAL_VIEWER, {0.0f, 0.0f, 0.0f, 0.0f}},
                {GL_LIGHT_MODEL_TWO_SIDE, {0.0f, 0.0f, 0.0f, 0.0f}}};
}

std::array<float, 4> HostState::light(GLenum light, GLenum pname) const {
  const auto it = lights.find({light, pname});
  if (it != lights.end()) {
    return it->second;
  }
  // GL's defaults: light 0 is white, the others black; all point down -z from the viewer.
  const bool zero = light == GL_LIGHT0;
  switch (pname) {
    case GL_DIFFUSE:
    case GL_SPECULAR:
      return zero ? std::array<float, 4>{1.0f, 1.0f, 1.0f, 1.0f}
                  : std::array<float, 4>{0.0f, 0.0f, 0.0f, 1.0f};
    case GL_AMBIENT:
      return {0.0f, 0.0f, 0.0f, 1.0f};
    case GL_POSITION:
      return {0.0f, 0.0f, 1.0f, 0.0f};
    case GL_SPOT_DIRECTION:
      return {0.0f, 0.0f, -1.0f, 0.0f};
    case GL_SPOT_CUTOFF:
      return {180.0f, 0.0f, 0.0f, 0.0f};
    case GL_CONSTANT_ATTENUATION:
      return {1.0f, 0.0f, 0.0f, 0.0f};
    default:
      return {0.0f, 0.0f, 0.0f, 0.0f};
  }
}

std::optional<std::vector<double>> HostState::value(GLenum pname) const {
  switch (pname) {
    case GL_VIEWPORT:
      return std::vector<double>(viewport.begin(), viewport.end());
    case GL_COLOR_CLEAR_VALUE:
      return first(clearColor, 4);
    case GL_DEPTH_CLEAR_VALUE:
      return one(clearDepth);
    case GL_BLEND_SRC:
      return one(blendSrc);
    case GL_BLEND_DST:
      return one(blendDst);
    case GL_DEPTH_WRITEMASK:
      return one(depthMask ? 1.0 : 0.0);
    case GL_DEPTH_FUNC:
      return one(depthFunc);
    case GL_SHADE_MODEL:
      return one(shadeModel);
    case GL_CULL_FACE_MODE:
      return one(cullFace);
    case GL_FRONT_FACE:
      return one(frontFace);
    case GL_COLOR_MATERIAL_FACE:
      return one(colorMaterialFace);
    case GL_COLOR_MATERIAL_PARAMETER:
      return one(colorMaterialMode);
    case GL_LIGHT_MODEL_AMBIENT:
    case GL_LIGHT_MODEL_LOCAL_VIEWER:
    case GL_LIGHT_MODEL_TWO_SIDE:
      return first(lightModel.at(pname), lightModelValues(pname));
    default:
      return std::nullopt;
  }
}

}  // namespace glrecorder::detail
