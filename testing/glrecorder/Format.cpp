// Text of recorded calls, expected lines and diffs.
#include <lumagrid/testing/GLRecorder.h>

#include "glrecorder/Emulator.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <ostream>
#include <unordered_map>

namespace glrecorder {
namespace {

template <class T>
void appendNumber(std::string& out, T value) {
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, result.ptr);
}

template <class T>
void appendArray(std::string& out, const Array<T>& array) {
  const std::size_t width = array.width > 0 ? static_cast<std::size_t>(array.width) : 0;
  out += '[';
  for (std::size_t i = 0; i < array.values.size(); ++i) {
    if (i > 0) {
      out += ", ";
    }
    if (width > 0 && i % width == 0) {
      out += '[';
    }
    appendNumber(out, array.values[i]);
    if (width > 0 && (i % width == width - 1 || i + 1 == array.values.size())) {
      out += ']';
    }
  }
  out += ']';
}

void append(std::string& out, const Arg& arg) {
  struct Visitor {
    std::string& out;
    void operator()(long long v) const { appendNumber(out, v); }
    void operator()(double v) const { appendNumber(out, v); }
    void operator()(float v) const { appendNumber(out, v); }
    void operator()(const Enum& v) const { out += enumName(v.value); }
    void operator()(const Quadric& v) const { out += v.name; }
    void operator()(const Null&) const { out += "NULL"; }
    void operator()(const Verbatim& v) const { out += v.text; }
    void operator()(const Array<double>& v) const { appendArray(out, v); }
    void operator()(const Array<float>& v) const { appendArray(out, v); }
  };
  std::visit(Visitor{out}, arg);
}

const std::unordered_map<GLenum, const char*>& enumNames() {
#define GLREC_NAME(e) \
  { e, #e }
  static const std::unordered_map<GLenum, const char*> names = {
      // Primitive modes: the only enums below 0x100 that the recorder prints.
      GLREC_NAME(GL_POINTS),
      GLREC_NAME(GL_LINES),
      GLREC_NAME(GL_LINE_LOOP),
      GLREC_NAME(GL_LINE_STRIP),
      GLREC_NAME(GL_TRIANGLES),
      GLREC_NAME(GL_TRIANGLE_STRIP),
      GLREC_NAME(GL_TRIANGLE_FAN),
      GLREC_NAME(GL_QUADS),
      GLREC_NAME(GL_QUAD_STRIP),
      GLREC_NAME(GL_POLYGON),
      // Display lists.
      GLREC_NAME(GL_COMPILE),
      GLREC_NAME(GL_COMPILE_AND_EXECUTE),
      GLREC_NAME(GL_LIST_INDEX),
      GLREC_NAME(GL_LIST_MODE),
      GLREC_NAME(GL_MAX_LIST_NESTING),
      // Matrices.
      GLREC_NAME(GL_MODELVIEW),
      GLREC_NAME(GL_PROJECTION),
      GLREC_NAME(GL_TEXTURE),
      GLREC_NAME(GL_MATRIX_MODE),
      GLREC_NAME(GL_MODELVIEW_MATRIX),
      GLREC_NAME(GL_PROJECTION_MATRIX),
      GLREC_NAME(GL_TEXTURE_MATRIX),
      GLREC_NAME(GL_MODELVIEW_STACK_DEPTH),
      GLREC_NAME(GL_PROJECTION_STACK_DEPTH),
      GLREC_NAME(GL_TEXTURE_STACK_DEPTH),
      GLREC_NAME(GL_MAX_MODELVIEW_STACK_DEPTH),
      GLREC_NAME(GL_MAX_PROJECTION_STACK_DEPTH),
      GLREC_NAME(GL_MAX_TEXTURE_STACK_DEPTH),
      // Current values.
      GLREC_NAME(GL_CURRENT_COLOR),
      GLREC_NAME(GL_CURRENT_NORMAL),
      GLREC_NAME(GL_LINE_WIDTH),
      GLREC_NAME(GL_POLYGON_MODE),
      // Polygon modes.
      GLREC_NAME(GL_POINT),
      GLREC_NAME(GL_LINE),
      GLREC_NAME(GL_FILL),
      // Materials.
      GLREC_NAME(GL_FRONT),
      GLREC_NAME(GL_BACK),
      GLREC_NAME(GL_FRONT_AND_BACK),
      GLREC_NAME(GL_AMBIENT),
      GLREC_NAME(GL_DIFFUSE),
      GLREC_NAME(GL_SPECULAR),
      GLREC_NAME(GL_EMISSION),
      GLREC_NAME(GL_SHININESS),
      GLREC_NAME(GL_AMBIENT_AND_DIFFUSE),
      GLREC_NAME(GL_COLOR_INDEXES),
      // Capabilities.
      GLREC_NAME(GL_LIGHTING),
      GLREC_NAME(GL_LIGHT0),
      GLREC_NAME(GL_LIGHT1),
      GLREC_NAME(GL_LIGHT2),
      GLREC_NAME(GL_LIGHT3),
      GLREC_NAME(GL_LIGHT4),
      GLREC_NAME(GL_LIGHT5),
      GLREC_NAME(GL_LIGHT6),
      GLREC_NAME(GL_LIGHT7),
      GLREC_NAME(GL_DEPTH_TEST),
      GLREC_NAME(GL_NORMALIZE),
      GLREC_NAME(GL_RESCALE_NORMAL),
      GLREC_NAME(GL_BLEND),
      GLREC_NAME(GL_CULL_FACE),
      GLREC_NAME(GL_COLOR_MATERIAL),
      GLREC_NAME(GL_LINE_SMOOTH),
      GLREC_NAME(GL_LINE_STIPPLE),
      GLREC_NAME(GL_POLYGON_SMOOTH),
      GLREC_NAME(GL_POINT_SMOOTH),
      GLREC_NAME(GL_POLYGON_OFFSET_FILL),
      GLREC_NAME(GL_POLYGON_OFFSET_LINE),
      GLREC_NAME(GL_ALPHA_TEST),
      GLREC_NAME(GL_FOG),
      GLREC_NAME(GL_SCISSOR_TEST),
      GLREC_NAME(GL_STENCIL_TEST),
      GLREC_NAME(GL_DITHER),
      GLREC_NAME(GL_TEXTURE_2D),
      GLREC_NAME(GL_AUTO_NORMAL),
      GLREC_NAME(GL_MULTISAMPLE),
      // Errors.
      GLREC_NAME(GL_INVALID_ENUM),
      GLREC_NAME(GL_INVALID_VALUE),
      GLREC_NAME(GL_INVALID_OPERATION),
      GLREC_NAME(GL_STACK_OVERFLOW),
      GLREC_NAME(GL_STACK_UNDERFLOW),
      GLREC_NAME(GL_OUT_OF_MEMORY),
      // GLU quadric settings.
      GLREC_NAME(GLU_OUTSIDE),
      GLREC_NAME(GLU_INSIDE),
      GLREC_NAME(GLU_FILL),
      GLREC_NAME(GLU_LINE),
      GLREC_NAME(GLU_POINT),
      GLREC_NAME(GLU_SILHOUETTE),
      GLREC_NAME(GLU_SMOOTH),
      GLREC_NAME(GLU_FLAT),
      GLREC_NAME(GLU_NONE),
  };
#undef GLREC_NAME
  return names;
}

// Longest common subsequence of two line ranges, as pairs of indices.
std::vector<std::pair<std::size_t, std::size_t>> commonLines(const std::vector<std::string>& a,
                                                             std::size_t a0, std::size_t a1,
                                                             const std::vector<std::string>& b,
                                                             std::size_t b0, std::size_t b1) {
  std::vector<std::pair<std::size_t, std::size_t>> pairs;
  const std::size_t n = a1 - a0;
  const std::size_t m = b1 - b0;
  // Past a few million cells the table costs more than the diff is worth: show the whole middle
  // as removed and added.
  if (n == 0 || m == 0 || n * m > 4'000'000) {
    return pairs;
  }
  std::vector<unsigned> table((n + 1) * (m + 1), 0);
  auto at = [&](std::size_t i, std::size_t j) -> unsigned& { return table[i * (m + 1) + j]; };
  for (std::size_t i = n; i-- > 0;) {
    for (std::size_t j = m; j-- > 0;) {
      at(i, j) =
          a[a0 + i] == b[b0 + j] ? at(i + 1, j + 1) + 1 : std::max(at(i + 1, j), at(i, j + 1));
    }
  }
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < n && j < m) {
    if (a[a0 + i] == b[b0 + j]) {
      pairs.emplace_back(a0 + i, b0 + j);
      ++i;
      ++j;
    } else if (at(i + 1, j) >= at(i, j + 1)) {
      ++i;
    } else {
      ++j;
    }
  }
  return pairs;
}

}  // namespace

std::string format(const Arg& arg) {
  std::string out;
  append(out, arg);
  return out;
}

std::string enumName(GLenum value) {
  const auto& names = enumNames();
  const auto it = names.find(value);
  if (it != names.end()) {
    return it->second;
  }
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "0x%04X", value);
  return buffer;
}

std::string errorName(GLenum error) {
  return error == GL_NO_ERROR ? std::string("GL_NO_ERROR") : enumName(error);
}

std::string formatCall(std::string_view name, const std::vector<Arg>& args) {
  std::string out(name);
  out += '(';
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (i > 0) {
      out += ", ";
    }
    append(out, args[i]);
  }
  out += ')';
  return out;
}

std::string Call::str() const {
  return formatCall(name, args);
}

std::string Call::strWithResult() const {
  std::string out = str();
  if (result) {
    out += " -> ";
    append(out, *result);
  }
  return out;
}

bool operator==(const Call& a, const Call& b) {
  return a.str() == b.str();
}
bool operator!=(const Call& a, const Call& b) {
  return !(a == b);
}

std::ostream& operator<<(std::ostream& os, const Call& call) {
  return os << call.str();
}

std::vector<std::string> lines(const std::vector<Call>& calls) {
  std::vector<std::string> out;
  out.reserve(calls.size());
  for (const Call& call : calls) {
    out.push_back(call.str());
  }
  return out;
}

std::string withGle(std::string_view line, int joinStyle, int numSides) {
  std::string out(line);
  out += " [join=";
  appendNumber(out, joinStyle);
  out += " sides=";
  appendNumber(out, numSides);
  out += ']';
  return out;
}

std::string withGleSettings(const Call& call) {
  return call.gle ? withGle(call.str(), call.gle->joinStyle, call.gle->numSides) : call.str();
}

std::vector<std::string> gleLines(const std::vector<Call>& calls) {
  std::vector<std::string> out;
  for (const Call& call : calls) {
    if (call.gle) {
      out.push_back(withGleSettings(call));
    }
  }
  return out;
}

Arg toArg(const GLUquadric* handle) {
  return detail::emulator().quadricArg(handle);
}

Array<double> doubles(const double* values, std::size_t count, int width) {
  return Array<double>{std::vector<double>(values, values + count), width};
}

Array<float> floats(const float* values, std::size_t count, int width) {
  return Array<float>{std::vector<float>(values, values + count), width};
}

Array<double> points3(const std::vector<std::array<double, 3>>& points) {
  Array<double> out{{}, 3};
  for (const auto& p : points) {
    out.values.insert(out.values.end(), p.begin(), p.end());
  }
  return out;
}

std::string diff(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
  if (expected == actual) {
    return {};
  }
  // Trim the common head and tail, then align the middle.
  std::size_t head = 0;
  while (head < expected.size() && head < actual.size() && expected[head] == actual[head]) {
    ++head;
  }
  std::size_t tail = 0;
  while (tail < expected.size() - head && tail < actual.size() - head &&
         expected[expected.size() - 1 - tail] == actual[actual.size() - 1 - tail]) {
    ++tail;
  }
  std::vector<std::pair<std::size_t, std::size_t>> pairs;
  for (std::size_t k = 0; k < head; ++k) {
    pairs.emplace_back(k, k);
  }
  const auto middle =
      commonLines(expected, head, expected.size() - tail, actual, head, actual.size() - tail);
  pairs.insert(pairs.end(), middle.begin(), middle.end());
  for (std::size_t k = tail; k > 0; --k) {
    pairs.emplace_back(expected.size() - k, actual.size() - k);
  }

  // Each entry: ' ', '-' or '+', and the line.
  std::vector<std::pair<char, const std::string*>> script;
  std::size_t i = 0;
  std::size_t j = 0;
  auto flush = [&](std::size_t toI, std::size_t toJ) {
    for (; i < toI; ++i) {
      script.emplace_back('-', &expected[i]);
    }
    for (; j < toJ; ++j) {
      script.emplace_back('+', &actual[j]);
    }
  };
  for (const auto& [pi, pj] : pairs) {
    flush(pi, pj);
    script.emplace_back(' ', &expected[i]);
    ++i;
    ++j;
  }
  flush(expected.size(), actual.size());

  // Print changes with three lines of context on each side.
  constexpr std::size_t kContext = 3;
  std::vector<bool> shown(script.size(), false);
  for (std::size_t k = 0; k < script.size(); ++k) {
    if (script[k].first != ' ') {
      const std::size_t from = k > kContext ? k - kContext : 0;
      const std::size_t to = std::min(script.size(), k + kContext + 1);
      std::fill(shown.begin() + static_cast<std::ptrdiff_t>(from),
                shown.begin() + static_cast<std::ptrdiff_t>(to), true);
    }
  }
  std::string out = "--- expected\n+++ actual\n";
  std::size_t lineE = 0;
  std::size_t lineA = 0;
  bool skipping = false;
  for (std::size_t k = 0; k < script.size(); ++k) {
    if (!shown[k]) {
      skipping = true;
    } else {
      if (skipping || k == 0) {
        out += "@@ expected line " + std::to_string(lineE + 1) + ", actual line " +
               std::to_string(lineA + 1) + " @@\n";
      }
      skipping = false;
      out += script[k].first;
      out += ' ';
      out += *script[k].second;
      out += '\n';
    }
    if (script[k].first != '+') {
      ++lineE;
    }
    if (script[k].first != '-') {
      ++lineA;
    }
  }
  return out;
}

}  // namespace glrecorder
