// A host's own drawing code: the part of an application a host wants under test.
#pragma once

#include <lumagrid/lumagrid.h>

namespace host {

// Fills the scene: a red ball on a grey post.
void buildScene(CGLScene& scene);

// One frame into the current context: viewport, clear, camera, one light, the scene.
void drawFrame(CGLScene& scene, int width, int height);

}  // namespace host
