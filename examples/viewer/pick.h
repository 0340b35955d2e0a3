// Picking by colour: every shape is drawn in a flat colour that encodes its index, and the pixel
// under the cursor names the shape. These functions are pure; the drawing is in id_pass.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace viewer {

struct IdColour {
  std::uint8_t r;
  std::uint8_t g;
  std::uint8_t b;
};

// Black is the background, so index i is drawn as i + 1 over 24 bits, red the low byte.
constexpr std::size_t kMaxPickable = 0xFFFFFEu;

// The colour of shape index (index < kMaxPickable).
IdColour idColour(std::size_t index);

// The index whose colour this is, or none for the background.
std::optional<std::size_t> indexOfColour(IdColour colour);

// A read-back ID pass: RGBA, bottom row first, as glReadPixels returns it.
struct IdImage {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgba;
};

// The shape under window pixel (x, y), counted from the top-left corner as mouse events are: none
// for the background, a pixel outside the image, or a colour that no shape of shapeCount has.
std::optional<std::size_t> pickAt(const IdImage& image, int x, int y, std::size_t shapeCount);

}  // namespace viewer
