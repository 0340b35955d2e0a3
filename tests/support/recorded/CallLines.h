#ifndef LUMAGRID_TESTS_SUPPORT_RECORDED_CALLLINES_H
#define LUMAGRID_TESTS_SUPPORT_RECORDED_CALLLINES_H

#include <lumagrid/mat4x4.h>
#include <lumagrid/testing/GLRecorder.h>

#include <GL/gl.h>

#include <array>
#include <string>
#include <vector>

// Expected log lines of the calls every drawable makes, built the way the
// recorder prints them.

inline std::string MultLine(const mat4x4& m) {
  return glrecorder::line("glMultMatrixd", glrecorder::doubles(m, 16));
}

inline std::string MaterialLine(float r, float g, float b, float a) {
  const std::array<float, 4> c = {r, g, b, a};
  return glrecorder::line("glMaterialfv", glrecorder::en(GL_FRONT),
                          glrecorder::en(GL_AMBIENT_AND_DIFFUSE), c);
}

// The geometry QuadShape(s) emits.
inline std::vector<std::string> QuadLines(float s) {
  return {
      "glBegin(GL_QUADS)",
      "glNormal3f(0, 0, 1)",
      glrecorder::line("glVertex3f", -s, -s, 0.0f),
      glrecorder::line("glVertex3f", s, -s, 0.0f),
      glrecorder::line("glVertex3f", s, s, 0.0f),
      glrecorder::line("glVertex3f", -s, s, 0.0f),
      "glEnd()",
  };
}

// The parts one after the other.
inline std::vector<std::string> Join(const std::vector<std::vector<std::string>>& parts) {
  std::vector<std::string> all;
  for (const auto& p : parts) {
    all.insert(all.end(), p.begin(), p.end());
  }
  return all;
}

#endif
