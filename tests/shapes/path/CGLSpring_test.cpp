#include <lumagrid/CGLSpring.h>
#include <lumagrid/CGLTorus.h>

#include <GL/gl.h>
#include <GL/gle.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "naming/ParamName.h"
#include "probes/Probe.h"
#include "probes/VirtualTable.h"
#include "recorded/LogSlices.h"
#include "recorded/RecordedTest.h"
#include "recorded/Shorthands.h"
#include "recorded/SilentCall.h"
#include "shapes/tube/tube_fill.h"

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDegreeF = 0.01745329238474369;
constexpr double kTenthF = 0.10000000149011612;

class SpringProbe : public Probe<CGLSpring> {
 public:
  using Probe<CGLSpring>::Probe;
  using CGLSpring::DrawSpring;
  using CGLSpring::m_bShaded;
  using CGLSpring::m_dAux;
  using CGLSpring::m_dLength;
  using CGLSpring::m_dRadius;
  using CGLSpring::m_dStartAngle;
  using CGLSpring::m_dWireRadius;
  using CGLSpring::m_nQuality;
  using CGLSpring::m_nTurns;
  using CGLSpring::m_nType;
  using CGLSpring::m_nType2;
};

class Spring : public RecordedTest {};

template <class P>
class SpringWithParam : public Spring, public ::testing::WithParamInterface<P> {};

std::vector<std::string> Strip(const std::vector<std::array<double, 3>>& points) {
  std::vector<std::string> out{line("glBegin", en(GL_LINE_STRIP))};
  for (const auto& p : points) {
    out.push_back(line("glVertex3d", p[0], p[1], p[2]));
  }
  out.push_back(line("glEnd"));
  return out;
}

std::vector<std::array<double, 3>> Arc(double R, int from, int to) {
  std::vector<std::array<double, 3>> out;
  for (int a = from; a <= to; a += 10) {
    out.push_back({R * std::cos(a * kDegreeF), R * std::sin(a * kDegreeF), 0.0});
  }
  return out;
}

void Append(Lines& to, const Lines& more) {
  to.insert(to.end(), more.begin(), more.end());
}

// ---------------------------------------------------------------- state

TEST_F(Spring, OverridesOnlyItsTwoDrawingOperations) {
  EXPECT_THAT(OverriddenVirtuals(CGLSpring(), CGLObject()),
              ::testing::ElementsAre("DisplayListMake", "DrawDirect"));
}

TEST_F(Spring, DefaultIsASolidThreeTurnCompressionSpring) {
  SpringProbe s;
  EXPECT_EQ(s.m_bShaded, 1);
  EXPECT_EQ(s.m_nQuality, 20);
  EXPECT_EQ(s.m_nType, 0u);
  EXPECT_EQ(s.m_nType2, 0u);  // defined here, though callers set it before drawing
  EXPECT_EQ(s.m_dWireRadius, 0.1);
  EXPECT_EQ(s.m_dRadius, 1.0);
  EXPECT_EQ(s.m_dAux, 1.0);
  EXPECT_EQ(s.m_dLength, 5.0);
  EXPECT_EQ(s.m_dStartAngle, 0.0);
  EXPECT_EQ(s.m_nTurns, 3);
  EXPECT_TRUE(s.m_bModified);
}

TEST_F(Spring, ConstructorTakesWireCoilAuxLengthTurnsAndStartAngle) {
  SpringProbe s(0.2, 1.5, 7.0, 6.0, 4, 45.0);
  EXPECT_EQ(s.m_dWireRadius, 0.2);
  EXPECT_EQ(s.m_dRadius, 1.5);
  EXPECT_EQ(s.m_dAux, 7.0);
  EXPECT_EQ(s.m_dLength, 6.0);
  EXPECT_EQ(s.m_nTurns, 4);
  EXPECT_EQ(s.m_dStartAngle, 45.0);
  EXPECT_EQ(s.m_nQuality, 20);
  EXPECT_EQ(s.m_nType, 0u);
  EXPECT_EQ(s.m_nType2, 0u);
  EXPECT_EQ(s.m_bShaded, 1);
}

TEST_F(Spring, CopyAndAssignmentCopyEveryFieldAndShareTheList) {
  SpringProbe source(0.2, 1.5, 7.0, 6.0, 4, 45.0);
  source.SetQuality(33);
  source.SetType(1);
  source.SetType2(10);
  source.SetShadedMode(0);
  source.DisplayListMake();
  const auto same = [&](const SpringProbe& c) {
    EXPECT_EQ(c.m_bShaded, 0);
    EXPECT_EQ(c.m_nQuality, 33);
    EXPECT_EQ(c.m_nType, 1u);
    EXPECT_EQ(c.m_nType2, 10u);
    EXPECT_EQ(c.m_dWireRadius, 0.2);
    EXPECT_EQ(c.m_dRadius, 1.5);
    EXPECT_EQ(c.m_dAux, 7.0);
    EXPECT_EQ(c.m_dLength, 6.0);
    EXPECT_EQ(c.m_dStartAngle, 45.0);
    EXPECT_EQ(c.m_nTurns, 4);
    EXPECT_EQ(c.m_nDisplayList, source.m_nDisplayList);
  };
  SpringProbe copy(source);
  same(copy);
  SpringProbe assigned;
  assigned = source;
  same(assigned);
}

struct QualityCase {
  const char* name;
  unsigned int q;
  int kept;
};

void PrintTo(const QualityCase& c, std::ostream* os) {
  *os << c.name;
}

class SpringQuality : public SpringWithParam<QualityCase> {};

TEST_P(SpringQuality, AcceptsTenToFiftyWithoutMarkingTheList) {
  SpringProbe s;
  s.DisplayListMake();
  s.SetQuality(GetParam().q);
  unsigned int unused = 0;
  EXPECT_EQ(s.GetQuality(unused), GetParam().kept);
  EXPECT_FALSE(s.m_bModified);
}

INSTANTIATE_TEST_SUITE_P(Bounds, SpringQuality,
                         ::testing::Values(QualityCase{"NineIgnored", 9, 20},
                                           QualityCase{"TenTaken", 10, 10},
                                           QualityCase{"FiftyTaken", 50, 50},
                                           QualityCase{"FiftyOneIgnored", 51, 20},
                                           QualityCase{"HugeIgnored", 4000000000u, 20}),
                         ParamName());

TEST_F(Spring, TypeAndShadingSettersLeaveTheListAlone) {
  SpringProbe s;
  s.DisplayListMake();
  s.SetType(1);
  s.SetType2(3);
  s.SetShadedMode(0);
  EXPECT_FALSE(s.m_bModified);
  unsigned int unused = 0;
  EXPECT_EQ(s.GetType(unused), 1u);
  EXPECT_EQ(s.GetType2(unused), 3u);
  EXPECT_EQ(s.m_bShaded, 0);
}

TEST_F(Spring, LengthSettersMarkTheList) {
  SpringProbe s;
  s.DisplayListMake();
  s.SetLength(8.0);
  EXPECT_TRUE(s.m_bModified);
  EXPECT_EQ(s.m_dLength, 8.0);
  s.DisplayListMake();
  s.ScaleLength(2.0);
  EXPECT_TRUE(s.m_bModified);
  EXPECT_EQ(s.m_dLength, 16.0);
}

TEST_F(Spring, QualityShowsOnlyAfterSomethingElseMarksTheList) {
  CGLSpring s;
  s.Draw();
  s.SetQuality(30);
  recorder().clearCalls();
  s.Draw();
  EXPECT_EQ(recorder().count("gleSetNumSides"), 0u);  // the old list is called
  s.SetLength(5.0);
  recorder().clearCalls();
  s.Draw();
  ASSERT_EQ(recorder().count("gleSetNumSides"), 1u);
  EXPECT_EQ(recorder().callsNamed("gleSetNumSides").front().str(), line("gleSetNumSides", 30));
}

// ---------------------------------------------------------------- compression

TEST_F(Spring, OpenCompressionSpringIsOneCappedHelix) {
  CGLSpring s;
  EXPECT_LINES(
      (Lines{line("gleSetNumSides", 20), line("gleSetJoinStyle", 1042),
             line("gleHelicoid", 0.1, 1.0, 0.0, 0.0, 5.0 / 3, nullptr, nullptr, 0.0, 1080.0)}),
      CompiledBody(s));
}

TEST_F(Spring, CompileIsWrappedInNewListAndEndList) {
  CGLSpring s;
  recorder().clearCalls();
  EXPECT_EQ(s.DisplayListMake(), 0);
  const Lines block = CompiledBlock(recorder().log());
  ASSERT_EQ(block.size(), 5u);
  EXPECT_EQ(block.front(), line("glNewList", 1, en(GL_COMPILE)));
  EXPECT_EQ(block.back(), line("glEndList"));
  EXPECT_EQ(s.DisplayListMake(), 1);
}

struct EndCase {
  const char* name;
  unsigned int ends;
};

void PrintTo(const EndCase& c, std::ostream* os) {
  *os << c.name;
}

class SpringClosedCompression : public SpringWithParam<EndCase> {};

TEST_P(SpringClosedCompression, IsAnUncappedHelixAndTwoCappedRings) {
  CGLSpring s(0.2, 1.5, 1.0, 6.0, 4, 30.0);
  s.SetType2(GetParam().ends);
  EXPECT_LINES(
      (Lines{line("gleSetNumSides", 20), line("gleSetJoinStyle", 1026),
             line("gleHelicoid", 0.2, 1.5, 0.0, 0.0, 6.0 / 4, nullptr, nullptr, 30.0, 1440.0),
             line("gleSetJoinStyle", 1042),
             line("gleHelicoid", 0.2, 1.5, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0),
             line("gleHelicoid", 0.2, 1.5, 0.0, 6.0, 0.0, nullptr, nullptr, 0.0, 360.0)}),
      CompiledBody(s));
}

INSTANTIATE_TEST_SUITE_P(Ends, SpringClosedCompression,
                         ::testing::Values(EndCase{"One", 1}, EndCase{"Two", 2},
                                           EndCase{"Seven", 7}, EndCase{"Sixteen", 16}),
                         ParamName());

TEST_F(Spring, CompressionTubeLeavesSidesAndJoinStyle) {
  CGLSpring s;
  s.SetQuality(12);
  s.DisplayListMake();
  EXPECT_EQ(recorder().gleNumSides(), 12);
  EXPECT_EQ(recorder().gleJoinStyle(), 1042);
}

TEST_F(Spring, ZeroTurnsPassAnInfinitePitchToGle) {
  CGLSpring s(0.1, 1.0, 1.0, 5.0, 0, 0.0);
  EXPECT_LINES(
      (Lines{line("gleSetNumSides", 20), line("gleSetJoinStyle", 1042),
             line("gleHelicoid", 0.1, 1.0, 0.0, 0.0, HUGE_VAL, nullptr, nullptr, 0.0, 0.0)}),
      CompiledBody(s));
}

TEST_F(Spring, AbsurdTurnCountsDrawNoHelix) {
  for (const int turns : {1000000, INT_MAX}) {
    recorder().reset();
    CGLSpring s(0.1, 1.0, 1.0, 5.0, turns, 0.0);
    EXPECT_LINES((Lines{line("gleSetNumSides", 20), line("gleSetJoinStyle", 1042)}),
                 CompiledBody(s));
  }
}

class SpringCompressionSchematic : public SpringWithParam<EndCase> {};

TEST_P(SpringCompressionSchematic, IsOneZigzagInTheXzPlane) {
  const unsigned int ends = GetParam().ends;
  CGLSpring s(0.1, 1.5, 1.0, 4.5, 3, 0.0);
  s.SetType2(8 + ends);
  const double R = 1.5;
  const double p = 4.5 / 3;
  std::vector<std::array<double, 3>> v;
  if (ends != 0) {
    v.push_back({-R, 0, 0});
    v.push_back({R, 0, 0});
  }
  for (int i = 0; i < 3; ++i) {
    v.push_back({-R, 0, i * p});
    v.push_back({R, 0, i * p + p / 2});
  }
  v.push_back({-R, 0, 3 * p});
  if (ends != 0) {
    v.push_back({-R, 0, 4.5});
    v.push_back({R, 0, 4.5});
  }
  Lines expected{line("gleSetNumSides", 20)};
  Append(expected, Strip(v));
  EXPECT_LINES(expected, CompiledBody(s));
}

INSTANTIATE_TEST_SUITE_P(Ends, SpringCompressionSchematic,
                         ::testing::Values(EndCase{"Open", 0}, EndCase{"Closed", 1},
                                           EndCase{"ClosedThree", 3}),
                         ParamName());

TEST_F(Spring, SchematicWithAbsurdTurnsDrawsNothing) {
  CGLSpring s(0.1, 1.0, 1.0, 5.0, INT_MAX, 0.0);
  s.SetType2(8);
  EXPECT_LINES((Lines{line("gleSetNumSides", 20)}), CompiledBody(s));
  s.SetType(1);
  s.SetLength(5.0);
  const Lines body = CompiledBody(s);
  EXPECT_EQ(std::count(body.begin(), body.end(), line("glBegin", en(GL_LINE_STRIP))), 2);
}

// ---------------------------------------------------------------- tension

struct TwistCase {
  const char* name;
  unsigned int ends;
};

void PrintTo(const TwistCase& c, std::ostream* os) {
  *os << c.name;
}

// Every twist of the top hook.
const TwistCase kTwists[] = {{"None", 0}, {"Quarter", 1}, {"Half", 2}, {"ThreeQuarters", 3}};

class SpringTensionTube : public SpringWithParam<TwistCase> {};

// The body's points, written out from the description: the helix, the
// lead-in and the lead-out.
std::vector<double> OwnBody(double r, double R, double L, int n, double f, int q) {
  const double d = 2 * (R - r);
  const double N = n + f;
  const double B = L - d;
  const double p = B / N;
  const double sweep = N * 360;
  const int c = static_cast<int>(sweep * (q / 360.0)) + 4;
  std::vector<std::array<double, 3>> pts(static_cast<std::size_t>(c) + 19);
  pts[0] = {R, 0, -1};
  const double step = sweep * kPi / 180 / (c - 3);
  double angle = -step;
  double z = (R - r) - p * step / (2 * kPi);
  for (int i = 0; i < c; ++i) {
    pts[10 + static_cast<std::size_t>(i)] = {R * std::cos(angle), R * std::sin(angle), z};
    angle += step;
    z += p * step / (2 * kPi);
  }
  const auto bezier = [&](std::array<std::array<double, 3>, 4> cp, std::size_t at) {
    double t = 0;
    for (int i = 0; i < 12; ++i, t += kTenthF) {
      const double u = 1 - t;
      for (int k = 0; k < 3; ++k) {
        pts[at + static_cast<std::size_t>(i)][k] = u * u * u * cp[0][k] + 3 * t * u * u * cp[1][k] +
                                                   3 * t * t * u * cp[2][k] + t * t * t * cp[3][k];
      }
    }
  };
  const double a = std::atan2(((B - 2 * r) / N) * 0.5, 2 * (r + R));
  bezier({{{R, 0, 0},
           {R, 0, R - r},
           {R, std::cos(a) * r / 2, (R - r) + std::sin(a) * r / 2},
           pts[12]}},
         1);
  const double w = f * 360 * kDegreeF;
  const auto turn = [&](double x, double y, double zz) {
    return std::array<double, 3>{x * std::cos(w) - y * std::sin(w),
                                 x * std::sin(w) + y * std::cos(w), zz};
  };
  const std::size_t k = static_cast<std::size_t>(c) + 7;
  bezier({{pts[k], turn(R, std::cos(a) * r / 2, (R - r) + B - std::sin(a) * r / 2),
           turn(R, 0, (R - r) + B), turn(R, 0, B + d)}},
         k);
  std::vector<double> flat;
  for (const auto& pt : pts) {
    flat.insert(flat.end(), pt.begin(), pt.end());
  }
  return flat;
}

TEST_P(SpringTensionTube, IsABodyAndTwoHookArcs) {
  const double f = GetParam().ends * 0.25;
  CGLSpring s(0.1, 1.0, 1.0, 5.0, 3, 0.0);
  s.SetType(1);
  s.SetType2(GetParam().ends);
  Lines body = CompiledBody(s);
  ASSERT_GE(body.size(), 3u);
  // The body's points are checked on their own below.
  EXPECT_EQ(body[2].rfind("glePolyCylinder(", 0), 0u);
  EXPECT_EQ(body[2].substr(body[2].size() - 12), ", NULL, 0.1)");
  body[2] = "glePolyCylinder(...)";
  EXPECT_LINES((Lines{line("gleSetNumSides", 20), line("gleSetJoinStyle", 1026),
                      "glePolyCylinder(...)", line("gleSetJoinStyle", 1042), line("glPushMatrix"),
                      line("glRotated", -90.0, 1.0, 0.0, 0.0),
                      line("gleHelicoid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 200.0),
                      line("glPopMatrix"), line("glPushMatrix"),
                      line("glTranslated", 0.0, 0.0, 5.0), line("glRotated", 90.0, 1.0, 0.0, 0.0),
                      line("glRotated", f * 360 - 180, 0.0, 1.0, 0.0),
                      line("gleHelicoid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, -20.0, 200.0),
                      line("glPopMatrix")}),
               body);
}

TEST_P(SpringTensionTube, BodyPointsFollowTheHelixAndItsTransitions) {
  const unsigned int ends = GetParam().ends;
  CGLSpring s(0.1, 1.0, 1.0, 5.0, 3, 0.0);
  s.SetType(1);
  s.SetType2(ends);
  s.SetQuality(16);
  s.DisplayListMake();
  const std::vector<glrecorder::Call> calls = recorder().callsNamed("glePolyCylinder");
  ASSERT_EQ(calls.size(), 1u);
  const std::vector<double> expected = OwnBody(0.1, 1.0, 5.0, 3, ends * 0.25, 16);
  ASSERT_EQ(std::get<long long>(calls[0].args[0]) * 3, static_cast<long long>(expected.size()));
  const std::vector<double>& actual = std::get<glrecorder::Array<double>>(calls[0].args[1]).values;
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_NEAR(actual[i], expected[i], 1e-12) << "point " << i / 3 << " coordinate " << i % 3;
  }
}

INSTANTIATE_TEST_SUITE_P(Twists, SpringTensionTube, ::testing::ValuesIn(kTwists), ParamName());

TEST_F(Spring, HalfTwistTurnsTheTopHookByNothing) {
  CGLSpring s;
  s.SetType(1);
  s.SetType2(2);
  const Lines body = CompiledBody(s);
  EXPECT_NE(std::find(body.begin(), body.end(), line("glRotated", 0.0, 0.0, 1.0, 0.0)), body.end());
}

TEST_F(Spring, TensionTubeWithAbsurdTurnsKeepsOnlyItsHooks) {
  CGLSpring s(0.1, 1.0, 1.0, 5.0, 1000000, 0.0);
  s.SetType(1);
  s.SetType2(0);
  const Lines body = CompiledBody(s);
  EXPECT_EQ(std::count(body.begin(), body.end(), line("glPushMatrix")), 2);
  for (const std::string& l : body) {
    EXPECT_EQ(l.rfind("glePolyCylinder", 0), std::string::npos);
  }
}

class SpringTensionSchematic : public SpringWithParam<TwistCase> {};

TEST_P(SpringTensionSchematic, IsAZigzagAndTwoArcsOfTheCoilRadius) {
  const unsigned int ends = GetParam().ends;
  const double f = ends * 0.25;
  const double R = 0.7;
  const double L = 6.7;  // (L - 2R) + 2R is not quite L here
  const int n = 2;
  CGLSpring s(0.1, R, 1.0, L, n, 0.0);
  s.SetType(1);
  s.SetType2(8 + ends);
  const double p = (L - 2 * R) / (n + f);
  std::vector<std::array<double, 3>> v{{R, 0, 0}, {R, 0, R - p / 2}};
  for (int i = 0; i <= n; ++i) {
    v.push_back({-R, 0, i * p + R});
    v.push_back({R, 0, i * p + R + p / 2});
  }
  double x = R;
  if (ends == 2) {
    v.push_back({-R, 0, (n + 1) * p + R});
    x = -R;
  }
  v.push_back({x, 0, L});

  Lines expected{line("gleSetNumSides", 20)};
  Append(expected, Strip(v));
  Append(expected, {line("glPushMatrix"), line("glRotated", -90.0, 1.0, 0.0, 0.0)});
  Append(expected, Strip(Arc(R, 0, 200)));
  Append(expected,
         {line("glPopMatrix"), line("glPushMatrix"),
          line("glTranslated", 0.0, 0.0, (L - 2 * R) + 2 * R),
          line("glRotated", 90.0, 1.0, 0.0, 0.0), line("glRotated", f * 360 - 180, 0.0, 1.0, 0.0)});
  Append(expected, Strip(Arc(R, -20, 180)));
  expected.push_back(line("glPopMatrix"));
  EXPECT_LINES(expected, CompiledBody(s));
  EXPECT_NE((L - 2 * R) + 2 * R, L);
}

INSTANTIATE_TEST_SUITE_P(Twists, SpringTensionSchematic, ::testing::ValuesIn(kTwists), ParamName());

// ---------------------------------------------------------------- other types, drawing

TEST_F(Spring, OtherTypesCompileAnEmptyList) {
  for (const unsigned int type : {2u, 3u, 0xFFFFFFFFu}) {
    recorder().reset();
    CGLSpring s;
    s.SetType(type);
    EXPECT_LINES((Lines{line("gleSetNumSides", 20)}), CompiledBody(s));
  }
}

TEST_F(Spring, DrawDirectDrawsAtOnceInsideTheTransform) {
  CGLSpring s;
  recorder().clearCalls();
  EXPECT_EQ(s.DrawDirect(), 0);
  const Lines log = recorder().log();
  ASSERT_EQ(log.size(), 7u);
  EXPECT_EQ(log[0], line("glPushMatrix"));
  EXPECT_EQ(log[3], line("gleSetNumSides", 20));
  EXPECT_EQ(log[5].rfind("gleHelicoid(", 0), 0u);
  EXPECT_EQ(recorder().count("glPopMatrix"), 1u);
  EXPECT_EQ(recorder().count("glNewList"), 0u);
}

TEST_F(Spring, InvisibleDrawDirectDoesNothing) {
  CGLSpring s;
  s.SetVisible(false);
  EXPECT_TRUE(ReturnsSilently(1, [&] { return s.DrawDirect(); }));
}

TEST_F(Spring, DrawsThroughTheBasePipeline) {
  CGLSpring s;
  recorder().clearCalls();
  EXPECT_EQ(s.Draw(), 1);
  EXPECT_EQ(recorder().log().front(), line("glPushMatrix"));
  EXPECT_EQ(recorder().log().back(), line("glPopMatrix"));
  EXPECT_EQ(recorder().count("glCallList"), 1u);
}

// ---------------------------------------------------------------- wireframe

TEST_F(Spring, UnshadedSpringIsAWireframeTube) {
  CGLSpring s;
  s.SetShadedMode(0);
  const Lines body = CompiledBody(s);
  ASSERT_GE(body.size(), 5u);
  EXPECT_EQ(body[0], line("gleSetNumSides", 20));
  EXPECT_EQ(body[1], line("gleSetJoinStyle", 1042));
  EXPECT_EQ(body[2], line("gleGetNumSides"));
  EXPECT_EQ(body[3], line("gleGetJoinStyle"));
  EXPECT_EQ(body[4], line("glBegin", en(GL_LINES)));
  EXPECT_EQ(std::count(body.begin(), body.end(), line("glBegin", en(GL_POLYGON))), 2);
  // Three turns at 20 sides: 64 helix points, 61 steps of 20 lines.
  EXPECT_EQ(std::count_if(body.begin(), body.end(),
                          [](const std::string& l) { return l.rfind("glVertex3d", 0) == 0; }),
            2 * 61 * 20 + 2 * 20);
  EXPECT_FALSE(lumagrid::detail::gl::TubeFilled());
}

TEST_F(Spring, WireframeTensionSpringSweepsBodyAndHooks) {
  CGLSpring s;
  s.SetType(1);
  s.SetType2(1);
  s.SetShadedMode(0);
  const Lines body = CompiledBody(s);
  EXPECT_EQ(std::count(body.begin(), body.end(), line("glBegin", en(GL_LINES))), 3);
  // The body is open; each hook has its two caps.
  EXPECT_EQ(std::count(body.begin(), body.end(), line("glBegin", en(GL_POLYGON))), 4);
  for (const std::string& l : body) {
    EXPECT_NE(l.rfind("gleHelicoid(", 0), 0u) << l;
    EXPECT_NE(l.rfind("glePolyCylinder(", 0), 0u) << l;
  }
}

TEST_F(Spring, ShadingIsLeftForLaterTubes) {
  CGLSpring wire;
  wire.SetShadedMode(0);
  wire.DisplayListMake();
  EXPECT_FALSE(lumagrid::detail::gl::TubeFilled());
  CGLSpring solid;
  solid.DisplayListMake();
  EXPECT_TRUE(lumagrid::detail::gl::TubeFilled());
}

TEST_F(Spring, TorusBuiltAfterAWireframeSpringIsAWireframe) {
  CGLSpring spring;
  spring.SetShadedMode(0);
  spring.SetType(2);  // draws nothing, but sets the tubes
  spring.DisplayListMake();
  gleSetNumSides(10);
  recorder().clearCalls();
  CGLTorus torus;
  torus.DisplayListMake();
  const Lines body = recorder().listLog(2);
  ASSERT_GE(body.size(), 4u);
  EXPECT_EQ(body[0], line("gleSetJoinStyle", 530));
  EXPECT_EQ(body[1], line("gleGetNumSides"));
  EXPECT_EQ(body[2], line("gleGetJoinStyle"));
  EXPECT_EQ(body[3], line("glBegin", en(GL_LINES)));
  EXPECT_EQ(recorder().count("gleToroid"), 0u);
}

TEST_F(Spring, TorusBuiltAfterASolidSpringIsGlesToroid) {
  CGLSpring wire;
  wire.SetShadedMode(0);
  wire.DisplayListMake();
  CGLSpring solid;
  solid.DisplayListMake();
  CGLTorus torus;
  torus.DisplayListMake();
  EXPECT_LINES((Lines{line("gleSetJoinStyle", 530),
                      line("gleToroid", 0.1, 1.0, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0)}),
               recorder().listLog(3));
}

TEST_F(Spring, ShadingShowsOnlyAfterSomethingElseMarksTheList) {
  CGLSpring s;
  s.Draw();
  s.SetShadedMode(0);
  recorder().clearCalls();
  s.Draw();
  EXPECT_EQ(recorder().count("glBegin"), 0u);
  s.DrawDirect();  // but at once when drawn directly
  EXPECT_EQ(recorder().count("glBegin"), 3u);
}

}  // namespace
