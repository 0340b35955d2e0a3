#include <lumagrid/CGLGroup.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "core_expect.h"
#include "core_probes.h"
#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "naming/ParamName.h"
#include "recorded/CallLines.h"
#include "recorded/RecordedTest.h"

namespace {

using glrecorder::en;
using glrecorder::line;

class Group : public RecordedTest {};

// Counts the colour requests that reach it, per overload.
class ColorCountingShape : public QuadShape {
 public:
  int byColor = 0;
  int byRef = 0;
  int byGrey = 0;
  int byFour = 0;
  long ColorSet(const CGLColor& c) override {
    ++byColor;
    return CGLObject::ColorSet(c);
  }
  long ColorSet(unsigned long rgb) override {
    ++byRef;
    return CGLObject::ColorSet(rgb);
  }
  long ColorSet(double v) override {
    ++byGrey;
    return CGLObject::ColorSet(v);
  }
  long ColorSet(double r, double g, double b, double a) override {
    ++byFour;
    return CGLObject::ColorSet(r, g, b, a);
  }
  using CGLObject::m_color;
};

// ---------------------------------------------------------------- drawing

TEST_F(Group, EmptyGroupDrawPushesOnceAndPopsTwice) {
  GroupProbe g;
  glrecorder::recorder().setMaxStackDepth(GL_MODELVIEW, 32);
  glPushMatrix();  // a spare matrix for the extra pop
  glrecorder::recorder().clearCalls();
  EXPECT_EQ(g.Draw(), 1);
  EXPECT_THAT(glrecorder::recorder().log(),
              glrecorder::LinesEq({
                  "glPushMatrix()", MultLine(Identity()), MaterialLine(0.5f, 0.5f, 0.5f, 1.0f),
                  "glPopMatrix()",  // DisplayListMake's own pop
                  "glPopMatrix()",  // DrawFinish
              }));
  EXPECT_EQ(glrecorder::recorder().stackDepth(GL_MODELVIEW), 1);
  EXPECT_EQ(glrecorder::recorder().underflows(), 0);
}

TEST_F(Group, GroupDrawOnAnEmptyStackUnderflows) {
  GroupProbe g;
  g.Draw();
  EXPECT_EQ(glrecorder::recorder().underflows(GL_MODELVIEW), 1);
  EXPECT_EQ(glrecorder::recorder().pendingError(), static_cast<GLenum>(GL_STACK_UNDERFLOW));
}

TEST_F(Group, GroupNeverBuildsAListAndStaysModified) {
  GroupProbe g;
  g.Add(new QuadShape);
  glPushMatrix();
  glPushMatrix();
  EXPECT_EQ(g.DisplayListMake(), 1);
  EXPECT_EQ(g.m_nDisplayList, -1);
  EXPECT_TRUE(g.m_bModified);
  g.Draw();
  g.Draw();
  EXPECT_EQ(g.m_nDisplayList, -1);
  EXPECT_TRUE(g.m_bModified);
  EXPECT_EQ(glrecorder::recorder().count("glNewList"), 1u);  // the member's only
}

TEST_F(Group, MembersAreDrawnInsideTheGroupTransformInOrder) {
  GroupProbe g;
  auto* first = new QuadShape(0.25f);
  auto* second = new QuadShape(0.75f);
  g.Add(first);
  g.Add(second);
  first->ColorSet(0x0000FFUL);
  second->Select(true);
  EXPECT_EQ(g.Move(1.0, 2.0, 3.0), 1);
  second->Move(0.0, 0.0, 5.0);
  glPushMatrix();
  glrecorder::recorder().clearCalls();
  g.Draw();
  mat4x4 groupMatrix;
  groupMatrix.loadTranslate(1.0, 2.0, 3.0);
  mat4x4 secondMatrix;
  secondMatrix.loadTranslate(0.0, 0.0, 5.0);
  EXPECT_THAT(glrecorder::recorder().log(),
              glrecorder::LinesEq({
                  "glPushMatrix()",
                  MultLine(groupMatrix),
                  MaterialLine(0.5f, 0.5f, 0.5f, 1.0f),
                  "glPushMatrix()",
                  MultLine(Identity()),
                  MaterialLine(1.0f, 0.0f, 0.0f, 1.0f),  // members set their own colour
                  "glIsList(4294967295)",
                  "glGenLists(1)",
                  "glIsList(1)",
                  "glNewList(1, GL_COMPILE)",
                  "glBegin(GL_QUADS)",
                  "glNormal3f(0, 0, 1)",
                  "glVertex3f(-0.25, -0.25, 0)",
                  "glVertex3f(0.25, -0.25, 0)",
                  "glVertex3f(0.25, 0.25, 0)",
                  "glVertex3f(-0.25, 0.25, 0)",
                  "glEnd()",
                  "glEndList()",
                  "glCallList(1)",
                  "glPopMatrix()",
                  "glPushMatrix()",
                  MultLine(secondMatrix),
                  MaterialLine(0.0f, 1.0f, 0.0f, 1.0f),  // selected: highlight
                  "glIsList(4294967295)",
                  "glGenLists(1)",
                  "glIsList(2)",
                  "glNewList(2, GL_COMPILE)",
                  "glBegin(GL_QUADS)",
                  "glNormal3f(0, 0, 1)",
                  "glVertex3f(-0.75, -0.75, 0)",
                  "glVertex3f(0.75, -0.75, 0)",
                  "glVertex3f(0.75, 0.75, 0)",
                  "glVertex3f(-0.75, 0.75, 0)",
                  "glEnd()",
                  "glEndList()",
                  "glCallList(2)",
                  "glPopMatrix()",
                  "glPopMatrix()",  // DisplayListMake's own pop
                  "glPopMatrix()",  // DrawFinish: one more than pushed
              }));
}

TEST_F(Group, MoveChangesOnlyTheGroupsMatrix) {
  GroupProbe g;
  auto* member = new ObjectProbe;
  g.Add(member);
  g.Move(1.0, 2.0, 3.0);
  mat4x4 expected;
  expected.loadTranslate(1.0, 2.0, 3.0);
  EXPECT_TRUE(mathtest::equalOrBothNaN(g.m_matrix, expected));
  EXPECT_TRUE(mathtest::equalOrBothNaN(member->m_matrix, Identity()));
}

TEST_F(Group, MembersAreDrawnTranslatedByTheGroup) {
  GroupProbe g;
  g.Add(new QuadShape(0.5f));
  g.Move(1.0, 2.0, 3.0);
  glPushMatrix();
  g.Draw();
  const auto& prims = glrecorder::recorder().primitives();
  ASSERT_EQ(prims.size(), 1u);
  ASSERT_EQ(prims[0].eyeVertices.size(), 4u);
  EXPECT_EQ(prims[0].eyeVertices[0], (std::array<double, 3>{0.5, 1.5, 3.0}));
  EXPECT_EQ(prims[0].eyeVertices[2], (std::array<double, 3>{1.5, 2.5, 3.0}));
}

TEST_F(Group, HiddenGroupDrawsNothing) {
  GroupProbe g;
  g.Add(new QuadShape);
  g.SetVisible(false);
  EXPECT_EQ(g.Draw(), 1);
  EXPECT_TRUE(glrecorder::recorder().log().empty());
}

TEST_F(Group, EmptyGroupDrawDirectMakesNoCall) {
  GroupProbe g;
  EXPECT_EQ(g.DrawDirect(), 1);
  EXPECT_TRUE(glrecorder::recorder().log().empty());
}

TEST_F(Group, DrawDirectPassesToMembersWithoutTheGroupTransform) {
  GroupProbe g;
  g.Move(7.0, 7.0, 7.0);
  g.Add(new ObjectProbe);  // no immediate-mode geometry: draws nothing
  g.Add(new QuadShape(1.0f));
  EXPECT_EQ(g.DrawDirect(), 1);
  EXPECT_THAT(glrecorder::recorder().log(), glrecorder::LinesEq({
                                                "glPushMatrix()",
                                                MultLine(Identity()),
                                                MaterialLine(0.5f, 0.5f, 0.5f, 1.0f),
                                                "glBegin(GL_QUADS)",
                                                "glNormal3f(0, 0, 1)",
                                                "glVertex3f(-1, -1, 0)",
                                                "glVertex3f(1, -1, 0)",
                                                "glVertex3f(1, 1, 0)",
                                                "glVertex3f(-1, 1, 0)",
                                                "glEnd()",
                                                "glPopMatrix()",
                                            }));
}

// ---------------------------------------------------------------- members

TEST_F(Group, AddReturnsTheIndexAndAcceptsDuplicates) {
  GroupProbe g;
  auto* p = new ObjectProbe;
  EXPECT_EQ(g.Add(p), 0);
  EXPECT_EQ(g.Add(new ObjectProbe), 1);
  EXPECT_EQ(g.Add(nullptr), 2);
  ASSERT_EQ(g.m_arrObjects.size(), 3u);
  EXPECT_EQ(g.m_arrObjects[0], p);
  EXPECT_EQ(g.m_arrObjects[2], nullptr);
}

TEST_F(Group, DestroyingTheGroupDeletesEveryMemberAndSkipsNull) {
  int deaths = 0;
  {
    CGLGroup g;
    g.Add(new CountedShape(&deaths));
    g.Add(nullptr);
    g.Add(new CountedShape(&deaths));
  }
  EXPECT_EQ(deaths, 2);
}

TEST_F(Group, DuplicateMemberIsDrawnTwiceAndDeletedOnce) {
  int deaths = 0;
  {
    CGLGroup g;
    auto* p = new CountedShape(&deaths);
    EXPECT_EQ(g.Add(p), 0);
    EXPECT_EQ(g.Add(p), 1);
    EXPECT_EQ(g.Add(p), 2);
    glPushMatrix();
    glrecorder::recorder().clearCalls();
    g.Draw();
    EXPECT_EQ(glrecorder::recorder().count("glCallList"), 3u);
    EXPECT_EQ(glrecorder::recorder().count("glNewList"), 1u);
  }
  EXPECT_EQ(deaths, 1);
}

TEST_F(Group, MembersAreDeletedInOrderEachAtItsFirstPlace) {
  std::vector<const CGLObject*> unused;
  std::vector<const CGLObject*> deleted;
  auto* a = new LoggingShape(&unused, &deleted);
  auto* b = new LoggingShape(&unused, &deleted);
  auto* c = new LoggingShape(&unused, &deleted);
  {
    CGLGroup g;
    for (CGLObject* p : {static_cast<CGLObject*>(b), static_cast<CGLObject*>(a),
                         static_cast<CGLObject*>(b), static_cast<CGLObject*>(nullptr),
                         static_cast<CGLObject*>(c), static_cast<CGLObject*>(a)}) {
      g.Add(p);
    }
  }
  EXPECT_EQ(deleted, (std::vector<const CGLObject*>{b, a, c}));
}

TEST_F(Group, NullMemberIsSkippedByEveryPass) {
  auto passes = [](bool withNull) {
    glrecorder::recorder().reset();
    GroupProbe g;
    auto* first = new ColorCountingShape;
    g.Add(first);
    if (withNull) {
      g.Add(nullptr);
    }
    auto* second = new ColorCountingShape;
    g.Add(second);
    g.ColorSet(CGLColor(0.1, 0.2, 0.3, 1.0));
    g.ColorSet(0.25);
    g.ColorSet(0x00FF00FFul);
    g.ColorSet(0.4, 0.5, 0.6, 0.7);
    g.Select(true);
    g.Move(1.0, 2.0, 3.0);
    glPushMatrix();
    g.Draw();
    g.DrawDirect();
    g.Select(false);
    glPushMatrix();
    g.Draw();
    std::vector<std::string> seen = glrecorder::recorder().log();
    for (const ColorCountingShape* m : {first, second}) {
      seen.push_back(std::to_string(m->byColor) + " " + std::to_string(m->byRef) + " " +
                     std::to_string(m->byGrey) + " " + std::to_string(m->byFour));
    }
    return seen;
  };
  ExpectNullChangesNothing(passes);
}

TEST_F(Group, SelectReachesMembersButNotTheGroup) {
  GroupProbe g;
  auto* a = new ObjectProbe;
  auto* b = new ObjectProbe;
  g.Add(a);
  g.Add(b);
  g.m_bModified = false;
  g.Select(true);
  EXPECT_EQ(a->IsSelected(), 1);
  EXPECT_EQ(b->IsSelected(), 1);
  EXPECT_EQ(g.IsSelected(), 0);
  EXPECT_FALSE(g.m_bSelected);
  EXPECT_FALSE(g.m_bModified);
}

TEST_F(Group, ColorReferenceMakesMembersAndGroupPureRed) {
  GroupProbe g;
  auto* a = new ObjectProbe;
  auto* b = new ObjectProbe;
  a->AlphaSet(0.3);
  g.Add(a);
  g.Add(b);
  EXPECT_EQ(g.ColorSet(0x0000FFUL), 1);
  for (CGLObject* o :
       {static_cast<CGLObject*>(a), static_cast<CGLObject*>(b), static_cast<CGLObject*>(&g)}) {
    EXPECT_TRUE(o->ColorGet() == CGLColor(1.0, 0.0, 0.0, 1.0));
  }
}

TEST_F(Group, HighlightColourIsNotPassedOn) {
  GroupProbe g;
  auto* a = new ObjectProbe;
  g.Add(a);
  g.HLColorSet(0x0000FFUL);
  g.AlphaSet(0.5);
  EXPECT_TRUE(g.HLColorGet() == CGLColor(1.0, 0.0, 0.0, 1.0));
  EXPECT_TRUE(a->HLColorGet() == CGLColor(0.0, 1.0, 0.0, 1.0));
  EXPECT_EQ(a->AlphaGet(), 1.0);
}

struct ColourPassCase {
  const char* name;
  std::function<long(CGLGroup&)> call;
  int byColor, byRef, byGrey, byFour;
};

// Names the case in test listings instead of dumping its bytes.
void PrintTo(const ColourPassCase& c, std::ostream* os) {
  *os << c.name;
}

class GroupColourPass : public RecordedTestWithParam<ColourPassCase> {};

TEST_P(GroupColourPass, MembersHearEachOverloadAsOftenAsTheCaseSays) {
  CGLGroup g;
  auto* a = new ColorCountingShape;
  auto* b = new ColorCountingShape;
  g.Add(a);
  g.Add(b);
  EXPECT_EQ(GetParam().call(g), 1);
  for (const ColorCountingShape* m : {a, b}) {
    EXPECT_EQ(m->byColor, GetParam().byColor);
    EXPECT_EQ(m->byRef, GetParam().byRef);
    EXPECT_EQ(m->byGrey, GetParam().byGrey);
    EXPECT_EQ(m->byFour, GetParam().byFour);
  }
}

// The reference and four-double forms reach the members a second time, through
// the group's own ColorSet(const CGLColor&).
INSTANTIATE_TEST_SUITE_P(
    Overloads, GroupColourPass,
    ::testing::Values(
        ColourPassCase{"Color", [](CGLGroup& g) { return g.ColorSet(CGLColor(0.2)); }, 1, 0, 0, 0},
        ColourPassCase{"Grey", [](CGLGroup& g) { return g.ColorSet(0.2); }, 0, 0, 1, 0},
        ColourPassCase{"Reference", [](CGLGroup& g) { return g.ColorSet(0x00FF00UL); }, 2, 1, 0, 0},
        ColourPassCase{"FourDoubles", [](CGLGroup& g) { return g.ColorSet(0.1, 0.2, 0.3, 0.4); }, 2,
                       0, 0, 1}),
    ParamName());

TEST_F(Group, ColourPassesSetTheSameColourOnMembersAndGroup) {
  GroupProbe g;
  auto* a = new ColorCountingShape;
  g.Add(a);
  g.ColorSet(0.1, 0.2, 0.3, 0.4);
  EXPECT_TRUE(a->m_color == CGLColor(0.1, 0.2, 0.3, 0.4));
  EXPECT_TRUE(g.ColorGet() == CGLColor(0.1, 0.2, 0.3, 0.4));
  g.ColorSet(0.6);
  EXPECT_TRUE(a->m_color == CGLColor(0.6, 0.6, 0.6, 0.4));
  EXPECT_TRUE(g.ColorGet() == CGLColor(0.6, 0.6, 0.6, 0.4));
}

TEST(GroupAbi, OverridesKeepTheBaseSlots) {
  using O = CGLObject;
  using G = CGLGroup;
  EXPECT_EQ(VtableSlot(static_cast<long (G::*)(const CGLColor&)>(&G::ColorSet)),
            VtableSlot(static_cast<long (O::*)(const CGLColor&)>(&O::ColorSet)));
  EXPECT_EQ(VtableSlot(static_cast<long (G::*)(unsigned long)>(&G::ColorSet)),
            VtableSlot(static_cast<long (O::*)(unsigned long)>(&O::ColorSet)));
  EXPECT_EQ(VtableSlot(&G::DisplayListMake), VtableSlot(&O::DisplayListMake));
  EXPECT_EQ(VtableSlot(&G::DrawDirect), VtableSlot(&O::DrawDirect));
  EXPECT_EQ(VtableSlot(&G::Select), VtableSlot(&O::Select));
  EXPECT_EQ(VtableSlot(&G::Add), -1);
  static_assert(sizeof(CGLGroup) == sizeof(CGLObject) + sizeof(std::vector<CGLObject*>),
                "one member beyond the base");
}

std::ptrdiff_t NamedSlot(const std::string& name) {
  const std::vector<std::string>& names = VirtualNames();
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] == name) {
      return static_cast<std::ptrdiff_t>(i);
    }
  }
  return -1;
}

TEST(GroupAbi, SlotNamesMatchTheVirtualTable) {
  using O = CGLObject;
  EXPECT_EQ(VirtualNames().size(), 51u);
  EXPECT_EQ(NamedSlot("ColorSet(d,d,d,d)"),
            VtableSlot(static_cast<long (O::*)(double, double, double, double)>(&O::ColorSet)));
  EXPECT_EQ(NamedSlot("ColorSet(C)"),
            VtableSlot(static_cast<long (O::*)(const CGLColor&)>(&O::ColorSet)));
  EXPECT_EQ(NamedSlot("DisplayListMake"), VtableSlot(&O::DisplayListMake));
  EXPECT_EQ(NamedSlot("DrawDirect"), VtableSlot(&O::DrawDirect));
  EXPECT_EQ(NamedSlot("Select"), VtableSlot(&O::Select));
  EXPECT_EQ(NamedSlot("IsVisible"), VtableSlot(&O::IsVisible));
  EXPECT_EQ(NamedSlot("DrawStart"), VtableSlot(&ObjectProbe::DrawStart));
  EXPECT_EQ(NamedSlot("DrawSelection"), VtableSlot(&ObjectProbe::DrawSelection));
}

TEST(GroupAbi, OverridesTheColourFormsListMakingImmediateDrawAndSelectOnly) {
  glrecorder::recorder().reset();
  const CGLObject base;
  const CGLGroup group;
  EXPECT_THAT(OverriddenVirtuals(group, base),
              ::testing::ElementsAre("ColorSet(d,d,d,d)", "ColorSet(ul)", "ColorSet(d)",
                                     "ColorSet(C)", "DisplayListMake", "DrawDirect", "Select"));
}

}  // namespace
