// Command line of the gallery program.
#pragma once

#include <string>

namespace gallery {

struct Options {
  std::string out = "gallery.png";
  int width = 1200;
  int height = 1000;
  std::string only;  // one entry's name, or empty for all
  bool help = false;
};

// Fills *options from argv. Returns false and says why in *error on a bad command line.
bool parseOptions(int argc, const char* const* argv, Options* options, std::string* error);

// Reads "WIDTHxHEIGHT" into *width and *height. Returns false and says why in *error.
bool parseSize(const std::string& text, int* width, int* height, std::string* error);

// The --help text, entry names included.
std::string usage(const std::string& program);

}  // namespace gallery
