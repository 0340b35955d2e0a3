// A program with the real libGL beside the double that calls glPointSize, which the double lacks:
// unrecordedEntryPoints() must name it, and only it.
#include <GL/gl.h>

#include <iostream>
#include <string>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>

int main() {
  glrec::recorder().reset();
  glEnable(GL_LIGHTING);  // the double's
  glPointSize(2.0f);      // libGL's: no context, so nothing happens
  const std::vector<std::string> missed = glrec::unrecordedEntryPoints();
  for (const std::string& name : missed) {
    std::cout << "unrecorded: " << name << '\n';
  }
  const bool recorded = glrec::recorder().count("glEnable") == 1;
  return (recorded && missed == std::vector<std::string>{"glPointSize"}) ? 0 : 1;
}
