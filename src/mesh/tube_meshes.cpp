#include <GL/gle.h>

#include "mesh/gle_tube_mesh.h"
#include "mesh/shape_meshes.h"
#include "shapes/path/spring_drawing.h"
#include "shapes/path/spring_schematic.h"
#include "shapes/tube/tube_fill.h"
#include "shapes/tube/wire_sweep.h"

namespace lumagrid::detail {

namespace {

bool Capped(int joinStyle) {
  return (joinStyle & TUBE_JN_CAP) != 0;
}

// The wireframe the library sweeps itself while tubes are not filled.
void AddWireSweep(MeshAssembly& mesh, const WireSweep& sweep) {
  std::vector<PathPoint> ends;
  std::vector<PathPoint> normals;
  ends.reserve(sweep.lines.size());
  normals.reserve(sweep.lines.size());
  for (const WireVertex& v : sweep.lines) {
    ends.push_back(v.position);
    normals.push_back(v.normal);
  }
  mesh.AddLines(ends, normals);
  for (const WireCap& cap : sweep.caps) {
    mesh.AddPolygon(cap.outline, cap.normal);
  }
}

template <class Bottom, class Top>
void AddHooks(MeshAssembly& mesh, const HookFrames& frames, Bottom&& bottom, Top&& top) {
  mesh.Push();
  mesh.Apply(frames.bottom);
  bottom();
  mesh.Pop();
  mesh.Push();
  mesh.Apply(frames.top);
  top();
  mesh.Pop();
}

}  // namespace

TubeSettings CurrentTubeSettings() {
  return {gleGetNumSides(), gl::TubeFilled()};
}

void AddHelicoid(MeshAssembly& mesh, const HelixTube& tube, int joinStyle,
                 const TubeSettings& settings) {
  if (settings.filled) {
    mesh.Add(GleHelicoidMesh(tube, {settings.sides, joinStyle}));
    return;
  }
  AddWireSweep(mesh, SweepAlongPath(HelixPoints(tube.helix, settings.sides), tube.radius,
                                    settings.sides, Capped(joinStyle)));
}

void AddToroid(MeshAssembly& mesh, const HelixTube& tube, int joinStyle,
               const TubeSettings& settings) {
  if (settings.filled) {
    mesh.Add(GleToroidMesh(tube, {settings.sides, joinStyle}));
    return;
  }
  AddWireSweep(mesh, LatheAroundAxis(tube.helix, tube.radius, settings.sides, Capped(joinStyle)));
}

void AddPolyCylinder(MeshAssembly& mesh, const std::vector<PathPoint>& path, double radius,
                     int joinStyle, const TubeSettings& settings) {
  if (settings.filled) {
    mesh.Add(GlePolyCylinderMesh(path, radius, {settings.sides, joinStyle}));
    return;
  }
  AddWireSweep(mesh, SweepAlongPath(path, radius, settings.sides, Capped(joinStyle)));
}

void AddSpring(MeshAssembly& mesh, const SpringCoil& coil, unsigned int type, unsigned int type2,
               bool filled) {
  const TubeSettings settings{coil.sides, filled};
  const SpringStyle style = SpringStyleOf(type, type2);
  const unsigned int ends = style.ends;
  switch (style.drawing) {
    case SpringStyle::CompressionSchematic:
      mesh.AddLineStrip(CompressionZigzag(coil.radius, coil.length, coil.turns, ends != 0));
      break;
    case SpringStyle::CompressionTube: {
      const CompressionTubes tubes = BuildCompressionTubes(coil, ends != 0);
      for (const HelixTube& tube : tubes.coil) {
        AddHelicoid(mesh, tube, ends != 0 ? kSpringOpen : kSpringCapped, settings);
      }
      for (const HelixTube& ring : tubes.rings) {
        AddHelicoid(mesh, ring, kSpringCapped, settings);
      }
      break;
    }
    case SpringStyle::TensionSchematic: {
      const TensionSchematic drawing = BuildTensionSchematic(coil, ends);
      mesh.AddLineStrip(drawing.zigzag);
      AddHooks(
          mesh, drawing.frames, [&] { mesh.AddLineStrip(drawing.bottomHook); },
          [&] { mesh.AddLineStrip(drawing.topHook); });
      break;
    }
    case SpringStyle::TensionTube: {
      const TensionTubes tubes = BuildTensionTubes(coil, TensionTwist(ends));
      if (!tubes.body.empty()) {
        AddPolyCylinder(mesh, tubes.body, coil.wireRadius, kSpringOpen, settings);
      }
      AddHooks(
          mesh, TensionTubeHookFrames(coil, ends),
          [&] { AddHelicoid(mesh, tubes.bottomHook, kSpringCapped, settings); },
          [&] { AddHelicoid(mesh, tubes.topHook, kSpringCapped, settings); });
      break;
    }
    case SpringStyle::None:
      break;
  }
}

}  // namespace lumagrid::detail
