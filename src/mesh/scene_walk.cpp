#include "mesh/scene_walk.h"

#include "core/CGLShapeMap.h"
#include "mesh/shape_fields.h"
#include "mesh/shape_kind.h"

namespace lumagrid::detail {

namespace {

class Walk {
 public:
  explicit Walk(SceneLeafVisitor& visitor) : visitor_(visitor) {}

  // The scene's own shapes: their matrices are their world.
  void VisitTop(CGLObject* shape, bool sceneShown) {
    Visit(shape, AffineFrom(ObjectFields::matrix(*shape)), sceneShown);
  }

 private:
  void Visit(CGLObject* shape, const Affine& world, bool parentShown) {
    const bool shown = parentShown && ObjectFields::bVisible(*shape);
    // The scene expands only the library's groups, as MeshOf does.
    if (KindOf(*shape) != ShapeKind::Group) {
      visitor_.Visit(SceneLeaf{shape, world, shown});
      return;
    }
    for (const CGLObject* open : open_) {
      if (open == shape) {
        return;
      }
    }
    open_.push_back(shape);
    for (CGLObject* member : GroupFields::arrObjects(static_cast<const CGLGroup&>(*shape))) {
      if (member != nullptr) {
        Visit(member, Multiplied(world, AffineFrom(ObjectFields::matrix(*member))), shown);
      }
    }
    open_.pop_back();
  }

  SceneLeafVisitor& visitor_;
  std::vector<const CGLObject*> open_;
};

class Keep final : public SceneLeafVisitor {
 public:
  explicit Keep(std::vector<SceneLeaf>& leaves) : leaves_(leaves) {}
  void Visit(const SceneLeaf& leaf) override { leaves_.push_back(leaf); }

 private:
  std::vector<SceneLeaf>& leaves_;
};

}  // namespace

void VisitSceneLeaves(CGLScene& scene, SceneLeafVisitor& visitor) {
  const CGLShapeMap* shapes = SceneFields::mapShapes(scene);
  if (shapes == nullptr) {
    return;
  }
  const bool sceneShown = SceneFields::bShowShapes(scene) != 0;
  Walk walk(visitor);
  shapes->ForEach([&](CGLObject* shape) {
    if (shape != nullptr) {
      walk.VisitTop(shape, sceneShown);
    }
  });
}

std::vector<SceneLeaf> SceneLeaves(CGLScene& scene) {
  std::vector<SceneLeaf> leaves;
  Keep keep(leaves);
  VisitSceneLeaves(scene, keep);
  return leaves;
}

}  // namespace lumagrid::detail
