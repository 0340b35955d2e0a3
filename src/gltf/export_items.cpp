#include "gltf/export_items.h"

#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/SceneQuery.h>
#include <lumagrid/ShapeDescription.h>

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "gltf/node_matrix.h"

namespace lumagrid::detail {
namespace {

bool HasPrimitives(const Mesh& mesh) {
  return std::any_of(mesh.parts.begin(), mesh.parts.end(),
                     [](const MeshPart& part) { return !part.indices.empty(); });
}

// Readers, like GL, take a node's matrix in single precision.
bool FitsInFloats(const GlMatrix& m) {
  return std::all_of(m.begin(), m.end(), [](double v) { return std::fabs(v) <= FLT_MAX; });
}

// The colour GL would be given, as the floats glMaterialfv takes; glTF wants [0, 1].
bool ColourOf(CGLObject& shape, const GltfOptions& options, std::array<float, 4>& colour) {
  const CGLColor& c =
      options.highlightSelected && shape.IsSelected() != 0 ? shape.HLColorGet() : shape.ColorGet();
  const double channels[] = {c.Red(), c.Green(), c.Blue(), c.Alpha()};
  for (std::size_t i = 0; i < 4; ++i) {
    if (!std::isfinite(channels[i])) {
      return false;
    }
    colour[i] = static_cast<float>(std::clamp(channels[i], 0.0, 1.0));
  }
  return true;
}

// Appends the scene's items; false, with the reason, when a value is not finite.
bool CollectSceneItems(CGLScene& scene, const GltfOptions& options, std::vector<ExportItem>& items,
                       std::string& error) {
  for (const SceneItem& shown : SceneItems(scene)) {
    if (!shown.shown) {
      continue;
    }
    ExportItem item;
    item.mesh = MeshOf(*shown.shape);
    if (!HasPrimitives(item.mesh)) {
      continue;
    }
    item.name = DescribeShape(*shown.shape);
    std::copy_n(static_cast<const double*>(shown.world), 16, item.matrix.begin());
    if (!FitsInFloats(item.matrix)) {
      error = "the world matrix of \"" + item.name + "\" is not finite in single precision";
      return false;
    }
    if (!ColourOf(*shown.shape, options, item.colour)) {
      error = "the colour of \"" + item.name + "\" is not finite";
      return false;
    }
    if (!IsRotationScaleTranslation(item.matrix)) {
      ApplyToMesh(item.matrix, item.mesh);
      item.hasMatrix = false;
    }
    items.push_back(std::move(item));
  }
  return true;
}

}  // namespace

bool CollectExportItems(const std::vector<CGLScene*>& scenes, const GltfOptions& options,
                        std::vector<ExportItem>& items, std::string& error) {
  for (std::size_t i = 0; i < scenes.size(); ++i) {
    if (scenes[i] == nullptr) {
      error = "scene " + std::to_string(i) + " of the list is null";
      return false;
    }
    if (!CollectSceneItems(*scenes[i], options, items, error)) {
      return false;
    }
  }
  if (items.empty()) {
    error = "the scene shows no shape with geometry";
    return false;
  }
  return true;
}

}  // namespace lumagrid::detail
