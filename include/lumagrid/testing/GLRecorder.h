// A recording test double for OpenGL 1.1, GLU and GLE: draw code runs without a GPU, a display
// or a context, and a test asserts what it called.
//
//   find_package(Lumagrid REQUIRED COMPONENTS glrecorder)
//   target_link_libraries(my_test PRIVATE my_drawing_code Lumagrid::lumagrid
//                         Lumagrid::glrecorder GTest::gmock_main)
//
// Lumagrid::glrecorder goes into the program whole and defines, with C linkage, every entry point
// Lumagrid calls and the ones a host commonly calls around a draw; those definitions win over
// the libGL, libGLU and libgle that Lumagrid::lumagrid brings along. Each call is recorded in
// order with its arguments, and what a caller reads back is emulated: display-list names and
// contents, glIsList, the three matrix stacks and their depths, glGet* of the state the double
// tracks, GL errors, GLE's join style and number of sides. A call to an entry point the double
// lacks reaches the real library instead: unrecordedEntryPoints() lists them.
//
// The whole reference (entry points, log format, emulated state, queries) is
// share/doc/lumagrid/testing-kit.md in the install tree.
//
//   glrecorder::recorder().reset();                  // before constructing the objects under test
//   drawMyScene();
//   EXPECT_EQ(glrecorder::recorder().count("glCallList"), 2u);
//   EXPECT_EQ(glrecorder::recorder().stackDepth(GL_MODELVIEW), 1);
//
// One recorder per process; not thread-safe (GL code runs on one thread).
#pragma once

#include <GL/gl.h>
#include <GL/glu.h>

#include <array>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace glrecorder {

// ------------------------------------------------------------------ arguments

// A GLenum, printed with its symbolic name (GL_COMPILE, GLU_OUTSIDE...).
struct Enum {
  GLenum value;
};

// A GLU quadric handle, printed as the name the recorder gave it: quad1, quad2... in order of
// creation since the last reset(); old-quadN for a handle created before that reset; quad? for a
// pointer that gluNewQuadric never returned.
struct Quadric {
  const GLUquadric* handle;
  std::string name;
};

// A null pointer argument, printed as NULL.
struct Null {};

// Text that is printed as it is.
struct Verbatim {
  std::string text;
};

// An array argument (matrix, material colour, point list), printed as [a, b, ...], or as
// [[a, b, c], [d, e, f]] when width is the size of each group.
template <class T>
struct Array {
  std::vector<T> values;
  int width = 0;
};

// Integers of every width are held as long long: the log shows no difference between them.
using Arg = std::variant<long long, double, float, Enum, Quadric, Null, Verbatim, Array<double>,
                         Array<float>>;

// Formats one argument exactly as the log does. Doubles and floats are written in the shortest
// form that reads back to the same value (std::to_chars), so that equal text means equal bits.
std::string format(const Arg& arg);

// Symbolic name of a GL/GLU enum, or its value in hex when the recorder does not know it.
std::string enumName(GLenum value);

// Name of a GL error code (GL_NO_ERROR, GL_STACK_UNDERFLOW...).
std::string errorName(GLenum error);

// ------------------------------------------------------------------ recorded calls

// GLE's drawing settings: they shape every GLE sweep issued while they are in force.
struct GleSettings {
  int joinStyle = 0;
  int numSides = 0;
};

struct Call {
  std::string name;
  std::vector<Arg> args;
  // What the entry point returned (glGenLists, glIsList, gluNewQuadric, glGetError, the GLE
  // getters) or wrote through its output pointer (glGetDoublev, glGetIntegerv). Not part of str().
  std::optional<Arg> result;
  // Name of the display list being compiled when the call was issued; 0 when none was.
  // glNewList and glEndList themselves carry 0.
  GLuint list = 0;
  // The call takes effect at once even while a list is being compiled, and glCallList does not
  // replay it: GL queries and list management, GLU quadric state, GLE settings.
  bool immediate = false;
  // For the GLE sweeps (gleToroid, gleHelicoid, gleSpiral, glePolyCylinder, gleExtrusion): the
  // settings in force when the call was issued. A list holds the geometry they produced, so a
  // replayed sweep keeps the settings of its compile. Empty for every other call; not in str().
  std::optional<GleSettings> gle;

  bool inList() const { return list != 0; }
  // "name(arg, arg, ...)", as in the log.
  std::string str() const;
  // str() followed by " -> result" when there is a result.
  std::string strWithResult() const;
};

// Calls compare by their text, so two calls are equal exactly when their logs are.
bool operator==(const Call& a, const Call& b);
bool operator!=(const Call& a, const Call& b);
// Lets gtest print calls readably.
std::ostream& operator<<(std::ostream& os, const Call& call);

// str() of each call.
std::vector<std::string> lines(const std::vector<Call>& calls);

// A log line with GLE settings appended: "gleToroid(...) [join=530 sides=20]".
std::string withGle(std::string_view line, int joinStyle, int numSides);
// The call's line with the GLE settings it was issued under (withGle); str() for a call that
// carries none.
std::string withGleSettings(const Call& call);
// withGleSettings() of each GLE sweep among calls, in order; other calls are left out. So
//   EXPECT_LINES({glrecorder::withGle(line("gleToroid", ...), 530, 20)},
//                glrecorder::gleLines(recorder().listCalls(2)));
// pins what a later list inherited, in one line.
std::vector<std::string> gleLines(const std::vector<Call>& calls);

// ------------------------------------------------------------------ expected lines

// Conversions used by line(). Anything else can be passed as an Arg.
inline Arg toArg(const Arg& a) {
  return a;
}
inline Arg toArg(double v) {
  return v;
}
inline Arg toArg(float v) {
  return v;
}
inline Arg toArg(Enum v) {
  return v;
}
inline Arg toArg(Null v) {
  return v;
}
inline Arg toArg(std::nullptr_t) {
  return Null{};
}
inline Arg toArg(const Quadric& v) {
  return v;
}
inline Arg toArg(const Verbatim& v) {
  return v;
}
inline Arg toArg(const char* text) {
  return Verbatim{text};
}
inline Arg toArg(std::string_view text) {
  return Verbatim{std::string(text)};
}
inline Arg toArg(const std::string& text) {
  return Verbatim{text};
}
inline Arg toArg(const Array<double>& v) {
  return v;
}
inline Arg toArg(const Array<float>& v) {
  return v;
}
inline Arg toArg(const std::vector<double>& v) {
  return Array<double>{v};
}
inline Arg toArg(const std::vector<float>& v) {
  return Array<float>{v};
}
template <std::size_t N>
Arg toArg(const std::array<double, N>& v) {
  return Array<double>{{v.begin(), v.end()}};
}
template <std::size_t N>
Arg toArg(const std::array<float, N>& v) {
  return Array<float>{{v.begin(), v.end()}};
}
template <class T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
Arg toArg(T v) {
  return static_cast<long long>(v);
}
// The handle's name as the recorder knows it now (see Quadric).
Arg toArg(const GLUquadric* handle);

// Shorthands for building arguments.
inline Enum en(GLenum value) {
  return Enum{value};
}
Array<double> doubles(const double* values, std::size_t count, int width = 0);
Array<float> floats(const float* values, std::size_t count, int width = 0);
// A point list as GLE receives it: [[x, y, z], ...].
Array<double> points3(const std::vector<std::array<double, 3>>& points);

// Formats a call from its parts.
std::string formatCall(std::string_view name, const std::vector<Arg>& args);

// One expected log line built from computed values, formatted exactly like the log:
//   glrecorder::line("gluCylinder", quad, 0.2 * 0.4, 0.2 * 0.4, 0.8, 128, 8)
//   glrecorder::line("glNewList", 1, glrecorder::en(GL_COMPILE))
// Pass floats for float parameters (glVertex3f, glMaterialfv) and doubles for double ones.
template <class... A>
std::string line(std::string_view name, const A&... args) {
  return formatCall(name, std::vector<Arg>{toArg(args)...});
}

// A readable line diff of expected against actual: common lines start with "  ", lines only in
// expected with "- ", lines only in actual with "+ "; long runs of common lines are elided.
// Empty when the two are equal.
std::string diff(const std::vector<std::string>& expected, const std::vector<std::string>& actual);

// ------------------------------------------------------------------ emulated state

using Matrix = std::array<double, 16>;  // column-major, as glGetDoublev returns it

// One glBegin/glEnd pair as executed (directly or from a list).
struct Primitive {
  GLenum mode = 0;
  std::vector<std::array<double, 3>> vertices;     // as given to glVertex*
  std::vector<std::array<double, 3>> eyeVertices;  // multiplied by the modelview matrix
};

// What glGenLists does.
enum class GenLists {
  Normal,         // sequential names from 1, each an empty list that glIsList accepts
  ReturnZero,     // fails as GL does: returns 0
  ReturnUnknown,  // returns a fresh name that glIsList rejects
};

// For test listings and failure messages.
void PrintTo(GenLists mode, std::ostream* os);

// The test-facing view of the double. There is one, shared by all entry points.
class Recorder {
 public:
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  // Back to a fresh context: no calls, no lists (names restart at 1), identity matrices at depth
  // 1 in GL_MODELVIEW mode, no error, no quadrics (names restart at quad1), GLE's defaults, all
  // switches off. Reset before constructing the objects under test.
  void reset();
  // Forgets the recorded and executed calls and the primitives, keeps all state.
  void clearCalls();

  // Every call, in order of issue.
  const std::vector<Call>& calls() const;
  std::vector<std::string> log() const;
  // Calls issued while a list was being compiled / while none was.
  std::vector<Call> compiledCalls() const;
  std::vector<Call> directCalls() const;
  std::vector<std::string> compiledLog() const;
  std::vector<std::string> directLog() const;
  // Calls of one entry point.
  std::vector<Call> callsNamed(std::string_view name) const;
  std::size_t count(std::string_view name) const;
  // Calls in the order they took effect on the emulated state: direct calls, and the contents of
  // every list that glCallList replayed, expanded in place (after the glCallList itself).
  const std::vector<Call>& executedCalls() const;
  std::vector<std::string> executedLog() const;

  // Display lists. A list's contents are the calls recorded between its glNewList and glEndList.
  bool listExists(GLuint name) const;
  std::vector<GLuint> listNames() const;
  std::vector<Call> listCalls(GLuint name) const;
  std::vector<std::string> listLog(GLuint name) const;
  // The list being compiled, 0 when none is.
  GLuint compilingList() const;
  void setGenLists(GenLists mode);
  // Drops every list and restarts names at 1, as a recreated context would.
  void forgetAllLists();
  void forgetList(GLuint name);

  // Matrix stacks. mode is GL_MODELVIEW, GL_PROJECTION or GL_TEXTURE.
  GLenum matrixMode() const;
  Matrix matrix(GLenum mode) const;
  int stackDepth(GLenum mode) const;
  int maxStackDepth(GLenum mode) const;
  void setMaxStackDepth(GLenum mode, int depth);
  // glPopMatrix at depth 1 / glPushMatrix at the maximum depth, per stack or, with mode 0, in all.
  int underflows(GLenum mode = 0) const;
  int overflows(GLenum mode = 0) const;

  // Errors: the flag that glGetError would return next (without clearing it), and every error
  // raised since the last reset, in order.
  GLenum pendingError() const;
  const std::vector<GLenum>& errors() const;

  // Other GL state, as executed.
  bool isEnabled(GLenum cap) const;
  std::array<double, 4> currentColor() const;
  std::array<float, 3> currentNormal() const;
  std::array<float, 4> material(GLenum face, GLenum pname) const;  // GL_FRONT or GL_BACK
  float lineWidth() const;
  // What glGetDoublev(pname) would write, without recording a call or raising an error: every
  // pname listed for glGet* (matrices, depths, viewport, clear values, blend factors, depth
  // mask...). Empty for a pname the double does not know.
  std::vector<double> get(GLenum pname) const;
  // A light's parameter as glLightfv set it (GL's default otherwise). GL_POSITION and
  // GL_SPOT_DIRECTION are in eye coordinates: transformed by the modelview matrix in force when
  // they were set.
  std::array<float, 4> light(GLenum light, GLenum pname) const;
  // glPolygonMode of GL_FRONT or GL_BACK (GL_FILL until set).
  GLenum polygonMode(GLenum face) const;
  const std::vector<Primitive>& primitives() const;

  // GLU quadrics.
  std::string quadricName(const GLUquadric* handle) const;
  int quadricsCreated() const;
  int liveQuadrics() const;
  bool isLiveQuadric(const GLUquadric* handle) const;
  // gluDeleteQuadric of a handle already deleted.
  int doubleDeletes() const;
  // Use of a deleted or unknown handle by any GLU call other than gluDeleteQuadric.
  int deadQuadricUses() const;
  GLenum quadricOrientation(const GLUquadric* handle) const;
  GLenum quadricDrawStyle(const GLUquadric* handle) const;
  GLenum quadricNormals(const GLUquadric* handle) const;
  // Makes gluNewQuadric return NULL, as GLU does when out of memory.
  void setNewQuadricFails(bool fails);

  // GLE settings (GLE's defaults: join style 274, that is TUBE_NORM_FACET | TUBE_JN_CAP |
  // TUBE_JN_ANGLE, and 20 sides).
  int gleJoinStyle() const;
  int gleNumSides() const;

 private:
  friend Recorder& recorder();
  Recorder() = default;
};

// The recorder.
Recorder& recorder();

// GL, GLU and GLE entry points the program imports from the real libraries: calls the double
// does not take, which therefore go unrecorded (and, with no context current, do nothing).
// Sorted; empty when the double takes every call the program makes. A host's test suite checks
// it once: EXPECT_TRUE(glrecorder::unrecordedEntryPoints().empty()).
std::vector<std::string> unrecordedEntryPoints();

}  // namespace glrecorder
