#include "shapes/quadric/quadric_emit.h"

#include <GL/gl.h>

#include "shapes/geometry/emit.h"

namespace lumagrid::detail::gl {

namespace {

void EmitSide(GLUquadric* q, const Frustum& f) {
  gluQuadricOrientation(q, GLU_OUTSIDE);
  gluCylinder(q, f.baseRadius, f.topRadius, f.length, f.slices, f.stacks);
}

// Turned to face -z.
void EmitBaseDisk(GLUquadric* q, const Frustum& f) {
  gluQuadricOrientation(q, GLU_INSIDE);
  gluDisk(q, 0.0, f.baseRadius, f.slices, 1);
}

// Facing +z at the frustum's far end; the matrix is left translated there.
void EmitTopDisk(GLUquadric* q, const Frustum& f) {
  gluQuadricOrientation(q, GLU_OUTSIDE);
  glTranslated(0.0, 0.0, f.length);
  gluDisk(q, 0.0, f.topRadius, f.slices, 1);
}

// The side and its base disk: the shaft and every head are drawn this way.
void EmitFrustum(GLUquadric* q, const Frustum& f) {
  EmitSide(q, f);
  EmitBaseDisk(q, f);
}

}  // namespace

void EmitCylinder(GLUquadric* q, const CylinderGeometry& cylinder) {
  EmitSide(q, cylinder.side);
  if (cylinder.baseDisk) {
    EmitBaseDisk(q, cylinder.side);
  }
  if (cylinder.topDisk) {
    glPushMatrix();
    { EmitTopDisk(q, cylinder.side); }
    glPopMatrix();
  }
}

void EmitSphere(GLUquadric* q, const SphereGeometry& sphere) {
  gluSphere(q, sphere.radius, sphere.slices, sphere.stacks);
}

void EmitArrow(GLUquadric* q, const ArrowGeometry& arrow) {
  if (arrow.lite) {
    EmitLineInFloats({0.0, 0.0, 0.0}, {0.0, 0.0, arrow.shaft.length});
    glTranslated(0.0, 0.0, arrow.shaft.length);
  } else {
    EmitFrustum(q, arrow.shaft);
    // Closes the shaft although the first head's base covers it.
    EmitTopDisk(q, arrow.shaft);
  }
  for (int i = 0; i < arrow.extraHeads; ++i) {
    EmitFrustum(q, arrow.extraHead);
    glTranslated(0.0, 0.0, arrow.extraHead.length);
  }
  EmitFrustum(q, arrow.lastHead);
}

}  // namespace lumagrid::detail::gl
