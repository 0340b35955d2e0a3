#ifndef LUMAGRID_SRC_MESH_EXTENT_H
#define LUMAGRID_SRC_MESH_EXTENT_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/SceneQuery.h>

#include "mesh/affine.h"

namespace lumagrid::detail {

// A box in the shape's own frame that holds its mesh, worked out from the shape's
// parameters alone (no mesh is built), so that picking can pass most shapes by cheaply.
// Larger than the mesh's bounds where that is simpler. Empty for shapes without geometry
// of their own (groups, unknown classes); not finite when the parameters are not.
Bounds ExtentOf(CGLObject& shape);

// The axis-aligned box around `box` carried through `world`.
Bounds Carried(const Bounds& box, const Affine& world);

// Grows `bounds` to hold `p`; points that are not finite are left out.
void Include(Bounds& bounds, const vec3d& p);

}  // namespace lumagrid::detail

#endif
