// A small stroke font for labels: A-Z, 0-9, space and - . , ( ) / : + =, each glyph a few
// line strips on a 4 x 6 grid. Other characters draw as a blank.
#pragma once

#include <string>
#include <vector>

namespace gallery {

struct Segment {
  double x0;
  double y0;
  double x1;
  double y1;
};

// The segments of text, its baseline starting at (x, y), glyphs height units tall, y up.
std::vector<Segment> strokeText(const std::string& text, double x, double y, double height);

// Width of text drawn height units tall.
double strokeWidth(const std::string& text, double height);

}  // namespace gallery
