#include <lumagrid/CGLObject.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <ios>
#include <ostream>
#include <limits>
#include <string>
#include <vector>

#include "core_expect.h"
#include "core_probes.h"
#include "naming/ParamName.h"

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// A probe whose modified flag has been cleared, so that a test sees whether
// an operation sets it.
ObjectProbe Clean() {
  ObjectProbe o;
  o.m_bModified = false;
  return o;
}

// o is still as Clean() made it: the identity, and no rebuild mark.
::testing::AssertionResult Untouched(const ObjectProbe& o) {
  if (!mathtest::equalOrBothNaN(o.m_matrix, Identity())) {
    return ::testing::AssertionFailure() << "the matrix changed";
  }
  if (o.m_bModified) {
    return ::testing::AssertionFailure() << "marked modified";
  }
  return ::testing::AssertionSuccess();
}

mat4x4 Translation(double x, double y, double z) {
  mat4x4 m;
  m.loadTranslate(x, y, z);
  return m;
}

TEST(Object, FreshObjectIsGreyVisibleUnselectedAndUnbuilt) {
  ObjectProbe o;
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Identity()));
  ExpectChannels(o.m_color, 0.5, 0.5, 0.5, 1.0);
  ExpectChannels(o.m_hlColor, 0.0, 1.0, 0.0, 1.0);
  EXPECT_TRUE(o.m_bVisible);
  EXPECT_FALSE(o.m_bSelected);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_EQ(o.m_nDisplayList, -1);
  EXPECT_EQ(o.IsVisible(), 1);
  EXPECT_EQ(o.IsSelected(), 0);
}

TEST(Object, TessellationDefaultsStartAt128SlicesAnd8Stacks) {
  EXPECT_EQ(CGLObject::s_nSlices4New, 128);
  EXPECT_EQ(CGLObject::s_nStacks4New, 8);
}

TEST(Object, ConstructorTakesTessellationFromClassDefaultsAndNoQuadric) {
  const int slices = CGLObject::s_nSlices4New;
  const int stacks = CGLObject::s_nStacks4New;
  ObjectProbe before;
  CGLObject::s_nSlices4New = 17;
  CGLObject::s_nStacks4New = 3;
  ObjectProbe after;
  CGLObject::s_nSlices4New = slices;
  CGLObject::s_nStacks4New = stacks;
  EXPECT_EQ(before.m_nSlices, slices);
  EXPECT_EQ(before.m_nStacks, stacks);
  EXPECT_EQ(after.m_nSlices, 17);
  EXPECT_EQ(after.m_nStacks, 3);
  EXPECT_EQ(after.m_pQuadric, nullptr);
}

// ---------------------------------------------------------------- moves

TEST(ObjectMove, MoveByOneIsANoOp) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.Move(1.0), 1);
  EXPECT_EQ(o.Move(1.0, 1.0, 1.0), 1);
  EXPECT_EQ(o.Move(CGLPoint(1, 1, 1)), 1);
  EXPECT_TRUE(Untouched(o));
}

TEST(ObjectMove, MoveByZeroMarksModified) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.Move(0.0), 1);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Identity()));
  ObjectProbe p = Clean();
  EXPECT_EQ(p.Move(0.0, 0.0, 0.0), 1);
  EXPECT_TRUE(p.m_bModified);
}

TEST(ObjectMove, MoveTranslatesThroughTheAccumulatingMatrixOperation) {
  ObjectProbe o;
  o.Scale(2.0);
  EXPECT_EQ(o.Move(1.0, 2.0, 3.0), 1);
  mat4x4 expected = Identity();
  expected.scale(2.0, 2.0, 2.0);
  expected.translate(1.0, 2.0, 3.0);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, expected));
  EXPECT_EQ(o.m_matrix[3][0], 2.0);
}

TEST(ObjectMove, MoveOfOneValueTranslatesAllThreeAxes) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.Move(2.5), 1);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Translation(2.5, 2.5, 2.5)));
  EXPECT_TRUE(o.m_bModified);
}

TEST(ObjectMove, PartlyOneOffsetIsApplied) {
  ObjectProbe o = Clean();
  o.Move(1.0, 1.0, 2.0);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Translation(1.0, 1.0, 2.0)));
  EXPECT_TRUE(o.m_bModified);
}

TEST(ObjectMove, MoveToAfterScaleYieldsAPureTranslation) {
  ObjectProbe o;
  o.Scale(2.0);
  EXPECT_EQ(o.MoveTo(1.0, 2.0, 3.0), 1);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Translation(1.0, 2.0, 3.0)));
}

TEST(ObjectMove, MoveToAlwaysMarksModifiedEvenForTheSameValue) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.MoveTo(0.0), 1);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Identity()));
  o.m_bModified = false;
  EXPECT_EQ(o.MoveTo(CGLPoint(1, 1, 1)), 1);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Translation(1, 1, 1)));
}

// ---------------------------------------------------------------- scales

TEST(ObjectScale, ScaleByOneIsANoOp) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.Scale(1.0), 1);
  EXPECT_EQ(o.Scale(1.0, 1.0, 1.0), 1);
  EXPECT_EQ(o.Scale(CGLPoint(1, 1, 1)), 1);
  EXPECT_TRUE(Untouched(o));
}

TEST(ObjectScale, ScaleMultipliesColumns) {
  ObjectProbe o = Clean();
  o.Move(1.0, 2.0, 3.0);
  EXPECT_EQ(o.Scale(2.0, 3.0, 4.0), 1);
  mat4x4 expected = Translation(1.0, 2.0, 3.0);
  expected.scale(2.0, 3.0, 4.0);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, expected));
  EXPECT_TRUE(o.m_bModified);
}

TEST(ObjectScale, ZeroScaleIsAppliedUnchecked) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.Scale(0.0), 1);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_EQ(o.m_matrix[0][0], 0.0);
  EXPECT_EQ(o.m_matrix[3][3], 1.0);
}

TEST(ObjectScale, ScaleToReplacesTheMatrix) {
  ObjectProbe o = Clean();
  o.Move(5.0);
  o.m_bModified = false;
  EXPECT_EQ(o.ScaleTo(2.0, 3.0, 4.0), 1);
  mat4x4 expected;
  expected.loadScale(2.0, 3.0, 4.0);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, expected));
  EXPECT_TRUE(o.m_bModified);
  o.m_bModified = false;
  EXPECT_EQ(o.ScaleTo(1.0), 1);  // no identity test on To operations
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Identity()));
  EXPECT_TRUE(o.m_bModified);
}

// ---------------------------------------------------------------- rotations

TEST(ObjectRotate, RotateByZeroIsANoOp) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.Rotate(0.0, 0.0, 0.0), 1);
  EXPECT_EQ(o.Rotate(CGLPoint()), 1);
  EXPECT_EQ(o.RotateX(0.0), 1);
  EXPECT_TRUE(Untouched(o));
}

TEST(ObjectRotate, RotateAppliesXThenYThenZ) {
  ObjectProbe o = Clean();
  o.Move(1.0, 2.0, 3.0);
  EXPECT_EQ(o.Rotate(0.2, 0.5, 0.7), 1);
  mat4x4 expected = Translation(1.0, 2.0, 3.0);
  expected.rotateX(0.2);
  expected.rotateY(0.5);
  expected.rotateZ(0.7);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, expected));
  EXPECT_TRUE(o.m_bModified);
}

// The reading the host's guide gives: a point of the shape is turned about z first, then y,
// then x, all axes of the shape's own frame (as glRotated x, y, z in that call order would).
TEST(ObjectRotate, RotateTurnsAPointAboutZThenYThenX) {
  const double quarter = 1.5707963267948966;
  ObjectProbe o = Clean();
  o.Rotate(quarter, quarter, 0.0);
  vec3d p(1.0, 0.0, 0.0);
  o.m_matrix.transform(p);
  // About y: (1, 0, 0) -> (0, 0, -1); then about x: (0, 0, -1) -> (0, 1, 0).
  EXPECT_NEAR(p.x(), 0.0, 1e-15);
  EXPECT_NEAR(p.y(), 1.0, 1e-15);
  EXPECT_NEAR(p.z(), 0.0, 1e-15);
  ObjectProbe zy = Clean();
  zy.Rotate(0.0, quarter, quarter);
  vec3d q(1.0, 0.0, 0.0);
  zy.m_matrix.transform(q);
  // About z: (1, 0, 0) -> (0, 1, 0); about y it stays.
  EXPECT_NEAR(q.x(), 0.0, 1e-15);
  EXPECT_NEAR(q.y(), 1.0, 1e-15);
  EXPECT_NEAR(q.z(), 0.0, 1e-15);
}

TEST(ObjectRotate, RotateAboutYAlsoAppliesTheZeroRotations) {
  ObjectProbe o;
  o.Rotate(0.0, 0.5, 0.0);
  mat4x4 expected = Identity();
  expected.rotateX(0.0);
  expected.rotateY(0.5);
  expected.rotateZ(0.0);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, expected));
}

TEST(ObjectRotate, RotateToKeepsOnlyTheZRotation) {
  ObjectProbe o;
  o.Move(4.0, 5.0, 6.0);
  EXPECT_EQ(o.RotateTo(0.3, 0.4, 0.5), 1);
  mat4x4 expected;
  expected.loadRotateZ(0.5);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, expected));
}

TEST(ObjectRotate, RotateXToAndRotateYToYieldTheIdentity) {
  ObjectProbe o = Clean();
  o.Move(4.0, 5.0, 6.0);
  o.m_bModified = false;
  EXPECT_EQ(o.RotateXTo(1.0), 1);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Identity()));
  EXPECT_TRUE(o.m_bModified);
  o.Move(4.0, 5.0, 6.0);
  EXPECT_EQ(o.RotateYTo(1.0), 1);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Identity()));
}

TEST(ObjectRotate, RotateZToIsThePureZRotation) {
  ObjectProbe o;
  o.Scale(3.0);
  EXPECT_EQ(o.RotateZTo(0.8), 1);
  mat4x4 expected;
  expected.loadRotateZ(0.8);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, expected));
}

TEST(ObjectRotate, SingleAxisRotationsAccumulate) {
  ObjectProbe o;
  o.RotateX(0.1);
  o.RotateY(0.2);
  o.RotateZ(0.3);
  mat4x4 expected = Identity();
  for (int axis = 0; axis < 3; ++axis) {
    const double a[3] = {axis == 0 ? 0.1 : 0.0, axis == 1 ? 0.2 : 0.0, axis == 2 ? 0.3 : 0.0};
    expected.rotateX(a[0]);
    expected.rotateY(a[1]);
    expected.rotateZ(a[2]);
  }
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, expected));
}

// ---------------------------------------------------------------- routing

// Records the CGLPoint overloads that the other forms reach.
class RoutingObject : public CGLObject {
 public:
  std::vector<std::string> calls;
  CGLPoint last;
  long Move(const CGLPoint& p) override { return Log("Move", p); }
  long MoveTo(const CGLPoint& p) override { return Log("MoveTo", p); }
  long Scale(const CGLPoint& p) override { return Log("Scale", p); }
  long ScaleTo(const CGLPoint& p) override { return Log("ScaleTo", p); }
  long Rotate(const CGLPoint& p) override { return Log("Rotate", p); }
  long RotateTo(const CGLPoint& p) override { return Log("RotateTo", p); }
  using CGLObject::Move;
  using CGLObject::MoveTo;
  using CGLObject::Rotate;
  using CGLObject::RotateTo;
  using CGLObject::Scale;
  using CGLObject::ScaleTo;

 private:
  long Log(const char* name, const CGLPoint& p) {
    calls.push_back(name);
    last = p;
    return 9;  // distinguishes a forwarded result from a fixed 1
  }
};

struct RoutingCase {
  const char* name;
  std::function<long(RoutingObject&)> call;
  const char* reached;
  double x, y, z;
};

// Names the case in test listings instead of dumping its bytes.
void PrintTo(const RoutingCase& c, std::ostream* os) {
  *os << c.name;
}

class ObjectTransformRouting : public ::testing::TestWithParam<RoutingCase> {};

TEST_P(ObjectTransformRouting, ReachesTheVirtualPointOverload) {
  RoutingObject o;
  const RoutingCase& c = GetParam();
  EXPECT_EQ(c.call(o), 9);
  ASSERT_EQ(o.calls.size(), 1u);
  EXPECT_EQ(o.calls[0], c.reached);
  EXPECT_EQ(o.last.X(), c.x);
  EXPECT_EQ(o.last.Y(), c.y);
  EXPECT_EQ(o.last.Z(), c.z);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ObjectTransformRouting,
    ::testing::Values(
        RoutingCase{"Move3", [](RoutingObject& o) { return o.Move(1, 2, 3); }, "Move", 1, 2, 3},
        RoutingCase{"MoveTo3", [](RoutingObject& o) { return o.MoveTo(1, 2, 3); }, "MoveTo", 1, 2,
                    3},
        RoutingCase{"Scale3", [](RoutingObject& o) { return o.Scale(1, 2, 3); }, "Scale", 1, 2, 3},
        RoutingCase{"ScaleTo3", [](RoutingObject& o) { return o.ScaleTo(1, 2, 3); }, "ScaleTo", 1,
                    2, 3},
        RoutingCase{"Rotate3", [](RoutingObject& o) { return o.Rotate(1, 2, 3); }, "Rotate", 1, 2,
                    3},
        RoutingCase{"RotateTo3", [](RoutingObject& o) { return o.RotateTo(1, 2, 3); }, "RotateTo",
                    1, 2, 3},
        RoutingCase{"RotateX", [](RoutingObject& o) { return o.RotateX(4); }, "Rotate", 4, 0, 0},
        RoutingCase{"RotateY", [](RoutingObject& o) { return o.RotateY(4); }, "Rotate", 0, 4, 0},
        RoutingCase{"RotateZ", [](RoutingObject& o) { return o.RotateZ(4); }, "Rotate", 0, 0, 4},
        RoutingCase{"RotateXTo", [](RoutingObject& o) { return o.RotateXTo(4); }, "RotateTo", 4, 0,
                    0},
        RoutingCase{"RotateYTo", [](RoutingObject& o) { return o.RotateYTo(4); }, "RotateTo", 0, 4,
                    0},
        RoutingCase{"RotateZTo", [](RoutingObject& o) { return o.RotateZTo(4); }, "RotateTo", 0, 0,
                    4}),
    ParamName());

struct DirectCase {
  const char* name;
  std::function<long(RoutingObject&)> call;
};

// Names the case in test listings instead of dumping its bytes.
void PrintTo(const DirectCase& c, std::ostream* os) {
  *os << c.name;
}

class ObjectDirectTransform : public ::testing::TestWithParam<DirectCase> {};

TEST_P(ObjectDirectTransform, SingleValueFormBypassesThePointOverload) {
  RoutingObject o;
  EXPECT_EQ(GetParam().call(o), 1);
  EXPECT_TRUE(o.calls.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ObjectDirectTransform,
    ::testing::Values(DirectCase{"Move", [](RoutingObject& o) { return o.Move(2.0); }},
                      DirectCase{"MoveTo", [](RoutingObject& o) { return o.MoveTo(2.0); }},
                      DirectCase{"Scale", [](RoutingObject& o) { return o.Scale(2.0); }},
                      DirectCase{"ScaleTo", [](RoutingObject& o) { return o.ScaleTo(2.0); }}),
    ParamName());

// ---------------------------------------------------------------- matrices

TEST(ObjectSetMatrix, ArrayIsCopiedInOrderWithoutMarkingModified) {
  ObjectProbe o = Clean();
  double m[16];
  for (int i = 0; i < 16; ++i) {
    m[i] = i + 0.5;
  }
  EXPECT_EQ(o.SetMatrix(m), 1);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(static_cast<const double*>(o.m_matrix)[i], i + 0.5);
  }
  EXPECT_FALSE(o.m_bModified);
}

TEST(ObjectSetMatrix, OwnArrayIsAcceptedAndKeepsTheMatrix) {
  ObjectProbe o = Clean();
  o.m_matrix = Translation(1.0, 2.0, 3.0);
  EXPECT_EQ(o.SetMatrix(static_cast<double*>(o.m_matrix)), 1);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, Translation(1.0, 2.0, 3.0)));
  EXPECT_FALSE(o.m_bModified);
}

TEST(ObjectSetMatrix, MatrixIsCopiedWithoutMarkingModified) {
  ObjectProbe o = Clean();
  const mat4x4 m = Translation(7.0, 8.0, 9.0);
  EXPECT_EQ(o.SetMatrix(m), 1);
  EXPECT_TRUE(mathtest::equalOrBothNaN(o.m_matrix, m));
  EXPECT_FALSE(o.m_bModified);
}

// ---------------------------------------------------------------- colours

struct ColorRefCase {
  unsigned long rgb;
  double r, g, b;
};

// Names the case in test listings instead of dumping its bytes.
void PrintTo(const ColorRefCase& c, std::ostream* os) {
  *os << "0x" << std::hex << c.rgb;
}

class ObjectColorRef : public ::testing::TestWithParam<ColorRefCase> {};

TEST_P(ObjectColorRef, LowByteIsRedThenGreenThenBlueWithOpaqueAlpha) {
  ObjectProbe o;
  o.AlphaSet(0.25);
  EXPECT_EQ(o.ColorSet(GetParam().rgb), 1);
  ExpectChannels(o.ColorGet(), GetParam().r, GetParam().g, GetParam().b, 1.0);
  ObjectProbe h;
  EXPECT_EQ(h.HLColorSet(GetParam().rgb), 1);
  ExpectChannels(h.HLColorGet(), GetParam().r, GetParam().g, GetParam().b, 1.0);
}

INSTANTIATE_TEST_SUITE_P(References, ObjectColorRef,
                         ::testing::Values(ColorRefCase{0x0000FFUL, 1.0, 0.0, 0.0},
                                           ColorRefCase{0x00FF0000UL, 0.0, 0.0, 1.0},
                                           ColorRefCase{0xFF000000UL, 0.0, 0.0, 0.0},
                                           ColorRefCase{0x00FF00UL, 0.0, 1.0, 0.0},
                                           ColorRefCase{0x123456UL, 0x56 / 255.0, 0x34 / 255.0,
                                                        0x12 / 255.0},
                                           ColorRefCase{0xAB000080UL, 128 / 255.0, 0.0, 0.0},
                                           ColorRefCase{~0UL, 1.0, 1.0, 1.0}));

TEST(ObjectColor, GreyOfTheCurrentLevelChangesNothing) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.ColorSet(0.5), 1);
  EXPECT_FALSE(o.m_bModified);
}

TEST(ObjectColor, GreyLevelKeepsAlpha) {
  ObjectProbe o;
  o.AlphaSet(0.2);
  o.m_bModified = false;
  EXPECT_EQ(o.ColorSet(0.7), 1);
  ExpectChannels(o.ColorGet(), 0.7, 0.7, 0.7, 0.2);
  EXPECT_TRUE(o.m_bModified);
}

TEST(ObjectColor, ColorReferenceResetsAlphaToOne) {
  ObjectProbe o;
  o.AlphaSet(0.2);
  o.ColorSet(0x808080UL);
  EXPECT_EQ(o.AlphaGet(), 1.0);
}

TEST(ObjectColor, EqualColourDoesNotMarkModified) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.ColorSet(CGLColor(0.5, 0.5, 0.5, 1.0)), 1);
  EXPECT_EQ(o.ColorSet(0.5, 0.5, 0.5, 1.0), 1);
  EXPECT_FALSE(o.m_bModified);
  EXPECT_EQ(o.ColorSet(0.5, 0.5, 0.5, 0.9), 1);  // alpha counts here
  EXPECT_TRUE(o.m_bModified);
  ExpectChannels(o.ColorGet(), 0.5, 0.5, 0.5, 0.9);
}

TEST(ObjectColor, HighlightFamilyHasTheSameRules) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.HLColorSet(0xFF00UL), 1);
  EXPECT_EQ(o.HLColorSet(0.0, 1.0, 0.0, 1.0), 1);
  EXPECT_FALSE(o.m_bModified);
  EXPECT_EQ(o.HLColorSet(0.25), 1);
  EXPECT_TRUE(o.m_bModified);
  ExpectChannels(o.HLColorGet(), 0.25, 0.25, 0.25, 1.0);
  o.m_bModified = false;
  EXPECT_EQ(o.HLColorSet(0.25), 1);
  EXPECT_FALSE(o.m_bModified);
  EXPECT_EQ(o.HLColorSet(CGLColor(0.1, 0.2, 0.3, 0.4)), 1);
  EXPECT_TRUE(o.m_bModified);
  ExpectChannels(o.HLColorGet(), 0.1, 0.2, 0.3, 0.4);
  ExpectChannels(o.ColorGet(), 0.5, 0.5, 0.5, 1.0);
}

TEST(ObjectColor, GettersReturnTheMembers) {
  ObjectProbe o;
  EXPECT_EQ(&o.ColorGet(), &o.m_color);
  EXPECT_EQ(&o.HLColorGet(), &o.m_hlColor);
}

// Counts the CGLColor overloads the other colour forms reach.
class ColorRoutingObject : public CGLObject {
 public:
  int colors = 0;
  int hlColors = 0;
  long ColorSet(const CGLColor& c) override {
    ++colors;
    return CGLObject::ColorSet(c) + 4;
  }
  long HLColorSet(const CGLColor& c) override {
    ++hlColors;
    return CGLObject::HLColorSet(c) + 4;
  }
  using CGLObject::ColorSet;
  using CGLObject::HLColorSet;
};

TEST(ObjectColor, FourValueAndReferenceFormsGoThroughTheColourOverload) {
  ColorRoutingObject o;
  EXPECT_EQ(o.hlColors, 0);  // the constructor's call resolves to the base
  EXPECT_EQ(o.ColorSet(0.1, 0.2, 0.3, 0.4), 5);
  EXPECT_EQ(o.ColorSet(0x010203UL), 5);
  EXPECT_EQ(o.colors, 2);
  EXPECT_EQ(o.ColorSet(0.9), 1);  // the grey form assigns directly
  EXPECT_EQ(o.colors, 2);
  EXPECT_EQ(o.HLColorSet(0.1, 0.2, 0.3, 0.4), 5);
  EXPECT_EQ(o.HLColorSet(0x010203UL), 5);
  EXPECT_EQ(o.HLColorSet(0.9), 1);
  EXPECT_EQ(o.hlColors, 2);
}

// ---------------------------------------------------------------- alpha

TEST(ObjectAlpha, SameAlphaChangesNothing) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.AlphaSet(1.0), 1);
  EXPECT_FALSE(o.m_bModified);
}

TEST(ObjectAlpha, NewAlphaMarksModifiedAndLeavesHighlightAlone) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.AlphaSet(0.5), 1);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_EQ(o.AlphaGet(), 0.5);
  EXPECT_EQ(o.m_hlColor.Alpha(), 1.0);
}

TEST(ObjectAlpha, AlphaOffRestoresOpacityWithoutMarkingModified) {
  ObjectProbe o;
  o.AlphaSet(0.5);
  o.m_bModified = false;
  EXPECT_EQ(o.AlphaOff(), 1);
  EXPECT_EQ(o.AlphaGet(), 1.0);
  EXPECT_FALSE(o.m_bModified);
}

// ---------------------------------------------------------------- flags

TEST(ObjectFlags, SelectingTwiceMarksModifiedOnce) {
  ObjectProbe o = Clean();
  o.Select(true);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_EQ(o.IsSelected(), 1);
  o.m_bModified = false;
  o.Select(true);
  EXPECT_FALSE(o.m_bModified);
  o.Select(false);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_EQ(o.IsSelected(), 0);
}

TEST(ObjectFlags, SetVisibleNeverMarksModified) {
  ObjectProbe o = Clean();
  o.SetVisible(false);
  EXPECT_EQ(o.IsVisible(), 0);
  o.SetVisible(true);
  EXPECT_EQ(o.IsVisible(), 1);
  EXPECT_FALSE(o.m_bModified);
}

TEST(ObjectBase, BareObjectHasNoGeometry) {
  ObjectProbe o;
  EXPECT_EQ(o.DisplayListMake(), 0);
  EXPECT_EQ(o.DrawDirect(), 0);
  EXPECT_EQ(o.DrawSelection(), 0);
  EXPECT_TRUE(o.m_bModified);
}

// ---------------------------------------------------------------- NaN

TEST(ObjectNaN, NaNPassesEveryIdentityTestAndIsApplied) {
  ObjectProbe a = Clean();
  EXPECT_EQ(a.Move(kNaN), 1);
  EXPECT_TRUE(a.m_bModified);
  EXPECT_TRUE(std::isnan(a.m_matrix[3][0]));

  ObjectProbe b = Clean();
  EXPECT_EQ(b.Scale(1.0, 1.0, kNaN), 1);
  EXPECT_TRUE(b.m_bModified);
  EXPECT_TRUE(std::isnan(b.m_matrix[2][2]));

  ObjectProbe c = Clean();
  EXPECT_EQ(c.Rotate(kNaN, 0.0, 0.0), 1);
  EXPECT_TRUE(c.m_bModified);
  EXPECT_TRUE(std::isnan(c.m_matrix[1][1]));

  ObjectProbe d = Clean();
  EXPECT_EQ(d.Move(1.0, kNaN, 1.0), 1);
  EXPECT_TRUE(d.m_bModified);
  EXPECT_TRUE(std::isnan(d.m_matrix[3][1]));
}

TEST(ObjectNaN, NaNColourIsAppliedAgainAtEveryCall) {
  ObjectProbe o = Clean();
  EXPECT_EQ(o.ColorSet(kNaN), 1);
  EXPECT_TRUE(o.m_bModified);
  EXPECT_TRUE(std::isnan(o.m_color.Red()));
  o.m_bModified = false;
  EXPECT_EQ(o.ColorSet(kNaN), 1);
  EXPECT_TRUE(o.m_bModified);
  o.m_bModified = false;
  EXPECT_EQ(o.ColorSet(CGLColor(o.ColorGet())), 1);  // never equal to itself
  EXPECT_TRUE(o.m_bModified);
  o.m_bModified = false;
  EXPECT_EQ(o.AlphaSet(kNaN), 1);
  EXPECT_TRUE(o.m_bModified);
  o.m_bModified = false;
  EXPECT_EQ(o.AlphaSet(kNaN), 1);
  EXPECT_TRUE(o.m_bModified);
}

// ---------------------------------------------------------------- identity

TEST(ObjectIdentity, IdIsTheAddressAndNotKeptByACopy) {
  ObjectProbe o;
  EXPECT_EQ(o.GetID(), reinterpret_cast<std::uintptr_t>(static_cast<CGLObject*>(&o)));
  ObjectProbe copy(o);
  EXPECT_NE(copy.GetID(), o.GetID());
}

TEST(ObjectCopy, CopySharesListAndQuadricAndCopiesEveryMember) {
  ObjectProbe o;
  o.Move(1.0, 2.0, 3.0);
  o.ColorSet(0.1, 0.2, 0.3, 0.4);
  o.HLColorSet(0.6);
  o.m_nDisplayList = 42;
  o.SetVisible(false);
  o.Select(true);
  o.m_bModified = false;
  o.m_nSlices = 5;
  o.m_nStacks = 6;
  o.m_pQuadric = reinterpret_cast<GLUquadric*>(&o);

  const auto check = [&o](const ObjectProbe& c) {
    EXPECT_TRUE(mathtest::equalOrBothNaN(c.m_matrix, o.m_matrix));
    EXPECT_TRUE(c.m_color == o.m_color);
    EXPECT_TRUE(c.m_hlColor == o.m_hlColor);
    EXPECT_EQ(c.m_nDisplayList, 42);
    EXPECT_FALSE(c.m_bVisible);
    EXPECT_TRUE(c.m_bSelected);
    EXPECT_FALSE(c.m_bModified);
    EXPECT_EQ(c.m_nSlices, 5);
    EXPECT_EQ(c.m_nStacks, 6);
    EXPECT_EQ(c.m_pQuadric, o.m_pQuadric);
  };
  {
    ObjectProbe copy(o);
    check(copy);
    copy.m_nDisplayList = -1;  // keep the shared name away from the destructor
  }
  {
    ObjectProbe assigned;
    CGLObject& r = (assigned = o);
    EXPECT_EQ(&r, &assigned);
    check(assigned);
    assigned.m_nDisplayList = -1;
  }
  o.m_nDisplayList = -1;
}

// ---------------------------------------------------------------- layout

TEST(ObjectAbi, VirtualTableFollowsTheDeclaredOrder) {
  using O = CGLObject;
  using D = ObjectProbe;
  std::ptrdiff_t slot = 0;
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double)>(&O::Move)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double, double, double)>(&O::Move)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const CGLPoint&)>(&O::Move)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double)>(&O::MoveTo)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double, double, double)>(&O::MoveTo)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const CGLPoint&)>(&O::MoveTo)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double)>(&O::Scale)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double, double, double)>(&O::Scale)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const CGLPoint&)>(&O::Scale)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double)>(&O::ScaleTo)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double, double, double)>(&O::ScaleTo)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const CGLPoint&)>(&O::ScaleTo)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double, double, double)>(&O::Rotate)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const CGLPoint&)>(&O::Rotate)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double, double, double)>(&O::RotateTo)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const CGLPoint&)>(&O::RotateTo)), slot++);
  EXPECT_EQ(VtableSlot(&O::RotateX), slot++);
  EXPECT_EQ(VtableSlot(&O::RotateY), slot++);
  EXPECT_EQ(VtableSlot(&O::RotateZ), slot++);
  EXPECT_EQ(VtableSlot(&O::RotateXTo), slot++);
  EXPECT_EQ(VtableSlot(&O::RotateYTo), slot++);
  EXPECT_EQ(VtableSlot(&O::RotateZTo), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const mat4x4&)>(&O::SetMatrix)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double*)>(&O::SetMatrix)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double, double, double, double)>(&O::ColorSet)),
            slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(unsigned long)>(&O::ColorSet)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double)>(&O::ColorSet)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const CGLColor&)>(&O::ColorSet)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double, double, double, double)>(&O::HLColorSet)),
            slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(unsigned long)>(&O::HLColorSet)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(double)>(&O::HLColorSet)), slot++);
  EXPECT_EQ(VtableSlot(static_cast<long (O::*)(const CGLColor&)>(&O::HLColorSet)), slot++);
  EXPECT_EQ(VtableSlot(&O::ColorGet), slot++);
  EXPECT_EQ(VtableSlot(&O::HLColorGet), slot++);
  EXPECT_EQ(VtableSlot(&O::AlphaSet), slot++);
  EXPECT_EQ(VtableSlot(&O::AlphaOff), slot++);
  EXPECT_EQ(VtableSlot(&O::AlphaGet), slot++);
  EXPECT_EQ(VtableSlot(&O::DisplayListsAllocate), slot++);
  EXPECT_EQ(VtableSlot(&O::DisplayListMake), slot++);
  EXPECT_EQ(VtableSlot(&O::Draw), slot++);
  EXPECT_EQ(VtableSlot(&O::DrawDirect), slot++);
  EXPECT_EQ(VtableSlot(&O::Select), slot++);
  EXPECT_EQ(VtableSlot(&O::IsSelected), slot++);
  EXPECT_EQ(VtableSlot(&O::SetVisible), slot++);
  EXPECT_EQ(VtableSlot(&O::IsVisible), slot++);
  slot += 2;  // the destructor: complete and deleting
  EXPECT_EQ(VtableSlot(&D::DrawStart), slot++);
  EXPECT_EQ(VtableSlot(&D::DrawTransform), slot++);
  EXPECT_EQ(VtableSlot(&D::DrawFinish), slot++);
  EXPECT_EQ(VtableSlot(&D::DrawSelection), slot++);
  EXPECT_EQ(slot, 51);
  EXPECT_EQ(VtableSlot(&O::GetID), -1);
}

TEST(ObjectLayout, MembersFollowTheVirtualTablePointerInDeclaredOrder) {
  struct Expected {
    void* vptr;
    mat4x4 matrix;
    CGLColor color;
    CGLColor hlColor;
    int list;
    bool visible, selected, modified;
    int slices, stacks;
    GLUquadric* quadric;
  };
  static_assert(sizeof(CGLObject) == sizeof(Expected), "no member beyond the documented ones");
}

}  // namespace
