#include "gallery_layout.h"

#include <algorithm>
#include <cmath>

namespace gallery {
namespace {

// Share of a cell's height under the shape, for its label.
constexpr double kLabelShare = 0.14;

}  // namespace

Layout::Layout(std::size_t cells, int width, int height)
    : cells_(std::max<std::size_t>(cells, 1)),
      width_(width),
      height_(height),
      columns_(1),
      rows_(1) {
  // The fewest rows whose cells come closest to square.
  double best = -1.0;
  for (int c = 1; c <= static_cast<int>(cells_); ++c) {
    const int r = static_cast<int>((cells_ + static_cast<std::size_t>(c) - 1) / c);
    const double w = static_cast<double>(width_) / c;
    const double h = static_cast<double>(height_) / r;
    const double squareness = std::min(w, h) / std::max(w, h);
    if (squareness > best + 1e-9) {
      best = squareness;
      columns_ = c;
      rows_ = r;
    }
  }
}

Rect Layout::cell(std::size_t i) const {
  const int c = static_cast<int>(i % static_cast<std::size_t>(columns_));
  const int r = static_cast<int>(i / static_cast<std::size_t>(columns_));
  const int x0 = c * width_ / columns_;
  const int x1 = (c + 1) * width_ / columns_;
  const int y0 = r * height_ / rows_;
  const int y1 = (r + 1) * height_ / rows_;
  return {x0, y0, x1 - x0, y1 - y0};
}

Rect Layout::shapeArea(std::size_t i) const {
  Rect r = cell(i);
  r.height -= static_cast<int>(std::lround(r.height * kLabelShare));
  return r;
}

Rect Layout::labelArea(std::size_t i) const {
  const Rect c = cell(i);
  const Rect s = shapeArea(i);
  return {c.x, c.y + s.height, c.width, c.height - s.height};
}

double Layout::worldHeight() const {
  return kCellHeight * rows_;
}

double Layout::worldWidth() const {
  return worldHeight() * width_ / height_;
}

Point2 Layout::shapeCentre(std::size_t i) const {
  const Rect s = shapeArea(i);
  const double perPixel = worldHeight() / height_;
  const double px = s.x + s.width * 0.5;
  const double py = s.y + s.height * 0.5;
  return {(px - width_ * 0.5) * perPixel, (height_ * 0.5 - py) * perPixel};
}

double Layout::shapeScale() const {
  const Rect s = shapeArea(0);
  const double perPixel = worldHeight() / height_;
  return std::min(s.width, s.height) * perPixel / (kCellHeight * (1.0 - kLabelShare));
}

}  // namespace gallery
