// A host that saves its scene as glTF through Lumagrid::gltf, with no GL context: the export
// reads the shapes' meshes and makes no GL call. Writes a .glb and a .gltf into a fresh
// temporary folder, then tries a folder that does not exist. Exits 0 when every answer is the
// one expected below.
#include <lumagrid/GltfExport.h>
#include <lumagrid/lumagrid.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace {

int failures = 0;

void Expect(bool ok, const char* what) {
  if (!ok) {
    std::fprintf(stderr, "gltf_host: %s\n", what);
    ++failures;
  }
}

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool Contains(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

}  // namespace

int main() {
  CGLScene scene;  // owns and deletes the shapes
  scene.AddGLShape(new CGLSphere(0.5));
  auto* cone = new CGLCone(0.75, 0.0, 1.6, true);
  cone->Move(2.0, 0.0, 0.0);
  cone->ColorSet(1.0, 0.5, 0.0, 0.4);  // translucent: its material blends
  scene.AddGLShape(cone);
  auto* line = new CGLPolyline();
  line->AddVertex(0.0, 0.0, 0.0);
  line->AddVertex(1.0, 1.0, 0.0);
  line->AddVertex(2.0, 0.0, 1.0);
  scene.AddGLShape(line);
  auto* hidden = new CGLTorus();
  scene.AddGLShape(hidden);
  scene.ShowGLShape(hidden, 0);  // not drawn, so not written

  std::error_code ec;
  const fs::path dir =
      fs::temp_directory_path() / ("lumagrid-gltf-host-" + std::to_string(getpid()));
  fs::remove_all(dir, ec);
  fs::create_directories(dir);

  std::string error;
  const fs::path glb = dir / "scene.glb";
  const bool wroteGlb = lumagrid::WriteGltf(scene, glb.string(), {}, &error);
  Expect(wroteGlb, ("writing the .glb failed: " + error).c_str());
  const std::string glbBytes = ReadFile(glb);
  Expect(glbBytes.compare(0, 4, "glTF") == 0, "the .glb does not start with \"glTF\"");

  lumagrid::GltfOptions text;
  text.binary = false;
  const fs::path gltf = dir / "scene.gltf";
  const bool wroteGltf = lumagrid::WriteGltf(scene, gltf.string(), text, &error);
  Expect(wroteGltf, ("writing the .gltf failed: " + error).c_str());
  const std::string json = ReadFile(gltf);
  Expect(json.compare(0, 1, "{") == 0, "the .gltf does not start with \"{\"");
  Expect(Contains(json, "CGLSphere") && Contains(json, "CGLCone") && Contains(json, "CGLPolyline"),
         "a shown shape has no node");
  Expect(!Contains(json, "CGLTorus"), "the hidden torus was written");
  Expect(Contains(json, "BLEND"), "the translucent cone's material does not blend");
  Expect(Contains(json, "KHR_materials_unlit"), "the polyline's material is not unlit");

  // A folder that does not exist: false, a reason, and no file.
  std::string badError;
  const fs::path bad = dir / "no-such-folder" / "scene.glb";
  const bool wroteBad = lumagrid::WriteGltf(scene, bad.string(), {}, &badError);
  Expect(!wroteBad, "writing into a missing folder succeeded");
  Expect(!badError.empty(), "writing into a missing folder gave no reason");
  Expect(!fs::exists(bad, ec), "writing into a missing folder left a file");

  std::printf("wrote %s (%zu bytes) and %s (%zu bytes); a missing folder: %s (%s)\n",
              glb.filename().c_str(), glbBytes.size(), gltf.filename().c_str(), json.size(),
              wroteBad ? "written" : "refused", badError.c_str());
  fs::remove_all(dir, ec);
  return failures == 0 ? 0 : 1;
}
