#include "gltf/node_matrix.h"

#include <cmath>

namespace lumagrid::detail {
namespace {

// Columns far more nearly orthogonal than a float can tell apart: a glTF reader decomposing
// the matrix in single precision finds a rotation and a scale.
constexpr double kOrthogonality = 1e-9;

double Dot(const double* a, const double* b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

vec3d Normalised(const vec3d& v) {
  const double length = std::sqrt(v.x() * v.x() + v.y() * v.y() + v.z() * v.z());
  if (!(length > 0.0) || !std::isfinite(length)) {
    // A singular matrix flattens some normals away; any unit normal will do for them.
    return vec3d(0.0, 0.0, 1.0);
  }
  return vec3d(v.x() / length, v.y() / length, v.z() / length);
}

}  // namespace

bool IsRotationScaleTranslation(const GlMatrix& m) {
  if (m[3] != 0.0 || m[7] != 0.0 || m[11] != 0.0 || m[15] != 1.0) {
    return false;
  }
  const double* columns[] = {&m[0], &m[4], &m[8]};
  double lengths[3];
  for (int i = 0; i < 3; ++i) {
    lengths[i] = std::sqrt(Dot(columns[i], columns[i]));
    if (!(lengths[i] > 0.0)) {
      return false;
    }
  }
  for (int i = 0; i < 3; ++i) {
    for (int j = i + 1; j < 3; ++j) {
      if (std::fabs(Dot(columns[i], columns[j])) > kOrthogonality * lengths[i] * lengths[j]) {
        return false;
      }
    }
  }
  return true;
}

void ApplyToMesh(const GlMatrix& m, Mesh& mesh) {
  // a(r, c) of the upper 3x3; its cofactors are det(a) times the inverse transpose.
  auto a = [&m](int r, int c) { return m[static_cast<std::size_t>(4 * c + r)]; };
  double cofactor[3][3];
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) {
      const int r1 = (r + 1) % 3;
      const int r2 = (r + 2) % 3;
      const int c1 = (c + 1) % 3;
      const int c2 = (c + 2) % 3;
      cofactor[r][c] = a(r1, c1) * a(r2, c2) - a(r1, c2) * a(r2, c1);
    }
  }
  const double det = a(0, 0) * cofactor[0][0] + a(0, 1) * cofactor[0][1] + a(0, 2) * cofactor[0][2];
  const double sign = det < 0.0 ? -1.0 : 1.0;
  for (MeshPart& part : mesh.parts) {
    for (MeshVertex& v : part.vertices) {
      const double p[] = {v.position.x(), v.position.y(), v.position.z()};
      double q[4];
      for (int r = 0; r < 4; ++r) {
        q[r] =
            a(r, 0) * p[0] + a(r, 1) * p[1] + a(r, 2) * p[2] + m[static_cast<std::size_t>(12 + r)];
      }
      // a(3, c) reads the last row, m[3], m[7] and m[11].
      v.position = vec3d(q[0] / q[3], q[1] / q[3], q[2] / q[3]);
      if (part.primitive == Primitive::Triangles) {
        const double n[] = {v.normal.x(), v.normal.y(), v.normal.z()};
        v.normal = Normalised(vec3d(sign * Dot(cofactor[0], n), sign * Dot(cofactor[1], n),
                                    sign * Dot(cofactor[2], n)));
      }
    }
  }
}

}  // namespace lumagrid::detail
