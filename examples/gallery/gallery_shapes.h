// The shapes of one gallery cell, built for a chosen place in the world.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "gallery_layout.h"

class CGLObject;

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

// The shapes of the entry called name, centred on centre in the z = 0 plane and scaled by scale.
// Empty for an unknown name.
std::vector<PlacedShape> buildShapes(const std::string& name, Point2 centre, double scale);

}  // namespace gallery
