#include "gallery_catalog.h"

namespace gallery {

const char* const kSelectedEntry = "torus-full";
const char* const kTranslucentEntry = "sphere";
const Rgb8 kHighlight = {0, 255, 0};
const Rgb8 kBackground = {28, 31, 38};

const std::vector<Entry>& catalog() {
  static const std::vector<Entry> entries = {
      {"sphere", "SPHERE ALPHA 0.45"},
      {"cylinder-open", "CYLINDER OPEN"},
      {"cylinder-closed", "CYLINDER CLOSED"},
      {"cone-pointed", "CONE POINTED"},
      {"cone-truncated", "CONE TRUNCATED"},
      {"torus-full", "TORUS SELECTED"},
      {"torus-half", "TORUS 180"},
      {"arrow-1", "ARROW 1 HEAD"},
      {"arrow-2", "ARROW 2 HEADS"},
      {"arrow-3", "ARROW 3 HEADS"},
      {"arrow-lite", "ARROW LITE"},
      {"axis", "AXIS TRIAD"},
      {"polyline", "POLYLINE"},
      {"belt-full", "BELT FULL"},
      {"belt-1", "BELT TYPE 1"},
      {"belt-2", "BELT TYPE 2"},
      {"belt-4", "BELT TYPE 4"},
      {"belt-8", "BELT TYPE 8"},
      {"compression-open", "SPRING OPEN"},
      {"compression-closed", "SPRING CLOSED"},
      {"compression-schematic", "SPRING SCHEMATIC"},
      {"compression-wireframe", "SPRING WIREFRAME"},
      {"tension-0", "TENSION END 0"},
      {"tension-1", "TENSION END 1"},
      {"tension-2", "TENSION END 2"},
      {"tension-3", "TENSION END 3"},
      {"tension-schematic-0", "TENSION LINES 0"},
      {"tension-schematic-1", "TENSION LINES 1"},
      {"tension-schematic-2", "TENSION LINES 2"},
      {"tension-schematic-3", "TENSION LINES 3"},
  };
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
