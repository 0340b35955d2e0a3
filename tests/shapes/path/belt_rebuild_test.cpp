// A belt rebuilt again and again keeps its buffers: the builder writes into a
// used vector and the belt overwrites the plain points it already owns. Both
// must give exactly the bits of a fresh outline, over seeded random pulleys,
// special values (NaN, infinities, zeros, huge and tiny) and every type.

#include <lumagrid/CGLBelt.h>

#include <GL/gl.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <variant>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>
#include "math/bit_compare.h"
#include "math/random_values.h"
#include "probes/CountedPoint.h"
#include "probes/Probe.h"
#include "recorded/RecordedTest.h"
#include "shapes/path/belt_outline.h"

namespace {

using lumagrid::detail::BuildBeltOutline;
using lumagrid::detail::PathPoint;

struct BeltCase {
  double r1;
  double r2;
  double entraxe;
  int quality;
  unsigned char type;  // as the host gives it to SetBType
};

double SpecialValue(mathtest::RandomValues& random) {
  using limits = std::numeric_limits<double>;
  static constexpr double kSpecial[] = {0.0,
                                        -0.0,
                                        1.0,
                                        -1.0,
                                        0.5,
                                        3.0,
                                        1e-300,
                                        -1e300,
                                        1e300,
                                        limits::infinity(),
                                        -limits::infinity(),
                                        limits::quiet_NaN(),
                                        limits::denorm_min(),
                                        limits::max(),
                                        0.0005,
                                        0.00049,
                                        limits::epsilon()};
  return kSpecial[random.engine()() % (sizeof kSpecial / sizeof kSpecial[0])];
}

// Mostly real belts (separate, touching, overlapping, nested, swapped), with
// special and wild values mixed in.
std::vector<BeltCase> Cases(int count) {
  static constexpr unsigned char kTypes[] = {0, 1, 2, 3, 4, 8, 16, 255};
  mathtest::RandomValues random(20240624);
  std::vector<BeltCase> cases;
  for (int i = 0; i < count; ++i) {
    double v[3];
    for (double& x : v) {
      const int kind = static_cast<int>(random.engine()() % 8);
      x = kind < 4   ? random.uniform(0.0, 4.0)
          : kind < 5 ? random.smallInt(3)
          : kind < 7 ? random.anyKind()
                     : SpecialValue(random);
    }
    const int shape = static_cast<int>(random.engine()() % 6);
    if (shape == 0) {
      v[1] = v[0];  // equal pulleys
    } else if (shape == 1) {
      v[2] = v[0] + v[1] + random.smallInt(1) * 1e-4;  // touching, within the tolerance or not
    } else if (shape == 2) {
      v[2] = v[0] - v[1];  // touching from inside
    }
    const int quality = static_cast<int>(random.engine()() % 4) == 0
                            ? static_cast<int>(random.smallInt(60))
                            : static_cast<int>(10 + random.engine()() % 41);
    cases.push_back({v[0], v[1], v[2], quality, kTypes[random.engine()() % 8]});
  }
  return cases;
}

::testing::AssertionResult SameOutline(const std::vector<PathPoint>& actual,
                                       const std::vector<PathPoint>& expected) {
  if (actual.size() != expected.size()) {
    return ::testing::AssertionFailure()
           << actual.size() << " points, expected " << expected.size();
  }
  for (std::size_t i = 0; i < actual.size(); ++i) {
    if (!mathtest::sameBitsAll(actual[i], expected[i])) {
      return ::testing::AssertionFailure() << "point " << i << " differs";
    }
  }
  return ::testing::AssertionSuccess();
}

std::vector<PathPoint> Points(const std::vector<CGLPoint*>& vertices) {
  std::vector<PathPoint> points;
  for (const CGLPoint* p : vertices) {
    points.push_back({p->X(), p->Y(), p->Z()});
  }
  return points;
}

// The glVertex3d arguments compiled into `list`.
std::vector<PathPoint> CompiledPoints(GLuint list) {
  std::vector<PathPoint> points;
  for (const glrecorder::Call& c : glrecorder::recorder().listCalls(list)) {
    if (c.name == "glVertex3d") {
      points.push_back(
          {std::get<double>(c.args[0]), std::get<double>(c.args[1]), std::get<double>(c.args[2])});
    }
  }
  return points;
}

class BeltProbe : public Probe<CGLBelt> {
 public:
  using Probe<CGLBelt>::Probe;
  using CGLBelt::m_aVertex;
  using CGLBelt::m_dEntraxe;
  using CGLBelt::m_dRadius1;
  using CGLBelt::m_dRadius2;
  using CGLBelt::m_nBType;
  using CGLBelt::m_nQuality;

  // What a fresh outline of the belt's current pulleys would be.
  std::vector<PathPoint> FreshOutline() const {
    return BuildBeltOutline(m_dRadius1, m_dRadius2, m_dEntraxe, m_nQuality, m_nBType);
  }
  void Set(const BeltCase& c) {
    m_dRadius1 = c.r1;
    m_dRadius2 = c.r2;
    SetEntraxe(c.entraxe);
    m_nQuality = c.quality;  // beyond SetQuality's range too
    SetBType(c.type);
  }
};

TEST(BeltOutlineIntoABuffer, GivesTheFreshOutlineBitsWhateverTheBufferHeld) {
  std::vector<PathPoint> buffer(7, PathPoint{1.0, 2.0, 3.0});
  int withArcs = 0;
  const std::vector<BeltCase> cases = Cases(20000);
  for (const BeltCase& c : cases) {
    const unsigned char code = lumagrid::detail::BeltTypeCode(c.type);
    BuildBeltOutline(c.r1, c.r2, c.entraxe, c.quality, code, buffer);
    ASSERT_TRUE(SameOutline(buffer, BuildBeltOutline(c.r1, c.r2, c.entraxe, c.quality, code)))
        << c.r1 << " " << c.r2 << " " << c.entraxe << " " << c.quality << " " << int(code);
    withArcs += buffer.size() > 2 ? 1 : 0;
  }
  // The cases reach the arcs often enough to mean something.
  EXPECT_GT(withArcs, static_cast<int>(cases.size() / 10));
}

class BeltRebuild : public RecordedTest {};

TEST_F(BeltRebuild, EveryRebuildHoldsAndCompilesTheFreshOutlineBits) {
  BeltProbe belt;
  std::vector<PathPoint> previous;
  for (const BeltCase& c : Cases(3000)) {
    belt.Set(c);
    const std::vector<PathPoint> expected = belt.FreshOutline();
    glrecorder::recorder().clearCalls();
    belt.DisplayListMake();
    if (expected.empty()) {
      // Nothing compiled: the array is emptied and the old list stays.
      ASSERT_TRUE(belt.m_aVertex.empty());
      ASSERT_TRUE(SameOutline(CompiledPoints(static_cast<GLuint>(belt.m_nDisplayList)), previous));
      continue;
    }
    ASSERT_TRUE(SameOutline(Points(belt.m_aVertex), expected));
    ASSERT_TRUE(SameOutline(CompiledPoints(static_cast<GLuint>(belt.m_nDisplayList)), expected));
    previous = expected;
  }
}

TEST_F(BeltRebuild, KeepsItsOwnPointsWhenTheCountStays) {
  BeltProbe belt(1.0, 0.5, 4.0);
  belt.DisplayListMake();
  const std::vector<CGLPoint*> before = belt.m_aVertex;
  belt.SetEntraxe(4.5);
  belt.DisplayListMake();
  EXPECT_EQ(belt.m_aVertex, before);
  EXPECT_TRUE(SameOutline(Points(belt.m_aVertex), belt.FreshOutline()));
}

TEST_F(BeltRebuild, HandVerticesOfEveryKindGiveWayToTheOutline) {
  int deaths = 0;
  BeltProbe belt(1.0, 0.5, 4.0);
  CGLPoint plain(9.0, 9.0, 9.0);
  belt.AddVertex(plain);
  belt.AddVertex(new CountedPoint(1.0, 2.0, 3.0, &deaths));
  belt.AddVertex(7.0, 8.0, 9.0);
  belt.AddVertex(new CountedPoint(4.0, 5.0, 6.0, &deaths));
  belt.DisplayListMake();
  EXPECT_EQ(deaths, 2);
  EXPECT_TRUE(SameOutline(Points(belt.m_aVertex), belt.FreshOutline()));
  // Then fewer points than it holds, then none.
  belt.SetBType(8);
  belt.Move(0.0);
  belt.DisplayListMake();
  EXPECT_TRUE(SameOutline(Points(belt.m_aVertex), belt.FreshOutline()));
  EXPECT_EQ(belt.m_aVertex.size(), 2u);
  belt.SetEntraxe(0.0);
  belt.DisplayListMake();
  EXPECT_TRUE(belt.m_aVertex.empty());
}

TEST_F(BeltRebuild, ANullVertexPushedByASubclassIsDropped) {
  BeltProbe belt(1.0, 0.5, 4.0);
  belt.AddVertex(1.0, 2.0, 3.0);
  belt.m_aVertex.push_back(nullptr);
  belt.AddVertex(4.0, 5.0, 6.0);
  belt.DisplayListMake();
  EXPECT_TRUE(SameOutline(Points(belt.m_aVertex), belt.FreshOutline()));
}

}  // namespace
