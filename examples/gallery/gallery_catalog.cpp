#include "gallery_catalog.h"

#include <cctype>

namespace gallery {

const char* const kSelectedEntry = "torus-selected";
const char* const kTranslucentEntry = "sphere-alpha";
const char* const kLiteArrowEntry = "arrow-lite";
const Rgb8 kHighlight = {0, 255, 0};
const Rgb8 kBackground = {28, 31, 38};

namespace {

// "TENSION END 2" is called tension-end-2 on the command line: the same words.
std::string nameOf(const std::string& label) {
  std::string name = label;
  for (char& c : name) {
    c = c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return name;
}

}  // namespace

const std::vector<Entry>& catalog() {
  static const std::vector<Entry> entries = [] {
    const char* const labels[] = {
        "SPHERE ALPHA",     "CYLINDER OPEN",    "CYLINDER CLOSED", "CONE POINTED",
        "CONE TRUNCATED",   "TORUS SELECTED",   "TORUS 180",       "ARROW 1 HEAD",
        "ARROW 2 HEADS",    "ARROW 3 HEADS",    "ARROW LITE",      "AXIS TRIAD",
        "POLYLINE",         "BELT FULL",        "BELT TYPE 1",     "BELT TYPE 2",
        "BELT TYPE 4",      "BELT TYPE 8",      "SPRING OPEN",     "SPRING CLOSED",
        "SPRING SCHEMATIC", "SPRING WIREFRAME", "TENSION END 0",   "TENSION END 1",
        "TENSION END 2",    "TENSION END 3",    "TENSION LINES 0", "TENSION LINES 1",
        "TENSION LINES 2",  "TENSION LINES 3",
    };
    std::vector<Entry> list;
    for (const char* label : labels) {
      list.push_back({nameOf(label), label});
    }
    return list;
  }();
  return entries;
}

std::size_t findEntry(const std::string& name) {
  const std::vector<Entry>& entries = catalog();
  std::size_t i = 0;
  while (i < entries.size() && entries[i].name != name) {
    ++i;
  }
  return i;
}

}  // namespace gallery
