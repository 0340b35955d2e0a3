#include <lumagrid/CGLArrow.h>

#include <GL/gl.h>
#include <GL/glu.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "naming/ParamName.h"
#include "quadric_probes.h"
#include "recorded/CallLines.h"
#include "recorded/DrawCounts.h"
#include "recorded/Shorthands.h"
#include "recorded/SilentCall.h"

namespace {

using ArrowProbe = Probe<CGLArrow>;

const char* const q = "quad1";
const glrecorder::Enum kOutside = en(GLU_OUTSIDE);
const glrecorder::Enum kInside = en(GLU_INSIDE);

// The default arrow's derived quantities, as the arrow computes them.
const double kS = 1.0 * 0.8;          // shaft length L * f
const double kR = 0.2 * 0.4;          // shaft radius R * fracRadius
const double kH = (1.0 - 0.8) * 1.0;  // head length (1 - f) * L: 0.19999999999999996

// The full, non-lite shaft of the default arrow.
Lines DefaultShaft() {
  return {
      line("gluQuadricOrientation", q, kOutside),
      line("gluCylinder", q, kR, kR, kS, 128, 8),
      line("gluQuadricOrientation", q, kInside),
      line("gluDisk", q, 0.0, kR, 128, 1),  // bottom, facing -z
      line("gluQuadricOrientation", q, kOutside),
      line("glTranslated", 0.0, 0.0, kS),
      line("gluDisk", q, 0.0, kR, 128, 1),  // top, under the first head
  };
}

class Arrow : public RecordedTest {};

TEST_F(Arrow, DefaultArrowCompilesAGreyClosedShaftThenAPointedHead) {
  CGLArrow arrow;
  recorder().clearCalls();
  EXPECT_EQ(arrow.DisplayListMake(), 0);
  EXPECT_LINES((Lines{
                   line("glNewList", 1, en(GL_COMPILE)),
                   line("glColor3d", 0.5, 0.5, 0.5),
                   line("gluQuadricOrientation", q, kOutside),
                   line("gluCylinder", q, 0.08000000000000002, 0.08000000000000002, 0.8, 128, 8),
                   line("gluQuadricOrientation", q, kInside),
                   line("gluDisk", q, 0.0, 0.08000000000000002, 128, 1),
                   line("gluQuadricOrientation", q, kOutside),
                   line("glTranslated", 0.0, 0.0, 0.8),
                   line("gluDisk", q, 0.0, 0.08000000000000002, 128, 1),
                   line("gluQuadricOrientation", q, kOutside),
                   line("gluCylinder", q, 0.2, 0.0, 0.19999999999999996, 128, 8),
                   line("gluQuadricOrientation", q, kInside),
                   line("gluDisk", q, 0.0, 0.2, 128, 1),
                   line("glEndList"),
               }),
               CompiledBlock(recorder().log()));
}

TEST_F(Arrow, HeadLengthIsOneMinusFractionTimesLength) {
  // (1 - 0.7) * 3 and 3 - 3 * 0.7 differ in the last bits.
  CGLArrow arrow(3.0, 1.0, false, 1, 0.7, 0.5);
  const Lines body = CompiledBody(arrow);
  ASSERT_EQ(body.size(), 12u);
  EXPECT_EQ(body[9], line("gluCylinder", q, 1.0, 0.0, 0.9000000000000001, 128, 8));
  EXPECT_NE(body[9], line("gluCylinder", q, 1.0, 0.0, 3.0 - 3.0 * 0.7, 128, 8));
}

TEST_F(Arrow, ConstructorTakesItsArgumentsInOrder) {
  CGLArrow arrow(2.0, 0.5, false, 1, 0.75, 0.25);
  const double s = 2.0 * 0.75, r = 0.5 * 0.25, h = (1.0 - 0.75) * 2.0;
  EXPECT_LINES((Lines{
                   line("glColor3d", 0.5, 0.5, 0.5),
                   line("gluQuadricOrientation", q, kOutside),
                   line("gluCylinder", q, r, r, s, 128, 8),
                   line("gluQuadricOrientation", q, kInside),
                   line("gluDisk", q, 0.0, r, 128, 1),
                   line("gluQuadricOrientation", q, kOutside),
                   line("glTranslated", 0.0, 0.0, s),
                   line("gluDisk", q, 0.0, r, 128, 1),
                   line("gluQuadricOrientation", q, kOutside),
                   line("gluCylinder", q, 0.5, 0.0, h, 128, 8),
                   line("gluQuadricOrientation", q, kInside),
                   line("gluDisk", q, 0.0, 0.5, 128, 1),
               }),
               CompiledBody(arrow));
}

TEST_F(Arrow, TakesTheTessellationDefaultsOfItsConstruction) {
  CGLObject::s_nSlices4New = 10;
  CGLObject::s_nStacks4New = 3;
  ArrowProbe arrow;
  CGLObject::s_nSlices4New = 128;
  CGLObject::s_nStacks4New = 8;
  EXPECT_EQ(arrow.m_nSlices, 10);
  EXPECT_EQ(arrow.m_nStacks, 3);
  const Lines body = CompiledBody(arrow);
  ASSERT_EQ(body.size(), 12u);
  EXPECT_EQ(body[2], line("gluCylinder", q, kR, kR, kS, 10, 3));
  EXPECT_EQ(body[7], line("gluDisk", q, 0.0, kR, 10, 1));
}

TEST_F(Arrow, ColourIsTheNormalColourEvenWhenSelected) {
  CGLArrow arrow;
  arrow.ColorSet(0.25, 0.5, 0.75, 0.3);
  arrow.Select(true);
  const Lines body = CompiledBody(arrow);
  ASSERT_FALSE(body.empty());
  // No alpha: glColor3d.
  EXPECT_EQ(body.front(), line("glColor3d", 0.25, 0.5, 0.75));
}

TEST_F(Arrow, SelectedArrowMaterialIsHighlightButPlainColourIsNormal) {
  CGLArrow arrow;
  arrow.ColorSet(0x0000FFUL);
  arrow.Select(true);
  arrow.Draw();
  const std::array<float, 4> diffuse = recorder().material(GL_FRONT, GL_DIFFUSE);
  EXPECT_EQ(diffuse, (std::array<float, 4>{0.0f, 1.0f, 0.0f, 1.0f}));
  EXPECT_EQ(recorder().currentColor(), (std::array<double, 4>{1.0, 0.0, 0.0, 1.0}));
}

// ColorGet is reached through the virtual table.
class TintedArrow : public CGLArrow {
 public:
  const CGLColor& ColorGet() override { return m_tint; }

 private:
  CGLColor m_tint{0.1, 0.2, 0.3, 0.4};
};

TEST_F(Arrow, ColourComesFromTheVirtualColorGet) {
  TintedArrow arrow;
  const Lines body = CompiledBody(arrow);
  ASSERT_FALSE(body.empty());
  EXPECT_EQ(body.front(), line("glColor3d", 0.1, 0.2, 0.3));
}

TEST_F(Arrow, ColourChangeRecompilesTheColour) {
  CGLArrow arrow;
  arrow.Draw();
  arrow.ColorSet(0x00FF00UL);
  recorder().clearCalls();
  arrow.Draw();
  const Lines block = CompiledBlock(recorder().log());
  ASSERT_GE(block.size(), 2u);
  EXPECT_EQ(block[1], line("glColor3d", 0.0, 1.0, 0.0));
}

TEST_F(Arrow, DrawArrowLeavesTheMatrixAtTheLastHeadBase) {
  // Three heads: S + 2 * H / 2 along z.
  CGLArrow arrow(1.0, 0.2, false, 3, 0.8, 0.4);
  EXPECT_EQ(arrow.DrawArrow(), 1);
  const glrecorder::Matrix m = recorder().matrix(GL_MODELVIEW);
  EXPECT_DOUBLE_EQ(m[14], kS + kH * 0.5 + kH * 0.5);
  EXPECT_EQ(m[12], 0.0);
  EXPECT_EQ(m[13], 0.0);
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
}

TEST_F(Arrow, DrawKeepsTheMatrixStackBalanced) {
  CGLArrow arrow(1.0, 0.2, false, 3, 0.8, 0.4);
  arrow.Draw();
  arrow.Draw();
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(recorder().matrix(GL_MODELVIEW),
            glrecorder::Matrix({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
  EXPECT_TRUE(recorder().errors().empty());
}

// ---------------------------------------------------------------- heads

struct HeadsCase {
  const char* name;
  bool lite;
  int heads;
  std::function<Lines()> expected;
};

std::ostream& operator<<(std::ostream& os, const HeadsCase& c) {
  return os << c.name;
}

// A head: a cone from radius 0.2 to `top` over `length`, closed by its base disk.
Lines Head(double top, double length, int slices, int stacks) {
  return {
      line("gluQuadricOrientation", q, kOutside),
      line("gluCylinder", q, 0.2, top, length, slices, stacks),
      line("gluQuadricOrientation", q, kInside),
      line("gluDisk", q, 0.0, 0.2, slices, 1),
  };
}

Lines FinalHead() {
  return Head(0.0, kH, 128, 8);
}

Lines OneHeadArrow() {
  return Join({{line("glColor3d", 0.5, 0.5, 0.5)}, DefaultShaft(), FinalHead()});
}

Lines TruncatedHead() {
  // Half as long, half the radius, then on to its top.
  return Join({Head(0.1, kH * 0.5, 128, 8), {line("glTranslated", 0.0, 0.0, kH * 0.5)}});
}

Lines LiteShaft() {
  return {
      line("glColor3d", 0.5, 0.5, 0.5),
      line("glBegin", en(GL_LINES)),
      line("glVertex3f", 0.0f, 0.0f, 0.0f),
      line("glVertex3f", 0.0f, 0.0f, 0.8f),  // S as float
      line("glEnd"),
      line("glTranslated", 0.0, 0.0, kS),
  };
}

Lines LiteTruncatedHead() {
  return Join({Head(0.1, kH * 0.5, 4, 2), {line("glTranslated", 0.0, 0.0, kH * 0.5)}});
}

Lines LiteFinalHead() {
  return Head(0.0, kH, 4, 2);
}

const HeadsCase kHeadsCases[] = {
    {"OneHead", false, 1, OneHeadArrow},
    {"ZeroHeadsDrawOneHead", false, 0, OneHeadArrow},
    {"NegativeHeadsDrawOneHead", false, -3, OneHeadArrow},
    {"SmallestIntHeadsDrawOneHead", false, INT_MIN, OneHeadArrow},
    {"TwoHeads", false, 2,
     [] {
       return Join(
           {{line("glColor3d", 0.5, 0.5, 0.5)}, DefaultShaft(), TruncatedHead(), FinalHead()});
     }},
    {"ThreeHeads", false, 3,
     [] {
       return Join({{line("glColor3d", 0.5, 0.5, 0.5)},
                    DefaultShaft(),
                    TruncatedHead(),
                    TruncatedHead(),
                    FinalHead()});
     }},
    {"LiteOneHead", true, 1,
     [] {
       return Join({LiteShaft(), LiteFinalHead()});
     }},
    {"LiteZeroHeads", true, 0,
     [] {
       return Join({LiteShaft(), LiteFinalHead()});
     }},
    {"LiteThreeHeads", true, 3,
     [] {
       return Join({LiteShaft(), LiteTruncatedHead(), LiteTruncatedHead(), LiteFinalHead()});
     }},
};

class ArrowHeads : public RecordedTestWithParam<HeadsCase> {};

TEST_P(ArrowHeads, CompileEmitsTheShaftThenEachHead) {
  CGLArrow arrow(1.0, 0.2, GetParam().lite, GetParam().heads, 0.8, 0.4);
  EXPECT_LINES(GetParam().expected(), CompiledBody(arrow));
}

TEST_P(ArrowHeads, DrawDirectEmitsTheSameGeometryAtOnce) {
  CGLArrow arrow(1.0, 0.2, GetParam().lite, GetParam().heads, 0.8, 0.4);
  recorder().clearCalls();
  EXPECT_EQ(arrow.DrawDirect(), 0);
  Lines log = recorder().log();
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(log[0], line("glPushMatrix"));
  EXPECT_EQ(log[1].rfind("glMultMatrixd(", 0), 0u) << log[1];
  EXPECT_EQ(log.back(), line("glPopMatrix"));
  // Before the closing pop: the arrow itself.
  const Lines expected = GetParam().expected();
  ASSERT_GE(log.size(), expected.size() + 1);
  const Lines body(log.end() - 1 - static_cast<std::ptrdiff_t>(expected.size()), log.end() - 1);
  EXPECT_LINES(expected, body);
  EXPECT_EQ(recorder().count("glNewList"), 0u);
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
}

INSTANTIATE_TEST_SUITE_P(Counts, ArrowHeads, ::testing::ValuesIn(kHeadsCases), ParamName());

// ---------------------------------------------------------------- lite

TEST_F(Arrow, LiteShaftIsOneLineWithoutDisks) {
  CGLArrow arrow(2.0, 0.1, true, 1, 0.8, 0.4);
  recorder().clearCalls();
  arrow.DrawArrow();
  ASSERT_EQ(recorder().primitives().size(), 1u);
  const glrecorder::Primitive& shaft = recorder().primitives().front();
  EXPECT_EQ(shaft.mode, static_cast<GLenum>(GL_LINES));
  ASSERT_EQ(shaft.vertices.size(), 2u);
  EXPECT_EQ(shaft.vertices[1][2], static_cast<double>(static_cast<float>(2.0 * 0.8)));
  // One disk only: the head's base.
  EXPECT_EQ(recorder().count("gluDisk"), 1u);
}

TEST_F(Arrow, LiteShaftEndIsRoundedToFloat) {
  // 1.6 is not a float: the vertex carries its float rounding, the
  // translation the double.
  CGLArrow arrow(2.0, 0.1, true, 1, 0.8, 0.4);
  const Lines body = CompiledBody(arrow);
  ASSERT_GE(body.size(), 6u);
  EXPECT_EQ(body[3], line("glVertex3f", 0.0f, 0.0f, 1.6f));
  EXPECT_EQ(body[5], line("glTranslated", 0.0, 0.0, 2.0 * 0.8));
}

TEST_F(Arrow, LiteModeLeavesTheDrawStyleFilled) {
  ArrowProbe arrow(1.0, 0.2, true, 2, 0.8, 0.4);
  arrow.DisplayListMake();
  EXPECT_EQ(recorder().quadricDrawStyle(arrow.m_pQuadric), static_cast<GLenum>(GLU_FILL));
  EXPECT_EQ(recorder().count("gluQuadricDrawStyle"), 0u);
}

// ---------------------------------------------------------------- setters

TEST_F(Arrow, SetLengthDoesNotReachABuiltListUntilTheNextModification) {
  CGLArrow arrow;
  arrow.Draw();
  arrow.SetLength(2.0);

  EXPECT_EQ(ListsCompiledByDraw(arrow), 0u);
  // The replayed list still holds the old shaft.
  EXPECT_LINES((Lines{line("glTranslated", 0.0, 0.0, kS)}), ExecutedNamed("glTranslated"));

  // DrawDirect shows the new length at once.
  recorder().clearCalls();
  arrow.DrawDirect();
  EXPECT_LINES((Lines{line("glTranslated", 0.0, 0.0, 2.0 * 0.8)}), ExecutedNamed("glTranslated"));

  // Any marking change rebuilds with it.
  arrow.Move(0.0);
  EXPECT_EQ(ListsCompiledByDraw(arrow), 1u);
  const std::vector<glrecorder::Call> cylinders = recorder().callsNamed("gluCylinder");
  ASSERT_FALSE(cylinders.empty());
  EXPECT_EQ(cylinders.front().str(), line("gluCylinder", q, kR, kR, 2.0 * 0.8, 128, 8));
}

struct SetterCase {
  const char* name;
  std::function<void(CGLArrow&)> set;
  int gluCylinderIndex;  // which gluCylinder of the new geometry to check
  std::function<std::string()> expected;
};

std::ostream& operator<<(std::ostream& os, const SetterCase& c) {
  return os << c.name;
}

const SetterCase kSetterCases[] = {
    {"SetLength", [](CGLArrow& a) { a.SetLength(2.0); }, 0,
     [] { return line("gluCylinder", q, kR, kR, 2.0 * 0.8, 128, 8); }},
    {"SetRadius", [](CGLArrow& a) { a.SetRadius(0.5); }, 1,
     [] { return line("gluCylinder", q, 0.5, 0.0, kH, 128, 8); }},
    {"SetLite", [](CGLArrow& a) { a.SetLite(true); }, 0,
     [] { return line("gluCylinder", q, 0.2, 0.0, kH, 4, 2); }},
    {"SetArrowNum", [](CGLArrow& a) { a.SetArrowNum(2); }, 1,
     [] { return line("gluCylinder", q, 0.2, 0.1, kH * 0.5, 128, 8); }},
    {"SetFracLength", [](CGLArrow& a) { a.SetFracLength(0.5); }, 1,
     [] { return line("gluCylinder", q, 0.2, 0.0, (1.0 - 0.5) * 1.0, 128, 8); }},
    {"SetFracRadius", [](CGLArrow& a) { a.SetFracRadius(0.5); }, 0,
     [] { return line("gluCylinder", q, 0.2 * 0.5, 0.2 * 0.5, kS, 128, 8); }},
};

class ArrowSetter : public RecordedTestWithParam<SetterCase> {};

TEST_P(ArrowSetter, LeavesABuiltListCurrent) {
  ArrowProbe arrow;
  arrow.DisplayListMake();
  GetParam().set(arrow);
  EXPECT_FALSE(arrow.m_bModified);
  EXPECT_TRUE(ReturnsSilently(1, [&] { return arrow.DisplayListMake(); }));
}

TEST_P(ArrowSetter, ShowsInTheNextEmission) {
  CGLArrow arrow;
  GetParam().set(arrow);
  recorder().clearCalls();
  arrow.DrawArrow();
  const std::vector<glrecorder::Call> cylinders = recorder().callsNamed("gluCylinder");
  ASSERT_GT(cylinders.size(), static_cast<std::size_t>(GetParam().gluCylinderIndex));
  EXPECT_EQ(cylinders[static_cast<std::size_t>(GetParam().gluCylinderIndex)].str(),
            GetParam().expected());
}

INSTANTIATE_TEST_SUITE_P(Setters, ArrowSetter, ::testing::ValuesIn(kSetterCases), ParamName());

// ---------------------------------------------------------------- immediate mode

TEST_F(Arrow, DrawDirectReturnsZeroAfterDrawing) {
  CGLArrow arrow;
  EXPECT_EQ(arrow.DrawDirect(), 0);
  EXPECT_GT(recorder().count("gluCylinder"), 0u);
}

TEST_F(Arrow, DrawDirectOfAHiddenArrowReturnsOneAndDrawsNothing) {
  CGLArrow arrow;
  arrow.SetVisible(false);
  EXPECT_TRUE(ReturnsSilently(1, [&] { return arrow.DrawDirect(); }));
}

TEST_F(Arrow, DrawDirectLeavesTheListAlone) {
  ArrowProbe arrow;
  arrow.DrawDirect();
  EXPECT_TRUE(arrow.m_bModified);
  EXPECT_EQ(arrow.m_nDisplayList, -1);
}

// A DrawStart that refuses: DrawDirect then returns 1 and draws nothing.
class RefusingArrow : public CGLArrow {
 protected:
  long DrawStart() override { return 0; }
};

TEST_F(Arrow, DrawDirectReturnsOneWhenDrawStartRefuses) {
  RefusingArrow arrow;
  EXPECT_TRUE(ReturnsSilently(1, [&] { return arrow.DrawDirect(); }));
}

// ---------------------------------------------------------------- copies

TEST_F(Arrow, CopyCarriesAllSixMembers) {
  CGLArrow source(3.0, 1.0, true, 2, 0.7, 0.5);
  CGLArrow copy(source);
  recorder().clearCalls();
  source.DrawArrow();
  const Lines fromSource = recorder().log();
  recorder().clearCalls();
  copy.DrawArrow();
  EXPECT_LINES(fromSource, recorder().log());
}

TEST_F(Arrow, AssignmentCarriesAllSixMembersAndTheHandle) {
  CGLArrow a;
  const CGLArrow b(3.0, 1.0, false, 2, 0.7, 0.5);
  CGLArrow& result = (a = b);
  EXPECT_EQ(&result, &a);
  recorder().clearCalls();
  a.DrawArrow();
  const double s = 3.0 * 0.7, r = 1.0 * 0.5;
  const Lines log = recorder().log();
  ASSERT_GE(log.size(), 3u);
  EXPECT_EQ(log[2], line("gluCylinder", "quad2", r, r, s, 128, 8));
}

// ---------------------------------------------------------------- bad input

struct DegenerateCase {
  const char* name;
  double length, radius, fracLength, fracRadius;
};

std::ostream& operator<<(std::ostream& os, const DegenerateCase& c) {
  return os << c.name;
}

const DegenerateCase kDegenerateCases[] = {
    {"ZeroLength", 0.0, 0.2, 0.8, 0.4},          {"NegativeLength", -1.0, 0.2, 0.8, 0.4},
    {"NaNLength", kNaN, 0.2, 0.8, 0.4},          {"ZeroRadius", 1.0, 0.0, 0.8, 0.4},
    {"NegativeRadius", 1.0, -0.2, 0.8, 0.4},     {"NaNRadius", 1.0, kNaN, 0.8, 0.4},
    {"WholeLengthIsShaft", 1.0, 0.2, 1.0, 0.4},  {"ShaftLongerThanArrow", 1.0, 0.2, 1.5, 0.4},
    {"NegativeFractions", 1.0, 0.2, -0.5, -1.0}, {"HugeLength", 1e300, 0.2, 0.8, 0.4},
};

class ArrowDegenerate : public RecordedTestWithParam<DegenerateCase> {};

TEST_P(ArrowDegenerate, HandsTheValuesToGluUnchanged) {
  const DegenerateCase& c = GetParam();
  for (bool lite : {false, true}) {
    recorder().reset();
    CGLArrow arrow(c.length, c.radius, lite, 2, c.fracLength, c.fracRadius);
    const double s = c.length * c.fracLength;
    const double r = c.radius * c.fracRadius;
    const double h = (1.0 - c.fracLength) * c.length;
    arrow.Draw();
    const std::vector<glrecorder::Call> cylinders = recorder().callsNamed("gluCylinder");
    const std::size_t n = cylinders.size();
    ASSERT_EQ(n, lite ? 2u : 3u);
    if (!lite) {
      EXPECT_EQ(cylinders[0].str(), line("gluCylinder", q, r, r, s, 128, 8));
    }
    EXPECT_EQ(cylinders[n - 2].str(), line("gluCylinder", q, c.radius, c.radius * 0.5, h * 0.5,
                                           lite ? 4 : 128, lite ? 2 : 8));
    EXPECT_EQ(cylinders[n - 1].str(),
              line("gluCylinder", q, c.radius, 0.0, h, lite ? 4 : 128, lite ? 2 : 8));
    EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
  }
}

INSTANTIATE_TEST_SUITE_P(Values, ArrowDegenerate, ::testing::ValuesIn(kDegenerateCases),
                         ParamName());

}  // namespace
