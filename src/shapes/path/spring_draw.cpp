#include "shapes/path/spring_draw.h"

#include <GL/gl.h>
#include <GL/gle.h>

#include <vector>

#include "shapes/geometry/emit.h"
#include "shapes/geometry/path_point.h"
#include "shapes/path/spring_schematic.h"
#include "shapes/tube/tube.h"

namespace lumagrid::detail::gl {

namespace {

constexpr int kCapped = TUBE_NORM_PATH_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE;
constexpr int kOpen = TUBE_NORM_PATH_EDGE | TUBE_JN_ANGLE;

// The hooks' arcs open towards the body; `turn` rotates the top one.
template <class Bottom, class Top>
void Hooks(double length, double turn, Bottom&& bottom, Top&& top) {
  glPushMatrix();
  {
    glRotated(-90.0, 1.0, 0.0, 0.0);
    bottom();
  }
  glPopMatrix();
  glPushMatrix();
  {
    glTranslated(0.0, 0.0, length);
    glRotated(90.0, 1.0, 0.0, 0.0);
    glRotated(turn * 360.0 - 180.0, 0.0, 1.0, 0.0);
    top();
  }
  glPopMatrix();
}

}  // namespace

void DrawCompressionTube(const SpringCoil& s, unsigned int ends) {
  const CompressionTubes tubes = BuildCompressionTubes(s, ends != 0);
  gleSetJoinStyle(ends != 0 ? kOpen : kCapped);
  for (const HelixTube& coil : tubes.coil) {
    TubeHelicoid(coil);
  }
  if (ends != 0) {
    gleSetJoinStyle(kCapped);
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
  const double twist = ends * 0.25;
  const TensionTubes tubes = BuildTensionTubes(s, twist);
  gleSetJoinStyle(kOpen);
  if (!tubes.body.empty()) {
    TubePolyCylinder(tubes.body, s.wireRadius);
  }
  gleSetJoinStyle(kCapped);
  Hooks(
      s.length, twist, [&] { TubeHelicoid(tubes.bottomHook); },
      [&] { TubeHelicoid(tubes.topHook); });
}

void DrawTensionSchematic(const SpringCoil& s, unsigned int ends) {
  const double R = s.radius;
  const double twist = ends * 0.25;
  const std::vector<PathPoint> zigzag = TensionZigzag(R, s.length, s.turns, twist);
  if (!zigzag.empty()) {
    EmitLineStrip(zigzag);
  }
  // The loops are drawn on the coil radius alone, with no wire radius; the
  // top one sits at (L - 2R) + 2R, which rounding may move off L.
  const double body = s.length - 2.0 * R;
  Hooks(
      body + 2.0 * R, twist, [&] { EmitLineStrip(HookArc(R, 0, 200)); },
      [&] { EmitLineStrip(HookArc(R, -20, 180)); });
}

}  // namespace lumagrid::detail::gl
