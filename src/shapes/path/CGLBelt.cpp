#include <lumagrid/CGLBelt.h>

#include "shapes/geometry/emit.h"
#include "shapes/path/belt_outline.h"
#include "shapes/path/quality.h"
#include "shapes/path/vertex_list.h"

CGLBelt::CGLBelt() : CGLBelt(1.0, 1.0, 1.0) {}

CGLBelt::CGLBelt(double r1, double r2, double entraxe)
    : CGLObject(),
      m_bShaded(1),
      m_nQuality(20),
      m_dRadius1(r1),
      m_dRadius2(r2),
      m_dEntraxe(entraxe),
      m_nSection(0),
      m_nBType(lumagrid::detail::kFullBelt) {}

CGLBelt::~CGLBelt() {
  InitVertex();
}

void CGLBelt::SetBType(unsigned char b) {
  m_nBType = lumagrid::detail::BeltTypeCode(b);
}

bool CGLBelt::SetSection(unsigned int s, double, double, double) {
  m_nSection = s;
  return s <= 3;
}

void CGLBelt::SetEntraxe(double e) {
  m_dEntraxe = e;
  m_bModified = true;
}

void CGLBelt::SetQuality(unsigned int q) {
  lumagrid::detail::StoreQuality(m_nQuality, q);
}

int CGLBelt::GetQuality(unsigned int&) {
  return m_nQuality;
}

void CGLBelt::SetShadedMode(int shaded) {
  m_bShaded = shaded;
}

bool CGLBelt::AddVertex(double* p) {
  if (p == nullptr) {
    return true;
  }
  return AddVertex(new CGLPoint(p[0], p[1], p[2]));
}

bool CGLBelt::AddVertex(double x, double y, double z) {
  return AddVertex(new CGLPoint(x, y, z));
}

bool CGLBelt::AddVertex(CGLPoint& p) {
  return AddVertex(new CGLPoint(p));
}

bool CGLBelt::AddVertex(CGLPoint* p) {
  if (p != nullptr) {
    m_aVertex.push_back(p);
  }
  return true;
}

bool CGLBelt::InitVertex() {
  lumagrid::detail::ClearVertexList(m_aVertex);
  return true;
}

void CGLBelt::BuildProfile() {
  // One buffer per thread: rebuilds then allocate nothing once it has grown.
  thread_local std::vector<lumagrid::detail::PathPoint> outline;
  lumagrid::detail::BuildBeltOutline(m_dRadius1, m_dRadius2, m_dEntraxe, m_nQuality, m_nBType,
                                     outline);
  lumagrid::detail::AssignVertexList(m_aVertex, outline);
}

long CGLBelt::DisplayListMake() {
  return DisplayListCompileIf(
      [&] {
        BuildProfile();
        return !m_aVertex.empty();
      },
      [&] { lumagrid::detail::gl::EmitLineStrip(m_aVertex); });
}

long CGLBelt::DrawDirect() {
  if (!m_bVisible) {
    return 1;
  }
  if (DrawStart() != 1) {
    return 1;
  }
  if (m_aVertex.empty()) {
    // Without DrawFinish: the pushed matrix stays. Hosts keep a spare.
    return 0;
  }
  lumagrid::detail::gl::EmitLineStrip(m_aVertex);
  DrawFinish();
  return 0;
}
