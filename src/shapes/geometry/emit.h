#ifndef LUMAGRID_SRC_SHAPES_GEOMETRY_EMIT_H
#define LUMAGRID_SRC_SHAPES_GEOMETRY_EMIT_H

#include <lumagrid/CGLPoint.h>

#include <array>
#include <vector>

#include "shapes/geometry/matrix_step.h"
#include "shapes/geometry/path_point.h"
#include "shapes/quadric/box_faces.h"
#include "shapes/tube/wire_sweep.h"

// The one place where the builders' points, lines, strips, sweeps and faces
// become GL calls.
namespace lumagrid::detail::gl {

// glBegin(GL_LINE_STRIP), one glVertex3d per point in order, glEnd().
void EmitLineStrip(const std::vector<PathPoint>& points);
void EmitLineStrip(const std::vector<CGLPoint*>& points);

// One GL_LINES segment, its ends rounded to glVertex3f.
void EmitLineInFloats(const PathPoint& from, const PathPoint& to);

// The sweep's lines (no glBegin when there are none), each vertex with its
// normal as glNormal3f, then each cap as a GL_POLYGON with one normal.
void EmitWireSweep(const WireSweep& sweep);

// glTranslated or glRotated for each step, in order.
void EmitMatrixSteps(const std::vector<MatrixStep>& steps);

// The faces as one GL_QUADS block: a glNormal3f and four glVertex3f each.
void EmitBoxFaces(const std::array<BoxFace, 6>& faces);

}  // namespace lumagrid::detail::gl

#endif
