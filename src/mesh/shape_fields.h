#ifndef LUMAGRID_SRC_MESH_SHAPE_FIELDS_H
#define LUMAGRID_SRC_MESH_SHAPE_FIELDS_H

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLBelt.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLPolyline.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/CGLSphere.h>
#include <lumagrid/CGLSpring.h>
#include <lumagrid/CGLTorus.h>

#include "shapes/quadric/CGLBox.h"

// Read access to the shapes' protected data for the mesh layer, which reads exactly what the
// shapes' lists are built from. Each reader derives from its class only to name the members;
// it is never instantiated, and the legacy classes keep their interfaces as they are.
namespace lumagrid::detail {

#define LUMAGRID_FIELD(Class, Type, member) \
  static Type member(const Class& o) {      \
    return o.*(&Reader::m_##member);        \
  }

struct ObjectFields : CGLObject {
  using Reader = ObjectFields;
  LUMAGRID_FIELD(CGLObject, const mat4x4&, matrix)
  LUMAGRID_FIELD(CGLObject, bool, bVisible)
  LUMAGRID_FIELD(CGLObject, int, nSlices)
  LUMAGRID_FIELD(CGLObject, int, nStacks)
};

struct CylinderFields : CGLCylinder {
  using Reader = CylinderFields;
  LUMAGRID_FIELD(CGLCylinder, double, dBaseRadius)
  LUMAGRID_FIELD(CGLCylinder, double, dTopRadius)
  LUMAGRID_FIELD(CGLCylinder, double, dHeight)
  LUMAGRID_FIELD(CGLCylinder, bool, bClosed)
};

struct ArrowFields : CGLArrow {
  using Reader = ArrowFields;
  LUMAGRID_FIELD(CGLArrow, bool, bLite)
  LUMAGRID_FIELD(CGLArrow, double, dLength)
  LUMAGRID_FIELD(CGLArrow, double, dRadius)
  LUMAGRID_FIELD(CGLArrow, double, dFracLength)
  LUMAGRID_FIELD(CGLArrow, double, dFracRadius)
  LUMAGRID_FIELD(CGLArrow, int, nArrowNum)
};

struct AxisFields : CGLAxis {
  using Reader = AxisFields;
  LUMAGRID_FIELD(CGLAxis, bool, bLite)
  LUMAGRID_FIELD(CGLAxis, double, dLength)
  LUMAGRID_FIELD(CGLAxis, double, dRadius)
};

struct TorusFields : CGLTorus {
  using Reader = TorusFields;
  LUMAGRID_FIELD(CGLTorus, double, dInnerRadius)
  LUMAGRID_FIELD(CGLTorus, double, dOuterRadius)
  LUMAGRID_FIELD(CGLTorus, double, dStartAngle)
  LUMAGRID_FIELD(CGLTorus, double, dSweepAngle)
};

struct BoxFields : CGLBox {
  using Reader = BoxFields;
  LUMAGRID_FIELD(CGLBox, double, dSizeX)
  LUMAGRID_FIELD(CGLBox, double, dSizeY)
  LUMAGRID_FIELD(CGLBox, double, dSizeZ)
};

struct PolylineFields : CGLPolyline {
  using Reader = PolylineFields;
  LUMAGRID_FIELD(CGLPolyline, const std::vector<CGLPoint*>&, aVertex)
};

struct BeltFields : CGLBelt {
  using Reader = BeltFields;
  LUMAGRID_FIELD(CGLBelt, int, nQuality)
  LUMAGRID_FIELD(CGLBelt, double, dRadius1)
  LUMAGRID_FIELD(CGLBelt, double, dRadius2)
  LUMAGRID_FIELD(CGLBelt, double, dEntraxe)
  LUMAGRID_FIELD(CGLBelt, unsigned char, nBType)
};

struct SpringFields : CGLSpring {
  using Reader = SpringFields;
  LUMAGRID_FIELD(CGLSpring, int, bShaded)
  LUMAGRID_FIELD(CGLSpring, int, nQuality)
  LUMAGRID_FIELD(CGLSpring, unsigned int, nType)
  LUMAGRID_FIELD(CGLSpring, unsigned int, nType2)
  LUMAGRID_FIELD(CGLSpring, double, dWireRadius)
  LUMAGRID_FIELD(CGLSpring, double, dRadius)
  LUMAGRID_FIELD(CGLSpring, double, dLength)
  LUMAGRID_FIELD(CGLSpring, double, dStartAngle)
  LUMAGRID_FIELD(CGLSpring, int, nTurns)
};

struct GroupFields : CGLGroup {
  using Reader = GroupFields;
  LUMAGRID_FIELD(CGLGroup, const std::vector<CGLObject*>&, arrObjects)
};

struct SceneFields : CGLScene {
  using Reader = SceneFields;
  LUMAGRID_FIELD(CGLScene, int, bShowShapes)
  LUMAGRID_FIELD(CGLScene, CGLShapeMap*, mapShapes)
};

#undef LUMAGRID_FIELD

}  // namespace lumagrid::detail

#endif
