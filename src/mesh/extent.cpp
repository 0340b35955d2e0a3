#include "mesh/extent.h"

#include <algorithm>
#include <cmath>

#include "mesh/affine.h"
#include "mesh/shape_fields.h"
#include "mesh/shape_kind.h"
#include "shapes/quadric/arrow_geometry.h"

namespace lumagrid::detail {

namespace {

Bounds Box(double x0, double y0, double z0, double x1, double y1, double z1) {
  return Bounds{vec3d(x0, y0, z0), vec3d(x1, y1, z1), false};
}

// A tube of radius r may reach past r at its mitred joints and caps; three radii cover
// every join the library's paths make.
double TubeReach(double r) {
  return 3.0 * std::fabs(r);
}

Bounds ArrowExtent(const CGLArrow& arrow) {
  const ArrowGeometry a =
      BuildArrowGeometry(ArrowFields::dLength(arrow), ArrowFields::dRadius(arrow),
                         ArrowFields::bLite(arrow), ArrowFields::nArrowNum(arrow),
                         ArrowFields::dFracLength(arrow), ArrowFields::dFracRadius(arrow), 3, 1);
  double radius = 0.0;
  double reach = std::fabs(a.shaft.length) + std::fabs(a.lastHead.length);
  for (const Frustum& f : {a.shaft, a.extraHead, a.lastHead}) {
    radius = std::max({radius, std::fabs(f.baseRadius), std::fabs(f.topRadius)});
  }
  if (a.extraHeads > 0) {
    reach += a.extraHeads * std::fabs(a.extraHead.length);
  }
  return Box(-radius, -radius, -reach, radius, radius, reach);
}

Bounds SpringExtent(const CGLSpring& spring) {
  const double reach =
      std::fabs(SpringFields::dRadius(spring)) + TubeReach(SpringFields::dWireRadius(spring));
  const double length = std::fabs(SpringFields::dLength(spring));
  return Box(-reach, -reach, -reach - length, reach, reach, length + reach);
}

Bounds PolylineExtent(const CGLPolyline& polyline) {
  Bounds b;
  for (const CGLPoint* p : PolylineFields::aVertex(polyline)) {
    Include(b, vec3d(p->X(), p->Y(), p->Z()));
  }
  return b;
}

Bounds BeltExtent(const CGLBelt& belt) {
  const double r =
      std::max(std::fabs(BeltFields::dRadius1(belt)), std::fabs(BeltFields::dRadius2(belt)));
  const double e = BeltFields::dEntraxe(belt);
  return Box(std::min(0.0, e) - r, -r, 0.0, std::max(0.0, e) + r, r, 0.0);
}

}  // namespace

void Include(Bounds& bounds, const vec3d& p) {
  if (!std::isfinite(p.x()) || !std::isfinite(p.y()) || !std::isfinite(p.z())) {
    return;
  }
  if (bounds.empty) {
    bounds = Bounds{p, p, false};
    return;
  }
  for (int i = 0; i < 3; ++i) {
    bounds.min[i] = std::min(bounds.min[i], p[i]);
    bounds.max[i] = std::max(bounds.max[i], p[i]);
  }
}

Bounds Carried(const Bounds& box, const Affine& world) {
  Bounds out;
  if (box.empty) {
    return out;
  }
  const std::array<double, 16>& m = world.e;
  const bool affine = m[3] == 0.0 && m[7] == 0.0 && m[11] == 0.0 && m[15] == 1.0;
  if (!affine) {
    for (int corner = 0; corner < 8; ++corner) {
      const vec3d p((corner & 1) ? box.max.x() : box.min.x(),
                    (corner & 2) ? box.max.y() : box.min.y(),
                    (corner & 4) ? box.max.z() : box.min.z());
      Include(out, TransformedPoint(world, p));
    }
    return out;
  }
  // The centre carried, and the half sizes through the matrix's magnitudes: the box around
  // the carried box, without its eight corners.
  double centre[3];
  double half[3];
  for (int i = 0; i < 3; ++i) {
    centre[i] = (box.min[i] + box.max[i]) * 0.5;
    half[i] = (box.max[i] - box.min[i]) * 0.5;
  }
  for (std::size_t row = 0; row < 3; ++row) {
    double c = m[12 + row];
    double h = 0.0;
    for (std::size_t column = 0; column < 3; ++column) {
      c += m[column * 4 + row] * centre[column];
      h += std::fabs(m[column * 4 + row]) * half[column];
    }
    out.min[static_cast<int>(row)] = c - h;
    out.max[static_cast<int>(row)] = c + h;
  }
  out.empty = false;
  return out;
}

Bounds ExtentOf(CGLObject& shape) {
  switch (KindOf(shape)) {
    case ShapeKind::Sphere: {
      const double r = std::fabs(static_cast<const CGLSphere&>(shape).Radius());
      return Box(-r, -r, -r, r, r, r);
    }
    case ShapeKind::Cylinder: {
      const auto& c = static_cast<const CGLCylinder&>(shape);
      const double r = std::max(std::fabs(CylinderFields::dBaseRadius(c)),
                                std::fabs(CylinderFields::dTopRadius(c)));
      const double h = CylinderFields::dHeight(c);
      return Box(-r, -r, std::min(0.0, h), r, r, std::max(0.0, h));
    }
    case ShapeKind::Arrow:
      return ArrowExtent(static_cast<const CGLArrow&>(shape));
    case ShapeKind::Torus: {
      const auto& t = static_cast<const CGLTorus&>(shape);
      const double tube = TubeReach(TorusFields::dInnerRadius(t));
      const double r = std::fabs(TorusFields::dOuterRadius(t)) + tube;
      return Box(-r, -r, -tube, r, r, tube);
    }
    case ShapeKind::Box: {
      const auto& b = static_cast<const CGLBox&>(shape);
      const double x = std::fabs(BoxFields::dSizeX(b));
      const double y = std::fabs(BoxFields::dSizeY(b));
      const double z = std::fabs(BoxFields::dSizeZ(b));
      return Box(-x, -y, -z, x, y, z);
    }
    case ShapeKind::Spring:
      return SpringExtent(static_cast<const CGLSpring&>(shape));
    case ShapeKind::Polyline:
      return PolylineExtent(static_cast<const CGLPolyline&>(shape));
    case ShapeKind::Belt:
      return BeltExtent(static_cast<const CGLBelt&>(shape));
    case ShapeKind::Group:
    case ShapeKind::Unknown:
      break;
  }
  return Bounds{};
}

}  // namespace lumagrid::detail
