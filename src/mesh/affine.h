#ifndef LUMAGRID_SRC_MESH_AFFINE_H
#define LUMAGRID_SRC_MESH_AFFINE_H

#include <lumagrid/vec3d.h>

#include <array>

namespace lumagrid::detail {

// A 4x4 matrix in the element order glMultMatrixd takes (column after column). The mesh
// layer keeps its own small algebra: it must compose as GL does, whatever the legacy
// mat4x4's operators do.
struct Affine {
  std::array<double, 16> e;
};

Affine IdentityAffine();
Affine AffineFrom(const double* glOrder);
// a then b, as glMultMatrixd(b) after a.
Affine Multiplied(const Affine& a, const Affine& b);
// As glTranslated and glRotated (degrees, axis normalised) compose them.
Affine Translated(const Affine& a, double x, double y, double z);
Affine Rotated(const Affine& a, double degrees, double x, double y, double z);

vec3d TransformedPoint(const Affine& a, const vec3d& p);

// The matrix GL takes normals through: the inverse transpose of the upper 3x3, unless
// that is singular (normals then go through the 3x3 itself). Results are renormalised.
class NormalTransform {
 public:
  explicit NormalTransform(const Affine& a);
  vec3d operator()(const vec3d& n) const;

 private:
  std::array<double, 9> m_;  // row-major
};

}  // namespace lumagrid::detail

#endif
