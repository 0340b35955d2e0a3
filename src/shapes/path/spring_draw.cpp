#include "shapes/path/spring_draw.h"

#include <GL/gl.h>
#include <GL/gle.h>

#include <vector>

#include "shapes/geometry/emit.h"
#include "shapes/geometry/path_point.h"
#include "shapes/path/spring_drawing.h"
#include "shapes/path/spring_schematic.h"
#include "shapes/tube/tube.h"

namespace lumagrid::detail::gl {

static_assert(kSpringCapped == (TUBE_NORM_PATH_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE),
              "capped spring tubes");
static_assert(kSpringOpen == (TUBE_NORM_PATH_EDGE | TUBE_JN_ANGLE), "open spring tubes");

namespace {

// Each hook in its frame, between a push and a pop.
template <class Bottom, class Top>
void Hooks(const HookFrames& frames, Bottom&& bottom, Top&& top) {
  glPushMatrix();
  {
    EmitMatrixSteps(frames.bottom);
    bottom();
  }
  glPopMatrix();
  glPushMatrix();
  {
    EmitMatrixSteps(frames.top);
    top();
  }
  glPopMatrix();
}

}  // namespace

void DrawCompressionTube(const SpringCoil& s, unsigned int ends) {
  const CompressionTubes tubes = BuildCompressionTubes(s, ends != 0);
  gleSetJoinStyle(ends != 0 ? kSpringOpen : kSpringCapped);
  for (const HelixTube& coil : tubes.coil) {
    TubeHelicoid(coil);
  }
  if (ends != 0) {
    gleSetJoinStyle(kSpringCapped);
    for (const HelixTube& ring : tubes.rings) {
      TubeHelicoid(ring);
    }
  }
}

void DrawCompressionSchematic(const SpringCoil& s, unsigned int ends) {
  const std::vector<PathPoint> zigzag = CompressionZigzag(s.radius, s.length, s.turns, ends != 0);
  if (!zigzag.empty()) {
    EmitLineStrip(zigzag);
  }
}

void DrawTensionTube(const SpringCoil& s, unsigned int ends) {
  const TensionTubes tubes = BuildTensionTubes(s, TensionTwist(ends));
  gleSetJoinStyle(kSpringOpen);
  if (!tubes.body.empty()) {
    TubePolyCylinder(tubes.body, s.wireRadius);
  }
  gleSetJoinStyle(kSpringCapped);
  Hooks(
      TensionTubeHookFrames(s, ends), [&] { TubeHelicoid(tubes.bottomHook); },
      [&] { TubeHelicoid(tubes.topHook); });
}

void DrawTensionSchematic(const SpringCoil& s, unsigned int ends) {
  const TensionSchematic schematic = BuildTensionSchematic(s, ends);
  if (!schematic.zigzag.empty()) {
    EmitLineStrip(schematic.zigzag);
  }
  Hooks(
      schematic.frames, [&] { EmitLineStrip(schematic.bottomHook); },
      [&] { EmitLineStrip(schematic.topHook); });
}

}  // namespace lumagrid::detail::gl
