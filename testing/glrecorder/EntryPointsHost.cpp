// The GL and GLU entry points a host calls around a draw: projection and camera, viewport,
// clearing, blending, depth, shading and lights. The library itself calls none of them.
#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "glrecorder/EntryPointSupport.h"

namespace {

// The entry-point helpers (args, emulator, ...) and the recorder's value types.
using namespace glrecorder;
using namespace glrecorder::detail;

void loadMatrix(Emulator& e, const std::optional<Matrix>& m) {
  if (m) {
    e.loadMatrix(*m);
  }
}

void multiplyMatrix(Emulator& e, const std::optional<Matrix>& m) {
  if (m) {
    e.multiplyCurrent(*m);
  }
}

constexpr double kPi = 3.14159265358979323846;

// GLU's perspective matrix; GLU leaves the matrix alone for a degenerate one.
std::optional<Matrix> perspective(double fovy, double aspect, double zNear, double zFar) {
  const double radians = fovy / 2.0 * kPi / 180.0;
  const double deltaZ = zFar - zNear;
  const double sine = std::sin(radians);
  if (deltaZ == 0.0 || sine == 0.0 || aspect == 0.0) {
    return std::nullopt;
  }
  const double cotangent = std::cos(radians) / sine;
  Matrix m{};
  m[0] = cotangent / aspect;
  m[5] = cotangent;
  m[10] = -(zFar + zNear) / deltaZ;
  m[11] = -1.0;
  m[14] = -2.0 * zNear * zFar / deltaZ;
  return m;
}

using Vec3 = std::array<double, 3>;

Vec3 cross(const Vec3& a, const Vec3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vec3 normalized(const Vec3& v) {
  const double length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
  if (length == 0.0) {
    return v;
  }
  return {v[0] / length, v[1] / length, v[2] / length};
}

// GLU's viewing matrix: rotate the eye's frame onto the axes, then move the eye to the origin.
Matrix lookAt(const Vec3& eye, const Vec3& centre, const Vec3& up) {
  const Vec3 forward = normalized({centre[0] - eye[0], centre[1] - eye[1], centre[2] - eye[2]});
  const Vec3 side = normalized(cross(forward, up));
  const Vec3 trueUp = cross(side, forward);
  Matrix m = glrecorder::detail::identity();
  for (int i = 0; i < 3; ++i) {
    m[i * 4 + 0] = side[i];
    m[i * 4 + 1] = trueUp[i];
    m[i * 4 + 2] = -forward[i];
  }
  Matrix move = glrecorder::detail::identity();
  move[12] = -eye[0];
  move[13] = -eye[1];
  move[14] = -eye[2];
  return glrecorder::detail::multiply(m, move);
}

bool isLight(GLenum light) {
  return light >= GL_LIGHT0 && light < GL_LIGHT0 + 8;
}

// GL keeps a light's position and spot direction in eye coordinates, transformed by the
// modelview matrix in force when they are set.
std::array<float, 4> toEye(const Emulator& e, GLenum pname, const std::array<float, 4>& v) {
  if (pname != GL_POSITION && pname != GL_SPOT_DIRECTION) {
    return v;
  }
  const Matrix& m = e.modelview.matrices.back();
  const double w = pname == GL_POSITION ? v[3] : 0.0;
  std::array<float, 4> out{};
  for (int row = 0; row < 4; ++row) {
    const double sum = m[row] * v[0] + m[4 + row] * v[1] + m[8 + row] * v[2] + m[12 + row] * w;
    out[static_cast<std::size_t>(row)] = static_cast<float>(sum);
  }
  if (pname == GL_SPOT_DIRECTION) {
    out[3] = 0.0f;
  }
  return out;
}

void setLight(Emulator& e, GLenum light, GLenum pname, const std::vector<float>& values) {
  if (!e.outsideBeginEnd()) {
    return;
  }
  if (!isLight(light) || glrecorder::detail::lightValues(pname) == 0 || values.empty()) {
    e.raise(GL_INVALID_ENUM);
    return;
  }
  std::array<float, 4> stored{};
  std::copy(values.begin(), values.end(), stored.begin());
  e.host.lights[{light, pname}] = toEye(e, pname, stored);
}

void setLightModel(Emulator& e, GLenum pname, const std::vector<float>& values) {
  if (!e.outsideBeginEnd()) {
    return;
  }
  if (glrecorder::detail::lightModelValues(pname) == 0 || values.empty()) {
    e.raise(GL_INVALID_ENUM);
    return;
  }
  std::array<float, 4> stored{};
  std::copy(values.begin(), values.end(), stored.begin());
  e.host.lightModel[pname] = stored;
}

std::vector<float> lightArray(const GLfloat* params, std::size_t n) {
  return params != nullptr ? std::vector<float>(params, params + n) : std::vector<float>{};
}

// Records a command that sets one piece of host state when executed, outside glBegin/glEnd.
template <class Set>
void hostCommand(const char* name, std::vector<Arg> arguments, Set set) {
  emulator().command(name, std::move(arguments), [set](Emulator& e) {
    if (e.outsideBeginEnd()) {
      set(e);
    }
  });
}

float clamped(float v) {
  return std::clamp(v, 0.0f, 1.0f);
}

}  // namespace

extern "C" {

// ------------------------------------------------------------------ matrices

void GLAPIENTRY glLoadMatrixd(const GLdouble* m) {
  emulator().command("glLoadMatrixd", args(doublesOrNull(m, 16)),
                     [mat = matrixFrom(m)](Emulator& e) { loadMatrix(e, mat); });
}

void GLAPIENTRY glLoadMatrixf(const GLfloat* m) {
  emulator().command("glLoadMatrixf", args(floatsOrNull(m, 16)),
                     [mat = matrixFrom(m)](Emulator& e) { loadMatrix(e, mat); });
}

void GLAPIENTRY glMultMatrixf(const GLfloat* m) {
  emulator().command("glMultMatrixf", args(floatsOrNull(m, 16)),
                     [mat = matrixFrom(m)](Emulator& e) { multiplyMatrix(e, mat); });
}

void GLAPIENTRY glFrustum(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top,
                          GLdouble zNear, GLdouble zFar) {
  emulator().command("glFrustum", args(left, right, bottom, top, zNear, zFar),
                     [=](Emulator& e) { e.frustum(left, right, bottom, top, zNear, zFar); });
}

void GLAPIENTRY glScaled(GLdouble x, GLdouble y, GLdouble z) {
  emulator().command("glScaled", args(x, y, z), [=](Emulator& e) { e.scale(x, y, z); });
}

void GLAPIENTRY gluPerspective(GLdouble fovy, GLdouble aspect, GLdouble zNear, GLdouble zFar) {
  emulator().command(
      "gluPerspective", args(fovy, aspect, zNear, zFar),
      [m = perspective(fovy, aspect, zNear, zFar)](Emulator& e) { multiplyMatrix(e, m); });
}

void GLAPIENTRY gluLookAt(GLdouble eyeX, GLdouble eyeY, GLdouble eyeZ, GLdouble centerX,
                          GLdouble centerY, GLdouble centerZ, GLdouble upX, GLdouble upY,
                          GLdouble upZ) {
  const Matrix m = lookAt({eyeX, eyeY, eyeZ}, {centerX, centerY, centerZ}, {upX, upY, upZ});
  emulator().command("gluLookAt", args(eyeX, eyeY, eyeZ, centerX, centerY, centerZ, upX, upY, upZ),
                     [m](Emulator& e) { e.multiplyCurrent(m); });
}

void GLAPIENTRY gluOrtho2D(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top) {
  emulator().command("gluOrtho2D", args(left, right, bottom, top),
                     [=](Emulator& e) { e.ortho(left, right, bottom, top, -1.0, 1.0); });
}

void GLAPIENTRY glGetFloatv(GLenum pname, GLfloat* params) {
  glrecorder::detail::get("glGetFloatv", pname, params);
}

// ------------------------------------------------------------------ framebuffer

void GLAPIENTRY glViewport(GLint x, GLint y, GLsizei width, GLsizei height) {
  emulator().command("glViewport", args(x, y, width, height), [=](Emulator& e) {
    if (!e.outsideBeginEnd()) {
      return;
    }
    if (width < 0 || height < 0) {
      e.raise(GL_INVALID_VALUE);
      return;
    }
    e.host.viewport = {x, y, width, height};
  });
}

void GLAPIENTRY glClearColor(GLclampf red, GLclampf green, GLclampf blue, GLclampf alpha) {
  hostCommand("glClearColor", args(red, green, blue, alpha), [=](Emulator& e) {
    e.host.clearColor = {clamped(red), clamped(green), clamped(blue), clamped(alpha)};
  });
}

void GLAPIENTRY glClearDepth(GLclampd depth) {
  hostCommand("glClearDepth", args(depth),
              [=](Emulator& e) { e.host.clearDepth = std::clamp(depth, 0.0, 1.0); });
}

void GLAPIENTRY glClear(GLbitfield mask) {
  constexpr GLbitfield kKnown =
      GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT | GL_ACCUM_BUFFER_BIT;
  hostCommand("glClear", args(mask), [=](Emulator& e) {
    if ((mask & ~kKnown) != 0) {
      e.raise(GL_INVALID_VALUE);
    }
  });
}

void GLAPIENTRY glBlendFunc(GLenum sfactor, GLenum dfactor) {
  hostCommand("glBlendFunc", args(en(sfactor), en(dfactor)), [=](Emulator& e) {
    e.host.blendSrc = sfactor;
    e.host.blendDst = dfactor;
  });
}

void GLAPIENTRY glDepthMask(GLboolean flag) {
  hostCommand("glDepthMask", args(flag), [=](Emulator& e) { e.host.depthMask = flag != GL_FALSE; });
}

void GLAPIENTRY glDepthFunc(GLenum func) {
  hostCommand("glDepthFunc", args(en(func)), [=](Emulator& e) { e.host.depthFunc = func; });
}

void GLAPIENTRY glFlush(void) {
  emulator().immediate("glFlush", args());
}

void GLAPIENTRY glFinish(void) {
  emulator().immediate("glFinish", args());
}

// ------------------------------------------------------------------ shading and lights

void GLAPIENTRY glShadeModel(GLenum mode) {
  hostCommand("glShadeModel", args(en(mode)), [=](Emulator& e) {
    if (mode != GL_FLAT && mode != GL_SMOOTH) {
      e.raise(GL_INVALID_ENUM);
      return;
    }
    e.host.shadeModel = mode;
  });
}

void GLAPIENTRY glCullFace(GLenum mode) {
  hostCommand("glCullFace", args(en(mode)), [=](Emulator& e) { e.host.cullFace = mode; });
}

void GLAPIENTRY glFrontFace(GLenum mode) {
  hostCommand("glFrontFace", args(en(mode)), [=](Emulator& e) { e.host.frontFace = mode; });
}

void GLAPIENTRY glHint(GLenum target, GLenum mode) {
  hostCommand("glHint", args(en(target), en(mode)), [](Emulator&) {});
}

void GLAPIENTRY glColorMaterial(GLenum face, GLenum mode) {
  hostCommand("glColorMaterial", args(en(face), en(mode)), [=](Emulator& e) {
    e.host.colorMaterialFace = face;
    e.host.colorMaterialMode = mode;
  });
}

void GLAPIENTRY glLightfv(GLenum light, GLenum pname, const GLfloat* params) {
  const std::size_t n = params != nullptr ? glrecorder::detail::lightValues(pname) : 0;
  emulator().command(
      "glLightfv", args(en(light), en(pname), floatsOrNull(params, n)),
      [=, values = lightArray(params, n)](Emulator& e) { setLight(e, light, pname, values); });
}

void GLAPIENTRY glLightf(GLenum light, GLenum pname, GLfloat param) {
  emulator().command("glLightf", args(en(light), en(pname), param), [=](Emulator& e) {
    setLight(e, light, pname,
             glrecorder::detail::lightValues(pname) == 1 ? std::vector<float>{param}
                                                         : std::vector<float>{});
  });
}

void GLAPIENTRY glLightModelfv(GLenum pname, const GLfloat* params) {
  const std::size_t n = params != nullptr ? glrecorder::detail::lightModelValues(pname) : 0;
  emulator().command(
      "glLightModelfv", args(en(pname), floatsOrNull(params, n)),
      [=, values = lightArray(params, n)](Emulator& e) { setLightModel(e, pname, values); });
}

void GLAPIENTRY glLightModeli(GLenum pname, GLint param) {
  emulator().command("glLightModeli", args(en(pname), param), [=](Emulator& e) {
    setLightModel(e, pname,
                  glrecorder::detail::lightModelValues(pname) == 1
                      ? std::vector<float>{static_cast<float>(param)}
                      : std::vector<float>{});
  });
}

// ------------------------------------------------------------------ colour

void GLAPIENTRY glColor3f(GLfloat red, GLfloat green, GLfloat blue) {
  emulator().command("glColor3f", args(red, green, blue), [=](Emulator& e) {
    e.color = {red, green, blue, 1.0};
  });
}

void GLAPIENTRY glColor4f(GLfloat red, GLfloat green, GLfloat blue, GLfloat alpha) {
  emulator().command("glColor4f", args(red, green, blue, alpha), [=](Emulator& e) {
    e.color = {red, green, blue, alpha};
  });
}

void GLAPIENTRY glColor3fv(const GLfloat* v) {
  emulator().command("glColor3fv", args(floatsOrNull(v, 3)),
                     [c = valuesAt(v, 3)](Emulator& e) { setColor(e, c); });
}

void GLAPIENTRY glColor4fv(const GLfloat* v) {
  emulator().command("glColor4fv", args(floatsOrNull(v, 4)),
                     [c = valuesAt(v, 4)](Emulator& e) { setColor(e, c); });
}

}  // extern "C"
