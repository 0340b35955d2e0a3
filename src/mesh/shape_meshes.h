#ifndef LUMAGRID_SRC_MESH_SHAPE_MESHES_H
#define LUMAGRID_SRC_MESH_SHAPE_MESHES_H

#include <lumagrid/CGLObject.h>

#include <vector>

#include "mesh/mesh_assembly.h"
#include "shapes/path/spring_tubes.h"
#include "shapes/quadric/arrow_geometry.h"
#include "shapes/quadric/cylinder_geometry.h"
#include "shapes/quadric/sphere_geometry.h"
#include "shapes/tube/helix_points.h"

namespace lumagrid::detail {

// The process-wide tube settings a list compile reads: GLE's number of sides, and whether
// the library's tubes are filled or wireframes.
struct TubeSettings {
  int sides;
  bool filled;
};

// Each adds what the matching Emit/Draw function makes GL receive, in the same order and
// through the same matrix calls.
void AddSphere(MeshAssembly& mesh, const SphereGeometry& sphere);
void AddCylinder(MeshAssembly& mesh, const CylinderGeometry& cylinder);
void AddArrow(MeshAssembly& mesh, const ArrowGeometry& arrow);
void AddBox(MeshAssembly& mesh, double sizeX, double sizeY, double sizeZ);

void AddHelicoid(MeshAssembly& mesh, const HelixTube& tube, int joinStyle,
                 const TubeSettings& settings);
void AddToroid(MeshAssembly& mesh, const HelixTube& tube, int joinStyle,
               const TubeSettings& settings);
void AddPolyCylinder(MeshAssembly& mesh, const std::vector<PathPoint>& path, double radius,
                     int joinStyle, const TubeSettings& settings);

// A spring of the given type codes, its tubes swept with `filled` as it sets it.
void AddSpring(MeshAssembly& mesh, const SpringCoil& coil, unsigned int type, unsigned int type2,
               bool filled);

// The current settings, read without drawing.
TubeSettings CurrentTubeSettings();

}  // namespace lumagrid::detail

#endif
