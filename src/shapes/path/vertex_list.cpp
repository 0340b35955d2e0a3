#include "shapes/path/vertex_list.h"

#include <cstddef>
#include <typeinfo>

namespace lumagrid::detail {

void ClearVertexList(std::vector<CGLPoint*>& points) {
  for (CGLPoint* p : points) {
    delete p;
  }
  points.clear();
}

void AssignVertexList(std::vector<CGLPoint*>& points, const std::vector<PathPoint>& values) {
  // A derived point may count its own deletion: it goes now, as before. A
  // null one (a subclass may push one) is dropped.
  std::size_t kept = 0;
  for (CGLPoint* p : points) {
    if (p != nullptr && typeid(*p) == typeid(CGLPoint)) {
      points[kept++] = p;
    } else {
      delete p;
    }
  }
  for (std::size_t i = kept; i > values.size(); --i) {
    delete points[i - 1];
  }
  points.resize(kept < values.size() ? kept : values.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    // Plain points only here: no override to honour.
    points[i]->CGLPoint::MoveTo(values[i].x, values[i].y, values[i].z);
  }
  for (std::size_t i = points.size(); i < values.size(); ++i) {
    points.push_back(new CGLPoint(values[i].x, values[i].y, values[i].z));
  }
}

}  // namespace lumagrid::detail
