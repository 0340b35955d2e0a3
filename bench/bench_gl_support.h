// Glue shared by the benchmarks that draw: the program's headless llvmpipe
// context, and the calls a shape's Draw() makes for it, issued by hand. Inline,
// so the hand-made side costs what it would written out in place.
#pragma once

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include <lumagrid/CGLObject.h>
#include <lumagrid/testing/EglContext.h>

#include "bench_support.h"

namespace bench {

// Made current on first use; without it there is nothing to measure.
inline headless::EglContext& glContext() {
  static headless::EglContext context(64, 64);
  if (!context.ok()) {
    std::fprintf(stderr, "no GL context: %s\n", context.error().c_str());
    std::exit(1);
  }
  return context;
}

// Column-major, as glMultMatrixd takes it.
inline std::array<double, 16> translation(double x, double y) {
  std::array<double, 16> m{};
  for (std::size_t k = 0; k < 16; k += 5) {
    m[k] = 1.0;
  }
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

// A shape that can be marked out of date without touching its transform,
// so that every iteration recompiles the same geometry.
template <class Shape>
class Recompiled : public Shape {
 public:
  using Shape::Shape;
  void Invalidate() { this->m_bModified = true; }
};

// A shape whose list is empty: the draw then costs only the pipeline.
class EmptyShape : public CGLObject {
 public:
  long DisplayListMake() override {
    return DisplayListCompile([] {});
  }
};

// Times the scene's draw, its lists compiled once beforehand.
template <class Scene, class State>
void drawEachIteration(Scene& scene, State& state) {
  scene.DrawGLShapes();  // compiles every list once
  glFinish();
  for (auto _ : state) {
    scene.DrawGLShapes();
  }
  glFinish();
}

// Times the shape's list compile, one rebuild an iteration.
template <class Shape, class State>
void compileEachIteration(Recompiled<Shape>& shape, State& state) {
  shape.DisplayListMake();
  for (auto _ : state) {
    shape.Invalidate();
    benchmark::DoNotOptimize(shape.DisplayListMake());
  }
  glFinish();
}

// Times the same calls compiled into a list by hand.
template <class Emit, class State>
void compileByHandEachIteration(Emit&& emit, State& state) {
  const GLuint list = glGenLists(1);
  for (auto _ : state) {
    glNewList(list, GL_COMPILE);
    emit();
    glEndList();
  }
  glFinish();
  glDeleteLists(list, 1);
}

}  // namespace bench
