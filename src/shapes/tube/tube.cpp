#include "shapes/tube/tube.h"

#include <memory>
#include <vector>

#include "shapes/geometry/emit.h"
#include "shapes/tube/helix_points.h"
#include "shapes/tube/tube_fill.h"
#include "shapes/tube/wire_sweep.h"

namespace lumagrid::detail::gl {

namespace {

// Whether the wireframe is swept here rather than the tube left to GLE: only
// while tubes are not filled, and only when GLE is given neither of the arrays
// that only it applies (a transform along the path, colours along it).
bool SweepsOwnWireframe(const void* arrayOnlyGleApplies, const void* otherArrayOnlyGleApplies) {
  return !TubeFilled() && arrayOnlyGleApplies == nullptr && otherArrayOnlyGleApplies == nullptr;
}

// GLE's sides first, then its join style, as the wireframe reads them.
template <class Sweep>
void EmitWireframe(Sweep&& sweep) {
  const int sides = gleGetNumSides();
  const bool caps = (gleGetJoinStyle() & TUBE_JN_CAP) != 0;
  EmitWireSweep(sweep(sides, caps));
}

// A helicoid or toroid: GLE's own call, or the wireframe `sweep` builds from
// the helix.
template <class Gle, class Sweep>
void Spiral(Gle&& gle, Sweep&& sweep, gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta,
            gleDouble startZ, gleDouble dzdTheta, gleDouble startXform[2][3],
            gleDouble dXformdTheta[2][3], gleDouble startTheta, gleDouble sweepTheta) {
  if (!SweepsOwnWireframe(startXform, dXformdTheta)) {
    gle(rToroid, startRadius, drdTheta, startZ, dzdTheta, startXform, dXformdTheta, startTheta,
        sweepTheta);
    return;
  }
  const Helix helix{startRadius, drdTheta, startZ, dzdTheta, startTheta, sweepTheta};
  EmitWireframe([&](int sides, bool caps) { return sweep(helix, rToroid, sides, caps); });
}

}  // namespace

void TubeHelicoid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
                  gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                  gleDouble startTheta, gleDouble sweepTheta) {
  Spiral(
      gleHelicoid,
      [](const Helix& helix, double radius, int sides, bool caps) {
        return SweepAlongPath(HelixPoints(helix, sides), radius, sides, caps);
      },
      rToroid, startRadius, drdTheta, startZ, dzdTheta, startXform, dXformdTheta, startTheta,
      sweepTheta);
}

void TubeToroid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
                gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                gleDouble startTheta, gleDouble sweepTheta) {
  Spiral(gleToroid, LatheAroundAxis, rToroid, startRadius, drdTheta, startZ, dzdTheta, startXform,
         dXformdTheta, startTheta, sweepTheta);
}

void TubeHelicoid(const HelixTube& tube) {
  const Helix& h = tube.helix;
  TubeHelicoid(tube.radius, h.startRadius, h.drdTheta, h.startZ, h.dzdTheta, nullptr, nullptr,
               h.startTheta, h.sweepTheta);
}

void TubeToroid(const HelixTube& tube) {
  const Helix& h = tube.helix;
  TubeToroid(tube.radius, h.startRadius, h.drdTheta, h.startZ, h.dzdTheta, nullptr, nullptr,
             h.startTheta, h.sweepTheta);
}

void TubePolyCylinder(int npoints, gleDouble pointArray[][3], gleColor colorArray[],
                      gleDouble radius) {
  if (!SweepsOwnWireframe(colorArray, nullptr)) {
    glePolyCylinder(npoints, pointArray, colorArray, radius);
    return;
  }
  std::vector<PathPoint> path;
  if (pointArray != nullptr && npoints > 0) {
    path.reserve(static_cast<std::size_t>(npoints));
    for (int i = 0; i < npoints; ++i) {
      path.push_back({pointArray[i][0], pointArray[i][1], pointArray[i][2]});
    }
  }
  EmitWireframe([&](int sides, bool caps) { return SweepAlongPath(path, radius, sides, caps); });
}

void TubePolyCylinder(const std::vector<PathPoint>& path, double radius) {
  const std::unique_ptr<gleDouble[][3]> points(new gleDouble[path.size()][3]);
  for (std::size_t i = 0; i < path.size(); ++i) {
    points[i][0] = path[i].x;
    points[i][1] = path[i].y;
    points[i][2] = path[i].z;
  }
  TubePolyCylinder(static_cast<int>(path.size()), points.get(), nullptr, radius);
}

}  // namespace lumagrid::detail::gl
