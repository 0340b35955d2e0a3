#ifndef LUMAGRID_SRC_MATH_MAT4X4_INVERSE_H
#define LUMAGRID_SRC_MATH_MAT4X4_INVERSE_H

#include <lumagrid/math_kernels.h>  // LUMAGRID_INLINE_KERNELS

namespace lumagrid::detail {

// Inverts the sixteen values of a mat4x4 in place by Gauss-Jordan
// elimination with full pivoting. False when the running product of the
// pivots falls below 1e-7 in magnitude; the values are then left partly
// eliminated, as they stood at that moment.
bool invertInPlace(double* m);

// invertInPlace() one value at a time.
bool invertInPlacePlain(double* m);

#if defined(LUMAGRID_INLINE_KERNELS)
// invertInPlace() two values at a time, with the same bits.
bool invertInPlaceSse2(double* m);
#endif

}  // namespace lumagrid::detail

#endif
