#ifndef LUMAGRID_SRC_SHAPES_TUBE_TUBE_FRAMES_H
#define LUMAGRID_SRC_SHAPES_TUBE_TUBE_FRAMES_H

#include <cstddef>
#include <vector>

#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// The pieces GLE's tubes are built from, shared by the wireframe sweep and
// the meshes: segment directions, side vectors carried along without twist,
// and the mitred cuts at the joints.

// Scales v to unit length; false (v unchanged) when it has none.
bool Unit(PathPoint& v);

// A unit vector square to the unit vector d.
PathPoint Perpendicular(const PathPoint& d);

// `up` less its part along the unit vector d, scaled to unit length; a
// Perpendicular of d when nothing is left.
PathPoint SquareTo(const PathPoint& up, const PathPoint& d);

// Unit directions of the path's segments; a segment of no length takes the
// direction of its neighbour. Empty when no segment has a length.
std::vector<PathPoint> Directions(const std::vector<PathPoint>& path);

// Side vectors, one per direction, starting at `first` (square to d[0]) and
// carried from segment to segment by the rotation that turns one direction
// into the next, so that the cross-section does not twist.
std::vector<PathPoint> CarriedSides(const std::vector<PathPoint>& d, const PathPoint& first);

// The unit normals of the mitred cuts: at each inner point of the path the
// plane halving the angle between its two segments. Indexed by point; the
// two end points' entries are unused.
std::vector<PathPoint> MitreCuts(const std::vector<PathPoint>& d);

// x moved along d onto the plane through p square to m.
PathPoint OntoPlane(const PathPoint& x, const PathPoint& d, const PathPoint& p, const PathPoint& m);

// The directions of a circle's `sides` sides: side k at angle 2 pi k / sides from x
// towards y.
class SideAngles {
 public:
  explicit SideAngles(std::size_t sides);
  std::size_t Count() const { return cosines_.size(); }
  PathPoint Around(const PathPoint& x, const PathPoint& y, std::size_t k) const;

 private:
  std::vector<double> cosines_;
  std::vector<double> sines_;
};

// One side of a tube along a segment: its direction from the centre line, and where it
// meets the mitred cuts at the segment's two ends.
struct SideRun {
  PathPoint side;
  PathPoint from;
  PathPoint to;
};

// The sides of segment j of `path` (from point j to j + 1), a circle of `radius` around
// x and y (unit, square to d[j]), into `out`, replacing what it held.
void SegmentSides(const std::vector<PathPoint>& path, const std::vector<PathPoint>& d,
                  const std::vector<PathPoint>& cut, std::size_t j, const PathPoint& x,
                  const PathPoint& y, double radius, const SideAngles& angles,
                  std::vector<SideRun>& out);

// Puts a flat outline in counter-clockwise order seen from where `normal` points.
void FaceAlong(std::vector<PathPoint>& outline, const PathPoint& normal);

}  // namespace lumagrid::detail

#endif
