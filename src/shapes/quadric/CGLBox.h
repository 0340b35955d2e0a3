#ifndef LUMAGRID_SRC_SHAPES_QUADRIC_CGLBOX_H
#define LUMAGRID_SRC_SHAPES_QUADRIC_CGLBOX_H

#include <lumagrid/CGLObject.h>

// A box centred on the origin, drawn with GL_QUADS. Internal: only the axis
// triad uses it, through CGLCube. It has no immediate-mode drawing.
class CGLBox : public CGLObject {
 public:
  CGLBox();
  CGLBox(double sizeX, double sizeY, double sizeZ);
  ~CGLBox() override;

  long DisplayListMake() override;

 protected:
  double m_dSizeX;
  double m_dSizeY;
  double m_dSizeZ;
};

#endif
