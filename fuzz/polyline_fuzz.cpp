// Drives a CGLPolyline with a byte-coded sequence of operations and checks
// it against a model of its points: the compiled strip and the direct draw
// hold exactly the vertices added, in order, with the same bits, and the
// rebuild mark follows every change.
//
// Input: operations, each one byte (its value modulo kOpCount picks the
// operation) followed by the operation's own bytes. The first byte's bit 0
// chooses raw doubles instead of FuzzInput::Tame() values.

#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/CGLPolyline.h>

#include "fuzz_input.h"
#include "recorded_draw.h"
#include <lumagrid/testing/GLRecorder.h>

#include <GL/gl.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

enum Op : int {
  kAddXyz,
  kAddCopy,
  kAddOwned,
  kAddNull,
  kAddArray,
  kAddNullArray,
  kInit,
  kMake,
  kDrawDirect,
  kDraw,
  kColour,
  kOpCount
};

constexpr int kMaxOps = 200;
constexpr int kMaxArray = 8;

struct Point {
  double x;
  double y;
  double z;
};

// Opens the polyline's protected state to the checks.
class PolylineProbe : public CGLPolyline {
 public:
  bool Modified() const { return m_bModified; }
  int ListName() const { return m_nDisplayList; }
  std::size_t Count() const { return m_aVertex.size(); }
};

class PolylineFuzzer {
 public:
  explicit PolylineFuzzer(FuzzInput& in) : m_in(in) {}

  void Run() {
    m_in.SetTame((m_in.Byte() & 1) == 0);
    for (int n = 0; n < kMaxOps && !m_in.Empty(); ++n) {
      m_rec.clearCalls();
      Step(m_in.Byte() % kOpCount);
      FUZZ_CHECK(m_line.Count() == m_points.size());
      FUZZ_CHECK(m_line.Modified() == m_modified);
      FUZZ_CHECK(m_rec.compilingList() == 0);
      FUZZ_CHECK(fuzzgl::BeginEndBalanced(m_rec.calls()));
      FUZZ_CHECK(m_rec.stackDepth(GL_MODELVIEW) == 1);
      FUZZ_CHECK(m_rec.errors().empty());
    }
  }

 private:
  Point ReadPoint() {
    const double x = m_in.Number();
    const double y = m_in.Number();
    const double z = m_in.Number();
    return {x, y, z};
  }

  void Added(const Point& p) {
    m_points.push_back(p);
    m_modified = true;
  }

  void Step(int op) {
    switch (op) {
      case kAddXyz: {
        const Point p = ReadPoint();
        FUZZ_CHECK(m_line.AddVertex(p.x, p.y, p.z));
        Added(p);
        break;
      }
      case kAddCopy: {
        const Point p = ReadPoint();
        CGLPoint point(p.x, p.y, p.z);
        FUZZ_CHECK(m_line.AddVertex(point));
        Added(p);
        break;
      }
      case kAddOwned: {
        const Point p = ReadPoint();
        FUZZ_CHECK(m_line.AddVertex(new CGLPoint(p.x, p.y, p.z)));
        Added(p);
        break;
      }
      case kAddNull:
        // Nothing stored, but the polyline counts it as a change.
        FUZZ_CHECK(m_line.AddVertex(static_cast<CGLPoint*>(nullptr)));
        m_modified = true;
        break;
      case kAddArray:
        AddArray();
        break;
      case kAddNullArray:
        FUZZ_CHECK(m_line.AddVertex(m_in.SignedByte(), nullptr));
        break;
      case kInit:
        FUZZ_CHECK(m_line.InitVertex());
        m_points.clear();
        m_modified = true;
        break;
      case kMake:
        Make();
        break;
      case kDrawDirect:
        DrawDirect();
        break;
      case kDraw:
        Draw();
        break;
      default:
        Colour();
        break;
    }
  }

  void AddArray() {
    // -kMaxArray .. kMaxArray: counts below 1 add nothing and change nothing.
    const int n = m_in.SignedByte() % (kMaxArray + 1);
    std::vector<double> values(3 * kMaxArray);
    for (int i = 0; i < 3 * (n > 0 ? n : 0); ++i) {
      values[static_cast<std::size_t>(i)] = m_in.Number();
    }
    FUZZ_CHECK(m_line.AddVertex(n, values.data()));
    for (int i = 0; i < n; ++i) {
      const std::size_t k = static_cast<std::size_t>(3 * i);
      Added({values[k], values[k + 1], values[k + 2]});
    }
  }

  // The list holds the normal colour and then exactly the model's strip.
  void CheckList() {
    const std::vector<glrecorder::Call> body =
        m_rec.listCalls(static_cast<GLuint>(m_line.ListName()));
    FUZZ_CHECK(!body.empty() && body.front().name == "glColor3d");
    FUZZ_CHECK(fuzzgl::StripMatches(body, m_points));
  }

  // A current polyline answers r == 1 without a call, a modified one 0; true
  // when it went on to build or draw.
  bool WentOn(long r) {
    if (!m_modified) {
      FUZZ_CHECK(r == 1);
      FUZZ_CHECK(m_rec.calls().empty());
      return false;
    }
    FUZZ_CHECK(r == 0);
    return true;
  }

  void Make() {
    if (!WentOn(m_line.DisplayListMake())) {
      return;
    }
    if (m_points.empty()) {
      // Nothing compiled; the mark stays.
      FUZZ_CHECK(m_rec.count("glNewList") == 0);
      return;
    }
    m_modified = false;
    CheckList();
  }

  void DrawDirect() {
    if (!WentOn(m_line.DrawDirect())) {
      return;
    }
    if (m_points.empty()) {
      FUZZ_CHECK(m_rec.calls().empty());
      return;
    }
    m_modified = false;
    FUZZ_CHECK(m_rec.calls().front().name == "glColor3d");
    FUZZ_CHECK(fuzzgl::StripMatches(m_rec.calls(), m_points));
  }

  void Draw() {
    const bool compiles = m_modified && !m_points.empty();
    static_cast<void>(m_line.Draw());
    if (compiles) {
      m_modified = false;
      CheckList();
    }
    FUZZ_CHECK(fuzzgl::Paired(m_rec.calls(), "glPushMatrix", "glPopMatrix", 1));
  }

  void Colour() {
    const double r = m_in.Tame() / 512.0;
    const double g = m_in.Tame() / 512.0;
    const double b = m_in.Tame() / 512.0;
    const CGLColor before = m_line.ColorGet();
    static_cast<void>(m_line.ColorSet(r, g, b, 1.0));
    const CGLColor& after = m_line.ColorGet();
    // A new colour is compiled into the list: the polyline must rebuild.
    if (before.Red() != after.Red() || before.Green() != after.Green() ||
        before.Blue() != after.Blue() || before.Alpha() != after.Alpha()) {
      m_modified = true;
    }
  }

  FuzzInput& m_in;
  glrecorder::Recorder& m_rec = glrecorder::recorder();
  PolylineProbe m_line;
  std::vector<Point> m_points;
  bool m_modified = true;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzgl::RunOnFreshRecorder<PolylineFuzzer>(data, size);
  return 0;
}
