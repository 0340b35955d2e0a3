#ifndef LUMAGRID_TESTS_SUPPORT_MATH_ANY_QUAT_H
#define LUMAGRID_TESTS_SUPPORT_MATH_ANY_QUAT_H

#include <lumagrid/MQuat.h>

#include "math/random_values.h"

namespace mathtest {

// Four values of any kind (ordinary, wide exponents, zeros, infinities,
// denormals, NaN), drawn x, y, z, w in that order.
inline MQuat anyQuat(RandomValues& values) {
  const double x = values.anyKind();
  const double y = values.anyKind();
  const double z = values.anyKind();
  const double w = values.anyKind();
  return MQuat(x, y, z, w);
}

}  // namespace mathtest

#endif
