#include <lumagrid/testing/PngFile.h>

#include <png.h>

#include <cstring>

namespace headless {

bool writePng(const std::string& path, int width, int height, int channels,
              const unsigned char* pixels, std::string* why) {
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = channels == 4 ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
  // A negative stride writes the bottom-up GL rows top row first.
  const png_int_32 stride = -static_cast<png_int_32>(width * channels);
  if (png_image_write_to_file(&image, path.c_str(), 0, pixels, stride, nullptr) == 0) {
    if (why != nullptr) {
      *why = std::string("libpng: ") + image.message;
    }
    png_image_free(&image);
    return false;
  }
  return true;
}

}  // namespace headless
