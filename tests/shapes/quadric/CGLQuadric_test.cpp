#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLQuadric.h>
#include <lumagrid/CGLSphere.h>

#include <GL/glu.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "quadric_probes.h"
#include "recorded/Shorthands.h"
#include "recorded/SilentCall.h"

namespace {

using QuadricProbe = Probe<CGLQuadric>;
using SphereProbe = Probe<CGLSphere>;

class Quadric : public RecordedTest {};

TEST_F(Quadric, ConstructionCreatesOneQuadricAndDestructionDeletesIt) {
  const GLUquadric* handle = nullptr;
  {
    QuadricProbe q;
    handle = q.m_pQuadric;
    EXPECT_EQ(recorder().count("gluNewQuadric"), 1u);
    EXPECT_TRUE(recorder().isLiveQuadric(handle));
  }
  EXPECT_LINES((std::vector<std::string>{line("gluNewQuadric"), line("gluDeleteQuadric", "quad1")}),
               GluLines(recorder().log()));
  EXPECT_EQ(recorder().liveQuadrics(), 0);
  EXPECT_EQ(recorder().doubleDeletes(), 0);
}

TEST_F(Quadric, NewQuadricKeepsGluDefaults) {
  QuadricProbe q;
  EXPECT_EQ(recorder().quadricOrientation(q.m_pQuadric), static_cast<GLenum>(GLU_OUTSIDE));
  EXPECT_EQ(recorder().quadricDrawStyle(q.m_pQuadric), static_cast<GLenum>(GLU_FILL));
  EXPECT_EQ(recorder().quadricNormals(q.m_pQuadric), static_cast<GLenum>(GLU_SMOOTH));
  // Nothing but the creation reached GLU.
  EXPECT_LINES((std::vector<std::string>{line("gluNewQuadric")}), recorder().log());
}

TEST_F(Quadric, EveryQuadricShapeMakesItsOwnHandle) {
  CGLSphere sphere;
  CGLCylinder cylinder;
  CGLCone cone;
  CGLArrow arrow;
  EXPECT_EQ(recorder().quadricsCreated(), 4);
  EXPECT_EQ(recorder().liveQuadrics(), 4);
}

TEST_F(Quadric, NullHandleIsStoredAndDeletedAsItIs) {
  recorder().setNewQuadricFails(true);
  {
    QuadricProbe q;
    EXPECT_EQ(q.m_pQuadric, nullptr);
  }
  recorder().setNewQuadricFails(false);
  EXPECT_LINES((std::vector<std::string>{line("gluNewQuadric"), line("gluDeleteQuadric", nullptr)}),
               GluLines(recorder().log()));
}

TEST_F(Quadric, CopyConstructionSharesTheHandle) {
  auto source = std::make_unique<SphereProbe>(2.0);
  SphereProbe copy(*source);
  EXPECT_EQ(copy.m_pQuadric, source->m_pQuadric);
  EXPECT_EQ(recorder().count("gluNewQuadric"), 1u);
}

TEST_F(Quadric, CopyDrawsWithTheSourceHandle) {
  CGLSphere source(2.0);
  CGLSphere copy(source);
  recorder().clearCalls();
  copy.DisplayListMake();
  EXPECT_LINES((std::vector<std::string>{line("gluSphere", "quad1", 2.0, 128, 8)}),
               GluLines(recorder().log()));
}

TEST_F(Quadric, SourceAndCopyEachDeleteTheSharedHandle) {
  {
    CGLSphere source;
    CGLSphere copy(source);
  }
  // Both destructors release the one handle: the second delete is expected.
  EXPECT_LINES((std::vector<std::string>{line("gluNewQuadric"), line("gluDeleteQuadric", "quad1"),
                                         line("gluDeleteQuadric", "quad1")}),
               GluLines(recorder().log()));
  EXPECT_EQ(recorder().doubleDeletes(), 1);
}

TEST_F(Quadric, AssignmentTakesTheSourceHandleAndDropsItsOwn) {
  {
    SphereProbe a(1.0);
    SphereProbe b(2.0);
    const GLUquadric* bHandle = b.m_pQuadric;
    a = b;
    EXPECT_EQ(a.m_pQuadric, bHandle);
    recorder().clearCalls();
    a.DisplayListMake();
    EXPECT_LINES((std::vector<std::string>{line("gluSphere", "quad2", 2.0, 128, 8)}),
                 GluLines(recorder().log()));
    recorder().clearCalls();
  }
  // a's own quad1 is never released; quad2 is released twice.
  EXPECT_LINES((std::vector<std::string>{line("gluDeleteQuadric", "quad2"),
                                         line("gluDeleteQuadric", "quad2")}),
               GluLines(recorder().log()));
  EXPECT_EQ(recorder().liveQuadrics(), 1);
}

TEST_F(Quadric, QuadricAssignmentCopiesOnlyTheBase) {
  QuadricProbe a;
  QuadricProbe b;
  b.m_nSlices = 5;
  CGLQuadric& ra = a;
  ra = b;
  EXPECT_EQ(a.m_pQuadric, b.m_pQuadric);
  EXPECT_EQ(a.m_nSlices, 5);
  EXPECT_EQ(recorder().count("gluDeleteQuadric"), 0u);
  EXPECT_EQ(recorder().count("gluNewQuadric"), 2u);
}

TEST_F(Quadric, BareQuadricBuildsNoListAndStaysModified) {
  QuadricProbe q;
  recorder().clearCalls();
  EXPECT_EQ(q.DisplayListMake(), 0);
  EXPECT_TRUE(q.m_bModified);
  EXPECT_EQ(q.m_nDisplayList, -1);
  EXPECT_TRUE(recorder().log().empty());
}

// ---------------------------------------------------------------- the list protocol

class QuadricList : public RecordedTest {};

TEST_F(QuadricList, CurrentListMakesNothingAndReturnsOne) {
  Probe<CGLCylinder> cylinder;
  EXPECT_EQ(cylinder.DisplayListMake(), 0);
  EXPECT_FALSE(cylinder.m_bModified);
  EXPECT_TRUE(ReturnsSilently(1, [&] { return cylinder.DisplayListMake(); }));
}

TEST_F(QuadricList, NoListKeepsTheMarkAndEmitsNoGeometry) {
  Probe<CGLSphere> sphere;
  recorder().setGenLists(glrecorder::GenLists::ReturnZero);
  recorder().clearCalls();
  EXPECT_EQ(sphere.DisplayListMake(), 0);
  EXPECT_TRUE(sphere.m_bModified);
  EXPECT_EQ(sphere.m_nDisplayList, -1);
  EXPECT_EQ(recorder().count("glNewList"), 0u);
  EXPECT_TRUE(GluLines(recorder().log()).empty());

  // The mark survived, so the next attempt builds.
  recorder().setGenLists(glrecorder::GenLists::Normal);
  EXPECT_EQ(sphere.DisplayListMake(), 0);
  EXPECT_FALSE(sphere.m_bModified);
  EXPECT_EQ(recorder().count("gluSphere"), 1u);
}

TEST_F(QuadricList, UnknownListNameKeepsTheMark) {
  Probe<CGLCylinder> cylinder;
  recorder().setGenLists(glrecorder::GenLists::ReturnUnknown);
  EXPECT_EQ(cylinder.DisplayListMake(), 0);
  EXPECT_TRUE(cylinder.m_bModified);
  EXPECT_EQ(cylinder.m_nDisplayList, -1);
  EXPECT_EQ(recorder().count("gluCylinder"), 0u);
}

TEST_F(QuadricList, SecondDrawReplaysTheListWithoutGlu) {
  CGLCylinder cylinder;
  cylinder.Draw();
  recorder().clearCalls();
  cylinder.Draw();
  EXPECT_TRUE(GluLines(recorder().log()).empty());
  EXPECT_EQ(recorder().count("glNewList"), 0u);
  EXPECT_LINES((Lines{line("glCallList", 1)}),
               glrecorder::lines(recorder().callsNamed("glCallList")));
}

TEST_F(QuadricList, DrawCompilesInsideTheShapeTransformAndColour) {
  CGLSphere sphere(0.5);
  recorder().clearCalls();
  EXPECT_EQ(sphere.Draw(), 1);
  const Lines log = recorder().log();
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(log.front(), line("glPushMatrix"));
  EXPECT_EQ(log.back(), line("glPopMatrix"));
  EXPECT_EQ(log[log.size() - 2], line("glCallList", 1));
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
}

TEST_F(QuadricList, ColourChangeRebuildsTheList) {
  CGLSphere sphere;
  sphere.Draw();
  sphere.ColorSet(0x0000FFUL);
  recorder().clearCalls();
  sphere.Draw();
  EXPECT_EQ(recorder().count("gluSphere"), 1u);
  // The existing name is reused.
  EXPECT_EQ(recorder().count("glGenLists"), 0u);
}

}  // namespace
