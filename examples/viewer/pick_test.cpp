#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "pick.h"

namespace {

using viewer::IdColour;
using viewer::idColour;
using viewer::IdImage;
using viewer::indexOfColour;
using viewer::pickAt;

bool sameColour(IdColour a, IdColour b) {
  return a.r == b.r && a.g == b.g && a.b == b.b;
}

// A width x height ID image, bottom row first, every pixel background until painted.
IdImage blankImage(int width, int height) {
  IdImage image;
  image.width = width;
  image.height = height;
  image.rgba.assign(static_cast<std::size_t>(width * height * 4), 0);
  return image;
}

// Paints the pixel (x, y) counted from the bottom-left corner, as OpenGL stores it.
void paint(IdImage& image, int x, int glRow, std::size_t index) {
  const IdColour c = idColour(index);
  const std::size_t at = static_cast<std::size_t>((glRow * image.width + x) * 4);
  image.rgba[at] = c.r;
  image.rgba[at + 1] = c.g;
  image.rgba[at + 2] = c.b;
  image.rgba[at + 3] = 255;
}

TEST(IdColour, FirstShapeIsOneStepAboveBlack) {
  EXPECT_TRUE(sameColour(idColour(0), IdColour{1, 0, 0}));
  EXPECT_TRUE(sameColour(idColour(255), IdColour{0, 1, 0}));
  EXPECT_TRUE(sameColour(idColour(65535), IdColour{0, 0, 1}));
}

TEST(IdColour, EncodeThenDecodeGivesTheIndexBack) {
  for (std::size_t index :
       {std::size_t{0}, std::size_t{1}, std::size_t{254}, std::size_t{255}, std::size_t{256},
        std::size_t{65534}, std::size_t{65535}, std::size_t{65536}, viewer::kMaxPickable - 1}) {
    EXPECT_EQ(indexOfColour(idColour(index)), std::optional<std::size_t>(index)) << index;
  }
}

TEST(IdColour, NoShapeIsBlack) {
  for (std::size_t index = 0; index < 70000; ++index) {
    const IdColour c = idColour(index);
    ASSERT_FALSE(c.r == 0 && c.g == 0 && c.b == 0) << index;
  }
}

TEST(IdColour, BlackIsTheBackground) {
  EXPECT_EQ(indexOfColour({0, 0, 0}), std::nullopt);
}

TEST(PickAt, MapsAPixelToTheShapeDrawnThere) {
  IdImage image = blankImage(4, 3);
  paint(image, 1, 2, 7);    // top row in OpenGL's order
  paint(image, 2, 0, 300);  // bottom row
  EXPECT_EQ(pickAt(image, 1, 0, 400), std::optional<std::size_t>(7));
  EXPECT_EQ(pickAt(image, 2, 2, 400), std::optional<std::size_t>(300));
}

TEST(PickAt, CountsRowsFromTheTopLikeTheMouse) {
  IdImage image = blankImage(2, 2);
  paint(image, 0, 0, 5);  // bottom-left in OpenGL's order
  EXPECT_EQ(pickAt(image, 0, 1, 10), std::optional<std::size_t>(5));
  EXPECT_EQ(pickAt(image, 0, 0, 10), std::nullopt);
}

TEST(PickAt, BackgroundPicksNothing) {
  IdImage image = blankImage(3, 3);
  paint(image, 1, 1, 2);
  EXPECT_EQ(pickAt(image, 0, 0, 10), std::nullopt);
  EXPECT_EQ(pickAt(image, 2, 1, 10), std::nullopt);
}

TEST(PickAt, OutsideTheImagePicksNothing) {
  IdImage image = blankImage(2, 2);
  paint(image, 0, 0, 0);
  paint(image, 1, 1, 0);
  EXPECT_EQ(pickAt(image, -1, 0, 1), std::nullopt);
  EXPECT_EQ(pickAt(image, 0, -1, 1), std::nullopt);
  EXPECT_EQ(pickAt(image, 2, 0, 1), std::nullopt);
  EXPECT_EQ(pickAt(image, 0, 2, 1), std::nullopt);
}

TEST(PickAt, AColourNoShapeHasPicksNothing) {
  IdImage image = blankImage(1, 1);
  paint(image, 0, 0, 12);
  EXPECT_EQ(pickAt(image, 0, 0, 12), std::nullopt);
  EXPECT_EQ(pickAt(image, 0, 0, 13), std::optional<std::size_t>(12));
}

TEST(PickAt, AShortBufferPicksNothing) {
  IdImage image = blankImage(2, 2);
  image.rgba.resize(4);
  EXPECT_EQ(pickAt(image, 0, 0, 10), std::nullopt);
}

}  // namespace
