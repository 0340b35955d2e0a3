#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_BOX_FACES_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_BOX_FACES_H

#include <array>
#include <type_traits>

namespace lumagrid::detail {

// One face of a box as glNormal3f and four glVertex3f receive it.
struct BoxFace {
  std::array<float, 3> normal;
  std::array<std::array<float, 3>, 4> vertices;
};

static_assert(sizeof(BoxFace) == 15 * sizeof(float), "a face is 15 packed floats");
static_assert(std::is_trivially_copyable<BoxFace>::value, "faces copy as raw memory");

// The six faces of a box centred on the origin, in the order +z, -z, +y, -y,
// +x, -x, each wound counter-clockwise seen from outside. Half edges are
// computed in double, then rounded to float.
std::array<BoxFace, 6> BoxFaces(double sizeX, double sizeY, double sizeZ);

}  // namespace lumagrid::detail

#endif
