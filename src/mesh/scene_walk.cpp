#include "mesh/scene_walk.h"

#include <lumagrid/CGLAxis.h>

#include <typeinfo>

#include "core/CGLShapeMap.h"
#include "mesh/shape_fields.h"

namespace lumagrid::detail {

namespace {

class Walk {
 public:
  explicit Walk(std::vector<SceneLeaf>& leaves) : leaves_(leaves) {}

  void Visit(CGLObject* shape, const Affine& parent, bool parentShown) {
    const Affine world = Multiplied(parent, AffineFrom(ObjectFields::matrix(*shape)));
    const bool shown = parentShown && ObjectFields::bVisible(*shape);
    // The scene expands only the library's groups, as MeshOf does.
    const std::type_info& type = typeid(*shape);
    if (type != typeid(CGLGroup) && type != typeid(CGLAxis)) {
      leaves_.push_back(SceneLeaf{shape, world, shown});
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
        Visit(member, world, shown);
      }
    }
    open_.pop_back();
  }

 private:
  std::vector<SceneLeaf>& leaves_;
  std::vector<const CGLObject*> open_;
};

}  // namespace

std::vector<SceneLeaf> SceneLeaves(CGLScene& scene) {
  std::vector<SceneLeaf> leaves;
  const CGLShapeMap* shapes = SceneFields::mapShapes(scene);
  if (shapes == nullptr) {
    return leaves;
  }
  const bool sceneShown = SceneFields::bShowShapes(scene) != 0;
  Walk walk(leaves);
  shapes->ForEach([&](CGLObject* shape) {
    if (shape != nullptr) {
      walk.Visit(shape, IdentityAffine(), sceneShown);
    }
  });
  return leaves;
}

}  // namespace lumagrid::detail
