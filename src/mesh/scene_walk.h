#ifndef LUMAGRID_SRC_MESH_SCENE_WALK_H
#define LUMAGRID_SRC_MESH_SCENE_WALK_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>

#include <vector>

#include "mesh/affine.h"

namespace lumagrid::detail {

// A leaf of a scene: the shape, its world matrix, and whether a draw of the scene shows it
// (the scene, every enclosing group and the shape itself visible).
struct SceneLeaf {
  CGLObject* shape;
  Affine world;
  bool shown;
};

// Calls `visit` for each leaf of the scene in drawing order, groups expanded recursively; a
// group met again inside itself is not entered a second time. The leaf lives for the call.
class SceneLeafVisitor {
 public:
  virtual void Visit(const SceneLeaf& leaf) = 0;

 protected:
  ~SceneLeafVisitor() = default;
};
void VisitSceneLeaves(CGLScene& scene, SceneLeafVisitor& visitor);

// The leaves, kept.
std::vector<SceneLeaf> SceneLeaves(CGLScene& scene);

}  // namespace lumagrid::detail

#endif
