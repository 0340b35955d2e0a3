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

namespace {

using glrecorder::en;
using glrecorder::line;
using glrecorder::recorder;

using QuadricProbe = Probe<CGLQuadric>;
using SphereProbe = Probe<CGLSphere>;

class QuadricHandle : public RecordedTest {};

TEST_F(QuadricHandle, ConstructionCreatesOneQuadricAndDestructionDeletesIt) {
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

TEST_F(QuadricHandle, NewQuadricKeepsGluDefaults) {
  QuadricProbe q;
  EXPECT_EQ(recorder().quadricOrientation(q.m_pQuadric), static_cast<GLenum>(GLU_OUTSIDE));
  EXPECT_EQ(recorder().quadricDrawStyle(q.m_pQuadric), static_cast<GLenum>(GLU_FILL));
  EXPECT_EQ(recorder().quadricNormals(q.m_pQuadric), static_cast<GLenum>(GLU_SMOOTH));
  // Nothing but the creation reached GLU.
  EXPECT_LINES((std::vector<std::string>{line("gluNewQuadric")}), recorder().log());
}

TEST_F(QuadricHandle, EveryQuadricShapeMakesItsOwnHandle) {
  CGLSphere sphere;
  CGLCylinder cylinder;
  CGLCone cone;
  CGLArrow arrow;
  EXPECT_EQ(recorder().quadricsCreated(), 4);
  EXPECT_EQ(recorder().liveQuadrics(), 4);
}

TEST_F(QuadricHandle, NullHandleIsStoredAndDeletedAsItIs) {
  recorder().setNewQuadricFails(true);
  {
    QuadricProbe q;
    EXPECT_EQ(q.m_pQuadric, nullptr);
  }
  recorder().setNewQuadricFails(false);
  EXPECT_LINES((std::vector<std::string>{line("gluNewQuadric"), line("gluDeleteQuadric", nullptr)}),
               GluLines(recorder().log()));
}

TEST_F(QuadricHandle, CopyConstructionSharesTheHandle) {
  auto source = std::make_unique<SphereProbe>(2.0);
  SphereProbe copy(*source);
  EXPECT_EQ(copy.m_pQuadric, source->m_pQuadric);
  EXPECT_EQ(recorder().count("gluNewQuadric"), 1u);
}

TEST_F(QuadricHandle, CopyDrawsWithTheSourceHandle) {
  CGLSphere source(2.0);
  CGLSphere copy(source);
  recorder().clearCalls();
  copy.DisplayListMake();
  EXPECT_LINES((std::vector<std::string>{line("gluSphere", "quad1", 2.0, 128, 8)}),
               GluLines(recorder().log()));
}

TEST_F(QuadricHandle, SourceAndCopyEachDeleteTheSharedHandle) {
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

TEST_F(QuadricHandle, AssignmentTakesTheSourceHandleAndDropsItsOwn) {
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

TEST_F(QuadricHandle, QuadricAssignmentCopiesOnlyTheBase) {
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

TEST_F(QuadricHandle, BareQuadricBuildsNoListAndStaysModified) {
  QuadricProbe q;
  recorder().clearCalls();
  EXPECT_EQ(q.DisplayListMake(), 0);
  EXPECT_TRUE(q.m_bModified);
  EXPECT_EQ(q.m_nDisplayList, -1);
  EXPECT_TRUE(recorder().log().empty());
}

}  // namespace
