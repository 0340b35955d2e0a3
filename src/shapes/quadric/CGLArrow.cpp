#include <lumagrid/CGLArrow.h>

#include <GL/gl.h>

#include "shapes/quadric/arrow_geometry.h"
#include "shapes/quadric/quadric_emit.h"

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

long CGLArrow::DrawArrow() {
  const lumagrid::detail::ArrowGeometry arrow =
      lumagrid::detail::BuildArrowGeometry(m_dLength, m_dRadius, m_bLite, m_nArrowNum,
                                           m_dFracLength, m_dFracRadius, m_nSlices, m_nStacks);
  // The plain colour, for unlit rendering, beside the material DrawStart set;
  // always the normal colour, even when selected.
  const CGLColor color = ColorGet();
  glColor3d(color.Red(), color.Green(), color.Blue());
  lumagrid::detail::gl::EmitArrow(m_pQuadric, arrow);
  return 1;
}

long CGLArrow::DisplayListMake() {
  return DisplayListCompile([&] { DrawArrow(); });
}

long CGLArrow::DrawDirect() {
  return DrawImmediate([&] { DrawArrow(); });
}
