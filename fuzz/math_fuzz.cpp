// Feeds the math toolkit any bit pattern and checks what must hold for every
// input where it is defined. Most of the value is in the paths the sanitizers
// get to see; the checks keep to what the arithmetic guarantees.
//
// Input: a sequence of operations. Each starts with one byte: its low seven
// bits pick the operation (modulo kOpCount), its high bit picks how the
// operation's numbers are read: clear for Tame() values, set for Raw() bit
// patterns. The operations work on a current matrix and quaternion, so that
// they compose. This file reads and dispatches them; the checks live with
// their types in math_*_checks.cpp.

#include "math_fuzz.h"

#include <cstddef>
#include <cstdint>

namespace mathfuzz {
namespace {

enum Op : int {
  kLoadMatrix,
  kLoadQuat,
  kVec3Normalize,
  kVec3Perp,
  kCubic,
  kVec3Misc,
  kVec4Misc,
  kDetAdjoint,
  kInverse,
  kReorthogonalize,
  kArithmetic,
  kRowsCols,
  kAxisTransforms,
  kVectorProducts,
  kQuatFromMatrix,
  kSlerp,
  kQuatAlgebra,
  kRot,
  kAlign,
  kOrient,
  kMirror,
  kProj,
  kXform,
  kRotateBy,
  kOutput,
  kOpCount
};

void Step(MathState& fz, const int op) {
  switch (op) {
    case kLoadMatrix:
      fz.matrix = fz.Matrix();
      break;
    case kLoadQuat:
      fz.quat = fz.Quat();
      break;
    case kVec3Normalize:
      Vec3Normalize(fz);
      break;
    case kVec3Perp:
      Vec3Perp(fz);
      break;
    case kCubic:
      Cubic(fz);
      break;
    case kVec3Misc:
      Vec3Misc(fz);
      break;
    case kVec4Misc:
      Vec4Misc(fz);
      break;
    case kDetAdjoint:
      DetAdjoint(fz);
      break;
    case kInverse:
      Inverse(fz);
      break;
    case kReorthogonalize:
      Reorthogonalize(fz);
      break;
    case kArithmetic:
      Arithmetic(fz);
      break;
    case kRowsCols:
      RowsCols(fz);
      break;
    case kAxisTransforms:
      AxisTransforms(fz);
      break;
    case kVectorProducts:
      VectorProducts(fz);
      break;
    case kQuatFromMatrix:
      QuatFromMatrix(fz);
      break;
    case kSlerp:
      Slerp(fz);
      break;
    case kQuatAlgebra:
      QuatAlgebra(fz);
      break;
    case kRot:
      Rot(fz);
      break;
    case kAlign:
      Align(fz);
      break;
    case kOrient:
      Orient(fz);
      break;
    case kMirror:
      Mirror(fz);
      break;
    case kProj:
      Proj(fz);
      break;
    case kXform:
      Xform(fz);
      break;
    case kRotateBy:
      RotateBy(fz);
      break;
    case kOutput:
      Output(fz);
      break;
    default:
      break;
  }
}

}  // namespace
}  // namespace mathfuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  mathfuzz::MathState fz(in);
  while (!in.Empty()) {
    const int b = in.Byte();
    in.SetTame((b & 0x80) == 0);
    mathfuzz::Step(fz, (b & 0x7F) % mathfuzz::kOpCount);
  }
  return 0;
}
