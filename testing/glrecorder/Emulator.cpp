#include "glrecorder/Emulator.h"

#include <cmath>
#include <deque>

namespace glrecorder::detail {
namespace {

constexpr int kMaxListNesting = 64;

// Quadric handles point into this deque, which is never cleared: a handle stays unique for the
// life of the process, even across reset().
std::deque<int>& quadricTokens() {
  static std::deque<int> tokens;
  return tokens;
}

// Every handle ever returned, with the number it was given, so that handles from before a reset
// still print recognisably.
std::unordered_map<const void*, int>& quadricsEverIssued() {
  static std::unordered_map<const void*, int> issued;
  return issued;
}

void resetStack(MatrixStack& stack, int maxDepth) {
  stack.matrices.assign(1, identity());
  stack.maxDepth = maxDepth;
  stack.underflows = 0;
  stack.overflows = 0;
}

}  // namespace

Matrix identity() {
  return Matrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

Matrix multiply(const Matrix& a, const Matrix& b) {
  Matrix r{};
  for (int col = 0; col < 4; ++col) {
    for (int row = 0; row < 4; ++row) {
      double sum = 0.0;
      for (int k = 0; k < 4; ++k) {
        sum += a[k * 4 + row] * b[col * 4 + k];
      }
      r[col * 4 + row] = sum;
    }
  }
  return r;
}

Emulator& emulator() {
  static Emulator instance;
  return instance;
}

void Emulator::reset() {
  calls.clear();
  executed.clear();
  lists.clear();
  nextList = 1;
  genListsMode = GenLists::Normal;
  compiling = 0;
  compileMode = 0;
  pending.clear();
  callDepth = 0;
  resetStack(modelview, 32);
  resetStack(projection, 32);
  resetStack(texture, 10);
  matrixMode = GL_MODELVIEW;
  error = GL_NO_ERROR;
  errors.clear();
  insideBegin = false;
  primitive = Primitive{};
  primitives.clear();
  color = {1.0, 1.0, 1.0, 1.0};
  normal = {0.0f, 0.0f, 1.0f};
  materials.clear();
  for (GLenum face : {GL_FRONT, GL_BACK}) {
    materials[{face, GL_AMBIENT}] = {0.2f, 0.2f, 0.2f, 1.0f};
    materials[{face, GL_DIFFUSE}] = {0.8f, 0.8f, 0.8f, 1.0f};
    materials[{face, GL_SPECULAR}] = {0.0f, 0.0f, 0.0f, 1.0f};
    materials[{face, GL_EMISSION}] = {0.0f, 0.0f, 0.0f, 1.0f};
    materials[{face, GL_SHININESS}] = {0.0f, 0.0f, 0.0f, 0.0f};
    materials[{face, GL_COLOR_INDEXES}] = {0.0f, 1.0f, 1.0f, 0.0f};
  }
  lineWidth = 1.0f;
  polygonFront = GL_FILL;
  polygonBack = GL_FILL;
  enabled = {GL_DITHER, GL_MULTISAMPLE};
  host.reset();
  quadrics.clear();
  nextQuadric = 1;
  newQuadricFails = false;
  doubleDeletes = 0;
  deadQuadricUses = 0;
  // GLE's own defaults: TUBE_NORM_FACET | TUBE_JN_CAP | TUBE_JN_ANGLE, 20 sides.
  gleJoinStyle = 0x112;
  gleNumSides = 20;
}

// ------------------------------------------------------------------ recording

void Emulator::run(const Call& call, const Effect& effect) {
  executed.push_back(call);
  if (effect) {
    effect(*this);
  }
}

void Emulator::command(std::string name, std::vector<Arg> args, Effect effect) {
  record(Call{std::move(name), std::move(args), std::nullopt, compiling, false, std::nullopt},
         std::move(effect));
}

void Emulator::gleSweep(std::string name, std::vector<Arg> args, Effect effect) {
  record(Call{std::move(name), std::move(args), std::nullopt, compiling, false,
              GleSettings{gleJoinStyle, gleNumSides}},
         std::move(effect));
}

void Emulator::record(Call newCall, Effect effect) {
  if (!effect) {
    effect = [](Emulator&) {};
  }
  calls.push_back(std::move(newCall));
  const Call& call = calls.back();
  if (compiling != 0) {
    pending.push_back(ListEntry{call, effect});
    if (compileMode == GL_COMPILE) {
      return;
    }
  }
  run(call, effect);
}

void Emulator::immediate(std::string name, std::vector<Arg> args, std::optional<Arg> result) {
  calls.push_back(Call{std::move(name), std::move(args), std::move(result), compiling,
                       /*immediate=*/true, std::nullopt});
  const Call& call = calls.back();
  if (compiling != 0) {
    pending.push_back(ListEntry{call, {}});
  }
  run(call, {});
}

void Emulator::boundary(std::string name, std::vector<Arg> args) {
  calls.push_back(
      Call{std::move(name), std::move(args), std::nullopt, 0, /*immediate=*/true, std::nullopt});
  run(calls.back(), {});
}

bool Emulator::outsideBeginEnd() {
  if (insideBegin) {
    raise(GL_INVALID_OPERATION);
    return false;
  }
  return true;
}

void Emulator::raise(GLenum code) {
  errors.push_back(code);
  // Like Mesa, keep the first error until glGetError reads it.
  if (error == GL_NO_ERROR) {
    error = code;
  }
}

GLenum Emulator::takeError() {
  if (insideBegin) {
    raise(GL_INVALID_OPERATION);
    return 0;
  }
  const GLenum code = error;
  error = GL_NO_ERROR;
  return code;
}

// ------------------------------------------------------------------ display lists

GLuint Emulator::genLists(GLsizei range) {
  if (!outsideBeginEnd()) {
    return 0;
  }
  if (range < 0) {
    raise(GL_INVALID_VALUE);
    return 0;
  }
  if (range == 0 || genListsMode == GenLists::ReturnZero) {
    return 0;
  }
  const GLuint first = nextList;
  nextList += static_cast<GLuint>(range);
  if (genListsMode == GenLists::Normal) {
    for (GLuint name = first; name < nextList; ++name) {
      lists[name];  // an empty list, as Mesa creates
    }
  }
  return first;
}

bool Emulator::isList(GLuint name) const {
  return lists.count(name) != 0;
}

void Emulator::deleteLists(GLuint first, GLsizei range) {
  if (!outsideBeginEnd()) {
    return;
  }
  if (range < 0) {
    raise(GL_INVALID_VALUE);
    return;
  }
  for (GLsizei i = 0; i < range; ++i) {
    lists.erase(first + static_cast<GLuint>(i));
  }
}

void Emulator::newList(GLuint name, GLenum mode) {
  if (!outsideBeginEnd()) {
    return;
  }
  if (compiling != 0) {
    raise(GL_INVALID_OPERATION);
    return;
  }
  if (name == 0) {
    raise(GL_INVALID_VALUE);
    return;
  }
  if (mode != GL_COMPILE && mode != GL_COMPILE_AND_EXECUTE) {
    raise(GL_INVALID_ENUM);
    return;
  }
  compiling = name;
  compileMode = mode;
  pending.clear();
}

void Emulator::endList() {
  if (!outsideBeginEnd()) {
    return;
  }
  if (compiling == 0) {
    raise(GL_INVALID_OPERATION);
    return;
  }
  // The old contents stay callable until the new ones are complete.
  lists[compiling] = std::move(pending);
  pending.clear();
  if (compiling >= nextList) {
    nextList = compiling + 1;
  }
  compiling = 0;
  compileMode = 0;
}

void Emulator::callList(GLuint name) {
  const auto it = lists.find(name);
  if (it == lists.end() || callDepth >= kMaxListNesting) {
    return;
  }
  ++callDepth;
  for (const ListEntry& entry : it->second) {
    if (entry.effect) {
      run(entry.call, entry.effect);
    }
  }
  --callDepth;
}

// ------------------------------------------------------------------ matrices

MatrixStack* Emulator::stack(GLenum mode) {
  switch (mode) {
    case GL_MODELVIEW:
      return &modelview;
    case GL_PROJECTION:
      return &projection;
    case GL_TEXTURE:
      return &texture;
    default:
      return nullptr;
  }
}

const MatrixStack* Emulator::stack(GLenum mode) const {
  return const_cast<Emulator*>(this)->stack(mode);
}

Matrix& Emulator::current() {
  return stack(matrixMode)->matrices.back();
}

void Emulator::setMatrixMode(GLenum mode) {
  if (!outsideBeginEnd()) {
    return;
  }
  if (stack(mode) == nullptr) {
    raise(GL_INVALID_ENUM);
    return;
  }
  matrixMode = mode;
}

void Emulator::loadIdentity() {
  if (outsideBeginEnd()) {
    current() = identity();
  }
}

void Emulator::multiplyCurrent(const Matrix& m) {
  if (outsideBeginEnd()) {
    current() = multiply(current(), m);
  }
}

void Emulator::push() {
  if (!outsideBeginEnd()) {
    return;
  }
  MatrixStack& s = *stack(matrixMode);
  if (static_cast<int>(s.matrices.size()) >= s.maxDepth) {
    ++s.overflows;
    raise(GL_STACK_OVERFLOW);
    return;
  }
  s.matrices.push_back(s.matrices.back());
}

void Emulator::pop() {
  if (!outsideBeginEnd()) {
    return;
  }
  MatrixStack& s = *stack(matrixMode);
  if (s.matrices.size() <= 1) {
    ++s.underflows;
    raise(GL_STACK_UNDERFLOW);
    return;
  }
  s.matrices.pop_back();
}

void Emulator::translate(double x, double y, double z) {
  Matrix m = identity();
  m[12] = x;
  m[13] = y;
  m[14] = z;
  multiplyCurrent(m);
}

void Emulator::rotate(double angleDegrees, double x, double y, double z) {
  const double radians = angleDegrees * (M_PI / 180.0);
  const double s = std::sin(radians);
  const double c = std::cos(radians);
  Matrix m = identity();
  // A rotation about a coordinate axis gets exact zeros and ones, as in Mesa.
  if (x == 0.0 && y == 0.0 && z != 0.0) {
    const double sz = z < 0.0 ? -s : s;
    m[0] = c;
    m[1] = sz;
    m[4] = -sz;
    m[5] = c;
  } else if (x == 0.0 && z == 0.0 && y != 0.0) {
    const double sy = y < 0.0 ? -s : s;
    m[0] = c;
    m[2] = -sy;
    m[8] = sy;
    m[10] = c;
  } else if (y == 0.0 && z == 0.0 && x != 0.0) {
    const double sx = x < 0.0 ? -s : s;
    m[5] = c;
    m[6] = sx;
    m[9] = -sx;
    m[10] = c;
  } else {
    const double length = std::sqrt(x * x + y * y + z * z);
    // Mesa leaves the matrix alone for a (nearly) null axis.
    if (!(length > 1.0e-4)) {
      outsideBeginEnd();
      return;
    }
    x /= length;
    y /= length;
    z /= length;
    const double t = 1.0 - c;
    m[0] = x * x * t + c;
    m[1] = y * x * t + z * s;
    m[2] = x * z * t - y * s;
    m[4] = x * y * t - z * s;
    m[5] = y * y * t + c;
    m[6] = y * z * t + x * s;
    m[8] = x * z * t + y * s;
    m[9] = y * z * t - x * s;
    m[10] = z * z * t + c;
  }
  multiplyCurrent(m);
}

void Emulator::scale(double x, double y, double z) {
  Matrix m = identity();
  m[0] = x;
  m[5] = y;
  m[10] = z;
  multiplyCurrent(m);
}

void Emulator::ortho(double l, double r, double b, double t, double n, double f) {
  if (!outsideBeginEnd()) {
    return;
  }
  if (l == r || b == t || n == f) {
    raise(GL_INVALID_VALUE);
    return;
  }
  Matrix m = identity();
  m[0] = 2.0 / (r - l);
  m[5] = 2.0 / (t - b);
  m[10] = -2.0 / (f - n);
  m[12] = -(r + l) / (r - l);
  m[13] = -(t + b) / (t - b);
  m[14] = -(f + n) / (f - n);
  multiplyCurrent(m);
}

void Emulator::frustum(double l, double r, double b, double t, double n, double f) {
  if (!outsideBeginEnd()) {
    return;
  }
  if (n <= 0.0 || f <= 0.0 || l == r || b == t || n == f) {
    raise(GL_INVALID_VALUE);
    return;
  }
  Matrix m{};
  m[0] = 2.0 * n / (r - l);
  m[5] = 2.0 * n / (t - b);
  m[8] = (r + l) / (r - l);
  m[9] = (t + b) / (t - b);
  m[10] = -(f + n) / (f - n);
  m[11] = -1.0;
  m[14] = -2.0 * f * n / (f - n);
  multiplyCurrent(m);
}

void Emulator::loadMatrix(const Matrix& m) {
  if (outsideBeginEnd()) {
    current() = m;
  }
}

// ------------------------------------------------------------------ queries

std::optional<std::vector<double>> Emulator::value(GLenum pname) const {
  auto matrixOf = [](const MatrixStack& s) {
    return std::vector<double>(s.matrices.back().begin(), s.matrices.back().end());
  };
  auto depthOf = [](const MatrixStack& s) {
    return std::vector<double>{static_cast<double>(s.matrices.size())};
  };
  switch (pname) {
    case GL_MATRIX_MODE:
      return std::vector<double>{static_cast<double>(matrixMode)};
    case GL_MODELVIEW_MATRIX:
      return matrixOf(modelview);
    case GL_PROJECTION_MATRIX:
      return matrixOf(projection);
    case GL_TEXTURE_MATRIX:
      return matrixOf(texture);
    case GL_MODELVIEW_STACK_DEPTH:
      return depthOf(modelview);
    case GL_PROJECTION_STACK_DEPTH:
      return depthOf(projection);
    case GL_TEXTURE_STACK_DEPTH:
      return depthOf(texture);
    case GL_MAX_MODELVIEW_STACK_DEPTH:
      return std::vector<double>{static_cast<double>(modelview.maxDepth)};
    case GL_MAX_PROJECTION_STACK_DEPTH:
      return std::vector<double>{static_cast<double>(projection.maxDepth)};
    case GL_MAX_TEXTURE_STACK_DEPTH:
      return std::vector<double>{static_cast<double>(texture.maxDepth)};
    case GL_LIST_INDEX:
      return std::vector<double>{static_cast<double>(compiling)};
    case GL_LIST_MODE:
      return std::vector<double>{static_cast<double>(compileMode)};
    case GL_MAX_LIST_NESTING:
      return std::vector<double>{static_cast<double>(kMaxListNesting)};
    case GL_CURRENT_COLOR:
      return std::vector<double>(color.begin(), color.end());
    case GL_CURRENT_NORMAL:
      return std::vector<double>(normal.begin(), normal.end());
    case GL_LINE_WIDTH:
      return std::vector<double>{lineWidth};
    case GL_POLYGON_MODE:
      return std::vector<double>{static_cast<double>(polygonFront),
                                 static_cast<double>(polygonBack)};
    default:
      return host.value(pname);
  }
}

std::vector<double> Emulator::query(GLenum pname) {
  if (!outsideBeginEnd()) {
    return {};
  }
  std::optional<std::vector<double>> values = value(pname);
  if (!values) {
    raise(GL_INVALID_ENUM);
    return {};
  }
  return *values;
}

// ------------------------------------------------------------------ geometry

void Emulator::begin(GLenum mode) {
  if (!outsideBeginEnd()) {
    return;
  }
  if (mode > GL_POLYGON) {
    raise(GL_INVALID_ENUM);
    return;
  }
  insideBegin = true;
  primitive = Primitive{mode, {}, {}};
}

void Emulator::end() {
  if (!insideBegin) {
    raise(GL_INVALID_OPERATION);
    return;
  }
  insideBegin = false;
  primitives.push_back(std::move(primitive));
  primitive = Primitive{};
}

void Emulator::vertex(double x, double y, double z) {
  if (!insideBegin) {
    return;
  }
  const Matrix& m = modelview.matrices.back();
  primitive.vertices.push_back({x, y, z});
  primitive.eyeVertices.push_back({m[0] * x + m[4] * y + m[8] * z + m[12],
                                   m[1] * x + m[5] * y + m[9] * z + m[13],
                                   m[2] * x + m[6] * y + m[10] * z + m[14]});
}

// ------------------------------------------------------------------ quadrics

GLUquadric* Emulator::newQuadric() {
  if (newQuadricFails) {
    return nullptr;
  }
  auto& tokens = quadricTokens();
  const int id = nextQuadric++;
  tokens.push_back(id);
  // A distinct address that nobody dereferences as a quadric.
  auto* handle = reinterpret_cast<GLUquadric*>(&tokens.back());
  quadricsEverIssued()[handle] = id;
  QuadricState state;
  state.id = id;
  quadrics[handle] = state;
  return handle;
}

void Emulator::deleteQuadric(GLUquadric* q) {
  if (q == nullptr) {
    return;
  }
  const auto it = quadrics.find(q);
  if (it == quadrics.end() || !it->second.live) {
    ++doubleDeletes;
    return;
  }
  it->second.live = false;
}

QuadricState* Emulator::liveQuadric(const GLUquadric* q) {
  const auto it = quadrics.find(q);
  if (it == quadrics.end() || !it->second.live) {
    ++deadQuadricUses;
    return nullptr;
  }
  return &it->second;
}

std::string Emulator::quadricName(const GLUquadric* q) const {
  if (q == nullptr) {
    return "NULL";
  }
  const auto it = quadrics.find(q);
  if (it != quadrics.end()) {
    return "quad" + std::to_string(it->second.id);
  }
  const auto& issued = quadricsEverIssued();
  const auto old = issued.find(q);
  if (old != issued.end()) {
    return "old-quad" + std::to_string(old->second);
  }
  return "quad?";
}

Arg Emulator::quadricArg(const GLUquadric* q) const {
  if (q == nullptr) {
    return Null{};
  }
  return Quadric{q, quadricName(q)};
}

}  // namespace glrecorder::detail
