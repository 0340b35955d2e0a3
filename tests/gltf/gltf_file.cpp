#include "gltf_file.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

namespace gltftest {

bool Load(const std::string& path, tinygltf::Model* model, std::string* error) {
  tinygltf::TinyGLTF loader;
  std::string warning;
  const bool binary = path.size() >= 4 && path.compare(path.size() - 4, 4, ".glb") == 0;
  const bool ok = binary ? loader.LoadBinaryFromFile(model, error, &warning, path)
                         : loader.LoadASCIIFromFile(model, error, &warning, path);
  if (ok && !warning.empty()) {
    *error = warning;
    return false;
  }
  return ok;
}

namespace {

const unsigned char* Start(const tinygltf::Model& model, const tinygltf::Accessor& accessor) {
  const tinygltf::BufferView& view =
      model.bufferViews[static_cast<std::size_t>(accessor.bufferView)];
  const tinygltf::Buffer& buffer = model.buffers[static_cast<std::size_t>(view.buffer)];
  return buffer.data.data() + view.byteOffset + accessor.byteOffset;
}

}  // namespace

std::vector<float> Floats(const tinygltf::Model& model, int index) {
  const tinygltf::Accessor& accessor = model.accessors[static_cast<std::size_t>(index)];
  const std::size_t n = accessor.count * static_cast<std::size_t>(tinygltf::GetNumComponentsInType(
                                             static_cast<std::uint32_t>(accessor.type)));
  std::vector<float> values(n);
  std::memcpy(values.data(), Start(model, accessor), n * sizeof(float));
  return values;
}

std::vector<std::uint32_t> Indices(const tinygltf::Model& model, int index) {
  const tinygltf::Accessor& accessor = model.accessors[static_cast<std::size_t>(index)];
  const unsigned char* p = Start(model, accessor);
  std::vector<std::uint32_t> values(accessor.count);
  for (std::size_t i = 0; i < accessor.count; ++i) {
    switch (accessor.componentType) {
      case TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE:
        values[i] = p[i];
        break;
      case TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT: {
        std::uint16_t v;
        std::memcpy(&v, p + 2 * i, 2);
        values[i] = v;
        break;
      }
      default:
        std::memcpy(&values[i], p + 4 * i, 4);
    }
  }
  return values;
}

std::string ScratchFolder(const std::string& name) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                       ("lumagrid-gltf-" + std::to_string(getpid()) + "-" + name);
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  return folder.string();
}

std::string Contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

std::vector<std::string> Listing(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

}  // namespace gltftest
