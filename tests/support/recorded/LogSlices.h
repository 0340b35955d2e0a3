#ifndef LUMAGRID_TESTS_SUPPORT_RECORDED_LOGSLICES_H
#define LUMAGRID_TESTS_SUPPORT_RECORDED_LOGSLICES_H

#include <lumagrid/CGLObject.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>

// Parts of the recorded log that tests compare whole.

// The lines from the first glNewList to the next glEndList, both included.
inline std::vector<std::string> CompiledBlock(const std::vector<std::string>& log) {
  std::vector<std::string> block;
  bool inside = false;
  for (const std::string& l : log) {
    if (l.rfind("glNewList(", 0) == 0) {
      inside = true;
    }
    if (inside) {
      block.push_back(l);
    }
    if (inside && l == "glEndList()") {
      break;
    }
  }
  return block;
}

// Builds the shape's list outside Draw and returns what the list holds.
inline std::vector<std::string> CompiledBody(CGLObject& shape) {
  glrecorder::recorder().clearCalls();
  EXPECT_EQ(shape.DisplayListMake(), 0);
  const std::vector<GLuint> names = glrecorder::recorder().listNames();
  if (names.size() != 1) {
    return {"<" + std::to_string(names.size()) + " lists>"};
  }
  return glrecorder::recorder().listLog(names.front());
}

// Lines of the log that are calls of GLU.
inline std::vector<std::string> GluLines(const std::vector<std::string>& log) {
  std::vector<std::string> out;
  for (const std::string& l : log) {
    if (l.rfind("glu", 0) == 0) {
      out.push_back(l);
    }
  }
  return out;
}

// The executed calls of one entry point, list contents included.
inline std::vector<std::string> ExecutedNamed(const std::string& name) {
  std::vector<std::string> out;
  for (const glrecorder::Call& c : glrecorder::recorder().executedCalls()) {
    if (c.name == name) {
      out.push_back(c.str());
    }
  }
  return out;
}

#endif
