#include "scene/export.h"

#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLPolyline.h>
#include <lumagrid/CGLSphere.h>
#include <lumagrid/CGLTorus.h>
#include <lumagrid/SceneQuery.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "gltf/export_items.h"
#include "gltf/gltf_model.h"
#include "scene/checks.h"

namespace scenefuzz {
namespace {

const unsigned char* AccessorData(const tinygltf::Model& model, const tinygltf::Accessor& a) {
  const tinygltf::BufferView& view = model.bufferViews[static_cast<std::size_t>(a.bufferView)];
  return model.buffers[0].data.data() + view.byteOffset + a.byteOffset;
}

// A float VEC3 accessor: finite values within its min and max.
void CheckVectors(const tinygltf::Model& model, int index) {
  FUZZ_CHECK(index >= 0 && static_cast<std::size_t>(index) < model.accessors.size());
  const tinygltf::Accessor& a = model.accessors[static_cast<std::size_t>(index)];
  FUZZ_CHECK(a.componentType == TINYGLTF_COMPONENT_TYPE_FLOAT && a.type == TINYGLTF_TYPE_VEC3);
  const tinygltf::BufferView& view = model.bufferViews[static_cast<std::size_t>(a.bufferView)];
  FUZZ_CHECK(view.byteOffset + view.byteLength <= model.buffers[0].data.size());
  FUZZ_CHECK(view.byteLength == a.count * 3 * sizeof(float));
  const unsigned char* p = AccessorData(model, a);
  for (std::size_t i = 0; i < 3 * a.count; ++i) {
    float v;
    std::memcpy(&v, p + 4 * i, 4);
    FUZZ_CHECK(std::isfinite(v));
    FUZZ_CHECK(v >= a.minValues[i % 3] && v <= a.maxValues[i % 3]);
  }
}

// Indices of the primitive's kind, each below the vertex count and never the type's largest.
void CheckIndices(const tinygltf::Model& model, const tinygltf::Primitive& primitive) {
  const tinygltf::Accessor& a = model.accessors[static_cast<std::size_t>(primitive.indices)];
  const std::size_t vertices =
      model.accessors[static_cast<std::size_t>(primitive.attributes.at("POSITION"))].count;
  const std::size_t corners = primitive.mode == TINYGLTF_MODE_LINE ? 2 : 3;
  FUZZ_CHECK(a.count > 0 && a.count % corners == 0);
  const std::size_t size =
      tinygltf::GetComponentSizeInBytes(static_cast<std::uint32_t>(a.componentType));
  const unsigned char* p = AccessorData(model, a);
  for (std::size_t i = 0; i < a.count; ++i) {
    std::uint32_t index = 0;
    std::memcpy(&index, p + size * i, size);  // little-endian
    FUZZ_CHECK(index < vertices);
    FUZZ_CHECK(index != (size == 4 ? 0xFFFFFFFFu : (1u << (8 * size)) - 1u));
  }
}

CGLObject* MakeShape(FuzzInput& in) {
  switch (in.Byte() % 6) {
    case 0:
      return new CGLSphere(in.Number());
    case 1:
      return new CGLCylinder(in.Number(), in.Number(), in.Bool());
    case 2:
      return new CGLCone(in.Number(), in.Number(), in.Number(), in.Bool());
    case 3: {
      auto* line = new CGLPolyline;
      for (int k = in.Byte() % 5; k > 0; --k) {
        line->AddVertex(in.Number(), in.Number(), in.Number());
      }
      return line;
    }
    case 4:
      return new CGLTorus(in.Number(), in.Number(), in.Number(), in.Number());
    default: {
      // Stretched around a turned member: the member's world matrix shears.
      auto* group = new CGLGroup;
      auto* member = new CGLSphere(in.Number());
      member->RotateZ(in.Number());
      group->Add(member);
      return group;
    }
  }
}

}  // namespace

void AddLibraryShapes(FuzzInput& in, CGLScene& scene) {
  for (int count = in.Byte() % 5; count > 0; --count) {
    in.SetTame(in.Bool());
    CGLObject* shape = MakeShape(in);
    shape->Scale(in.Number(), in.Number(), in.Number());
    shape->RotateZ(in.Number());
    shape->Move(in.Number(), in.Number(), in.Number());
    shape->ColorSet(in.Number(), in.Number(), in.Number(), in.Number());
    shape->SetVisible(in.Byte() % 4 != 0);
    shape->Select(in.Bool());
    scene.AddGLShape(shape);
    in.SetTame(true);
  }
}

void CheckExport(CGLScene& scene, const lumagrid::GltfOptions& options) {
  std::vector<lumagrid::detail::ExportItem> items;
  std::string error;
  const bool ok = lumagrid::detail::CollectExportItems({&scene}, options, items, error);
  FUZZ_CHECK(ok == error.empty());
  if (!ok) {
    return;
  }
  std::size_t shown = 0;
  for (const lumagrid::SceneItem& item : lumagrid::SceneItems(scene)) {
    shown += item.shown ? 1 : 0;
  }
  FUZZ_CHECK(items.size() <= shown);
  const tinygltf::Model model = lumagrid::detail::BuildGltfModel(items);
  FUZZ_CHECK(model.nodes.size() <= items.size());
  for (const tinygltf::Material& material : model.materials) {
    for (const double c : material.pbrMetallicRoughness.baseColorFactor) {
      FUZZ_CHECK(c >= 0.0 && c <= 1.0);
    }
  }
  for (const tinygltf::Node& node : model.nodes) {
    for (const double e : node.matrix) {
      FUZZ_CHECK(std::isfinite(e));
    }
    const tinygltf::Mesh& mesh = model.meshes[static_cast<std::size_t>(node.mesh)];
    for (const tinygltf::Primitive& primitive : mesh.primitives) {
      CheckVectors(model, primitive.attributes.at("POSITION"));
      if (primitive.mode == TINYGLTF_MODE_TRIANGLES) {
        CheckVectors(model, primitive.attributes.at("NORMAL"));
      }
      CheckIndices(model, primitive);
    }
  }
}

}  // namespace scenefuzz
