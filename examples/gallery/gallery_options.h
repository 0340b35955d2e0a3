// Command line of the gallery program.
#pragma once

#include <optional>
#include <string>

namespace gallery {

struct Options {
  std::string out = "gallery.png";
  int width = 1200;
  int height = 1000;
  std::string only;                 // one entry's name, or empty for all
  std::string gltf;                 // the scene as glTF too, when not empty
  std::string renderer = "legacy";  // or "coreprofile"
};

// Fills *options from argv. Returns the status to exit with when the program stops here: after
// --help, or a bad command line (said on stderr).
std::optional<int> parseOptions(int argc, const char* const* argv, Options* options);

}  // namespace gallery
