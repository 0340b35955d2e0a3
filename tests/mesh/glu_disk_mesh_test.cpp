#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

#include "glu_quadric_expect.h"
#include "mesh/glu_quadric_mesh.h"

namespace {

using lumagrid::detail::GluDiskMesh;
using lumagrid::detail::QuadricOrientation;
using namespace glu_quadric_expect;

constexpr QuadricOrientation kOutside = QuadricOrientation::Outside;
constexpr QuadricOrientation kInside = QuadricOrientation::Inside;

struct Annulus {
  double inner;
  double outer;
  int slices;
  int loops;
  std::size_t triangles;
};

class DiskMesh : public ::testing::TestWithParam<Annulus> {};

// Without a hole the innermost loop is a fan of `slices` triangles; every other loop is a
// quad strip of two per slice.
TEST_P(DiskMesh, HasAFanWithoutAHoleAndTwoTrianglesPerSliceInEachOtherLoop) {
  const Annulus& a = GetParam();
  for (const auto orientation : {kOutside, kInside}) {
    const lumagrid::MeshPart part = GluDiskMesh(a.inner, a.outer, a.slices, a.loops, orientation);
    EXPECT_EQ(TriangleCount(part), a.triangles);
    EXPECT_TRUE(IndicesInRange(part));
  }
}

TEST_P(DiskMesh, LiesInZZeroOnItsLoopsCircles) {
  const Annulus& a = GetParam();
  const lumagrid::MeshPart part = GluDiskMesh(a.inner, a.outer, a.slices, a.loops, kOutside);
  for (const auto& vertex : part.vertices) {
    EXPECT_EQ(vertex.position.z(), 0.0);
    // Loop j's outer circle has radius outer - (outer - inner) * j / loops.
    const double r = std::hypot(vertex.position.x(), vertex.position.y());
    const double j = (a.outer - r) / (a.outer - a.inner) * a.loops;
    EXPECT_NEAR(j, std::round(j), 1e-9) << r;
  }
}

TEST_P(DiskMesh, FacesPlusZOutsideAndMinusZInside) {
  const Annulus& a = GetParam();
  for (const auto orientation : {kOutside, kInside}) {
    const double z = orientation == kOutside ? 1.0 : -1.0;
    const lumagrid::MeshPart part = GluDiskMesh(a.inner, a.outer, a.slices, a.loops, orientation);
    for (const auto& vertex : part.vertices) {
      EXPECT_EQ(ToPoint(vertex.normal), (Point{0.0, 0.0, z}));
    }
    for (std::size_t t = 0; t < TriangleCount(part); ++t) {
      EXPECT_GT(FacetNormal(part, t)[2] * z, 1e-9) << t;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Disks, DiskMesh,
                         ::testing::Values(Annulus{0.0, 1.0, 20, 1, 20},
                                           Annulus{0.0, 0.2, 12, 1, 12},
                                           Annulus{0.0, 1.0, 8, 3, 40},  // 8 + 2 * 2 * 8
                                           Annulus{0.5, 1.0, 8, 2, 32},
                                           // Slices capped at 239.
                                           Annulus{0.0, 1.0, 400, 1, 239}));

// Slice i lies at 2*pi*i/slices from +y towards +x; the fan runs backwards outside.
TEST(DiskMeshOrder, FanStartsAtTheCentreAndSliceZero) {
  const Point outside[3] = {{0.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {-1.0, 0.0, 0.0}};
  const Point inside[3] = {{0.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {1.0, 0.0, 0.0}};
  const lumagrid::MeshPart out = GluDiskMesh(0.0, 1.0, 4, 1, kOutside);
  const lumagrid::MeshPart in = GluDiskMesh(0.0, 1.0, 4, 1, kInside);
  ASSERT_EQ(TriangleCount(out), 4u);
  ASSERT_EQ(TriangleCount(in), 4u);
  for (int corner = 0; corner < 3; ++corner) {
    for (int i = 0; i < 3; ++i) {
      EXPECT_NEAR(Position(out, 0, corner)[i], outside[corner][i], 1e-12) << corner;
      EXPECT_NEAR(Position(in, 0, corner)[i], inside[corner][i], 1e-12) << corner;
    }
  }
}

TEST(DiskMeshOrder, FanComesBeforeTheOuterLoops) {
  const lumagrid::MeshPart part = GluDiskMesh(0.0, 2.0, 5, 2, kOutside);
  ASSERT_EQ(TriangleCount(part), 15u);
  for (std::size_t t = 0; t < 5; ++t) {
    EXPECT_EQ(ToPoint(Corner(part, t, 0).position), (Point{0.0, 0.0, 0.0}));
    EXPECT_NEAR(Length(Position(part, t, 1)), 1.0, 1e-12);
  }
  // Then the outer loop's strip, from the rim inwards.
  EXPECT_NEAR(Length(Position(part, 5, 0)), 2.0, 1e-12);
  EXPECT_NEAR(Length(Position(part, 5, 1)), 1.0, 1e-12);
}

// An annulus of no width is still drawn, as triangles of no area.
TEST(DiskMeshDegenerate, EqualRadiiGiveTrianglesWithNoArea) {
  const lumagrid::MeshPart part = GluDiskMesh(1.0, 1.0, 8, 1, kOutside);
  ASSERT_EQ(TriangleCount(part), 16u);
  for (std::size_t t = 0; t < TriangleCount(part); ++t) {
    EXPECT_TRUE(HasNoArea(part, t, 1.0)) << t;
  }
}

}  // namespace
