#ifndef LUMAGRID_TESTS_SUPPORT_GEOMETRY_MESHAGREEMENT_H
#define LUMAGRID_TESTS_SUPPORT_GEOMETRY_MESHAGREEMENT_H

#include <gtest/gtest.h>
#include <lumagrid/Mesh.h>

#include "geometry/GLCapture.h"

namespace geometry {

// Whether a mesh is what GL received, within the mesh layer's promise: as many triangles and
// segments; every vertex of either within 1e-6 of the size (the diagonal of GL's box) of a
// vertex of the other; normals within half a degree of a normal the other gives at that
// vertex; every triangle wound as the other side's triangle over the same place. Triangles
// and segments smaller than the tolerance are left out on both sides first.
::testing::AssertionResult MeshAgreesWithGL(const lumagrid::Mesh& mesh, const Captured& gl);

}  // namespace geometry

#endif
