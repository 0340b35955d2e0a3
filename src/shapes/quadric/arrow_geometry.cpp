#include "shapes/quadric/arrow_geometry.h"

namespace lumagrid::detail {

ArrowGeometry BuildArrowGeometry(double length, double radius, bool lite, int arrowNum,
                                 double fracLength, double fracRadius, int slices, int stacks) {
  const double shaftLength = length * fracLength;
  const double shaftRadius = radius * fracRadius;
  const double headLength = (1.0 - fracLength) * length;
  const int headSlices = lite ? 4 : slices;
  const int headStacks = lite ? 2 : stacks;
  // arrowNum - 1 without overflowing for the smallest count.
  const int extraHeads = arrowNum > 1 ? arrowNum - 1 : 0;
  return {lite,
          {shaftRadius, shaftRadius, shaftLength, slices, stacks},
          extraHeads,
          {radius, radius * 0.5, headLength * 0.5, headSlices, headStacks},
          {radius, 0.0, headLength, headSlices, headStacks}};
}

}  // namespace lumagrid::detail
