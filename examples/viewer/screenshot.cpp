#include "screenshot.h"

#include <lumagrid/testing/PngFile.h>

#include <GL/gl.h>

#include <cstddef>
#include <vector>

namespace viewer {

bool saveScreenshot(const std::string& path, int width, int height, std::string* error) {
  std::vector<unsigned char> rgb(static_cast<std::size_t>(width) *
                                 static_cast<std::size_t>(height) * 3);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());

  return headless::writePng(path, width, height, 3, rgb.data(), error);
}

}  // namespace viewer
