#include "shapes/path/spring_tubes.h"

#include "shapes/path/tension_path.h"

namespace lumagrid::detail {

namespace {

// An arc of a flat ring of the spring's coil radius at height z.
HelixTube FlatArc(const SpringCoil& s, double z, double startTheta, double sweepTheta) {
  return {s.wireRadius, {s.radius, 0.0, z, 0.0, startTheta, sweepTheta}};
}

}  // namespace

CompressionTubes BuildCompressionTubes(const SpringCoil& s, bool closedEnds) {
  CompressionTubes tubes;
  const double pitch = s.length / s.turns;
  // In doubles: turns * 360 overflows an int long before GLE would cope.
  const double sweep = s.turns * 360.0;
  // A helix too long to sample is left out rather than handed to GLE.
  if (HelixPointCount(sweep, s.sides) != 0) {
    tubes.coil.push_back({s.wireRadius, {s.radius, 0.0, 0.0, pitch, s.startAngle, sweep}});
  }
  if (closedEnds) {
    tubes.rings.push_back(FlatArc(s, 0.0, 0.0, 360.0));
    tubes.rings.push_back(FlatArc(s, s.length, 0.0, 360.0));
  }
  return tubes;
}

TensionTubes BuildTensionTubes(const SpringCoil& s, double twist) {
  return {TensionBodyPath(s.wireRadius, s.radius, s.length, s.turns, twist, s.sides),
          FlatArc(s, 0.0, 0.0, 200.0), FlatArc(s, 0.0, -20.0, 200.0)};
}

HookFrames BuildHookFrames(double topHeight, double twist) {
  return {{RotateStep(-90.0, 1.0, 0.0, 0.0)},
          {TranslateStep(0.0, 0.0, topHeight), RotateStep(90.0, 1.0, 0.0, 0.0),
           RotateStep(twist * 360.0 - 180.0, 0.0, 1.0, 0.0)}};
}

}  // namespace lumagrid::detail
