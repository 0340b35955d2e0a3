#include <lumagrid/CGLColor.h>

#include <GL/gl.h>

CGLColor::CGLColor() : m_adRGBA{0.5, 0.5, 0.5, 1.0}, m_afGL{} {}

CGLColor::CGLColor(double v) : m_adRGBA{v, v, v, 1.0}, m_afGL{} {}

CGLColor::CGLColor(double r, double g, double b, double a) : m_adRGBA{r, g, b, a}, m_afGL{} {}

CGLColor::CGLColor(const CGLColor& c) : m_adRGBA{}, m_afGL{} {
  *this = c;
}

CGLColor::~CGLColor() {}

const CGLColor& CGLColor::operator=(const CGLColor& c) {
  m_dRed = c.m_dRed;
  m_dGreen = c.m_dGreen;
  m_dBlue = c.m_dBlue;
  m_dAlpha = c.m_dAlpha;
  return *this;
}

const CGLColor& CGLColor::operator=(double v) {
  m_dRed = v;
  m_dGreen = v;
  m_dBlue = v;
  return *this;
}

bool CGLColor::operator==(const CGLColor& c) const {
  return m_dRed == c.m_dRed && m_dGreen == c.m_dGreen && m_dBlue == c.m_dBlue &&
         m_dAlpha == c.m_dAlpha;
}

bool CGLColor::operator!=(const CGLColor& c) const {
  return !(*this == c);
}

bool CGLColor::operator==(double v) const {
  return m_dRed == v && m_dGreen == v && m_dBlue == v;
}

bool CGLColor::operator!=(double v) const {
  return !(*this == v);
}

void CGLColor::GLColor() {
  m_afGL[0] = static_cast<float>(m_dRed);
  m_afGL[1] = static_cast<float>(m_dGreen);
  m_afGL[2] = static_cast<float>(m_dBlue);
  m_afGL[3] = static_cast<float>(m_dAlpha);
  glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, m_afGL);
}

long CGLColor::AlphaSet(double a) {
  m_dAlpha = a;
  return 1;
}

double CGLColor::AlphaGet() const {
  return m_dAlpha;
}

bool CGLColor::IsTransparent() const {
  return !(m_dAlpha == 1.0);
}
