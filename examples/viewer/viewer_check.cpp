// Runs the viewer on the display it is given (ctest runs this under xvfb-run) and checks what it
// did: a click on a shape selects it, so that its cell alone shows the highlight colour in the
// screenshot, and the ray through the click meets it too, with either renderer (the core-profile
// one in a 3.3 core context); a click on the background selects and meets nothing; separate runs
// show the same screenshot; the program exits 0.
//   lumagrid_viewer_check PATH-TO-VIEWER
#include <iostream>
#include <string>
#include <vector>

#include "check_support.h"
#include "command_line.h"
#include "gallery_catalog.h"
#include "gallery_layout.h"

namespace examples::check {
namespace {

constexpr int kWidth = 600;
constexpr int kHeight = 500;
const char* const kClicked = "cone-pointed";

// The legacy draw, and the core-profile renderer.
const std::vector<std::string> kLegacy = {};
const std::vector<std::string> kCoreProfile = {"--renderer", "coreprofile"};

std::string rendererName(const std::vector<std::string>& renderer) {
  return renderer.empty() ? "legacy" : renderer.back();
}

std::string joined(const std::vector<std::string>& args) {
  std::string text;
  for (const std::string& arg : args) {
    text += ' ' + arg;
  }
  return text;
}

// Runs the viewer, with these renderer options, for three frames with a click at (x, y) and reads
// its screenshot. Returns false when there is no picture to look at.
bool runViewer(const std::string& viewer, const std::vector<std::string>& renderer,
               const std::string& path, int x, int y, Image* image, std::string* out) {
  const std::string at = std::to_string(x) + "," + std::to_string(y);
  std::vector<std::string> args = {viewer,
                                   "--size",
                                   std::to_string(kWidth) + "x" + std::to_string(kHeight),
                                   "--frames",
                                   "3",
                                   "--click",
                                   at,
                                   "--screenshot",
                                   path};
  args.insert(args.end(), renderer.begin(), renderer.end());
  const int status = run(args, {}, out);
  std::cout << "viewer" << joined(renderer) << " said: " << *out;
  check(status == code(Exit::Ok), "viewer" + joined(renderer) + " --click " + at +
                                      " exits 0 (status " + std::to_string(status) + ")");
  const bool decoded = readPng(path, image);
  check(decoded, "the screenshot decodes");
  if (!decoded) {
    return false;
  }
  const bool sized = image->width == kWidth && image->height == kHeight;
  check(sized,
        "the screenshot is " + std::to_string(image->width) + "x" + std::to_string(image->height));
  if (!sized) {
    return false;
  }
  const std::size_t colours = distinctColours(*image);
  check(colours >= 500, "not blank (" + std::to_string(colours) + " distinct colours)");
  return true;
}

void checkClickOnShape(const std::string& viewer, const std::vector<std::string>& renderer,
                       const std::string& path) {
  const gallery::Layout layout(gallery::catalog().size(), kWidth, kHeight);
  const std::size_t cell = gallery::findEntry(kClicked);
  const gallery::Rect area = layout.shapeArea(cell);
  Image image;
  std::string out;
  if (!runViewer(viewer, renderer, path, area.x + area.width / 2, area.y + area.height / 2, &image,
                 &out)) {
    return;
  }
  const std::string label = gallery::catalog()[cell].label;
  const std::string by = " (" + rendererName(renderer) + ")";
  check(out.find("picked: " + label + ": CGLCone") != std::string::npos,
        "the click picks the " + label + by);
  check(out.find("ray pick: " + label + ": CGLCone") != std::string::npos,
        "the ray through the click meets the " + label + by);
  for (std::size_t i = 0; i < layout.cells(); ++i) {
    const std::string& name = gallery::catalog()[i].name;
    const std::size_t highlight = count(image, layout.cell(i), isHighlight);
    if (i == cell) {
      check(highlight >= 100, "the clicked " + name + " shows its highlight colour (" +
                                  std::to_string(highlight) + " pixels)" + by);
    } else if (highlight >= 5) {
      // Checked one by one only when it fails: the gallery's own selection must have gone.
      check(false, name + " shows the highlight colour (" + std::to_string(highlight) + ")" + by);
    }
  }
  // The core-profile picture has no labels: a label there means the legacy draw made it.
  const std::size_t lettering =
      count(image, layout.labelArea(cell), [](const std::uint8_t* p) { return !isBackground(p); });
  if (renderer.empty()) {
    check(lettering >= 20,
          "the " + label + " cell has its label (" + std::to_string(lettering) + " pixels)" + by);
  } else {
    check(lettering == 0,
          "the " + label + " cell has no label (" + std::to_string(lettering) + " pixels)" + by);
  }
}

void checkClickOnBackground(const std::string& viewer, const std::string& path) {
  Image image;
  std::string out;
  if (!runViewer(viewer, kLegacy, path, 1, 1, &image, &out)) {
    return;
  }
  check(out.find("picked: nothing") != std::string::npos,
        "a click on the background picks nothing");
  check(out.find("ray pick: nothing") != std::string::npos,
        "the ray through the background meets nothing");
  const std::size_t highlight = count(image, {0, 0, kWidth, kHeight}, isHighlight);
  check(highlight < 5, "nothing shows the highlight colour (" + std::to_string(highlight) + ")");
}

// `e` writes the scene as shown, the picked cone in its highlight colour, to the --gltf file.
void checkExport(const std::string& viewer, const std::string& path) {
  const gallery::Layout layout(gallery::catalog().size(), kWidth, kHeight);
  const gallery::Rect area = layout.shapeArea(gallery::findEntry(kClicked));
  const std::string file = path + ".glb";
  std::string out;
  const int status =
      run({viewer, "--size", std::to_string(kWidth) + "x" + std::to_string(kHeight), "--click",
           std::to_string(area.x + area.width / 2) + "," + std::to_string(area.y + area.height / 2),
           "--keys", "e", "--gltf", file},
          {}, &out);
  check(status == code(Exit::Ok), "viewer --keys e exits 0");
  check(out.find("viewer: wrote " + absolutePath(file)) != std::string::npos,
        "the viewer says where the scene went");
  checkGltfFile(file, {"CGLCone base 0.75 top 0 height 1.6"});
}

// Every check of the viewer program, run with a temporary PNG at path.
void checkViewer(const std::string& viewer, const std::string& path) {
  checkClickOnShape(viewer, kLegacy, path);
  checkClickOnShape(viewer, kCoreProfile, path);
  checkClickOnBackground(viewer, path);
  checkExport(viewer, path);
  checkSamePictureEveryRun(6, [&](Image* image) {
    std::string out;
    return runViewer(viewer, kLegacy, path, 1, 1, image, &out);
  });
  std::string help;
  check(run({viewer, "--help"}, {}, &help) == code(Exit::Ok), "--help exits 0");
  check(run({viewer, "--click", "12;4"}) == code(Exit::BadCommandLine), "a bad --click exits 1");
  check(run({viewer, "--renderer", "vulkan"}) == code(Exit::BadCommandLine),
        "an unknown --renderer exits 1");
}

}  // namespace
}  // namespace examples::check

int main(int argc, char** argv) {
  return examples::check::checkProgram(argc, argv, "viewer", examples::check::checkViewer);
}
