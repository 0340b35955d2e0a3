/// @file
/// A recording test double for OpenGL 1.1, GLU and GLE: draw code runs without a GPU, a display
/// or a context, and a test asserts what it called.
///
/// @code
///   find_package(Lumagrid REQUIRED COMPONENTS glrecorder)
///   target_link_libraries(my_test PRIVATE my_drawing_code Lumagrid::lumagrid
///                         Lumagrid::glrecorder GTest::gmock_main)
/// @endcode
///
/// Lumagrid::glrecorder goes into the program whole and defines, with C linkage, every entry point
/// Lumagrid calls and the ones a host commonly calls around a draw; those definitions win over
/// the libGL, libGLU and libgle that Lumagrid::lumagrid brings along. Each call is recorded in
/// order with its arguments, and what a caller reads back is emulated: display-list names and
/// contents, glIsList, the three matrix stacks and their depths, glGet* of the state the double
/// tracks, GL errors, GLE's join style and number of sides. A call to an entry point the double
/// lacks reaches the real library instead: unrecordedEntryPoints() lists them.
///
/// The whole reference (entry points, log format, emulated state, queries) is
/// docs/testing-kit.md, installed as share/doc/lumagrid/testing-kit.md.
///
/// @code
///   glrecorder::recorder().reset();                  // before constructing the objects under test
///   drawMyScene();
///   EXPECT_EQ(glrecorder::recorder().count("glCallList"), 2u);
///   EXPECT_EQ(glrecorder::recorder().stackDepth(GL_MODELVIEW), 1);
/// @endcode
///
/// One recorder per process; not thread-safe (GL code runs on one thread).
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

/// The recording double's test-facing side: the recorded calls, expected-line builders and the
/// Recorder that reads the emulated state. See docs/testing-kit.md.
namespace glrecorder {

// ------------------------------------------------------------------ arguments

/// A GLenum argument, printed with its symbolic name (GL_COMPILE, GLU_OUTSIDE...); see en().
struct Enum {
  /// The enum's value.
  GLenum value;
};

/// A GLU quadric handle argument, printed as the name the recorder gave it: quad1, quad2... in
/// order of creation since the last reset(); old-quadN for a handle created before that reset;
/// quad? for a pointer that gluNewQuadric never returned.
struct Quadric {
  /// The handle; a fake pointer that nobody may dereference.
  const GLUquadric* handle;
  /// The name printed for it.
  std::string name;
};

/// A null pointer argument, printed as NULL.
struct Null {};

/// Text that is printed as it is.
struct Verbatim {
  /// The text.
  std::string text;
};

/// An array argument (matrix, material colour, point list), printed as [a, b, ...], or as
/// [[a, b, c], [d, e, f]] when width is the size of each group.
template <class T>
struct Array {
  /// The elements, in order.
  std::vector<T> values;
  /// Elements per group; 0 prints one flat list.
  int width = 0;
};

/// One recorded argument. Integers of every width are held as long long: the log shows no
/// difference between them.
using Arg = std::variant<long long, double, float, Enum, Quadric, Null, Verbatim, Array<double>,
                         Array<float>>;

/// Formats one argument exactly as the log does. Doubles and floats are written in the shortest
/// form that reads back to the same value (std::to_chars), so that equal text means equal bits.
std::string format(const Arg& arg);

/// Symbolic name of a GL/GLU enum, or its value in hex (0x1234) when the recorder does not know
/// it.
std::string enumName(GLenum value);

/// Name of a GL error code (GL_NO_ERROR, GL_STACK_UNDERFLOW...).
std::string errorName(GLenum error);

// ------------------------------------------------------------------ recorded calls

/// GLE's drawing settings: they shape every GLE sweep issued while they are in force.
struct GleSettings {
  /// gleSetJoinStyle's value (TUBE_* flags).
  int joinStyle = 0;
  /// gleSetNumSides's value.
  int numSides = 0;
};

/// One recorded call: entry point, arguments, and where and how it took effect.
struct Call {
  /// The entry point's name, as in `<GL/gl.h>`, `<GL/glu.h>` or `<GL/gle.h>`.
  std::string name;
  /// The arguments, typed; output pointers are not among them (see result).
  std::vector<Arg> args;
  /// What the entry point returned (glGenLists, glIsList, gluNewQuadric, glGetError, the GLE
  /// getters) or wrote through its output pointer (glGetDoublev, glGetIntegerv). Not part of
  /// str().
  std::optional<Arg> result;
  /// Name of the display list being compiled when the call was issued; 0 when none was.
  /// glNewList and glEndList themselves carry 0.
  GLuint list = 0;
  /// The call takes effect at once even while a list is being compiled, and glCallList does not
  /// replay it: GL queries and list management, GLU quadric state, GLE settings.
  bool immediate = false;
  /// For the GLE sweeps (gleToroid, gleHelicoid, gleSpiral, glePolyCylinder, gleExtrusion): the
  /// settings in force when the call was issued. A list holds the geometry they produced, so a
  /// replayed sweep keeps the settings of its compile. Empty for every other call; not in str().
  std::optional<GleSettings> gle;

  /// Whether the call was issued while a list was being compiled (list != 0).
  bool inList() const { return list != 0; }
  /// "name(arg, arg, ...)", as in the log.
  std::string str() const;
  /// str() followed by " -> result" when there is a result.
  std::string strWithResult() const;
};

/// @name Comparing and printing calls
/// Calls compare by their text, so two calls are equal exactly when their logs are.
///@{

/// Equal when str() is equal.
bool operator==(const Call& a, const Call& b);
/// Different when str() differs.
bool operator!=(const Call& a, const Call& b);
/// Writes str(); lets gtest print calls readably.
std::ostream& operator<<(std::ostream& os, const Call& call);
///@}

/// str() of each call.
std::vector<std::string> lines(const std::vector<Call>& calls);

/// A log line with GLE settings appended: "gleToroid(...) [join=530 sides=20]".
std::string withGle(std::string_view line, int joinStyle, int numSides);
/// The call's line with the GLE settings it was issued under (withGle); str() for a call that
/// carries none.
std::string withGleSettings(const Call& call);
/// withGleSettings() of each GLE sweep among calls, in order; other calls are left out. So
/// @code
///   EXPECT_LINES({glrecorder::withGle(line("gleToroid", ...), 530, 20)},
///                glrecorder::gleLines(recorder().listCalls(2)));
/// @endcode
/// pins what a later list inherited, in one line.
std::vector<std::string> gleLines(const std::vector<Call>& calls);

// ------------------------------------------------------------------ expected lines

/// @name Argument conversions
/// How line() turns each value into an Arg: the value's C++ type decides how it prints.
/// Anything else can be passed as an Arg.
///@{

/// An Arg passes as it is.
inline Arg toArg(const Arg& a) {
  return a;
}
/// A double prints as a double parameter.
inline Arg toArg(double v) {
  return v;
}
/// A float prints as a float parameter (glVertex3f, glMaterialfv).
inline Arg toArg(float v) {
  return v;
}
/// An Enum prints symbolically.
inline Arg toArg(Enum v) {
  return v;
}
/// Prints NULL.
inline Arg toArg(Null v) {
  return v;
}
/// nullptr prints NULL.
inline Arg toArg(std::nullptr_t) {
  return Null{};
}
/// A Quadric prints its name.
inline Arg toArg(const Quadric& v) {
  return v;
}
/// Verbatim text prints as it is.
inline Arg toArg(const Verbatim& v) {
  return v;
}
/// A string prints as it is (for example "quad1").
inline Arg toArg(const char* text) {
  return Verbatim{text};
}
/// A string prints as it is.
inline Arg toArg(std::string_view text) {
  return Verbatim{std::string(text)};
}
/// A string prints as it is.
inline Arg toArg(const std::string& text) {
  return Verbatim{text};
}
/// An array of doubles prints as [a, b, ...] (grouped by its width).
inline Arg toArg(const Array<double>& v) {
  return v;
}
/// An array of floats prints as [a, b, ...] (grouped by its width).
inline Arg toArg(const Array<float>& v) {
  return v;
}
/// A vector of doubles prints as a flat array.
inline Arg toArg(const std::vector<double>& v) {
  return Array<double>{v};
}
/// A vector of floats prints as a flat array.
inline Arg toArg(const std::vector<float>& v) {
  return Array<float>{v};
}
/// A std::array of doubles (a matrix, for instance) prints as a flat array.
template <std::size_t N>
Arg toArg(const std::array<double, N>& v) {
  return Array<double>{{v.begin(), v.end()}};
}
/// A std::array of floats prints as a flat array.
template <std::size_t N>
Arg toArg(const std::array<float, N>& v) {
  return Array<float>{{v.begin(), v.end()}};
}
/// An integer of any type prints as an integer (as a long long).
template <class T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
Arg toArg(T v) {
  return static_cast<long long>(v);
}
/// A quadric handle prints as the name the recorder knows it by now (see Quadric).
Arg toArg(const GLUquadric* handle);
///@}

/// @name Argument shorthands
/// Shorthands for building arguments.
///@{

/// Prints `value` as an enum (GL_COMPILE) rather than as an integer.
inline Enum en(GLenum value) {
  return Enum{value};
}
/// `count` doubles from `values`, grouped by `width` when it is above 0.
Array<double> doubles(const double* values, std::size_t count, int width = 0);
/// `count` floats from `values`, grouped by `width` when it is above 0.
Array<float> floats(const float* values, std::size_t count, int width = 0);
/// A point list as GLE receives it: [[x, y, z], ...].
Array<double> points3(const std::vector<std::array<double, 3>>& points);
///@}

/// Formats a call from its parts, as Call::str() does.
std::string formatCall(std::string_view name, const std::vector<Arg>& args);

/// One expected log line built from computed values, formatted exactly like the log.
/// @code
///   glrecorder::line("gluCylinder", quad, 0.2 * 0.4, 0.2 * 0.4, 0.8, 128, 8)
///   glrecorder::line("glNewList", 1, glrecorder::en(GL_COMPILE))
/// @endcode
/// Pass floats for float parameters (glVertex3f, glMaterialfv) and doubles for double ones.
template <class... A>
std::string line(std::string_view name, const A&... args) {
  return formatCall(name, std::vector<Arg>{toArg(args)...});
}

/// A readable line diff of expected against actual: common lines start with "  ", lines only in
/// expected with "- ", lines only in actual with "+ "; long runs of common lines are elided.
/// Empty when the two are equal.
std::string diff(const std::vector<std::string>& expected, const std::vector<std::string>& actual);

// ------------------------------------------------------------------ emulated state

/// A 4x4 matrix, column-major, as glGetDoublev returns it.
using Matrix = std::array<double, 16>;

/// One glBegin/glEnd pair as executed (directly or from a list).
struct Primitive {
  /// The glBegin mode (GL_LINE_STRIP, GL_QUADS...).
  GLenum mode = 0;
  /// The vertices as given to glVertex* (z = 0 for the two-value forms).
  std::vector<std::array<double, 3>> vertices;
  /// The same vertices multiplied by the modelview matrix in force.
  std::vector<std::array<double, 3>> eyeVertices;
};

/// What glGenLists does (Recorder::setGenLists).
enum class GenLists {
  Normal,         ///< Sequential names from 1, each an empty list that glIsList accepts.
  ReturnZero,     ///< Fails as GL does: returns 0.
  ReturnUnknown,  ///< Returns a fresh name that glIsList rejects.
};

/// Prints the mode's name, for test listings and failure messages.
void PrintTo(GenLists mode, std::ostream* os);

/// The test-facing view of the double: what was called, and the state the calls left.
///
/// There is one, shared by all entry points; get it with recorder(). Reset it before
/// constructing the objects under test.
class Recorder {
 public:
  /// Not copyable: there is one recorder.
  Recorder(const Recorder&) = delete;
  /// Not copyable: there is one recorder.
  Recorder& operator=(const Recorder&) = delete;

  /// Back to a fresh context: no calls, no lists (names restart at 1), identity matrices at depth
  /// 1 in GL_MODELVIEW mode, no error, no quadrics (names restart at quad1), GLE's defaults, all
  /// switches off. Reset before constructing the objects under test.
  void reset();
  /// Forgets the recorded and executed calls and the primitives, keeps all state.
  void clearCalls();

  /// @name Recorded calls
  /// Calls are listed in order of issue; the *Log forms give their str() lines.
  ///@{

  /// Every call, in order of issue.
  const std::vector<Call>& calls() const;
  /// Every call's line.
  std::vector<std::string> log() const;
  /// Calls issued while a list was being compiled.
  std::vector<Call> compiledCalls() const;
  /// Calls issued while no list was being compiled.
  std::vector<Call> directCalls() const;
  /// Lines of compiledCalls().
  std::vector<std::string> compiledLog() const;
  /// Lines of directCalls().
  std::vector<std::string> directLog() const;
  /// Calls of one entry point.
  std::vector<Call> callsNamed(std::string_view name) const;
  /// Number of calls of one entry point.
  std::size_t count(std::string_view name) const;
  /// Calls in the order they took effect on the emulated state: direct calls, and the contents of
  /// every list that glCallList replayed, expanded in place (after the glCallList itself).
  const std::vector<Call>& executedCalls() const;
  /// Lines of executedCalls().
  std::vector<std::string> executedLog() const;
  ///@}

  /// @name Display lists
  /// A list's contents are the calls recorded between its glNewList and glEndList.
  ///@{

  /// Whether `name` is a list, as glIsList would answer.
  bool listExists(GLuint name) const;
  /// Every list name, in increasing order.
  std::vector<GLuint> listNames() const;
  /// A list's contents (empty for an unknown name).
  std::vector<Call> listCalls(GLuint name) const;
  /// Lines of listCalls().
  std::vector<std::string> listLog(GLuint name) const;
  /// The list being compiled, 0 when none is.
  GLuint compilingList() const;
  /// Makes glGenLists fail (0) or return a name glIsList rejects; GenLists::Normal restores it.
  void setGenLists(GenLists mode);
  /// Drops every list and restarts names at 1, as a recreated context would.
  void forgetAllLists();
  /// Drops one list, as if its name had vanished.
  void forgetList(GLuint name);
  ///@}

  /// @name Matrix stacks
  /// `mode` is GL_MODELVIEW, GL_PROJECTION or GL_TEXTURE.
  ///@{

  /// The current matrix mode.
  GLenum matrixMode() const;
  /// The top of a stack.
  Matrix matrix(GLenum mode) const;
  /// A stack's depth (1 after reset()).
  int stackDepth(GLenum mode) const;
  /// A stack's maximum depth: 32, or 10 for the texture stack, unless set.
  int maxStackDepth(GLenum mode) const;
  /// Sets a stack's maximum depth; a push beyond it raises GL_STACK_OVERFLOW.
  void setMaxStackDepth(GLenum mode, int depth);
  /// glPopMatrix refused at depth 1, per stack or, with mode 0, in all.
  int underflows(GLenum mode = 0) const;
  /// glPushMatrix refused at the maximum depth, per stack or, with mode 0, in all.
  int overflows(GLenum mode = 0) const;
  ///@}

  /// @name Errors
  ///@{

  /// The flag that glGetError would return next, without clearing it.
  GLenum pendingError() const;
  /// Every error raised since the last reset, in order.
  const std::vector<GLenum>& errors() const;
  ///@}

  /// @name Other GL state
  /// As executed: what a list compiled with GL_COMPILE holds counts only when it is called.
  ///@{

  /// Whether glEnable turned `cap` on.
  bool isEnabled(GLenum cap) const;
  /// The current colour (glColor*; the three-value forms set alpha to 1).
  std::array<double, 4> currentColor() const;
  /// The current normal, kept as floats like GL does.
  std::array<float, 3> currentNormal() const;
  /// A material parameter of GL_FRONT or GL_BACK, as glMaterialfv set it (GL's default
  /// otherwise).
  std::array<float, 4> material(GLenum face, GLenum pname) const;
  /// The line width.
  float lineWidth() const;
  /// What glGetDoublev(pname) would write, without recording a call or raising an error: every
  /// pname listed for glGet* (matrices, depths, viewport, clear values, blend factors, depth
  /// mask...). Empty for a pname the double does not know.
  std::vector<double> get(GLenum pname) const;
  /// A light's parameter as glLightfv set it (GL's default otherwise). GL_POSITION and
  /// GL_SPOT_DIRECTION are in eye coordinates: transformed by the modelview matrix in force when
  /// they were set.
  std::array<float, 4> light(GLenum light, GLenum pname) const;
  /// glPolygonMode of GL_FRONT or GL_BACK (GL_FILL until set).
  GLenum polygonMode(GLenum face) const;
  /// Every glBegin/glEnd pair executed since the last reset() or clearCalls().
  const std::vector<Primitive>& primitives() const;
  ///@}

  /// @name GLU quadrics
  ///@{

  /// The name a handle prints as (see Quadric).
  std::string quadricName(const GLUquadric* handle) const;
  /// Handles gluNewQuadric has returned since the last reset.
  int quadricsCreated() const;
  /// Handles created and not yet deleted.
  int liveQuadrics() const;
  /// Whether the handle was created and not yet deleted.
  bool isLiveQuadric(const GLUquadric* handle) const;
  /// gluDeleteQuadric of a handle already deleted.
  int doubleDeletes() const;
  /// Use of a deleted or unknown handle by any GLU call other than gluDeleteQuadric.
  int deadQuadricUses() const;
  /// The handle's orientation (GLU_OUTSIDE until set); 0 for an unknown handle.
  GLenum quadricOrientation(const GLUquadric* handle) const;
  /// The handle's draw style (GLU_FILL until set); 0 for an unknown handle.
  GLenum quadricDrawStyle(const GLUquadric* handle) const;
  /// The handle's normals (GLU_SMOOTH until set); 0 for an unknown handle.
  GLenum quadricNormals(const GLUquadric* handle) const;
  /// Makes gluNewQuadric return NULL, as GLU does when out of memory.
  void setNewQuadricFails(bool fails);
  ///@}

  /// @name GLE settings
  /// As set, or GLE's defaults: join style 274, that is TUBE_NORM_FACET | TUBE_JN_CAP |
  /// TUBE_JN_ANGLE, and 20 sides.
  ///@{

  /// The join style.
  int gleJoinStyle() const;
  /// The number of sides (a negative value set reads back as 0).
  int gleNumSides() const;
  ///@}

 private:
  friend Recorder& recorder();
  Recorder() = default;
};

/// The recorder.
Recorder& recorder();

/// GL, GLU and GLE entry points the program imports from the real libraries: calls the double
/// does not take, which therefore go unrecorded (and, with no context current, do nothing).
///
/// Sorted; empty when the double takes every call the program makes. A host's test suite checks
/// it once: `EXPECT_TRUE(glrecorder::unrecordedEntryPoints().empty())`.
std::vector<std::string> unrecordedEntryPoints();

}  // namespace glrecorder
