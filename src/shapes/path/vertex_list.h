#ifndef LUMAGRID_SRC_SHAPES_PATH_VERTEX_LIST_H
#define LUMAGRID_SRC_SHAPES_PATH_VERTEX_LIST_H

#include <lumagrid/CGLPoint.h>

#include <vector>

namespace lumagrid::detail {

// Deletes every owned point and empties the list.
void ClearVertexList(std::vector<CGLPoint*>& points);

}  // namespace lumagrid::detail

#endif
