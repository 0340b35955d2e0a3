#include <lumagrid/Mesh.h>

#include <vector>

#include "mesh/group_members.h"
#include "mesh/shape_fields.h"
#include "mesh/shape_kind.h"
#include "mesh/shape_meshes.h"

namespace lumagrid {
namespace detail {
namespace {

// The key's bytes: each value's own bytes, in the order MeshOf reads them.
class KeyWriter {
 public:
  template <class T>
  void Put(const T& value) {
    key_.append(reinterpret_cast<const char*>(&value), sizeof value);
  }
  void PutTubeSettings() {
    const TubeSettings settings = CurrentTubeSettings();
    Put(settings.sides);
    Put(settings.filled);
  }
  std::string& Key() { return key_; }

 private:
  std::string key_;
};

using Path = OpenGroups;

void PutShape(KeyWriter& key, CGLObject& shape, Path& groups);

void PutGroup(KeyWriter& key, const CGLGroup& group, Path& groups) {
  VisitVisibleMembers(group, groups, [&](CGLObject& member) {
    key.Put('{');
    const double* m = ObjectFields::matrix(member);
    for (int i = 0; i < 16; ++i) {
      key.Put(m[i]);
    }
    PutShape(key, member, groups);
    key.Put('}');
  });
}

void PutShape(KeyWriter& key, CGLObject& shape, Path& groups) {
  const ShapeKind kind = KindOf(shape);
  key.Put(kind);
  switch (kind) {
    case ShapeKind::Sphere:
      key.Put(static_cast<const CGLSphere&>(shape).Radius());
      key.Put(ObjectFields::nSlices(shape));
      key.Put(ObjectFields::nStacks(shape));
      break;
    case ShapeKind::Cylinder: {
      const auto& c = static_cast<const CGLCylinder&>(shape);
      key.Put(CylinderFields::dBaseRadius(c));
      key.Put(CylinderFields::dTopRadius(c));
      key.Put(CylinderFields::dHeight(c));
      key.Put(CylinderFields::bClosed(c));
      key.Put(ObjectFields::nSlices(shape));
      key.Put(ObjectFields::nStacks(shape));
      break;
    }
    case ShapeKind::Arrow: {
      const auto& a = static_cast<const CGLArrow&>(shape);
      key.Put(ArrowFields::dLength(a));
      key.Put(ArrowFields::dRadius(a));
      key.Put(ArrowFields::bLite(a));
      key.Put(ArrowFields::nArrowNum(a));
      key.Put(ArrowFields::dFracLength(a));
      key.Put(ArrowFields::dFracRadius(a));
      key.Put(ObjectFields::nSlices(shape));
      key.Put(ObjectFields::nStacks(shape));
      break;
    }
    case ShapeKind::Torus: {
      const auto& t = static_cast<const CGLTorus&>(shape);
      key.Put(TorusFields::dInnerRadius(t));
      key.Put(TorusFields::dOuterRadius(t));
      key.Put(TorusFields::dStartAngle(t));
      key.Put(TorusFields::dSweepAngle(t));
      key.PutTubeSettings();
      break;
    }
    case ShapeKind::Box: {
      const auto& b = static_cast<const CGLBox&>(shape);
      key.Put(BoxFields::dSizeX(b));
      key.Put(BoxFields::dSizeY(b));
      key.Put(BoxFields::dSizeZ(b));
      break;
    }
    case ShapeKind::Group:
      PutGroup(key, static_cast<const CGLGroup&>(shape), groups);
      break;
    case ShapeKind::Polyline:
      for (const CGLPoint* p : PolylineFields::aVertex(static_cast<const CGLPolyline&>(shape))) {
        key.Put(p->X());
        key.Put(p->Y());
        key.Put(p->Z());
      }
      break;
    case ShapeKind::Belt: {
      const auto& b = static_cast<const CGLBelt&>(shape);
      key.Put(BeltFields::dRadius1(b));
      key.Put(BeltFields::dRadius2(b));
      key.Put(BeltFields::dEntraxe(b));
      key.Put(BeltFields::nQuality(b));
      key.Put(BeltFields::nBType(b));
      break;
    }
    case ShapeKind::Spring: {
      const auto& s = static_cast<const CGLSpring&>(shape);
      key.Put(SpringFields::dWireRadius(s));
      key.Put(SpringFields::dRadius(s));
      key.Put(SpringFields::dLength(s));
      key.Put(SpringFields::nTurns(s));
      key.Put(SpringFields::dStartAngle(s));
      key.Put(SpringFields::nQuality(s));
      key.Put(SpringFields::nType(s));
      key.Put(SpringFields::nType2(s));
      key.Put(SpringFields::bShaded(s));
      key.PutTubeSettings();
      break;
    }
    case ShapeKind::Unknown:
      break;
  }
}

}  // namespace
}  // namespace detail

std::string MeshKey(CGLObject& shape) {
  if (detail::KindOf(shape) == detail::ShapeKind::Unknown) {
    return std::string();
  }
  detail::KeyWriter key;
  detail::OpenGroups groups;
  detail::PutShape(key, shape, groups);
  return std::move(key.Key());
}

}  // namespace lumagrid
