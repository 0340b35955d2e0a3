// Command line of the viewer program.
#pragma once

#include <optional>
#include <string>

namespace viewer {

struct Click {
  int x;
  int y;
};

struct Options {
  int width = 960;
  int height = 800;
  int frames = 0;          // 0: interactive; otherwise draw this many frames and exit
  std::string screenshot;  // written after the last frame when set
  std::optional<Click> click;
  std::string keys;  // typed after the click, before the first frame
  bool help = false;
};

// Fills *options from argv. Returns false and says why in *error on a bad command line.
bool parseOptions(int argc, const char* const* argv, Options* options, std::string* error);

std::string usage(const std::string& program);

// The keys the window answers to, one a line.
std::string keyList();

}  // namespace viewer
