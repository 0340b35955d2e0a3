// Keeps the tori of a gallery scene drawn as the viewer wants them. A torus's tube takes the fill
// (solid or wireframe) and the number of sides from whichever spring was compiled last, so a torus
// rebuilt after a selection would otherwise inherit the wireframe spring's look.
#pragma once

#include <memory>

#include "gallery_scene.h"

class CGLSpring;

namespace viewer {

class TubeRefresh {
 public:
  TubeRefresh();   // needs no context
  ~TubeRefresh();  // needs the context current, for the primer's display list
  TubeRefresh(const TubeRefresh&) = delete;
  TubeRefresh& operator=(const TubeRefresh&) = delete;

  // Rebuilds every torus of scene that is marked modified, solid or as a wireframe. Needs the
  // context current; call it after any change and before drawing.
  void rebuildTori(const gallery::GalleryScene& scene, bool wireframe);

 private:
  // Never drawn: compiling it sets the fill and sides every later tube inherits.
  std::unique_ptr<CGLSpring> primer_;
};

}  // namespace viewer
