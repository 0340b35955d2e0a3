#include "shapes/quadric/CGLBox.h"

#include <GL/gl.h>

std::array<CGLBoxFace, 6> CGLBoxFaces(double sizeX, double sizeY, double sizeZ) {
  const auto a = static_cast<float>(sizeX * 0.5);
  const auto b = static_cast<float>(sizeY * 0.5);
  const auto c = static_cast<float>(sizeZ * 0.5);
  return {{
      {{0.0f, 0.0f, 1.0f}, {{{a, b, c}, {-a, b, c}, {-a, -b, c}, {a, -b, c}}}},
      {{0.0f, 0.0f, -1.0f}, {{{-a, -b, -c}, {-a, b, -c}, {a, b, -c}, {a, -b, -c}}}},
      {{0.0f, 1.0f, 0.0f}, {{{a, b, c}, {a, b, -c}, {-a, b, -c}, {-a, b, c}}}},
      {{0.0f, -1.0f, 0.0f}, {{{-a, -b, -c}, {a, -b, -c}, {a, -b, c}, {-a, -b, c}}}},
      {{1.0f, 0.0f, 0.0f}, {{{a, b, c}, {a, -b, c}, {a, -b, -c}, {a, b, -c}}}},
      {{-1.0f, 0.0f, 0.0f}, {{{-a, -b, -c}, {-a, -b, c}, {-a, b, c}, {-a, b, -c}}}},
  }};
}

CGLBox::CGLBox() : CGLBox(1.0, 1.0, 1.0) {}

CGLBox::CGLBox(double sizeX, double sizeY, double sizeZ)
    : CGLObject(), m_dSizeX(sizeX), m_dSizeY(sizeY), m_dSizeZ(sizeZ) {}

CGLBox::~CGLBox() = default;

long CGLBox::DisplayListMake() {
  return DisplayListCompile([&] {
    const std::array<CGLBoxFace, 6> faces = CGLBoxFaces(m_dSizeX, m_dSizeY, m_dSizeZ);
    glBegin(GL_QUADS);
    {
      for (const CGLBoxFace& face : faces) {
        glNormal3f(face.normal[0], face.normal[1], face.normal[2]);
        for (const std::array<float, 3>& v : face.vertices)
          glVertex3f(v[0], v[1], v[2]);
      }
    }
    glEnd();
  });
}
