#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

#include "glu_quadric_expect.h"
#include "mesh/glu_quadric_mesh.h"

namespace {

using lumagrid::detail::GluCylinderMesh;
using lumagrid::detail::QuadricOrientation;
using namespace glu_quadric_expect;

constexpr QuadricOrientation kOutside = QuadricOrientation::Outside;
constexpr QuadricOrientation kInside = QuadricOrientation::Inside;

struct Frustum {
  double base;
  double top;
  double height;
  int slices;
  int stacks;
  std::size_t triangles;
};

class CylinderMesh : public ::testing::TestWithParam<Frustum> {};

// One quad strip per stack: two triangles per slice and stack, a cone's tip included.
TEST_P(CylinderMesh, HasTwoTrianglesPerSliceAndStack) {
  const Frustum& f = GetParam();
  for (const auto orientation : {kOutside, kInside}) {
    const lumagrid::MeshPart part =
        GluCylinderMesh(f.base, f.top, f.height, f.slices, f.stacks, orientation);
    EXPECT_EQ(TriangleCount(part), f.triangles);
    EXPECT_TRUE(IndicesInRange(part));
  }
}

TEST_P(CylinderMesh, EveryVertexLiesOnTheSideAtItsHeightsRadius) {
  const Frustum& f = GetParam();
  const lumagrid::MeshPart part =
      GluCylinderMesh(f.base, f.top, f.height, f.slices, f.stacks, kOutside);
  for (const auto& vertex : part.vertices) {
    const Point p = ToPoint(vertex.position);
    EXPECT_GE(p[2], 0.0);
    EXPECT_LE(p[2], f.height + 1e-12);
    EXPECT_NEAR(std::hypot(p[0], p[1]), f.base + (f.top - f.base) * p[2] / f.height, 1e-12);
  }
}

// Outward and square to the slant: the radial part is height/slant, the z part
// (base - top)/slant.
TEST_P(CylinderMesh, OutsideNormalsAreOutwardUnitNormalsOfTheSide) {
  const Frustum& f = GetParam();
  const double slant = std::hypot(f.base - f.top, f.height);
  const lumagrid::MeshPart part =
      GluCylinderMesh(f.base, f.top, f.height, f.slices, f.stacks, kOutside);
  for (const auto& vertex : part.vertices) {
    const Point p = ToPoint(vertex.position);
    const Point n = ToPoint(vertex.normal);
    const double r = std::hypot(p[0], p[1]);
    if (r == 0.0) {
      continue;
    }
    EXPECT_NEAR(n[0], f.height / slant * p[0] / r, 1e-12);
    EXPECT_NEAR(n[1], f.height / slant * p[1] / r, 1e-12);
    EXPECT_NEAR(n[2], (f.base - f.top) / slant, 1e-12);
  }
}

TEST_P(CylinderMesh, TrianglesFaceAwayFromTheAxisOutsideAndTowardsItInside) {
  const Frustum& f = GetParam();
  const double size = std::fmax(f.height, std::fmax(f.base, f.top));
  for (const auto orientation : {kOutside, kInside}) {
    const lumagrid::MeshPart part =
        GluCylinderMesh(f.base, f.top, f.height, f.slices, f.stacks, orientation);
    for (std::size_t t = 0; t < TriangleCount(part); ++t) {
      if (HasNoArea(part, t, size)) {
        continue;
      }
      const Point c = Centroid(part, t);
      const double outward = Dot(FacetNormal(part, t), Point{c[0], c[1], 0.0});
      if (orientation == kOutside) {
        EXPECT_GT(outward, 0.0) << t;
      } else {
        EXPECT_LT(outward, 0.0) << t;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sides, CylinderMesh,
                         ::testing::Values(Frustum{1.0, 1.0, 1.0, 20, 1, 40},
                                           Frustum{1.0, 0.0, 1.0, 20, 1, 40},
                                           Frustum{0.2, 0.05, 0.7, 12, 3, 72},
                                           Frustum{1.0, 0.5, 2.0, 7, 4, 56},
                                           Frustum{0.0, 1.0, 1.0, 9, 2, 36},
                                           // Slices capped at 239.
                                           Frustum{2.0, 1.0, 0.5, 500, 2, 956}));

// GLU turns inside only the normal's radial part: a cone's normals keep their z.
TEST(CylinderMeshInside, TurnsOnlyTheNormalsRadialPart) {
  const lumagrid::MeshPart outside = GluCylinderMesh(1.0, 0.5, 2.0, 7, 4, kOutside);
  const lumagrid::MeshPart inside = GluCylinderMesh(1.0, 0.5, 2.0, 7, 4, kInside);
  ASSERT_EQ(inside.vertices.size(), outside.vertices.size());
  const double slant = std::sqrt(4.25);
  for (std::size_t v = 0; v < inside.vertices.size(); ++v) {
    const Point p = ToPoint(inside.vertices[v].position);
    const Point n = ToPoint(inside.vertices[v].normal);
    const double r = std::hypot(p[0], p[1]);
    EXPECT_NEAR(n[0], -2.0 / slant * p[0] / r, 1e-12);
    EXPECT_NEAR(n[1], -2.0 / slant * p[1] / r, 1e-12);
    EXPECT_NEAR(n[2], 0.5 / slant, 1e-12);
    EXPECT_EQ(n[2], outside.vertices[v].normal.z());
  }
}

// Slice i lies at 2*pi*i/slices from +y towards +x.
TEST(CylinderMeshOrder, OutsideQuadsRunBottomTopThenOnAroundTheAxis) {
  const lumagrid::MeshPart part = GluCylinderMesh(1.0, 1.0, 1.0, 4, 1, kOutside);
  ASSERT_EQ(TriangleCount(part), 8u);
  const Point first[3] = {{0.0, 1.0, 0.0}, {0.0, 1.0, 1.0}, {1.0, 0.0, 1.0}};
  const Point second[3] = {{0.0, 1.0, 0.0}, {1.0, 0.0, 1.0}, {1.0, 0.0, 0.0}};
  for (int corner = 0; corner < 3; ++corner) {
    for (int i = 0; i < 3; ++i) {
      EXPECT_NEAR(Position(part, 0, corner)[i], first[corner][i], 1e-12) << corner;
      EXPECT_NEAR(Position(part, 1, corner)[i], second[corner][i], 1e-12) << corner;
    }
  }
}

TEST(CylinderMeshOrder, InsideQuadsRunTopBottomThenOnAroundTheAxis) {
  const lumagrid::MeshPart part = GluCylinderMesh(1.0, 1.0, 1.0, 4, 1, kInside);
  ASSERT_EQ(TriangleCount(part), 8u);
  const Point first[3] = {{0.0, 1.0, 1.0}, {0.0, 1.0, 0.0}, {1.0, 0.0, 0.0}};
  for (int corner = 0; corner < 3; ++corner) {
    for (int i = 0; i < 3; ++i) {
      EXPECT_NEAR(Position(part, 0, corner)[i], first[corner][i], 1e-12) << corner;
    }
  }
  EXPECT_EQ(ToPoint(Corner(part, 0, 0).normal), (Point{0.0, -1.0, 0.0}));
}

// Each quad's first triangle ends on the tip twice.
TEST(CylinderMeshCone, KeepsTheTipsTrianglesOfNoArea) {
  const lumagrid::MeshPart part = GluCylinderMesh(1.0, 0.0, 1.0, 20, 1, kOutside);
  ASSERT_EQ(TriangleCount(part), 40u);
  for (std::size_t t = 0; t < TriangleCount(part); ++t) {
    EXPECT_EQ(HasNoArea(part, t, 1.0), t % 2 == 0) << t;
  }
}

// With no height the side is a flat ring, its normals along the axis.
TEST(CylinderMeshFlat, ZeroHeightGivesARingFacingAlongTheAxis) {
  const lumagrid::MeshPart part = GluCylinderMesh(1.0, 2.0, 0.0, 8, 3, kOutside);
  ASSERT_EQ(TriangleCount(part), 48u);
  for (const auto& vertex : part.vertices) {
    EXPECT_EQ(vertex.position.z(), 0.0);
    EXPECT_EQ(ToPoint(vertex.normal), (Point{0.0, 0.0, -1.0}));
  }
}

}  // namespace
