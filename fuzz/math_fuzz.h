#ifndef LUMAGRID_FUZZ_MATH_FUZZ_H
#define LUMAGRID_FUZZ_MATH_FUZZ_H

// What the math checks share: the state the operations compose through, the
// readers of their values, the predicates, and one entry point per operation.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include "fuzz_input.h"
#include "math/bit_compare.h"      // from tests/support/
#include "math/matrix_equality.h"  // from tests/support/
#include "math/reference_math.h"   // from tests/support/
#include "math/tolerance.h"        // from src/

#include <cmath>

namespace mathfuzz {

using lumagrid::detail::kTolerance;
using mathtest::equalNoNaN;
using mathtest::equalOrBothNaN;
using mathtest::sameBitsAll;

// The input, and the current matrix and quaternion that operations read and
// replace, so that they compose.
struct MathState {
  explicit MathState(FuzzInput& input) : in(input) {
    matrix.identity();
    quat.identity();
  }

  double Num() { return in.Number(); }
  vec3d Vec3() {
    const double x = Num();
    const double y = Num();
    const double z = Num();
    return vec3d(x, y, z);
  }
  vec4d Vec4() {
    const double x = Num();
    const double y = Num();
    const double z = Num();
    const double w = Num();
    return vec4d(x, y, z, w);
  }
  MQuat Quat() {
    const vec4d v = Vec4();
    return MQuat(v.x(), v.y(), v.z(), v.w());
  }
  // n vectors, read in turn.
  void Vec3s(vec3d* out, int n) {
    for (int i = 0; i < n; ++i) {
      out[i] = Vec3();
    }
  }
  mat4x4 Matrix() {
    mat4x4 m;
    double* e = m;
    for (int k = 0; k < 16; ++k) {
      e[k] = Num();
    }
    return m;
  }
  // t for interpolations: tame ones stay within [-2, 3].
  double Param() {
    if (in.IsTame()) {
      return std::fmod(Num(), 5.0) / 2.0 + 0.5;
    }
    return Num();
  }

  FuzzInput& in;
  mat4x4 matrix;
  MQuat quat;
};

// ------------------------------------------------------------ predicates

// The sixteen values, column by column.
inline const double* Elements(const mat4x4& m) {
  return static_cast<const double*>(m);
}

inline bool Finite(const double d) {
  return std::isfinite(d);
}
inline bool Finite(const vec3d& v) {
  return Finite(v.x()) && Finite(v.y()) && Finite(v.z());
}
inline bool Finite(const vec4d& v) {
  return Finite(v.x()) && Finite(v.y()) && Finite(v.z()) && Finite(v.w());
}
inline bool Finite(const MQuat& q) {
  return Finite(q.x) && Finite(q.y) && Finite(q.z) && Finite(q.w);
}
inline bool Finite(const mat4x4& m) {
  for (int k = 0; k < 16; ++k) {
    if (!Finite(Elements(m)[k])) {
      return false;
    }
  }
  return true;
}

inline mat4x4 Identity() {
  mat4x4 m;
  m.identity();
  return m;
}

inline bool Equal(const vec3d& a, const vec3d& b) {
  return a.x() == b.x() && a.y() == b.y() && a.z() == b.z();
}

// A multiple of 1/64 within [-512, 512], as FuzzInput::Tame() gives: sums
// of a few products of such values are exact.
inline bool IsTame(const double d) {
  return std::fabs(d) <= 512.0 && std::floor(d * 64.0) == d * 64.0;
}
inline bool IsTame(const mat4x4& m) {
  for (int k = 0; k < 16; ++k) {
    if (!IsTame(Elements(m)[k])) {
      return false;
    }
  }
  return true;
}

inline bool IsZero(const vec3d& v) {
  return v.x() == 0.0 && v.y() == 0.0 && v.z() == 0.0;
}

// ------------------------------------------------------------ operations

// vec3d and vec4d (math_vector_checks.cpp).
void Vec3Normalize(MathState& fz);
void Vec3Perp(MathState& fz);
void Cubic(MathState& fz);
void Vec3Misc(MathState& fz);
void Vec4Misc(MathState& fz);

// mat4x4 on its own (math_matrix_checks.cpp).
void DetAdjoint(MathState& fz);
void Inverse(MathState& fz);
void Reorthogonalize(MathState& fz);
void Arithmetic(MathState& fz);
void RowsCols(MathState& fz);

// mat4x4 builders and mat4x4 acting on vectors (math_transform_checks.cpp).
void AxisTransforms(MathState& fz);
void VectorProducts(MathState& fz);
void Align(MathState& fz);
void Orient(MathState& fz);
void Mirror(MathState& fz);
void Proj(MathState& fz);
void Xform(MathState& fz);
void RotateBy(MathState& fz);

// MQuat and MRot (math_quat_checks.cpp).
void QuatFromMatrix(MathState& fz);
void Slerp(MathState& fz);
void QuatAlgebra(MathState& fz);
void Rot(MathState& fz);

// Text output of every type (math_output_checks.cpp).
void Output(MathState& fz);

}  // namespace mathfuzz

#endif
