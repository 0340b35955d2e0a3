#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

#include "glu_quadric_expect.h"
#include "mesh/glu_quadric_mesh.h"

namespace {

using lumagrid::detail::GluSphereMesh;
using namespace glu_quadric_expect;

struct SphereCount {
  int slices;
  int stacks;
  std::size_t triangles;
};

class SphereTriangleCount : public ::testing::TestWithParam<SphereCount> {};

// A fan of `slices` triangles at each pole and two triangles per quad in the stacks between.
TEST_P(SphereTriangleCount, IsTwoPoleFansAndTwoTrianglesPerQuadBetween) {
  const SphereCount& c = GetParam();
  const lumagrid::MeshPart part = GluSphereMesh(1.0, c.slices, c.stacks);
  EXPECT_EQ(part.primitive, lumagrid::Primitive::Triangles);
  EXPECT_EQ(TriangleCount(part), c.triangles);
  EXPECT_TRUE(IndicesInRange(part));
}

INSTANTIATE_TEST_SUITE_P(Tessellations, SphereTriangleCount,
                         ::testing::Values(SphereCount{3, 2, 6},        // 3 + 3
                                           SphereCount{8, 8, 112},      // 16 + 6 * 16
                                           SphereCount{20, 20, 760},    // 40 + 18 * 40
                                           SphereCount{100, 50, 9800},  // 200 + 48 * 200
                                           SphereCount{5, 1, 10},       // the two fans only
                                           SphereCount{2, 1, 4},
                                           // Both capped at 239: 478 + 237 * 478.
                                           SphereCount{1000, 1000, 113764},
                                           SphereCount{239, 239, 113764}));

TEST(SphereMesh, EveryVertexLiesOnTheSphereWithTheOutwardUnitNormal) {
  const double radius = 0.3;
  const lumagrid::MeshPart part = GluSphereMesh(radius, 100, 50);
  ASSERT_FALSE(part.vertices.empty());
  for (const auto& vertex : part.vertices) {
    const Point p = ToPoint(vertex.position);
    const Point n = ToPoint(vertex.normal);
    EXPECT_NEAR(Length(p), radius, 1e-12);
    EXPECT_NEAR(Length(n), 1.0, 1e-12);
    for (int i = 0; i < 3; ++i) {
      EXPECT_NEAR(n[i], p[i] / radius, 1e-12);
    }
  }
}

TEST(SphereMesh, EveryTriangleIsCounterClockwiseSeenFromOutside) {
  for (const int stacks : {2, 3, 20}) {
    const lumagrid::MeshPart part = GluSphereMesh(2.0, 7, stacks);
    ASSERT_GT(TriangleCount(part), 0u);
    for (std::size_t t = 0; t < TriangleCount(part); ++t) {
      EXPECT_GT(Dot(FacetNormal(part, t), Centroid(part, t)), 1e-6) << stacks << " stacks, " << t;
    }
  }
}

// Slice i lies at 2*pi*i/slices from +y towards +x; the north fan walks round it backwards.
TEST(SphereMesh, StartsWithTheNorthFanThenTheSouthFan) {
  const lumagrid::MeshPart part = GluSphereMesh(2.0, 4, 2);
  ASSERT_EQ(TriangleCount(part), 8u);
  const Point north[3] = {{0.0, 0.0, 2.0}, {0.0, 2.0, 0.0}, {-2.0, 0.0, 0.0}};
  const Point south[3] = {{0.0, 0.0, -2.0}, {0.0, 2.0, 0.0}, {2.0, 0.0, 0.0}};
  for (int corner = 0; corner < 3; ++corner) {
    for (int i = 0; i < 3; ++i) {
      EXPECT_NEAR(Position(part, 0, corner)[i], north[corner][i], 1e-12) << corner;
      EXPECT_NEAR(Position(part, 4, corner)[i], south[corner][i], 1e-12) << corner;
    }
  }
  EXPECT_EQ(ToPoint(Corner(part, 0, 0).normal), (Point{0.0, 0.0, 1.0}));
  EXPECT_EQ(ToPoint(Corner(part, 4, 0).normal), (Point{0.0, 0.0, -1.0}));
}

TEST(SphereMesh, StripsJoinStacksFromTheSouthernRingUp) {
  // Stacks at polar angles 0, 60, 120 and 180 degrees: the one strip joins the two rings.
  const lumagrid::MeshPart part = GluSphereMesh(1.0, 3, 3);
  ASSERT_EQ(TriangleCount(part), 12u);
  const double s = std::sqrt(3.0) / 2.0;
  const Point south{0.0, s, -0.5};
  const Point north{0.0, s, 0.5};
  for (int i = 0; i < 3; ++i) {
    EXPECT_NEAR(Position(part, 6, 0)[i], south[i], 1e-12);
    EXPECT_NEAR(Position(part, 6, 1)[i], north[i], 1e-12);
  }
}

// GLU's fans then run from each pole to the other pole.
TEST(SphereMesh, OneStackGivesTwoFansWithNoArea) {
  const lumagrid::MeshPart part = GluSphereMesh(1.5, 6, 1);
  ASSERT_EQ(TriangleCount(part), 12u);
  for (std::size_t t = 0; t < TriangleCount(part); ++t) {
    EXPECT_TRUE(HasNoArea(part, t, 1.5)) << t;
    for (int corner = 0; corner < 3; ++corner) {
      EXPECT_NEAR(std::fabs(Position(part, t, corner)[2]), 1.5, 1e-12);
    }
  }
}

TEST(SphereMesh, RadiusZeroIsAPointWithUnitNormals) {
  const lumagrid::MeshPart part = GluSphereMesh(0.0, 4, 4);
  ASSERT_EQ(TriangleCount(part), 24u);
  for (const auto& vertex : part.vertices) {
    EXPECT_EQ(Length(ToPoint(vertex.position)), 0.0);
    EXPECT_NEAR(Length(ToPoint(vertex.normal)), 1.0, 1e-12);
  }
}

}  // namespace
