#include <lumagrid/CGLObject.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "core_probes.h"
#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "recorded/CallLines.h"
#include "recorded/DrawCounts.h"
#include "recorded/RecordedTest.h"

namespace {

using glrecorder::en;
using glrecorder::line;
using glrecorder::LinesEq;

glrecorder::Recorder& Rec() {
  return glrecorder::recorder();
}

class ObjectDraw : public RecordedTest {};

// Counts the pipeline's calls of its overridable steps.
class CountingShape : public QuadShape {
 public:
  int makes = 0;
  int selections = 0;
  long startResult = 1;
  long DisplayListMake() override {
    ++makes;
    return QuadShape::DisplayListMake();
  }
  long DrawStart() override {
    if (startResult != 1) {
      return startResult;
    }
    return QuadShape::DrawStart();
  }
  long DrawSelection() override {
    ++selections;
    return 0;
  }
};

// ---------------------------------------------------------------- pipeline

TEST_F(ObjectDraw, FirstDrawCompilesTheListInsideTheTransformAndCallsIt) {
  QuadShape q(0.5f);
  q.Move(1.0, 2.0, 3.0);
  q.Rotate(0.1, 0.2, 0.3);
  q.ColorSet(0.1, 0.2, 0.3, 0.4);
  const mat4x4 m = q.m_matrix;
  EXPECT_EQ(q.Draw(), 1);
  EXPECT_THAT(Rec().log(), LinesEq(Join({
                               {
                                   "glPushMatrix()",
                                   MultLine(m),
                                   MaterialLine(0.1f, 0.2f, 0.3f, 0.4f),
                                   "glIsList(4294967295)",  // the name -1 as GL sees it
                                   "glGenLists(1)",
                                   "glIsList(1)",
                                   "glNewList(1, GL_COMPILE)",
                               },
                               QuadLines(0.5f),
                               {
                                   "glEndList()",
                                   "glCallList(1)",
                                   "glPopMatrix()",
                               },
                           })));
  EXPECT_FALSE(q.m_bModified);
  EXPECT_EQ(q.m_nDisplayList, 1);
  EXPECT_EQ(Rec().stackDepth(GL_MODELVIEW), 1);
}

TEST_F(ObjectDraw, MatrixReachesGLExactlyAsStored) {
  QuadShape q;
  double raw[16];
  for (int i = 0; i < 16; ++i) {
    raw[i] = 1.0 / (i + 3);
  }
  q.SetMatrix(raw);
  q.Draw();
  const auto mult = Rec().callsNamed("glMultMatrixd");
  ASSERT_EQ(mult.size(), 1u);
  EXPECT_EQ(mult[0].str(), line("glMultMatrixd", glrecorder::doubles(raw, 16)));
}

TEST_F(ObjectDraw, MaterialCarriesTheChannelsRoundedToFloat) {
  QuadShape q;
  q.ColorSet(1.0 / 3.0, 2.0 / 3.0, 0.1, 0.7);
  q.Draw();
  const auto mat = Rec().callsNamed("glMaterialfv");
  ASSERT_EQ(mat.size(), 1u);
  EXPECT_EQ(mat[0].str(),
            MaterialLine(static_cast<float>(1.0 / 3.0), static_cast<float>(2.0 / 3.0), 0.1f, 0.7f));
  EXPECT_EQ(Rec().count("glColor3d"), 0u);  // colours reach GL only as material
}

TEST_F(ObjectDraw, ListHoldsNoTransformAndNoColour) {
  QuadShape q;
  q.Move(4.0, 5.0, 6.0);
  q.Draw();
  EXPECT_THAT(Rec().listLog(1), LinesEq(QuadLines(0.5f)));
}

TEST_F(ObjectDraw, LaterDrawsOnlyCallTheList) {
  QuadShape q;
  q.Draw();
  Rec().clearCalls();
  q.Draw();
  EXPECT_THAT(Rec().log(), LinesEq({
                               "glPushMatrix()",
                               MultLine(Identity()),
                               MaterialLine(0.5f, 0.5f, 0.5f, 1.0f),
                               "glCallList(1)",
                               "glPopMatrix()",
                           }));
}

TEST_F(ObjectDraw, ChangeThatMarksModifiedRecompilesIntoTheSameName) {
  QuadShape q;
  q.Draw();
  q.ColorSet(0x0000FFUL);
  Rec().clearCalls();
  q.Draw();
  EXPECT_THAT(Rec().log(), LinesEq(Join({
                               {
                                   "glPushMatrix()",
                                   MultLine(Identity()),
                                   MaterialLine(1.0f, 0.0f, 0.0f, 1.0f),
                                   "glIsList(1)",  // kept: no new name
                                   "glNewList(1, GL_COMPILE)",
                               },
                               QuadLines(0.5f),
                               {
                                   "glEndList()",
                                   "glCallList(1)",
                                   "glPopMatrix()",
                               },
                           })));
}

TEST_F(ObjectDraw, ChangesThatDoNotMarkModifiedDoNotRecompile) {
  QuadShape q;
  q.Draw();
  q.SetMatrix(Identity());
  double raw[16] = {};
  raw[0] = raw[5] = raw[10] = raw[15] = 2.0;
  q.SetMatrix(raw);
  q.AlphaOff();
  q.SetVisible(false);
  q.SetVisible(true);
  q.Move(1.0);
  q.ColorSet(0.5);
  EXPECT_EQ(ListsCompiledByDraw(q), 0u);
  EXPECT_EQ(Rec().count("glCallList"), 1u);
}

TEST_F(ObjectDraw, MoveByZeroRecompiles) {
  QuadShape q;
  q.Draw();
  q.Move(0.0);
  EXPECT_EQ(ListsCompiledByDraw(q), 1u);
}

TEST_F(ObjectDraw, DrawCallsDisplayListMakeOnlyWhenModifiedAndNeverDrawSelection) {
  CountingShape c;
  c.Draw();
  c.Draw();
  c.Draw();
  EXPECT_EQ(c.makes, 1);
  c.Select(true);
  c.Draw();
  EXPECT_EQ(c.makes, 2);
  EXPECT_EQ(c.selections, 0);
}

TEST_F(ObjectDraw, SelectedShapeUsesTheHighlightColour) {
  QuadShape q;
  q.HLColorSet(0.25, 0.5, 0.75, 1.0);
  q.Select(true);
  q.Draw();
  const auto mat = Rec().callsNamed("glMaterialfv");
  ASSERT_EQ(mat.size(), 1u);
  EXPECT_EQ(mat[0].str(), MaterialLine(0.25f, 0.5f, 0.75f, 1.0f));
}

TEST_F(ObjectDraw, HiddenShapeIssuesNoCallAtAll) {
  QuadShape q;
  q.SetVisible(false);
  EXPECT_EQ(q.Draw(), 1);
  EXPECT_EQ(q.DrawDirect(), 1);
  EXPECT_TRUE(Rec().log().empty());
  EXPECT_TRUE(q.m_bModified);
}

TEST_F(ObjectDraw, BareObjectPushesMultipliesColoursAndPops) {
  ObjectProbe o;
  EXPECT_EQ(o.Draw(), 1);
  EXPECT_THAT(Rec().log(), LinesEq({
                               "glPushMatrix()",
                               MultLine(Identity()),
                               MaterialLine(0.5f, 0.5f, 0.5f, 1.0f),
                               "glPopMatrix()",
                           }));
  EXPECT_TRUE(o.m_bModified);
  EXPECT_EQ(o.m_nDisplayList, -1);
}

TEST_F(ObjectDraw, FailedDrawStartSkipsEverythingElse) {
  CountingShape c;
  c.startResult = 0;
  EXPECT_EQ(c.Draw(), 1);
  EXPECT_EQ(c.DrawDirect(), 1);
  EXPECT_EQ(c.makes, 0);
  EXPECT_TRUE(Rec().log().empty());
  c.startResult = 2;  // only exactly 1 lets the draw go on
  EXPECT_EQ(c.Draw(), 1);
  EXPECT_TRUE(Rec().log().empty());
}

TEST_F(ObjectDraw, ProtectedStepsIssueOneCallEach) {
  ObjectProbe o;
  o.Move(2.0, 3.0, 4.0);
  EXPECT_EQ(o.DrawTransform(), 1);
  EXPECT_EQ(o.DrawFinish(), 1);
  EXPECT_EQ(o.DrawSelection(), 0);
  EXPECT_THAT(Rec().log(), LinesEq({MultLine(o.m_matrix), "glPopMatrix()"}));
  Rec().clearCalls();
  o.Select(true);
  EXPECT_EQ(o.DrawStart(), 1);
  EXPECT_THAT(Rec().log(), LinesEq({"glPushMatrix()", MultLine(o.m_matrix),
                                    MaterialLine(0.0f, 1.0f, 0.0f, 1.0f)}));
}

TEST_F(ObjectDraw, NaNMatrixIsPassedToGLUnchanged) {
  QuadShape q;
  q.Move(std::numeric_limits<double>::quiet_NaN());
  q.Draw();
  const auto mult = Rec().callsNamed("glMultMatrixd");
  ASSERT_EQ(mult.size(), 1u);
  EXPECT_EQ(mult[0].str(), MultLine(q.m_matrix));
  EXPECT_THAT(mult[0].str(), ::testing::HasSubstr("nan"));
}

// ---------------------------------------------------------------- protocol

TEST_F(ObjectDraw, DisplayListMakeReturnsZeroAfterARebuildAndOneWhenCurrent) {
  QuadShape q;
  EXPECT_EQ(q.DisplayListMake(), 0);
  EXPECT_FALSE(q.m_bModified);
  EXPECT_EQ(q.DisplayListMake(), 1);
  EXPECT_EQ(Rec().count("glNewList"), 1u);
}

TEST_F(ObjectDraw, ImmediateDrawEmitsTheGeometryInsideTheTransform) {
  QuadShape q(2.0f);
  q.Move(1.0, 0.0, 0.0);
  EXPECT_EQ(q.DrawDirect(), 0);
  EXPECT_THAT(Rec().log(),
              LinesEq(Join({
                  {"glPushMatrix()", MultLine(q.m_matrix), MaterialLine(0.5f, 0.5f, 0.5f, 1.0f)},
                  QuadLines(2.0f),
                  {"glPopMatrix()"},
              })));
  EXPECT_TRUE(q.m_bModified);  // immediate drawing leaves the list alone
  EXPECT_EQ(q.m_nDisplayList, -1);
}

class ObjectDrawListFailure : public RecordedTestWithParam<glrecorder::GenLists> {};

TEST_P(ObjectDrawListFailure, NoListMeansNoCallAndARetryAtTheNextDraw) {
  Rec().setGenLists(GetParam());
  QuadShape q;
  EXPECT_EQ(q.DisplayListsAllocate(), 0);
  EXPECT_EQ(q.m_nDisplayList, -1);
  EXPECT_EQ(q.DisplayListMake(), 0);
  EXPECT_TRUE(q.m_bModified);
  Rec().clearCalls();
  EXPECT_EQ(q.Draw(), 1);
  EXPECT_EQ(Rec().count("glNewList"), 0u);
  EXPECT_EQ(Rec().count("glCallList"), 0u);
  EXPECT_EQ(Rec().count("glGenLists"), 1u);
  EXPECT_EQ(Rec().count("glPushMatrix"), 1u);
  EXPECT_EQ(Rec().count("glPopMatrix"), 1u);
  EXPECT_TRUE(q.m_bModified);
  EXPECT_EQ(q.m_nDisplayList, -1);

  Rec().setGenLists(glrecorder::GenLists::Normal);
  EXPECT_EQ(ListsCompiledByDraw(q), 1u);
  EXPECT_EQ(Rec().count("glCallList"), 1u);
  EXPECT_FALSE(q.m_bModified);
  EXPECT_GT(q.m_nDisplayList, 0);
}

INSTANTIATE_TEST_SUITE_P(Failures, ObjectDrawListFailure,
                         ::testing::Values(glrecorder::GenLists::ReturnZero,
                                           glrecorder::GenLists::ReturnUnknown));

// q's next Draw generates a list name and builds the list under it.
::testing::AssertionResult DrawGeneratesAList(QuadShape& q) {
  Rec().clearCalls();
  q.Draw();
  if (Rec().count("glGenLists") != 1u) {
    return ::testing::AssertionFailure() << Rec().count("glGenLists") << " glGenLists calls";
  }
  if (!Rec().listExists(static_cast<GLuint>(q.m_nDisplayList))) {
    return ::testing::AssertionFailure() << "no list " << q.m_nDisplayList;
  }
  return ::testing::AssertionSuccess();
}

TEST_F(ObjectDraw, ExistingListIsReusedNotRegenerated) {
  QuadShape q;
  q.Draw();
  Rec().clearCalls();
  EXPECT_EQ(q.DisplayListsAllocate(), 1);
  EXPECT_THAT(Rec().log(), LinesEq({"glIsList(1)"}));
  EXPECT_EQ(q.m_nDisplayList, 1);
}

TEST_F(ObjectDraw, ForgottenListIsRegeneratedAtTheNextRebuildOnly) {
  QuadShape q;
  q.Draw();
  Rec().forgetAllLists();
  Rec().clearCalls();
  q.Draw();  // still current: calls the unknown name, which draws nothing
  EXPECT_EQ(Rec().count("glGenLists"), 0u);
  EXPECT_EQ(Rec().count("glCallList"), 1u);
  q.Scale(2.0);
  EXPECT_TRUE(DrawGeneratesAList(q));
}

// ---------------------------------------------------------------- lifetime

TEST_F(ObjectDraw, DestructorDeletesTheList) {
  {
    QuadShape q;
    q.Draw();
    Rec().clearCalls();
  }
  EXPECT_THAT(Rec().log(), LinesEq({"glDeleteLists(1, 1)"}));
  EXPECT_FALSE(Rec().listExists(1));
}

TEST_F(ObjectDraw, DestructorDoesNotDeleteNameZeroOrMinusOne) {
  {
    QuadShape zero;
    zero.m_nDisplayList = 0;
    QuadShape none;
  }
  EXPECT_TRUE(Rec().log().empty());
}

TEST_F(ObjectDraw, CopySharesTheListName) {
  QuadShape q;
  q.Draw();
  QuadShape copy(q);
  EXPECT_EQ(copy.m_nDisplayList, 1);
  EXPECT_EQ(ListsCompiledByDraw(copy), 0u);
  EXPECT_EQ(Rec().count("glGenLists"), 0u);
  EXPECT_THAT(Rec().callsNamed("glCallList"), ::testing::SizeIs(1));
  EXPECT_EQ(Rec().callsNamed("glCallList")[0].str(), "glCallList(1)");
}

TEST_F(ObjectDraw, DestroyingACopyDeletesTheSharedListAndTheSurvivorRegeneratesIt) {
  QuadShape q;
  q.Draw();
  { QuadShape copy(q); }
  EXPECT_EQ(Rec().count("glDeleteLists"), 1u);
  EXPECT_FALSE(Rec().listExists(1));
  q.ColorSet(0.9);
  EXPECT_TRUE(DrawGeneratesAList(q));
}

TEST_F(ObjectDraw, AssignedObjectSharesTheListName) {
  QuadShape q;
  q.Draw();
  QuadShape other;
  other = q;
  EXPECT_EQ(other.m_nDisplayList, q.m_nDisplayList);
  other.m_nDisplayList = -1;  // one owner deletes it
}

}  // namespace
