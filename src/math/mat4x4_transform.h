#ifndef LUMAGRID_SRC_MATH_MAT4X4_TRANSFORM_H
#define LUMAGRID_SRC_MATH_MAT4X4_TRANSFORM_H

#include <lumagrid/mat4x4.h>

namespace lumagrid::detail {

// The point v (three values) moved by the sixteen values m in place: the
// upper three rows, each summed x, y, z, then the translation.
inline void transformPointPlain(const double* m, double* v) {
  const double x = v[0];
  const double y = v[1];
  const double z = v[2];
  v[0] = x * m[0] + y * m[4] + z * m[8] + m[12];
  v[1] = x * m[1] + y * m[5] + z * m[9] + m[13];
  v[2] = x * m[2] + y * m[6] + z * m[10] + m[14];
}

// transformPointSse2() is in the public header, inline for hosts.
[[gnu::always_inline]] inline void transformPoint(const double* m, double* v) {
#if defined(LUMAGRID_INLINE_KERNELS)
  transformPointSse2(m, v);
#else
  transformPointPlain(m, v);
#endif
}

}  // namespace lumagrid::detail

#endif
