#include "shapes/quadric/CGLBox.h"

#include <GL/gl.h>

#include "shapes/quadric/box_faces.h"

CGLBox::CGLBox() : CGLBox(1.0, 1.0, 1.0) {}

CGLBox::CGLBox(double sizeX, double sizeY, double sizeZ)
    : CGLObject(), m_dSizeX(sizeX), m_dSizeY(sizeY), m_dSizeZ(sizeZ) {}

CGLBox::~CGLBox() = default;

long CGLBox::DisplayListMake() {
  return DisplayListCompile([&] {
    using lumagrid::detail::BoxFace;
    const std::array<BoxFace, 6> faces = lumagrid::detail::BoxFaces(m_dSizeX, m_dSizeY, m_dSizeZ);
    glBegin(GL_QUADS);
    {
      for (const BoxFace& face : faces) {
        glNormal3f(face.normal[0], face.normal[1], face.normal[2]);
        for (const std::array<float, 3>& v : face.vertices) {
          glVertex3f(v[0], v[1], v[2]);
        }
      }
    }
    glEnd();
  });
}
