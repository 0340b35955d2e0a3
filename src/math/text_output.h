#ifndef LUMAGRID_SRC_MATH_TEXT_OUTPUT_H
#define LUMAGRID_SRC_MATH_TEXT_OUTPUT_H

#include <ostream>

namespace lumagrid {

// Writes "(x, y, z,w)": the last separator has no space. Shared by every
// four-component math type.
std::ostream& writeFour(std::ostream& os, double x, double y, double z, double w);

}  // namespace lumagrid

#endif
