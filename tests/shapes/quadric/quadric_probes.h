#ifndef LUMAGRID_TESTS_SHAPES_QUADRIC_QUADRIC_PROBES_H
#define LUMAGRID_TESTS_SHAPES_QUADRIC_QUADRIC_PROBES_H

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/mat4x4.h>

#include "glrecorder/GLRecorder.h"
#include "glrecorder/Matchers.h"
#include "shapes/quadric/CGLBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

// Opens the protected state of the quadric shapes to the tests.
template <class Base>
class ShapeProbe : public Base {
 public:
  using Base::Base;
  using Base::m_bModified;
  using Base::m_matrix;
  using Base::m_nDisplayList;
  using Base::m_nSlices;
  using Base::m_nStacks;
  using Base::m_pQuadric;
};

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

// Back to a fresh recorded context and the stock tessellation defaults, and
// back to them again afterwards.
class RecordedTest : public ::testing::Test {
 protected:
  void SetUp() override {
    glrec::recorder().reset();
    CGLObject::s_nSlices4New = 128;
    CGLObject::s_nStacks4New = 8;
  }
  void TearDown() override {
    CGLObject::s_nSlices4New = 128;
    CGLObject::s_nStacks4New = 8;
  }
};

template <class Param>
class RecordedTestWithParam : public RecordedTest, public ::testing::WithParamInterface<Param> {};

// The lines from the first glNewList to the next glEndList, both included.
inline std::vector<std::string> CompiledBlock(const std::vector<std::string>& log) {
  std::vector<std::string> block;
  bool inside = false;
  for (const std::string& l : log) {
    if (l.rfind("glNewList(", 0) == 0)
      inside = true;
    if (inside)
      block.push_back(l);
    if (inside && l == "glEndList()")
      break;
  }
  return block;
}

// Builds the shape's list outside Draw and returns what the list holds.
inline std::vector<std::string> CompiledBody(CGLObject& shape) {
  glrec::recorder().clearCalls();
  EXPECT_EQ(shape.DisplayListMake(), 0);
  const std::vector<GLuint> names = glrec::recorder().listNames();
  if (names.size() != 1)
    return {"<" + std::to_string(names.size()) + " lists>"};
  return glrec::recorder().listLog(names.front());
}

// Lines of the log that are calls of GLU.
inline std::vector<std::string> GluLines(const std::vector<std::string>& log) {
  std::vector<std::string> out;
  for (const std::string& l : log) {
    if (l.rfind("glu", 0) == 0)
      out.push_back(l);
  }
  return out;
}

// Where the column-major matrix m sends the point p.
inline std::array<double, 3> Transform(const mat4x4& m, const std::array<double, 3>& p) {
  const double* e = m;
  std::array<double, 3> out{};
  for (int r = 0; r < 3; ++r)
    out[r] = e[r] * p[0] + e[4 + r] * p[1] + e[8 + r] * p[2] + e[12 + r];
  return out;
}

// Exact equality of all sixteen values.
inline bool SameValues(const mat4x4& a, const mat4x4& b) {
  const double* pa = a;
  const double* pb = b;
  for (int i = 0; i < 16; ++i) {
    if (pa[i] != pb[i])
      return false;
  }
  return true;
}

// Compares whole logs, printing a line diff on failure.
#define EXPECT_LINES(expected, actual) EXPECT_THAT((actual), glrec::LinesEq(expected))

// The executed calls of one entry point, list contents included.
inline std::vector<std::string> ExecutedNamed(const std::string& name) {
  std::vector<std::string> out;
  for (const glrec::Call& c : glrec::recorder().executedCalls()) {
    if (c.name == name)
      out.push_back(c.str());
  }
  return out;
}

#endif
