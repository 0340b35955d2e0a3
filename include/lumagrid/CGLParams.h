#ifndef LUMAGRID_CGLPARAMS_H
#define LUMAGRID_CGLPARAMS_H

#include <lumagrid/lumagrid_export.h>

/// View-wide rendering settings: the near and far clipping planes.
///
/// They are kept in the current OpenGL projection matrix, assumed orthographic (as `glOrtho`
/// builds it), rather than in the object: both operations are static and read the matrix
/// each time, so no instance is needed. Nothing is validated, and both need the host's
/// context current. The tessellation defaults live in CGLObject.
class LUMAGRID_API CGLParams {
 public:
  /// Holds nothing.
  CGLParams() = default;
  /// Copies nothing: the settings live in the projection matrix.
  CGLParams(const CGLParams&) = default;
  /// Copies nothing: the settings live in the projection matrix.
  CGLParams& operator=(const CGLParams&) = default;
  /// Does nothing.
  virtual ~CGLParams();

  /// Rewrites the depth terms of the current projection so that dNear and dFar become the
  /// clipping distances; the x and y terms are kept.
  ///
  /// Leaves GL_MODELVIEW current, whatever mode the caller was in. Equal distances divide by
  /// zero and load infinite terms.
  static void SetClippingPlanes(double dNear, double dFar);
  /// Reads the near and far clipping distances back from the current projection.
  ///
  /// Exact for an orthographic projection; on a perspective one the values are not its
  /// clipping distances. The matrix mode is not changed.
  static void GetClippingPlanes(double& dNear, double& dFar);
};

#endif
