#include <lumagrid/Mesh.h>
#include <lumagrid/SceneQuery.h>

#include "mesh/extent.h"
#include "mesh/scene_walk.h"

namespace lumagrid {

std::vector<SceneItem> SceneItems(CGLScene& scene) {
  std::vector<SceneItem> items;
  for (const detail::SceneLeaf& leaf : detail::SceneLeaves(scene)) {
    SceneItem item{leaf.shape, mat4x4(), leaf.shown};
    for (int i = 0; i < 16; ++i) {
      static_cast<double*>(item.world)[i] = leaf.world.e[static_cast<std::size_t>(i)];
    }
    items.push_back(item);
  }
  return items;
}

Bounds BoundsOf(CGLObject& shape) {
  Bounds bounds;
  for (const MeshPart& part : MeshOf(shape).parts) {
    for (const std::uint32_t i : part.indices) {
      detail::Include(bounds, part.vertices[i].position);
    }
  }
  return bounds;
}

Bounds BoundsOf(CGLScene& scene) {
  Bounds bounds;
  for (const detail::SceneLeaf& leaf : detail::SceneLeaves(scene)) {
    if (!leaf.shown) {
      continue;
    }
    for (const MeshPart& part : MeshOf(*leaf.shape).parts) {
      for (const std::uint32_t i : part.indices) {
        detail::Include(bounds, detail::TransformedPoint(leaf.world, part.vertices[i].position));
      }
    }
  }
  return bounds;
}

}  // namespace lumagrid
