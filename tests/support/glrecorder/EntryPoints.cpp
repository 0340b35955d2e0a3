// The GL, GLU and GLE entry points the library calls (a host's others: EntryPointsHost.cpp),
// defined with C linkage inside extern "C" so that the compiler holds each definition to the
// prototype in the system header.
//
// Adding an entry point: one definition below, recording through E().command (a GL command that
// display lists capture; the lambda is what it does when executed) or E().immediate (a query or
// client-side setting that takes effect at once).
#include <GL/gl.h>
#include <GL/glu.h>
#include <GL/gle.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "glrecorder/EntryPointSupport.h"

namespace {

using glrec::Arg;
using glrec::en;
using glrec::Null;
using glrec::detail::args;
using glrec::detail::doublesOrNull;
using glrec::detail::E;
using glrec::detail::Emulator;
using glrec::detail::floatsOrNull;
using glrec::detail::matrixFrom;
using glrec::detail::setColor;
using glrec::detail::valuesAt;

Arg quad(const GLUquadric* handle) {
  return E().quadricArg(handle);
}

std::size_t count(int n, int width) {
  return n > 0 ? static_cast<std::size_t>(n * width) : 0;
}

Arg affine(gleDouble xform[2][3]) {
  return xform != nullptr ? Arg(glrec::doubles(&xform[0][0], 6, 3)) : Arg(Null{});
}

Arg points(int n, gleDouble array[][3]) {
  return array != nullptr ? Arg(glrec::doubles(&array[0][0], count(n, 3), 3)) : Arg(Null{});
}

Arg contour(int n, gleDouble array[][2]) {
  return array != nullptr ? Arg(glrec::doubles(&array[0][0], count(n, 2), 2)) : Arg(Null{});
}

Arg colors(int n, gleColor array[]) {
  return array != nullptr ? Arg(glrec::floats(&array[0][0], count(n, 3), 3)) : Arg(Null{});
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

void setQuadric(const GLUquadric* q, GLenum glrec::detail::QuadricState::*field, GLenum value,
                std::initializer_list<GLenum> accepted) {
  if (auto* state = E().liveQuadric(q)) {
    if (std::find(accepted.begin(), accepted.end(), value) != accepted.end()) {
      state->*field = value;
    }
  }
}

}  // namespace

extern "C" {

// ------------------------------------------------------------------ GL: matrices

void GLAPIENTRY glMatrixMode(GLenum mode) {
  E().command("glMatrixMode", args(en(mode)), [=](Emulator& e) { e.setMatrixMode(mode); });
}

void GLAPIENTRY glLoadIdentity(void) {
  E().command("glLoadIdentity", args(), [](Emulator& e) { e.loadIdentity(); });
}

void GLAPIENTRY glPushMatrix(void) {
  E().command("glPushMatrix", args(), [](Emulator& e) { e.push(); });
}

void GLAPIENTRY glPopMatrix(void) {
  E().command("glPopMatrix", args(), [](Emulator& e) { e.pop(); });
}

void GLAPIENTRY glMultMatrixd(const GLdouble* m) {
  E().command("glMultMatrixd", args(doublesOrNull(m, 16)), [mat = matrixFrom(m)](Emulator& e) {
    if (mat) {
      e.multiplyCurrent(*mat);
    }
  });
}

void GLAPIENTRY glOrtho(GLdouble left, GLdouble right, GLdouble bottom, GLdouble top,
                        GLdouble zNear, GLdouble zFar) {
  E().command("glOrtho", args(left, right, bottom, top, zNear, zFar),
              [=](Emulator& e) { e.ortho(left, right, bottom, top, zNear, zFar); });
}

void GLAPIENTRY glTranslated(GLdouble x, GLdouble y, GLdouble z) {
  E().command("glTranslated", args(x, y, z), [=](Emulator& e) { e.translate(x, y, z); });
}

void GLAPIENTRY glTranslatef(GLfloat x, GLfloat y, GLfloat z) {
  E().command("glTranslatef", args(x, y, z), [=](Emulator& e) { e.translate(x, y, z); });
}

void GLAPIENTRY glRotated(GLdouble angle, GLdouble x, GLdouble y, GLdouble z) {
  E().command("glRotated", args(angle, x, y, z), [=](Emulator& e) { e.rotate(angle, x, y, z); });
}

void GLAPIENTRY glRotatef(GLfloat angle, GLfloat x, GLfloat y, GLfloat z) {
  E().command("glRotatef", args(angle, x, y, z), [=](Emulator& e) { e.rotate(angle, x, y, z); });
}

void GLAPIENTRY glScalef(GLfloat x, GLfloat y, GLfloat z) {
  E().command("glScalef", args(x, y, z), [=](Emulator& e) { e.scale(x, y, z); });
}

// ------------------------------------------------------------------ GL: queries

void GLAPIENTRY glGetDoublev(GLenum pname, GLdouble* params) {
  glrec::detail::get("glGetDoublev", pname, params);
}

void GLAPIENTRY glGetIntegerv(GLenum pname, GLint* params) {
  glrec::detail::get("glGetIntegerv", pname, params);
}

GLenum GLAPIENTRY glGetError(void) {
  const GLenum error = E().takeError();
  E().immediate("glGetError", args(), Arg(glrec::Verbatim{glrec::errorName(error)}));
  return error;
}

// ------------------------------------------------------------------ GL: display lists

GLuint GLAPIENTRY glGenLists(GLsizei range) {
  const GLuint first = E().genLists(range);
  E().immediate("glGenLists", args(range), glrec::toArg(first));
  return first;
}

GLboolean GLAPIENTRY glIsList(GLuint list) {
  const GLboolean is = E().outsideBeginEnd() && E().isList(list) ? GL_TRUE : GL_FALSE;
  E().immediate("glIsList", args(list), glrec::toArg(is));
  return is;
}

void GLAPIENTRY glDeleteLists(GLuint list, GLsizei range) {
  E().deleteLists(list, range);
  E().immediate("glDeleteLists", args(list, range));
}

void GLAPIENTRY glNewList(GLuint list, GLenum mode) {
  E().boundary("glNewList", args(list, en(mode)));
  E().newList(list, mode);
}

void GLAPIENTRY glEndList(void) {
  E().boundary("glEndList", args());
  E().endList();
}

void GLAPIENTRY glCallList(GLuint list) {
  E().command("glCallList", args(list), [=](Emulator& e) { e.callList(list); });
}

// ------------------------------------------------------------------ GL: appearance

void GLAPIENTRY glMaterialfv(GLenum face, GLenum pname, const GLfloat* params) {
  const std::size_t n = params != nullptr ? materialValues(pname) : 0;
  std::vector<float> values(params, params + n);
  E().command("glMaterialfv", args(en(face), en(pname), floatsOrNull(params, n)),
              [=](Emulator& e) { setMaterial(e, face, pname, values); });
}

void GLAPIENTRY glColor3d(GLdouble red, GLdouble green, GLdouble blue) {
  E().command("glColor3d", args(red, green, blue), [=](Emulator& e) {
    e.color = {red, green, blue, 1.0};
  });
}

void GLAPIENTRY glColor3dv(const GLdouble* v) {
  E().command("glColor3dv", args(doublesOrNull(v, 3)),
              [c = valuesAt(v, 3)](Emulator& e) { setColor(e, c); });
}

void GLAPIENTRY glColor4d(GLdouble red, GLdouble green, GLdouble blue, GLdouble alpha) {
  E().command("glColor4d", args(red, green, blue, alpha), [=](Emulator& e) {
    e.color = {red, green, blue, alpha};
  });
}

void GLAPIENTRY glColor4dv(const GLdouble* v) {
  E().command("glColor4dv", args(doublesOrNull(v, 4)),
              [c = valuesAt(v, 4)](Emulator& e) { setColor(e, c); });
}

void GLAPIENTRY glLineWidth(GLfloat width) {
  E().command("glLineWidth", args(width), [=](Emulator& e) {
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
  E().command("glPolygonMode", args(en(face), en(mode)),
              [=](Emulator& e) { setPolygonMode(e, face, mode); });
}

void GLAPIENTRY glEnable(GLenum cap) {
  E().command("glEnable", args(en(cap)), [=](Emulator& e) { setEnabled(e, cap, true); });
}

void GLAPIENTRY glDisable(GLenum cap) {
  E().command("glDisable", args(en(cap)), [=](Emulator& e) { setEnabled(e, cap, false); });
}

GLboolean GLAPIENTRY glIsEnabled(GLenum cap) {
  const GLboolean is = E().outsideBeginEnd() && E().enabled.count(cap) != 0 ? GL_TRUE : GL_FALSE;
  E().immediate("glIsEnabled", args(en(cap)), glrec::toArg(is));
  return is;
}

// ------------------------------------------------------------------ GL: immediate mode

void GLAPIENTRY glBegin(GLenum mode) {
  E().command("glBegin", args(en(mode)), [=](Emulator& e) { e.begin(mode); });
}

void GLAPIENTRY glEnd(void) {
  E().command("glEnd", args(), [](Emulator& e) { e.end(); });
}

void GLAPIENTRY glVertex3d(GLdouble x, GLdouble y, GLdouble z) {
  E().command("glVertex3d", args(x, y, z), [=](Emulator& e) { e.vertex(x, y, z); });
}

void GLAPIENTRY glVertex3f(GLfloat x, GLfloat y, GLfloat z) {
  E().command("glVertex3f", args(x, y, z), [=](Emulator& e) { e.vertex(x, y, z); });
}

void GLAPIENTRY glVertex3dv(const GLdouble* v) {
  E().command("glVertex3dv", args(doublesOrNull(v, 3)),
              [p = valuesAt(v, 3)](Emulator& e) { setVertex(e, p); });
}

void GLAPIENTRY glVertex3fv(const GLfloat* v) {
  E().command("glVertex3fv", args(floatsOrNull(v, 3)),
              [p = valuesAt(v, 3)](Emulator& e) { setVertex(e, p); });
}

void GLAPIENTRY glVertex2d(GLdouble x, GLdouble y) {
  E().command("glVertex2d", args(x, y), [=](Emulator& e) { e.vertex(x, y, 0.0); });
}

void GLAPIENTRY glVertex2f(GLfloat x, GLfloat y) {
  E().command("glVertex2f", args(x, y), [=](Emulator& e) { e.vertex(x, y, 0.0); });
}

void GLAPIENTRY glNormal3f(GLfloat nx, GLfloat ny, GLfloat nz) {
  E().command("glNormal3f", args(nx, ny, nz), [=](Emulator& e) { e.normal = {nx, ny, nz}; });
}

void GLAPIENTRY glNormal3fv(const GLfloat* v) {
  E().command("glNormal3fv", args(floatsOrNull(v, 3)),
              [n = valuesAt(v, 3)](Emulator& e) { setNormal(e, n); });
}

void GLAPIENTRY glNormal3d(GLdouble nx, GLdouble ny, GLdouble nz) {
  E().command("glNormal3d", args(nx, ny, nz), [=](Emulator& e) {
    setNormal(e, std::array<double, 4>{nx, ny, nz, 0.0});
  });
}

void GLAPIENTRY glNormal3dv(const GLdouble* v) {
  E().command("glNormal3dv", args(doublesOrNull(v, 3)),
              [n = valuesAt(v, 3)](Emulator& e) { setNormal(e, n); });
}

// ------------------------------------------------------------------ GLU

GLUquadric* GLAPIENTRY gluNewQuadric(void) {
  GLUquadric* handle = E().newQuadric();
  E().immediate("gluNewQuadric", args(), quad(handle));
  return handle;
}

void GLAPIENTRY gluDeleteQuadric(GLUquadric* q) {
  E().immediate("gluDeleteQuadric", args(quad(q)));
  E().deleteQuadric(q);
}

void GLAPIENTRY gluQuadricOrientation(GLUquadric* q, GLenum orientation) {
  E().immediate("gluQuadricOrientation", args(quad(q), en(orientation)));
  setQuadric(q, &glrec::detail::QuadricState::orientation, orientation, {GLU_OUTSIDE, GLU_INSIDE});
}

void GLAPIENTRY gluQuadricDrawStyle(GLUquadric* q, GLenum draw) {
  E().immediate("gluQuadricDrawStyle", args(quad(q), en(draw)));
  setQuadric(q, &glrec::detail::QuadricState::drawStyle, draw,
             {GLU_FILL, GLU_LINE, GLU_POINT, GLU_SILHOUETTE});
}

void GLAPIENTRY gluQuadricNormals(GLUquadric* q, GLenum normal) {
  E().immediate("gluQuadricNormals", args(quad(q), en(normal)));
  setQuadric(q, &glrec::detail::QuadricState::normals, normal, {GLU_SMOOTH, GLU_FLAT, GLU_NONE});
}

void GLAPIENTRY gluSphere(GLUquadric* q, GLdouble radius, GLint slices, GLint stacks) {
  E().liveQuadric(q);
  E().command("gluSphere", args(quad(q), radius, slices, stacks), emitsGeometry);
}

void GLAPIENTRY gluCylinder(GLUquadric* q, GLdouble base, GLdouble top, GLdouble height,
                            GLint slices, GLint stacks) {
  E().liveQuadric(q);
  E().command("gluCylinder", args(quad(q), base, top, height, slices, stacks), emitsGeometry);
}

void GLAPIENTRY gluDisk(GLUquadric* q, GLdouble inner, GLdouble outer, GLint slices, GLint loops) {
  E().liveQuadric(q);
  E().command("gluDisk", args(quad(q), inner, outer, slices, loops), emitsGeometry);
}

// ------------------------------------------------------------------ GLE

void gleSetJoinStyle(int style) {
  E().gleJoinStyle = style;
  E().immediate("gleSetJoinStyle", args(style));
}

int gleGetJoinStyle(void) {
  E().immediate("gleGetJoinStyle", args(), glrec::toArg(E().gleJoinStyle));
  return E().gleJoinStyle;
}

void gleSetNumSides(int slices) {
  E().gleNumSides = std::max(slices, 0);  // GLE stores a negative count as 0
  E().immediate("gleSetNumSides", args(slices));
}

int gleGetNumSides(void) {
  E().immediate("gleGetNumSides", args(), glrec::toArg(E().gleNumSides));
  return E().gleNumSides;
}

void gleToroid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
               gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
               gleDouble startTheta, gleDouble sweepTheta) {
  E().gleSweep("gleToroid",
               args(rToroid, startRadius, drdTheta, startZ, dzdTheta, affine(startXform),
                    affine(dXformdTheta), startTheta, sweepTheta),
               emitsGeometry);
}

void gleHelicoid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
                 gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                 gleDouble startTheta, gleDouble sweepTheta) {
  E().gleSweep("gleHelicoid",
               args(rToroid, startRadius, drdTheta, startZ, dzdTheta, affine(startXform),
                    affine(dXformdTheta), startTheta, sweepTheta),
               emitsGeometry);
}

void gleSpiral(int ncp, gleDouble contour2d[][2], gleDouble contNormal[][2], gleDouble up[3],
               gleDouble startRadius, gleDouble drdTheta, gleDouble startZ, gleDouble dzdTheta,
               gleDouble startXform[2][3], gleDouble dXformdTheta[2][3], gleDouble startTheta,
               gleDouble sweepTheta) {
  E().gleSweep("gleSpiral",
               args(ncp, contour(ncp, contour2d), contour(ncp, contNormal), doublesOrNull(up, 3),
                    startRadius, drdTheta, startZ, dzdTheta, affine(startXform),
                    affine(dXformdTheta), startTheta, sweepTheta),
               emitsGeometry);
}

void glePolyCylinder(int npoints, gleDouble pointArray[][3], gleColor colorArray[],
                     gleDouble radius) {
  E().gleSweep("glePolyCylinder",
               args(npoints, points(npoints, pointArray), colors(npoints, colorArray), radius),
               emitsGeometry);
}

void gleExtrusion(int ncp, gleDouble contour2d[][2], gleDouble contNormal[][2], gleDouble up[3],
                  int npoints, gleDouble pointArray[][3], gleColor colorArray[]) {
  E().gleSweep("gleExtrusion",
               args(ncp, contour(ncp, contour2d), contour(ncp, contNormal), doublesOrNull(up, 3),
                    npoints, points(npoints, pointArray), colors(npoints, colorArray)),
               emitsGeometry);
}

}  // extern "C"
