#include <lumagrid/testing/GLRecorder.h>

#include "glrecorder/Emulator.h"

#include <ostream>

namespace glrecorder {
namespace {

detail::Emulator& emulator() {
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
  const detail::MatrixStack* s = emulator().stack(mode);
  return s != nullptr ? *s : none;
}

}  // namespace

Recorder& recorder() {
  static Recorder instance;
  return instance;
}

void Recorder::reset() {
  emulator().reset();
}

void Recorder::clearCalls() {
  emulator().calls.clear();
  emulator().executed.clear();
  emulator().primitives.clear();
}

const std::vector<Call>& Recorder::calls() const {
  return emulator().calls;
}
std::vector<std::string> Recorder::log() const {
  return lines(emulator().calls);
}
std::vector<Call> Recorder::compiledCalls() const {
  return select(emulator().calls, true);
}
std::vector<Call> Recorder::directCalls() const {
  return select(emulator().calls, false);
}
std::vector<std::string> Recorder::compiledLog() const {
  return lines(compiledCalls());
}
std::vector<std::string> Recorder::directLog() const {
  return lines(directCalls());
}

std::vector<Call> Recorder::callsNamed(std::string_view name) const {
  std::vector<Call> out;
  for (const Call& call : emulator().calls) {
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
  return emulator().executed;
}
std::vector<std::string> Recorder::executedLog() const {
  return lines(emulator().executed);
}

bool Recorder::listExists(GLuint name) const {
  return emulator().isList(name);
}

std::vector<GLuint> Recorder::listNames() const {
  std::vector<GLuint> names;
  for (const auto& entry : emulator().lists) {
    names.push_back(entry.first);
  }
  return names;
}

std::vector<Call> Recorder::listCalls(GLuint name) const {
  std::vector<Call> out;
  const auto it = emulator().lists.find(name);
  if (it != emulator().lists.end()) {
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
  return emulator().compiling;
}
void Recorder::setGenLists(GenLists mode) {
  emulator().genListsMode = mode;
}

void Recorder::forgetAllLists() {
  emulator().lists.clear();
  emulator().nextList = 1;
}

void Recorder::forgetList(GLuint name) {
  emulator().lists.erase(name);
}

GLenum Recorder::matrixMode() const {
  return emulator().matrixMode;
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
  if (detail::MatrixStack* s = emulator().stack(mode)) {
    s->maxDepth = depth;
  }
}

int Recorder::underflows(GLenum mode) const {
  if (mode == 0) {
    return emulator().modelview.underflows + emulator().projection.underflows +
           emulator().texture.underflows;
  }
  return stackOf(mode).underflows;
}

int Recorder::overflows(GLenum mode) const {
  if (mode == 0) {
    return emulator().modelview.overflows + emulator().projection.overflows +
           emulator().texture.overflows;
  }
  return stackOf(mode).overflows;
}

GLenum Recorder::pendingError() const {
  return emulator().error;
}
const std::vector<GLenum>& Recorder::errors() const {
  return emulator().errors;
}

bool Recorder::isEnabled(GLenum cap) const {
  return emulator().enabled.count(cap) != 0;
}
std::array<double, 4> Recorder::currentColor() const {
  return emulator().color;
}
std::array<float, 3> Recorder::currentNormal() const {
  return emulator().normal;
}

std::array<float, 4> Recorder::material(GLenum face, GLenum pname) const {
  const auto it = emulator().materials.find({face, pname});
  return it != emulator().materials.end() ? it->second : std::array<float, 4>{};
}

float Recorder::lineWidth() const {
  return emulator().lineWidth;
}

std::vector<double> Recorder::get(GLenum pname) const {
  return emulator().value(pname).value_or(std::vector<double>{});
}

std::array<float, 4> Recorder::light(GLenum light, GLenum pname) const {
  return emulator().host.light(light, pname);
}

GLenum Recorder::polygonMode(GLenum face) const {
  return face == GL_BACK ? emulator().polygonBack : emulator().polygonFront;
}
const std::vector<Primitive>& Recorder::primitives() const {
  return emulator().primitives;
}

std::string Recorder::quadricName(const GLUquadric* handle) const {
  return emulator().quadricName(handle);
}

int Recorder::quadricsCreated() const {
  return emulator().nextQuadric - 1;
}

int Recorder::liveQuadrics() const {
  int live = 0;
  for (const auto& entry : emulator().quadrics) {
    live += entry.second.live ? 1 : 0;
  }
  return live;
}

bool Recorder::isLiveQuadric(const GLUquadric* handle) const {
  const auto it = emulator().quadrics.find(handle);
  return it != emulator().quadrics.end() && it->second.live;
}

int Recorder::doubleDeletes() const {
  return emulator().doubleDeletes;
}
int Recorder::deadQuadricUses() const {
  return emulator().deadQuadricUses;
}

GLenum Recorder::quadricOrientation(const GLUquadric* handle) const {
  const auto it = emulator().quadrics.find(handle);
  return it != emulator().quadrics.end() ? it->second.orientation : 0;
}

GLenum Recorder::quadricDrawStyle(const GLUquadric* handle) const {
  const auto it = emulator().quadrics.find(handle);
  return it != emulator().quadrics.end() ? it->second.drawStyle : 0;
}

GLenum Recorder::quadricNormals(const GLUquadric* handle) const {
  const auto it = emulator().quadrics.find(handle);
  return it != emulator().quadrics.end() ? it->second.normals : 0;
}

void Recorder::setNewQuadricFails(bool fails) {
  emulator().newQuadricFails = fails;
}

int Recorder::gleJoinStyle() const {
  return emulator().gleJoinStyle;
}
int Recorder::gleNumSides() const {
  return emulator().gleNumSides;
}

}  // namespace glrecorder

void glrecorder::PrintTo(GenLists mode, std::ostream* os) {
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
