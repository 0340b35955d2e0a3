#include <lumagrid/CGLPolyline.h>

#include <GL/gl.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "probes/CountedPoint.h"
#include "probes/Probe.h"
#include "recorded/LogSlices.h"
#include "recorded/RecordedTest.h"
#include "recorded/Shorthands.h"
#include "recorded/SilentCall.h"

namespace {

class PolylineProbe : public Probe<CGLPolyline> {
 public:
  using Probe<CGLPolyline>::Probe;
  using CGLPolyline::m_aVertex;
};

class Polyline : public RecordedTest {};

TEST_F(Polyline, CompilesColourThenOneLineStrip) {
  CGLPolyline line3;
  line3.ColorSet(0.25, 0.5, 0.75, 0.4);
  line3.AddVertex(0.0, 0.0, 0.0);
  line3.AddVertex(1.0, 2.0, 3.0);
  line3.AddVertex(-1.5, 0.5, 2.25);
  // The colour goes in without alpha.
  EXPECT_LINES((Lines{line("glColor3d", 0.25, 0.5, 0.75), line("glBegin", en(GL_LINE_STRIP)),
                      line("glVertex3d", 0.0, 0.0, 0.0), line("glVertex3d", 1.0, 2.0, 3.0),
                      line("glVertex3d", -1.5, 0.5, 2.25), line("glEnd")}),
               CompiledBody(line3));
}

TEST_F(Polyline, SelectedPolylineKeepsNormalColour) {
  CGLPolyline poly;
  poly.ColorSet(0x0000FFul);
  poly.AddVertex(0.0, 0.0, 0.0);
  poly.AddVertex(1.0, 0.0, 0.0);
  poly.Select(true);
  recorder().clearCalls();
  poly.Draw();
  const std::vector<glrecorder::Call> colours = recorder().callsNamed("glColor3d");
  ASSERT_EQ(colours.size(), 1u);
  EXPECT_EQ(colours[0].str(), line("glColor3d", 1.0, 0.0, 0.0));
  EXPECT_TRUE(colours[0].inList());
  // The base still sets the highlight material before calling the list.
  const std::array<float, 4> material = recorder().material(GL_FRONT, GL_DIFFUSE);
  EXPECT_EQ(material[1], 1.0f);
  EXPECT_EQ(recorder().currentColor()[0], 1.0);
}

TEST_F(Polyline, EmptyPolylineCompilesNothingAndStaysModified) {
  PolylineProbe poly;
  recorder().clearCalls();
  EXPECT_EQ(poly.DisplayListMake(), 0);
  EXPECT_TRUE(poly.m_bModified);
  EXPECT_EQ(recorder().count("glNewList"), 0u);
  EXPECT_EQ(poly.m_nDisplayList, 1);  // the name is had before the check
}

TEST_F(Polyline, CurrentPolylineReturnsOne) {
  CGLPolyline poly;
  poly.AddVertex(1.0, 1.0, 1.0);
  EXPECT_EQ(poly.DisplayListMake(), 0);
  EXPECT_EQ(poly.DisplayListMake(), 1);
}

TEST_F(Polyline, SinglePointGivesAOneVertexStrip) {
  CGLPolyline poly;
  poly.AddVertex(0.5, 0.5, 0.5);
  EXPECT_LINES((Lines{line("glColor3d", 0.5, 0.5, 0.5), line("glBegin", en(GL_LINE_STRIP)),
                      line("glVertex3d", 0.5, 0.5, 0.5), line("glEnd")}),
               CompiledBody(poly));
  EXPECT_EQ(recorder().pendingError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(Polyline, AddVertexOverloadsAppendAndMark) {
  PolylineProbe poly;
  poly.DisplayListMake();  // empty: still modified
  poly.AddVertex(1.0, 2.0, 3.0);
  poly.DisplayListMake();
  ASSERT_FALSE(poly.m_bModified);

  CGLPoint p(4.0, 5.0, 6.0);
  EXPECT_TRUE(poly.AddVertex(p));
  EXPECT_TRUE(poly.m_bModified);
  poly.DisplayListMake();
  EXPECT_TRUE(poly.AddVertex(new CGLPoint(7.0, 8.0, 9.0)));
  EXPECT_TRUE(poly.m_bModified);
  poly.DisplayListMake();
  double triples[] = {10.0, 11.0, 12.0, 13.0, 14.0, 15.0};
  EXPECT_TRUE(poly.AddVertex(2, triples));
  EXPECT_TRUE(poly.m_bModified);

  ASSERT_EQ(poly.m_aVertex.size(), 5u);
  EXPECT_NE(poly.m_aVertex[1], &p);  // a copy
  const double expected[5][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}, {13, 14, 15}};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(poly.m_aVertex[i]->X(), expected[i][0]);
    EXPECT_EQ(poly.m_aVertex[i]->Y(), expected[i][1]);
    EXPECT_EQ(poly.m_aVertex[i]->Z(), expected[i][2]);
  }
}

TEST_F(Polyline, AddVertexOfNoPointsAddsNothingAndDoesNotMark) {
  PolylineProbe poly;
  poly.AddVertex(1.0, 1.0, 1.0);
  poly.DisplayListMake();
  ASSERT_FALSE(poly.m_bModified);
  double triples[] = {1.0, 2.0, 3.0};
  EXPECT_TRUE(poly.AddVertex(0, triples));
  EXPECT_TRUE(poly.AddVertex(-3, triples));
  EXPECT_EQ(poly.m_aVertex.size(), 1u);
  EXPECT_FALSE(poly.m_bModified);
}

TEST_F(Polyline, TakesOwnershipAndDeletesThroughTheVirtualDestructor) {
  int deaths = 0;
  {
    CGLPolyline poly;
    poly.AddVertex(new CountedPoint(0, 0, 0, &deaths));
    poly.AddVertex(new CountedPoint(1, 1, 1, &deaths));
    EXPECT_TRUE(poly.InitVertex());
    EXPECT_EQ(deaths, 2);
    poly.AddVertex(new CountedPoint(2, 2, 2, &deaths));
  }
  EXPECT_EQ(deaths, 3);
}

TEST_F(Polyline, InitVertexEmptiesAndMarks) {
  PolylineProbe poly;
  poly.AddVertex(1.0, 1.0, 1.0);
  poly.DisplayListMake();
  EXPECT_TRUE(poly.InitVertex());
  EXPECT_TRUE(poly.m_aVertex.empty());
  EXPECT_TRUE(poly.m_bModified);
}

TEST_F(Polyline, NullPointerIsNotStored) {
  PolylineProbe poly;
  EXPECT_TRUE(poly.AddVertex(static_cast<CGLPoint*>(nullptr)));
  EXPECT_TRUE(poly.AddVertex(2, nullptr));
  EXPECT_TRUE(poly.m_aVertex.empty());
}

TEST_F(Polyline, DrawDirectDrawsInTheCurrentFrameOncePerChange) {
  PolylineProbe poly;
  poly.Move(5.0, 5.0, 5.0);
  poly.ColorSet(0.1, 0.2, 0.3, 1.0);
  poly.AddVertex(0.0, 0.0, 0.0);
  poly.AddVertex(1.0, 0.0, 0.0);
  recorder().clearCalls();
  EXPECT_EQ(poly.DrawDirect(), 0);
  // No push, no transform, no material: just the colour and the strip.
  EXPECT_LINES(
      (Lines{line("glColor3d", 0.1, 0.2, 0.3), line("glBegin", en(GL_LINE_STRIP)),
             line("glVertex3d", 0.0, 0.0, 0.0), line("glVertex3d", 1.0, 0.0, 0.0), line("glEnd")}),
      recorder().log());
  EXPECT_FALSE(poly.m_bModified);

  EXPECT_TRUE(ReturnsSilently(1, [&] { return poly.DrawDirect(); }));
}

TEST_F(Polyline, DrawDirectTestsTheMarkNotVisibility) {
  PolylineProbe poly;
  poly.AddVertex(0.0, 0.0, 0.0);
  poly.SetVisible(false);
  recorder().clearCalls();
  EXPECT_EQ(poly.DrawDirect(), 0);
  EXPECT_EQ(recorder().count("glBegin"), 1u);
}

TEST_F(Polyline, DrawDirectOfAnEmptyPolylineReturnsZeroAndKeepsTheMark) {
  PolylineProbe poly;
  EXPECT_TRUE(ReturnsSilently(0, [&] { return poly.DrawDirect(); }));
  EXPECT_TRUE(poly.m_bModified);
}

TEST_F(Polyline, DrawDirectAfterTheListWasBuiltDrawsNothing) {
  CGLPolyline poly;
  poly.AddVertex(0.0, 0.0, 0.0);
  poly.DisplayListMake();
  EXPECT_TRUE(ReturnsSilently(1, [&] { return poly.DrawDirect(); }));
}

TEST_F(Polyline, AMillionPointsCompileIntoOneStrip) {
  CGLPolyline poly;
  for (int i = 0; i < 1000000; ++i) {
    poly.AddVertex(i, 0.0, 0.0);
  }
  recorder().clearCalls();
  EXPECT_EQ(poly.DisplayListMake(), 0);
  EXPECT_EQ(recorder().count("glVertex3d"), 1000000u);
  EXPECT_EQ(recorder().count("glBegin"), 1u);
}

}  // namespace
