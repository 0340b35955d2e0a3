#ifndef LUMAGRID_SRC_MESH_GLE_EXTRUSION_H
#define LUMAGRID_SRC_MESH_GLE_EXTRUSION_H

#include <lumagrid/Mesh.h>

#include <vector>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// How GLE lights a round tube's sides.
enum class GleNormals {
  // The circle's own normal on each segment, so that the joints show (a poly-cylinder's
  // TUBE_NORM_EDGE).
  Segment,
  // Normals laid into each joint's mitre cut: halfway between the two segments' at the far
  // end of a segment and at the very start, and flattened twice more at the near end of
  // every later segment, as GLE does (TUBE_NORM_PATH_EDGE, and TUBE_NORM_EDGE on a spiral).
  Cut,
  // Anything else (facet normals, no normals): not built here.
  Other,
};

// How GLE reads its join style for a round tube: the normals, and whether it caps the ends.
// Only mitred joins (TUBE_JN_ANGLE) without facet normals are built; the rest give
// GleNormals::Other.
GleNormals PolylineNormals(int joinStyle);
GleNormals SpiralNormals(int joinStyle);
bool CapsEnds(int joinStyle);

// A circle of `radius` and `sides` sides swept along `path` as GLE extrudes it with mitred
// joints: the first and last points only aim the end cuts. The circle's y axis is `up` made
// square to the first (undrawn) segment, carried from segment to segment without twist; side
// k lies at 2 pi k / sides from d x y towards y, d being the segment's direction.
// Inner points within 2e-6 of their distance from the origin of the point before them are
// dropped first, as GLE drops them (GLE then leaves the far cap off if the point before
// the last went). Each segment is a strip of two triangles per side, counter-clockwise
// from outside; the caps, when asked for, are fans facing away from the tube.
//
// Empty for fewer than four points, a path without length, sides < 1, more than
// kMaxWireLines sides along the tube, a point or radius not finite, a radius of zero (GLE
// draws only slivers), and GleNormals::Other.
MeshPart ExtrudeRoundTube(const std::vector<PathPoint>& path, const PathPoint& up, double radius,
                          int sides, GleNormals normals, bool caps);

}  // namespace lumagrid::detail

#endif
