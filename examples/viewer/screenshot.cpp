#include "screenshot.h"

#include <GL/gl.h>
#include <png.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace viewer {

bool saveScreenshot(const std::string& path, int width, int height, std::string* error) {
  std::vector<unsigned char> rgb(static_cast<std::size_t>(width) *
                                 static_cast<std::size_t>(height) * 3);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());

  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = PNG_FORMAT_RGB;
  // OpenGL's rows run bottom to top: a negative stride writes them top first.
  const png_int_32 stride = -static_cast<png_int_32>(width * 3);
  if (png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), stride, nullptr) == 0) {
    *error = std::string("libpng: ") + image.message;
    png_image_free(&image);
    return false;
  }
  return true;
}

}  // namespace viewer
