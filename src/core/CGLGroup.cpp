#include <lumagrid/CGLGroup.h>

#include <cstddef>

CGLGroup::CGLGroup() : CGLObject(), m_arrObjects() {}

CGLGroup::~CGLGroup() {
  for (CGLObject* p : m_arrObjects)
    delete p;
  m_arrObjects.clear();
}

int CGLGroup::Add(CGLObject* p) {
  const auto index = static_cast<int>(m_arrObjects.size());
  m_arrObjects.push_back(p);
  return index;
}

// The member visits read the count once and index with at(): a member that
// shrinks the group while it is visited gets an exception, not a stray read.

void CGLGroup::Select(bool b) {
  const std::size_t n = m_arrObjects.size();
  for (std::size_t i = 0; i < n; ++i)
    m_arrObjects.at(i)->Select(b);
}

long CGLGroup::ColorSet(const CGLColor& col) {
  const std::size_t n = m_arrObjects.size();
  for (std::size_t i = 0; i < n; ++i)
    m_arrObjects.at(i)->ColorSet(col);
  return CGLObject::ColorSet(col);
}

long CGLGroup::ColorSet(double v) {
  const std::size_t n = m_arrObjects.size();
  for (std::size_t i = 0; i < n; ++i)
    m_arrObjects.at(i)->ColorSet(v);
  return CGLObject::ColorSet(v);
}

long CGLGroup::ColorSet(unsigned long rgb) {
  const std::size_t n = m_arrObjects.size();
  for (std::size_t i = 0; i < n; ++i)
    m_arrObjects.at(i)->ColorSet(rgb);
  // Reaches the members a second time through ColorSet(const CGLColor&).
  return CGLObject::ColorSet(rgb);
}

long CGLGroup::ColorSet(double r, double g, double b, double a) {
  const std::size_t n = m_arrObjects.size();
  for (std::size_t i = 0; i < n; ++i)
    m_arrObjects.at(i)->ColorSet(r, g, b, a);
  // Reaches the members a second time through ColorSet(const CGLColor&).
  return CGLObject::ColorSet(r, g, b, a);
}

long CGLGroup::DisplayListMake() {
  const std::size_t n = m_arrObjects.size();
  for (std::size_t i = 0; i < n; ++i)
    m_arrObjects.at(i)->Draw();
  // Pops here and again in Draw: a group pops once more than it pushes, and
  // hosts keep a spare matrix for it. No list is built, so the group stays
  // modified and comes back here at every Draw.
  DrawFinish();
  return 1;
}

long CGLGroup::DrawDirect() {
  const std::size_t n = m_arrObjects.size();
  for (std::size_t i = 0; i < n; ++i)
    m_arrObjects.at(i)->DrawDirect();
  return 1;
}
