#include <lumagrid/CGLSphere.h>

#include <GL/glu.h>

CGLSphere::CGLSphere() : CGLSphere(1.0) {}

CGLSphere::CGLSphere(double radius) : CGLQuadric(), m_dRadius(radius) {
  m_nSlices = s_nSlices4New;
  m_nStacks = s_nStacks4New;
}

CGLSphere::CGLSphere(const CGLSphere& o) : CGLQuadric(o), m_dRadius(o.m_dRadius) {}

CGLSphere& CGLSphere::operator=(const CGLSphere& o) {
  CGLObject::operator=(o);
  m_dRadius = o.m_dRadius;
  return *this;
}

CGLSphere::~CGLSphere() = default;

double CGLSphere::Radius() const {
  return m_dRadius;
}

long CGLSphere::DisplayListMake() {
  // The sphere's quadric is never turned inside, so no orientation call.
  return DisplayListCompile([&] { gluSphere(m_pQuadric, m_dRadius, m_nSlices, m_nStacks); });
}
