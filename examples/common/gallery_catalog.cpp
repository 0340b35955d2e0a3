#include "gallery_catalog.h"

#include "gallery_shapes.h"

namespace gallery {

const char* const kSelectedEntry = "torus-selected";
const char* const kTranslucentEntry = "sphere-alpha";
const char* const kLiteArrowEntry = "arrow-lite";
const Rgb8 kHighlight = {0, 255, 0};
const Rgb8 kBackground = {28, 31, 38};

const std::vector<Entry>& catalog() {
  static const std::vector<Entry> entries = {
      {"sphere-alpha", "SPHERE ALPHA", translucentSphere},
      {"cylinder-open", "CYLINDER OPEN", [](Cell& c) { cylinder(c, false); }},
      {"cylinder-closed", "CYLINDER CLOSED", [](Cell& c) { cylinder(c, true); }},
      {"cone-pointed", "CONE POINTED", pointedCone},
      {"cone-truncated", "CONE TRUNCATED", truncatedCone},
      {"torus-selected", "TORUS SELECTED", selectedTorus},
      {"torus-180", "TORUS 180", halfTorus},
      {"arrow-1-head", "ARROW 1 HEAD", [](Cell& c) { arrow(c, 1, false); }},
      {"arrow-2-heads", "ARROW 2 HEADS", [](Cell& c) { arrow(c, 2, false); }},
      {"arrow-3-heads", "ARROW 3 HEADS", [](Cell& c) { arrow(c, 3, false); }},
      {"arrow-lite", "ARROW LITE", [](Cell& c) { arrow(c, 1, true); }},
      {"axis-triad", "AXIS TRIAD", axisTriad},
      {"polyline", "POLYLINE", star},
      {"belt-full", "BELT FULL", [](Cell& c) { belt(c, 16); }},
      {"belt-type-1", "BELT TYPE 1", [](Cell& c) { belt(c, 1); }},
      {"belt-type-2", "BELT TYPE 2", [](Cell& c) { belt(c, 2); }},
      {"belt-type-4", "BELT TYPE 4", [](Cell& c) { belt(c, 4); }},
      {"belt-type-8", "BELT TYPE 8", [](Cell& c) { belt(c, 8); }},
      {"spring-open", "SPRING OPEN", [](Cell& c) { compressionSpring(c, 0, Layer::Lit); }},
      {"spring-closed", "SPRING CLOSED", [](Cell& c) { compressionSpring(c, 1, Layer::Lit); }},
      {"spring-schematic", "SPRING SCHEMATIC",
       [](Cell& c) { compressionSpring(c, 8, Layer::Flat); }},
      {"spring-wireframe", "SPRING WIREFRAME", wireframeSpring},
      {"tension-end-0", "TENSION END 0", [](Cell& c) { tensionSpring(c, 0); }},
      {"tension-end-1", "TENSION END 1", [](Cell& c) { tensionSpring(c, 1); }},
      {"tension-end-2", "TENSION END 2", [](Cell& c) { tensionSpring(c, 2); }},
      {"tension-end-3", "TENSION END 3", [](Cell& c) { tensionSpring(c, 3); }},
      {"tension-lines-0", "TENSION LINES 0", [](Cell& c) { schematicTensionSpring(c, 0); }},
      {"tension-lines-1", "TENSION LINES 1", [](Cell& c) { schematicTensionSpring(c, 1); }},
      {"tension-lines-2", "TENSION LINES 2", [](Cell& c) { schematicTensionSpring(c, 2); }},
      {"tension-lines-3", "TENSION LINES 3", [](Cell& c) { schematicTensionSpring(c, 3); }},
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
