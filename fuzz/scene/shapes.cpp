#include "scene/shapes.h"

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLSphere.h>

#include "standin/QuadShape.h"

#include <type_traits>

namespace scenefuzz {

namespace {

template <class T>
struct Type {
  using type = T;
};

// f(Type<T>{}) for the class T that the kind stands for.
template <class F>
auto WithType(int kind, F&& f) {
  switch (kind) {
    case kTile:
      return f(Type<QuadShape>{});
    case kBare:
      return f(Type<CGLObject>{});
    case kSphere:
      return f(Type<CGLSphere>{});
    case kCylinder:
      return f(Type<CGLCylinder>{});
    case kCone:
      return f(Type<CGLCone>{});
    case kArrow:
      return f(Type<CGLArrow>{});
    case kGroup:
      return f(Type<CGLGroup>{});
    default:
      return f(Type<CGLAxis>{});
  }
}

}  // namespace

CGLObject* MakeShape(int kind, FuzzInput& in) {
  const float half = static_cast<float>(in.Tame());
  const double a = in.Tame();
  const double b = in.Tame();
  const double c = in.Tame();
  const bool flag = in.Bool();
  const int count = in.Byte() % 9 - 2;
  switch (kind) {
    case kTile:
      return new Counted<QuadShape>(half);
    case kBare:
      return new Counted<CGLObject>();
    case kSphere:
      return flag ? new Counted<CGLSphere>(a) : new Counted<CGLSphere>();
    case kCylinder:
      return count < 0 ? new Counted<CGLCylinder>() : new Counted<CGLCylinder>(a, b, flag);
    case kCone:
      if (count < 0) {
        return new Counted<CGLCone>();
      }
      if (count < 3) {
        return new Counted<CGLCone>(a, b, flag);
      }
      return new Counted<CGLCone>(a, b, c, flag);
    case kArrow:
      if (flag) {
        return new Counted<CGLArrow>();
      }
      return new Counted<CGLArrow>(a, b, count % 2 == 0, count, c, half);
    case kGroup:
      return new Counted<CGLGroup>();
    default:
      return flag ? new Counted<CGLAxis>() : new Counted<CGLAxis>(a, b, count % 2 == 0);
  }
}

CGLObject* CopyShape(int kind, const CGLObject& src) {
  return WithType(kind, [&src](auto type) -> CGLObject* {
    using T = typename decltype(type)::type;
    if constexpr (std::is_base_of<CGLGroup, T>::value) {
      return nullptr;  // groups are not copied
    } else {
      return new Counted<T>(static_cast<const Counted<T>&>(src));
    }
  });
}

Node NodeOf(CGLObject* p, int kind) {
  Node node;
  node.kind = kind;
  node.matrix = WithType(kind, [p](auto type) -> const mat4x4* {
    using T = typename decltype(type)::type;
    return &static_cast<Counted<T>*>(p)->Matrix();
  });
  node.quadric = kind == kSphere || kind == kCylinder || kind == kCone || kind == kArrow;
  if (kind == kGroup) {
    node.group = static_cast<Counted<CGLGroup>*>(p);
  } else if (kind == kAxis) {
    node.group = static_cast<Counted<CGLAxis>*>(p);
    node.members = 4;  // three arrows and the cube
  }
  return node;
}

}  // namespace scenefuzz
