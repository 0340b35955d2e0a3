#include "viewer_options.h"

#include <CLI/CLI.hpp>

#include "command_line.h"

namespace viewer {
namespace {

constexpr int kMaxFrames = 100000;
constexpr int kMaxPixel = 99999;

}  // namespace

std::optional<int> parseOptions(int argc, const char* const* argv, Options* options) {
  CLI::App app(
      "Shows every Lumagrid shape and variant, lit, in a window (freeglut; needs a "
      "display).",
      "lumagrid-viewer");
  app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  examples::addSizeOption(app, &options->width, &options->height,
                          "window size in pixels (default 960x800)");
  app.add_option("--frames", options->frames, "draw N frames, then exit (for scripts and CI)")
      ->type_name("N")
      ->check(CLI::Range(1, kMaxFrames));
  examples::addPairOption(
      app, "--click", ',', 0, kMaxPixel,
      [options](int x, int y) {
        options->click = Click{x, y};
      },
      "pick at this pixel, from the top left, before the first frame")
      ->type_name("X,Y");
  app.add_option("--keys", options->keys, "then type these keys (see below), e.g. --keys wt")
      ->type_name("KEYS");
  app.add_option("--screenshot", options->screenshot,
                 "write the window's content after the last frame as a PNG")
      ->type_name("FILE");
  app.add_option("--gltf", options->gltf,
                 "the file `e` writes the scene to as glTF (default lumagrid-viewer.glb; binary\n"
                 "unless FILE ends in .gltf)")
      ->type_name("FILE");
  std::string renderer = "legacy";
  app.add_option("--renderer", renderer,
                 "legacy (default): the library's fixed-function draw; coreprofile: the OpenGL\n"
                 "3.3 core-profile renderer, in a core context, where a click picks by ray and\n"
                 "the cells have no labels")
      ->type_name("NAME")
      ->check(CLI::IsMember({"legacy", "coreprofile"}).description(""));
  app.footer(
      "Mouse: left drag orbits, left click picks (empty space clears the selection),\n"
      "right drag or the wheel zooms.\n\n" +
      keyList() + '\n' + examples::exitStatusHelp("display or OpenGL context"));
  if (const std::optional<int> status = examples::parseCommandLine(app, argc, argv)) {
    return status;
  }
  options->renderer = renderer == "coreprofile" ? Renderer::CoreProfile : Renderer::Legacy;
  // A picture, click or keys without a frame count still needs a frame to be drawn.
  if (options->frames == 0 &&
      (!options->screenshot.empty() || options->click || !options->keys.empty())) {
    options->frames = 1;
  }
  return std::nullopt;
}

std::string keyList() {
  return "Keys:\n"
         "  r      frame the whole scene (the gallery's view when it fits)\n"
         "  + -    zoom in, out\n"
         "  w      wireframe tubes (springs and tori) on, off\n"
         "  v      hide or show the selected shape\n"
         "  t      make the selected shape translucent, or opaque again\n"
         "  e      write the scene as you see it to the --gltf file (the title says where)\n"
         "  h      print this list\n"
         "  q Esc  quit\n";
}

}  // namespace viewer
