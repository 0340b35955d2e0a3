#ifndef LUMAGRID_TESTS_SUPPORT_RECORDED_DRAWCOUNTS_H
#define LUMAGRID_TESTS_SUPPORT_RECORDED_DRAWCOUNTS_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/testing/GLRecorder.h>

#include <cstddef>

// Draws the shape on a cleared log and returns how many lists that draw
// compiled; the log keeps the draw's calls for further checks.
inline std::size_t ListsCompiledByDraw(CGLObject& shape) {
  glrecorder::recorder().clearCalls();
  shape.Draw();
  return glrecorder::recorder().count("glNewList");
}

#endif
