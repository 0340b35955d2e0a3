// Glue shared by the benchmarks that draw: the program's headless llvmpipe
// context, and the calls a shape's Draw() makes for it, issued by hand. Inline,
// so the hand-made side costs what it would written out in place.
#pragma once

#include <GL/gl.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "eglfixture/EglContext.h"

namespace bench {

// Made current on first use; without it there is nothing to measure.
inline eglfixture::EglContext& glContext() {
  static eglfixture::EglContext context(64, 64);
  if (!context.ok()) {
    std::fprintf(stderr, "no GL context: %s\n", context.error().c_str());
    std::exit(1);
  }
  return context;
}

// Column-major, as glMultMatrixd takes it.
inline std::array<double, 16> translation(double x, double y) {
  std::array<double, 16> m{};
  for (std::size_t k = 0; k < 16; k += 5)
    m[k] = 1.0;
  m[12] = x;
  m[13] = y;
  return m;
}

// One compiled shape drawn in place: its transform and material around its list.
// The list is taken by reference so that it is read at glCallList, as in code written in place.
inline void drawByHand(const std::array<double, 16>& matrix, const float (&color)[4],
                       const GLuint& list) {
  glPushMatrix();
  {
    glMultMatrixd(matrix.data());
    glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, color);
    glCallList(list);
  }
  glPopMatrix();
}

}  // namespace bench
