#include "scene/shapes.h"

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLSphere.h>

#include "standin/QuadShape.h"

namespace scenefuzz {

namespace {

template <class T>
const mat4x4* MatrixOf(CGLObject* p) {
  return &static_cast<Counted<T>*>(p)->Matrix();
}

template <class T>
CGLObject* Copy(const CGLObject& src) {
  return new Counted<T>(static_cast<const Counted<T>&>(src));
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
  switch (kind) {
    case kTile:
      return Copy<QuadShape>(src);
    case kBare:
      return Copy<CGLObject>(src);
    case kSphere:
      return Copy<CGLSphere>(src);
    case kCylinder:
      return Copy<CGLCylinder>(src);
    case kCone:
      return Copy<CGLCone>(src);
    case kArrow:
      return Copy<CGLArrow>(src);
    default:
      return nullptr;  // groups are not copied
  }
}

Node NodeOf(CGLObject* p, int kind) {
  Node node;
  node.kind = kind;
  switch (kind) {
    case kTile:
      node.matrix = MatrixOf<QuadShape>(p);
      break;
    case kBare:
      node.matrix = MatrixOf<CGLObject>(p);
      break;
    case kSphere:
      node.matrix = MatrixOf<CGLSphere>(p);
      node.quadric = true;
      break;
    case kCylinder:
      node.matrix = MatrixOf<CGLCylinder>(p);
      node.quadric = true;
      break;
    case kCone:
      node.matrix = MatrixOf<CGLCone>(p);
      node.quadric = true;
      break;
    case kArrow:
      node.matrix = MatrixOf<CGLArrow>(p);
      node.quadric = true;
      break;
    case kGroup:
      node.matrix = MatrixOf<CGLGroup>(p);
      node.group = static_cast<Counted<CGLGroup>*>(p);
      break;
    default:
      node.matrix = MatrixOf<CGLAxis>(p);
      node.group = static_cast<Counted<CGLAxis>*>(p);
      node.members = 4;  // three arrows and the cube
      break;
  }
  return node;
}

}  // namespace scenefuzz
