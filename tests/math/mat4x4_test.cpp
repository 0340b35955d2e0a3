#include <lumagrid/mat4x4.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "math/bit_compare.h"
#include "math/random_values.h"
#include "math/reference_math.h"

namespace {

using mathtest::bits;
using mathtest::sameBits;

mat4x4 fromArray(const double (&e)[16]) {
  mat4x4 m;
  std::memcpy(static_cast<double*>(m), e, sizeof e);
  return m;
}

// Index 4c + r; values chosen so that every entry differs.
mat4x4 sample() {
  const double e[16] = {1.0, 2.0,  3.0,  4.0,  5.0,  6.0,  7.0,  8.0,
                        9.0, 10.0, 11.0, 12.0, 13.0, 14.0, 15.0, 16.0};
  return fromArray(e);
}

::testing::AssertionResult bitsEqual(const mat4x4& m, const double* e) {
  const double* a = m;
  for (int i = 0; i < 16; ++i) {
    if (bits(a[i]) != bits(e[i])) {
      return ::testing::AssertionFailure()
             << "index " << i << ": " << a[i] << " vs " << e[i]
             << (std::signbit(a[i]) != std::signbit(e[i]) ? " (sign)" : "");
    }
  }
  return ::testing::AssertionSuccess();
}

::testing::AssertionResult bitsEqual(const mat4x4& m, const mat4x4& n) {
  return bitsEqual(m, static_cast<const double*>(n));
}

// inv() on e gives the reference's success and bits; ok is that success.
::testing::AssertionResult invertsAsTheReference(const double (&e)[16], bool* ok) {
  double expected[16];
  std::memcpy(expected, e, sizeof e);
  *ok = reference::inv(expected);
  mat4x4 m = fromArray(e);
  if (m.inv() != *ok) {
    return ::testing::AssertionFailure() << "inv() returned " << !*ok;
  }
  return bitsEqual(m, expected);
}

mat4x4 diagonal(double a, double b, double c, double d) {
  mat4x4 m;
  m.zero();
  m[0][0] = a;
  m[1][1] = b;
  m[2][2] = c;
  m[3][3] = d;
  return m;
}

TEST(Mat4x4, SubscriptReturnsAColumn) {
  mat4x4 m = sample();
  EXPECT_EQ(m[0], static_cast<double*>(m));
  EXPECT_EQ(m[2], static_cast<double*>(m) + 8);
  EXPECT_EQ(m[1][3], 8.0);
  EXPECT_EQ(m[3][0], 13.0);
  const mat4x4& c = m;
  EXPECT_EQ(c[3][2], 15.0);
  EXPECT_EQ(static_cast<const double*>(c)[5], 6.0);
}

TEST(Mat4x4, SetStoresAtColumnTimesFourPlusRow) {
  mat4x4 m;
  m.zero();
  m.set(3, 1, 7.0);
  EXPECT_EQ(static_cast<double*>(m)[13], 7.0);
  m.set(1, 3, 9.0);
  EXPECT_EQ(static_cast<double*>(m)[7], 9.0);
}

TEST(Mat4x4, ZeroAndIdentity) {
  mat4x4 m = sample();
  m.zero();
  const double zeros[16] = {};
  EXPECT_TRUE(bitsEqual(m, zeros));
  m = sample();
  m.identity();
  const double id[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  EXPECT_TRUE(bitsEqual(m, id));
}

TEST(Mat4x4, CopyAndAssignment) {
  const mat4x4 a = sample();
  mat4x4 b;
  b.copy(a);
  EXPECT_TRUE(bitsEqual(b, a));
  mat4x4 c;
  EXPECT_EQ(&(c = a), &c);
  EXPECT_TRUE(bitsEqual(c, a));
  const mat4x4 d(a);
  EXPECT_TRUE(bitsEqual(d, a));
}

TEST(Mat4x4, SetRowFromVec3dClearsTheLastColumn) {
  mat4x4 m = sample();
  m.setRow(0, vec3d(-1.0, -2.0, -3.0));
  const double e[16] = {-1, 2, 3, 4, -2, 6, 7, 8, -3, 10, 11, 12, 0, 14, 15, 16};
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4, SetRowThreeFromVec3dSetsIndex15ToOne) {
  mat4x4 m = sample();
  m.setRow(3, vec3d(-1.0, -2.0, -3.0));
  const double e[16] = {1, 2, 3, -1, 5, 6, 7, -2, 9, 10, 11, -3, 13, 14, 15, 1};
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4, SetRowFromVec4dSetsAllFour) {
  mat4x4 m = sample();
  m.setRow(2, vec4d(-1.0, -2.0, -3.0, -4.0));
  const double e[16] = {1, 2, -1, 4, 5, 6, -2, 8, 9, 10, -3, 12, 13, 14, -4, 16};
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4, SetColFromVec3dClearsTheBottomRow) {
  mat4x4 m = sample();
  m.setCol(1, vec3d(-1.0, -2.0, -3.0));
  const double e[16] = {1, 2, 3, 4, -1, -2, -3, 0, 9, 10, 11, 12, 13, 14, 15, 16};
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4, SetColThreeFromVec3dSetsIndex15ToOne) {
  mat4x4 m = sample();
  m.setCol(3, vec3d(-1.0, -2.0, -3.0));
  const double e[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, -1, -2, -3, 1};
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4, SetColFromVec4dSetsAllFour) {
  mat4x4 m = sample();
  m.setCol(0, vec4d(-1.0, -2.0, -3.0, -4.0));
  const double e[16] = {-1, -2, -3, -4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4, GetRowAndGetCol) {
  const mat4x4 m = sample();
  const vec3d r = m.getRow(1);
  EXPECT_EQ(r.x(), 2.0);
  EXPECT_EQ(r.y(), 6.0);
  EXPECT_EQ(r.z(), 10.0);
  const vec3d c = m.getCol(3);
  EXPECT_EQ(c.x(), 13.0);
  EXPECT_EQ(c.y(), 14.0);
  EXPECT_EQ(c.z(), 15.0);
}

TEST(Mat4x4, AdditionIsElementWise) {
  const mat4x4 m = sample();
  double twice[16];
  for (int i = 0; i < 16; ++i) {
    twice[i] = 2.0 * (i + 1);
  }
  EXPECT_TRUE(bitsEqual(m + m, twice));
  mat4x4 a;
  a.add(m, m);
  EXPECT_TRUE(bitsEqual(a, twice));
  mat4x4 b = m;
  EXPECT_EQ(&(b += m), &b);
  EXPECT_TRUE(bitsEqual(b, twice));
  EXPECT_TRUE(bitsEqual(+m, m));
}

TEST(Mat4x4, BinaryMinusAdds) {
  const mat4x4 m = sample();
  double twice[16];
  for (int i = 0; i < 16; ++i) {
    twice[i] = 2.0 * (i + 1);
  }
  EXPECT_TRUE(bitsEqual(m - m, twice));
}

TEST(Mat4x4, SubAdds) {
  const mat4x4 m = sample();
  double twice[16];
  for (int i = 0; i < 16; ++i) {
    twice[i] = 2.0 * (i + 1);
  }
  mat4x4 s;
  s.sub(m, m);
  EXPECT_TRUE(bitsEqual(s, twice));
}

TEST(Mat4x4, MinusAssignSubtracts) {
  mat4x4 m = sample();
  EXPECT_EQ(&(m -= m), &m);
  const double zeros[16] = {};
  EXPECT_TRUE(bitsEqual(m, zeros));
  mat4x4 a = sample();
  mat4x4 b = sample();
  b.scalar(0.5);
  a -= b;
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(static_cast<double*>(a)[i], 0.5 * (i + 1)) << i;
  }
}

TEST(Mat4x4, UnaryMinusAndNegFlipSignBits) {
  mat4x4 m;
  m.zero();
  m[1][2] = 3.0;
  const mat4x4 n = -m;
  double e[16];
  for (double& x : e) {
    x = -0.0;
  }
  e[6] = -3.0;
  EXPECT_TRUE(bitsEqual(n, e));
  m.neg();
  EXPECT_TRUE(bitsEqual(m, e));
  m.abs();
  double a[16] = {};
  a[6] = 3.0;
  EXPECT_TRUE(bitsEqual(m, a));
}

TEST(Mat4x4, ScalarMultiplication) {
  const mat4x4 m = sample();
  double half[16];
  for (int i = 0; i < 16; ++i) {
    half[i] = 0.5 * (i + 1);
  }
  EXPECT_TRUE(bitsEqual(m * 0.5, half));
  mat4x4 a = m;
  EXPECT_EQ(&(a *= 0.5), &a);
  EXPECT_TRUE(bitsEqual(a, half));
  mat4x4 b = m;
  b.scalar(0.5);
  EXPECT_TRUE(bitsEqual(b, half));
}

TEST(Mat4x4, TransposeSwapsAcrossTheDiagonal) {
  mat4x4 m = sample();
  m.transpose();
  const double e[16] = {1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16};
  EXPECT_TRUE(bitsEqual(m, e));
  mat4x4 s = sample();
  s.swap();
  EXPECT_TRUE(bitsEqual(s, e));
}

TEST(Mat4x4, ProductActsOnColumnVectors) {
  mat4x4 t;
  t.identity();
  t[3][0] = 5.0;  // translate x by 5
  mat4x4 s;
  s.identity();
  s[0][0] = 2.0;  // scale x by 2
  // t * s scales first, then translates: column 3 keeps the translation.
  const mat4x4 ts = t * s;
  EXPECT_EQ(ts[0][0], 2.0);
  EXPECT_EQ(ts[3][0], 5.0);
  const mat4x4 st = s * t;
  EXPECT_EQ(st[3][0], 10.0);
}

TEST(Mat4x4, ProductOfKnownMatrices) {
  const mat4x4 a = sample();
  mat4x4 b;
  b.identity();
  b[0][1] = 1.0;
  // Column 0 of a * b is a's column 0 plus a's column 1.
  const mat4x4 p = a * b;
  const double e[16] = {6, 8, 10, 12, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  EXPECT_TRUE(bitsEqual(p, e));
}

TEST(Mat4x4, ProductSumsStartFromPositiveZero) {
  mat4x4 a;
  a.zero();
  mat4x4 b;
  for (int i = 0; i < 16; ++i) {
    static_cast<double*>(b)[i] = -1.0;
  }
  // Every term is 0 * -1 = -0; a sum starting from the first term stays -0.
  const mat4x4 p = a * b;
  const double zeros[16] = {};
  EXPECT_TRUE(bitsEqual(p, zeros));
  mat4x4 q;
  q.mul(a, b);
  EXPECT_TRUE(bitsEqual(q, zeros));
}

TEST(Mat4x4, ProductSumsInOrder) {
  mat4x4 a;
  a.zero();
  a[0][0] = 1e16;
  a[1][0] = 1.0;
  a[2][0] = -1e16;
  a[3][0] = 1.0;
  mat4x4 b;
  b.identity();
  for (int i = 0; i < 4; ++i) {
    b[0][i] = 1.0;
  }
  // ((1e16 + 1) - 1e16) + 1 = 1: the first 1 is lost.
  EXPECT_EQ((a * b)[0][0], 1.0);
}

TEST(Mat4x4, TimesAssignMaySquareItself) {
  mat4x4 m = sample();
  const mat4x4 expected = m * m;
  EXPECT_EQ(&(m *= m), &m);
  EXPECT_TRUE(bitsEqual(m, expected));
}

TEST(Mat4x4, ProductMatchesTheReferenceBitForBit) {
  mathtest::RandomValues rng(20240611);
  for (int n = 0; n < 2000; ++n) {
    double a[16];
    double b[16];
    if (n % 2 == 0) {
      rng.fill(a, 16, -10.0, 10.0);
      rng.fill(b, 16, -10.0, 10.0);
    } else {
      rng.fillSmallInts(a, 16);
      rng.fillSmallInts(b, 16);
      for (int i = 0; i < 16; i += 3) {
        b[i] = -b[i];
      }
    }
    double r[16];
    reference::product(r, a, b);
    const mat4x4 ma = fromArray(a);
    const mat4x4 mb = fromArray(b);
    ASSERT_TRUE(bitsEqual(ma * mb, r)) << "case " << n;
    mat4x4 m;
    m.mul(ma, mb);
    ASSERT_TRUE(bitsEqual(m, r)) << "case " << n;
    m = ma;
    m *= mb;
    ASSERT_TRUE(bitsEqual(m, r)) << "case " << n;
  }
}

TEST(Mat4x4, DetOfKnownMatrices) {
  mat4x4 m;
  m.identity();
  EXPECT_EQ(m.det(), 1.0);
  EXPECT_EQ(diagonal(2.0, 3.0, 4.0, 5.0).det(), 120.0);
  EXPECT_EQ(sample().det(), 0.0);
  // Swapping two columns flips the sign.
  mat4x4 p;
  p.zero();
  p[0][1] = 1.0;
  p[1][0] = 1.0;
  p[2][2] = 1.0;
  p[3][3] = 1.0;
  EXPECT_EQ(p.det(), -1.0);
}

TEST(Mat4x4, DetExpandsInItsFixedOrder) {
  mathtest::RandomValues rng(7);
  for (int n = 0; n < 2000; ++n) {
    double e[16];
    rng.fill(e, 16, -3.0, 3.0);
    ASSERT_EQ(bits(fromArray(e).det()), bits(reference::det(e))) << "case " << n;
  }
}

TEST(Mat4x4, AdjointOfADiagonalMatrix) {
  mat4x4 m = diagonal(2.0, 3.0, 4.0, 5.0);
  m.adjoint();
  double e[16] = {};
  e[0] = 60.0;
  e[5] = 40.0;
  e[10] = 30.0;
  e[15] = 24.0;
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(static_cast<double*>(m)[i], e[i]) << i;
  }
}

TEST(Mat4x4, AdjointIsTheTransposedCofactorMatrix) {
  mat4x4 m;
  m.identity();
  m[3][0] = 2.0;  // translation x = 2
  m[1][0] = 3.0;  // shear
  mat4x4 a = m;
  a.adjoint();
  // Integer matrix with det 1: the adjugate is the exact inverse.
  const mat4x4 p = a * m;
  mat4x4 id;
  id.identity();
  EXPECT_TRUE(bitsEqual(p, id));
  EXPECT_EQ(a[3][0], -2.0);
  EXPECT_EQ(a[1][0], -3.0);
}

TEST(Mat4x4, AdjointGivesTheCofactorsBitForBit) {
  const double e[16] = {0.3, -1.7, 2.9, 0.11, 5.3, -0.7, -2.2, 0.01,
                        1.3, 1.9,  0.4, -3.3, 0.6, -0.9, 2.3,  1.1};
  // The adjugate is -7.5097, 10.5787, 5.9651, 18.5501, ... exactly (its product
  // with the matrix is 72.69889 times the identity). The literals are the bits
  // of each 3x3 minor expanded down its first column, as the library does.
  const double expected[16] = {
      -0x1.e09eecbfb15b4p+2, 0x1.5284b5dcc63f0p+3,  0x1.7dc432ca57a7ap+2,  0x1.28cd35a858793p+4,
      -0x1.90b53f7ced916p+5, -0x1.cb5c28f5c28f4p+2, 0x1.022eb1c432ca5p+4,  0x1.abddcc63f1411p+5,
      -0x1.2669ad42c3c9fp+1, -0x1.51d97f62b6ae8p+2, 0x1.26353f7ced916p+3,  0x1.bdc28f5c28f5cp+4,
      -0x1.009ba5e353f7cp+5, -0x1.35c28f5c28f5cp-1, -0x1.28cccccccccccp+3, 0x1.4bd2f1a9fbe76p+5};
  mat4x4 m = fromArray(e);
  m.adjoint();
  EXPECT_TRUE(bitsEqual(m, expected));
}

TEST(Mat4x4, AdjointDoesNotDivideByTheDeterminant) {
  mat4x4 m = diagonal(2.0, 2.0, 2.0, 2.0);
  m.adjoint();
  EXPECT_EQ(m[0][0], 8.0);
}

TEST(Mat4x4, InverseOfIdentityIsIdentity) {
  mat4x4 m;
  m.identity();
  EXPECT_TRUE(m.inv());
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(static_cast<double*>(m)[i], i % 5 == 0 ? 1.0 : 0.0) << i;
  }
}

TEST(Mat4x4, InverseOfSmallDiagonalSucceeds) {
  // Pivots 1, 0.01, 0.01, 0.01: the running product ends at 1e-6.
  mat4x4 m = diagonal(0.01, 0.01, 0.01, 1.0);
  EXPECT_TRUE(m.inv());
  EXPECT_EQ(m[0][0], 1.0 / 0.01);
  EXPECT_EQ(m[1][1], 1.0 / 0.01);
  EXPECT_EQ(m[2][2], 1.0 / 0.01);
  EXPECT_EQ(m[3][3], 1.0);
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      if (i != j) {
        EXPECT_EQ(m[i][j], 0.0) << i << j;
      }
    }
  }
}

TEST(Mat4x4, InverseAcceptsAPivotBelowTheThresholdWhenTheProductIsLarge) {
  // A per-pivot test would reject 1e-8; the product of pivots is 1.
  mat4x4 m = diagonal(1e-8, 1e8, 1.0, 1.0);
  EXPECT_TRUE(m.inv());
  EXPECT_EQ(m[0][0], 1.0 / 1e-8);
  EXPECT_EQ(m[1][1], 1.0 / 1e8);
}

TEST(Mat4x4, InverseFailsWhenThePivotProductFallsBelowTheThreshold) {
  // Each pivot is 0.001 or more, but their product reaches 1e-9.
  mat4x4 m = diagonal(0.001, 0.001, 0.001, 1.0);
  EXPECT_FALSE(m.inv());
}

TEST(Mat4x4, InverseAcceptsAPivotProductOfExactlyTheThreshold) {
  // Pivots 1, 1, 1, 1e-7: the product equals the threshold, which passes.
  mat4x4 m = diagonal(1.0, 1.0, 1.0, 1e-7);
  EXPECT_TRUE(m.inv());
  EXPECT_EQ(m[3][3], 1.0 / 1e-7);
}

TEST(Mat4x4, FailedInverseLeavesThePartlyEliminatedMatrix) {
  mat4x4 m = diagonal(0.001, 0.001, 0.001, 1.0);
  ASSERT_FALSE(m.inv());
  // Step 0 takes the 1 at index 15 and swaps group 0 with group 3 and index
  // 0 with index 3 in every group, negating what moves out; steps 1 and 2
  // invert the 0.001 pivots; step 3 stops before touching anything. The
  // signs of the zeros are those of the products and sums on the way.
  const double k = 1.0 / 0.001;
  const double e[16] = {1.0,  0.0,  -0.0, -0.0,    // group 0: the former index 15
                        -0.0, k,    -0.0, 0.0,     // group 1
                        0.0,  -0.0, k,    0.0,     // group 2
                        0.0,  0.0,  -0.0, 0.001};  // group 3: swapped, not yet pivoted
  EXPECT_TRUE(bitsEqual(m, e));
}

TEST(Mat4x4, FailedInverseMatchesTheReferenceStoppedAtTheSamePivot) {
  double e[16] = {};
  e[0] = e[5] = e[10] = 0.001;
  e[15] = 1.0;
  double expected[16];
  std::memcpy(expected, e, sizeof e);
  // Three full elimination steps, then the fourth pivot fails.
  ASSERT_TRUE(reference::inv(expected, 3));
  mat4x4 m = fromArray(e);
  ASSERT_FALSE(m.inv());
  EXPECT_TRUE(bitsEqual(m, expected));
}

TEST(Mat4x4, FailedInverseOfAZeroMatrixLeavesItUntouched) {
  mat4x4 m;
  m.zero();
  EXPECT_FALSE(m.inv());
  const double zeros[16] = {};
  EXPECT_TRUE(bitsEqual(m, zeros));
}

TEST(Mat4x4, FailedInverseAfterOnePivot) {
  // Rank one: the first pivot (the first 4, group 1 index 0) succeeds, the
  // second finds nothing but zeros.
  double e[16] = {};
  e[0] = 2.0;
  e[2] = 2.0;
  e[4] = 4.0;
  e[6] = 4.0;
  mat4x4 m = fromArray(e);
  ASSERT_FALSE(m.inv());
  double expected[16];
  std::memcpy(expected, e, sizeof e);
  ASSERT_TRUE(reference::inv(expected, 1));
  EXPECT_TRUE(bitsEqual(m, expected));
  // Groups 0 and 1 were exchanged and group 0 divided by the pivot.
  EXPECT_EQ(m[0][0], 0.25);
  EXPECT_EQ(m[0][2], 1.0);
  EXPECT_EQ(m[1][0], 0.5);
}

TEST(Mat4x4, InverseWithOffDiagonalPivotsIsExact) {
  // A scaled permutation: every pivot is off the diagonal, so both kinds of
  // interchange and their undoing are exercised; powers of two keep it exact.
  const double e[16] = {0, 0,   2, 0,   //
                        0, 0,   0, -8,  //
                        4, 0,   0, 0,   //
                        0, 0.5, 0, 0};
  mat4x4 m = fromArray(e);
  const mat4x4 original = m;
  ASSERT_TRUE(m.inv());
  mat4x4 id;
  id.identity();
  EXPECT_TRUE(bitsEqual(m * original, id));
  EXPECT_TRUE(bitsEqual(original * m, id));
  EXPECT_EQ(m[2][0], 0.5);
  EXPECT_EQ(m[0][2], 0.25);
  EXPECT_EQ(m[3][1], -0.125);
  EXPECT_EQ(m[1][3], 2.0);
}

TEST(Mat4x4, InverseWithALargeOffDiagonalValueIsExact) {
  // Unit upper triangular (in groups) with the largest value off the
  // diagonal; its inverse has small integer entries.
  const double e[16] = {1, 8, 0, 0,   //
                        0, 1, 0, 0,   //
                        0, 0, 1, -4,  //
                        0, 0, 0, 1};
  mat4x4 m = fromArray(e);
  ASSERT_TRUE(m.inv());
  const double inverse[16] = {1, -8, 0, 0,  //
                              0, 1,  0, 0,  //
                              0, 0,  1, 4,  //
                              0, 0,  0, 1};
  EXPECT_TRUE(m == fromArray(inverse));
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(static_cast<double*>(m)[i], inverse[i]) << i;
  }
}

TEST(Mat4x4, InverseTakesTheFirstOfEqualPivots) {
  // Every entry has magnitude 1 or 0: the first in scan order must win, and
  // only that choice reproduces the reference's signed zeros.
  mathtest::RandomValues rng(3);
  int checked = 0;
  for (int n = 0; n < 4000; ++n) {
    double e[16];
    rng.fillSmallInts(e, 16, 1);
    bool ok = false;
    ASSERT_TRUE(invertsAsTheReference(e, &ok)) << "case " << n;
    checked += ok ? 1 : 0;
  }
  EXPECT_GT(checked, 500);
}

TEST(Mat4x4, InverseMatchesTheReferenceBitForBit) {
  mathtest::RandomValues rng(42);
  for (int n = 0; n < 5000; ++n) {
    double e[16];
    switch (n % 4) {
      case 0:
        rng.fill(e, 16);
        break;
      case 1:
        rng.fillSmallInts(e, 16, 3);
        break;
      case 2:
        // Small values: the running product often drops below 1e-7.
        rng.fill(e, 16, -0.05, 0.05);
        break;
      default:
        rng.fill(e, 16, -1e3, 1e3);
        for (int i = 0; i < 16; i += 5) {
          e[i] = 0.0;
        }
        break;
    }
    bool ok = false;
    ASSERT_TRUE(invertsAsTheReference(e, &ok)) << "case " << n;
  }
}

TEST(Mat4x4, InverseWithNaNMatchesTheReference) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  mathtest::RandomValues rng(5);
  for (int n = 0; n < 400; ++n) {
    double e[16];
    rng.fill(e, 16);
    e[(n * 7) % 16] = n % 3 == 0 ? inf : nan;
    if (n % 5 == 0) {
      e[(n * 3 + 1) % 16] = -inf;
    }
    double expected[16];
    std::memcpy(expected, e, sizeof e);
    const bool ok = reference::inv(expected);
    mat4x4 m = fromArray(e);
    ASSERT_EQ(m.inv(), ok) << "case " << n;
    const double* got = m;
    for (int i = 0; i < 16; ++i) {
      // NaN payloads may differ; positions and every other value may not.
      if (std::isnan(expected[i])) {
        ASSERT_TRUE(std::isnan(got[i])) << "case " << n << " index " << i;
      } else {
        ASSERT_EQ(bits(got[i]), bits(expected[i])) << "case " << n << " index " << i;
      }
    }
  }
}

TEST(Mat4x4, ReorthogonalizeOnceLeavesAnOrthonormalMatrix) {
  mat4x4 m;
  m.identity();
  const double c = std::cos(0.3);
  const double s = std::sin(0.3);
  m[0][0] = c;
  m[0][1] = s;
  m[1][0] = -s;
  m[1][1] = c;
  const mat4x4 before = m;
  m.reorthogonalize(1);
  EXPECT_TRUE(bitsEqual(m, before));
}

TEST(Mat4x4, ReorthogonalizeTurnsNegativeZerosPositive) {
  // n <= 1 multiplies by the identity with sums from +0.
  mat4x4 m;
  m.identity();
  m.neg();
  ASSERT_TRUE(std::signbit(m[0][1]));
  m.reorthogonalize(0);
  EXPECT_TRUE(bitsEqual(m, diagonal(-1.0, -1.0, -1.0, -1.0)));
}

TEST(Mat4x4, ReorthogonalizeTwiceOfIdentityIsZero) {
  // Q = I'I + I = 2I, so S = I - 0.5 * 2I = 0.
  mat4x4 m;
  m.identity();
  m.reorthogonalize(2);
  const double zeros[16] = {};
  EXPECT_TRUE(bitsEqual(m, zeros));
}

TEST(Mat4x4, ReorthogonalizeSumsTheSeriesOfMtMPlusIdentity) {
  mathtest::RandomValues rng(9);
  for (int n = 1; n <= 12; ++n) {
    double e[16];
    rng.fill(e, 16, -0.6, 0.6);
    mat4x4 m = fromArray(e);
    m.reorthogonalize(n);

    static const double coeff[10] = {
        1.0,         -0.5,         0.375,          -0.3125,           0.2734375,
        -0.24609375, 0.2255859375, -0.20947265625, 0.196380615234375, -0.1854705810546875};
    double t[16];
    for (int c = 0; c < 4; ++c) {
      for (int r = 0; r < 4; ++r) {
        t[4 * c + r] = e[4 * r + c];
      }
    }
    double mtm[16];
    reference::product(mtm, t, e);
    double q[16];
    for (int i = 0; i < 16; ++i) {
      q[i] = mtm[i] + (i % 5 == 0 ? 1.0 : 0.0);
    }
    double s[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    double p[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const int terms = n < 10 ? n : 10;
    for (int j = 1; j < terms; ++j) {
      double x[16];
      reference::product(x, p, q);
      std::memcpy(p, x, sizeof x);
      for (int i = 0; i < 16; ++i) {
        s[i] = s[i] + x[i] * coeff[j];
      }
    }
    double expected[16];
    reference::product(expected, e, s);
    ASSERT_TRUE(bitsEqual(m, expected)) << "n = " << n;
  }
}

TEST(Mat4x4, ReorthogonalizeStopsAtTenTerms) {
  mat4x4 a = diagonal(0.5, 0.25, 0.125, 0.75);
  mat4x4 b = a;
  a.reorthogonalize(10);
  b.reorthogonalize(25);
  EXPECT_TRUE(bitsEqual(a, b));
}

TEST(Mat4x4, EqualityAcceptsADifferenceOfExactlyTheTolerance) {
  mat4x4 a;
  a.zero();
  mat4x4 b = a;
  b[2][1] = 1e-10;
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a != b);
  b[2][1] = 2e-10;
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a != b);
}

TEST(Mat4x4, CmpUsesItsTolerance) {
  mat4x4 a = sample();
  mat4x4 b = sample();
  b[3][3] += 0.5;
  EXPECT_TRUE(a.cmp(b, 0.5));
  EXPECT_FALSE(a.cmp(b, 0.25));
}

TEST(Mat4x4, CmpLetsNaNPass) {
  mat4x4 a;
  a.identity();
  mat4x4 b = a;
  b[1][1] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(a == b);
  EXPECT_TRUE(b.cmp(a, 0.0));
  EXPECT_FALSE(a != b);
}

}  // namespace
