#ifndef LUMAGRID_SRC_MATH_QUAT_PRODUCT_H
#define LUMAGRID_SRC_MATH_QUAT_PRODUCT_H

#include <lumagrid/MQuat.h>

namespace lumagrid::detail {

// Hamilton product a * b, the plain path: quatProductSse2() gives the same
// bits. Both operands are read before anything is written.
inline MQuat quatProductPlain(const MQuat& a, const MQuat& b) {
  return MQuat(
      a.x * b.w + a.w * b.x + a.y * b.z - a.z * b.y, a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z,
      a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z);
}

}  // namespace lumagrid::detail

#endif
