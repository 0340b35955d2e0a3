#ifndef LUMAGRID_FUZZ_SCENE_EXPORT_H
#define LUMAGRID_FUZZ_SCENE_EXPORT_H

#include <lumagrid/CGLScene.h>
#include <lumagrid/GltfExport.h>

#include "fuzz_input.h"

namespace scenefuzz {

// Builds the glTF document of the scene as WriteGltf does, in memory, and checks that a reader
// can trust it: an answer for every scene, a node per shown shape with geometry at most, every
// index in range, every float finite, bounds that hold the data, materials in range.
void CheckExport(CGLScene& scene, const lumagrid::GltfOptions& options);

// The harness's shapes are its own subclasses, which have no mesh: this adds shapes of the
// library's own classes from the input (sizes, matrices and colours NaN, infinite or huge as
// often as tame, hidden and selected shapes, a stretched group around a turned member).
void AddLibraryShapes(FuzzInput& in, CGLScene& scene);

}  // namespace scenefuzz

#endif
