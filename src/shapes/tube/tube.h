#ifndef LUMAGRID_SRC_SHAPES_TUBE_TUBE_H
#define LUMAGRID_SRC_SHAPES_TUBE_TUBE_H

#include <GL/gle.h>

#include <vector>

#include "shapes/geometry/path_point.h"
#include "shapes/tube/helix_points.h"

namespace lumagrid::detail::gl {

// GLE's helicoid, toroid and poly-cylinder, with GLE's arguments. While
// tubes are filled (tube_fill.h) each is exactly GLE's own call. Otherwise
// the same path is swept here as a wireframe of GLE's current number of
// sides: lines along the tube, one per side and step, and filled end caps
// when the join style asks for caps. A transform or colour array, which the
// wireframe does not follow, leaves the call to GLE.
void TubeHelicoid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
                  gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                  gleDouble startTheta, gleDouble sweepTheta);

void TubeToroid(gleDouble rToroid, gleDouble startRadius, gleDouble drdTheta, gleDouble startZ,
                gleDouble dzdTheta, gleDouble startXform[2][3], gleDouble dXformdTheta[2][3],
                gleDouble startTheta, gleDouble sweepTheta);

void TubePolyCylinder(int npoints, gleDouble pointArray[][3], gleColor colorArray[],
                      gleDouble radius);

// The same for tubes given as data, with no transform and no colours.
void TubeHelicoid(const HelixTube& tube);
void TubeToroid(const HelixTube& tube);
void TubePolyCylinder(const std::vector<PathPoint>& path, double radius);

}  // namespace lumagrid::detail::gl

#endif
