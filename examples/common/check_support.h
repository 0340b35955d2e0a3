// What the example programs' checks share: running a program, reading its PNG, classifying pixels
// against the gallery's colours, and counting results.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "gallery_catalog.h"
#include "gallery_layout.h"

namespace examples::check {

// Prints "ok:" or "FAIL:" and what, and counts the failures.
void check(bool ok, const std::string& what);
int failures();

// Runs args[0] with args and the environment plus extraEnv. Exit status, or -1 when it did not
// exit normally (a crash) or could not start. When out is given, it receives the standard output.
int run(const std::vector<std::string>& args, const std::vector<std::string>& extraEnv = {},
        std::string* out = nullptr);

struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgba;  // top row first

  const std::uint8_t* at(int x, int y) const {
    return &rgba[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)) *
                 4];
  }
};

bool readPng(const std::string& path, Image* image);

// How far pixel p is from colour c: the sum of the three channels' differences.
int colourDistance(const std::uint8_t* p, const gallery::Rgb8& c);

// The gallery's background, give or take the rasteriser's rounding.
bool isBackground(const std::uint8_t* p);
// The highlight colour under the lights: its hue, any brightness.
bool isHighlight(const std::uint8_t* p);

template <class Predicate>
std::size_t count(const Image& image, const gallery::Rect& r, Predicate predicate) {
  std::size_t n = 0;
  for (int y = r.y; y < r.y + r.height; ++y) {
    for (int x = r.x; x < r.x + r.width; ++x) {
      n += predicate(image.at(x, y)) ? 1 : 0;
    }
  }
  return n;
}

std::size_t distinctColours(const Image& image);

// Pixels that differ between a and b; every pixel of the larger when their sizes differ.
std::size_t differingPixels(const Image& a, const Image& b);

// Calls runOnce `runs` times (each runs the program in a process of its own and reads its
// picture, false when there is none) and checks every picture against the first. Separate
// processes put the shapes at other addresses, and so draw them in another order.
void checkSamePictureEveryRun(int runs, const std::function<bool(Image*)>& runOnce);

// A new empty file named like lumagrid-STEM-XXXXXX.png in the temporary folder, or "".
std::string temporaryPng(const std::string& stem);

// Checks that `path` holds a glTF file, binary when it ends in .glb, whose JSON mentions each of
// `names` (node names, say), with its view file beside it; removes both.
void checkGltfFile(const std::string& path, const std::vector<std::string>& names);

// The main of a program's check: argv[1] names the program, and checks runs it with the path of
// a temporary PNG. Prints the verdict; returns 0 when every check passed, 1 when one failed and 2
// on a bad command line.
int checkProgram(
    int argc, char** argv, const std::string& stem,
    const std::function<void(const std::string& program, const std::string& png)>& checks);

}  // namespace examples::check
