#ifndef LUMAGRID_SRC_SHAPES_PATH_VERTEX_LIST_H
#define LUMAGRID_SRC_SHAPES_PATH_VERTEX_LIST_H

#include <lumagrid/CGLPoint.h>

#include <vector>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// Deletes every owned point and empties the list.
void ClearVertexList(std::vector<CGLPoint*>& points);

// Makes the list hold exactly `values`, as ClearVertexList() then one new
// CGLPoint per value would, but keeps the plain CGLPoints it already owns and
// overwrites them: deleting and remaking those shows nowhere. Points of any
// other type are deleted first, in order, as ClearVertexList() deletes them.
void AssignVertexList(std::vector<CGLPoint*>& points, const std::vector<PathPoint>& values);

}  // namespace lumagrid::detail

#endif
