#ifndef LUMAGRID_TESTS_SUPPORT_MATH_REFERENCE_MATH_H
#define LUMAGRID_TESTS_SUPPORT_MATH_REFERENCE_MATH_H

// Plain, unoptimised restatements of the matrix algorithms, element by
// element in their defined evaluation order. The library's versions must
// match them bit for bit.

#include <cmath>

namespace reference {

inline void product(double* r, const double* a, const double* b) {
  for (int c = 0; c < 4; ++c) {
    for (int row = 0; row < 4; ++row) {
      double s = 0.0;
      s = s + a[row] * b[4 * c];
      s = s + a[4 + row] * b[4 * c + 1];
      s = s + a[8 + row] * b[4 * c + 2];
      s = s + a[12 + row] * b[4 * c + 3];
      r[4 * c + row] = s;
    }
  }
}

inline double det3(double a, double b, double c, double d, double e, double f, double g, double h,
                   double i) {
  const double t0 = e * i - f * h;
  const double t1 = b * i - c * h;
  const double t2 = b * f - c * e;
  double s = t0 * a;
  s = s - t1 * d;
  s = s + t2 * g;
  return s;
}

inline double det(const double* e) {
  const double d0 = det3(e[5], e[6], e[7], e[9], e[10], e[11], e[13], e[14], e[15]);
  const double d1 = det3(e[1], e[2], e[3], e[9], e[10], e[11], e[13], e[14], e[15]);
  const double d2 = det3(e[1], e[2], e[3], e[5], e[6], e[7], e[13], e[14], e[15]);
  const double d3 = det3(e[1], e[2], e[3], e[5], e[6], e[7], e[9], e[10], e[11]);
  double s = e[0] * d0;
  s = s - e[4] * d1;
  s = s + e[8] * d2;
  s = s - e[12] * d3;
  return s;
}

// Gauss-Jordan with full pivoting; a[r][c] is e[4r + c]. Stops after
// `steps` eliminations when asked to, to show intermediate states.
inline bool inv(double* e, int steps = 4) {
  auto a = [e](int r, int c) -> double& { return e[4 * r + c]; };
  int P[4] = {0, 1, 2, 3};
  int Q[4] = {0, 1, 2, 3};
  double d = 1.0;
  for (int k = 0; k < steps; ++k) {
    double p = a(k, k);
    P[k] = k;
    Q[k] = k;
    for (int r = k; r < 4; ++r) {
      for (int c = k; c < 4; ++c) {
        if (std::fabs(a(r, c)) > std::fabs(p)) {
          p = a(r, c);
          P[k] = r;
          Q[k] = c;
        }
      }
    }
    d = d * p;
    if (std::fabs(d) < 1e-7) {
      return false;
    }
    if (P[k] != k) {
      for (int c = 0; c < 4; ++c) {
        const double old = a(k, c);
        a(k, c) = a(P[k], c);
        a(P[k], c) = -old;
      }
    }
    if (Q[k] != k) {
      for (int r = 0; r < 4; ++r) {
        const double old = a(r, k);
        a(r, k) = a(r, Q[k]);
        a(r, Q[k]) = -old;
      }
    }
    for (int r = 0; r < 4; ++r) {
      if (r != k) {
        a(r, k) = -(a(r, k) / p);
      }
    }
    for (int r = 0; r < 4; ++r) {
      for (int c = 0; c < 4; ++c) {
        if (r != k && c != k) {
          a(r, c) = a(r, k) * a(k, c) + a(r, c);
        }
      }
    }
    for (int c = 0; c < 4; ++c) {
      if (c != k) {
        a(k, c) = a(k, c) / p;
      }
    }
    a(k, k) = 1.0 / p;
  }
  if (steps < 4) {
    return true;
  }
  for (int k = 2; k >= 0; --k) {
    if (Q[k] != k) {
      for (int c = 0; c < 4; ++c) {
        const double old = a(k, c);
        a(k, c) = -a(Q[k], c);
        a(Q[k], c) = old;
      }
    }
    if (P[k] != k) {
      for (int r = 0; r < 4; ++r) {
        const double old = a(r, k);
        a(r, k) = -a(r, P[k]);
        a(r, P[k]) = old;
      }
    }
  }
  return true;
}

}  // namespace reference

#endif
