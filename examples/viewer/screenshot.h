// Writing what was drawn into a PNG file.
#pragma once

#include <string>

namespace viewer {

// Reads width x height pixels from the current read buffer (the back buffer before a swap) and
// writes them as an RGB PNG. Returns false and says why in *error.
bool saveScreenshot(const std::string& path, int width, int height, std::string* error);

}  // namespace viewer
