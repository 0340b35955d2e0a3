#include "geometry/GLCapture.h"

#include <GL/gl.h>

#include <cmath>
#include <map>
#include <vector>

namespace geometry {

namespace {

using Matrix = std::array<double, 16>;  // GL's element order

constexpr Matrix kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

Matrix Multiply(const Matrix& a, const Matrix& b) {
  Matrix c{};
  for (int col = 0; col < 4; ++col) {
    for (int row = 0; row < 4; ++row) {
      double sum = 0.0;
      for (int k = 0; k < 4; ++k) {
        sum += a[static_cast<std::size_t>(k * 4 + row)] * b[static_cast<std::size_t>(col * 4 + k)];
      }
      c[static_cast<std::size_t>(col * 4 + row)] = sum;
    }
  }
  return c;
}

Point Transform(const Matrix& m, const Point& p) {
  Point out{};
  for (std::size_t row = 0; row < 3; ++row) {
    out[row] = m[row] * p[0] + m[4 + row] * p[1] + m[8 + row] * p[2] + m[12 + row];
  }
  return out;
}

// Through the inverse transpose: the cofactors, with the determinant's sign.
Point TransformNormal(const Matrix& m, const Point& n) {
  const auto a = [&](int r, int c) { return m[static_cast<std::size_t>(c * 4 + r)]; };
  const double c00 = a(1, 1) * a(2, 2) - a(1, 2) * a(2, 1);
  const double c01 = a(1, 2) * a(2, 0) - a(1, 0) * a(2, 2);
  const double c02 = a(1, 0) * a(2, 1) - a(1, 1) * a(2, 0);
  const double c10 = a(0, 2) * a(2, 1) - a(0, 1) * a(2, 2);
  const double c11 = a(0, 0) * a(2, 2) - a(0, 2) * a(2, 0);
  const double c12 = a(0, 1) * a(2, 0) - a(0, 0) * a(2, 1);
  const double c20 = a(0, 1) * a(1, 2) - a(0, 2) * a(1, 1);
  const double c21 = a(0, 2) * a(1, 0) - a(0, 0) * a(1, 2);
  const double c22 = a(0, 0) * a(1, 1) - a(0, 1) * a(1, 0);
  const double det = a(0, 0) * c00 + a(0, 1) * c01 + a(0, 2) * c02;
  const double s = det < 0.0 ? -1.0 : 1.0;
  Point out{s * (c00 * n[0] + c01 * n[1] + c02 * n[2]), s * (c10 * n[0] + c11 * n[1] + c12 * n[2]),
            s * (c20 * n[0] + c21 * n[1] + c22 * n[2])};
  const double length = std::sqrt(out[0] * out[0] + out[1] * out[1] + out[2] * out[2]);
  if (length > 0.0) {
    for (double& v : out) {
      v /= length;
    }
  }
  return out;
}

// One call kept in a list.
struct Command {
  enum Kind { Begin, End, Vertex, Normal, Push, Pop, Mult, Load, CallList } kind;
  std::array<double, 16> values;
};

struct Vertex {
  Point position;
  Point normal;
};

struct State {
  std::vector<Matrix> stack{kIdentity};
  Point normal{0, 0, 0};
  bool normalGiven = false;
  GLenum mode = 0;
  bool inside = false;
  std::vector<Vertex> vertices;
  std::map<GLuint, std::vector<Command>> lists;
  GLuint nextList = 1;
  bool compiling = false;
  bool executeWhileCompiling = false;
  GLuint compiled = 0;
  Captured captured;
};

State& S() {
  static State state;
  return state;
}

void Triangle(const Vertex& a, const Vertex& b, const Vertex& c) {
  S().captured.triangles.push_back(
      {{a.position, b.position, c.position}, {a.normal, b.normal, c.normal}});
}

void Segment(const Vertex& a, const Vertex& b) {
  S().captured.segments.push_back({{a.position, b.position}});
}

void Expand(GLenum mode, const std::vector<Vertex>& v) {
  const std::size_t n = v.size();
  switch (mode) {
    case GL_TRIANGLES:
      for (std::size_t i = 0; i + 2 < n; i += 3) {
        Triangle(v[i], v[i + 1], v[i + 2]);
      }
      break;
    case GL_TRIANGLE_STRIP:
      for (std::size_t i = 2; i < n; ++i) {
        if (i % 2 == 0) {
          Triangle(v[i - 2], v[i - 1], v[i]);
        } else {
          Triangle(v[i - 1], v[i - 2], v[i]);
        }
      }
      break;
    case GL_TRIANGLE_FAN:
    case GL_POLYGON:
      for (std::size_t i = 2; i < n; ++i) {
        Triangle(v[0], v[i - 1], v[i]);
      }
      break;
    case GL_QUADS:
      for (std::size_t i = 0; i + 3 < n; i += 4) {
        Triangle(v[i], v[i + 1], v[i + 2]);
        Triangle(v[i], v[i + 2], v[i + 3]);
      }
      break;
    case GL_QUAD_STRIP:
      for (std::size_t i = 0; i + 3 < n; i += 2) {
        Triangle(v[i], v[i + 1], v[i + 3]);
        Triangle(v[i], v[i + 3], v[i + 2]);
      }
      break;
    case GL_LINES:
      for (std::size_t i = 0; i + 1 < n; i += 2) {
        Segment(v[i], v[i + 1]);
      }
      break;
    case GL_LINE_STRIP:
      for (std::size_t i = 1; i < n; ++i) {
        Segment(v[i - 1], v[i]);
      }
      break;
    case GL_LINE_LOOP:
      for (std::size_t i = 1; i < n; ++i) {
        Segment(v[i - 1], v[i]);
      }
      if (n > 1) {
        Segment(v[n - 1], v[0]);
      }
      break;
    default:
      break;
  }
}

void Execute(const Command& c);

void Run(const Command& c) {
  State& s = S();
  if (s.compiling) {
    s.lists[s.compiled].push_back(c);
    if (!s.executeWhileCompiling) {
      return;
    }
  }
  Execute(c);
}

void Execute(const Command& c) {
  State& s = S();
  switch (c.kind) {
    case Command::Begin:
      s.mode = static_cast<GLenum>(c.values[0]);
      s.inside = true;
      s.vertices.clear();
      break;
    case Command::End:
      if (s.inside) {
        Expand(s.mode, s.vertices);
      }
      s.inside = false;
      break;
    case Command::Vertex: {
      const Point p{c.values[0], c.values[1], c.values[2]};
      const Point n = s.normalGiven ? TransformNormal(s.stack.back(), s.normal) : Point{0, 0, 0};
      s.vertices.push_back({Transform(s.stack.back(), p), n});
      break;
    }
    case Command::Normal:
      s.normal = {c.values[0], c.values[1], c.values[2]};
      s.normalGiven = true;
      break;
    case Command::Push:
      s.stack.push_back(s.stack.back());
      break;
    case Command::Pop:
      if (s.stack.size() > 1) {
        s.stack.pop_back();
      } else {
        ++s.captured.stackUnderflows;
      }
      break;
    case Command::Mult: {
      Matrix m{};
      for (std::size_t i = 0; i < 16; ++i) {
        m[i] = c.values[i];
      }
      s.stack.back() = Multiply(s.stack.back(), m);
      break;
    }
    case Command::Load:
      s.stack.back() = kIdentity;
      break;
    case Command::CallList: {
      const auto it = s.lists.find(static_cast<GLuint>(c.values[0]));
      if (it != s.lists.end()) {
        const std::vector<Command> commands = it->second;
        for (const Command& inner : commands) {
          Execute(inner);
        }
      }
      break;
    }
  }
}

void Run3(Command::Kind kind, double x, double y, double z) {
  Command c{kind, {}};
  c.values[0] = x;
  c.values[1] = y;
  c.values[2] = z;
  Run(c);
}

void RunMatrix(const Matrix& m) {
  Command c{Command::Mult, {}};
  for (std::size_t i = 0; i < 16; ++i) {
    c.values[i] = m[i];
  }
  Run(c);
}

Matrix Rotation(double degrees, double x, double y, double z) {
  const double length = std::sqrt(x * x + y * y + z * z);
  Matrix r = kIdentity;
  if (length == 0.0) {
    return r;
  }
  x /= length;
  y /= length;
  z /= length;
  const double a = degrees * M_PI / 180.0;
  const double c = std::cos(a), s = std::sin(a), k = 1.0 - c;
  r[0] = x * x * k + c;
  r[1] = y * x * k + z * s;
  r[2] = x * z * k - y * s;
  r[4] = x * y * k - z * s;
  r[5] = y * y * k + c;
  r[6] = y * z * k + x * s;
  r[8] = x * z * k + y * s;
  r[9] = y * z * k - x * s;
  r[10] = z * z * k + c;
  return r;
}

Matrix Translation(double x, double y, double z) {
  Matrix t = kIdentity;
  t[12] = x;
  t[13] = y;
  t[14] = z;
  return t;
}

Matrix Scaling(double x, double y, double z) {
  Matrix t = kIdentity;
  t[0] = x;
  t[5] = y;
  t[10] = z;
  return t;
}

}  // namespace

void ResetCapture() {
  S() = State();
}

Captured TakeCaptured() {
  Captured out = std::move(S().captured);
  S().captured = Captured();
  return out;
}

}  // namespace geometry

using geometry::Command;

// The entry points libGLU, libgle and the library call. Those that carry no geometry are
// accepted and ignored.
extern "C" {

void glBegin(GLenum mode) {
  geometry::Run3(Command::Begin, mode, 0, 0);
}
void glEnd() {
  geometry::Run3(Command::End, 0, 0, 0);
}
void glVertex2f(GLfloat x, GLfloat y) {
  geometry::Run3(Command::Vertex, x, y, 0);
}
void glVertex2fv(const GLfloat* v) {
  geometry::Run3(Command::Vertex, v[0], v[1], 0);
}
void glVertex3d(GLdouble x, GLdouble y, GLdouble z) {
  geometry::Run3(Command::Vertex, x, y, z);
}
void glVertex3dv(const GLdouble* v) {
  geometry::Run3(Command::Vertex, v[0], v[1], v[2]);
}
void glVertex3f(GLfloat x, GLfloat y, GLfloat z) {
  geometry::Run3(Command::Vertex, x, y, z);
}
void glVertex3fv(const GLfloat* v) {
  geometry::Run3(Command::Vertex, v[0], v[1], v[2]);
}
void glNormal3f(GLfloat x, GLfloat y, GLfloat z) {
  geometry::Run3(Command::Normal, x, y, z);
}
void glNormal3fv(const GLfloat* v) {
  geometry::Run3(Command::Normal, v[0], v[1], v[2]);
}
void glNormal3dv(const GLdouble* v) {
  geometry::Run3(Command::Normal, v[0], v[1], v[2]);
}
void glNormal3d(GLdouble x, GLdouble y, GLdouble z) {
  geometry::Run3(Command::Normal, x, y, z);
}
void glTexCoord2d(GLdouble, GLdouble) {}
void glTexCoord2f(GLfloat, GLfloat) {}
void glColor3d(GLdouble, GLdouble, GLdouble) {}
void glColor3f(GLfloat, GLfloat, GLfloat) {}
void glColor3fv(const GLfloat*) {}
void glColor4fv(const GLfloat*) {}
void glMaterialfv(GLenum, GLenum, const GLfloat*) {}
void glEnable(GLenum) {}
void glDisable(GLenum) {}
void glPolygonMode(GLenum, GLenum) {}
void glPushAttrib(GLbitfield) {}
void glPopAttrib() {}
void glMatrixMode(GLenum) {}
GLboolean glIsEnabled(GLenum cap) {
  return cap == GL_LIGHTING ? GL_TRUE : GL_FALSE;
}
void glGetIntegerv(GLenum pname, GLint* v) {
  v[0] = pname == GL_LIGHTING ? 1 : 0;
}
void glGetFloatv(GLenum pname, GLfloat* v) {
  v[0] = pname == GL_LIGHTING ? 1.0f : 0.0f;
}
void glGetDoublev(GLenum pname, GLdouble* v) {
  v[0] = pname == GL_LIGHTING ? 1.0 : 0.0;
}
GLenum glGetError() {
  return GL_NO_ERROR;
}

void glPushMatrix() {
  geometry::Run3(Command::Push, 0, 0, 0);
}
void glPopMatrix() {
  geometry::Run3(Command::Pop, 0, 0, 0);
}
void glLoadIdentity() {
  geometry::Run3(Command::Load, 0, 0, 0);
}
void glMultMatrixd(const GLdouble* m) {
  geometry::Matrix a{};
  for (std::size_t i = 0; i < 16; ++i) {
    a[i] = m[i];
  }
  geometry::RunMatrix(a);
}
void glMultMatrixf(const GLfloat* m) {
  geometry::Matrix a{};
  for (std::size_t i = 0; i < 16; ++i) {
    a[i] = m[i];
  }
  geometry::RunMatrix(a);
}
void glTranslated(GLdouble x, GLdouble y, GLdouble z) {
  geometry::RunMatrix(geometry::Translation(x, y, z));
}
void glTranslatef(GLfloat x, GLfloat y, GLfloat z) {
  geometry::RunMatrix(geometry::Translation(x, y, z));
}
void glRotated(GLdouble a, GLdouble x, GLdouble y, GLdouble z) {
  geometry::RunMatrix(geometry::Rotation(a, x, y, z));
}
void glRotatef(GLfloat a, GLfloat x, GLfloat y, GLfloat z) {
  geometry::RunMatrix(geometry::Rotation(a, x, y, z));
}
void glScalef(GLfloat x, GLfloat y, GLfloat z) {
  geometry::RunMatrix(geometry::Scaling(x, y, z));
}

GLuint glGenLists(GLsizei range) {
  geometry::State& s = geometry::S();
  const GLuint first = s.nextList;
  s.nextList += static_cast<GLuint>(range);
  for (GLuint i = first; i < s.nextList; ++i) {
    s.lists[i];
  }
  return first;
}
GLboolean glIsList(GLuint list) {
  return geometry::S().lists.count(list) != 0 ? GL_TRUE : GL_FALSE;
}
void glDeleteLists(GLuint list, GLsizei range) {
  for (GLuint i = list; i < list + static_cast<GLuint>(range); ++i) {
    geometry::S().lists.erase(i);
  }
}
void glNewList(GLuint list, GLenum mode) {
  geometry::State& s = geometry::S();
  s.lists[list].clear();
  s.compiling = true;
  s.executeWhileCompiling = mode == GL_COMPILE_AND_EXECUTE;
  s.compiled = list;
}
void glEndList() {
  geometry::S().compiling = false;
}
void glCallList(GLuint list) {
  geometry::Run3(Command::CallList, list, 0, 0);
}

}  // extern "C"
