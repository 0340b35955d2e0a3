#include "shapes/path/spring_draw.h"

#include <GL/gl.h>
#include <GL/gle.h>

#include <memory>
#include <vector>

#include "shapes/geometry/emit.h"
#include "shapes/geometry/path_point.h"
#include "shapes/path/spring_schematic.h"
#include "shapes/path/tension_path.h"
#include "shapes/tube/helix_points.h"
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
  const double r = s.wireRadius;
  const double R = s.radius;
  const double pitch = s.length / s.turns;
  // In doubles: turns * 360 overflows an int long before GLE would cope.
  const double sweep = s.turns * 360.0;
  gleSetJoinStyle(ends != 0 ? kOpen : kCapped);
  // A helix too long to sample is left out rather than handed to GLE.
  if (HelixPointCount(sweep, s.sides) != 0) {
    TubeHelicoid(r, R, 0.0, 0.0, pitch, nullptr, nullptr, s.startAngle, sweep);
  }
  if (ends != 0) {
    gleSetJoinStyle(kCapped);
    TubeHelicoid(r, R, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 360.0);
    TubeHelicoid(r, R, 0.0, s.length, 0.0, nullptr, nullptr, 0.0, 360.0);
  }
}

void DrawCompressionSchematic(const SpringCoil& s, unsigned int ends) {
  const std::vector<PathPoint> zigzag = CompressionZigzag(s.radius, s.length, s.turns, ends != 0);
  if (!zigzag.empty()) {
    EmitLineStrip(zigzag);
  }
}

void DrawTensionTube(const SpringCoil& s, unsigned int ends) {
  const double r = s.wireRadius;
  const double R = s.radius;
  const double twist = ends * 0.25;
  gleSetJoinStyle(kOpen);
  const std::vector<PathPoint> path = TensionBodyPath(r, R, s.length, s.turns, twist, s.sides);
  if (!path.empty()) {
    const std::unique_ptr<gleDouble[][3]> points(new gleDouble[path.size()][3]);
    for (std::size_t i = 0; i < path.size(); ++i) {
      points[i][0] = path[i].x;
      points[i][1] = path[i].y;
      points[i][2] = path[i].z;
    }
    TubePolyCylinder(static_cast<int>(path.size()), points.get(), nullptr, r);
  }
  gleSetJoinStyle(kCapped);
  Hooks(
      s.length, twist, [&] { TubeHelicoid(r, R, 0.0, 0.0, 0.0, nullptr, nullptr, 0.0, 200.0); },
      [&] { TubeHelicoid(r, R, 0.0, 0.0, 0.0, nullptr, nullptr, -20.0, 200.0); });
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
