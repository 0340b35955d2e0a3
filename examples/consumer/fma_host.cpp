// A host built with fused multiply-adds (-O3 -mfma -ffp-contract=fast) still gets the library's
// bits from the inline point transform and quaternion product: each product is rounded on its
// own, then summed in a fixed order, whatever the host's flags. The batch transform gives the
// same bits as the inline one, point by point.
#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>

#include <cmath>
#include <iostream>
#include <vector>

namespace {

// a * b rounded on its own: the volatile keeps this host's compiler from fusing it into a sum.
double rounded(double a, double b) {
  volatile double p = a * b;
  return p;
}

// The library's point transform, product by product: each row x, y, z, then the translation.
bool transformMatches(const mat4x4& m, vec3d p) {
  const double* e = m;
  const double x = p.x(), y = p.y(), z = p.z();
  m.transform(p);  // inline in this host
  for (int row = 0; row < 3; ++row) {
    const double expected =
        ((rounded(e[row], x) + rounded(e[4 + row], y)) + rounded(e[8 + row], z)) + e[12 + row];
    if (static_cast<const double*>(p)[row] != expected) {
      return false;
    }
  }
  return true;
}

// The library's Hamilton product, product by product, in its order.
bool productMatches(const MQuat& a, const MQuat& b) {
  const MQuat q = a * b;  // inline in this host
  return q.x == rounded(a.x, b.w) + rounded(a.w, b.x) + rounded(a.y, b.z) - rounded(a.z, b.y) &&
         q.y == rounded(a.w, b.y) + rounded(a.y, b.w) + rounded(a.z, b.x) - rounded(a.x, b.z) &&
         q.z == rounded(a.w, b.z) + rounded(a.z, b.w) + rounded(a.x, b.y) - rounded(a.y, b.x) &&
         q.w == rounded(a.w, b.w) - rounded(a.x, b.x) - rounded(a.y, b.y) - rounded(a.z, b.z);
}

// The batch transform, out of line, beside the inline single transform in this host: the same
// bits for every point.
int batchDiffers(const mat4x4& m, const std::vector<vec3d>& points) {
  std::vector<vec3d> moved(points.size());
  m.transform(points.data(), moved.data(), points.size());
  int differ = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const vec3d single = m * points[i];  // inline in this host
    for (int k = 0; k < 3; ++k) {
      differ += moved[i][k] == single[k] ? 0 : 1;
    }
  }
  return differ;
}

}  // namespace

int main() {
  int differ = 0;
  for (int i = 1; i <= 1000; ++i) {
    const double t = i;
    mat4x4 m;
    m.loadRotateZ(0.001 * t);
    m.rotateX(std::sin(t));
    m.translate(std::cos(t), 0.1 * t, 1.0 / t);
    differ += transformMatches(m, vec3d(std::sin(2 * t), 1.0 / (t + 2), std::cos(3 * t))) ? 0 : 1;
    const MQuat a(std::sin(t), std::cos(t), 0.1 * t, 1.0 / t);
    const MQuat b(std::cos(5 * t), 1.0 / (t + 1), std::sin(7 * t), 0.3);
    differ += productMatches(a, b) ? 0 : 1;
  }
  mat4x4 m;
  m.loadRotate(MQuat(0.1, 0.2, 0.3, 0.9));
  m.translate(1.0, -2.0, 0.5);
  std::vector<vec3d> points;
  for (int i = 1; i <= 1000; ++i) {
    points.emplace_back(std::sin(11.0 * i), 1.0 / i, std::cos(13.0 * i));
  }
  differ += batchDiffers(m, points);
  std::cout << (differ == 0 ? "the inline kernels gave the library's bits 3000 times out of 3000\n"
                            : "the inline kernels differed from the library's bits\n");
  return differ == 0 ? 0 : 1;
}
