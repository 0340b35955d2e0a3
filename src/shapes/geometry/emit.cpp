#include "shapes/geometry/emit.h"

#include <GL/gl.h>

namespace lumagrid::detail::gl {

namespace {

void Vertex(const PathPoint& p) {
  glVertex3d(p.x, p.y, p.z);
}

void Vertex(const CGLPoint* p) {
  glVertex3d(p->X(), p->Y(), p->Z());
}

void Vertex(const std::array<float, 3>& v) {
  glVertex3f(v[0], v[1], v[2]);
}

void VertexInFloats(const PathPoint& p) {
  glVertex3f(static_cast<GLfloat>(p.x), static_cast<GLfloat>(p.y), static_cast<GLfloat>(p.z));
}

void Normal(const PathPoint& n) {
  glNormal3f(static_cast<GLfloat>(n.x), static_cast<GLfloat>(n.y), static_cast<GLfloat>(n.z));
}

void Normal(const std::array<float, 3>& n) {
  glNormal3f(n[0], n[1], n[2]);
}

template <class Points>
void LineStrip(const Points& points) {
  glBegin(GL_LINE_STRIP);
  {
    for (const auto& p : points) {
      Vertex(p);
    }
  }
  glEnd();
}

}  // namespace

void EmitLineStrip(const std::vector<PathPoint>& points) {
  LineStrip(points);
}

void EmitLineStrip(const std::vector<CGLPoint*>& points) {
  LineStrip(points);
}

void EmitLineInFloats(const PathPoint& from, const PathPoint& to) {
  glBegin(GL_LINES);
  {
    VertexInFloats(from);
    VertexInFloats(to);
  }
  glEnd();
}

void EmitWireSweep(const WireSweep& sweep) {
  if (!sweep.lines.empty()) {
    glBegin(GL_LINES);
    {
      for (const WireVertex& v : sweep.lines) {
        Normal(v.normal);
        Vertex(v.position);
      }
    }
    glEnd();
  }
  for (const WireCap& cap : sweep.caps) {
    glBegin(GL_POLYGON);
    {
      Normal(cap.normal);
      for (const PathPoint& p : cap.outline) {
        Vertex(p);
      }
    }
    glEnd();
  }
}

void EmitMatrixSteps(const std::vector<MatrixStep>& steps) {
  for (const MatrixStep& step : steps) {
    if (step.kind == MatrixStep::Rotate) {
      glRotated(step.degrees, step.x, step.y, step.z);
    } else {
      glTranslated(step.x, step.y, step.z);
    }
  }
}

void EmitBoxFaces(const std::array<BoxFace, 6>& faces) {
  glBegin(GL_QUADS);
  {
    for (const BoxFace& face : faces) {
      Normal(face.normal);
      for (const std::array<float, 3>& v : face.vertices) {
        Vertex(v);
      }
    }
  }
  glEnd();
}

}  // namespace lumagrid::detail::gl
