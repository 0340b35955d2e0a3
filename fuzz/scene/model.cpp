#include "scene/model.h"

#include "oracle/SceneOrder.h"

#include <algorithm>
#include <utility>

namespace scenefuzz {

void SceneModel::Track(CGLObject* p, const Node& node) {
  // An address can come back once its shape is gone.
  dead.erase(std::remove(dead.begin(), dead.end(), p), dead.end());
  live[p] = node;
  order.push_back(p);
  ++created;
}

void SceneModel::Bury(CGLObject* p) {
  live.erase(p);
  order.erase(std::find(order.begin(), order.end(), p));
  dead.push_back(p);
  ++destroyed;
}

void SceneModel::Closure(CGLObject* p, std::set<CGLObject*>& out) const {
  out.insert(p);
  for (CGLObject* kid : live.at(p).kids) {
    Closure(kid, out);
  }
}

std::set<CGLObject*> SceneModel::SceneClosure() const {
  std::set<CGLObject*> all;
  for (const auto& entry : sceneSeq) {
    Closure(entry.first, all);
  }
  return all;
}

bool SceneModel::InScene(const CGLObject* p) const {
  return sceneSeq.count(const_cast<CGLObject*>(p)) != 0;
}

void SceneModel::Forget(const std::set<CGLObject*>& destroyed) {
  // A deleted group's kids go with it.
  for (CGLObject* p : destroyed) {
    for (auto& entry : live) {
      auto& kids = entry.second.kids;
      kids.erase(std::remove(kids.begin(), kids.end(), p), kids.end());
    }
  }
}

std::vector<CGLObject*> SceneModel::SceneOrder() const {
  std::vector<std::pair<long, CGLObject*>> bySeq;
  for (const auto& entry : sceneSeq) {
    bySeq.emplace_back(entry.second, entry.first);
  }
  std::sort(bySeq.begin(), bySeq.end());
  std::vector<CGLObject*> added;
  for (const auto& entry : bySeq) {
    added.push_back(entry.second);
  }
  return SceneVisitingOrder(added);
}

}  // namespace scenefuzz
