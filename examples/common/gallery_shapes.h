// The shapes of one gallery cell, built for a chosen place in the world, and the builders the
// catalogue's entries call.
#pragma once

#include <lumagrid/CGLObject.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "gallery_layout.h"

class CGLSpring;

namespace gallery {

// How a shape is drawn: lit solids; lit wireframes, after the solids (a wireframe spring leaves
// GLE drawing tubes as lines for every GLE list built after its own); line shapes, shown in their
// flat colour; and translucent shapes, drawn last over the rest.
enum class Layer { Lit, Wire, Flat, Translucent };

struct PlacedShape {
  std::unique_ptr<CGLObject> shape;
  Layer layer;
  // Holds a group (an axis triad): its draw pops once more than it pushes.
  bool popsExtra;
};

// Collects a cell's shapes, each placed at the cell first so that its own transforms follow in
// its local frame (Move after Rotate moves along the rotated axes).
class Cell {
 public:
  Cell(Point2 centre, double scale) : centre_(centre), scale_(scale) {}

  template <class Shape>
  Shape* add(Shape* shape, Layer layer = Layer::Lit, bool popsExtra = false) {
    place(*shape);
    shapes_.push_back({std::unique_ptr<CGLObject>(shape), layer, popsExtra});
    return shape;
  }

  std::vector<PlacedShape> take() { return std::move(shapes_); }

 private:
  void place(CGLObject& shape) const;

  Point2 centre_;
  double scale_;
  std::vector<PlacedShape> shapes_;
};

// The shapes of catalog()[entry], centred on centre in the z = 0 plane and scaled by scale.
std::vector<PlacedShape> buildShapes(std::size_t entry, Point2 centre, double scale);

// Builders, one per kind of cell.
void translucentSphere(Cell& cell);
void cylinder(Cell& cell, bool closed);
void pointedCone(Cell& cell);
void truncatedCone(Cell& cell);
void selectedTorus(Cell& cell);
void halfTorus(Cell& cell);
void arrow(Cell& cell, int heads, bool lite);
void axisTriad(Cell& cell);
void star(Cell& cell);
void belt(Cell& cell, unsigned char type);
// A compression (type 0) or tension (1) spring with SetType2's ends, shaded or as a wireframe.
CGLSpring* spring(Cell& cell, unsigned type, unsigned type2, bool shaded, Layer layer);
void wireframeSpring(Cell& cell);

}  // namespace gallery
