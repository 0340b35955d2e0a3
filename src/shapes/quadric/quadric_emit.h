#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_QUADRIC_EMIT_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_QUADRIC_EMIT_H

#include <GL/glu.h>

#include "shapes/quadric/arrow_geometry.h"
#include "shapes/quadric/cylinder_geometry.h"
#include "shapes/quadric/sphere_geometry.h"

// The GLU calls of the quadric shapes.
namespace lumagrid::detail::gl {

// The cylinder's side, then its disks; the top one in a matrix of its own.
// Outside first: a base disk without a top one leaves the quadric inside.
void EmitCylinder(GLUquadric* q, const CylinderGeometry& cylinder);

// The sphere's quadric is never turned inside, so no orientation call.
void EmitSphere(GLUquadric* q, const SphereGeometry& sphere);

// The shaft, then the heads one on another, leaving the matrix translated
// to the base of the last head.
void EmitArrow(GLUquadric* q, const ArrowGeometry& arrow);

}  // namespace lumagrid::detail::gl

#endif
