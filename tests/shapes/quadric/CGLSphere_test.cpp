#include <lumagrid/CGLSphere.h>

#include <GL/gl.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "quadric_probes.h"
#include "recorded/Shorthands.h"
#include "recorded/SilentCall.h"

namespace {

class Sphere : public RecordedTest {};

TEST_F(Sphere, CompilesOneGluSphereWithHandleRadiusAndTessellation) {
  CGLSphere sphere(2.5);
  EXPECT_LINES((Lines{line("gluSphere", "quad1", 2.5, 128, 8)}), CompiledBody(sphere));
}

TEST_F(Sphere, DefaultRadiusIsOne) {
  CGLSphere sphere;
  EXPECT_EQ(sphere.Radius(), 1.0);
  EXPECT_LINES((Lines{line("gluSphere", "quad1", 1.0, 128, 8)}), CompiledBody(sphere));
}

TEST_F(Sphere, RadiusReturnsTheConstructorValueExactly) {
  EXPECT_EQ(CGLSphere(0.1).Radius(), 0.1);
  EXPECT_EQ(CGLSphere(-3.25).Radius(), -3.25);
  EXPECT_TRUE(std::isnan(CGLSphere(kNaN).Radius()));
}

TEST_F(Sphere, TakesTheTessellationDefaultsAtConstruction) {
  CGLObject::s_nSlices4New = 16;
  CGLObject::s_nStacks4New = 4;
  Probe<CGLSphere> sphere(1.0);
  CGLObject::s_nSlices4New = 128;
  CGLObject::s_nStacks4New = 8;
  EXPECT_EQ(sphere.m_nSlices, 16);
  EXPECT_EQ(sphere.m_nStacks, 4);
  EXPECT_LINES((Lines{line("gluSphere", "quad1", 1.0, 16, 4)}), CompiledBody(sphere));
}

TEST_F(Sphere, CompileIsWrappedInNewListAndEndList) {
  CGLSphere sphere(0.5);
  recorder().clearCalls();
  sphere.DisplayListMake();
  EXPECT_LINES((Lines{line("glNewList", 1, en(GL_COMPILE)), line("gluSphere", "quad1", 0.5, 128, 8),
                      line("glEndList")}),
               CompiledBlock(recorder().log()));
}

TEST_F(Sphere, CopyKeepsRadiusAndListState) {
  Probe<CGLSphere> source(3.0);
  source.DisplayListMake();
  Probe<CGLSphere> copy(source);
  EXPECT_EQ(copy.Radius(), 3.0);
  EXPECT_EQ(copy.m_nDisplayList, source.m_nDisplayList);
  EXPECT_FALSE(copy.m_bModified);
}

TEST_F(Sphere, AssignmentCopiesTheRadius) {
  CGLSphere a(1.0);
  const CGLSphere b(4.0);
  CGLSphere& result = (a = b);
  EXPECT_EQ(&result, &a);
  EXPECT_EQ(a.Radius(), 4.0);
}

TEST_F(Sphere, DrawDirectDrawsNothing) {
  CGLSphere sphere;
  EXPECT_TRUE(ReturnsSilently(0, [&] { return sphere.DrawDirect(); }));
}

TEST_F(Sphere, BadRadiiGoToGluAsTheyAre) {
  for (double radius : {0.0, -1.0, kNaN}) {
    recorder().reset();
    CGLSphere sphere(radius);
    EXPECT_LINES((Lines{line("gluSphere", "quad1", radius, 128, 8)}), CompiledBody(sphere));
  }
}

}  // namespace
