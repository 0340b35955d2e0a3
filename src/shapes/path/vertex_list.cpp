#include "shapes/path/vertex_list.h"

#include <GL/gl.h>

namespace lumagrid::detail {

void ClearVertexList(std::vector<CGLPoint*>& points) {
  for (CGLPoint* p : points) {
    delete p;
  }
  points.clear();
}

void EmitLineStrip(const std::vector<CGLPoint*>& points) {
  glBegin(GL_LINE_STRIP);
  {
    for (const CGLPoint* p : points) {
      glVertex3d(p->X(), p->Y(), p->Z());
    }
  }
  glEnd();
}

}  // namespace lumagrid::detail
