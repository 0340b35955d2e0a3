#include <lumagrid/CGLPolyline.h>

#include <GL/gl.h>

#include "shapes/geometry/emit.h"
#include "shapes/path/vertex_list.h"

CGLPolyline::CGLPolyline() : CGLObject() {}

CGLPolyline::~CGLPolyline() {
  InitVertex();
}

bool CGLPolyline::AddVertex(CGLPoint* p) {
  if (p != nullptr) {
    m_aVertex.push_back(p);
  }
  m_bModified = true;
  return true;
}

bool CGLPolyline::AddVertex(CGLPoint& p) {
  return AddVertex(new CGLPoint(p));
}

bool CGLPolyline::AddVertex(double x, double y, double z) {
  return AddVertex(new CGLPoint(x, y, z));
}

bool CGLPolyline::AddVertex(int n, double* p) {
  if (n < 1 || p == nullptr) {
    return true;
  }
  for (int i = 0; i < n; ++i) {
    if (!AddVertex(p[3 * i], p[3 * i + 1], p[3 * i + 2])) {
      return false;
    }
  }
  return true;
}

bool CGLPolyline::InitVertex() {
  lumagrid::detail::ClearVertexList(m_aVertex);
  m_bModified = true;
  return true;
}

void CGLPolyline::EmitStrip() {
  // The normal colour, also while selected: it overrides the base's material.
  const CGLColor color = ColorGet();
  glColor3d(color.Red(), color.Green(), color.Blue());
  lumagrid::detail::gl::EmitLineStrip(m_aVertex);
}

long CGLPolyline::DisplayListMake() {
  return DisplayListCompileIf([&] { return !m_aVertex.empty(); }, [&] { EmitStrip(); });
}

long CGLPolyline::DrawDirect() {
  // Tests the rebuild mark, not visibility: one direct draw per change.
  if (!m_bModified) {
    return 1;
  }
  if (m_aVertex.empty()) {
    return 0;
  }
  EmitStrip();
  m_bModified = false;
  return 0;
}
