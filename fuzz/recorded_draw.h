#ifndef LUMAGRID_FUZZ_RECORDED_DRAW_H
#define LUMAGRID_FUZZ_RECORDED_DRAW_H

// Checks over a call log of the recording GL double, shared by the shape
// targets.

#include "fuzz_input.h"
#include <lumagrid/testing/GLRecorder.h>

#include <GL/gl.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <variant>
#include <vector>

namespace fuzzgl {

// Same bits: NaNs and signed zeros must come through as they went in.
inline bool SameBits(double a, double b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

inline bool IsBeginOf(const glrecorder::Call& call, GLenum mode) {
  if (call.name != "glBegin" || call.args.size() != 1) {
    return false;
  }
  if (const auto* e = std::get_if<glrecorder::Enum>(&call.args[0])) {
    return e->value == mode;
  }
  if (const auto* i = std::get_if<long long>(&call.args[0])) {
    return *i == static_cast<long long>(mode);
  }
  return false;
}

// calls hold exactly one line strip: glBegin(GL_LINE_STRIP), a glVertex3d
// per point of `points` in order and with the same bits, glEnd. Calls other
// than glBegin, glVertex* and glEnd around it are ignored.
template <class Point>
bool StripMatches(const std::vector<glrecorder::Call>& calls, const std::vector<Point>& points) {
  std::size_t begins = 0;
  std::size_t next = 0;
  bool inside = false;
  for (const glrecorder::Call& call : calls) {
    if (call.name == "glBegin") {
      if (!IsBeginOf(call, GL_LINE_STRIP) || inside || begins != 0) {
        return false;
      }
      inside = true;
      ++begins;
    } else if (call.name == "glEnd") {
      if (!inside) {
        return false;
      }
      inside = false;
    } else if (call.name.compare(0, 8, "glVertex") == 0) {
      if (!inside || call.name != "glVertex3d" || next >= points.size() || call.args.size() != 3) {
        return false;
      }
      const double* x = std::get_if<double>(&call.args[0]);
      const double* y = std::get_if<double>(&call.args[1]);
      const double* z = std::get_if<double>(&call.args[2]);
      const Point& p = points[next++];
      if (x == nullptr || y == nullptr || z == nullptr || !SameBits(*x, p.x) ||
          !SameBits(*y, p.y) || !SameBits(*z, p.z)) {
        return false;
      }
    }
  }
  return begins == 1 && !inside && next == points.size();
}

// Every `open` is closed by a later `close`, nesting at most `maxDepth`
// deep, and none is left open.
inline bool Paired(const std::vector<glrecorder::Call>& calls, std::string_view open,
                   std::string_view close, int maxDepth) {
  int depth = 0;
  for (const glrecorder::Call& call : calls) {
    if (call.name == open) {
      if (++depth > maxDepth) {
        return false;
      }
    } else if (call.name == close) {
      if (--depth < 0) {
        return false;
      }
    }
  }
  return depth == 0;
}

// glBegin/glEnd alternate: GL forbids nesting them.
inline bool BeginEndBalanced(const std::vector<glrecorder::Call>& calls) {
  return Paired(calls, "glBegin", "glEnd", 1);
}

// Runs one input through Fuzzer(in).Run() on a fresh recorder: every list
// the shapes made must be gone with them.
template <class Fuzzer>
void RunOnFreshRecorder(const std::uint8_t* data, std::size_t size) {
  glrecorder::recorder().reset();
  {
    FuzzInput in(data, size);
    Fuzzer fuzzer(in);
    fuzzer.Run();
  }
  FUZZ_CHECK(glrecorder::recorder().listNames().empty());
  glrecorder::recorder().reset();
}

}  // namespace fuzzgl

#endif
