#ifndef LUMAGRID_SRC_MATH_QUAT_PRODUCT_H
#define LUMAGRID_SRC_MATH_QUAT_PRODUCT_H

#include <lumagrid/MQuat.h>

namespace lumagrid::detail {

// Hamilton product a * b; both operands are read before anything is written.
inline MQuat quatProductPlain(const MQuat& a, const MQuat& b) {
  return MQuat(
      a.x * b.w + a.w * b.x + a.y * b.z - a.z * b.y, a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z,
      a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z);
}

// quatProductSse2() is in the public header, inline for hosts.
[[gnu::always_inline]] inline MQuat quatProduct(const MQuat& a, const MQuat& b) {
#if defined(LUMAGRID_INLINE_KERNELS)
  return quatProductSse2(a, b);
#else
  return quatProductPlain(a, b);
#endif
}

}  // namespace lumagrid::detail

#endif
