#include <lumagrid/CGLCone.h>

// The default cone is the default cylinder, top radius 1 included.
CGLCone::CGLCone() : CGLCylinder() {}

CGLCone::CGLCone(double radius, double height, bool closed) : CGLCylinder(radius, height, closed) {
  m_dTopRadius = 0.0;
}

CGLCone::CGLCone(double baseRadius, double topRadius, double height, bool closed)
    : CGLCylinder(baseRadius, height, closed) {
  m_dTopRadius = topRadius;
}

CGLCone::CGLCone(const CGLCone&) = default;

CGLCone& CGLCone::operator=(const CGLCone&) = default;

CGLCone::~CGLCone() = default;
