#ifndef LUMAGRID_SRC_MESH_GLE_TUBE_MESH_H
#define LUMAGRID_SRC_MESH_GLE_TUBE_MESH_H

#include <lumagrid/Mesh.h>

#include <vector>

#include "shapes/geometry/path_point.h"
#include "shapes/tube/helix_points.h"

namespace lumagrid::detail {

// GLE's process-wide settings that shape a tube.
struct GleSettings {
  int sides;      // gleGetNumSides()
  int joinStyle;  // gleGetJoinStyle()
};

// The triangles GLE draws for a filled tube with no transform or colour arrays, in the
// call's own frame, with the normals GLE gives while lighting is on: a strip of two
// triangles per side along each segment of the sampled path, and a fan of sides - 2 over
// each end when the join style caps. Empty where GLE draws nothing or only slivers (no
// sides, a radius of zero, too short a path or sweep), for input that is not finite or too
// large to sample, and for what is not built here: joins other than TUBE_JN_ANGLE, facet
// normals, and toroids that climb or spiral (GLE lathes those through the axis).
MeshPart GleHelicoidMesh(const HelixTube& tube, const GleSettings& settings);
MeshPart GleToroidMesh(const HelixTube& tube, const GleSettings& settings);
MeshPart GlePolyCylinderMesh(const std::vector<PathPoint>& path, double radius,
                             const GleSettings& settings);

}  // namespace lumagrid::detail

#endif
