#include "mesh/shape_kind.h"

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLBelt.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLPolyline.h>
#include <lumagrid/CGLSphere.h>
#include <lumagrid/CGLSpring.h>
#include <lumagrid/CGLTorus.h>

#include <typeinfo>

#include "shapes/quadric/CGLCube.h"

namespace lumagrid::detail {

ShapeKind KindOf(const CGLObject& shape) {
  const std::type_info& type = typeid(shape);
  if (type == typeid(CGLSphere)) {
    return ShapeKind::Sphere;
  }
  if (type == typeid(CGLCylinder) || type == typeid(CGLCone)) {
    return ShapeKind::Cylinder;
  }
  if (type == typeid(CGLArrow)) {
    return ShapeKind::Arrow;
  }
  if (type == typeid(CGLTorus)) {
    return ShapeKind::Torus;
  }
  if (type == typeid(CGLBox) || type == typeid(CGLCube)) {
    return ShapeKind::Box;
  }
  if (type == typeid(CGLGroup) || type == typeid(CGLAxis)) {
    return ShapeKind::Group;
  }
  if (type == typeid(CGLPolyline)) {
    return ShapeKind::Polyline;
  }
  if (type == typeid(CGLBelt)) {
    return ShapeKind::Belt;
  }
  if (type == typeid(CGLSpring)) {
    return ShapeKind::Spring;
  }
  return ShapeKind::Unknown;
}

}  // namespace lumagrid::detail
