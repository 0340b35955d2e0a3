#include <lumagrid/testing/GLRecorder.h>

#include "glrecorder/Emulator.h"

#include <ostream>

namespace glrec {
namespace {

detail::Emulator& E() {
  return detail::emulator();
}

std::vector<Call> select(const std::vector<Call>& calls, bool inList) {
  std::vector<Call> out;
  for (const Call& call : calls) {
    if (call.inList() == inList) {
      out.push_back(call);
    }
  }
  return out;
}

const detail::MatrixStack& stackOf(GLenum mode) {
  static const detail::MatrixStack none{};
  const detail::MatrixStack* s = E().stack(mode);
  return s != nullptr ? *s : none;
}

}  // namespace

Recorder& recorder() {
  static Recorder instance;
  return instance;
}

void Recorder::reset() {
  E().reset();
}

void Recorder::clearCalls() {
  E().calls.clear();
  E().executed.clear();
  E().primitives.clear();
}

const std::vector<Call>& Recorder::calls() const {
  return E().calls;
}
std::vector<std::string> Recorder::log() const {
  return lines(E().calls);
}
std::vector<Call> Recorder::compiledCalls() const {
  return select(E().calls, true);
}
std::vector<Call> Recorder::directCalls() const {
  return select(E().calls, false);
}
std::vector<std::string> Recorder::compiledLog() const {
  return lines(compiledCalls());
}
std::vector<std::string> Recorder::directLog() const {
  return lines(directCalls());
}

std::vector<Call> Recorder::callsNamed(std::string_view name) const {
  std::vector<Call> out;
  for (const Call& call : E().calls) {
    if (call.name == name) {
      out.push_back(call);
    }
  }
  return out;
}

std::size_t Recorder::count(std::string_view name) const {
  return callsNamed(name).size();
}

const std::vector<Call>& Recorder::executedCalls() const {
  return E().executed;
}
std::vector<std::string> Recorder::executedLog() const {
  return lines(E().executed);
}

bool Recorder::listExists(GLuint name) const {
  return E().isList(name);
}

std::vector<GLuint> Recorder::listNames() const {
  std::vector<GLuint> names;
  for (const auto& entry : E().lists) {
    names.push_back(entry.first);
  }
  return names;
}

std::vector<Call> Recorder::listCalls(GLuint name) const {
  std::vector<Call> out;
  const auto it = E().lists.find(name);
  if (it != E().lists.end()) {
    for (const detail::ListEntry& entry : it->second) {
      out.push_back(entry.call);
    }
  }
  return out;
}

std::vector<std::string> Recorder::listLog(GLuint name) const {
  return lines(listCalls(name));
}

GLuint Recorder::compilingList() const {
  return E().compiling;
}
void Recorder::setGenLists(GenLists mode) {
  E().genListsMode = mode;
}

void Recorder::forgetAllLists() {
  E().lists.clear();
  E().nextList = 1;
}

void Recorder::forgetList(GLuint name) {
  E().lists.erase(name);
}

GLenum Recorder::matrixMode() const {
  return E().matrixMode;
}

Matrix Recorder::matrix(GLenum mode) const {
  const auto& s = stackOf(mode);
  return s.matrices.empty() ? Matrix{} : s.matrices.back();
}

int Recorder::stackDepth(GLenum mode) const {
  return static_cast<int>(stackOf(mode).matrices.size());
}

int Recorder::maxStackDepth(GLenum mode) const {
  return stackOf(mode).maxDepth;
}

void Recorder::setMaxStackDepth(GLenum mode, int depth) {
  if (detail::MatrixStack* s = E().stack(mode)) {
    s->maxDepth = depth;
  }
}

int Recorder::underflows(GLenum mode) const {
  if (mode == 0) {
    return E().modelview.underflows + E().projection.underflows + E().texture.underflows;
  }
  return stackOf(mode).underflows;
}

int Recorder::overflows(GLenum mode) const {
  if (mode == 0) {
    return E().modelview.overflows + E().projection.overflows + E().texture.overflows;
  }
  return stackOf(mode).overflows;
}

GLenum Recorder::pendingError() const {
  return E().error;
}
const std::vector<GLenum>& Recorder::errors() const {
  return E().errors;
}

bool Recorder::isEnabled(GLenum cap) const {
  return E().enabled.count(cap) != 0;
}
std::array<double, 4> Recorder::currentColor() const {
  return E().color;
}
std::array<float, 3> Recorder::currentNormal() const {
  return E().normal;
}

std::array<float, 4> Recorder::material(GLenum face, GLenum pname) const {
  const auto it = E().materials.find({face, pname});
  return it != E().materials.end() ? it->second : std::array<float, 4>{};
}

float Recorder::lineWidth() const {
  return E().lineWidth;
}

std::vector<double> Recorder::get(GLenum pname) const {
  return E().value(pname).value_or(std::vector<double>{});
}

std::array<float, 4> Recorder::light(GLenum light, GLenum pname) const {
  return E().host.light(light, pname);
}

GLenum Recorder::polygonMode(GLenum face) const {
  return face == GL_BACK ? E().polygonBack : E().polygonFront;
}
const std::vector<Primitive>& Recorder::primitives() const {
  return E().primitives;
}

std::string Recorder::quadricName(const GLUquadric* handle) const {
  return E().quadricName(handle);
}

int Recorder::quadricsCreated() const {
  return E().nextQuadric - 1;
}

int Recorder::liveQuadrics() const {
  int live = 0;
  for (const auto& entry : E().quadrics) {
    live += entry.second.live ? 1 : 0;
  }
  return live;
}

bool Recorder::isLiveQuadric(const GLUquadric* handle) const {
  const auto it = E().quadrics.find(handle);
  return it != E().quadrics.end() && it->second.live;
}

int Recorder::doubleDeletes() const {
  return E().doubleDeletes;
}
int Recorder::deadQuadricUses() const {
  return E().deadQuadricUses;
}

GLenum Recorder::quadricOrientation(const GLUquadric* handle) const {
  const auto it = E().quadrics.find(handle);
  return it != E().quadrics.end() ? it->second.orientation : 0;
}

GLenum Recorder::quadricDrawStyle(const GLUquadric* handle) const {
  const auto it = E().quadrics.find(handle);
  return it != E().quadrics.end() ? it->second.drawStyle : 0;
}

GLenum Recorder::quadricNormals(const GLUquadric* handle) const {
  const auto it = E().quadrics.find(handle);
  return it != E().quadrics.end() ? it->second.normals : 0;
}

void Recorder::setNewQuadricFails(bool fails) {
  E().newQuadricFails = fails;
}

int Recorder::gleJoinStyle() const {
  return E().gleJoinStyle;
}
int Recorder::gleNumSides() const {
  return E().gleNumSides;
}

}  // namespace glrec

void glrec::PrintTo(GenLists mode, std::ostream* os) {
  switch (mode) {
    case GenLists::Normal:
      *os << "Normal";
      return;
    case GenLists::ReturnZero:
      *os << "ReturnZero";
      return;
    case GenLists::ReturnUnknown:
      *os << "ReturnUnknown";
      return;
  }
}
