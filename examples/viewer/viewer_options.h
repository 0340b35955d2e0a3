// Command line of the viewer program.
#pragma once

#include <optional>
#include <string>

namespace viewer {

struct Click {
  int x;
  int y;
};

// What draws the scene: the library's own fixed-function draw, or the OpenGL 3.3 core-profile
// renderer (Lumagrid::coreprofile) in a core context.
enum class Renderer { Legacy, CoreProfile };

struct Options {
  int width = 960;
  int height = 800;
  int frames = 0;          // 0: interactive; otherwise draw this many frames and exit
  std::string screenshot;  // written after the last frame when set
  std::optional<Click> click;
  std::string keys;                          // typed after the click, before the first frame
  std::string gltf = "lumagrid-viewer.glb";  // what `e` writes
  Renderer renderer = Renderer::Legacy;
};

// Fills *options from argv. Returns the status to exit with when the program stops here: after
// --help, or a bad command line (said on stderr).
std::optional<int> parseOptions(int argc, const char* const* argv, Options* options);

// The keys the window answers to, one a line.
std::string keyList();

}  // namespace viewer
