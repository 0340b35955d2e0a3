#include "scene/checks.h"

#include <lumagrid/testing/GLRecorder.h>

namespace scenefuzz {

namespace {

ShapeWatch* g_watch = nullptr;

}  // namespace

void ShapeDestroyed(CGLObject* p) {
  g_watch->OnDestroyed(p);
}

void ShapeDrawStarts(CGLObject* p) {
  g_watch->OnDrawStarts(p);
}

void ShapeDrawEnds() {
  g_watch->OnDrawEnds();
}

void ShapeWatch::Start() {
  g_watch = this;
}

void ShapeWatch::Stop() {
  g_watch = nullptr;
}

void ShapeWatch::OnDestroyed(CGLObject* p) {
  // Destroyed twice, or something the model never made.
  FUZZ_CHECK(m_model.live.count(p) == 1);
  FUZZ_CHECK(m_expected.count(p) == 1);
  m_model.Bury(p);
  m_died.insert(p);
}

void ShapeWatch::OnDrawStarts(CGLObject* p) {
  if (m_nDrawDepth++ == 0) {
    m_drawn.push_back(p);
  }
}

FlagSnapshot::FlagSnapshot(const SceneModel& model, CGLObject* p) {
  if (p == nullptr || model.live.count(p) == 0) {
    return;
  }
  std::set<CGLObject*> all;
  model.Closure(p, all);
  for (CGLObject* q : all) {
    m_before[q] = Flagged{q->IsVisible(), q->IsSelected()};
  }
}

void FlagSnapshot::CheckShown(CGLObject* p, bool present, int show) const {
  for (const auto& entry : m_before) {
    const long visible = entry.first->IsVisible();
    if (present && entry.first == p) {
      FUZZ_CHECK(visible == (show != 0 ? 1 : 0));
    } else {
      FUZZ_CHECK(visible == entry.second.visible);
    }
  }
}

void FlagSnapshot::CheckSelected(const SceneModel& model, bool present, int select) const {
  for (const auto& entry : m_before) {
    const long selected = entry.first->IsSelected();
    // A group passes the request on to its members and stays as it was.
    if (present && model.live.at(entry.first).group == nullptr) {
      FUZZ_CHECK(selected == (select != 0 ? 1 : 0));
    } else {
      FUZZ_CHECK(selected == entry.second.selected);
    }
  }
}

void CheckAllReleased(const SceneModel& model) {
  FUZZ_CHECK(model.live.empty());
  FUZZ_CHECK(model.created == model.destroyed);
  const glrecorder::Recorder& rec = glrecorder::recorder();
  FUZZ_CHECK(rec.liveQuadrics() == 0);
  FUZZ_CHECK(rec.doubleDeletes() == model.sharedQuadrics);
  FUZZ_CHECK(rec.listNames().empty());
  FUZZ_CHECK(rec.compilingList() == 0);
}

}  // namespace scenefuzz
