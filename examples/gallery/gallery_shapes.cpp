#include "gallery_shapes.h"

#include <lumagrid/lumagrid.h>

#include <cmath>
#include <functional>
#include <map>

#include "gallery_catalog.h"

namespace gallery {
namespace {

constexpr double kPi = 3.14159265358979323846;

// Colours in the library's 0xBBGGRR layout. None is green: green is the highlight colour.
constexpr unsigned long kRed = 0x3040E0ul;
constexpr unsigned long kOrange = 0x2090F0ul;
constexpr unsigned long kBlue = 0xE08040ul;
constexpr unsigned long kSky = 0xF0C060ul;
constexpr unsigned long kViolet = 0xD050A0ul;
constexpr unsigned long kPink = 0xA070F0ul;
constexpr unsigned long kSteel = 0xB8B0A8ul;
constexpr unsigned long kPulley = 0x605850ul;

// Collects a cell's shapes, each placed at the cell first so that its own transforms follow in
// its local frame (Move after Rotate moves along the rotated axes).
class Cell {
 public:
  Cell(Point2 centre, double scale) : centre_(centre), scale_(scale) {}

  template <class Shape>
  Shape* add(Shape* shape, Layer layer = Layer::Lit, bool popsExtra = false) {
    // MoveTo, not Move: the relative Move skips (1, 1, 1), its no-op value.
    shape->MoveTo(centre_.x, centre_.y, 0.0);
    shape->Scale(scale_);
    shapes_.push_back({std::unique_ptr<CGLObject>(shape), layer, popsExtra});
    return shape;
  }

  std::vector<PlacedShape> take() { return std::move(shapes_); }

 private:
  Point2 centre_;
  double scale_;
  std::vector<PlacedShape> shapes_;
};

// Axis z leaning back from the viewer so that the top shows. Angles in radians.
void standUp(CGLObject* shape, double height) {
  shape->Rotate(-1.15, 0.0, 0.0);
  shape->Move(0.0, 0.0, -height / 2);
}

// Axis z pointing up and to the right.
void pointUpRight(CGLObject* shape, double length) {
  shape->Rotate(-1.2, 0.75, 0.0);
  shape->Move(0.0, 0.0, -length / 2);
}

// Axis z roughly up, a little towards the viewer: the coils show as ellipses.
void springUp(CGLObject* shape, double length) {
  shape->Rotate(-1.4, 0.0, 0.0);
  shape->Move(0.0, 0.0, -length / 2);
}

void cylinder(Cell& cell, bool closed) {
  auto* c = cell.add(new CGLCylinder(0.6, 1.5, closed));
  c->ColorSet(kOrange);
  standUp(c, 1.5);
}

// Shaft plus heads: the extra heads lengthen the arrow by half a head each.
double arrowLength(double length, double fracLength, int heads) {
  const double shaft = length * fracLength;
  const double head = (1.0 - fracLength) * length;
  return shaft + (heads + 1) * head / 2;
}

void arrow(Cell& cell, int heads, bool lite) {
  const double length = 1.7;
  const double frac = 0.7;
  // A lite arrow's line shaft has no normal of its own: lit, it would take the normal of
  // whichever shape the scene drew before it, and that order follows heap addresses.
  auto* a =
      cell.add(new CGLArrow(length, 0.3, lite, heads, frac, 0.4), lite ? Layer::Flat : Layer::Lit);
  a->ColorSet(lite ? kGold : kRed);
  pointUpRight(a, arrowLength(length, frac, heads));
}

// The belt's outline with its two pulleys as dark disks behind it.
void belt(Cell& cell, unsigned char type) {
  const double r1 = 0.6;
  const double r2 = 0.35;
  const double entraxe = 1.45;
  const double shift = -(entraxe + r2 - r1) / 2;
  for (int i = 0; i < 2; ++i) {
    auto* pulley = cell.add(new CGLCylinder(i == 0 ? r1 : r2, 0.05, true));
    pulley->ColorSet(kPulley);
    pulley->Move(shift + (i == 0 ? 0.0 : entraxe), 0.0, -0.1);
  }
  auto* b = cell.add(new CGLBelt(r1, r2, entraxe), Layer::Flat);
  b->SetBType(type);
  b->ColorSet(kGold);
  b->Move(shift, 0.0, 0.0);
}

CGLSpring* spring(Cell& cell, unsigned type, unsigned type2, bool shaded, Layer layer) {
  // A tension spring's hooks reach one coil radius beyond each end.
  const double length = type == 0 ? 1.9 : 1.7;
  const double wire = shaded ? 0.06 : 0.1;
  auto* s = cell.add(
      new CGLSpring(wire, type == 0 ? 0.5 : 0.3, 1.0, length, type == 0 ? 5 : 6, 0.0), layer);
  s->SetType(type);
  s->SetType2(type2);
  s->SetShadedMode(shaded ? 1 : 0);
  s->ColorSet(type == 0 ? kSky : kViolet);
  springUp(s, length);
  return s;
}

void polyline(Cell& cell) {
  auto* p = cell.add(new CGLPolyline, Layer::Flat);
  // A five-pointed star drawn in one stroke, back to its first point.
  for (int i = 0; i <= 5; ++i) {
    const double a = kPi / 2 + i * 4 * kPi / 5;
    p->AddVertex(1.05 * std::cos(a), 1.05 * std::sin(a) - 0.1, 0.0);
  }
  p->ColorSet(kPink);
}

using Builder = std::function<void(Cell&)>;

const std::map<std::string, Builder>& builders() {
  static const std::map<std::string, Builder> table = {
      {"sphere-alpha",
       [](Cell& c) {
         auto* s = c.add(new CGLSphere(0.95), Layer::Translucent);
         s->ColorSet(kBlue);
         s->AlphaSet(0.45);
         // An opaque rod through it, to show the blending.
         auto* rod = c.add(new CGLCylinder(0.12, 2.3, true));
         rod->ColorSet(kGold);
         rod->Rotate(0.0, 1.4, 0.3);
         rod->Move(0.0, 0.0, -1.15);
       }},
      {"cylinder-open", [](Cell& c) { cylinder(c, false); }},
      {"cylinder-closed", [](Cell& c) { cylinder(c, true); }},
      {"cone-pointed",
       [](Cell& c) {
         auto* k = c.add(new CGLCone(0.75, 1.6, true));
         k->ColorSet(kSteel);
         standUp(k, 1.6);
       }},
      {"cone-truncated",
       [](Cell& c) {
         auto* k = c.add(new CGLCone(0.75, 0.4, 1.4, true));
         k->ColorSet(kSteel);
         standUp(k, 1.4);
       }},
      {"torus-selected",
       [](Cell& c) {
         // Angles of the torus are in degrees.
         auto* t = c.add(new CGLTorus(0.28, 0.8, 0.0, 360.0));
         t->ColorSet(kRed);
         t->Rotate(-0.9, 0.0, 0.0);
         t->Select(true);
       }},
      {"torus-180",
       [](Cell& c) {
         auto* t = c.add(new CGLTorus(0.28, 0.8, 0.0, 180.0));
         t->ColorSet(kRed);
         t->Rotate(-0.5, 0.0, 0.0);
         t->Move(0.0, -0.35, 0.0);
       }},
      {"arrow-1-head", [](Cell& c) { arrow(c, 1, false); }},
      {"arrow-2-heads", [](Cell& c) { arrow(c, 2, false); }},
      {"arrow-3-heads", [](Cell& c) { arrow(c, 3, false); }},
      {"arrow-lite", [](Cell& c) { arrow(c, 1, true); }},
      {"axis-triad",
       [](Cell& c) {
         auto* a = c.add(new CGLAxis(1.1, 0.12, false), Layer::Lit, true);
         a->ColorSet(kGold);
         a->Rotate(0.45, -0.6, 0.0);
         a->Move(-0.45, -0.45, -0.45);
       }},
      {"polyline", polyline},
      {"belt-full", [](Cell& c) { belt(c, 16); }},
      {"belt-type-1", [](Cell& c) { belt(c, 1); }},
      {"belt-type-2", [](Cell& c) { belt(c, 2); }},
      {"belt-type-4", [](Cell& c) { belt(c, 4); }},
      {"belt-type-8", [](Cell& c) { belt(c, 8); }},
      {"spring-open", [](Cell& c) { spring(c, 0, 0, true, Layer::Lit); }},
      {"spring-closed", [](Cell& c) { spring(c, 0, 1, true, Layer::Lit); }},
      {"spring-schematic", [](Cell& c) { spring(c, 0, 8, true, Layer::Flat); }},
      {"spring-wireframe",
       [](Cell& c) {
         // Fewer, thicker sides, so that the wires show.
         spring(c, 0, 0, false, Layer::Wire)->SetQuality(12);
       }},
  };
  return table;
}

}  // namespace

std::vector<PlacedShape> buildShapes(const std::string& name, Point2 centre, double scale) {
  Cell cell(centre, scale);
  const std::string tension = "tension-end-";
  const std::string schematic = "tension-lines-";
  const auto found = builders().find(name);
  if (found != builders().end()) {
    found->second(cell);
  } else if (name.compare(0, schematic.size(), schematic) == 0 &&
             name.size() == schematic.size() + 1) {
    const unsigned end = static_cast<unsigned>(name.back() - '0');
    if (end <= 3) {
      spring(cell, 1, 8 + end, true, Layer::Flat);
    }
  } else if (name.compare(0, tension.size(), tension) == 0 && name.size() == tension.size() + 1) {
    const unsigned end = static_cast<unsigned>(name.back() - '0');
    if (end <= 3) {
      spring(cell, 1, end, true, Layer::Lit);
    }
  }
  return cell.take();
}

}  // namespace gallery
