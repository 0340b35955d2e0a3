#include "shape_info.h"

#include <lumagrid/lumagrid.h>

#include <sstream>

namespace viewer {
namespace {

// The parameters are protected members without getters. Classes derived for the purpose name
// them, and the member pointers they give read any object of the base class; no object is ever
// treated as one of these types.
struct CylinderFields : CGLCylinder {
  static constexpr double CGLCylinder::*kBase = &CylinderFields::m_dBaseRadius;
  static constexpr double CGLCylinder::*kTop = &CylinderFields::m_dTopRadius;
  static constexpr double CGLCylinder::*kHeight = &CylinderFields::m_dHeight;
  static constexpr bool CGLCylinder::*kClosed = &CylinderFields::m_bClosed;
};

struct ArrowFields : CGLArrow {
  static constexpr double CGLArrow::*kLength = &ArrowFields::m_dLength;
  static constexpr double CGLArrow::*kRadius = &ArrowFields::m_dRadius;
  static constexpr int CGLArrow::*kHeads = &ArrowFields::m_nArrowNum;
  static constexpr bool CGLArrow::*kLite = &ArrowFields::m_bLite;
};

struct AxisFields : CGLAxis {
  static constexpr double CGLAxis::*kLength = &AxisFields::m_dLength;
  static constexpr double CGLAxis::*kRadius = &AxisFields::m_dRadius;
  static constexpr bool CGLAxis::*kLite = &AxisFields::m_bLite;
};

struct PolylineFields : CGLPolyline {
  static constexpr std::vector<CGLPoint*> CGLPolyline::*kVertices = &PolylineFields::m_aVertex;
};

struct BeltFields : CGLBelt {
  static constexpr double CGLBelt::*kR1 = &BeltFields::m_dRadius1;
  static constexpr double CGLBelt::*kR2 = &BeltFields::m_dRadius2;
  static constexpr double CGLBelt::*kEntraxe = &BeltFields::m_dEntraxe;
  static constexpr unsigned char CGLBelt::*kType = &BeltFields::m_nBType;
};

struct SpringFields : CGLSpring {
  static constexpr double CGLSpring::*kWire = &SpringFields::m_dWireRadius;
  static constexpr double CGLSpring::*kCoil = &SpringFields::m_dRadius;
  static constexpr double CGLSpring::*kLength = &SpringFields::m_dLength;
  static constexpr int CGLSpring::*kTurns = &SpringFields::m_nTurns;
  static constexpr int CGLSpring::*kShaded = &SpringFields::m_bShaded;
};

std::string describeSpring(CGLSpring& s) {
  unsigned unused = 0;
  const unsigned type = s.GetType(unused);
  const unsigned ends = s.GetType2(unused);
  std::ostringstream o;
  o << "CGLSpring " << (type == 0 ? "compression" : "tension") << " wire " << s.*SpringFields::kWire
    << " coil " << s.*SpringFields::kCoil << " length " << s.*SpringFields::kLength << " turns "
    << s.*SpringFields::kTurns << " ends " << (ends & 7u)
    << ((ends & 8u) != 0 ? " schematic" : (s.*SpringFields::kShaded != 0 ? "" : " wireframe"));
  return o.str();
}

}  // namespace

int springShadedMode(CGLSpring& spring) {
  return spring.*SpringFields::kShaded;
}

std::string describeShape(CGLObject& shape) {
  std::ostringstream o;
  if (auto* s = dynamic_cast<CGLSphere*>(&shape)) {
    o << "CGLSphere radius " << s->Radius();
  } else if (auto* c = dynamic_cast<CGLCylinder*>(&shape)) {
    o << (dynamic_cast<CGLCone*>(c) != nullptr ? "CGLCone" : "CGLCylinder") << " base "
      << c->*CylinderFields::kBase << " top " << c->*CylinderFields::kTop << " height "
      << c->*CylinderFields::kHeight << (c->*CylinderFields::kClosed ? " closed" : " open");
  } else if (auto* t = dynamic_cast<CGLTorus*>(&shape)) {
    o << "CGLTorus tube " << t->innerRadius() << " ring " << t->outerRadius() << " start "
      << t->startAngle() << " sweep " << t->sweepAngle();
  } else if (auto* a = dynamic_cast<CGLArrow*>(&shape)) {
    o << "CGLArrow length " << a->*ArrowFields::kLength << " radius " << a->*ArrowFields::kRadius
      << " heads " << a->*ArrowFields::kHeads << (a->*ArrowFields::kLite ? " lite" : "");
  } else if (auto* x = dynamic_cast<CGLAxis*>(&shape)) {
    o << "CGLAxis length " << x->*AxisFields::kLength << " radius " << x->*AxisFields::kRadius
      << (x->*AxisFields::kLite ? " lite" : "");
  } else if (auto* p = dynamic_cast<CGLPolyline*>(&shape)) {
    o << "CGLPolyline vertices " << (p->*PolylineFields::kVertices).size();
  } else if (auto* b = dynamic_cast<CGLBelt*>(&shape)) {
    // SetBType's 1, 2, 4 and 8 are kept as the codes 8, 4, 2 and 1; anything else is 16.
    const int code = b->*BeltFields::kType;
    o << "CGLBelt r1 " << b->*BeltFields::kR1 << " r2 " << b->*BeltFields::kR2 << " entraxe "
      << b->*BeltFields::kEntraxe;
    if (code == 1 || code == 2 || code == 4 || code == 8) {
      o << " type " << 8 / code;
    } else {
      o << " full";
    }
  } else if (auto* sp = dynamic_cast<CGLSpring*>(&shape)) {
    o << describeSpring(*sp);
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

}  // namespace viewer
