#include <lumagrid/CGLScene.h>

#include <lumagrid/CGLObject.h>
#include <lumagrid/mat4x4.h>

#include "core/CGLShapeMap.h"

#include <cstdint>

namespace {

// The key is the address itself, so that null can be stored too.
std::uint64_t KeyOf(const CGLObject* p) {
  return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(p));
}

// AddGLShape stores null as it stores any pointer; every pass steps over it.
template <class F>
void ForEachShape(const CGLShapeMap& map, F&& f) {
  map.ForEach([&f](CGLObject* p) {
    if (p != nullptr) {
      f(p);
    }
  });
}

// The shape stored under p's key, or null when there is none (or null is stored).
CGLObject* Find(CGLShapeMap& map, const CGLObject* p) {
  CGLObject** slot = map.Lookup(KeyOf(p));
  return slot != nullptr ? *slot : nullptr;
}

}  // namespace

CGLScene::CGLScene() : m_bShowShapes(1), m_mapShapes(new CGLShapeMap) {}

CGLScene::~CGLScene() {
  ResetGLShapes();
  delete m_mapShapes;
}

int CGLScene::AddGLShape(CGLObject* p) {
  m_mapShapes->SetAt(KeyOf(p), p);
  return 1;
}

int CGLScene::DeleteGLShape(CGLObject* p) {
  CGLObject** slot = m_mapShapes->Lookup(KeyOf(p));
  if (slot == nullptr) {
    return 0;
  }
  CGLObject* shape = *slot;
  const int removed = m_mapShapes->RemoveKey(KeyOf(p)) ? 1 : 0;
  delete shape;
  return removed;
}

void CGLScene::ShowGLShape(CGLObject* p, int bShow) {
  if (CGLObject* shape = Find(*m_mapShapes, p)) {
    shape->SetVisible(bShow != 0);
  }
}

void CGLScene::SelectGLShape(CGLObject* p, int bSelect) {
  if (CGLObject* shape = Find(*m_mapShapes, p)) {
    shape->Select(bSelect != 0);
  }
}

void CGLScene::ShowGLShapes(int bShow) {
  m_bShowShapes = bShow;
}

void CGLScene::DrawGLShapes() {
  if (m_bShowShapes == 0) {
    return;
  }
  ForEachShape(*m_mapShapes, [](CGLObject* p) { p->Draw(); });
}

long CGLScene::SetMatrix(double* m) {
  ForEachShape(*m_mapShapes, [m](CGLObject* p) { p->SetMatrix(m); });
  return 1;
}

long CGLScene::SetMatrix(const mat4x4& m) {
  ForEachShape(*m_mapShapes, [&m](CGLObject* p) { p->SetMatrix(m); });
  return 1;
}

void CGLScene::ResetGLShapes() {
  ForEachShape(*m_mapShapes, [](CGLObject* p) { delete p; });
  m_mapShapes->RemoveAll();
}
