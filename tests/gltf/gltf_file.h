// Reading back what the export wrote, with tinygltf: the file, and an accessor's values.
#pragma once

#include <tiny_gltf.h>

#include <cstdint>
#include <string>
#include <vector>

namespace gltftest {

// Loads a .glb or a .gltf, as its extension says; false with tinygltf's message in *error.
bool Load(const std::string& path, tinygltf::Model* model, std::string* error);

// A float accessor's values, component by component.
std::vector<float> Floats(const tinygltf::Model& model, int accessor);

// An index accessor's values, whatever its unsigned type.
std::vector<std::uint32_t> Indices(const tinygltf::Model& model, int accessor);

// A fresh folder under the test temporary directory, removed by the caller.
std::string ScratchFolder(const std::string& name);

// The file's bytes, or empty when it cannot be read.
std::string Contents(const std::string& path);

// The names in a folder.
std::vector<std::string> Listing(const std::string& folder);

}  // namespace gltftest
