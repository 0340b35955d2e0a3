/// @file
/// Writing pixels read back from OpenGL into a PNG file (Lumagrid::headless).
#pragma once

#include <string>

namespace headless {

/// Writes width x height pixels of `channels` bytes each (3: RGB, 4: RGBA), rows bottom first as
/// glReadPixels gives them, as a PNG with the top row first.
/// @return false on failure, saying why in `*why` when `why` is not null.
bool writePng(const std::string& path, int width, int height, int channels,
              const unsigned char* pixels, std::string* why = nullptr);

}  // namespace headless
