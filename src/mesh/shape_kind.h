#ifndef LUMAGRID_SRC_MESH_SHAPE_KIND_H
#define LUMAGRID_SRC_MESH_SHAPE_KIND_H

#include <lumagrid/CGLObject.h>

namespace lumagrid::detail {

// The library's own classes, as the mesh layer tells them apart.
enum class ShapeKind {
  Sphere,
  Cylinder,  // and cones
  Arrow,
  Torus,
  Box,    // and the triad's cube
  Group,  // and axis triads
  Polyline,
  Belt,
  Spring,
  Unknown,  // any other class, a host's subclass of a library class included
};

// By the exact class: a host's subclass may draw anything in its list.
ShapeKind KindOf(const CGLObject& shape);

}  // namespace lumagrid::detail

#endif
