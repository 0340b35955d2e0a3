#include "viewer_options.h"

#include <cstdlib>
#include <sstream>

#include "gallery_options.h"

namespace viewer {
namespace {

constexpr int kMaxFrames = 100000;

bool parseCount(const std::string& text, int limit, int* value) {
  if (text.empty() || text.size() > 6 ||
      text.find_first_not_of("0123456789") != std::string::npos) {
    return false;
  }
  *value = std::atoi(text.c_str());
  return *value >= 0 && *value <= limit;
}

}  // namespace

bool parseOptions(int argc, const char* const* argv, Options* options, std::string* error) {
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const bool hasValue = i + 1 < argc;
    if (arg == "--help" || arg == "-h") {
      options->help = true;
    } else if (arg == "--size" && hasValue) {
      if (!gallery::parseSize(argv[++i], &options->width, &options->height, error)) {
        return false;
      }
    } else if (arg == "--frames" && hasValue) {
      const std::string n = argv[++i];
      if (!parseCount(n, kMaxFrames, &options->frames) || options->frames == 0) {
        *error =
            "--frames wants a count from 1 to " + std::to_string(kMaxFrames) + ", not '" + n + "'";
        return false;
      }
    } else if (arg == "--screenshot" && hasValue) {
      options->screenshot = argv[++i];
    } else if (arg == "--click" && hasValue) {
      const std::string at = argv[++i];
      const std::size_t comma = at.find(',');
      Click c{0, 0};
      if (comma == std::string::npos || !parseCount(at.substr(0, comma), 99999, &c.x) ||
          !parseCount(at.substr(comma + 1), 99999, &c.y)) {
        *error = "--click wants X,Y in pixels from the top left, not '" + at + "'";
        return false;
      }
      options->click = c;
    } else if (arg == "--keys" && hasValue) {
      options->keys = argv[++i];
    } else if (arg == "--size" || arg == "--frames" || arg == "--screenshot" || arg == "--click" ||
               arg == "--keys") {
      *error = arg + " needs a value";
      return false;
    } else {
      *error = "unknown argument '" + arg + "' (see --help)";
      return false;
    }
  }
  // A picture, click or keys without a frame count still needs a frame to be drawn.
  if (options->frames == 0 &&
      (!options->screenshot.empty() || options->click || !options->keys.empty())) {
    options->frames = 1;
  }
  return true;
}

std::string usage(const std::string& program) {
  std::ostringstream s;
  s << "Usage: " << program
    << " [--size WxH] [--frames N] [--click X,Y] [--keys KEYS] [--screenshot FILE]\n"
    << "Shows every Lumagrid shape and variant, lit, in a window (freeglut; needs a display).\n\n"
    << "  --size WxH         window size in pixels (default 960x800)\n"
    << "  --frames N         draw N frames, then exit (for scripts and CI)\n"
    << "  --click X,Y        pick at this pixel, from the top left, before the first frame\n"
    << "  --keys KEYS        then type these keys (see below), e.g. --keys wt\n"
    << "  --screenshot FILE  write the window's content after the last frame as a PNG\n"
    << "  --help             this text\n\n"
    << "Mouse: left drag orbits, left click picks (empty space clears the selection),\n"
    << "right drag or the wheel zooms.\n\n"
    << keyList() << '\n'
    << "Exit status: 0 on success, 1 on a bad command line or unwritable file, 2 when no\n"
    << "display or OpenGL context can be had, 3 when OpenGL reported an error while drawing.\n";
  return s.str();
}

std::string keyList() {
  return "Keys:\n"
         "  r      reset the view\n"
         "  + -    zoom in, out\n"
         "  w      wireframe tubes (springs and tori) on, off\n"
         "  v      hide or show the selected shape\n"
         "  t      make the selected shape translucent, or opaque again\n"
         "  h      print this list\n"
         "  q Esc  quit\n";
}

}  // namespace viewer
