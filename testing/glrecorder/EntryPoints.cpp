// The GL, GLU and GLE entry points the library calls (a host's others: EntryPointsHost.cpp),
// defined with C linkage inside extern "C" so that the compiler holds each definition to the
// prototype in the system header.
//
// Adding an entry point: one definition below, recording through emulator().command (a GL command
// that display lists capture; the lambda is what it does when executed) or emulator().immediate (a
// query or client-side setting that takes effect at once).
#include <GL/gl.h>
#include <GL/glu.h>
#include <GL/gle.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "glrecorder/EntryPointSupport.h"

namespace {

// The entry-point helpers (args, emulator, ...) and the recorder's value types.
using namespace glrecorder;
using namespace glrecorder::detail;

Arg quad(const GLUquadric* handle) {
  return emulator().quadricArg(handle);
}

std::size_t count(int n, int width) {
  return n > 0 ? static_cast<std::size_t>(n * width) : 0;
}

Arg affine(gleDouble xform[2][3]) {
  return xform != nullptr ? Arg(glrecorder::doubles(&xform[0][0], 6, 3)) : Arg(Null{});
}

Arg points(int n, gleDouble array[][3]) {
  return array != nullptr ? Arg(glrecorder::doubles(&array[0][0], count(n, 3), 3)) : Arg(Null{});
}

Arg contour(int n, gleDouble array[][2]) {
  return array != nullptr ? Arg(glrecorder::doubles(&array[0][0], count(n, 2), 2)) : Arg(Null{});
}

Arg colors(int n, gleColor array[]) {
  return array != nullptr ? Arg(glrecorder::floats(&array[0][0], count(n, 3), 3)) : Arg(Null{});
}

// Geometry that GLU and GLE emit with glBegin/glEnd.
void emitsGeometry(Emulator& e) {
  e.outsideBeginEnd();
}

std::size_t materialValues(GLenum pname) {
  switch (pname) {
    case GL_AMBIENT:
    case GL_DIFFUSE:
    case GL_SPECULAR:
    case GL_EMISSION:
    case GL_AMBIENT_AND_DIFFUSE:
      return 4;
    case GL_SHININESS:
      return 1;
    case GL_COLOR_INDEXES:
      return 3;
    default:
      return 0;
  }
}

void setMaterial(Emulator& e, GLenum face, GLenum pname, const std::vector<float>& values) {
  const bool knownFace = face == GL_FRONT || face == GL_BACK || face == GL_FRONT_AND_BACK;
  if (!knownFace || materialValues(pname) == 0) {
    e.raise(GL_INVALID_ENUM);
    return;
  }
  if (pname == GL_SHININESS && (values.empty() || !(values[0] >= 0.0f && values[0] <= 128.0f))) {
    e.raise(GL_INVALID_VALUE);
    return;
  }
  std::array<float, 4> stored{};
  std::copy(values.begin(), values.end(), stored.begin());
  for (GLenum f : {GL_FRONT, GL_BACK}) {
    if (face != GL_FRONT_AND_BACK && face != f) {
      continue;
    }
    if (pname == GL_AMBIENT_AND_DIFFUSE) {
      e.materials[{f, GL_AMBIENT}] = stored;
      e.materials[{f, GL_DIFFUSE}] = stored;
    } else {
      e.materials[{f, pname}] = stored;
    }
  }
}

void setNormal(Emulator& e, const std::optional<std::array<double, 4>>& n) {
  if (n) {
    // GL keeps the current normal in single precision.
    e.normal = {static_cast<float>((*n)[0]), static_cast<float>((*n)[1]),
                static_cast<float>((*n)[2])};
  }
}

void setVertex(Emulator& e, const std::optional<std::array<double, 4>>& v) {
  if (v) {
    e.vertex((*v)[0], (*v)[1], (*v)[2]);
  }
}

void setPolygonMode(Emulator& e, GLenum face, GLenum mode) {
  if (!e.outsideBeginEnd()) {
    return;
  }
  const bool knownFace = face == GL_FRONT || face == GL_BACK || face == GL_FRONT_AND_BACK;
  const bool knownMode = mode == GL_POINT || mode == GL_LINE || mode == GL_FILL;
  if (!knownFace || !knownMode) {
    e.raise(GL_INVALID_ENUM);
    return;
  }
  if (face != GL_BACK) {
    e.polygonFront = mode;
  }
  if (face != GL_FRONT) {
    e.polygonBack = mode;
  }
}

void setEnabled(Emulator& e, GLenum cap, bool on) {
  if (!e.outsideBeginEnd()) {
    return;
  }
  if (on) {
    e.enabled.insert(cap);
  } else {
    e.enabled.erase(cap);
  }
}

void setQuadric(const GLUquadric* q, GLenum glrecorder::detail::QuadricState::*field, GLenum value,
                std::initializer_list<GLenum> accepted) {
  if (auto* state = emulator().liveQuadric(q)) {
    if (std::find(accepted.begin(), accepted.end(), value) != accepted.end()) {
      state->*field = value;
    }
  }
}

}  // namespace

extern "C" {

// ------------------------------------------------------------------ GL: matrices

void GLAPIENTRY glMatrixMode(GLenum mode) {
  emulator().command("glMatrixMode", args(en(mode)), [=](Emulator& e) { e.setMatrixMode(mode); });
}

void GLAPIENTRY glLoadIdentity(void) {
  emulator().command("glLoadIdentity", args(), [](Emulator& e) { e.loadIdentity(); });
}

void GLAPIENTRY glPushMatrix(void) {
  emulator().command("glPushMatrix", args(), [](Emulator& e) { e.push(); });
}

void GLAPIENTRY glPopMatrix(void) {
  emulator().command("glPopMatrix", args(), [](Emulator& e) { e.pop(); });
}

void GLAPIENTRY glMultMatrixd(const GLdouble* m) {
  emulator().command("glMultMatrixd", args(doublesOrNull(m, 16)),
                     [mat = matrixFrom(m)](Emulator& e) {
                       if (mat) {
                         e.multiplyCurrent(*mat);
                       }
                     });
}

void GLAPIENTRY glOrtho(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top,
                        GLdouble zNear, GLdouble zFar) {
  emulator().command("glOrtho", args(left, right, bottom, top, zNear, zFar),
                     [=](Emulator& e) { e.ortho(left, right, bottom, top, zNear, zFar); });
}

void GLAPIENTRY glTranslated(GLdouble x, GLdouble y, GLdouble z) {
  emulator().command("glTranslated", args(x, y, z), [=](Emulator& e) { e.translate(x, y, z); });
}

void GLAPIENTRY glTranslatef(GLfloat x, GLfloat y, GLfloat z) {
  emulator().command("glTranslatef", args(x, y, z), [=](Emulator& e) { e.translate(x, y, z); });
}

void GLAPIENTRY glRotated(GLdouble angle, GLdouble x, GLdouble y, GLdouble z) {
  emulator().command("glRotated", args(angle, x, y, z),
                     [=](Emulator& e) { e.rotate(angle, x, y, z); });
}

void GLAPIENTRY glRotatef(GLfloat angle, GLfloat x, GLfloat y, GLfloat z) {
  emulator().command("glRotatef", args(angle, x, y, z),
                     [=](Emulator& e) { e.rotate(angle, x, y, z); });
}

void GLAPIENTRY glScalef(GLfloat x, GLfloat y, GLfloat z) {
  emulator().command("glScalef", args(x, y, z), [=](Emulator& e) { e.scale(x, y, z); });
}

// ------------------------------------------------------------------ GL: queries

void GLAPIENTRY glGetDoublev(GLenum pname, GLdouble* params) {
  glrecorder::detail::get("glGetDoublev", pname, params);
}

void GLAPIENTRY glGetIntegerv(GLenum pname, GLint* params) {
  glrecorder::detail::get("glGetIntegerv", pname, params);
}

GLenum GLAPIENTRY glGetError(void) {
  const GLenum error = emulator().takeError();
  emulator().immediate("glGetError", args(),
                       Arg(glrecorder::Verbatim{glrecorder::errorName(error)}));
  return error;
}

// ------------------------------------------------------------------ GL: display lists

GLuint GLAPIENTRY glGenLists(GLsizei range) {
  const GLuint first = emulator().genLists(range);
  emulator().immediate("glGenLists", args(range), glrecorder::toArg(first));
  return first;
}

GLboolean GLAPIENTRY glIsList(GLuint list) {
  const GLboolean is = emulator().outsideBeginEnd() && emulator().isList(list) ? GL_TRUE : GL_FALSE;
  emulator().immediate("glIsList", args(list), glrecorder::toArg(is));
  return is;
}

void GLAPIENTRY glDeleteLists(GLuint list, GLsizei range) {
  emulator().deleteLists(list, range);
  emulator().immediate("glDeleteLists", args(list, range));
}

void GLAPIENTRY glNewList(GLuint list, GLenum mode) {
  emulator().boundary("glNewList", args(list, en(mode)));
  emulator().newList(list, mode);
}

void GLAPIENTRY glEndList(void) {
  emulator().boundary("glEndList", args());
  emulator().endList();
}

void GLAPIENTRY glCallList(GLuint list) {
  emulator().command("glCallList", args(list), [=](Emulator& e) { e.callList(list); });
}

// ------------------------------------------------------------------ GL: appearance

void GLAPIENTRY glMaterialfv(GLenum face, GLenum pname, const GLfloat* params) {
  const std::size_t n = params != nullptr ? materialValues(pname) : 0;
  std::vector<float> values(params, params + n);
  emulator().command("glMaterialfv", args(en(face), en(pname), floatsOrNull(params, n)),
                     [=](Emulator& e) { setMaterial(e, face, pname, values); });
}

void GLAPIENTRY glColor3d(GLdouble red, GLdouble green, GLdouble blue) {
  emulator().command("glColor3d", args(red, green, blue), [=](Emulator& e) {
    e.color = {red, green, blue, 1.0};
  });
}

void GLAPIENTRY glColor3dv(const GLdouble* v) {
  emulator().command("glColor3dv", args(doublesOrNull(v, 3)),
                     [c = valuesAt(v, 3)](Emulator& e) { setColor(e, c); });
}

void GLAPIENTRY glColor4d(GLdouble red, GLdouble green, GLdouble blue, GLdouble alpha) {
  emulator().command("glColor4d", args(red, green, blue, alpha), [=](Emulator& e) {
    e.color = {red, green, blue, alpha};
  });
}

void GLAPIENTRY glColor4dv(const GLdouble* v) {
  emulator().command("glColor4dv", args(doublesOrNull(v, 4)),
                     [c = valuesAt(v, 4)](Emulator& e) { setColor(e, c); });
}

void GLAPIENTRY glLineWidth(GLfloat width) {
  emulator().command("glLineWidth", args(width), [=](Emulator& e) {
    if (!e.outsideBeginEnd()) {
      return;
    }
    if (!(width > 0.0f)) {
      e.raise(GL_INVALID_VALUE);
      return;
    }
    e.lineWidth = width;
  });
}

void GLAPIENTRY glPolygonMode(GLenum face, GLenum mode) {
  emulator().command("glPolygonMode", args(en(face), en(mode)),
                     [=](Emulator& e) { setPolygonMode(e, face, mode); });
}

void GLAPIENTRY glEnable(GLenum cap) {
  emulator().command("glEnable", args(en(cap)), [=](Emulator& e) { setEnabled(e, cap, true); });
}

void GLAPIENTRY glDisable(GLenum cap) {
  emulator().command("glDisable", args(en(cap)), [=](Emulator& e) { setEnabled(e, cap, false); });
}

GLboolean GLAPIENTRY glIsEnabled(GLenum cap) {
  const GLboolean is =
      emulator().outsideBeginEnd() && emulator().enabled.count(cap) != 0 ? GL_TRUE : GL_FALSE;
  emulator().immediate("glIsEnabled", args(en(cap)), glrecorder::toArg(is));
  return is;
}

// ------------------------------------------------------------------ GL: immediate mode

void GLAPIENTRY glBegin(GLenum mode) {
  emulator().command("glBegin", args(en(mode)), [=](Emulator& e) { e.begin(mode); });
}

void GLAPIENTRY glEnd(void) {
  emulator().command("glEnd", args(), [](Emulator& e) { e.end(); });
}

void GLAPIENTRY glVertex3d(GLdouble x, GLdouble y, GLdouble z) {
  emulator().command("glVertex3d", args(x, y, z), [=](Emulator& e) { e.vertex(x, y, z); });
}

void GLAPIENTRY glVertex3f(GLfloat x, GLfloat y, GLfloat z) {
  emulator().command("glVertex3f", args(x, y, z), [=](Emulator& e) { e.vertex(x, y, z); });
}

void GLAPIENTRY glVertex3dv(const GLdouble* v) {
  emulator().command("glVertex3dv", args(doublesOrNull(v, 3)),
                     [p = valuesAt(v, 3)](Emulator& e) { setVertex(e, p); });
}

void GLAPIENTRY glVertex3fv(const GLfloat* v) {
  emulator().command("glVertex3fv", args(floatsOrNull(v, 3)),
                     [p = valuesAt(v, 3)](Emulator& e) { setVertex(e, p); });
}

void GLAPIENTRY glVertex2d(GLdouble x, GLdouble y) {
  emulator().command("glVertex2d", args(x, y), [=](Emulator& e) { e.vertex(x, y, 0.0); });
}

void GLAPIENTRY glVertex2f(GLfloat x, GLfloat y) {
  emulator().command("glVertex2f", args(x, y), [=](Emulator& e) { e.vertex(x, y, 0.0); });
}

void GLAPIENTRY glNormal3f(GLfloat nx, GLfloat ny, GLfloat nz) {
  emulator().command("glNormal3f", args(nx, ny, nz), [=](Emulator& e) { e.normal = {nx, ny, nz}; });
}

void GLAPIENTRY glNormal3fv(const GLfloat* v) {
  emulator().command("glNormal3fv", args(floatsOrNull(v, 3)),
                     [n = valuesAt(v, 3)](Emulator& e) { setNormal(e, n); });
}

void GLAPIENTRY glNormal3d(GLdouble nx, GLdouble ny, GLdouble nz) {
  emulator().command("glNormal3d", args(nx, ny, nz), [=](Emulator& e) {
    setNormal(e, std::array<double, 4>{nx, ny, nz, 0.0});
  });
}

void GLAPIENTRY glNormal3dv(const GLdouble* v) {
  emulator().command("glNormal3dv", args(doublesOrNull(v, 3)),
                     [n = valuesAt(v, 3)](Emulator& e) { setNormal(e, n); });
}

// ------------------------------------------------------------------ GLU

GLUquadric* GLAPIENTRY gluNewQuadric(void) {
  GLUquadric* handle = emulator().newQuadric();
  emulator().immediate("gluNewQuadric", args(), quad(handle));
  return handle;
}

void GLAPIENTRY gluDeleteQuadric(GLUquadric* q) {
  emulator().immediate("gluDeleteQuadric", args(quad(q)));
  emulator().deleteQuadric(q);
}

void GLAPIENTRY gluQuadricOrientation(GLUquadric* q, GLenum orientation) {
  emulator().immediate("gluQuadricOrientation", args(quad(q), en(orientation)));
  setQuadric(q, &glrecorder::detail::QuadricState::orientation, orientation,
             {GLU_OUTSIDE, GLU_INSIDE});
}

void GLAPIENTRY gluQuadricDrawStyle(GLUquadric* q, GLenum draw) {
  emulator().immediate("gluQuadricDrawStyle", args(quad(q), en(draw)));
  setQuadric(q, &glrecorder::detail::QuadricState::drawStyle, draw,
             {GLU_FILL, GLU_LINE, GLU_POINT, GLU_SILHOUETTE});
}

void GLAPIENTRY gluQuadricNormals(GLUquadric* q, GLenum normal) {
  emulator().immediate("gluQuadricNormals", args(quad(q), en(normal)));
  setQuadric(q, &glrecorder::detail::QuadricState::normals, normal,
             {GLU_SMOOTH, GLU_FLAT, GLU_NONE});
}

void GLAPIENTRY gluSphere(GLUquadric* q, GLdouble radius, GLint slices, GLint stacks) {
  emulator().liveQuadric(q);
  emulator().command("gluSphere", args(quad(q), radius, slices, stacks), emitsGeometry);
}

void GLAPIENTRY gluCylinder(GLUquadric* q, GLdouble base, GLdouble top, GLdouble height,
                            GLint slices, GLint stacks) {
  emulator().liveQuadric(q);
  emulator().command("gluCylinder", args(quad(q), base, top, height, slices, stacks),
                     emitsGeometry);
}

void GLAPIENTRY gluDisk(GLUquadric* q, GLdouble inner, GLdouble outer, GLint slices, GLint loops) {
  emulator().liveQuadric(q);
  emulator().command("gluDisk", args(quad(q), inner, outer, slices, loops), emitsGeometry);
}

// ------------------------------------------------------------------ GLE

void gleSetJoinStyle(int style) {
  emulator().gleJoinStyle = style;
  emulator().immediate("gleSetJoinStyle", args(style));
}

int gleGetJoinStyle(void) {
  emulator().immediate("gleGetJoinStyle", args(), glrecorder::toArg(emulator().gleJoinStyle));
  return emulator().gleJoinStyle;
}

void gleSetNumSides(int slices) {
  emulator().gleNumSides = std::max(slices, 0);  // GLE stores a negative count as 0
  emulator().immediate("gleSetNumSides", args(slices));
}

int gleGetNumSides(void) {
  emulator().immediate("gleGetNumSides", args(), glrecorder::toArg(emulator().gleNumSides));
  return emulator().gleNumSides;
}

namespace {
// gleToroid and gleHelicoid take the same arguments and differ only in the name GLE logs.
void recordHelicalSweep(const char* name, gleDouble rToroid, gleDouble startRadius,
                        gleDouble drdTheta, gleDouble startZ, gleDouble dzdTheta,
                        gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                        gleDouble startTheta, gleDouble sweepTheta) {
  emulator().gleSweep(name,
                      args(rToroid, startRadius, drdTheta, startZ, dzdTheta, affine(startXform),
                           affine(dXformdTheta), startTheta, sweepTheta),
                      emitsGeometry);
}
}  // namespace

void gleToroid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
               gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
               gleDouble startTheta, gleDouble sweepTheta) {
  recordHelicalSweep("gleToroid", rToroid, startRadius, drdTheta, startZ, dzdTheta, startXform,
                     dXformdTheta, startTheta, sweepTheta);
}

void gleHelicoid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
                 gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                 gleDouble startTheta, gleDouble sweepTheta) {
  recordHelicalSweep("gleHelicoid", rToroid, startRadius, drdTheta, startZ, dzdTheta, startXform,
                     dXformdTheta, startTheta, sweepTheta);
}

void gleSpiral(int ncp, gleDouble contour2d[][2], gleDouble contNormal[][2], gleDouble up[3],
               gleDouble startRadius, gleDouble drdTheta, gleDouble startZ, gleDouble dzdTheta,
               gleDouble startXform[2][3], gleDouble dXformdTheta[2][3], gleDouble startTheta,
               gleDouble sweepTheta) {
  emulator().gleSweep("gleSpiral",
                      args(ncp, contour(ncp, contour2d), contour(ncp, contNormal),
                           doublesOrNull(up, 3), startRadius, drdTheta, startZ, dzdTheta,
                           affine(startXform), affine(dXformdTheta), startTheta, sweepTheta),
                      emitsGeometry);
}

void glePolyCylinder(int npoints, gleDouble pointArray[][3], gleColor colorArray[],
                     gleDouble radius) {
  emulator().gleSweep(
      "glePolyCylinder",
      args(npoints, points(npoints, pointArray), colors(npoints, colorArray), radius),
      emitsGeometry);
}

void gleExtrusion(int ncp, gleDouble contour2d[][2], gleDouble contNormal[][2], gleDouble up[3],
                  int npoints, gleDouble pointArray[][3], gleColor colorArray[]) {
  emulator().gleSweep(
      "gleExtrusion",
      args(ncp, contour(ncp, contour2d), contour(ncp, contNormal), doublesOrNull(up, 3), npoints,
           points(npoints, pointArray), colors(npoints, colorArray)),
      emitsGeometry);
}

}  // extern "C"
