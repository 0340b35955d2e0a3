#ifndef LUMAGRID_SRC_GLTF_NODE_MATRIX_H
#define LUMAGRID_SRC_GLTF_NODE_MATRIX_H

#include <lumagrid/Mesh.h>

#include "gltf/export_items.h"

namespace lumagrid::detail {

// Whether a glTF node may carry the matrix: a translation, a rotation and a non-zero scale
// along the axes, in that order, with an affine last row.
bool IsRotationScaleTranslation(const GlMatrix& m);

// Takes the mesh through the matrix, with GL's normal rule (the inverse transpose, normalised)
// and its division by w.
void ApplyToMesh(const GlMatrix& m, Mesh& mesh);

}  // namespace lumagrid::detail

#endif
