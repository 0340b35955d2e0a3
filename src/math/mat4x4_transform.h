#ifndef LUMAGRID_SRC_MATH_MAT4X4_TRANSFORM_H
#define LUMAGRID_SRC_MATH_MAT4X4_TRANSFORM_H

namespace lumagrid::detail {

// The point in (three values) moved by the sixteen values m into out, the
// plain path: transformPointSse2() gives the same bits. The upper three
// rows, each summed x, y, z, then the translation. out may be in.
inline void transformPointPlain(const double* m, const double* in, double* out) {
  const double x = in[0];
  const double y = in[1];
  const double z = in[2];
  out[0] = x * m[0] + y * m[4] + z * m[8] + m[12];
  out[1] = x * m[1] + y * m[5] + z * m[9] + m[13];
  out[2] = x * m[2] + y * m[6] + z * m[10] + m[14];
}

// The same in place.
inline void transformPointPlain(const double* m, double* v) {
  transformPointPlain(m, v, v);
}

}  // namespace lumagrid::detail

#endif
