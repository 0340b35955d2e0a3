#ifndef LUMAGRID_SRC_COREPROFILE_SHADER_SOURCE_H
#define LUMAGRID_SRC_COREPROFILE_SHADER_SOURCE_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace lumagrid::detail {

// Attribute locations the vertex arrays and the shader share.
enum Attribute : unsigned {
  kPosition = 0,
  kNormal = 1,
  kModelView = 2,     // four columns: 2 to 5
  kNormalMatrix = 6,  // three columns: 6 to 8
  kColour = 9,
  kClip = 10,  // four columns: 10 to 13
};

constexpr int kMaxLights = 8;

// The fixed-function pipeline's lighting of an AMBIENT_AND_DIFFUSE material with no specular
// part and no emission, per vertex as GL lights: the light model's ambient and every light's
// diffuse term, clamped. Lines take their colour as it is, unless they carry normals (a tube's
// wireframe), which GL lights. The lights' terms are written out one by one for the view's
// lights, as GL's own fixed-function shaders are: a loop over a uniform count costs llvmpipe a
// third of a frame of many vertices.
inline std::string VertexShader(const std::vector<bool>& directional) {
  std::string source = R"(#version 330 core
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in mat4 modelView;
layout(location = 6) in mat3 normalMatrix;
layout(location = 9) in vec4 colour;
layout(location = 10) in mat4 clip;
uniform bool lit;
uniform vec4 lightPosition[8];
uniform vec4 lightDiffuse[8];
uniform vec4 ambient;
out vec4 shade;
// A directional light's direction comes normalised (SetView), as GL normalises it once.
vec3 diffuse(int i, vec3 n, vec3 toLight) {
  return lightDiffuse[i].rgb * max(dot(n, toLight), 0.0);
}
void main() {
  gl_Position = clip * vec4(position, 1.0);
  if (!lit && normal == vec3(0.0)) {
    shade = clamp(colour, 0.0, 1.0);
    return;
  }
  vec3 n = normalize(normalMatrix * normal);
  vec3 c = ambient.rgb;
)";
  // Only a point light needs the vertex in eye space.
  if (std::find(directional.begin(), directional.end(), false) != directional.end()) {
    source += "  vec4 eye = modelView * vec4(position, 1.0);\n";
  }
  for (std::size_t i = 0; i < directional.size(); ++i) {
    const std::string light = "lightPosition[" + std::to_string(i) + "]";
    source +=
        "  c += diffuse(" + std::to_string(i) + ", n, " +
        (directional[i] ? light + ".xyz"
                        : "normalize(" + light + ".xyz / " + light + ".w - eye.xyz / eye.w)") +
        ");\n";
  }
  source += R"(  shade = vec4(clamp(c * colour.rgb, 0.0, 1.0), clamp(colour.a, 0.0, 1.0));
}
)";
  return source;
}

constexpr const char* kFragmentShader = R"(#version 330 core
in vec4 shade;
out vec4 fragment;
void main() {
  fragment = shade;
}
)";

}  // namespace lumagrid::detail

#endif
