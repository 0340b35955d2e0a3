#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/ShapeDescription.h>

#include <ostream>
#include <sstream>

#include "mesh/shape_fields.h"

namespace lumagrid {
namespace {

using detail::ArrowFields;
using detail::AxisFields;
using detail::BeltFields;
using detail::BoxFields;
using detail::CylinderFields;
using detail::PolylineFields;
using detail::SpringFields;

void WriteCylinder(std::ostream& o, const CGLCylinder& c) {
  o << (dynamic_cast<const CGLCone*>(&c) != nullptr ? "CGLCone" : "CGLCylinder") << " base "
    << CylinderFields::dBaseRadius(c) << " top " << CylinderFields::dTopRadius(c) << " height "
    << CylinderFields::dHeight(c) << (CylinderFields::bClosed(c) ? " closed" : " open");
}

void WriteArrow(std::ostream& o, const CGLArrow& a) {
  o << "CGLArrow length " << ArrowFields::dLength(a) << " radius " << ArrowFields::dRadius(a)
    << " heads " << ArrowFields::nArrowNum(a) << (ArrowFields::bLite(a) ? " lite" : "");
}

void WriteAxis(std::ostream& o, const CGLAxis& x) {
  o << "CGLAxis length " << AxisFields::dLength(x) << " radius " << AxisFields::dRadius(x)
    << (AxisFields::bLite(x) ? " lite" : "");
}

void WriteBelt(std::ostream& o, const CGLBelt& b) {
  // SetBType's 1, 2, 4 and 8 are kept as the codes 8, 4, 2 and 1; anything else is 16.
  const int code = BeltFields::nBType(b);
  o << "CGLBelt r1 " << BeltFields::dRadius1(b) << " r2 " << BeltFields::dRadius2(b) << " entraxe "
    << BeltFields::dEntraxe(b);
  if (code == 1 || code == 2 || code == 4 || code == 8) {
    o << " type " << 8 / code;
  } else {
    o << " full";
  }
}

void WriteSpring(std::ostream& o, CGLSpring& s) {
  unsigned unused = 0;
  const unsigned type = s.GetType(unused);
  const unsigned ends = s.GetType2(unused);
  o << "CGLSpring " << (type == 0 ? "compression" : "tension") << " wire "
    << SpringFields::dWireRadius(s) << " coil " << SpringFields::dRadius(s) << " length "
    << SpringFields::dLength(s) << " turns " << SpringFields::nTurns(s) << " ends " << (ends & 7u)
    << ((ends & 8u) != 0 ? " schematic" : (SpringFields::bShaded(s) != 0 ? "" : " wireframe"));
}

}  // namespace

std::string DescribeShape(CGLObject& shape) {
  std::ostringstream o;
  if (auto* s = dynamic_cast<CGLSphere*>(&shape)) {
    o << "CGLSphere radius " << s->Radius();
  } else if (auto* c = dynamic_cast<CGLCylinder*>(&shape)) {
    WriteCylinder(o, *c);
  } else if (auto* t = dynamic_cast<CGLTorus*>(&shape)) {
    o << "CGLTorus tube " << t->innerRadius() << " ring " << t->outerRadius() << " start "
      << t->startAngle() << " sweep " << t->sweepAngle();
  } else if (auto* a = dynamic_cast<CGLArrow*>(&shape)) {
    WriteArrow(o, *a);
  } else if (auto* x = dynamic_cast<CGLAxis*>(&shape)) {
    WriteAxis(o, *x);
  } else if (auto* box = dynamic_cast<CGLBox*>(&shape)) {
    o << "CGLBox size " << BoxFields::dSizeX(*box) << ' ' << BoxFields::dSizeY(*box) << ' '
      << BoxFields::dSizeZ(*box);
  } else if (auto* p = dynamic_cast<CGLPolyline*>(&shape)) {
    o << "CGLPolyline vertices " << PolylineFields::aVertex(*p).size();
  } else if (auto* b = dynamic_cast<CGLBelt*>(&shape)) {
    WriteBelt(o, *b);
  } else if (auto* sp = dynamic_cast<CGLSpring*>(&shape)) {
    WriteSpring(o, *sp);
  } else if (dynamic_cast<CGLGroup*>(&shape) != nullptr) {
    o << "CGLGroup";
  } else {
    o << "CGLObject";
  }
  if (shape.AlphaGet() < 1.0) {
    o << " alpha " << shape.AlphaGet();
  }
  return o.str();
}

}  // namespace lumagrid
