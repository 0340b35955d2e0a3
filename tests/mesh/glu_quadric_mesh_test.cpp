#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <functional>
#include <limits>
#include <ostream>
#include <string>

#include "glu_quadric_expect.h"
#include "mesh/glu_quadric_mesh.h"

// What the three builders give for arguments GLU refuses, and for those it would draw with
// non-finite vertices or without bound.
namespace {

using lumagrid::MeshPart;
using lumagrid::detail::GluCylinderMesh;
using lumagrid::detail::GluDiskMesh;
using lumagrid::detail::GluSphereMesh;
using lumagrid::detail::QuadricOrientation;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr QuadricOrientation kOutside = QuadricOrientation::Outside;

struct BadCall {
  std::string name;
  std::function<MeshPart()> build;
};

void PrintTo(const BadCall& call, std::ostream* os) {
  *os << call.name;
}

class QuadricBadInput : public ::testing::TestWithParam<BadCall> {};

TEST_P(QuadricBadInput, GivesAnEmptyPart) {
  const MeshPart part = GetParam().build();
  EXPECT_TRUE(part.vertices.empty());
  EXPECT_TRUE(part.indices.empty());
}

BadCall Sphere(const std::string& name, double radius, int slices, int stacks) {
  return {"Sphere" + name, [=] { return GluSphereMesh(radius, slices, stacks); }};
}

BadCall Cylinder(const std::string& name, double base, double top, double height, int slices,
                 int stacks) {
  return {"Cylinder" + name,
          [=] { return GluCylinderMesh(base, top, height, slices, stacks, kOutside); }};
}

BadCall Disk(const std::string& name, double inner, double outer, int slices, int loops) {
  return {"Disk" + name, [=] { return GluDiskMesh(inner, outer, slices, loops, kOutside); }};
}

INSTANTIATE_TEST_SUITE_P(
    Refused, QuadricBadInput,
    ::testing::Values(
        Sphere("NegativeRadius", -1.0, 8, 8), Sphere("NaNRadius", kNaN, 8, 8),
        Sphere("InfiniteRadius", kInf, 8, 8), Sphere("RadiusBeyondFloat", 1e39, 8, 8),
        Sphere("OneSlice", 1.0, 1, 8), Sphere("NegativeSlices", 1.0, -5, 8),
        Sphere("NoStacks", 1.0, 8, 0), Sphere("NegativeStacks", 1.0, 8, INT_MIN),
        Cylinder("NegativeBase", -1.0, 1.0, 1.0, 8, 1),
        Cylinder("NegativeTop", 1.0, -0.5, 1.0, 8, 1),
        Cylinder("NegativeHeight", 1.0, 1.0, -1.0, 8, 1), Cylinder("NaNBase", kNaN, 1.0, 1.0, 8, 1),
        Cylinder("NaNTop", 1.0, kNaN, 1.0, 8, 1), Cylinder("NaNHeight", 1.0, 1.0, kNaN, 8, 1),
        Cylinder("InfiniteHeight", 1.0, 1.0, kInf, 8, 1), Cylinder("OneSlice", 1.0, 1.0, 1.0, 1, 1),
        Cylinder("NoStacks", 1.0, 1.0, 1.0, 8, 0),
        // No slant length: equal radii and no height.
        Cylinder("NoLength", 1.0, 1.0, 0.0, 8, 1),
        // GLU squares the radii's difference in a float, where this one vanishes.
        Cylinder("LengthVanishingInFloat", 1e-30, 0.0, 0.0, 8, 1),
        // Unbounded in GLU: more triangles than a part is allowed.
        Cylinder("MostStacks", 1.0, 1.0, 1.0, 8, INT_MAX),
        Cylinder("JustTooManyTriangles", 1.0, 1.0, 1.0, 2, (1 << 20) + 1),
        Disk("NoOuterRadius", 0.0, 0.0, 8, 1), Disk("NegativeOuter", 0.0, -1.0, 8, 1),
        Disk("NegativeInner", -0.1, 1.0, 8, 1), Disk("InnerBeyondOuter", 0.5, 0.4, 8, 1),
        Disk("NaNInner", kNaN, 1.0, 8, 1), Disk("NaNOuter", 0.0, kNaN, 8, 1),
        Disk("InfiniteOuter", 0.0, kInf, 8, 1), Disk("OneSlice", 0.0, 1.0, 1, 1),
        Disk("NoLoops", 0.0, 1.0, 8, 0), Disk("MostLoops", 0.0, 1.0, 8, INT_MAX)),
    [](const ::testing::TestParamInfo<BadCall>& info) { return info.param.name; });

// The counterparts the refusals above are measured against: GLU draws these.
TEST(QuadricEdgeInput, SmallestValidCallsAreDrawn) {
  EXPECT_EQ(glu_quadric_expect::TriangleCount(GluSphereMesh(1.0, 2, 1)), 4u);
  EXPECT_EQ(glu_quadric_expect::TriangleCount(GluCylinderMesh(1.0, 1.0, 1.0, 2, 1, kOutside)), 4u);
  EXPECT_EQ(glu_quadric_expect::TriangleCount(GluCylinderMesh(1e-20, 0.0, 0.0, 5, 1, kOutside)),
            10u);
  EXPECT_EQ(glu_quadric_expect::TriangleCount(GluCylinderMesh(0.0, 0.0, 1.0, 8, 1, kOutside)), 16u);
  EXPECT_EQ(glu_quadric_expect::TriangleCount(GluDiskMesh(0.0, 1.0, 2, 1, kOutside)), 2u);
  EXPECT_EQ(glu_quadric_expect::TriangleCount(GluDiskMesh(0.0, 1e-30, 3, 1, kOutside)), 3u);
}

}  // namespace
