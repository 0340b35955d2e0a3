#ifndef LUMAGRID_SRC_MATH_ANGLES_H
#define LUMAGRID_SRC_MATH_ANGLES_H

namespace lumagrid::detail {

// π, its half and its double, to the last bit of a double.
inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kHalfPi = 1.5707963267948966;
inline constexpr double kTwoPi = 6.283185307179586;
static_assert(kHalfPi == kPi / 2.0, "half of pi, exactly");
static_assert(kTwoPi == 2.0 * kPi, "twice pi, exactly");

// Degrees to radians rounded to single precision, as the spring's hooks and
// twist have always been turned.
inline constexpr double kDegreeF = 0.01745329238474369;
static_assert(kDegreeF == static_cast<double>(static_cast<float>(kPi / 180.0)),
              "pi / 180 held in a float");

}  // namespace lumagrid::detail

#endif
