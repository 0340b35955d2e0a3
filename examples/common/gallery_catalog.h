// The gallery's cells: every shape and variant, by name, in grid order, with what builds it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace gallery {

class Cell;

struct Entry {
  std::string name;   // for --only: the label's words, lower case, joined by '-'
  std::string label;  // drawn under the cell, upper case
  void (*build)(Cell& cell);
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

// The lite arrow's (and the belts') gold, in the library's 0xBBGGRR layout. The lite arrow is
// drawn unlit, so that its line shaft shows exactly this colour whatever was drawn before it.
constexpr unsigned long kGold = 0x20C8E8ul;
extern const char* const kLiteArrowEntry;

constexpr Rgb8 rgb8(unsigned long bgr) {
  return {static_cast<int>(bgr & 0xFFu), static_cast<int>((bgr >> 8) & 0xFFu),
          static_cast<int>((bgr >> 16) & 0xFFu)};
}

}  // namespace gallery
