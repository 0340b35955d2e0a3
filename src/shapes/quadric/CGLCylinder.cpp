#include <lumagrid/CGLCylinder.h>

#include "shapes/quadric/cylinder_geometry.h"
#include "shapes/quadric/quadric_emit.h"

CGLCylinder::CGLCylinder() : CGLCylinder(1.0, 1.0, true) {}

CGLCylinder::CGLCylinder(double radius, double height, bool closed)
    : CGLQuadric(),
      m_dBaseRadius(radius),
      m_dTopRadius(radius),
      m_dHeight(height),
      m_bClosed(closed) {}

CGLCylinder::CGLCylinder(const CGLCylinder&) = default;

CGLCylinder& CGLCylinder::operator=(const CGLCylinder&) = default;

CGLCylinder::~CGLCylinder() = default;

long CGLCylinder::DisplayListMake() {
  return DisplayListCompile([&] {
    lumagrid::detail::gl::EmitCylinder(
        m_pQuadric, lumagrid::detail::BuildCylinderGeometry(m_dBaseRadius, m_dTopRadius, m_dHeight,
                                                            m_bClosed, m_nSlices, m_nStacks));
  });
}
