#include <lumagrid/mat4x4.h>

#include <lumagrid/MQuat.h>
#include <lumagrid/MRot.h>

#include "math/tolerance.h"

#include <cmath>

using lumagrid::detail::kTolerance;

namespace {

// a x b scaled to unit length (or cleared, as normalize() does).
vec3d unitCross(const vec3d& a, const vec3d& b) {
  vec3d c;
  c.cross(a, b);
  c.normalize();
  return c;
}

// Axis a of a frame and its offset -a.e, as one column of loadOrient().
vec4d frameColumn(const vec3d& a, const vec3d& e) {
  return vec4d(a.x(), a.y(), a.z(), -a.dot(e));
}

}  // namespace

void mat4x4::loadRotate(const MQuat& q) {
  const double n = q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w;
  // 2/n normalises a non-unit quaternion on the way.
  const double s = std::fabs(n) < kTolerance ? 1.0 : 2.0 / n;
  const double xs = q.x * s;
  const double ys = q.y * s;
  const double zs = q.z * s;
  const double xx = q.x * xs;
  const double yy = q.y * ys;
  const double zz = q.z * zs;
  const double xy = q.x * ys;
  const double xz = q.x * zs;
  const double yz = q.y * zs;
  const double wx = q.w * xs;
  const double wy = q.w * ys;
  const double wz = q.w * zs;

  // Written in place: this runs for every rotation a host builds.
  double* e = m_e;
  e[0] = 1.0 - (zz + yy);
  e[1] = xy + wz;
  e[2] = xz - wy;
  e[3] = 0.0;
  e[4] = xy - wz;
  e[5] = 1.0 - (zz + xx);
  e[6] = yz + wx;
  e[7] = 0.0;
  e[8] = xz + wy;
  e[9] = yz - wx;
  e[10] = 1.0 - (yy + xx);
  e[11] = 0.0;
  e[12] = 0.0;
  e[13] = 0.0;
  e[14] = 0.0;
  e[15] = 1.0;
}

void mat4x4::rotate(const MQuat& q) {
  mat4x4 r;
  r.loadRotate(q);
  *this *= r;
}

void mat4x4::loadRotate(const MRot& r) {
  loadRotate(MQuat(r.axis, r.angle));
}

void mat4x4::loadRotate(const vec3d& axis, double a) {
  loadRotate(MQuat(axis, a));
}

void mat4x4::rotate(const MRot& r) {
  rotate(MQuat(r.axis, r.angle));
}

void mat4x4::rotate(const vec3d& axis, double a) {
  rotate(MQuat(axis, a));
}

void mat4x4::loadProj(double fovy, double zNear, double zFar, double aspect) {
  double h = std::tan(fovy * 0.5) * zNear;
  zero();
  // The -1 and the depth offset stand transposed from glFrustum's places,
  // and both scales carry a factor 2.
  m_e[14] = -1.0;
  m_e[0] = (zNear + zNear) / h;
  h = h / aspect;
  m_e[5] = (zNear + zNear) / h;
  m_e[10] = -((zNear + zFar) / (zFar - zNear));
  m_e[11] = zFar * (-2.0) * zNear / (zFar - zNear);
}

void mat4x4::proj(double fovy, double zNear, double zFar, double aspect) {
  mat4x4 p;
  p.loadProj(fovy, zNear, zFar, aspect);
  *this *= p;
}

void mat4x4::loadMirror(vec3d n) {
  vec3d u;
  u.perp(n);
  vec3d w;
  w.cross(n, u);

  mat4x4 a;
  a.identity();
  a.setCol(0, -n);
  a.setCol(1, u);
  a.setCol(2, w);

  mat4x4 b;
  b.identity();
  b.setRow(0, n);
  b.setRow(1, u);
  b.setRow(2, w);

  // Rows times columns of the same frame: diag(-n.n, 1, n.n, 1), not a
  // reflection. Callers rely on this.
  mul(b, a);
}

int mat4x4::loadAlign(vec3d a, vec3d b) {
  a.normalize();
  b.normalize();
  const vec3d c = unitCross(a, b);
  const vec3d d = unitCross(c, a);

  mat4x4 r;
  r.identity();
  r.setRow(0, a);
  r.setRow(1, d);
  r.setRow(2, c);

  const double cs = b.dot(a);
  const double sn = b.dot(d);
  mat4x4 z;
  z.identity();
  z.m_e[0] = cs;
  z.m_e[1] = sn;
  z.m_e[4] = -sn;
  z.m_e[5] = cs;

  // Parallel directions leave r singular; the failed inverse is used as it
  // stands and 1 is still returned.
  mat4x4 ri(r);
  ri.inv();
  mat4x4 riz;
  riz.mul(ri, z);
  mul(riz, r);
  return 1;
}

int mat4x4::loadAlign(vec3d p0, vec3d p1, vec3d p2, vec3d q0, vec3d q1, vec3d q2) {
  // The second argument is the difference p2 - p0, not the point p2.
  mat4x4 o1;
  if (o1.loadOrient(p0, p2 - p0, p1 - p0) == 0) {
    identity();
    return 0;
  }
  o1.inv();
  mat4x4 o2;
  if (o2.loadOrient(q0, q2 - q0, q1 - q0) == 0) {
    identity();
    return 0;
  }
  mul(o1, o2);
  return 1;
}

int mat4x4::loadOrient(vec3d e, vec3d c, vec3d up) {
  vec3d f = e - c;
  f.normalize();
  const vec3d s = unitCross(up, f);
  const vec3d u = unitCross(f, s);

  // The frame stands in columns with the offsets in the bottom row: the
  // transpose of a viewing matrix.
  setCol(0, frameColumn(s, e));
  setCol(1, frameColumn(u, e));
  setCol(2, frameColumn(f, e));
  setCol(3, vec4d(0.0, 0.0, 0.0, 1.0));
  return 1;
}

void mat4x4::getXform(double* const out) const {
  out[0] = m_e[0];
  out[1] = m_e[1];
  out[2] = m_e[2];
  out[3] = m_e[4];
  out[4] = m_e[5];
  out[5] = m_e[6];
  out[6] = m_e[8];
  out[7] = m_e[9];
  out[8] = m_e[10];
  out[9] = m_e[12];
  out[10] = m_e[13];
  out[11] = m_e[14];
  out[12] = 1.0;
}

void mat4x4::loadXform(double* const in) {
  identity();
  // in[12] scales the 3x3 part only; the translation is taken as it is.
  const double k = in[12];
  m_e[0] = in[0] * k;
  m_e[1] = in[1] * k;
  m_e[2] = in[2] * k;
  m_e[4] = in[3] * k;
  m_e[5] = in[4] * k;
  m_e[6] = in[5] * k;
  m_e[8] = in[6] * k;
  m_e[9] = in[7] * k;
  m_e[10] = in[8] * k;
  m_e[12] = in[9];
  m_e[13] = in[10];
  m_e[14] = in[11];
}
