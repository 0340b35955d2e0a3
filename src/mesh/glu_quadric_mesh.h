#ifndef LUMAGRID_SRC_MESH_GLU_QUADRIC_MESH_H
#define LUMAGRID_SRC_MESH_GLU_QUADRIC_MESH_H

#include <lumagrid/Mesh.h>

namespace lumagrid::detail {

// Which way a quadric's normals and front faces point, as gluQuadricOrientation sets it.
enum class QuadricOrientation { Outside, Inside };

// The triangles GLU draws for its quadrics with the quadric's other settings at their
// defaults (filled, smooth normals, no texture coordinates), in the quadric's own frame.
// Empty where GLU draws nothing.
MeshPart GluSphereMesh(double radius, int slices, int stacks);
MeshPart GluCylinderMesh(double baseRadius, double topRadius, double height, int slices, int stacks,
                         QuadricOrientation orientation);
MeshPart GluDiskMesh(double innerRadius, double outerRadius, int slices, int loops,
                     QuadricOrientation orientation);

}  // namespace lumagrid::detail

#endif
