#include <lumagrid/CGLMatrixGuard.h>

#include <GL/gl.h>

namespace {

int ModelViewDepth() {
  GLint depth = 0;
  glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
  return depth;
}

// Runs f with the model-view stack current, then gives back the caller's mode.
template <class F>
void OnModelView(F&& f) {
  GLint mode = GL_MODELVIEW;
  glGetIntegerv(GL_MATRIX_MODE, &mode);
  if (mode != GL_MODELVIEW) {
    glMatrixMode(GL_MODELVIEW);
  }
  f();
  if (mode != GL_MODELVIEW) {
    glMatrixMode(static_cast<GLenum>(mode));
  }
}

}  // namespace

CGLMatrixGuard::CGLMatrixGuard(int spares) : m_adMatrix(), m_nDepth(0) {
  OnModelView([&] {
    glGetDoublev(GL_MODELVIEW_MATRIX, m_adMatrix);
    m_nDepth = ModelViewDepth();
    GLint maxDepth = 0;
    glGetIntegerv(GL_MAX_MODELVIEW_STACK_DEPTH, &maxDepth);
    // A push at the maximum depth would only raise GL_STACK_OVERFLOW.
    int room = maxDepth - m_nDepth;
    for (int i = 0; i < spares && i < room; ++i) {
      glPushMatrix();
    }
  });
}

CGLMatrixGuard::~CGLMatrixGuard() {
  OnModelView([&] {
    int depth = ModelViewDepth();
    for (; depth > m_nDepth; --depth) {
      glPopMatrix();
    }
    for (; depth < m_nDepth; ++depth) {
      glPushMatrix();
    }
    // Same as glLoadMatrixd, with the two calls every GL 1.1 has.
    glLoadIdentity();
    glMultMatrixd(m_adMatrix);
  });
}
