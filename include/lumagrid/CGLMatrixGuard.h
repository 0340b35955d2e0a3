#ifndef LUMAGRID_CGLMATRIXGUARD_H
#define LUMAGRID_CGLMATRIXGUARD_H

#include <lumagrid/lumagrid_export.h>

// Keeps the host's model-view matrix and stack depth across a scene draw.
// Drawing a group (and so an axis triad) pops once more than it pushes, and
// an immediate draw of an empty belt pushes once more than it pops; put a
// guard in scope around such a draw:
//
//   {
//     CGLMatrixGuard guard;  // one spare: one group or triad in the scene
//     scene.DrawGLShapes();
//   }
//
// At construction it saves the model-view matrix and stack depth and pushes
// `spares` spare matrices (one per group the draw holds). At scope end it
// pops or pushes back to the saved depth and reloads the saved matrix. The
// matrix mode is left as it was found. Needs the context current at both
// ends.
class LUMAGRID_API CGLMatrixGuard {
 public:
  explicit CGLMatrixGuard(int spares = 1);
  ~CGLMatrixGuard();
  CGLMatrixGuard(const CGLMatrixGuard&) = delete;
  CGLMatrixGuard& operator=(const CGLMatrixGuard&) = delete;

  // The depth and matrix restored at scope end.
  int SavedDepth() const { return m_nDepth; }
  const double* SavedMatrix() const { return m_adMatrix; }

 private:
  double m_adMatrix[16];
  int m_nDepth;
};

#endif
