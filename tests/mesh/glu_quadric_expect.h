#ifndef LUMAGRID_TESTS_MESH_GLU_QUADRIC_EXPECT_H
#define LUMAGRID_TESTS_MESH_GLU_QUADRIC_EXPECT_H

#include <lumagrid/Mesh.h>

#include <array>
#include <cmath>
#include <cstddef>

// Plain arithmetic on a mesh part's triangles, so that the checks lean on nothing but the
// part's data.
namespace glu_quadric_expect {

using Point = std::array<double, 3>;

inline Point ToPoint(const vec3d& v) {
  return {v.x(), v.y(), v.z()};
}

inline std::size_t TriangleCount(const lumagrid::MeshPart& part) {
  return part.indices.size() / 3;
}

inline const lumagrid::MeshVertex& Corner(const lumagrid::MeshPart& part, std::size_t triangle,
                                          int corner) {
  return part.vertices[part.indices[3 * triangle + corner]];
}

inline Point Position(const lumagrid::MeshPart& part, std::size_t triangle, int corner) {
  return ToPoint(Corner(part, triangle, corner).position);
}

inline Point Minus(const Point& a, const Point& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

inline Point Cross(const Point& a, const Point& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

inline double Dot(const Point& a, const Point& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline double Length(const Point& a) {
  return std::sqrt(Dot(a, a));
}

// Twice the triangle's area along the normal its corners' order gives (counter-clockwise
// seen from the side it points to).
inline Point FacetNormal(const lumagrid::MeshPart& part, std::size_t triangle) {
  const Point a = Position(part, triangle, 0);
  return Cross(Minus(Position(part, triangle, 1), a), Minus(Position(part, triangle, 2), a));
}

inline Point Centroid(const lumagrid::MeshPart& part, std::size_t triangle) {
  Point sum{0.0, 0.0, 0.0};
  for (int corner = 0; corner < 3; ++corner) {
    const Point p = Position(part, triangle, corner);
    for (int i = 0; i < 3; ++i) {
      sum[i] += p[i] / 3.0;
    }
  }
  return sum;
}

// GLU's strips keep the triangles of a cone's tip and of a sphere with one stack, which have
// no area.
inline bool HasNoArea(const lumagrid::MeshPart& part, std::size_t triangle, double size) {
  return Length(FacetNormal(part, triangle)) < 1e-12 * size * size;
}

inline bool IndicesInRange(const lumagrid::MeshPart& part) {
  for (const auto index : part.indices) {
    if (index >= part.vertices.size()) {
      return false;
    }
  }
  return part.indices.size() % 3 == 0;
}

}  // namespace glu_quadric_expect

#endif
