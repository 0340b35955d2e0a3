#ifndef LUMAGRID_SRC_GLTF_GLTF_MODEL_H
#define LUMAGRID_SRC_GLTF_GLTF_MODEL_H

#include <tiny_gltf.h>

#include <vector>

#include "gltf/export_items.h"

namespace lumagrid::detail {

// The glTF document of the items: one node each, in one scene, over a single buffer.
tinygltf::Model BuildGltfModel(const std::vector<ExportItem>& items);

}  // namespace lumagrid::detail

#endif
