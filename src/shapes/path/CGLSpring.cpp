#include <lumagrid/CGLSpring.h>

#include <GL/gle.h>

#include "shapes/path/quality.h"
#include "shapes/path/spring_draw.h"
#include "shapes/path/spring_drawing.h"
#include "shapes/tube/tube_fill.h"

CGLSpring::CGLSpring() : CGLSpring(0.1, 1.0, 1.0, 5.0, 3, 0.0) {}

CGLSpring::CGLSpring(double wireRadius, double radius, double aux, double length, int turns,
                     double startAngle)
    : CGLObject(),
      m_bShaded(1),
      m_nQuality(20),
      m_nType(0),
      m_nType2(0),
      m_dWireRadius(wireRadius),
      m_dRadius(radius),
      m_dAux(aux),
      m_dLength(length),
      m_dStartAngle(startAngle),
      m_nTurns(turns) {}

CGLSpring::CGLSpring(const CGLSpring& o) = default;

CGLSpring& CGLSpring::operator=(const CGLSpring& o) = default;

CGLSpring::~CGLSpring() = default;

void CGLSpring::SetLength(double d) {
  m_dLength = d;
  m_bModified = true;
}

void CGLSpring::ScaleLength(double f) {
  m_dLength *= f;
  m_bModified = true;
}

void CGLSpring::SetQuality(unsigned int q) {
  lumagrid::detail::StoreQuality(m_nQuality, q);
}

int CGLSpring::GetQuality(unsigned int&) {
  return m_nQuality;
}

void CGLSpring::SetType(unsigned int t) {
  m_nType = t;
}

unsigned int CGLSpring::GetType(unsigned int&) {
  return m_nType;
}

void CGLSpring::SetType2(unsigned int t) {
  m_nType2 = t;
}

unsigned int CGLSpring::GetType2(unsigned int&) {
  return m_nType2;
}

void CGLSpring::SetShadedMode(int shaded) {
  m_bShaded = shaded;
}

long CGLSpring::DisplayListMake() {
  return DisplayListCompile([&] { DrawSpring(); });
}

long CGLSpring::DrawDirect() {
  return DrawImmediate([&] { DrawSpring(); });
}

void CGLSpring::DrawSpring() {
  gleSetNumSides(m_nQuality);
  // Left as set: later tubes, a torus's too, are drawn the same way.
  lumagrid::detail::gl::SetTubeFilled(m_bShaded != 0);
  const lumagrid::detail::SpringCoil coil{m_dWireRadius, m_dRadius,     m_dLength,
                                          m_nTurns,      m_dStartAngle, m_nQuality};
  const lumagrid::detail::SpringStyle style = lumagrid::detail::SpringStyleOf(m_nType, m_nType2);
  switch (style.drawing) {
    case lumagrid::detail::SpringStyle::CompressionTube:
      lumagrid::detail::gl::DrawCompressionTube(coil, style.ends);
      break;
    case lumagrid::detail::SpringStyle::CompressionSchematic:
      lumagrid::detail::gl::DrawCompressionSchematic(coil, style.ends);
      break;
    case lumagrid::detail::SpringStyle::TensionTube:
      lumagrid::detail::gl::DrawTensionTube(coil, style.ends);
      break;
    case lumagrid::detail::SpringStyle::TensionSchematic:
      lumagrid::detail::gl::DrawTensionSchematic(coil, style.ends);
      break;
    case lumagrid::detail::SpringStyle::None:
      break;
  }
}
