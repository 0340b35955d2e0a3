#include <GL/gl.h>

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <limits>
#include <string>
#include <vector>

#include "quadric_probes.h"
#include "recorded/Shorthands.h"
#include "recorded/SilentCall.h"
#include "shapes/quadric/CGLBox.h"
#include "shapes/quadric/CGLCube.h"
#include "shapes/quadric/box_faces.h"

namespace {

using lumagrid::detail::BoxFace;
using lumagrid::detail::BoxFaces;
using Vec3f = std::array<float, 3>;

// ---------------------------------------------------------------- box builder

TEST(BoxFaces, NormalsRunPlusZMinusZPlusYMinusYPlusXMinusX) {
  const std::array<BoxFace, 6> faces = BoxFaces(2.0, 4.0, 6.0);
  EXPECT_EQ(faces[0].normal, (Vec3f{0.0f, 0.0f, 1.0f}));
  EXPECT_EQ(faces[1].normal, (Vec3f{0.0f, 0.0f, -1.0f}));
  EXPECT_EQ(faces[2].normal, (Vec3f{0.0f, 1.0f, 0.0f}));
  EXPECT_EQ(faces[3].normal, (Vec3f{0.0f, -1.0f, 0.0f}));
  EXPECT_EQ(faces[4].normal, (Vec3f{1.0f, 0.0f, 0.0f}));
  EXPECT_EQ(faces[5].normal, (Vec3f{-1.0f, 0.0f, 0.0f}));
}

TEST(BoxFaces, VerticesAreTheHalfEdgeCornersInAFixedOrder) {
  const std::array<BoxFace, 6> faces = BoxFaces(2.0, 4.0, 6.0);
  using Quad = std::array<Vec3f, 4>;
  EXPECT_EQ(faces[0].vertices, (Quad{{{1, 2, 3}, {-1, 2, 3}, {-1, -2, 3}, {1, -2, 3}}}));
  EXPECT_EQ(faces[1].vertices, (Quad{{{-1, -2, -3}, {-1, 2, -3}, {1, 2, -3}, {1, -2, -3}}}));
  EXPECT_EQ(faces[2].vertices, (Quad{{{1, 2, 3}, {1, 2, -3}, {-1, 2, -3}, {-1, 2, 3}}}));
  EXPECT_EQ(faces[3].vertices, (Quad{{{-1, -2, -3}, {1, -2, -3}, {1, -2, 3}, {-1, -2, 3}}}));
  EXPECT_EQ(faces[4].vertices, (Quad{{{1, 2, 3}, {1, -2, 3}, {1, -2, -3}, {1, 2, -3}}}));
  EXPECT_EQ(faces[5].vertices, (Quad{{{-1, -2, -3}, {-1, -2, 3}, {-1, 2, 3}, {-1, 2, -3}}}));
}

TEST(BoxFaces, EveryFaceWindsCounterClockwiseSeenFromOutside) {
  for (const BoxFace& f : BoxFaces(2.0, 4.0, 6.0)) {
    const Vec3f& a = f.vertices[0];
    const Vec3f& b = f.vertices[1];
    const Vec3f& c = f.vertices[2];
    const Vec3f u{b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const Vec3f v{c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    const Vec3f n{u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    EXPECT_GT(n[0] * f.normal[0] + n[1] * f.normal[1] + n[2] * f.normal[2], 0.0f);
  }
}

TEST(BoxFaces, HalvesInDoubleBeforeRoundingToFloat) {
  // Just above twice FLT_MAX: halved first, it rounds down to FLT_MAX;
  // rounded first, it would overflow to infinity.
  const double size = 2.0 * static_cast<double>(FLT_MAX) * (1.0 + 0x1p-26);
  const std::array<BoxFace, 6> faces = BoxFaces(size, size, size);
  EXPECT_EQ(faces[0].vertices[0], (Vec3f{FLT_MAX, FLT_MAX, FLT_MAX}));
}

TEST(BoxFaces, HalfEdgesOfATenthAreTheFloatOfTheDoubleHalf) {
  const std::array<BoxFace, 6> faces = BoxFaces(0.1, 0.3, 0.7);
  EXPECT_EQ(faces[0].vertices[0],
            (Vec3f{static_cast<float>(0.1 * 0.5), static_cast<float>(0.3 * 0.5),
                   static_cast<float>(0.7 * 0.5)}));
}

// ---------------------------------------------------------------- box shape

class Box : public RecordedTest {};

TEST_F(Box, CompilesSixQuadsWithTheirNormals) {
  CGLBox box(2.0, 4.0, 6.0);
  recorder().clearCalls();
  EXPECT_EQ(box.DisplayListMake(), 0);
  EXPECT_LINES((Lines{
                   line("glNewList", 1, en(GL_COMPILE)),
                   line("glBegin", en(GL_QUADS)),
                   line("glNormal3f", 0.0f, 0.0f, 1.0f),
                   line("glVertex3f", 1.0f, 2.0f, 3.0f),
                   line("glVertex3f", -1.0f, 2.0f, 3.0f),
                   line("glVertex3f", -1.0f, -2.0f, 3.0f),
                   line("glVertex3f", 1.0f, -2.0f, 3.0f),
                   line("glNormal3f", 0.0f, 0.0f, -1.0f),
                   line("glVertex3f", -1.0f, -2.0f, -3.0f),
                   line("glVertex3f", -1.0f, 2.0f, -3.0f),
                   line("glVertex3f", 1.0f, 2.0f, -3.0f),
                   line("glVertex3f", 1.0f, -2.0f, -3.0f),
                   line("glNormal3f", 0.0f, 1.0f, 0.0f),
                   line("glVertex3f", 1.0f, 2.0f, 3.0f),
                   line("glVertex3f", 1.0f, 2.0f, -3.0f),
                   line("glVertex3f", -1.0f, 2.0f, -3.0f),
                   line("glVertex3f", -1.0f, 2.0f, 3.0f),
                   line("glNormal3f", 0.0f, -1.0f, 0.0f),
                   line("glVertex3f", -1.0f, -2.0f, -3.0f),
                   line("glVertex3f", 1.0f, -2.0f, -3.0f),
                   line("glVertex3f", 1.0f, -2.0f, 3.0f),
                   line("glVertex3f", -1.0f, -2.0f, 3.0f),
                   line("glNormal3f", 1.0f, 0.0f, 0.0f),
                   line("glVertex3f", 1.0f, 2.0f, 3.0f),
                   line("glVertex3f", 1.0f, -2.0f, 3.0f),
                   line("glVertex3f", 1.0f, -2.0f, -3.0f),
                   line("glVertex3f", 1.0f, 2.0f, -3.0f),
                   line("glNormal3f", -1.0f, 0.0f, 0.0f),
                   line("glVertex3f", -1.0f, -2.0f, -3.0f),
                   line("glVertex3f", -1.0f, -2.0f, 3.0f),
                   line("glVertex3f", -1.0f, 2.0f, 3.0f),
                   line("glVertex3f", -1.0f, 2.0f, -3.0f),
                   line("glEnd"),
                   line("glEndList"),
               }),
               CompiledBlock(recorder().log()));
}

TEST_F(Box, DefaultBoxHasUnitEdges) {
  CGLBox box;
  EXPECT_EQ(box.*BoxMemberPointers::kSizeX, 1.0);
  EXPECT_EQ(box.*BoxMemberPointers::kSizeY, 1.0);
  EXPECT_EQ(box.*BoxMemberPointers::kSizeZ, 1.0);
}

TEST_F(Box, CubeHasEqualEdges) {
  CGLCube cube(0.05);
  EXPECT_EQ(cube.*BoxMemberPointers::kSizeX, 0.05);
  EXPECT_EQ(cube.*BoxMemberPointers::kSizeY, 0.05);
  EXPECT_EQ(cube.*BoxMemberPointers::kSizeZ, 0.05);
  CGLCube unit;
  EXPECT_EQ(unit.*BoxMemberPointers::kSizeX, 1.0);
  EXPECT_EQ(unit.*BoxMemberPointers::kSizeZ, 1.0);
}

TEST_F(Box, CubeCompilesTheBoxGeometry) {
  CGLCube cube(0.05);
  recorder().clearCalls();
  cube.DisplayListMake();
  const Lines body = recorder().listLog(1);
  ASSERT_EQ(body.size(), 32u);
  const float a = static_cast<float>(0.05 * 0.5);
  EXPECT_EQ(body[2], line("glVertex3f", a, a, a));      // first vertex of +z
  EXPECT_EQ(body[27], line("glVertex3f", -a, -a, -a));  // first vertex of -x
}

TEST_F(Box, UsesNoQuadric) {
  CGLBox box;
  CGLCube cube;
  box.Draw();
  cube.Draw();
  EXPECT_TRUE(GluLines(recorder().log()).empty());
}

TEST_F(Box, HasNoImmediateModeDrawing) {
  CGLBox box;
  EXPECT_TRUE(ReturnsSilently(0, [&] { return box.DrawDirect(); }));
}

TEST_F(Box, KeepsItsMarkWhenNoListCanBeHad) {
  Probe<CGLBox> box;
  recorder().setGenLists(glrecorder::GenLists::ReturnZero);
  EXPECT_EQ(box.DisplayListMake(), 0);
  EXPECT_TRUE(box.m_bModified);
  EXPECT_EQ(recorder().count("glBegin"), 0u);
  recorder().setGenLists(glrecorder::GenLists::Normal);
  EXPECT_EQ(box.DisplayListMake(), 0);
  EXPECT_FALSE(box.m_bModified);
  EXPECT_EQ(box.DisplayListMake(), 1);
}

TEST_F(Box, BadEdgesGoToGlAsTheyAre) {
  CGLBox box(0.0, -2.0, std::numeric_limits<double>::quiet_NaN());
  box.Draw();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(recorder().listLog(1)[2], line("glVertex3f", 0.0f, -1.0f, nan));
  EXPECT_EQ(recorder().stackDepth(GL_MODELVIEW), 1);
}

}  // namespace
