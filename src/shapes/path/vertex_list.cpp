#include "shapes/path/vertex_list.h"

namespace lumagrid::detail {

void ClearVertexList(std::vector<CGLPoint*>& points) {
  for (CGLPoint* p : points) {
    delete p;
  }
  points.clear();
}

}  // namespace lumagrid::detail
