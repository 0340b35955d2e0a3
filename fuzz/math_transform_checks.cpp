// mat4x4 builders (translate, scale, rotate, align, orient, mirror,
// projection, xform) and the matrix acting on vectors.

#include <lumagrid/MRot.h>

#include "math_fuzz.h"

#include <cmath>
#include <initializer_list>

namespace mathfuzz {

namespace {

bool SameBitsAt(const mat4x4& a, const mat4x4& b, int k) {
  return mathtest::sameBits(Elements(a)[k], Elements(b)[k]);
}

// one: the axis's 1.0; c1, c2 the cosines; ps, ns the +sin and -sin.
void CheckAxisRotation(const mat4x4& t, int one, int c1, int ps, int ns, int c2) {
  for (int k = 0; k < 16; ++k) {
    if (k == one || k == 15) {
      FUZZ_CHECK(Elements(t)[k] == 1.0);
    } else if (k != c1 && k != c2 && k != ps && k != ns) {
      FUZZ_CHECK(Elements(t)[k] == 0.0);
    }
  }
  FUZZ_CHECK(equalOrBothNaN(Elements(t)[c1], Elements(t)[c2]));
  FUZZ_CHECK(equalOrBothNaN(Elements(t)[ps], -Elements(t)[ns]));
}

void CheckColumnsKept(const mat4x4& t, const mat4x4& m, int c0, int c1) {
  for (int r = 0; r < 4; ++r) {
    FUZZ_CHECK(SameBitsAt(t, m, 4 * c0 + r));
    FUZZ_CHECK(SameBitsAt(t, m, 4 * c1 + r));
  }
}

}  // namespace

void AxisTransforms(MathState& fz) {
  const double x = fz.Num();
  const double y = fz.Num();
  const double z = fz.Num();
  const double a = fz.Num();
  const mat4x4 m = fz.matrix;

  mat4x4 t;
  t.loadTranslate(x, y, z);
  t = m;
  t.translate(x, y, z);
  for (int k = 0; k < 12; ++k) {
    FUZZ_CHECK(equalOrBothNaN(Elements(t)[k], Elements(m)[k]));
  }
  FUZZ_CHECK(equalOrBothNaN(Elements(t)[15], Elements(m)[15]));  // treated as affine
  mat4x4 u = m;
  u.translate(vec3d(x, y, z));
  FUZZ_CHECK(equalOrBothNaN(t, u));
  u = m;
  u.translateNeg(vec3d(x, y, z));
  for (int k = 0; k < 12; ++k) {
    FUZZ_CHECK(equalOrBothNaN(Elements(u)[k], Elements(m)[k]));
  }
  FUZZ_CHECK(equalOrBothNaN(Elements(u)[15], Elements(m)[15]));

  t.loadScale(x, y, z);
  t = m;
  t.scale(x, y, z);
  for (int k = 12; k < 16; ++k) {
    FUZZ_CHECK(SameBitsAt(t, m, k));
  }
  u = m;
  u.scale(vec3d(x, y, z));
  FUZZ_CHECK(equalOrBothNaN(t, u));

  t.loadRotateX(a);
  CheckAxisRotation(t, 0, 5, 6, 9, 10);
  t.loadRotateY(a);
  CheckAxisRotation(t, 5, 10, 8, 2, 0);
  t.loadRotateZ(a);
  CheckAxisRotation(t, 10, 0, 1, 4, 5);

  // Each axis rotation recombines two columns and leaves the other two.
  t = m;
  t.rotateX(a);
  CheckColumnsKept(t, m, 0, 3);
  t = m;
  t.rotateY(a);
  CheckColumnsKept(t, m, 1, 3);
  t = m;
  t.rotateZ(a);
  CheckColumnsKept(t, m, 2, 3);

  switch (fz.in.Byte() % 6) {
    case 0:
      fz.matrix.translate(x, y, z);
      break;
    case 1:
      fz.matrix.scale(x, y, z);
      break;
    case 2:
      fz.matrix.rotateX(a);
      break;
    case 3:
      fz.matrix.rotateY(a);
      break;
    case 4:
      fz.matrix.rotateZ(a);
      break;
    default:
      break;
  }
}

void VectorProducts(MathState& fz) {
  const vec3d v = fz.Vec3();
  const vec4d w = fz.Vec4();
  const mat4x4& m = fz.matrix;

  const vec3d p = m * v;
  vec3d pv = v;
  m.transform(pv);
  for (int k = 0; k < 3; ++k) {
    FUZZ_CHECK(equalOrBothNaN(p[k], pv[k]));
  }

  // The batch transform gives each point the single transform's bits (any
  // NaN for a NaN), into another array and in place.
  const vec3d points[3] = {v, fz.Vec3(), fz.Vec3()};
  vec3d moved[3];
  m.transform(points, moved, 3);
  vec3d inPlace[3] = {points[0], points[1], points[2]};
  m.transform(inPlace, inPlace, 3);
  for (int i = 0; i < 3; ++i) {
    const vec3d single = m * points[i];
    for (int k = 0; k < 3; ++k) {
      FUZZ_CHECK(mathtest::sameBitsAnyNaN(moved[i][k], single[k]));
      FUZZ_CHECK(mathtest::sameBitsAnyNaN(inPlace[i][k], single[k]));
    }
  }

  const vec4d q = m * w;
  FUZZ_CHECK(equalOrBothNaN(q.w(), q.z()));  // w is a copy of z
  vec4d qw = w;
  m.transform(qw);
  for (int k = 0; k < 3; ++k) {
    FUZZ_CHECK(equalOrBothNaN(q[k], qw[k]));
  }
}

void Align(MathState& fz) {
  const vec3d a = fz.Vec3();
  const vec3d b = fz.Vec3();
  mat4x4 m;
  FUZZ_CHECK(m.loadAlign(a, b) == 1);
  vec3d an = a;
  an.normalize();
  vec3d bn = b;
  bn.normalize();
  vec3d c;
  c.cross(an, bn);
  if (Finite(a) && Finite(b) && std::fabs(an.length() - 1.0) < 1e-13 &&
      std::fabs(bn.length() - 1.0) < 1e-13 && c.length() > 1e-3) {
    // Takes direction a onto direction b.
    vec3d moved = an;
    m.transform(moved);
    for (int k = 0; k < 3; ++k) {
      FUZZ_CHECK(std::fabs(moved[k] - bn[k]) < 1e-9);
    }
  }
  if (fz.in.Bool()) {
    fz.matrix = m;
  }
}

void Orient(MathState& fz) {
  vec3d p[6];
  fz.Vec3s(p, 6);
  mat4x4 m;
  FUZZ_CHECK(m.loadOrient(p[0], p[1], p[2]) == 1);
  FUZZ_CHECK(Elements(m)[12] == 0.0 && Elements(m)[13] == 0.0 && Elements(m)[14] == 0.0 &&
             Elements(m)[15] == 1.0);
  mat4x4 t;
  // loadOrient never fails, so neither does this.
  FUZZ_CHECK(t.loadAlign(p[0], p[1], p[2], p[3], p[4], p[5]) == 1);
  if (fz.in.Bool()) {
    fz.matrix = fz.in.Bool() ? m : t;
  }
}

void Mirror(MathState& fz) {
  const vec3d n = fz.Vec3();
  mat4x4 m;
  m.loadMirror(n);
  const double l = n.length();
  if (Finite(n) && l >= 1e-2 && l <= 1e2) {
    // The Gram matrix of the frame with its first column negated.
    const double nn = n.squared();
    const double diag[4] = {-nn, 1.0, nn, 1.0};
    const double tol = 1e-11 * std::max(1.0, nn);
    for (int c = 0; c < 4; ++c) {
      for (int r = 0; r < 4; ++r) {
        FUZZ_CHECK(std::fabs(Elements(m)[4 * c + r] - (r == c ? diag[r] : 0.0)) <= tol);
      }
    }
  }
  if (fz.in.Bool()) {
    fz.matrix = m;
  }
}

void Proj(MathState& fz) {
  const double fovy = fz.Num();
  const double zNear = fz.Num();
  const double zFar = fz.Num();
  const double aspect = fz.Num();
  mat4x4 m;
  m.loadProj(fovy, zNear, zFar, aspect);
  for (int k : {1, 2, 3, 4, 6, 7, 8, 9, 12, 13, 15}) {
    FUZZ_CHECK(Elements(m)[k] == 0.0);
  }
  FUZZ_CHECK(Elements(m)[14] == -1.0);
  mat4x4 t = fz.matrix;
  t.proj(fovy, zNear, zFar, aspect);
  if (fz.in.Bool()) {
    fz.matrix = fz.in.Bool() ? m : t;
  }
}

void Xform(MathState& fz) {
  double out[13];
  fz.matrix.getXform(out);
  FUZZ_CHECK(out[12] == 1.0);
  mat4x4 back;
  back.loadXform(out);
  for (int k : {0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14}) {
    FUZZ_CHECK(equalOrBothNaN(Elements(back)[k], Elements(fz.matrix)[k]));
  }
  FUZZ_CHECK(Elements(back)[3] == 0.0 && Elements(back)[7] == 0.0 && Elements(back)[11] == 0.0 &&
             Elements(back)[15] == 1.0);

  double in[13];
  for (double& v : in) {
    v = fz.Num();
  }
  mat4x4 m;
  m.loadXform(in);
  if (fz.in.Bool()) {
    fz.matrix = m;
  }
}

void RotateBy(MathState& fz) {
  const MQuat q = fz.Quat();
  const vec3d axis = fz.Vec3();
  const double a = fz.Num();

  mat4x4 m;
  m.loadRotate(q);
  for (int k : {3, 7, 11, 12, 13, 14}) {
    FUZZ_CHECK(Elements(m)[k] == 0.0);
  }
  FUZZ_CHECK(Elements(m)[15] == 1.0);
  if (q.x == 0.0 && q.y == 0.0 && q.z == 0.0 && (q.w == 0.0 || std::fabs(q.w) == 2.0)) {
    FUZZ_CHECK(equalNoNaN(m, Identity()));
  }

  mat4x4 t;
  t.loadRotate(axis, a);
  if (axis.length() < kTolerance) {
    FUZZ_CHECK(equalNoNaN(t, Identity()));
  }

  switch (fz.in.Byte() % 4) {
    case 0:
      fz.matrix.rotate(q);
      break;
    case 1:
      fz.matrix.rotate(axis, a);
      break;
    case 2:
      fz.matrix.rotate(MRot(axis, a));
      break;
    default:
      fz.matrix.loadRotate(MRot(axis, a));
      break;
  }
}

}  // namespace mathfuzz
