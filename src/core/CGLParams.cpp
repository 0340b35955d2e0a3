#include <lumagrid/CGLParams.h>

#include <GL/gl.h>

CGLParams::~CGLParams() {}

void CGLParams::SetClippingPlanes(double dNear, double dFar) {
  GLdouble m[16];
  glGetDoublev(GL_PROJECTION_MATRIX, m);
  m[10] = -2.0 / (dFar - dNear);
  m[14] = -(dFar + dNear) / (dFar - dNear);
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glMultMatrixd(m);
  // Model-view afterwards, whatever mode the caller was in.
  glMatrixMode(GL_MODELVIEW);
}

void CGLParams::GetClippingPlanes(double& dNear, double& dFar) {
  GLdouble m[16];
  glGetDoublev(GL_PROJECTION_MATRIX, m);
  dNear = (m[14] + 1.0) / m[10];
  dFar = dNear - 2.0 / m[10];
}
