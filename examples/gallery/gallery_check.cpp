// Runs the gallery program and checks what it wrote: the PNG decodes at the requested size, is not
// blank, every cell holds a shape and a label, only the selected shape shows the highlight colour,
// the program's exit status says what happened (0, or 2 without an OpenGL context), the lite arrow
// shows its own colour, and separate runs draw the same picture; with either renderer.
//   lumagrid_gallery_check PATH-TO-GALLERY
#include <string>
#include <vector>

#include "check_support.h"
#include "command_line.h"
#include "gallery_catalog.h"
#include "gallery_layout.h"

namespace examples::check {
namespace {

constexpr const char* kRenderers[] = {"legacy", "coreprofile"};

// The gallery's command line with its --renderer, and how checks name it.
std::vector<std::string> withRenderer(std::vector<std::string> args, const std::string& renderer) {
  args.push_back("--renderer");
  args.push_back(renderer);
  return args;
}

std::string named(const std::string& what, const std::string& renderer) {
  return what + " --renderer " + renderer;
}

// Runs the gallery into path at width x height (one entry when only is set) and checks the cells.
void checkPicture(const std::string& gallery, const std::string& path, int width, int height,
                  const std::string& only, const std::string& renderer) {
  std::vector<std::string> args = {gallery, "--out", path, "--size",
                                   std::to_string(width) + "x" + std::to_string(height)};
  if (!only.empty()) {
    args.push_back("--only");
    args.push_back(only);
  }
  args = withRenderer(args, renderer);
  const std::string what = named(only.empty() ? "gallery" : "gallery --only " + only, renderer);
  check(run(args) == code(Exit::Ok), what + " exits 0 (no GL error)");
  Image image;
  const bool decoded = readPng(path, &image);
  check(decoded, what + ": the PNG decodes");
  if (!decoded) {
    return;
  }
  check(image.width == width && image.height == height,
        what + ": size " + std::to_string(image.width) + "x" + std::to_string(image.height));
  if (image.width != width || image.height != height) {
    return;
  }
  const std::size_t colours = distinctColours(image);
  check(colours >= (only.empty() ? 500u : 50u),
        what + ": not blank (" + std::to_string(colours) + " distinct colours)");

  std::vector<std::size_t> entries;
  for (std::size_t i = 0; i < gallery::catalog().size(); ++i) {
    if (only.empty() || gallery::catalog()[i].name == only) {
      entries.push_back(i);
    }
  }
  const gallery::Layout layout(entries.size(), width, height);
  for (std::size_t cell = 0; cell < entries.size(); ++cell) {
    const std::string& name = gallery::catalog()[entries[cell]].name;
    const std::size_t drawn = count(image, layout.shapeArea(cell),
                                    [](const std::uint8_t* p) { return !isBackground(p); });
    check(drawn >= 60, what + ": cell " + std::to_string(cell) + " (" + name + ") holds " +
                           std::to_string(drawn) + " shape pixels");
    const std::size_t label = count(image, layout.labelArea(cell),
                                    [](const std::uint8_t* p) { return !isBackground(p); });
    check(label >= 20, what + ": cell " + std::to_string(cell) + " has a label");
    const std::size_t highlight = count(image, layout.cell(cell), isHighlight);
    if (name == gallery::kSelectedEntry) {
      check(highlight >= 100, what + ": the selected " + name + " shows its highlight colour (" +
                                  std::to_string(highlight) + " pixels)");
    } else {
      check(highlight < 5, what + ": " + name + " shows no highlight colour");
    }
  }
}

// The lite arrow's line shaft has no normal: it must be drawn where its look does not depend on
// what the scene drew before it, which follows heap addresses. Unlit, it shows its colour.
void checkLiteArrowIsFlat(const std::string& gallery, const std::string& path,
                          const std::string& renderer) {
  const std::string only = gallery::kLiteArrowEntry;
  check(run(withRenderer({gallery, "--out", path, "--size", "240x200", "--only", only},
                         renderer)) == 0,
        named("gallery --only " + only, renderer) + " exits 0");
  Image image;
  if (!readPng(path, &image)) {
    check(false, "gallery --only " + only + ": the PNG decodes");
    return;
  }
  const gallery::Layout layout(1, image.width, image.height);
  const gallery::Rgb8 gold = gallery::rgb8(gallery::kGold);
  const std::size_t drawn =
      count(image, layout.shapeArea(0), [](const std::uint8_t* p) { return !isBackground(p); });
  const std::size_t flat = count(image, layout.shapeArea(0), [&gold](const std::uint8_t* p) {
    return colourDistance(p, gold) <= 3;
  });
  // Multisampled edges blend with the background; the rest is the colour itself.
  check(drawn > 0 && flat * 2 >= drawn, renderer + ": the lite arrow shows its own colour unlit (" +
                                            std::to_string(flat) + " of " + std::to_string(drawn) +
                                            " pixels)");
}

// --help names every shape; a bad command line, and a missing EGL driver, exit with their status.
void checkCommandLine(const std::string& gallery, const std::string& path) {
  std::string help;
  check(run({gallery, "--help"}, {}, &help) == code(Exit::Ok), "--help exits 0");
  bool everyName = true;
  for (const gallery::Entry& e : gallery::catalog()) {
    everyName = everyName && help.find(e.name) != std::string::npos;
  }
  check(everyName, "--help names every shape");
  check(run({gallery, "--size", "12by4", "--out", path}) == code(Exit::BadCommandLine),
        "a bad --size exits 1");
  check(run({gallery, "--only", "no-such-shape", "--out", path}) == code(Exit::BadCommandLine),
        "an unknown --only exits 1");
  // GLVND finds no EGL driver: the program must say so and exit 2, not crash.
  check(run({gallery, "--out", path}, {"__EGL_VENDOR_LIBRARY_FILENAMES=/nonexistent.json"}) ==
            code(Exit::NoContext),
        "no EGL driver exits 2");
  check(run({gallery, "--renderer", "coreprofile", "--out", path},
            {"__EGL_VENDOR_LIBRARY_FILENAMES=/nonexistent.json"}) == code(Exit::NoContext),
        "no EGL driver exits 2 with --renderer coreprofile");
}

// --gltf writes the scene beside the picture, binary or as JSON as the name says; a folder that
// does not exist is a file that cannot be written.
void checkGltf(const std::string& gallery, const std::string& path) {
  for (const char* extension : {".glb", ".gltf"}) {
    const std::string file = path + extension;
    check(run({gallery, "--out", path, "--size", "300x250", "--gltf", file}) == code(Exit::Ok),
          "--gltf " + file + " exits 0");
    checkGltfFile(file, {"CGLTorus tube", "CGLSpring tension", "KHR_materials_unlit"});
  }
  check(run({gallery, "--out", path, "--gltf", path + ".missing/gallery.glb"}) ==
            code(Exit::CannotWrite),
        "--gltf into a missing folder exits 1");
}

// Every check of the gallery program, run with a temporary PNG at path.
void checkGallery(const std::string& gallery, const std::string& path) {
  for (const std::string renderer : kRenderers) {
    checkPicture(gallery, path, 900, 760, "", renderer);
    checkPicture(gallery, path, 200, 180, gallery::kSelectedEntry, renderer);
    checkLiteArrowIsFlat(gallery, path, renderer);
  }
  // About one run in sixteen drew the lite arrow lit by a neighbour's normal.
  checkSamePictureEveryRun(12, [&](Image* image) {
    return run({gallery, "--out", path, "--size", "420x350"}) == 0 && readPng(path, image);
  });
  // The renderer draws in an order of its own: it too must not depend on where shapes live.
  checkSamePictureEveryRun(4, [&](Image* image) {
    return run(withRenderer({gallery, "--out", path, "--size", "420x350"}, "coreprofile")) == 0 &&
           readPng(path, image);
  });
  check(run({gallery, "--renderer", "vulkan", "--out", path}) == code(Exit::BadCommandLine),
        "an unknown --renderer exits 1");
  checkCommandLine(gallery, path);
  checkGltf(gallery, path);
}

}  // namespace
}  // namespace examples::check

int main(int argc, char** argv) {
  return examples::check::checkProgram(argc, argv, "gallery", examples::check::checkGallery);
}
