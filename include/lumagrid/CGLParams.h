#ifndef LUMAGRID_CGLPARAMS_H
#define LUMAGRID_CGLPARAMS_H

#include <lumagrid/lumagrid_export.h>

// View-wide rendering settings, kept in the current OpenGL projection matrix
// (assumed orthographic) rather than in the object.
class LUMAGRID_API CGLParams {
 public:
  CGLParams() = default;
  CGLParams(const CGLParams&) = default;
  CGLParams& operator=(const CGLParams&) = default;
  virtual ~CGLParams();

  // Rewrites the depth terms of the projection; leaves GL_MODELVIEW current.
  static void SetClippingPlanes(double dNear, double dFar);
  static void GetClippingPlanes(double& dNear, double& dFar);
};

#endif
