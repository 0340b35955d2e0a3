#include "gallery_shapes.h"

#include <lumagrid/lumagrid.h>

#include <cmath>

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

// Shaft plus heads: the extra heads lengthen the arrow by half a head each.
double arrowLength(double length, double fracLength, int heads) {
  const double shaft = length * fracLength;
  const double head = (1.0 - fracLength) * length;
  return shaft + (heads + 1) * head / 2;
}

}  // namespace

void cylinder(Cell& cell, bool closed) {
  auto* c = cell.add(new CGLCylinder(0.6, 1.5, closed));
  c->ColorSet(kOrange);
  standUp(c, 1.5);
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

// A five-pointed star drawn in one stroke, back to its first point.
void star(Cell& cell) {
  auto* p = cell.add(new CGLPolyline, Layer::Flat);
  for (int i = 0; i <= 5; ++i) {
    const double a = kPi / 2 + i * 4 * kPi / 5;
    p->AddVertex(1.05 * std::cos(a), 1.05 * std::sin(a) - 0.1, 0.0);
  }
  p->ColorSet(kPink);
}

void translucentSphere(Cell& cell) {
  auto* s = cell.add(new CGLSphere(0.95), Layer::Translucent);
  s->ColorSet(kBlue);
  s->AlphaSet(0.45);
  // An opaque rod through it, to show the blending.
  auto* rod = cell.add(new CGLCylinder(0.12, 2.3, true));
  rod->ColorSet(kGold);
  rod->Rotate(0.0, 1.4, 0.3);
  rod->Move(0.0, 0.0, -1.15);
}

void pointedCone(Cell& cell) {
  auto* k = cell.add(new CGLCone(0.75, 1.6, true));
  k->ColorSet(kSteel);
  standUp(k, 1.6);
}

void truncatedCone(Cell& cell) {
  auto* k = cell.add(new CGLCone(0.75, 0.4, 1.4, true));
  k->ColorSet(kSteel);
  standUp(k, 1.4);
}

void selectedTorus(Cell& cell) {
  // Angles of the torus are in degrees.
  auto* t = cell.add(new CGLTorus(0.28, 0.8, 0.0, 360.0));
  t->ColorSet(kRed);
  t->Rotate(-0.9, 0.0, 0.0);
  t->Select(true);
}

void halfTorus(Cell& cell) {
  auto* t = cell.add(new CGLTorus(0.28, 0.8, 0.0, 180.0));
  t->ColorSet(kRed);
  t->Rotate(-0.5, 0.0, 0.0);
  t->Move(0.0, -0.35, 0.0);
}

void axisTriad(Cell& cell) {
  auto* a = cell.add(new CGLAxis(1.1, 0.12, false), Layer::Lit, true);
  a->ColorSet(kGold);
  a->Rotate(0.45, -0.6, 0.0);
  a->Move(-0.45, -0.45, -0.45);
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

void wireframeSpring(Cell& cell) {
  // Fewer, thicker sides, so that the wires show.
  spring(cell, 0, 0, false, Layer::Wire)->SetQuality(12);
}

void Cell::place(CGLObject& shape) const {
  // MoveTo, not Move: the relative Move skips (1, 1, 1), its no-op value.
  shape.MoveTo(centre_.x, centre_.y, 0.0);
  shape.Scale(scale_);
}

std::vector<PlacedShape> buildShapes(std::size_t entry, Point2 centre, double scale) {
  Cell cell(centre, scale);
  catalog().at(entry).build(cell);
  return cell.take();
}

}  // namespace gallery
