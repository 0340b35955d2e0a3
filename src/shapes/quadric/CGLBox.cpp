#include "shapes/quadric/CGLBox.h"

#include "shapes/geometry/emit.h"
#include "shapes/quadric/box_faces.h"

CGLBox::CGLBox() : CGLBox(1.0, 1.0, 1.0) {}

CGLBox::CGLBox(double sizeX, double sizeY, double sizeZ)
    : CGLObject(), m_dSizeX(sizeX), m_dSizeY(sizeY), m_dSizeZ(sizeZ) {}

CGLBox::~CGLBox() = default;

long CGLBox::DisplayListMake() {
  return DisplayListCompile([&] {
    lumagrid::detail::gl::EmitBoxFaces(lumagrid::detail::BoxFaces(m_dSizeX, m_dSizeY, m_dSizeZ));
  });
}
