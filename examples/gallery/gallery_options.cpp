#include "gallery_options.h"

#include <cstdlib>
#include <sstream>

#include "gallery_catalog.h"

namespace gallery {
namespace {

constexpr int kMinSide = 64;
constexpr int kMaxSide = 8192;

bool parseSide(const std::string& text, int* side) {
  if (text.empty() || text.size() > 5 ||
      text.find_first_not_of("0123456789") != std::string::npos) {
    return false;
  }
  *side = std::atoi(text.c_str());
  return *side >= kMinSide && *side <= kMaxSide;
}

}  // namespace

bool parseSize(const std::string& text, int* width, int* height, std::string* error) {
  const std::size_t x = text.find('x');
  if (x == std::string::npos || !parseSide(text.substr(0, x), width) ||
      !parseSide(text.substr(x + 1), height)) {
    *error = "--size wants WIDTHxHEIGHT, each " + std::to_string(kMinSide) + " to " +
             std::to_string(kMaxSide) + ", not '" + text + "'";
    return false;
  }
  return true;
}

bool parseOptions(int argc, const char* const* argv, Options* options, std::string* error) {
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const bool hasValue = i + 1 < argc;
    if (arg == "--help" || arg == "-h") {
      options->help = true;
    } else if (arg == "--out" && hasValue) {
      options->out = argv[++i];
    } else if (arg == "--size" && hasValue) {
      if (!parseSize(argv[++i], &options->width, &options->height, error)) {
        return false;
      }
    } else if (arg == "--only" && hasValue) {
      options->only = argv[++i];
      if (findEntry(options->only) == catalog().size()) {
        *error = "--only: no shape called '" + options->only + "' (see --help)";
        return false;
      }
    } else if (arg == "--out" || arg == "--size" || arg == "--only") {
      *error = arg + " needs a value";
      return false;
    } else {
      *error = "unknown argument '" + arg + "' (see --help)";
      return false;
    }
  }
  return true;
}

std::string usage(const std::string& program) {
  std::ostringstream s;
  s << "Usage: " << program << " [--out FILE] [--size WxH] [--only NAME]\n"
    << "Renders every Lumagrid shape and variant into a labelled grid, headless (EGL on Mesa's\n"
    << "llvmpipe, no display needed), and writes it as a PNG.\n\n"
    << "  --out FILE    picture to write (default gallery.png)\n"
    << "  --size WxH    its size in pixels (default 1200x1000)\n"
    << "  --only NAME   draw one shape alone, e.g. for a bug report\n"
    << "  --help        this text\n\n"
    << "Shape names:";
  int column = 80;
  for (const Entry& e : catalog()) {
    if (column + e.name.size() + 1 > 78) {
      s << "\n ";
      column = 1;
    }
    s << ' ' << e.name;
    column += static_cast<int>(e.name.size()) + 1;
  }
  s << "\n\nExit status: 0 on success, 1 on a bad command line or unwritable file, 2 when no\n"
    << "OpenGL context can be had, 3 when OpenGL reported an error while drawing.\n";
  return s.str();
}

}  // namespace gallery
