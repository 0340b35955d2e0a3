#include "gallery_gltf.h"

#include <lumagrid/GltfExport.h>

#include <fstream>
#include <iomanip>
#include <sstream>

#include "gallery_view.h"

namespace gallery {
namespace {

bool endsWith(const std::string& s, const std::string& tail) {
  return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

std::string jsonString(const std::string& s) {
  std::string out = "\"";
  for (const char c : s) {
    if (c == '"' || c == '\\') {
      out += '\\';
    }
    out += c;
  }
  return out + '"';
}

std::string viewJson(const Layout& layout, const std::vector<std::string>& labels) {
  const Camera camera = homeCamera(layout);
  std::ostringstream o;
  o << std::setprecision(17);
  o << "{\n  \"width\": " << layout.width() << ",\n  \"height\": " << layout.height()
    << ",\n  \"fieldOfViewDegrees\": " << camera.fieldOfView
    << ",\n  \"distance\": " << camera.distance << ",\n  \"target\": [0, 0, 0],\n  \"cells\": [";
  for (std::size_t i = 0; i < layout.cells() && i < labels.size(); ++i) {
    const Rect r = layout.shapeArea(i);
    o << (i == 0 ? "\n" : ",\n") << "    {\"label\": " << jsonString(labels[i])
      << ", \"x\": " << r.x << ", \"y\": " << r.y << ", \"width\": " << r.width
      << ", \"height\": " << r.height << "}";
  }
  o << "\n  ]\n}\n";
  return o.str();
}

}  // namespace

std::string viewFileFor(const std::string& gltfPath) {
  const std::size_t slash = gltfPath.find_last_of('/');
  const std::size_t dot = gltfPath.find_last_of('.');
  const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return (hasExtension ? gltfPath.substr(0, dot) : gltfPath) + ".view.json";
}

bool writeGalleryGltf(GalleryScene& scene, const Layout& layout,
                      const std::vector<std::string>& labels, const std::string& path,
                      std::string* error) {
  lumagrid::GltfOptions options;
  options.binary = !endsWith(path, ".gltf");
  if (!lumagrid::WriteGltf(scene.scenes(), path, options, error)) {
    return false;
  }
  const std::string viewPath = viewFileFor(path);
  std::ofstream view(viewPath, std::ios::binary);
  view << viewJson(layout, labels);
  view.close();
  if (!view) {
    *error = "cannot write " + viewPath;
    return false;
  }
  return true;
}

}  // namespace gallery
