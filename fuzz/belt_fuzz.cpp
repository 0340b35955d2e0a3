// Builds belt outlines from fuzzed pulleys and checks what holds for every
// one: the point count's bound, finite points for finite pulleys, tangent
// ends on their circles, and that a CGLBelt compiles and draws exactly the
// builder's outline.
//
// Input: a sequence of cases, each a mode byte (bit 0: raw doubles instead
// of FuzzInput::Tame() values), radius 1, radius 2, entraxe, a quality byte
// and a type byte.

#include <lumagrid/CGLBelt.h>

#include "fuzz_input.h"
#include "recorded_draw.h"
#include "shapes/path/belt_outline.h"
#include <lumagrid/testing/GLRecorder.h>

#include <GL/gl.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

using lumagrid::detail::BuildBeltOutline;
using lumagrid::detail::PathPoint;

constexpr int kMaxCases = 32;
// Beyond this, sums and products of the pulleys' sizes may overflow.
constexpr double kNoOverflow = 1e150;

// Opens the belt's protected state to the checks.
class BeltProbe : public CGLBelt {
 public:
  using CGLBelt::CGLBelt;
  bool Modified() const { return m_bModified; }
  int ListName() const { return m_nDisplayList; }
};

bool Finite(const PathPoint& p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

// |p - (cx, 0, 0)| equals |radius| within tol.
bool OnCircle(const PathPoint& p, double cx, double radius, double tol) {
  const double dist = std::hypot(p.x - cx, p.y);
  return std::fabs(dist - std::fabs(radius)) <= tol && p.z == 0.0;
}

void CheckOutline(double r1, double r2, double entraxe, int quality, unsigned char code) {
  const std::vector<PathPoint> outline = BuildBeltOutline(r1, r2, entraxe, quality, code);
  const bool full = code >= lumagrid::detail::kFullBelt;
  if (full) {
    // Two tangent ends, at most 1.5 turns of arc on A and one on B.
    FUZZ_CHECK(outline.size() <= static_cast<std::size_t>(2 + 2 * (quality * 1.5 + 1)));
  } else {
    FUZZ_CHECK(outline.empty() || outline.size() == 2);
  }
  FUZZ_CHECK(outline.empty() || outline.size() >= 2);

  const bool tameInputs = std::fabs(r1) <= kNoOverflow && std::fabs(r2) <= kNoOverflow &&
                          std::fabs(entraxe) <= kNoOverflow;
  if (!tameInputs) {
    return;  // NaN and infinities included: no property but no crash
  }
  // A crossed tangent of radii summing below zero takes acos of less than
  // -1: NaN points, kept as the tangent rules give them.
  const bool crossed = code == 2 || code == 4;
  if (!(crossed && r1 + r2 < 0.0)) {
    for (const PathPoint& p : outline) {
      FUZZ_CHECK(Finite(p));
    }
  }

  const double big = std::fmax(r1, r2);
  const double small = std::fmin(r1, r2);
  const double d = std::fabs(entraxe);
  // Real pulleys neither overlapping nor touching, with room to spare.
  const bool separate = small >= 0.0 && d - small > big + 0.001;
  const double tol = 1e-9 * (std::fabs(r1) + std::fabs(r2) + d) + 1e-290;
  if (outline.size() >= 2 && (full || separate)) {
    FUZZ_CHECK(OnCircle(outline[0], entraxe, r2, tol));
    FUZZ_CHECK(OnCircle(outline[1], 0.0, r1, tol));
  }
  if (full) {
    // The arcs lie on their pulleys too.
    for (const PathPoint& p : outline) {
      FUZZ_CHECK(OnCircle(p, 0.0, r1, tol) || OnCircle(p, entraxe, r2, tol));
    }
  }
}

// A belt set up the host's way draws exactly the builder's outline.
void CheckBelt(double r1, double r2, double entraxe, unsigned int quality, unsigned char type) {
  glrecorder::Recorder& rec = glrecorder::recorder();
  rec.reset();
  {
    BeltProbe belt(r1, r2, entraxe);
    belt.SetQuality(quality);
    belt.SetBType(type);
    unsigned int unused = 0;
    const int effective = belt.GetQuality(unused);
    FUZZ_CHECK(effective >= 10 && effective <= 50);
    FUZZ_CHECK(effective == (quality >= 10 && quality <= 50 ? static_cast<int>(quality) : 20));
    const std::vector<PathPoint> expected =
        BuildBeltOutline(r1, r2, entraxe, effective, lumagrid::detail::BeltTypeCode(type));

    FUZZ_CHECK(belt.DisplayListMake() == 0);
    FUZZ_CHECK(belt.Modified() == expected.empty());
    FUZZ_CHECK(rec.compilingList() == 0);
    if (!expected.empty()) {
      const std::vector<glrecorder::Call> body =
          rec.listCalls(static_cast<GLuint>(belt.ListName()));
      FUZZ_CHECK(fuzzgl::StripMatches(body, expected));
    }

    const int before = rec.stackDepth(GL_MODELVIEW);
    rec.clearCalls();
    FUZZ_CHECK(belt.DrawDirect() == 0);
    FUZZ_CHECK(fuzzgl::BeginEndBalanced(rec.calls()));
    // An empty belt leaves the matrix it pushed.
    FUZZ_CHECK(rec.stackDepth(GL_MODELVIEW) == before + (expected.empty() ? 1 : 0));
    if (!expected.empty()) {
      FUZZ_CHECK(fuzzgl::StripMatches(rec.calls(), expected));
    }
    FUZZ_CHECK(rec.errors().empty());
  }
  FUZZ_CHECK(rec.listNames().empty());
  rec.reset();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  for (int n = 0; n < kMaxCases && !in.Empty(); ++n) {
    in.SetTame((in.Byte() & 1) == 0);
    const double r1 = in.Number();
    const double r2 = in.Number();
    const double entraxe = in.Number();
    const std::uint8_t quality = in.Byte();
    const std::uint8_t type = in.Byte();
    CheckOutline(r1, r2, entraxe, quality, type);
    CheckBelt(r1, r2, entraxe, quality, type);
  }
  return 0;
}
