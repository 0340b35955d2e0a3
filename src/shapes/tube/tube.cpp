#include "shapes/tube/tube.h"

#include <GL/gl.h>

#include <vector>

#include "shapes/tube/helix_points.h"
#include "shapes/tube/tube_fill.h"
#include "shapes/tube/wire_sweep.h"

namespace lumagrid::detail {

namespace {

void Normal(const PathPoint& n) {
  glNormal3f(static_cast<GLfloat>(n.x), static_cast<GLfloat>(n.y), static_cast<GLfloat>(n.z));
}

void Emit(const WireSweep& sweep) {
  if (!sweep.lines.empty()) {
    glBegin(GL_LINES);
    {
      for (const WireVertex& v : sweep.lines) {
        Normal(v.normal);
        glVertex3d(v.position.x, v.position.y, v.position.z);
      }
    }
    glEnd();
  }
  for (const WireCap& cap : sweep.caps) {
    glBegin(GL_POLYGON);
    {
      Normal(cap.normal);
      for (const PathPoint& p : cap.outline) {
        glVertex3d(p.x, p.y, p.z);
      }
    }
    glEnd();
  }
}

bool Capped() {
  return (gleGetJoinStyle() & TUBE_JN_CAP) != 0;
}

bool Wire(const void* leftToGle, const void* alsoLeftToGle) {
  return !TubeFilled() && leftToGle == nullptr && alsoLeftToGle == nullptr;
}

}  // namespace

void TubeHelicoid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
                  gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                  gleDouble startTheta, gleDouble sweepTheta) {
  if (!Wire(startXform, dXformdTheta)) {
    gleHelicoid(rToroid, startRadius, drdTheta, startZ, dzdTheta, startXform, dXformdTheta,
                startTheta, sweepTheta);
    return;
  }
  const int sides = gleGetNumSides();
  const bool caps = Capped();
  const Helix helix{startRadius, drdTheta, startZ, dzdTheta, startTheta, sweepTheta};
  Emit(SweepAlongPath(HelixPoints(helix, sides), rToroid, sides, caps));
}

void TubeToroid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
                gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                gleDouble startTheta, gleDouble sweepTheta) {
  if (!Wire(startXform, dXformdTheta)) {
    gleToroid(rToroid, startRadius, drdTheta, startZ, dzdTheta, startXform, dXformdTheta,
              startTheta, sweepTheta);
    return;
  }
  const int sides = gleGetNumSides();
  const bool caps = Capped();
  const Helix helix{startRadius, drdTheta, startZ, dzdTheta, startTheta, sweepTheta};
  Emit(LatheAroundAxis(helix, rToroid, sides, caps));
}

void TubePolyCylinder(int npoints, gleDouble pointArray[][3], gleColor colorArray[],
                      gleDouble radius) {
  if (!Wire(colorArray, nullptr)) {
    glePolyCylinder(npoints, pointArray, colorArray, radius);
    return;
  }
  const int sides = gleGetNumSides();
  const bool caps = Capped();
  std::vector<PathPoint> path;
  if (pointArray != nullptr && npoints > 0) {
    path.reserve(static_cast<std::size_t>(npoints));
    for (int i = 0; i < npoints; ++i) {
      path.push_back({pointArray[i][0], pointArray[i][1], pointArray[i][2]});
    }
  }
  Emit(SweepAlongPath(path, radius, sides, caps));
}

}  // namespace lumagrid::detail
