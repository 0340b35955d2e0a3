// The state behind the recorder: what the entry points write and Recorder reads. Internal.
#pragma once

#include <lumagrid/testing/GLRecorder.h>

#include "glrecorder/HostState.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace glrecorder::detail {

class Emulator;

// What a call does to the GL state when it is executed (directly or by glCallList).
using Effect = std::function<void(Emulator&)>;

struct ListEntry {
  Call call;
  Effect effect;  // empty for immediate calls, which glCallList does not replay
};

struct MatrixStack {
  std::vector<Matrix> matrices;
  int maxDepth = 32;
  int underflows = 0;
  int overflows = 0;
};

struct QuadricState {
  int id = 0;
  bool live = true;
  GLenum orientation = GLU_OUTSIDE;
  GLenum drawStyle = GLU_FILL;
  GLenum normals = GLU_SMOOTH;
};

Matrix identity();
Matrix multiply(const Matrix& a, const Matrix& b);  // a * b, column-major

class Emulator {
 public:
  Emulator() { reset(); }
  void reset();

  // Records a GL command that a display list captures: executed at once unless a list is being
  // compiled with GL_COMPILE.
  void command(std::string name, std::vector<Arg> args, Effect effect = {});
  // Records a GLE sweep as a command, with the GLE settings in force (Call::gle).
  void gleSweep(std::string name, std::vector<Arg> args, Effect effect);
  // Records a call that takes effect at once even while a list is compiled (it is listed among
  // the list's contents but never replayed). The entry point does its work first and passes
  // what it returned.
  void immediate(std::string name, std::vector<Arg> args, std::optional<Arg> result = {});
  // Records glNewList or glEndList: never part of a list.
  void boundary(std::string name, std::vector<Arg> args);

  // True when the call may proceed; raises GL_INVALID_OPERATION between glBegin and glEnd.
  bool outsideBeginEnd();
  void raise(GLenum error);
  GLenum takeError();

  // Display lists.
  GLuint genLists(GLsizei range);
  bool isList(GLuint name) const;
  void deleteLists(GLuint first, GLsizei range);
  void newList(GLuint name, GLenum mode);
  void endList();
  void callList(GLuint name);

  // Matrices.
  MatrixStack* stack(GLenum mode);
  const MatrixStack* stack(GLenum mode) const;
  Matrix& current();
  void setMatrixMode(GLenum mode);
  void loadIdentity();
  void multiplyCurrent(const Matrix& m);
  void push();
  void pop();
  void translate(double x, double y, double z);
  void rotate(double angleDegrees, double x, double y, double z);
  void scale(double x, double y, double z);
  void ortho(double l, double r, double b, double t, double n, double f);
  void frustum(double l, double r, double b, double t, double n, double f);
  void loadMatrix(const Matrix& m);

  // glGet*: the values of pname, or nothing (and GL_INVALID_ENUM) for an unknown one.
  std::vector<double> query(GLenum pname);
  // The same without the side effects of a call: nothing for an unknown pname.
  std::optional<std::vector<double>> value(GLenum pname) const;

  // Immediate-mode geometry.
  void begin(GLenum mode);
  void end();
  void vertex(double x, double y, double z);

  // GLU quadrics.
  GLUquadric* newQuadric();
  void deleteQuadric(GLUquadric* q);
  // The quadric's state, or nullptr (counting a dead use) for a deleted or unknown handle.
  QuadricState* liveQuadric(const GLUquadric* q);
  std::string quadricName(const GLUquadric* q) const;
  Arg quadricArg(const GLUquadric* q) const;

  // ---- state (read by Recorder)
  std::vector<Call> calls;
  std::vector<Call> executed;

  std::map<GLuint, std::vector<ListEntry>> lists;
  GLuint nextList = 1;
  GenLists genListsMode = GenLists::Normal;
  GLuint compiling = 0;
  GLenum compileMode = 0;
  std::vector<ListEntry> pending;
  int callDepth = 0;

  MatrixStack modelview, projection, texture;
  GLenum matrixMode = GL_MODELVIEW;

  GLenum error = GL_NO_ERROR;
  std::vector<GLenum> errors;

  bool insideBegin = false;
  Primitive primitive;
  std::vector<Primitive> primitives;
  std::array<double, 4> color{};
  std::array<float, 3> normal{};
  std::map<std::pair<GLenum, GLenum>, std::array<float, 4>> materials;  // (face, pname)
  float lineWidth = 1.0f;
  GLenum polygonFront = GL_FILL;
  GLenum polygonBack = GL_FILL;
  std::set<GLenum> enabled;
  HostState host;

  std::unordered_map<const void*, QuadricState> quadrics;
  int nextQuadric = 1;
  bool newQuadricFails = false;
  int doubleDeletes = 0;
  int deadQuadricUses = 0;

  int gleJoinStyle = 0;
  int gleNumSides = 0;

 private:
  void run(const Call& call, const Effect& effect);
  void record(Call call, Effect effect);
};

Emulator& emulator();

}  // namespace glrecorder::detail
