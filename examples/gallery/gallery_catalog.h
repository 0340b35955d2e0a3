// The gallery's cells: every shape and variant, by name, in grid order.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace gallery {

struct Entry {
  std::string name;   // for --only, lower case
  std::string label;  // drawn under the cell, upper case
};

const std::vector<Entry>& catalog();

// Index of the entry with this name, or catalog().size() when there is none.
std::size_t findEntry(const std::string& name);

// The entry drawn selected (in its highlight colour) and the translucent one.
extern const char* const kSelectedEntry;
extern const char* const kTranslucentEntry;

// Red, green, blue in 0..255 of the selected shape's highlight colour (CGLObject's default
// green) and of the picture's background.
struct Rgb8 {
  int r;
  int g;
  int b;
};
extern const Rgb8 kHighlight;
extern const Rgb8 kBackground;

}  // namespace gallery
