#include <lumagrid/CGLTorus.h>

#include <GL/gle.h>

#include "shapes/quadric/torus_geometry.h"
#include "shapes/tube/helix_points.h"
#include "shapes/tube/tube.h"

static_assert(lumagrid::detail::kTorusJoinStyle == (TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE),
              "the ring's join style");

CGLTorus::CGLTorus() : CGLTorus(0.1, 1.0, 0.0, 360.0) {}

CGLTorus::CGLTorus(double innerRadius, double outerRadius, double startAngle, double sweepAngle)
    : CGLObject(),
      m_dInnerRadius(innerRadius),
      m_dOuterRadius(outerRadius),
      m_dStartAngle(startAngle),
      m_dSweepAngle(sweepAngle) {}

CGLTorus::CGLTorus(const CGLTorus& o) = default;

CGLTorus& CGLTorus::operator=(const CGLTorus& o) = default;

CGLTorus::~CGLTorus() = default;

double CGLTorus::innerRadius() {
  return m_dInnerRadius;
}

double CGLTorus::outerRadius() {
  return m_dOuterRadius;
}

double CGLTorus::startAngle() {
  return m_dStartAngle;
}

double CGLTorus::sweepAngle() {
  return m_dSweepAngle;
}

long CGLTorus::DisplayListMake() {
  return DisplayListCompile([&] {
    // Left in force afterwards: later GLE drawings inherit this style.
    gleSetJoinStyle(lumagrid::detail::kTorusJoinStyle);
    // A ring that cannot be sampled leaves the list empty.
    if (lumagrid::detail::TorusSweepable(m_dStartAngle, m_dSweepAngle, gleGetNumSides)) {
      // Solid or wireframe, as the last spring drawn left the tubes.
      lumagrid::detail::gl::TubeToroid(lumagrid::detail::BuildTorusRing(
          m_dInnerRadius, m_dOuterRadius, m_dStartAngle, m_dSweepAngle));
    }
  });
}
