#include "gallery_options.h"

#include <CLI/CLI.hpp>

#include <sstream>

#include "command_line.h"
#include "gallery_catalog.h"

namespace gallery {
namespace {

constexpr std::size_t kLineWidth = 78;

// Refuses a name the catalogue does not hold; the help lists them all.
const CLI::Validator kShapeName(
    [](const std::string& name) {
      return findEntry(name) == catalog().size() ? "no shape called '" + name + "'" : std::string();
    },
    "");

// "Shape names:" and every name, wrapped.
std::string shapeNames() {
  std::ostringstream s;
  s << "Shape names:";
  std::size_t column = kLineWidth + 2;
  for (const Entry& e : catalog()) {
    if (column + e.name.size() + 1 > kLineWidth) {
      s << "\n ";
      column = 1;
    }
    s << ' ' << e.name;
    column += e.name.size() + 1;
  }
  return s.str();
}

}  // namespace

std::optional<int> parseOptions(int argc, const char* const* argv, Options* options) {
  CLI::App app(
      "Renders every Lumagrid shape and variant into a labelled grid, headless (EGL on Mesa's\n"
      "llvmpipe, no display needed), and writes it as a PNG.",
      "lumagrid-gallery");
  app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  app.add_option("--out", options->out, "picture to write (default gallery.png)")
      ->type_name("FILE");
  examples::addSizeOption(app, &options->width, &options->height,
                          "its size in pixels (default 1200x1000)");
  app.add_option("--only", options->only, "draw one shape alone, e.g. for a bug report")
      ->type_name("NAME")
      ->check(kShapeName);
  app.add_option("--gltf", options->gltf,
                 "also write the scene as glTF 2.0 (binary unless FILE ends in .gltf), with the\n"
                 "camera and cells beside it in FILE's name ending .view.json")
      ->type_name("FILE");
  app.add_option("--renderer", options->renderer,
                 "legacy (default): display lists in a compatibility context; coreprofile: the\n"
                 "core-profile renderer in an OpenGL 3.3 core context")
      ->type_name("NAME")
      ->check(CLI::IsMember({"legacy", "coreprofile"}));
  app.footer(shapeNames() + "\n\n" + examples::exitStatusHelp("OpenGL context"));
  return examples::parseCommandLine(app, argc, argv);
}

}  // namespace gallery
