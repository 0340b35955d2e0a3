#include <lumagrid/CGLQuadric.h>

#include <GL/glu.h>

CGLQuadric::CGLQuadric() : CGLObject() {
  // A null handle is kept as it is; GLU deals with it at draw time.
  m_pQuadric = gluNewQuadric();
}

CGLQuadric::CGLQuadric(const CGLQuadric&) = default;

// The old handle is dropped, not released: copies may still hold it.
CGLQuadric& CGLQuadric::operator=(const CGLQuadric&) = default;

CGLQuadric::~CGLQuadric() {
  gluDeleteQuadric(m_pQuadric);
}
