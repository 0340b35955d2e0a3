#ifndef LUMAGRID_TESTS_SHAPES_QUADRIC_QUADRIC_PROBES_H
#define LUMAGRID_TESTS_SHAPES_QUADRIC_QUADRIC_PROBES_H

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/mat4x4.h>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "probes/Probe.h"
#include "recorded/LogSlices.h"
#include "recorded/RecordedTest.h"
#include "shapes/quadric/CGLBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

// Opens the protected state of the quadric shapes to the tests.
class AxisProbe : public CGLAxis {
 public:
  using CGLAxis::CGLAxis;
  using CGLAxis::m_arrObjects;
  using CGLAxis::m_bLite;
  using CGLAxis::m_dLength;
  using CGLAxis::m_dRadius;
};

// Pointers to the protected members of objects the tests did not construct
// (the triad's children): usable on any CGLObject, CGLArrow or CGLBox.
struct MemberPointers : CGLArrow {
  static constexpr mat4x4 CGLObject::*kMatrix = &MemberPointers::m_matrix;
  static constexpr int CGLObject::*kSlices = &MemberPointers::m_nSlices;
  static constexpr int CGLObject::*kStacks = &MemberPointers::m_nStacks;
  static constexpr bool CGLArrow::*kLite = &MemberPointers::m_bLite;
  static constexpr double CGLArrow::*kLength = &MemberPointers::m_dLength;
  static constexpr double CGLArrow::*kRadius = &MemberPointers::m_dRadius;
  static constexpr double CGLArrow::*kFracLength = &MemberPointers::m_dFracLength;
  static constexpr double CGLArrow::*kFracRadius = &MemberPointers::m_dFracRadius;
  static constexpr int CGLArrow::*kArrowNum = &MemberPointers::m_nArrowNum;
};

struct BoxMemberPointers : CGLBox {
  static constexpr double CGLBox::*kSizeX = &BoxMemberPointers::m_dSizeX;
  static constexpr double CGLBox::*kSizeY = &BoxMemberPointers::m_dSizeY;
  static constexpr double CGLBox::*kSizeZ = &BoxMemberPointers::m_dSizeZ;
};

// Where the column-major matrix m sends the point p.
inline std::array<double, 3> Transform(const mat4x4& m, const std::array<double, 3>& p) {
  const double* e = m;
  std::array<double, 3> out{};
  for (int r = 0; r < 3; ++r) {
    out[r] = e[r] * p[0] + e[4 + r] * p[1] + e[8 + r] * p[2] + e[12 + r];
  }
  return out;
}

#endif
