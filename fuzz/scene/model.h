#ifndef LUMAGRID_FUZZ_SCENE_MODEL_H
#define LUMAGRID_FUZZ_SCENE_MODEL_H

// What the scene fuzzer believes about every shape it made: who owns it, what
// it holds, whether the scene has it, and in which order the scene visits its
// shapes.

#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/mat4x4.h>

#include <map>
#include <set>
#include <vector>

namespace scenefuzz {

enum Kind : int { kTile, kBare, kSphere, kCylinder, kCone, kArrow, kGroup, kAxis, kKindCount };

enum class Owner { Harness, Scene, Group };

struct Node {
  int kind = kTile;
  Owner owner = Owner::Harness;
  CGLObject* parent = nullptr;     // the group holding it
  CGLGroup* group = nullptr;       // this, when it is a group
  int members = 0;                 // a group's member count, built-in ones included
  std::vector<CGLObject*> kids;    // a group's counted members
  const mat4x4* matrix = nullptr;  // Counted<>::Matrix()
  bool quadric = false;
};

struct SceneModel {
  // A new shape, alive and the harness's.
  void Track(CGLObject* p, const Node& node);
  // p's shape is gone.
  void Bury(CGLObject* p);

  // p and every counted member below it.
  void Closure(CGLObject* p, std::set<CGLObject*>& out) const;
  // Every shape of the scene and every counted member below them.
  std::set<CGLObject*> SceneClosure() const;
  bool InScene(const CGLObject* p) const;
  // The destroyed shapes out of their parents' lists of kids.
  void Forget(const std::set<CGLObject*>& destroyed);
  // The scene's shapes in its visiting order.
  std::vector<CGLObject*> SceneOrder() const;

  std::map<CGLObject*, Node> live;
  std::vector<CGLObject*> order;  // live's keys in order of creation
  std::vector<CGLObject*> dead;
  std::map<CGLObject*, long> sceneSeq;  // the scene's shapes, by order of first addition
  long nextSeq = 0;
  bool nullInScene = false;
  int show = 1;
  long created = 0;
  long destroyed = 0;
  int sharedQuadrics = 0;
};

}  // namespace scenefuzz

#endif
