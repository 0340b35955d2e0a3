#ifndef LUMAGRID_SRC_SHAPES_GEOMETRY_VECTOR_ALGEBRA_H
#define LUMAGRID_SRC_SHAPES_GEOMETRY_VECTOR_ALGEBRA_H

#include <cmath>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// The builders' small vector algebra on points and directions, component by
// component in x, y, z order.

inline PathPoint Add(const PathPoint& a, const PathPoint& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline PathPoint Sub(const PathPoint& a, const PathPoint& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline PathPoint Mul(const PathPoint& a, double s) {
  return {a.x * s, a.y * s, a.z * s};
}

inline double Dot(const PathPoint& a, const PathPoint& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline PathPoint Cross(const PathPoint& a, const PathPoint& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double Length(const PathPoint& v) {
  return std::sqrt(Dot(v, v));
}

}  // namespace lumagrid::detail

#endif
