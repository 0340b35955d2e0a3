#include <lumagrid/GltfExport.h>

#include <exception>
#include <sstream>
#include <vector>

#include "gltf/export_items.h"
#include "gltf/gltf_model.h"
#include "gltf/whole_file.h"

namespace lumagrid {
namespace {

bool Export(const std::vector<CGLScene*>& scenes, const std::string& path,
            const GltfOptions& options, std::string& error) {
  if (path.empty()) {
    error = "no file name given";
    return false;
  }
  std::vector<detail::ExportItem> items;
  if (!detail::CollectExportItems(scenes, options, items, error)) {
    return false;
  }
  const tinygltf::Model model = detail::BuildGltfModel(items);
  if (model.nodes.empty()) {
    error = "the scene shows no shape with finite geometry";
    return false;
  }
  std::ostringstream bytes;
  tinygltf::TinyGLTF writer;
  if (!writer.WriteGltfSceneToStream(&model, bytes, !options.binary, options.binary)) {
    error = "the glTF document could not be serialised";
    return false;
  }
  return detail::WriteWholeFile(path, bytes.str(), error);
}

}  // namespace

bool WriteGltf(const std::vector<CGLScene*>& scenes, const std::string& path,
               const GltfOptions& options, std::string* error) {
  std::string message;
  bool written = false;
  // tinygltf's JSON writer reports running out of memory by throwing; the component reports
  // through its return value.
  try {
    written = Export(scenes, path, options, message);
  } catch (const std::exception& e) {
    message = std::string("the export failed: ") + e.what();
  }
  if (!written && error != nullptr) {
    *error = message;
  }
  return written;
}

bool WriteGltf(CGLScene& scene, const std::string& path, const GltfOptions& options,
               std::string* error) {
  return WriteGltf(std::vector<CGLScene*>{&scene}, path, options, error);
}

}  // namespace lumagrid
