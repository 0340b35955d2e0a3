#include "shapes/quadric/box_faces.h"

namespace lumagrid::detail {

std::array<BoxFace, 6> BoxFaces(double sizeX, double sizeY, double sizeZ) {
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

}  // namespace lumagrid::detail
