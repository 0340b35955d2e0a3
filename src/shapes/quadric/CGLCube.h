#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_CGLCUBE_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_CGLCUBE_H

#include "shapes/quadric/CGLBox.h"

// A box with equal edges: the origin marker of the axis triad. Internal.
class CGLCube : public CGLBox {
 public:
  CGLCube();
  explicit CGLCube(double size);
  ~CGLCube() override;
};

#endif
