#include "shape_info.h"

#include <lumagrid/lumagrid.h>

#include <ostream>
#include <sstream>

namespace viewer {
namespace {

// The parameters are protected members without getters. Each class here is derived for the
// purpose: inside it, &Class::m_member is a pointer to the base class's member, which reads any
// object of the base class. No object is ever treated as one of these types.

struct CylinderText : CGLCylinder {
  static void write(std::ostream& o, CGLCylinder& c) {
    o << (dynamic_cast<CGLCone*>(&c) != nullptr ? "CGLCone" : "CGLCylinder") << " base "
      << c.*&CylinderText::m_dBaseRadius << " top " << c.*&CylinderText::m_dTopRadius << " height "
      << c.*&CylinderText::m_dHeight << (c.*&CylinderText::m_bClosed ? " closed" : " open");
  }
};

struct ArrowText : CGLArrow {
  static void write(std::ostream& o, CGLArrow& a) {
    o << "CGLArrow length " << a.*&ArrowText::m_dLength << " radius " << a.*&ArrowText::m_dRadius
      << " heads " << a.*&ArrowText::m_nArrowNum << (a.*&ArrowText::m_bLite ? " lite" : "");
  }
};

struct AxisText : CGLAxis {
  static void write(std::ostream& o, CGLAxis& x) {
    o << "CGLAxis length " << x.*&AxisText::m_dLength << " radius " << x.*&AxisText::m_dRadius
      << (x.*&AxisText::m_bLite ? " lite" : "");
  }
};

struct PolylineText : CGLPolyline {
  static void write(std::ostream& o, CGLPolyline& p) {
    o << "CGLPolyline vertices " << (p.*&PolylineText::m_aVertex).size();
  }
};

struct BeltText : CGLBelt {
  static void write(std::ostream& o, CGLBelt& b) {
    // SetBType's 1, 2, 4 and 8 are kept as the codes 8, 4, 2 and 1; anything else is 16.
    const int code = b.*&BeltText::m_nBType;
    o << "CGLBelt r1 " << b.*&BeltText::m_dRadius1 << " r2 " << b.*&BeltText::m_dRadius2
      << " entraxe " << b.*&BeltText::m_dEntraxe;
    if (code == 1 || code == 2 || code == 4 || code == 8) {
      o << " type " << 8 / code;
    } else {
      o << " full";
    }
  }
};

struct SpringText : CGLSpring {
  static int shadedMode(CGLSpring& s) { return s.*&SpringText::m_bShaded; }

  static void write(std::ostream& o, CGLSpring& s) {
    unsigned unused = 0;
    const unsigned type = s.GetType(unused);
    const unsigned ends = s.GetType2(unused);
    o << "CGLSpring " << (type == 0 ? "compression" : "tension") << " wire "
      << s.*&SpringText::m_dWireRadius << " coil " << s.*&SpringText::m_dRadius << " length "
      << s.*&SpringText::m_dLength << " turns " << s.*&SpringText::m_nTurns << " ends "
      << (ends & 7u)
      << ((ends & 8u) != 0 ? " schematic" : (shadedMode(s) != 0 ? "" : " wireframe"));
  }
};

}  // namespace

int springShadedMode(CGLSpring& spring) {
  return SpringText::shadedMode(spring);
}

std::string describeShape(CGLObject& shape) {
  std::ostringstream o;
  if (auto* s = dynamic_cast<CGLSphere*>(&shape)) {
    o << "CGLSphere radius " << s->Radius();
  } else if (auto* c = dynamic_cast<CGLCylinder*>(&shape)) {
    CylinderText::write(o, *c);
  } else if (auto* t = dynamic_cast<CGLTorus*>(&shape)) {
    o << "CGLTorus tube " << t->innerRadius() << " ring " << t->outerRadius() << " start "
      << t->startAngle() << " sweep " << t->sweepAngle();
  } else if (auto* a = dynamic_cast<CGLArrow*>(&shape)) {
    ArrowText::write(o, *a);
  } else if (auto* x = dynamic_cast<CGLAxis*>(&shape)) {
    AxisText::write(o, *x);
  } else if (auto* p = dynamic_cast<CGLPolyline*>(&shape)) {
    PolylineText::write(o, *p);
  } else if (auto* b = dynamic_cast<CGLBelt*>(&shape)) {
    BeltText::write(o, *b);
  } else if (auto* sp = dynamic_cast<CGLSpring*>(&shape)) {
    SpringText::write(o, *sp);
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
