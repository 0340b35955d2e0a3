#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "glu_quadric_expect.h"
#include "mesh/gle_tube_mesh.h"

namespace {

using lumagrid::MeshPart;
using lumagrid::detail::GleHelicoidMesh;
using lumagrid::detail::GlePolyCylinderMesh;
using lumagrid::detail::GleSettings;
using lumagrid::detail::GleToroidMesh;
using lumagrid::detail::HelixTube;
using lumagrid::detail::PathPoint;
using namespace glu_quadric_expect;

constexpr double kPi = 3.14159265358979323846;

// The three join styles the library's shapes set.
constexpr int kToroidStyle = 530;  // TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE
constexpr int kCapped = 1042;      // TUBE_NORM_PATH_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE
constexpr int kOpen = 1026;        // TUBE_NORM_PATH_EDGE | TUBE_JN_ANGLE

HelixTube Torus(double tube, double ring, double start, double sweep) {
  return {tube, {ring, 0.0, 0.0, 0.0, start, sweep}};
}

// A point's distance from the z axis.
double Rho(const Point& p) {
  return std::hypot(p[0], p[1]);
}

// A flat tube's cap normals run along the tube, square to the plane through the axis.
bool IsCapNormal(const Point& n, const Point& p) {
  return std::fabs(n[0] * p[0] + n[1] * p[1]) < 1e-12 && std::fabs(n[2]) < 1e-12;
}

// ----------------------------------------------------------------------------------------
// Counts: floor(|sweep| * sides / 360) + 4 path points, the first and last only aiming the
// ends, so points - 3 segments of 2 * sides triangles, and a fan of sides - 2 per cap.

struct Count {
  const char* what;
  HelixTube tube;
  int sides;
  int style;
  std::size_t triangles;
};

void PrintTo(const Count& c, std::ostream* out) {
  *out << c.what;
}

class SpiralCount : public ::testing::TestWithParam<Count> {};

TEST_P(SpiralCount, IsTwoTrianglesPerSideAndSegmentAndAFanPerCap) {
  const Count& c = GetParam();
  const GleSettings settings{c.sides, c.style};
  const MeshPart part =
      c.style == kToroidStyle ? GleToroidMesh(c.tube, settings) : GleHelicoidMesh(c.tube, settings);
  EXPECT_EQ(TriangleCount(part), c.triangles) << c.what;
  EXPECT_TRUE(IndicesInRange(part)) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Tubes, SpiralCount,
    ::testing::Values(
        Count{"Torus20", Torus(0.1, 1.0, 0.0, 360.0), 20, kToroidStyle, 21 * 40 + 2 * 18},
        Count{"Torus6", Torus(0.1, 1.0, 0.0, 360.0), 6, kToroidStyle, 7 * 12 + 2 * 4},
        Count{"Torus33", Torus(0.1, 1.0, 0.0, 360.0), 33, kToroidStyle, 34 * 66 + 2 * 31},
        Count{"HalfTorus", Torus(0.2, 2.0, 90.0, 180.0), 20, kToroidStyle, 11 * 40 + 2 * 18},
        // 1800 degrees at 10 sides: 54 points.
        Count{"CoilCapped", {0.1, {1.0, 0.0, 0.0, 0.5, 0.0, 1800.0}}, 10, kCapped, 51 * 20 + 16},
        Count{"CoilOpen", {0.1, {1.0, 0.0, 0.0, 0.5, 0.0, 1800.0}}, 10, kOpen, 51 * 20},
        Count{"Coil50", {0.1, {1.0, 0.0, 0.0, 0.5, 0.0, 1800.0}}, 50, kOpen, 251 * 100},
        // 200 degrees at 20 sides: 15 points.
        Count{"Hook", {0.1, {1.0, 0.0, 0.0, 0.0, -20.0, 200.0}}, 20, kCapped, 12 * 40 + 2 * 18},
        Count{
            "Backwards", {0.1, {1.0, 0.0, 0.0, 0.0, 0.0, -200.0}}, 20, kCapped, 12 * 40 + 2 * 18}));

// ----------------------------------------------------------------------------------------
// A straight poly-cylinder: the simplest tube, worked out by hand.

// Along x from 0 to 1, with a direction point before and after.
const std::vector<PathPoint> kStraight = {
    {-1.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {2.0, 0.0, 0.0}};

TEST(PolyCylinderMesh, StraightTubeIsOneSegmentOfTwoTrianglesPerSide) {
  EXPECT_EQ(TriangleCount(GlePolyCylinderMesh(kStraight, 0.5, {8, kOpen})), 16u);
  // Capped: two fans of six more.
  EXPECT_EQ(TriangleCount(GlePolyCylinderMesh(kStraight, 0.5, {8, kCapped})), 28u);
}

// The circle starts on the side of +y carried square to the path: with four sides its
// corners lie on the y and z axes, not between them.
TEST(PolyCylinderMesh, FourSidesLieOnTheAxesSquareToThePath) {
  const MeshPart part = GlePolyCylinderMesh(kStraight, 0.5, {4, kOpen});
  ASSERT_EQ(TriangleCount(part), 8u);
  for (const auto& vertex : part.vertices) {
    const Point p = ToPoint(vertex.position);
    EXPECT_TRUE(p[0] == 0.0 || p[0] == 1.0) << p[0];
    EXPECT_NEAR(std::fabs(p[1]) + std::fabs(p[2]), 0.5, 1e-15);
    EXPECT_NEAR(std::fabs(p[1]) * std::fabs(p[2]), 0.0, 1e-15);
    // The normal points straight out from the axis.
    const Point n = ToPoint(vertex.normal);
    EXPECT_NEAR(n[0], 0.0, 1e-15);
    EXPECT_NEAR(n[1], p[1] / 0.5, 1e-15);
    EXPECT_NEAR(n[2], p[2] / 0.5, 1e-15);
  }
}

TEST(PolyCylinderMesh, SidesWindOutwardAndCapsFaceAlongThePath) {
  const MeshPart part = GlePolyCylinderMesh(kStraight, 0.5, {8, kCapped});
  std::size_t caps = 0;
  for (std::size_t t = 0; t < TriangleCount(part); ++t) {
    const Point facet = FacetNormal(part, t);
    const Point centre = Centroid(part, t);
    if (std::fabs(facet[0]) > 1e-12) {
      // A cap: at x = 0 facing -x, at x = 1 facing +x, with that normal at its corners.
      ++caps;
      const double away = centre[0] < 0.5 ? -1.0 : 1.0;
      EXPECT_GT(facet[0] * away, 0.0) << t;
      for (int corner = 0; corner < 3; ++corner) {
        EXPECT_EQ(ToPoint(Corner(part, t, corner).normal), (Point{away, 0.0, 0.0}));
      }
    } else {
      EXPECT_GT(Dot(facet, Point{0.0, centre[1], centre[2]}), 0.0) << t;
    }
  }
  EXPECT_EQ(caps, 12u);
}

// A right-angle bend: the joint is cut at 45 degrees, so the circle there stretches by
// sqrt(2) across the bend, and the normals there lie in the cut.
TEST(PolyCylinderMesh, MitresTheJointHalfwayBetweenItsSegments) {
  const std::vector<PathPoint> bend = {
      {-1.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {1.0, 1.0, 0.0}, {1.0, 2.0, 0.0}};
  const MeshPart part = GlePolyCylinderMesh(bend, 0.25, {16, kOpen});
  ASSERT_EQ(TriangleCount(part), 2u * 32u);
  std::size_t atJoint = 0;
  for (const auto& vertex : part.vertices) {
    const Point p = ToPoint(vertex.position);
    // The cut through (1, 0, 0) square to (1, -1, 0) / sqrt(2).
    if (std::fabs((p[0] - 1.0) + p[1]) > 1e-12) {
      continue;
    }
    ++atJoint;
    const double across = std::hypot(p[0] - 1.0, p[1]);
    const double stretched = across / std::sqrt(2.0);
    EXPECT_NEAR(stretched * stretched + p[2] * p[2], 0.25 * 0.25, 1e-14);
    const Point n = ToPoint(vertex.normal);
    EXPECT_NEAR(n[0] + n[1], 0.0, 1e-14);
    EXPECT_NEAR(Length(n), 1.0, 1e-14);
  }
  // Both segments' ends at the joint.
  EXPECT_EQ(atJoint, 2u * 16u);
}

// ----------------------------------------------------------------------------------------
// The torus: a ring of sides + 1 equal steps around the axis, mitred in the planes through
// the axis at the steps. Half the step is the angle a between a segment and that plane's
// normal; the circle is stretched to 1 / cos a across the ring.

struct Ring {
  double tube;
  double ring;
  int sides;
};

void PrintTo(const Ring& r, std::ostream* out) {
  *out << "tube " << r.tube << " ring " << r.ring << " sides " << r.sides;
}

class TorusMesh : public ::testing::TestWithParam<Ring> {
 protected:
  MeshPart Part() const {
    const Ring& r = GetParam();
    return GleToroidMesh(Torus(r.tube, r.ring, 0.0, 360.0), {r.sides, kToroidStyle});
  }
  double HalfStep() const { return kPi / (GetParam().sides + 1); }
};

TEST_P(TorusMesh, SideVerticesLieOnTheStretchedCircleInTheirCut) {
  const Ring& r = GetParam();
  const double c = std::cos(HalfStep());
  for (const auto& vertex : Part().vertices) {
    const Point p = ToPoint(vertex.position);
    const double across = (Rho(p) - r.ring) * c;
    EXPECT_NEAR(across * across + p[2] * p[2], r.tube * r.tube, 1e-14);
  }
}

// Lit as GLE lights it: in the cut, as the stretched circle's normal at every segment's end
// and at the very start (slope cos^2 a), but flattened twice more at the start of every later
// segment (cos^4 a).
TEST_P(TorusMesh, NormalsLieInTheCutAndLeanOutMoreWhereASegmentStarts) {
  const Ring& r = GetParam();
  const double c2 = std::pow(std::cos(HalfStep()), 2);
  std::size_t plain = 0;
  std::size_t flattened = 0;
  for (const auto& vertex : Part().vertices) {
    const Point p = ToPoint(vertex.position);
    const Point n = ToPoint(vertex.normal);
    if (IsCapNormal(n, p)) {
      continue;
    }
    EXPECT_NEAR(Length(n), 1.0, 1e-14);
    // In the plane through the axis and p.
    EXPECT_NEAR(n[0] * p[1] - n[1] * p[0], 0.0, 1e-14);
    const double outward = (n[0] * p[0] + n[1] * p[1]) / Rho(p);
    const double across = Rho(p) - r.ring;
    const double lean = outward * p[2];
    if (std::fabs(lean - c2 * across * n[2]) < 1e-13) {
      ++plain;
    } else if (std::fabs(lean - c2 * c2 * across * n[2]) < 1e-13) {
      ++flattened;
    } else {
      ADD_FAILURE() << "normal at " << p[0] << " " << p[1] << " " << p[2];
    }
    EXPECT_GT(outward * across + n[2] * p[2], 0.0);
  }
  EXPECT_GT(plain, 0u);
  EXPECT_GT(flattened, 0u);
}

TEST_P(TorusMesh, SidesWindOutward) {
  const Ring& r = GetParam();
  const MeshPart part = Part();
  std::size_t sides = 0;
  for (std::size_t t = 0; t < TriangleCount(part); ++t) {
    if (IsCapNormal(ToPoint(Corner(part, t, 0).normal), Position(part, t, 0))) {
      continue;
    }
    ++sides;
    const Point c = Centroid(part, t);
    const double scale = r.ring / Rho(c);
    const Point out = Minus(c, Point{c[0] * scale, c[1] * scale, 0.0});
    EXPECT_GT(Dot(FacetNormal(part, t), out), 0.0) << t;
  }
  EXPECT_EQ(sides, 2u * static_cast<std::size_t>(r.sides * (r.sides + 1)));
}

INSTANTIATE_TEST_SUITE_P(Rings, TorusMesh,
                         ::testing::Values(Ring{0.1, 1.0, 20}, Ring{0.1, 1.0, 6},
                                           Ring{0.1, 1.0, 33}, Ring{0.3, 2.0, 5}),
                         [](const ::testing::TestParamInfo<Ring>& info) {
                           return "Sides" + std::to_string(info.param.sides);
                         });

// Half a torus from 90 degrees: its caps at (0, 2, 0) and (0, -2, 0) both face +x, away from
// the tube, with that normal.
TEST(TorusCaps, FaceAwayFromTheTubeAtBothEnds) {
  const MeshPart part = GleToroidMesh(Torus(0.2, 2.0, 90.0, 180.0), {20, kToroidStyle});
  std::size_t caps = 0;
  for (std::size_t t = 0; t < TriangleCount(part); ++t) {
    const Point c = Centroid(part, t);
    if (std::fabs(c[0]) > 1e-12) {
      continue;
    }
    ++caps;
    EXPECT_GT(FacetNormal(part, t)[0], 0.0) << t;
    for (int corner = 0; corner < 3; ++corner) {
      const Point n = ToPoint(Corner(part, t, corner).normal);
      EXPECT_NEAR(n[0], 1.0, 1e-15);
      EXPECT_NEAR(n[1], 0.0, 1e-15);
      EXPECT_EQ(n[2], 0.0);
    }
  }
  EXPECT_EQ(caps, 2u * 18u);
}

// ----------------------------------------------------------------------------------------
// A coil: every side vertex lies within the stretched radius of the helix's polyline, with a
// unit normal pointing away from it.

TEST(HelicoidMesh, VerticesSurroundTheCoilWithUnitOutwardNormals) {
  const HelixTube coil{0.1, {1.0, 0.0, 0.0, 0.5, 0.0, 720.0}};
  const MeshPart part = GleHelicoidMesh(coil, {12, kOpen});
  ASSERT_EQ(TriangleCount(part), (24u + 1u) * 24u);
  for (const auto& vertex : part.vertices) {
    const Point p = ToPoint(vertex.position);
    const Point n = ToPoint(vertex.normal);
    EXPECT_NEAR(Length(n), 1.0, 1e-14);
    // The helix at p's angle: off it by about the tube's radius (more in a mitre), and the
    // normal points away from it.
    const double angle = std::atan2(p[1], p[0]);
    double turns = std::round((p[2] / 0.5) - angle / (2.0 * kPi));
    const double theta = angle + 2.0 * kPi * turns;
    const Point axis{std::cos(theta), std::sin(theta), 0.5 * theta / (2.0 * kPi)};
    const Point off = Minus(p, axis);
    EXPECT_GT(Length(off), 0.09);
    EXPECT_LT(Length(off), 0.12);
    EXPECT_GT(Dot(off, n), 0.9 * Length(off));
  }
}

// ----------------------------------------------------------------------------------------
// Input GLE draws nothing for, or that is not built here.

TEST(GleTubeMeshInput, DegenerateOrAbsurdInputGivesNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const HelixTube ring = Torus(0.1, 1.0, 0.0, 360.0);
  for (const int sides : {0, -3, 1 << 30}) {
    EXPECT_TRUE(GleToroidMesh(ring, {sides, kToroidStyle}).indices.empty()) << sides;
    EXPECT_TRUE(GleHelicoidMesh(ring, {sides, kCapped}).indices.empty()) << sides;
    EXPECT_TRUE(GlePolyCylinderMesh(kStraight, 0.5, {sides, kOpen}).indices.empty()) << sides;
  }
  for (const double radius : {0.0, nan, inf}) {
    EXPECT_TRUE(GleToroidMesh(Torus(radius, 1.0, 0.0, 360.0), {20, kToroidStyle}).indices.empty());
    EXPECT_TRUE(GlePolyCylinderMesh(kStraight, radius, {20, kOpen}).indices.empty());
  }
  for (const double sweep : {0.0, nan, inf, 1e300}) {
    EXPECT_TRUE(
        GleHelicoidMesh({0.1, {1.0, 0.0, 0.0, 0.5, 0.0, sweep}}, {20, kCapped}).indices.empty());
  }
  EXPECT_TRUE(
      GleHelicoidMesh({0.1, {nan, 0.0, 0.0, 0.5, 0.0, 360.0}}, {20, kCapped}).indices.empty());
  // Too few points, points all in one place, a point not finite.
  EXPECT_TRUE(GlePolyCylinderMesh({kStraight.begin(), kStraight.begin() + 3}, 0.5, {8, kOpen})
                  .indices.empty());
  EXPECT_TRUE(
      GlePolyCylinderMesh(std::vector<PathPoint>(6, PathPoint{1.0, 1.0, 1.0}), 0.5, {8, kOpen})
          .indices.empty());
  std::vector<PathPoint> broken = kStraight;
  broken[2].y = nan;
  EXPECT_TRUE(GlePolyCylinderMesh(broken, 0.5, {8, kOpen}).indices.empty());
}

// Facet normals, other joins, and a toroid that climbs or spirals are not built.
TEST(GleTubeMeshInput, StylesAndToroidsNotBuiltGiveNothing) {
  const int facet = 0x100 | 0x10 | 0x2;
  EXPECT_TRUE(GlePolyCylinderMesh(kStraight, 0.5, {8, facet}).indices.empty());
  EXPECT_TRUE(GlePolyCylinderMesh(kStraight, 0.5, {8, facet | 0x200}).indices.empty());
  EXPECT_TRUE(GlePolyCylinderMesh(kStraight, 0.5, {8, 0x400 | 0x1}).indices.empty());
  EXPECT_TRUE(
      GleToroidMesh({0.1, {1.0, 0.0, 0.0, 0.5, 0.0, 360.0}}, {8, kToroidStyle}).indices.empty());
  EXPECT_TRUE(
      GleToroidMesh({0.1, {1.0, 0.2, 0.0, 0.0, 0.0, 360.0}}, {8, kToroidStyle}).indices.empty());
}

// GLE skips an inner point that repeats the one before it, so the tube is a segment shorter.
TEST(PolyCylinderMesh, RepeatedInnerPointAddsNoSegment) {
  std::vector<PathPoint> bend = {
      {-1.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {1.0, 1.0, 0.0}, {1.0, 2.0, 0.0}};
  const std::size_t plain = TriangleCount(GlePolyCylinderMesh(bend, 0.25, {8, kCapped}));
  bend.insert(bend.begin() + 2, bend[2]);
  EXPECT_EQ(TriangleCount(GlePolyCylinderMesh(bend, 0.25, {8, kCapped})), plain);
  EXPECT_EQ(plain, 2u * 16u + 2u * 6u);
}

}  // namespace
