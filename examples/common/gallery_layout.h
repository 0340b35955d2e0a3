// Where each cell of the gallery sits, in pixels and in world units. The camera maps the world's
// z = 0 plane exactly onto the picture, so both agree.
#pragma once

#include <cstddef>

namespace gallery {

// Pixel rectangle, x from the left and y from the top.
struct Rect {
  int x;
  int y;
  int width;
  int height;
};

struct Point2 {
  double x;
  double y;
};

class Layout {
 public:
  Layout(std::size_t cells, int width, int height);

  std::size_t cells() const { return cells_; }
  int columns() const { return columns_; }
  int rows() const { return rows_; }
  int width() const { return width_; }
  int height() const { return height_; }

  Rect cell(std::size_t i) const;
  // The part of a cell the shape is drawn in, and the band under it for the label.
  Rect shapeArea(std::size_t i) const;
  Rect labelArea(std::size_t i) const;

  // World units: a cell is kCellHeight tall; the shape's centre, and the factor that makes a
  // shape built for a kCellHeight square fit the cell.
  static constexpr double kCellHeight = 3.0;
  double worldWidth() const;
  double worldHeight() const;
  Point2 shapeCentre(std::size_t i) const;
  double shapeScale() const;

 private:
  std::size_t cells_;
  int width_;
  int height_;
  int columns_;
  int rows_;
};

}  // namespace gallery
