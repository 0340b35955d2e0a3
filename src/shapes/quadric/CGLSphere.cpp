#include <lumagrid/CGLSphere.h>

#include <GL/glu.h>

CGLSphere::CGLSphere() : CGLSphere(1.0) {}

// Tessellates like every other shape: CGLObject() gave it the defaults.
CGLSphere::CGLSphere(double radius) : CGLQuadric(), m_dRadius(radius) {}

CGLSphere::CGLSphere(const CGLSphere&) = default;

CGLSphere& CGLSphere::operator=(const CGLSphere&) = default;

CGLSphere::~CGLSphere() = default;

double CGLSphere::Radius() const {
  return m_dRadius;
}

long CGLSphere::DisplayListMake() {
  // The sphere's quadric is never turned inside, so no orientation call.
  return DisplayListCompile([&] { gluSphere(m_pQuadric, m_dRadius, m_nSlices, m_nStacks); });
}
