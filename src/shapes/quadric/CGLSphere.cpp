#include <lumagrid/CGLSphere.h>

#include "shapes/quadric/quadric_emit.h"
#include "shapes/quadric/sphere_geometry.h"

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
  return DisplayListCompile([&] {
    lumagrid::detail::gl::EmitSphere(
        m_pQuadric, lumagrid::detail::BuildSphereGeometry(m_dRadius, m_nSlices, m_nStacks));
  });
}
