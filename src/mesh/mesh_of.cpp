#include <lumagrid/Mesh.h>

#include <vector>

#include "mesh/group_members.h"
#include "mesh/mesh_assembly.h"
#include "mesh/shape_fields.h"
#include "mesh/shape_kind.h"
#include "mesh/shape_meshes.h"
#include "shapes/path/belt_outline.h"
#include "shapes/quadric/torus_geometry.h"

namespace lumagrid {

namespace detail {

namespace {

using Path = OpenGroups;

void AddShape(MeshAssembly& mesh, CGLObject& shape, Path& groups);

// Members through their own matrices.
void AddGroup(MeshAssembly& mesh, const CGLGroup& group, Path& groups) {
  VisitVisibleMembers(group, groups, [&](CGLObject& member) {
    mesh.Push();
    mesh.MultMatrix(ObjectFields::matrix(member));
    AddShape(mesh, member, groups);
    mesh.Pop();
  });
}

void AddPolyline(MeshAssembly& mesh, const CGLPolyline& polyline) {
  std::vector<PathPoint> points;
  for (const CGLPoint* p : PolylineFields::aVertex(polyline)) {
    points.push_back({p->X(), p->Y(), p->Z()});
  }
  mesh.AddLineStrip(points);
}

void AddBelt(MeshAssembly& mesh, const CGLBelt& belt) {
  mesh.AddLineStrip(BuildBeltOutline(BeltFields::dRadius1(belt), BeltFields::dRadius2(belt),
                                     BeltFields::dEntraxe(belt), BeltFields::nQuality(belt),
                                     BeltFields::nBType(belt)));
}

void AddTorus(MeshAssembly& mesh, const CGLTorus& torus) {
  const TubeSettings settings = CurrentTubeSettings();
  const double start = TorusFields::dStartAngle(torus);
  const double sweep = TorusFields::dSweepAngle(torus);
  if (TorusSweepable(start, sweep, [&] { return settings.sides; })) {
    AddToroid(mesh,
              BuildTorusRing(TorusFields::dInnerRadius(torus), TorusFields::dOuterRadius(torus),
                             start, sweep),
              kTorusJoinStyle, settings);
  }
}

void AddSpringShape(MeshAssembly& mesh, const CGLSpring& spring) {
  const SpringCoil coil{SpringFields::dWireRadius(spring), SpringFields::dRadius(spring),
                        SpringFields::dLength(spring),     SpringFields::nTurns(spring),
                        SpringFields::dStartAngle(spring), SpringFields::nQuality(spring)};
  AddSpring(mesh, coil, SpringFields::nType(spring), SpringFields::nType2(spring),
            SpringFields::bShaded(spring) != 0);
}

void AddArrowShape(MeshAssembly& mesh, const CGLArrow& arrow) {
  AddArrow(mesh,
           BuildArrowGeometry(ArrowFields::dLength(arrow), ArrowFields::dRadius(arrow),
                              ArrowFields::bLite(arrow), ArrowFields::nArrowNum(arrow),
                              ArrowFields::dFracLength(arrow), ArrowFields::dFracRadius(arrow),
                              ObjectFields::nSlices(arrow), ObjectFields::nStacks(arrow)));
}

void AddCylinderShape(MeshAssembly& mesh, const CGLCylinder& cylinder) {
  AddCylinder(mesh, BuildCylinderGeometry(
                        CylinderFields::dBaseRadius(cylinder), CylinderFields::dTopRadius(cylinder),
                        CylinderFields::dHeight(cylinder), CylinderFields::bClosed(cylinder),
                        ObjectFields::nSlices(cylinder), ObjectFields::nStacks(cylinder)));
}

void AddShape(MeshAssembly& mesh, CGLObject& shape, Path& groups) {
  switch (KindOf(shape)) {
    case ShapeKind::Sphere: {
      const auto& sphere = static_cast<const CGLSphere&>(shape);
      AddSphere(mesh, BuildSphereGeometry(sphere.Radius(), ObjectFields::nSlices(sphere),
                                          ObjectFields::nStacks(sphere)));
      break;
    }
    case ShapeKind::Cylinder:
      AddCylinderShape(mesh, static_cast<const CGLCylinder&>(shape));
      break;
    case ShapeKind::Arrow:
      AddArrowShape(mesh, static_cast<const CGLArrow&>(shape));
      break;
    case ShapeKind::Torus:
      AddTorus(mesh, static_cast<const CGLTorus&>(shape));
      break;
    case ShapeKind::Box: {
      const auto& box = static_cast<const CGLBox&>(shape);
      AddBox(mesh, BoxFields::dSizeX(box), BoxFields::dSizeY(box), BoxFields::dSizeZ(box));
      break;
    }
    case ShapeKind::Group:
      AddGroup(mesh, static_cast<const CGLGroup&>(shape), groups);
      break;
    case ShapeKind::Polyline:
      AddPolyline(mesh, static_cast<const CGLPolyline&>(shape));
      break;
    case ShapeKind::Belt:
      AddBelt(mesh, static_cast<const CGLBelt&>(shape));
      break;
    case ShapeKind::Spring:
      AddSpringShape(mesh, static_cast<const CGLSpring&>(shape));
      break;
    case ShapeKind::Unknown:
      break;
  }
}

}  // namespace

}  // namespace detail

Mesh MeshOf(CGLObject& shape) {
  detail::MeshAssembly mesh;
  detail::OpenGroups groups;
  detail::AddShape(mesh, shape, groups);
  return mesh.Take();
}

}  // namespace lumagrid
