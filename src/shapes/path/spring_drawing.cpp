#include "shapes/path/spring_drawing.h"

#include "shapes/path/spring_schematic.h"

namespace lumagrid::detail {

SpringStyle SpringStyleOf(unsigned int type, unsigned int type2) {
  // The bit of the second type that selects the schematic drawing.
  constexpr unsigned int kSchematic = 8;
  const bool schematic = (type2 & kSchematic) != 0;
  const unsigned int ends = schematic ? type2 - kSchematic : type2;
  if (type == 0) {
    return {schematic ? SpringStyle::CompressionSchematic : SpringStyle::CompressionTube, ends};
  }
  if (type == 1) {
    return {schematic ? SpringStyle::TensionSchematic : SpringStyle::TensionTube, ends};
  }
  return {SpringStyle::None, ends};
}

double TensionTwist(unsigned int ends) {
  return ends * 0.25;
}

TensionSchematic BuildTensionSchematic(const SpringCoil& s, unsigned int ends) {
  const double R = s.radius;
  const double twist = TensionTwist(ends);
  // The loops are drawn on the coil radius alone, with no wire radius; the
  // top one sits at (L - 2R) + 2R, which rounding may move off L.
  const double body = s.length - 2.0 * R;
  return {TensionZigzag(R, s.length, s.turns, twist), HookArc(R, 0, 200), HookArc(R, -20, 180),
          BuildHookFrames(body + 2.0 * R, twist)};
}

HookFrames TensionTubeHookFrames(const SpringCoil& s, unsigned int ends) {
  return BuildHookFrames(s.length, TensionTwist(ends));
}

}  // namespace lumagrid::detail
