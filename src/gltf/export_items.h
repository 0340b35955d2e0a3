#ifndef LUMAGRID_SRC_GLTF_EXPORT_ITEMS_H
#define LUMAGRID_SRC_GLTF_EXPORT_ITEMS_H

#include <lumagrid/GltfExport.h>
#include <lumagrid/Mesh.h>

#include <array>
#include <string>
#include <vector>

namespace lumagrid::detail {

// A 4x4 matrix in GL's (and glTF's) column-major order.
using GlMatrix = std::array<double, 16>;

// One node of the file: a shown shape with geometry, as a draw would show it.
struct ExportItem {
  std::string name;
  // The node's matrix; absent when the world matrix had to be applied to the mesh instead.
  bool hasMatrix = true;
  GlMatrix matrix{};
  Mesh mesh;
  std::array<float, 4> colour{};
};

// The scenes' shown shapes with geometry, scene by scene in drawing order. False, with the
// reason, when there is none, when a scene is null, or when a shape's world matrix or colour is
// not finite.
bool CollectExportItems(const std::vector<CGLScene*>& scenes, const GltfOptions& options,
                        std::vector<ExportItem>& items, std::string& error);

}  // namespace lumagrid::detail

#endif
