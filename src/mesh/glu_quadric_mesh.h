#ifndef LUMAGRID_SRC_MESH_GLU_QUADRIC_MESH_H
#define LUMAGRID_SRC_MESH_GLU_QUADRIC_MESH_H

#include <lumagrid/Mesh.h>

namespace lumagrid::detail {

// Which way a quadric's normals and front faces point, as gluQuadricOrientation sets it.
enum class QuadricOrientation { Outside, Inside };

// The triangles GLU draws for its quadrics with the quadric's other settings at their
// defaults (filled, smooth normals, no texture coordinates), in the quadric's own frame.
// Empty where GLU draws nothing.
//
// One triangle for each GLU draws, in GLU's order. A quad strip sends pairs (a_i, b_i); its
// quad i becomes (a_i, b_i, b_i+1) and (a_i, b_i+1, a_i+1), as GL splits a quad. A fan gives
// (apex, v_i, v_i+1). Triangles of no area (a cone's tip, a sphere of one stack, an annulus of
// no width) are kept. Slice i lies at angle 2*pi*i/slices from +y towards +x. Slices (and a
// sphere's stacks) are capped at 239 as GLU caps them; GLU's argument checks are mirrored. A NaN or
// infinite argument, or one beyond a float's range, gives an empty part (GLU would send GL
// non-finite vertices), and so does a call that would make more than 2^22 triangles (GLU has no
// bound on stacks or loops). Normals are unit length and computed in double, as is every position.

// Outside only, as the library draws it. The poles carry (0, 0, 1) and (0, 0, -1). GLU's south
// pole normal strays from -z by a float's sin(pi) (about 1e-7) times a slice-table entry it
// reads at the stack count, past the filled entries when stacks > slices.
MeshPart GluSphereMesh(double radius, int slices, int stacks);
// Turned inside, GLU negates only the normals' radial part: a cone's normals keep their z.
MeshPart GluCylinderMesh(double baseRadius, double topRadius, double height, int slices, int stacks,
                         QuadricOrientation orientation);
MeshPart GluDiskMesh(double innerRadius, double outerRadius, int slices, int loops,
                     QuadricOrientation orientation);

}  // namespace lumagrid::detail

#endif
