#include <lumagrid/CGLObject.h>

#include <GL/gl.h>

#include <cstring>

int CGLObject::s_nSlices4New = 128;
int CGLObject::s_nStacks4New = 8;

// The tessellation defaults are taken here, once, for every shape: the
// sphere tessellates with them like the others.
CGLObject::CGLObject()
    : m_color(),
      m_hlColor(),
      m_nDisplayList(-1),
      m_bVisible(true),
      m_bSelected(false),
      m_bModified(true),
      m_nSlices(s_nSlices4New),
      m_nStacks(s_nStacks4New),
      m_pQuadric(nullptr) {
  m_matrix.identity();
  CGLObject::HLColorSet(0xFF00UL);
}

CGLObject::CGLObject(const CGLObject&) = default;

CGLObject& CGLObject::operator=(const CGLObject&) = default;

CGLObject::~CGLObject() {
  // A copy may share this list; whichever dies first deletes it.
  if (m_nDisplayList > 0) {
    glDeleteLists(static_cast<GLuint>(m_nDisplayList), 1);
  }
}

std::uint64_t CGLObject::GetID() const {
  return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(this));
}

// ---------------------------------------------------------------- transforms

namespace {

// A product onto the matrix, or a load of it, like mat4x4::translate.
using MatrixOp = void (mat4x4::*)(double, double, double);

// Applies op with p's coordinates and marks the shape modified.
long Apply(mat4x4& matrix, bool& modified, MatrixOp op, const CGLPoint& p) {
  (matrix.*op)(p.X(), p.Y(), p.Z());
  modified = true;
  return 1;
}

// The same, except for the relative transforms' no-op value: 1.0 in every
// coordinate, for translations as for scales.
long ApplyUnlessOne(mat4x4& matrix, bool& modified, MatrixOp op, const CGLPoint& p) {
  if (p == 1.0) {
    return 1;
  }
  return Apply(matrix, modified, op, p);
}

}  // namespace

long CGLObject::Move(double d) {
  // Move(0.0) is applied; Move(1.0) is not.
  return ApplyUnlessOne(m_matrix, m_bModified, &mat4x4::translate, CGLPoint(d, d, d));
}

long CGLObject::Move(double x, double y, double z) {
  return Move(CGLPoint(x, y, z));
}

long CGLObject::Move(const CGLPoint& p) {
  return ApplyUnlessOne(m_matrix, m_bModified, &mat4x4::translate, p);
}

long CGLObject::MoveTo(double d) {
  return Apply(m_matrix, m_bModified, &mat4x4::loadTranslate, CGLPoint(d, d, d));
}

long CGLObject::MoveTo(double x, double y, double z) {
  return MoveTo(CGLPoint(x, y, z));
}

long CGLObject::MoveTo(const CGLPoint& p) {
  return Apply(m_matrix, m_bModified, &mat4x4::loadTranslate, p);
}

long CGLObject::Scale(double d) {
  return ApplyUnlessOne(m_matrix, m_bModified, &mat4x4::scale, CGLPoint(d, d, d));
}

long CGLObject::Scale(double x, double y, double z) {
  return Scale(CGLPoint(x, y, z));
}

long CGLObject::Scale(const CGLPoint& p) {
  return ApplyUnlessOne(m_matrix, m_bModified, &mat4x4::scale, p);
}

long CGLObject::ScaleTo(double d) {
  return Apply(m_matrix, m_bModified, &mat4x4::loadScale, CGLPoint(d, d, d));
}

long CGLObject::ScaleTo(double x, double y, double z) {
  return ScaleTo(CGLPoint(x, y, z));
}

long CGLObject::ScaleTo(const CGLPoint& p) {
  return Apply(m_matrix, m_bModified, &mat4x4::loadScale, p);
}

long CGLObject::Rotate(double x, double y, double z) {
  return Rotate(CGLPoint(x, y, z));
}

long CGLObject::Rotate(const CGLPoint& p) {
  if (p == 0.0) {
    return 1;
  }
  m_matrix.rotateX(p.X());
  m_matrix.rotateY(p.Y());
  m_matrix.rotateZ(p.Z());
  m_bModified = true;
  return 1;
}

long CGLObject::RotateTo(double x, double y, double z) {
  return RotateTo(CGLPoint(x, y, z));
}

long CGLObject::RotateTo(const CGLPoint& p) {
  // Each load replaces the matrix, so only the rotation about Z survives.
  m_matrix.loadRotateX(p.X());
  m_matrix.loadRotateY(p.Y());
  m_matrix.loadRotateZ(p.Z());
  m_bModified = true;
  return 1;
}

long CGLObject::RotateX(double a) {
  return Rotate(CGLPoint(a, 0.0, 0.0));
}

long CGLObject::RotateY(double a) {
  return Rotate(CGLPoint(0.0, a, 0.0));
}

long CGLObject::RotateZ(double a) {
  return Rotate(CGLPoint(0.0, 0.0, a));
}

long CGLObject::RotateXTo(double a) {
  return RotateTo(CGLPoint(a, 0.0, 0.0));
}

long CGLObject::RotateYTo(double a) {
  return RotateTo(CGLPoint(0.0, a, 0.0));
}

long CGLObject::RotateZTo(double a) {
  return RotateTo(CGLPoint(0.0, 0.0, a));
}

// The list never holds the transform, so these leave the object current.
long CGLObject::SetMatrix(const mat4x4& m) {
  m_matrix.copy(m);
  return 1;
}

long CGLObject::SetMatrix(double* m) {
  // m may be this object's own matrix.
  std::memmove(static_cast<double*>(m_matrix), m, 16 * sizeof(double));
  return 1;
}

// ---------------------------------------------------------------- colours

namespace {

CGLColor ColorFromRef(unsigned long rgb) {
  return CGLColor(static_cast<double>(rgb & 0xFFUL) / 255.0,
                  static_cast<double>((rgb >> 8) & 0xFFUL) / 255.0,
                  static_cast<double>((rgb >> 16) & 0xFFUL) / 255.0, 1.0);
}

// Assigns v to c when they differ (a NaN channel always differs), and then
// marks the shape modified.
template <class V>
long Recolor(CGLColor& c, bool& modified, const V& v) {
  if (c != v) {
    c = v;
    modified = true;
  }
  return 1;
}

}  // namespace

long CGLObject::ColorSet(double r, double g, double b, double a) {
  return ColorSet(CGLColor(r, g, b, a));
}

long CGLObject::ColorSet(unsigned long rgb) {
  return ColorSet(ColorFromRef(rgb));
}

long CGLObject::ColorSet(double v) {
  return Recolor(m_color, m_bModified, v);
}

long CGLObject::ColorSet(const CGLColor& c) {
  return Recolor(m_color, m_bModified, c);
}

long CGLObject::HLColorSet(double r, double g, double b, double a) {
  return HLColorSet(CGLColor(r, g, b, a));
}

long CGLObject::HLColorSet(unsigned long rgb) {
  return HLColorSet(ColorFromRef(rgb));
}

long CGLObject::HLColorSet(double v) {
  return Recolor(m_hlColor, m_bModified, v);
}

long CGLObject::HLColorSet(const CGLColor& c) {
  return Recolor(m_hlColor, m_bModified, c);
}

const CGLColor& CGLObject::ColorGet() {
  return m_color;
}

const CGLColor& CGLObject::HLColorGet() {
  return m_hlColor;
}

long CGLObject::AlphaSet(double a) {
  if (m_color.AlphaGet() == a) {
    return 1;
  }
  m_bModified = true;
  return m_color.AlphaSet(a);
}

long CGLObject::AlphaOff() {
  // Unlike AlphaSet, leaves the object current.
  m_color.AlphaSet(1.0);
  return 1;
}

double CGLObject::AlphaGet() {
  return m_color.AlphaGet();
}

// ---------------------------------------------------------------- drawing

long CGLObject::DisplayListsAllocate() {
  if (!glIsList(static_cast<GLuint>(m_nDisplayList))) {
    m_nDisplayList = static_cast<int>(glGenLists(1));
    if (!glIsList(static_cast<GLuint>(m_nDisplayList))) {
      m_nDisplayList = -1;
    }
  }
  return m_nDisplayList != -1 ? 1 : 0;
}

long CGLObject::DisplayListMake() {
  return 0;
}

long CGLObject::Draw() {
  if (!m_bVisible) {
    return 1;
  }
  if (DrawStart() != 1) {
    return 1;
  }
  if (m_bModified) {
    DisplayListMake();
  }
  if (m_nDisplayList >= 0) {
    glCallList(static_cast<GLuint>(m_nDisplayList));
  }
  DrawFinish();
  return 1;
}

long CGLObject::DrawDirect() {
  return 0;
}

long CGLObject::DrawStart() {
  glPushMatrix();
  DrawTransform();
  if (m_bSelected) {
    m_hlColor.GLColor();
  } else {
    m_color.GLColor();
  }
  return 1;
}

long CGLObject::DrawTransform() {
  glMultMatrixd(m_matrix);
  return 1;
}

long CGLObject::DrawFinish() {
  glPopMatrix();
  return 1;
}

long CGLObject::DrawSelection() {
  return 0;
}

void CGLObject::DisplayListBegin() {
  glNewList(static_cast<GLuint>(m_nDisplayList), GL_COMPILE);
}

void CGLObject::DisplayListEnd() {
  glEndList();
}

// ---------------------------------------------------------------- flags

void CGLObject::Select(bool b) {
  if (b != m_bSelected) {
    m_bSelected = b;
    m_bModified = true;
  }
}

long CGLObject::IsSelected() {
  return m_bSelected ? 1 : 0;
}

void CGLObject::SetVisible(bool b) {
  m_bVisible = b;
}

long CGLObject::IsVisible() {
  return m_bVisible ? 1 : 0;
}
