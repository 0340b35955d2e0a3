// The same drawing code as a batch job: one frame in a headless context, written to a PNG.
//   render_scene out.png
#include <lumagrid/testing/EglContext.h>

#include <iostream>

#include "host_scene.h"

int main(int argc, char** argv) {
  const char* out = argc > 1 ? argv[1] : "scene.png";
  headless::EglContext gl(320, 240);
  if (!gl.ok()) {
    std::cerr << gl.error() << '\n';
    return 2;
  }
  CGLScene scene;
  host::buildScene(scene);
  host::drawFrame(scene, gl.width(), gl.height());
  std::string why;
  if (!gl.savePng(out, &why)) {
    std::cerr << why << '\n';
    return 1;
  }
  const headless::Rgba centre = gl.pixel(gl.width() / 2, gl.height() / 2);
  std::cout << out << ": centre " << centre << '\n';
  return centre.r > 100 && centre.g < 60 ? 0 : 1;  // the red ball
}
