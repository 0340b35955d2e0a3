#ifndef LUMAGRID_SRC_MATH_POINT_BATCH_H
#define LUMAGRID_SRC_MATH_POINT_BATCH_H

#include <lumagrid/vec3d.h>

#include <cstddef>

namespace lumagrid::detail {

// The kernels behind mat4x4::transform(in, out, n), each moving the n points
// in by the sixteen values m into out with the bits of the single point
// transform, point by point in order. All are built everywhere the library
// is, so that tests can hold each to the plain one; the member picks the
// fastest the processor runs.
void transformPointsPlain(const double* m, const vec3d* in, vec3d* out, std::size_t n);

// Whether this build has the two-lane and the four-lane (AVX) kernels.
bool haveSse2PointBatch();
bool haveAvxPointBatch();

// Each falls back to the plain kernel where this build lacks it; the AVX one
// also needs a processor with AVX (runsAvx()).
void transformPointsSse2(const double* m, const vec3d* in, vec3d* out, std::size_t n);
void transformPointsAvx(const double* m, const vec3d* in, vec3d* out, std::size_t n);

// Whether this processor and its operating system run AVX code.
bool runsAvx();

}  // namespace lumagrid::detail

#endif
