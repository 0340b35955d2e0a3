#ifndef LUMAGRID_FUZZ_SCENE_CHECKS_H
#define LUMAGRID_FUZZ_SCENE_CHECKS_H

// The scene fuzzer's checks against its model: who dies when, what the scene
// draws, what flags a request may change, and what is left at the end.

#include <lumagrid/CGLObject.h>

#include "fuzz_input.h"
#include "scene/model.h"

#include <map>
#include <set>
#include <vector>

namespace scenefuzz {

class ShapeWatch {
 public:
  explicit ShapeWatch(SceneModel& model) : m_model(model) {}

  // The watch Counted<> shapes report to while it lives.
  void Start();
  void Stop();

  void OnDestroyed(CGLObject* p);
  void OnDrawStarts(CGLObject* p);
  void OnDrawEnds() { --m_nDrawDepth; }

  // Runs f, which must destroy exactly the shapes in expected; they leave
  // the scene.
  template <class F>
  void ExpectDeaths(const std::set<CGLObject*>& expected, F&& f) {
    m_expected = expected;
    m_died.clear();
    f();
    FUZZ_CHECK(m_died == expected);
    for (CGLObject* p : expected) {
      m_model.sceneSeq.erase(p);
    }
    m_expected.clear();
    m_died.clear();
  }

  // Nothing died outside ExpectDeaths.
  bool NoStrayDeaths() const { return m_died.empty(); }

  // The shapes whose own Draw f started, outermost draws only.
  template <class F>
  std::vector<CGLObject*> DrawnBy(F&& f) {
    m_drawn.clear();
    f();
    std::vector<CGLObject*> drawn;
    drawn.swap(m_drawn);
    return drawn;
  }

 private:
  SceneModel& m_model;
  std::set<CGLObject*> m_expected;
  std::set<CGLObject*> m_died;
  std::vector<CGLObject*> m_drawn;
  int m_nDrawDepth = 0;
};

// Visibility and selection of a live shape and of its counted members, as a
// request found them.
class FlagSnapshot {
 public:
  FlagSnapshot(const SceneModel& model, CGLObject* p);

  // After ShowGLShape(p, show): only p changed, and only if it is in the scene.
  void CheckShown(CGLObject* p, bool present, int show) const;
  // After SelectGLShape(p, select): p and its members changed if p is in the
  // scene, except groups.
  void CheckSelected(const SceneModel& model, bool present, int select) const;

 private:
  struct Flagged {
    long visible;
    long selected;
  };
  std::map<CGLObject*, Flagged> m_before;
};

// At the end: every shape destroyed once, every quadric released, every list
// deleted; copies release their shared handle once more each.
void CheckAllReleased(const SceneModel& model);

}  // namespace scenefuzz

#endif
