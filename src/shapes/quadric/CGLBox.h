#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_CGLBOX_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_CGLBOX_H

#include <lumagrid/CGLObject.h>

#include <array>
#include <type_traits>

// One face of a box as glNormal3f and four glVertex3f receive it.
struct CGLBoxFace {
  std::array<float, 3> normal;
  std::array<std::array<float, 3>, 4> vertices;
};

static_assert(sizeof(CGLBoxFace) == 15 * sizeof(float), "a face is 15 packed floats");
static_assert(std::is_trivially_copyable<CGLBoxFace>::value, "faces copy as raw memory");

// The six faces of a box centred on the origin, in the order +z, -z, +y, -y,
// +x, -x, each wound counter-clockwise seen from outside. Half edges are
// computed in double, then rounded to float.
std::array<CGLBoxFace, 6> CGLBoxFaces(double sizeX, double sizeY, double sizeZ);

// A box centred on the origin, drawn with GL_QUADS. Internal: only the axis
// triad uses it, through CGLCube. It has no immediate-mode drawing.
class CGLBox : public CGLObject {
 public:
  CGLBox();
  CGLBox(double sizeX, double sizeY, double sizeZ);
  ~CGLBox() override;

  long DisplayListMake() override;

 protected:
  double m_dSizeX;
  double m_dSizeY;
  double m_dSizeZ;
};

#endif
