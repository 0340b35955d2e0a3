#ifndef LUMAGRID_TESTS_SUPPORT_STANDIN_QUADSHAPE_H
#define LUMAGRID_TESTS_SUPPORT_STANDIN_QUADSHAPE_H

#include <lumagrid/CGLObject.h>

#include <GL/gl.h>

// A shape of the tests' own: one GL_QUADS quad of half-size s in z = 0, built
// through the base's display-list protocol. It draws the same against the
// recording double and in a real context.
class QuadShape : public CGLObject {
 public:
  explicit QuadShape(float s = 0.5f) : m_fHalf(s) {}
  using CGLObject::m_bModified;
  using CGLObject::m_matrix;
  using CGLObject::m_nDisplayList;

  long DisplayListMake() override {
    return DisplayListCompile([this] { Emit(); });
  }
  long DrawDirect() override {
    return DrawImmediate([this] { Emit(); });
  }

  void Emit() const {
    glBegin(GL_QUADS);
    {
      glNormal3f(0.0f, 0.0f, 1.0f);
      glVertex3f(-m_fHalf, -m_fHalf, 0.0f);
      glVertex3f(m_fHalf, -m_fHalf, 0.0f);
      glVertex3f(m_fHalf, m_fHalf, 0.0f);
      glVertex3f(-m_fHalf, m_fHalf, 0.0f);
    }
    glEnd();
  }

  float m_fHalf;
};

#endif
