#include "gallery_catalog.h"

#include "gallery_shapes.h"

namespace gallery {

const char* const kSelectedEntry = "torus-selected";
const char* const kTranslucentEntry = "sphere-alpha";
const char* const kLiteArrowEntry = "arrow-lite";
const Rgb8 kHighlight = {0, 255, 0};
const Rgb8 kBackground = {28, 31, 38};

namespace {

// The variants as builders of their own, so that the table lists only names.
template <bool kClosed>
void cylinderOf(Cell& cell) {
  cylinder(cell, kClosed);
}

template <int kHeads, bool kLite>
void arrowOf(Cell& cell) {
  arrow(cell, kHeads, kLite);
}

template <unsigned char kType>
void beltOf(Cell& cell) {
  belt(cell, kType);
}

// A shaded spring: compression (type 0) or tension (1), with SetType2's ends.
template <unsigned kType, unsigned kType2, Layer kLayer>
void springOf(Cell& cell) {
  spring(cell, kType, kType2, true, kLayer);
}

}  // namespace

const std::vector<Entry>& catalog() {
  static const std::vector<Entry> entries = {
      {"sphere-alpha", "SPHERE ALPHA", translucentSphere},
      {"cylinder-open", "CYLINDER OPEN", cylinderOf<false>},
      {"cylinder-closed", "CYLINDER CLOSED", cylinderOf<true>},
      {"cone-pointed", "CONE POINTED", pointedCone},
      {"cone-truncated", "CONE TRUNCATED", truncatedCone},
      {"torus-selected", "TORUS SELECTED", selectedTorus},
      {"torus-180", "TORUS 180", halfTorus},
      {"arrow-1-head", "ARROW 1 HEAD", arrowOf<1, false>},
      {"arrow-2-heads", "ARROW 2 HEADS", arrowOf<2, false>},
      {"arrow-3-heads", "ARROW 3 HEADS", arrowOf<3, false>},
      {"arrow-lite", "ARROW LITE", arrowOf<1, true>},
      {"axis-triad", "AXIS TRIAD", axisTriad},
      {"polyline", "POLYLINE", star},
      {"belt-full", "BELT FULL", beltOf<16>},
      {"belt-type-1", "BELT TYPE 1", beltOf<1>},
      {"belt-type-2", "BELT TYPE 2", beltOf<2>},
      {"belt-type-4", "BELT TYPE 4", beltOf<4>},
      {"belt-type-8", "BELT TYPE 8", beltOf<8>},
      {"spring-open", "SPRING OPEN", springOf<0, 0, Layer::Lit>},
      {"spring-closed", "SPRING CLOSED", springOf<0, 1, Layer::Lit>},
      {"spring-schematic", "SPRING SCHEMATIC", springOf<0, 8, Layer::Flat>},
      {"spring-wireframe", "SPRING WIREFRAME", wireframeSpring},
      {"tension-end-0", "TENSION END 0", springOf<1, 0, Layer::Lit>},
      {"tension-end-1", "TENSION END 1", springOf<1, 1, Layer::Lit>},
      {"tension-end-2", "TENSION END 2", springOf<1, 2, Layer::Lit>},
      {"tension-end-3", "TENSION END 3", springOf<1, 3, Layer::Lit>},
      {"tension-lines-0", "TENSION LINES 0", springOf<1, 8, Layer::Flat>},
      {"tension-lines-1", "TENSION LINES 1", springOf<1, 9, Layer::Flat>},
      {"tension-lines-2", "TENSION LINES 2", springOf<1, 10, Layer::Flat>},
      {"tension-lines-3", "TENSION LINES 3", springOf<1, 11, Layer::Flat>},
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
