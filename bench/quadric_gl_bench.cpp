// The quadric shapes' display lists compiled and replayed through Lumagrid,
// beside the same GLU and GL calls made by hand, in one headless llvmpipe
// context, at the default tessellation (128 slices, 8 stacks).

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLSphere.h>

#include <GL/gl.h>
#include <GL/glu.h>
#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "bench_gl_support.h"

namespace {

// ---------------------------------------------------------------- by hand

// The calls each shape compiles, issued directly.
void HandSphere(GLUquadric* q) {
  gluSphere(q, 1.0, 128, 8);
}

void HandCylinder(GLUquadric* q) {
  gluQuadricOrientation(q, GLU_OUTSIDE);
  gluCylinder(q, 1.0, 1.0, 1.0, 128, 8);
  gluQuadricOrientation(q, GLU_INSIDE);
  gluDisk(q, 0.0, 1.0, 128, 1);
  glPushMatrix();
  {
    gluQuadricOrientation(q, GLU_OUTSIDE);
    glTranslated(0.0, 0.0, 1.0);
    gluDisk(q, 0.0, 1.0, 128, 1);
  }
  glPopMatrix();
}

void HandArrow(GLUquadric* q) {
  const double s = 1.0 * 0.8, r = 0.2 * 0.4, h = (1.0 - 0.8) * 1.0;
  glColor3d(0.5, 0.5, 0.5);
  gluQuadricOrientation(q, GLU_OUTSIDE);
  gluCylinder(q, r, r, s, 128, 8);
  gluQuadricOrientation(q, GLU_INSIDE);
  gluDisk(q, 0.0, r, 128, 1);
  gluQuadricOrientation(q, GLU_OUTSIDE);
  glTranslated(0.0, 0.0, s);
  gluDisk(q, 0.0, r, 128, 1);
  gluQuadricOrientation(q, GLU_OUTSIDE);
  gluCylinder(q, 0.2, 0.0, h, 128, 8);
  gluQuadricOrientation(q, GLU_INSIDE);
  gluDisk(q, 0.0, 0.2, 128, 1);
}

// ---------------------------------------------------------------- compile

template <class Shape>
void CompileLumagrid(benchmark::State& state) {
  bench::glContext();
  bench::Recompiled<Shape> shape;
  bench::compileEachIteration(shape, state);
}

template <void (*Emit)(GLUquadric*)>
void CompileGlu(benchmark::State& state) {
  bench::glContext();
  GLUquadric* q = gluNewQuadric();
  bench::compileByHandEachIteration([q] { Emit(q); }, state);
  gluDeleteQuadric(q);
}

// ---------------------------------------------------------------- replay

const float kGrey[4] = {0.5f, 0.5f, 0.5f, 1.0f};

template <class Shape>
void ReplayLumagrid(benchmark::State& state) {
  bench::glContext();
  Shape shape;
  shape.Draw();
  glFinish();
  for (auto _ : state) {
    shape.Draw();
    glFinish();
  }
}

template <void (*Emit)(GLUquadric*)>
void ReplayGl(benchmark::State& state) {
  bench::glContext();
  GLUquadric* q = gluNewQuadric();
  const GLuint list = glGenLists(1);
  glNewList(list, GL_COMPILE);
  Emit(q);
  glEndList();
  const std::array<double, 16> identity = bench::translation(0.0, 0.0);
  glFinish();
  for (auto _ : state) {
    bench::drawByHand(identity, kGrey, list);
    glFinish();
  }
  glDeleteLists(list, 1);
  gluDeleteQuadric(q);
}

using Bench = void (*)(benchmark::State&);

// Each quadric's benchmarks: its compile, then its replay, each through the library and by hand.
struct Quadric {
  const char* name;
  Bench compileLumagrid;
  Bench compileGlu;
  Bench replayLumagrid;
  Bench replayGl;
};

const Quadric kQuadrics[] = {
    {"sphere", CompileLumagrid<CGLSphere>, CompileGlu<HandSphere>, ReplayLumagrid<CGLSphere>,
     ReplayGl<HandSphere>},
    {"cylinder", CompileLumagrid<CGLCylinder>, CompileGlu<HandCylinder>,
     ReplayLumagrid<CGLCylinder>, ReplayGl<HandCylinder>},
    {"arrow", CompileLumagrid<CGLArrow>, CompileGlu<HandArrow>, ReplayLumagrid<CGLArrow>,
     ReplayGl<HandArrow>},
};

}  // namespace

int main(int argc, char** argv) {
  // Every compile first, then every replay: the table lists them in this order.
  for (const Quadric& q : kQuadrics) {
    benchmark::RegisterBenchmark((std::string(q.name) + "_compile/lumagrid").c_str(),
                                 q.compileLumagrid);
    benchmark::RegisterBenchmark((std::string(q.name) + "_compile/glu").c_str(), q.compileGlu);
  }
  for (const Quadric& q : kQuadrics) {
    benchmark::RegisterBenchmark((std::string(q.name) + "_replay/lumagrid").c_str(),
                                 q.replayLumagrid);
    benchmark::RegisterBenchmark((std::string(q.name) + "_replay/gl").c_str(), q.replayGl);
  }
  return bench::runRegistered(argc, argv);
}
