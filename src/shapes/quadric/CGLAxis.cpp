#include <lumagrid/CGLAxis.h>

#include <lumagrid/CGLArrow.h>

#include "math/angles.h"
#include "shapes/quadric/CGLCube.h"

#include <memory>

// If Init throws, the already built CGLGroup base is destroyed on the way
// out, and its destructor deletes every child added so far.
// A default triad is not lite.
CGLAxis::CGLAxis() : CGLGroup(), m_dLength(1.0), m_dRadius(0.05), m_bLite(false) {
  Init();
}

CGLAxis::CGLAxis(double length, double radius, bool lite)
    : CGLGroup(), m_dLength(length), m_dRadius(radius), m_bLite(lite) {
  Init();
}

CGLAxis::~CGLAxis() = default;

namespace {

// Hands a child to the group; the child is freed if Add cannot store it.
template <class Shape>
void AddOwned(CGLGroup& group, std::unique_ptr<Shape> child) {
  group.Add(child.get());
  child.release();
}

}  // namespace

void CGLAxis::Init() {
  // The axes are told apart by their number of heads.
  auto x = std::make_unique<CGLArrow>(m_dLength, m_dRadius, m_bLite, 1, 0.8, 0.4);
  x->RotateY(lumagrid::detail::kHalfPi);  // +z onto +x
  AddOwned(*this, std::move(x));

  auto y = std::make_unique<CGLArrow>(m_dLength, m_dRadius, m_bLite, 2, 0.8, 0.4);
  y->RotateX(-lumagrid::detail::kHalfPi);  // +z onto +y
  AddOwned(*this, std::move(y));

  AddOwned(*this, std::make_unique<CGLArrow>(m_dLength, m_dRadius, m_bLite, 3, 0.8, 0.4));
  AddOwned(*this, std::make_unique<CGLCube>(m_dRadius));
}
