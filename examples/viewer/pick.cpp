#include "pick.h"

namespace viewer {

IdColour idColour(std::size_t index) {
  const std::size_t id = index + 1;
  return {static_cast<std::uint8_t>(id & 0xFFu), static_cast<std::uint8_t>((id >> 8) & 0xFFu),
          static_cast<std::uint8_t>((id >> 16) & 0xFFu)};
}

std::optional<std::size_t> indexOfColour(IdColour colour) {
  const std::size_t id = static_cast<std::size_t>(colour.r) |
                         static_cast<std::size_t>(colour.g) << 8 |
                         static_cast<std::size_t>(colour.b) << 16;
  if (id == 0) {
    return std::nullopt;
  }
  return id - 1;
}

std::optional<std::size_t> pickAt(const IdImage& image, int x, int y, std::size_t shapeCount) {
  if (x < 0 || y < 0 || x >= image.width || y >= image.height) {
    return std::nullopt;
  }
  const std::size_t row = static_cast<std::size_t>(image.height - 1 - y);
  const std::size_t at =
      (row * static_cast<std::size_t>(image.width) + static_cast<std::size_t>(x)) * 4;
  if (at + 3 >= image.rgba.size()) {
    return std::nullopt;
  }
  const std::optional<std::size_t> index =
      indexOfColour({image.rgba[at], image.rgba[at + 1], image.rgba[at + 2]});
  if (!index || *index >= shapeCount) {
    return std::nullopt;
  }
  return index;
}

}  // namespace viewer
