#include "math/mat4x4_inverse.h"

#include "math/mat4x4_pivoting.h"

// Gauss-Jordan elimination with full pivoting, in place. Write a(r, c) for
// m[4r + c]: r selects the group of four that mat4x4::operator[] returns.

namespace lumagrid::detail {
namespace {

// a(r, c) is m[4r + c].
struct Rows {
  double* m;
  double& operator()(int r, int c) const { return m[4 * r + c]; }
};

// Row i takes row j and row j takes minus row i; exchanging j with i again
// undoes it.
inline void swapRows(Rows a, int i, int j) {
  for (int c = 0; c < 4; ++c) {
    const double t = a(i, c);
    a(i, c) = a(j, c);
    a(j, c) = -t;
  }
}

// The same for columns i and j.
inline void swapColumns(Rows a, int i, int j) {
  for (int r = 0; r < 4; ++r) {
    const double t = a(r, i);
    a(r, i) = a(r, j);
    a(r, j) = -t;
  }
}

// With the pivot p at a(k, k): a(r, k) = -(a(r, k) / p) in the other rows,
// then a(r, c) = a(r, k) * a(k, c) + a(r, c); a(k, c) = a(k, c) / p and
// a(k, k) = 1 / p. Column k reads 1.0 in the pivot row and -0.0 in the
// others, so that f * 1.0 + -0.0 leaves exactly f there and every row is
// updated by one expression across all four columns.
template <int k>
inline void eliminate(Rows a) {
  const double p = a(k, k);
  double pivotRow[4] = {a(k, 0), a(k, 1), a(k, 2), a(k, 3)};
  pivotRow[k] = 1.0;
  forEach<4>([&](auto r) {
    if constexpr (r != k) {
      double row[4] = {a(r, 0), a(r, 1), a(r, 2), a(r, 3)};
      const double f = -(row[k] / p);
      row[k] = -0.0;
      forEach<4>([&](auto c) { a(r, c) = f * pivotRow[c] + row[c]; });
    }
  });
  forEach<4>([&](auto c) { a(k, c) = pivotRow[c] / p; });
}

// Step k, unless the running product of the pivots falls below the
// threshold; |d p| rounds like |d| |p|, so the magnitudes alone decide.
template <int k>
[[gnu::always_inline]] inline bool step(Rows a, double& product, Pivot* pivots) {
  double largest;
  const Pivot p = findPivot<k>(a, largest);
  product *= largest;
  if (product < kPivotTiny) {
    return false;
  }
  unlessAt<k>(p.row, [a](int q) { swapRows(a, k, q); });
  unlessAt<k>(p.col, [a](int q) { swapColumns(a, k, q); });
  eliminate<k>(a);
  pivots[k] = p;
  return true;
}

}  // namespace

bool invertInPlacePlain(double* m) {
  const Rows a{m};
  Pivot pivots[4];
  double product = 1.0;
  if (!(step<0>(a, product, pivots) && step<1>(a, product, pivots) && step<2>(a, product, pivots) &&
        step<3>(a, product, pivots))) {
    // Left partly eliminated, as it stands.
    return false;
  }
  // Undo the exchanges in reverse: the pivot's column numbers a row of the
  // inverse, and its row a column.
  forEach<3>([&](auto j) {
    constexpr int k = 2 - j;
    unlessAt<k>(pivots[k].col, [a](int q) { swapRows(a, q, k); });
    unlessAt<k>(pivots[k].row, [a](int q) { swapColumns(a, q, k); });
  });
  return true;
}

bool invertInPlace(double* m) {
#if defined(LUMAGRID_INLINE_KERNELS)
  return invertInPlaceSse2(m);
#else
  return invertInPlacePlain(m);
#endif
}

}  // namespace lumagrid::detail
