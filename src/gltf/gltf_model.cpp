#include "gltf/gltf_model.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace lumagrid::detail {
namespace {

constexpr int kArrayBuffer = 34962;
constexpr int kElementArrayBuffer = 34963;
constexpr const char* kUnlit = "KHR_materials_unlit";

// A mesh part as the file holds it: float vertices that some primitive uses, every primitive's
// vertices finite, indices into those.
struct FloatPart {
  Primitive primitive = Primitive::Triangles;
  std::vector<float> positions;
  std::vector<float> normals;  // empty for lines
  std::vector<std::uint32_t> indices;
};

// Finite once written as floats: a coordinate beyond a float's range would become infinite.
bool FiniteAsFloats(const vec3d& v) {
  return std::fabs(v.x()) <= FLT_MAX && std::fabs(v.y()) <= FLT_MAX && std::fabs(v.z()) <= FLT_MAX;
}

void Append(std::vector<float>& out, const vec3d& v) {
  out.insert(out.end(),
             {static_cast<float>(v.x()), static_cast<float>(v.y()), static_cast<float>(v.z())});
}

// A normal of unit length in single precision, as readers check it.
void AppendUnit(std::vector<float>& out, const vec3d& n) {
  const double length = std::sqrt(n.x() * n.x() + n.y() * n.y() + n.z() * n.z());
  Append(out, length > 0.0 ? vec3d(n.x() / length, n.y() / length, n.z() / length)
                           : vec3d(0.0, 0.0, 1.0));
}

// Leaves out primitives with a vertex that is not finite as a float (a matrix applied to the
// mesh can make one) and the vertices no primitive uses.
FloatPart Compacted(const MeshPart& part) {
  FloatPart out;
  out.primitive = part.primitive;
  const bool lines = part.primitive == Primitive::Lines;
  const std::size_t corners = lines ? 2 : 3;
  constexpr auto kUnused = std::numeric_limits<std::uint32_t>::max();
  std::vector<std::uint32_t> renumbered(part.vertices.size(), kUnused);
  for (std::size_t first = 0; first + corners <= part.indices.size(); first += corners) {
    const auto begin = part.indices.begin() + static_cast<std::ptrdiff_t>(first);
    const bool finite =
        std::all_of(begin, begin + static_cast<std::ptrdiff_t>(corners),
                    [&](std::uint32_t i) { return FiniteAsFloats(part.vertices[i].position); });
    if (!finite) {
      continue;
    }
    for (std::size_t k = 0; k < corners; ++k) {
      const std::uint32_t i = part.indices[first + k];
      if (renumbered[i] == kUnused) {
        renumbered[i] = static_cast<std::uint32_t>(out.positions.size() / 3);
        Append(out.positions, part.vertices[i].position);
        if (!lines) {
          AppendUnit(out.normals, part.vertices[i].normal);
        }
      }
      out.indices.push_back(renumbered[i]);
    }
  }
  return out;
}

template <class T>
void AppendBytes(std::string& key, const std::vector<T>& values) {
  const std::size_t size = values.size();
  key.append(reinterpret_cast<const char*>(&size), sizeof size);
  key.append(reinterpret_cast<const char*>(values.data()), values.size() * sizeof(T));
}

// Equal geometry gives equal keys: the parts' exact floats and indices.
std::string GeometryKey(const std::vector<FloatPart>& parts) {
  std::string key;
  for (const FloatPart& part : parts) {
    key.push_back(part.primitive == Primitive::Lines ? 'L' : 'T');
    AppendBytes(key, part.positions);
    AppendBytes(key, part.normals);
    AppendBytes(key, part.indices);
  }
  return key;
}

struct PartAccessors {
  Primitive primitive;
  int position;
  int normal;  // -1 for lines
  int indices;
};

class ModelBuilder {
 public:
  ModelBuilder() {
    model_.asset.version = "2.0";
    model_.asset.generator = "Lumagrid " LUMAGRID_GLTF_VERSION;
    model_.buffers.emplace_back();
    model_.scenes.emplace_back();
    model_.defaultScene = 0;
  }

  void AddNode(const ExportItem& item) {
    std::vector<FloatPart> parts;
    for (const MeshPart& part : item.mesh.parts) {
      FloatPart compact = Compacted(part);
      if (!compact.indices.empty()) {
        parts.push_back(std::move(compact));
      }
    }
    if (parts.empty()) {
      return;
    }
    const int geometry = GeometryOf(parts);
    std::vector<int> materials;
    for (const FloatPart& part : parts) {
      materials.push_back(MaterialOf(item.colour, part.primitive == Primitive::Lines));
    }
    tinygltf::Node node;
    node.name = item.name;
    node.mesh = MeshOf(geometry, materials);
    if (item.hasMatrix && !IsIdentity(item.matrix)) {
      node.matrix.assign(item.matrix.begin(), item.matrix.end());
    }
    model_.scenes[0].nodes.push_back(static_cast<int>(model_.nodes.size()));
    model_.nodes.push_back(std::move(node));
  }

  tinygltf::Model Take() { return std::move(model_); }

 private:
  static bool IsIdentity(const GlMatrix& m) {
    for (std::size_t i = 0; i < 16; ++i) {
      if (m[i] != (i % 5 == 0 ? 1.0 : 0.0)) {
        return false;
      }
    }
    return true;
  }

  int GeometryOf(const std::vector<FloatPart>& parts) {
    const auto found = geometries_.emplace(GeometryKey(parts), static_cast<int>(accessors_.size()));
    if (found.second) {
      std::vector<PartAccessors> added;
      for (const FloatPart& part : parts) {
        const bool lines = part.primitive == Primitive::Lines;
        added.push_back({part.primitive, VectorAccessor(part.positions),
                         lines ? -1 : VectorAccessor(part.normals), IndexAccessor(part.indices)});
      }
      accessors_.push_back(std::move(added));
    }
    return found.first->second;
  }

  int MaterialOf(const std::array<float, 4>& colour, bool unlit) {
    const auto key = std::make_tuple(colour, unlit);
    const auto found = materials_.emplace(key, static_cast<int>(model_.materials.size()));
    if (!found.second) {
      return found.first->second;
    }
    tinygltf::Material material;
    material.pbrMetallicRoughness.baseColorFactor.assign(colour.begin(), colour.end());
    // The fixed-function material has no specular part: a rough dielectric comes closest.
    material.pbrMetallicRoughness.metallicFactor = 0.0;
    material.pbrMetallicRoughness.roughnessFactor = 1.0;
    if (colour[3] < 1.0f) {
      material.alphaMode = "BLEND";
    }
    if (unlit) {
      material.extensions[kUnlit] = tinygltf::Value(tinygltf::Value::Object());
      if (model_.extensionsUsed.empty()) {
        model_.extensionsUsed.emplace_back(kUnlit);
      }
    }
    model_.materials.push_back(std::move(material));
    return found.first->second;
  }

  int MeshOf(int geometry, const std::vector<int>& materials) {
    const auto found = meshes_.emplace(std::make_pair(geometry, materials),
                                       static_cast<int>(model_.meshes.size()));
    if (!found.second) {
      return found.first->second;
    }
    tinygltf::Mesh mesh;
    const std::vector<PartAccessors>& parts = accessors_[static_cast<std::size_t>(geometry)];
    for (std::size_t i = 0; i < parts.size(); ++i) {
      tinygltf::Primitive primitive;
      primitive.attributes["POSITION"] = parts[i].position;
      if (parts[i].normal >= 0) {
        primitive.attributes["NORMAL"] = parts[i].normal;
      }
      primitive.indices = parts[i].indices;
      primitive.material = materials[i];
      primitive.mode =
          parts[i].primitive == Primitive::Lines ? TINYGLTF_MODE_LINE : TINYGLTF_MODE_TRIANGLES;
      mesh.primitives.push_back(std::move(primitive));
    }
    model_.meshes.push_back(std::move(mesh));
    return found.first->second;
  }

  // Appends the bytes, each view starting at a multiple of four as accessors need.
  int BufferView(const void* bytes, std::size_t size, int target) {
    std::vector<unsigned char>& data = model_.buffers[0].data;
    data.resize((data.size() + 3) / 4 * 4, 0);
    tinygltf::BufferView view;
    view.buffer = 0;
    view.byteOffset = data.size();
    view.byteLength = size;
    view.target = target;
    const auto* begin = static_cast<const unsigned char*>(bytes);
    data.insert(data.end(), begin, begin + size);
    model_.bufferViews.push_back(view);
    return static_cast<int>(model_.bufferViews.size()) - 1;
  }

  int AddAccessor(tinygltf::Accessor accessor) {
    model_.accessors.push_back(std::move(accessor));
    return static_cast<int>(model_.accessors.size()) - 1;
  }

  int VectorAccessor(const std::vector<float>& xyz) {
    tinygltf::Accessor accessor;
    accessor.bufferView = BufferView(xyz.data(), xyz.size() * sizeof(float), kArrayBuffer);
    accessor.componentType = TINYGLTF_COMPONENT_TYPE_FLOAT;
    accessor.type = TINYGLTF_TYPE_VEC3;
    accessor.count = xyz.size() / 3;
    accessor.minValues.assign(3, std::numeric_limits<double>::infinity());
    accessor.maxValues.assign(3, -std::numeric_limits<double>::infinity());
    for (std::size_t i = 0; i < xyz.size(); ++i) {
      accessor.minValues[i % 3] = std::min<double>(accessor.minValues[i % 3], xyz[i]);
      accessor.maxValues[i % 3] = std::max<double>(accessor.maxValues[i % 3], xyz[i]);
    }
    return AddAccessor(std::move(accessor));
  }

  template <class T>
  int IndexAccessorOf(const std::vector<std::uint32_t>& indices, int componentType) {
    std::vector<T> narrow(indices.begin(), indices.end());
    tinygltf::Accessor accessor;
    accessor.bufferView = BufferView(narrow.data(), narrow.size() * sizeof(T), kElementArrayBuffer);
    accessor.componentType = componentType;
    accessor.type = TINYGLTF_TYPE_SCALAR;
    accessor.count = narrow.size();
    return AddAccessor(std::move(accessor));
  }

  // The smallest type whose largest value, which glTF keeps for primitive restart, is not an
  // index.
  int IndexAccessor(const std::vector<std::uint32_t>& indices) {
    const std::uint32_t largest = *std::max_element(indices.begin(), indices.end());
    if (largest < 0xFFu) {
      return IndexAccessorOf<std::uint8_t>(indices, TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE);
    }
    if (largest < 0xFFFFu) {
      return IndexAccessorOf<std::uint16_t>(indices, TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT);
    }
    return IndexAccessorOf<std::uint32_t>(indices, TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT);
  }

  tinygltf::Model model_;
  std::map<std::string, int> geometries_;  // key to index into accessors_
  std::vector<std::vector<PartAccessors>> accessors_;
  std::map<std::tuple<std::array<float, 4>, bool>, int> materials_;
  std::map<std::pair<int, std::vector<int>>, int> meshes_;
};

}  // namespace

tinygltf::Model BuildGltfModel(const std::vector<ExportItem>& items) {
  ModelBuilder builder;
  for (const ExportItem& item : items) {
    builder.AddNode(item);
  }
  return builder.Take();
}

}  // namespace lumagrid::detail
