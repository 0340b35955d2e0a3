#ifndef LUMAGRID_TESTS_SUPPORT_RENDER_ORTHORENDERTEST_H
#define LUMAGRID_TESTS_SUPPORT_RENDER_ORTHORENDERTEST_H

#include <GL/gl.h>

#include "realgl/RealGLTest.h"

// The render fixture seen in scene units: its glOrtho(-2, 2, -2, 2, ...) over
// 128 x 128 pixels gives 32 pixels a unit, the origin at pixel (64, 64).
class OrthoRenderTest : public headless::RealGLTest {
 protected:
  // The pixel under the point (x, y) of the scene.
  headless::Rgba at(double x, double y) const {
    return pixel(static_cast<int>((x + 2.0) * 32.0), static_cast<int>((y + 2.0) * 32.0));
  }

  // Anything but the black background.
  static bool drawn(const headless::Rgba& p) { return p.r != 0 || p.g != 0 || p.b != 0; }

  // Any pixel drawn within one pixel of (x, y).
  bool drawnNear(double x, double y) const {
    for (int dx = -1; dx <= 1; ++dx) {
      for (int dy = -1; dy <= 1; ++dy) {
        if (drawn(at(x + dx / 32.0, y + dy / 32.0))) {
          return true;
        }
      }
    }
    return false;
  }

  static GLint modelviewDepth() {
    GLint depth = 0;
    glGetIntegerv(GL_MODELVIEW_STACK_DEPTH, &depth);
    return depth;
  }
};

#endif
