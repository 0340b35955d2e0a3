// The tube calls: GLE's own while tubes are filled, the library's wireframe
// sweep of the same path otherwise.

#include <GL/gl.h>
#include <GL/gle.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "recorded/RecordedTest.h"
#include "shapes/tube/tube.h"
#include "shapes/tube/tube_fill.h"
#include "naming/ParamName.h"

namespace {

using glrecorder::en;
using glrecorder::line;
using glrecorder::recorder;
using Lines = std::vector<std::string>;
using Vec = std::array<double, 3>;

constexpr double kPi = 3.14159265358979323846;
constexpr int kCapped = TUBE_NORM_PATH_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE;
constexpr int kOpen = TUBE_NORM_PATH_EDGE | TUBE_JN_ANGLE;

class Tube : public RecordedTest {};

double Dot(const Vec& a, const Vec& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vec Sub(const Vec& a, const Vec& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

// Distance of x from the line through a and b.
double FromLine(const Vec& x, const Vec& a, const Vec& b) {
  const Vec d = Sub(b, a);
  const Vec w = Sub(x, a);
  const double along = Dot(w, d) / Dot(d, d);
  const Vec foot{a[0] + along * d[0], a[1] + along * d[1], a[2] + along * d[2]};
  return std::sqrt(Dot(Sub(x, foot), Sub(x, foot)));
}

std::vector<glrecorder::Primitive> PrimitivesOf(GLenum mode) {
  std::vector<glrecorder::Primitive> out;
  for (const glrecorder::Primitive& p : recorder().primitives()) {
    if (p.mode == mode) {
      out.push_back(p);
    }
  }
  return out;
}

// The helix's centre points, sampled as GLE does for `sides` sides.
std::vector<Vec> OwnHelix(double r0, double z0, double dz, double start, double sweep, int sides) {
  const int count = static_cast<int>(std::fabs(sweep) * sides / 360.0) + 4;
  const double step = sweep * kPi / 180.0 / (count - 3);
  std::vector<Vec> points;
  for (int i = 0; i < count; ++i) {
    const double a = start * kPi / 180.0 + (i - 1) * step;
    points.push_back({r0 * std::cos(a), r0 * std::sin(a), z0 + dz * (i - 1) * step / (2 * kPi)});
  }
  return points;
}

// ---------------------------------------------------------------- filled

struct FilledCase {
  const char* name;
  std::function<void()> call;
  std::string line;
};

void PrintTo(const FilledCase& c, std::ostream* os) {
  *os << c.name;
}

class FilledTube : public Tube, public ::testing::WithParamInterface<FilledCase> {};

double g_path[4][3] = {{0, 0, -1}, {0, 0, 0}, {0, 0, 1}, {0, 0, 2}};

TEST_P(FilledTube, IsExactlyGlesOwnCall) {
  GetParam().call();
  EXPECT_LINES((Lines{GetParam().line}), recorder().log());
}

INSTANTIATE_TEST_SUITE_P(
    Calls, FilledTube,
    ::testing::Values(
        FilledCase{"Helicoid",
                   [] {
                     lumagrid::detail::gl::TubeHelicoid(0.1, 1.0, 0.5, 0.25, 2.0, nullptr, nullptr,
                                                        15.0, 700.0);
                   },
                   line("gleHelicoid", 0.1, 1.0, 0.5, 0.25, 2.0, nullptr, nullptr, 15.0, 700.0)},
        FilledCase{"Toroid",
                   [] {
                     lumagrid::detail::gl::TubeToroid(0.2, 2.0, 0.0, 0.0, 0.0, nullptr, nullptr,
                                                      90.0, 180.0);
                   },
                   line("gleToroid", 0.2, 2.0, 0.0, 0.0, 0.0, nullptr, nullptr, 90.0, 180.0)},
        FilledCase{
            "PolyCylinder", [] { lumagrid::detail::gl::TubePolyCylinder(4, g_path, nullptr, 0.3); },
            line("glePolyCylinder", 4, glrecorder::doubles(&g_path[0][0], 12, 3), nullptr, 0.3)}),
    ParamName());

// ---------------------------------------------------------------- wireframe

TEST_F(Tube, WireSweepAsksGleForSidesAndJoinStyle) {
  gleSetNumSides(6);
  gleSetJoinStyle(kOpen);
  recorder().clearCalls();
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubeHelicoid(0.1, 1.0, 0.0, 0.0, 1.0, nullptr, nullptr, 0.0, 360.0);
  const Lines log = recorder().log();
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(log[0], line("gleGetNumSides"));
  EXPECT_EQ(log[1], line("gleGetJoinStyle"));
  EXPECT_EQ(log[2], line("glBegin", en(GL_LINES)));
  EXPECT_EQ(log.back(), line("glEnd"));
  EXPECT_EQ(recorder().count("gleHelicoid"), 0u);
}

TEST_F(Tube, WireHelicoidDrawsOneLinePerSidePerStepOnTheTube) {
  const int sides = 8;
  const double r = 0.1;
  gleSetNumSides(sides);
  gleSetJoinStyle(kOpen);
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubeHelicoid(r, 1.0, 0.0, 0.5, 2.0, nullptr, nullptr, 30.0, 720.0);

  const std::vector<Vec> centre = OwnHelix(1.0, 0.5, 2.0, 30.0, 720.0, sides);
  const std::size_t steps = centre.size() - 3;
  const std::vector<glrecorder::Primitive> lines = PrimitivesOf(GL_LINES);
  ASSERT_EQ(lines.size(), 1u);
  const std::vector<Vec>& v = lines.front().vertices;
  ASSERT_EQ(v.size(), 2 * sides * steps);
  for (std::size_t j = 0; j < steps; ++j) {
    for (int k = 0; k < sides; ++k) {
      const std::size_t at = 2 * (j * sides + static_cast<std::size_t>(k));
      // Both ends on the cylinder of this step, one wire radius from its axis.
      EXPECT_NEAR(FromLine(v[at], centre[j + 1], centre[j + 2]), r, 1e-9) << j << " " << k;
      EXPECT_NEAR(FromLine(v[at + 1], centre[j + 1], centre[j + 2]), r, 1e-9) << j << " " << k;
    }
  }
  EXPECT_TRUE(PrimitivesOf(GL_POLYGON).empty());  // no caps in this join style
}

TEST_F(Tube, WireToroidRingsLieOnTheTorus) {
  const int sides = 12;
  gleSetNumSides(sides);
  gleSetJoinStyle(530);
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubeToroid(0.3, 1.5, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0);

  // 360 degrees at 12 sides: 16 points, 13 steps.
  const std::vector<glrecorder::Primitive> lines = PrimitivesOf(GL_LINES);
  ASSERT_EQ(lines.size(), 1u);
  ASSERT_EQ(lines.front().vertices.size(), 2u * 12u * 13u);
  for (const Vec& p : lines.front().vertices) {
    const double out = std::hypot(p[0], p[1]) - 1.5;
    EXPECT_NEAR(out * out + p[2] * p[2], 0.09, 1e-12);
  }
  // Each line joins the same point of the circle on two neighbouring rings.
  const Vec& a = lines.front().vertices[0];
  const Vec& b = lines.front().vertices[1];
  EXPECT_NEAR(std::hypot(a[0], a[1]), std::hypot(b[0], b[1]), 1e-12);
  EXPECT_NEAR(a[2], b[2], 1e-12);
}

TEST_F(Tube, WireToroidCapsAreUprightCirclesAtTheSweepsEnds) {
  gleSetNumSides(10);
  gleSetJoinStyle(530);
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubeToroid(0.2, 2.0, 0.0, 0.0, 0.0, nullptr, nullptr, 90.0, 180.0);
  const std::vector<glrecorder::Primitive> caps = PrimitivesOf(GL_POLYGON);
  ASSERT_EQ(caps.size(), 2u);
  for (const Vec& p : caps[0].vertices) {
    EXPECT_NEAR(p[0], 0.0, 1e-12);  // at 90 degrees: the y-z plane, y > 0
    EXPECT_GT(p[1], 1.7);
  }
  for (const Vec& p : caps[1].vertices) {
    EXPECT_NEAR(p[0], 0.0, 1e-12);  // at 270 degrees
    EXPECT_LT(p[1], -1.7);
  }
}

struct CapCase {
  const char* name;
  int joinStyle;
  std::size_t caps;
};

void PrintTo(const CapCase& c, std::ostream* os) {
  *os << c.name;
}

class WireCaps : public Tube, public ::testing::WithParamInterface<CapCase> {};

TEST_P(WireCaps, FollowTheJoinStyle) {
  gleSetNumSides(10);
  gleSetJoinStyle(GetParam().joinStyle);
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubeHelicoid(0.1, 1.0, 0.0, 0.0, 1.0, nullptr, nullptr, 0.0, 360.0);
  lumagrid::detail::gl::TubeToroid(0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 90.0);
  lumagrid::detail::gl::TubePolyCylinder(4, g_path, nullptr, 0.3);
  EXPECT_EQ(PrimitivesOf(GL_POLYGON).size(), 3 * GetParam().caps);
  EXPECT_EQ(PrimitivesOf(GL_LINES).size(), 3u);
}

INSTANTIATE_TEST_SUITE_P(JoinStyles, WireCaps,
                         ::testing::Values(CapCase{"Spring", kCapped, 2},
                                           CapCase{"SpringBody", kOpen, 0},
                                           CapCase{"Torus", 530, 2}, CapCase{"GleDefault", 274, 2},
                                           CapCase{"RawWithoutCaps", TUBE_JN_RAW, 0}),
                         ParamName());

TEST_F(Tube, WirePolyCylinderSkipsItsDirectionPoints) {
  gleSetNumSides(4);
  gleSetJoinStyle(kCapped);
  double path[5][3] = {{0, 0, -1}, {0, 0, 0}, {0, 0, 1}, {0, 0, 2}, {0, 0, 7}};
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubePolyCylinder(5, path, nullptr, 0.5);

  const std::vector<glrecorder::Primitive> lines = PrimitivesOf(GL_LINES);
  ASSERT_EQ(lines.size(), 1u);
  ASSERT_EQ(lines.front().vertices.size(), 2u * 4u * 2u);  // two steps, four sides
  for (std::size_t i = 0; i < lines.front().vertices.size(); i += 2) {
    const Vec& a = lines.front().vertices[i];
    const Vec& b = lines.front().vertices[i + 1];
    EXPECT_NEAR(std::hypot(a[0], a[1]), 0.5, 1e-12);
    EXPECT_NEAR(a[0], b[0], 1e-12);  // straight along the axis
    EXPECT_NEAR(a[1], b[1], 1e-12);
    EXPECT_NEAR(b[2] - a[2], 1.0, 1e-12);
    EXPECT_GE(a[2], -1e-12);
    EXPECT_LE(b[2], 2.0 + 1e-12);
  }
  const std::vector<glrecorder::Primitive> caps = PrimitivesOf(GL_POLYGON);
  ASSERT_EQ(caps.size(), 2u);
  // Counter-clockwise seen from outside: from below at z = 0, from above at z = 2.
  const auto turn = [](const std::vector<Vec>& p) {
    return (p[1][0] - p[0][0]) * (p[2][1] - p[0][1]) - (p[1][1] - p[0][1]) * (p[2][0] - p[0][0]);
  };
  EXPECT_NEAR(caps[0].vertices[0][2], 0.0, 1e-12);
  EXPECT_LT(turn(caps[0].vertices), 0.0);
  EXPECT_NEAR(caps[1].vertices[0][2], 2.0, 1e-12);
  EXPECT_GT(turn(caps[1].vertices), 0.0);
}

TEST_F(Tube, WireJointsAreMitred) {
  gleSetNumSides(16);
  gleSetJoinStyle(kOpen);
  // Up the y axis, then a right angle onto x at (0, 1, 0).
  double path[5][3] = {{0, -1, 0}, {0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {2, 1, 0}};
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubePolyCylinder(5, path, nullptr, 0.25);

  const std::vector<glrecorder::Primitive> lines = PrimitivesOf(GL_LINES);
  ASSERT_EQ(lines.size(), 1u);
  const std::vector<Vec>& v = lines.front().vertices;
  ASSERT_EQ(v.size(), 2u * 16u * 2u);
  const double s = 1.0 / std::sqrt(2.0);
  for (std::size_t k = 0; k < 16; ++k) {
    // The first step ends, and the second starts, on the plane that halves
    // the corner; both at the same points.
    const Vec& end = v[2 * k + 1];
    const Vec& start = v[2 * (16 + k)];
    EXPECT_NEAR((end[0] - 0.0) * s + (end[1] - 1.0) * s, 0.0, 1e-12) << k;
    EXPECT_NEAR(end[0], start[0], 1e-12) << k;
    EXPECT_NEAR(end[1], start[1], 1e-12) << k;
    EXPECT_NEAR(end[2], start[2], 1e-12) << k;
  }
}

TEST_F(Tube, WireLinesCarryTheTubesOutwardNormal) {
  gleSetNumSides(4);
  gleSetJoinStyle(kOpen);
  double path[4][3] = {{0, 0, -1}, {0, 0, 0}, {0, 0, 1}, {0, 0, 2}};
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubePolyCylinder(4, path, nullptr, 2.0);
  const std::vector<glrecorder::Call> normals = recorder().callsNamed("glNormal3f");
  const std::vector<glrecorder::Call> vertices = recorder().callsNamed("glVertex3d");
  ASSERT_EQ(normals.size(), vertices.size());
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const double x = std::get<double>(vertices[i].args[0]);
    const double y = std::get<double>(vertices[i].args[1]);
    EXPECT_NEAR(std::get<float>(normals[i].args[0]), x / 2.0, 1e-6);
    EXPECT_NEAR(std::get<float>(normals[i].args[1]), y / 2.0, 1e-6);
  }
}

TEST_F(Tube, TransformsAndColoursStayWithGle) {
  double xform[2][3] = {{1, 0, 0}, {0, 1, 0}};
  float colours[4][3] = {};
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubeHelicoid(0.1, 1.0, 0.0, 0.0, 1.0, xform, nullptr, 0.0, 360.0);
  lumagrid::detail::gl::TubeToroid(0.1, 1.0, 0.0, 0.0, 0.0, nullptr, xform, 0.0, 360.0);
  lumagrid::detail::gl::TubePolyCylinder(4, g_path, colours, 0.3);
  EXPECT_EQ(recorder().count("gleHelicoid"), 1u);
  EXPECT_EQ(recorder().count("gleToroid"), 1u);
  EXPECT_EQ(recorder().count("glePolyCylinder"), 1u);
  EXPECT_EQ(recorder().count("glBegin"), 0u);
}

TEST_F(Tube, WireSweepsTooLongOrTooFineDrawNothing) {
  lumagrid::detail::gl::SetTubeFilled(false);
  gleSetNumSides(20);
  lumagrid::detail::gl::TubeHelicoid(0.1, 1.0, 0.0, 0.0, 1.0, nullptr, nullptr, 0.0, 3.6e8);
  gleSetNumSides(1 << 22);
  lumagrid::detail::gl::TubeToroid(0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0);
  lumagrid::detail::gl::TubePolyCylinder(4, g_path, nullptr, 0.3);
  gleSetNumSides(0);
  lumagrid::detail::gl::TubeToroid(0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0);
  lumagrid::detail::gl::TubePolyCylinder(0, nullptr, nullptr, 0.3);
  EXPECT_EQ(recorder().count("glBegin"), 0u);
}

TEST_F(Tube, WirePolyCylinderOfFewerThanFourPointsDrawsNothing) {
  gleSetJoinStyle(kCapped);
  lumagrid::detail::gl::SetTubeFilled(false);
  lumagrid::detail::gl::TubePolyCylinder(3, g_path, nullptr, 0.3);
  EXPECT_EQ(recorder().count("glBegin"), 0u);
}

}  // namespace
