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
// call's own frame, with the normals GLE gives while lighting is on. Empty where GLE draws
// nothing.
MeshPart GleHelicoidMesh(const HelixTube& tube, const GleSettings& settings);
MeshPart GleToroidMesh(const HelixTube& tube, const GleSettings& settings);
MeshPart GlePolyCylinderMesh(const std::vector<PathPoint>& path, double radius,
                             const GleSettings& settings);

}  // namespace lumagrid::detail

#endif
