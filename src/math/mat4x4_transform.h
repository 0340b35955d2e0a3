#ifndef LUMAGRID_SRC_MATH_MAT4X4_TRANSFORM_H
#define LUMAGRID_SRC_MATH_MAT4X4_TRANSFORM_H

namespace lumagrid::detail {

// The point v (three values) moved by the sixteen values m in place, the
// plain path: transformPointSse2() gives the same bits. The upper three
// rows, each summed x, y, z, then the translation.
inline void transformPointPlain(const double* m, double* v) {
  const double x = v[0];
  const double y = v[1];
  const double z = v[2];
  v[0] = x * m[0] + y * m[4] + z * m[8] + m[12];
  v[1] = x * m[1] + y * m[5] + z * m[9] + m[13];
  v[2] = x * m[2] + y * m[6] + z * m[10] + m[14];
}

}  // namespace lumagrid::detail

#endif
