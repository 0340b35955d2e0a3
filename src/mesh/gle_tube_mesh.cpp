#include "mesh/gle_tube_mesh.h"

#include "mesh/gle_extrusion.h"

namespace lumagrid::detail {

namespace {

// GLE starts a spiral's circle along the x axis and a poly-cylinder's along y.
constexpr PathPoint kSpiralUp{1.0, 0.0, 0.0};
constexpr PathPoint kPolylineUp{0.0, 1.0, 0.0};

}  // namespace

MeshPart GleHelicoidMesh(const HelixTube& tube, const GleSettings& settings) {
  return ExtrudeRoundTube(HelixPoints(tube.helix, settings.sides), kSpiralUp, tube.radius,
                          settings.sides, SpiralNormals(settings.joinStyle),
                          CapsEnds(settings.joinStyle));
}

MeshPart GleToroidMesh(const HelixTube& tube, const GleSettings& settings) {
  // GLE lathes a toroid: on a flat circle that is the helicoid's mitred sweep; a spiral's
  // lathe cuts through the axis instead and is not built here.
  if (tube.helix.drdTheta != 0.0 || tube.helix.dzdTheta != 0.0) {
    return {};
  }
  return ExtrudeRoundTube(HelixPoints(tube.helix, settings.sides), kSpiralUp, tube.radius,
                          settings.sides, SpiralNormals(settings.joinStyle),
                          CapsEnds(settings.joinStyle));
}

MeshPart GlePolyCylinderMesh(const std::vector<PathPoint>& path, double radius,
                             const GleSettings& settings) {
  return ExtrudeRoundTube(path, kPolylineUp, radius, settings.sides,
                          PolylineNormals(settings.joinStyle), CapsEnds(settings.joinStyle));
}

}  // namespace lumagrid::detail
