#include <lumagrid/CGLCylinder.h>

#include <GL/gl.h>
#include <GL/glu.h>

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
    // Outside first: a base disk without a top one leaves the quadric inside.
    gluQuadricOrientation(m_pQuadric, GLU_OUTSIDE);
    gluCylinder(m_pQuadric, m_dBaseRadius, m_dTopRadius, m_dHeight, m_nSlices, m_nStacks);
    if (!m_bClosed) {
      return;
    }
    // Strict tests: a zero (apex) or NaN radius gets no disk.
    if (m_dBaseRadius > 0.0) {
      gluQuadricOrientation(m_pQuadric, GLU_INSIDE);
      gluDisk(m_pQuadric, 0.0, m_dBaseRadius, m_nSlices, 1);
    }
    if (m_dTopRadius > 0.0) {
      glPushMatrix();
      {
        gluQuadricOrientation(m_pQuadric, GLU_OUTSIDE);
        glTranslated(0.0, 0.0, m_dHeight);
        gluDisk(m_pQuadric, 0.0, m_dTopRadius, m_nSlices, 1);
      }
      glPopMatrix();
    }
  });
}
