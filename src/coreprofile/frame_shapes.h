#ifndef LUMAGRID_SRC_COREPROFILE_FRAME_SHAPES_H
#define LUMAGRID_SRC_COREPROFILE_FRAME_SHAPES_H

#include <lumagrid/CoreProfileRenderer.h>

#include <string>
#include <vector>

class CGLObject;

namespace lumagrid::detail {

// One shape's per-instance attributes, laid out as the vertex shader reads them.
struct Instance {
  float modelView[16];    // the view's model-view times the shape's world matrix
  float clip[16];         // the view's projection times that: to clip space in one product
  float normalMatrix[9];  // its upper 3x3's inverse transpose, column-major
  float colour[4];        // the highlight colour when selected, clamped by the shader
};

// A shown shape of a frame: what its mesh is made from, and how it is drawn.
struct FrameShape {
  CGLObject* shape;
  std::string meshKey;
  Instance instance;
  bool translucent;
  bool mirrored;  // the model-view turns its faces' winding round
};

// The scene's shown shapes in drawing order, groups expanded; shapes of a class the library
// does not know, and shapes whose model-view is not finite, are left out (neither draws).
std::vector<FrameShape> CollectFrameShapes(CGLScene& scene, const View& view);

// The depth a translucent shape is sorted by: the eye-space z of the point, in the shape's own
// frame, given. Farther shapes have smaller values.
float EyeDepth(const Instance& instance, const double* point);

}  // namespace lumagrid::detail

#endif
