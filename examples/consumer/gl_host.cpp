// A host that calls GL, GLU and GLE itself and links nothing but Lumagrid: the library hands
// its users the GL it draws with. No context is made, so the GL calls do nothing; what is
// checked is that the program links and runs.
#include <lumagrid/lumagrid.h>

#include <GL/gl.h>
#include <GL/gle.h>
#include <GL/glu.h>

#include <iostream>

int main() {
  glEnable(GL_LIGHTING);
  GLUquadric* quadric = gluNewQuadric();
  gluDeleteQuadric(quadric);
  gleSetNumSides(12);
  const int sides = gleGetNumSides();

  CGLScene scene;
  scene.AddGLShape(new CGLTorus);
  std::cout << "sides " << sides << '\n';
  return (quadric != nullptr && sides == 12) ? 0 : 1;
}
