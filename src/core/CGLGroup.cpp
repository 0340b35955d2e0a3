#include <lumagrid/CGLGroup.h>

#include <cstddef>
#include <unordered_set>
#include <vector>

namespace {

// Visits the members from index 0, reading the count once and indexing with
// at(): a member that shrinks the group while it is visited gets an
// exception, not a stray read. Add() stores null as it stores any pointer;
// every pass steps over it.
template <class F>
void ForEachMember(const std::vector<CGLObject*>& members, F&& f) {
  const std::size_t n = members.size();
  for (std::size_t i = 0; i < n; ++i) {
    if (CGLObject* p = members.at(i)) {
      f(p);
    }
  }
}

}  // namespace

CGLGroup::CGLGroup() : CGLObject(), m_arrObjects() {}

CGLGroup::~CGLGroup() {
  // A pointer added twice is drawn twice but deleted once, at its first place.
  std::unordered_set<const CGLObject*> deleted;
  deleted.reserve(m_arrObjects.size());
  for (CGLObject* p : m_arrObjects) {
    if (p != nullptr && deleted.insert(p).second) {
      delete p;
    }
  }
  m_arrObjects.clear();
}

int CGLGroup::Add(CGLObject* p) {
  const auto index = static_cast<int>(m_arrObjects.size());
  m_arrObjects.push_back(p);
  return index;
}

void CGLGroup::Select(bool b) {
  ForEachMember(m_arrObjects, [&](CGLObject* p) { p->Select(b); });
}

long CGLGroup::ColorSet(const CGLColor& col) {
  ForEachMember(m_arrObjects, [&](CGLObject* p) { p->ColorSet(col); });
  return CGLObject::ColorSet(col);
}

long CGLGroup::ColorSet(double v) {
  ForEachMember(m_arrObjects, [&](CGLObject* p) { p->ColorSet(v); });
  return CGLObject::ColorSet(v);
}

long CGLGroup::ColorSet(unsigned long rgb) {
  ForEachMember(m_arrObjects, [&](CGLObject* p) { p->ColorSet(rgb); });
  // Reaches the members a second time through ColorSet(const CGLColor&).
  return CGLObject::ColorSet(rgb);
}

long CGLGroup::ColorSet(double r, double g, double b, double a) {
  ForEachMember(m_arrObjects, [&](CGLObject* p) { p->ColorSet(r, g, b, a); });
  // Reaches the members a second time through ColorSet(const CGLColor&).
  return CGLObject::ColorSet(r, g, b, a);
}

long CGLGroup::DisplayListMake() {
  ForEachMember(m_arrObjects, [&](CGLObject* p) { p->Draw(); });
  // Pops here and again in Draw: a group pops once more than it pushes, and
  // hosts keep a spare matrix for it. No list is built, so the group stays
  // modified and comes back here at every Draw.
  DrawFinish();
  return 1;
}

long CGLGroup::DrawDirect() {
  ForEachMember(m_arrObjects, [&](CGLObject* p) { p->DrawDirect(); });
  return 1;
}
