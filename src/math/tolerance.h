#ifndef LUMAGRID_SRC_MATH_TOLERANCE_H
#define LUMAGRID_SRC_MATH_TOLERANCE_H

namespace lumagrid::detail {

// The toolkit's one absolute tolerance: the default of every comparison and
// the bound below which a length, weight or sine counts as zero.
inline constexpr double kTolerance = 1e-10;

}  // namespace lumagrid::detail

#endif
