#include <lumagrid/CGLArrow.h>

#include <GL/gl.h>
#include <GL/glu.h>

CGLArrow::CGLArrow() : CGLArrow(1.0, 0.2, false, 1, 0.8, 0.4) {}

CGLArrow::CGLArrow(double length, double radius, bool lite, int arrowNum, double fracLength,
                   double fracRadius)
    : CGLQuadric(),
      m_bLite(lite),
      m_dLength(length),
      m_dRadius(radius),
      m_dFracLength(fracLength),
      m_dFracRadius(fracRadius),
      m_nArrowNum(arrowNum) {}

CGLArrow::CGLArrow(const CGLArrow&) = default;

CGLArrow& CGLArrow::operator=(const CGLArrow&) = default;

CGLArrow::~CGLArrow() = default;

// Setters leave m_bModified alone: a built list shows the change only after
// the next transform, colour or selection change.
void CGLArrow::SetLength(double length) {
  m_dLength = length;
}

void CGLArrow::SetRadius(double radius) {
  m_dRadius = radius;
}

void CGLArrow::SetLite(bool lite) {
  m_bLite = lite;
}

void CGLArrow::SetArrowNum(int arrowNum) {
  m_nArrowNum = arrowNum;
}

void CGLArrow::SetFracLength(double fracLength) {
  m_dFracLength = fracLength;
}

void CGLArrow::SetFracRadius(double fracRadius) {
  m_dFracRadius = fracRadius;
}

namespace {

// A frustum along +z from baseRadius to topRadius, then its base disk
// turned to face -z. The shaft and every head are drawn this way.
void EmitFrustum(GLUquadric* q, double baseRadius, double topRadius, double length, GLint slices,
                 GLint stacks) {
  gluQuadricOrientation(q, GLU_OUTSIDE);
  gluCylinder(q, baseRadius, topRadius, length, slices, stacks);
  gluQuadricOrientation(q, GLU_INSIDE);
  gluDisk(q, 0.0, baseRadius, slices, 1);
}

}  // namespace

long CGLArrow::DrawArrow() {
  const double shaftLength = m_dLength * m_dFracLength;
  const double shaftRadius = m_dRadius * m_dFracRadius;
  const double headLength = (1.0 - m_dFracLength) * m_dLength;
  const GLint headSlices = m_bLite ? 4 : m_nSlices;
  const GLint headStacks = m_bLite ? 2 : m_nStacks;

  // The plain colour, for unlit rendering, beside the material DrawStart set;
  // always the normal colour, even when selected.
  const CGLColor color = ColorGet();
  glColor3d(color.Red(), color.Green(), color.Blue());

  if (m_bLite) {
    glBegin(GL_LINES);
    {
      glVertex3f(0.0f, 0.0f, 0.0f);
      glVertex3f(0.0f, 0.0f, static_cast<float>(shaftLength));
    }
    glEnd();
    glTranslated(0.0, 0.0, shaftLength);
  } else {
    EmitFrustum(m_pQuadric, shaftRadius, shaftRadius, shaftLength, m_nSlices, m_nStacks);
    gluQuadricOrientation(m_pQuadric, GLU_OUTSIDE);
    glTranslated(0.0, 0.0, shaftLength);
    // Closes the shaft although the first head's base covers it.
    gluDisk(m_pQuadric, 0.0, shaftRadius, m_nSlices, 1);
  }

  // Every head but the last is a half-length frustum, so each extra head
  // lengthens the arrow by half a head. The count is read at every test;
  // i + 1 < n is i < n - 1 without overflowing for the smallest n.
  for (int i = 0; i + 1 < m_nArrowNum; ++i) {
    EmitFrustum(m_pQuadric, m_dRadius, m_dRadius * 0.5, headLength * 0.5, headSlices, headStacks);
    glTranslated(0.0, 0.0, headLength * 0.5);
  }
  EmitFrustum(m_pQuadric, m_dRadius, 0.0, headLength, headSlices, headStacks);
  return 1;
}

long CGLArrow::DisplayListMake() {
  return DisplayListCompile([&] { DrawArrow(); });
}

long CGLArrow::DrawDirect() {
  return DrawImmediate([&] { DrawArrow(); });
}
