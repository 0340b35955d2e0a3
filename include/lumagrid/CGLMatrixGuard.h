#ifndef LUMAGRID_CGLMATRIXGUARD_H
#define LUMAGRID_CGLMATRIXGUARD_H

#include <lumagrid/lumagrid_export.h>

/// Keeps the host's model-view matrix and stack depth across a scene draw.
///
/// Drawing a group (and so an axis triad) pops once more than it pushes, and an immediate
/// draw of an empty belt pushes once more than it pops; put a guard in scope around such a
/// draw:
/// @code
///   {
///     CGLMatrixGuard guard;  // one spare: one group or triad in the scene
///     scene.DrawGLShapes();
///   }
/// @endcode
/// At construction it saves the model-view matrix and stack depth and pushes `spares` spare
/// matrices (one per group the draw holds). At scope end it pops or pushes back to the saved
/// depth and reloads the saved matrix. The matrix mode is left as it was found. Needs the
/// context current at both ends.
class LUMAGRID_API CGLMatrixGuard {
 public:
  /// Saves the model-view matrix and stack depth, then pushes `spares` spare matrices.
  ///
  /// Pushes stop at the stack's maximum depth, so no overflow is raised; zero or a negative
  /// count pushes none. Works on the model-view stack whatever the matrix mode, and gives the
  /// mode back.
  /// @param spares the number of groups (and axis triads) the guarded draw holds.
  explicit CGLMatrixGuard(int spares = 1);
  /// Pops or pushes the model-view stack back to the saved depth, then loads the saved matrix
  /// into its top; the matrix mode is left as it was found.
  ~CGLMatrixGuard();
  /// A guard restores once, so it is not copied.
  CGLMatrixGuard(const CGLMatrixGuard&) = delete;
  /// A guard restores once, so it is not assigned.
  CGLMatrixGuard& operator=(const CGLMatrixGuard&) = delete;

  /// The model-view stack depth restored at scope end, as read at construction.
  int SavedDepth() const { return m_nDepth; }
  /// The model-view matrix restored at scope end: 16 doubles, column-major, as read at
  /// construction.
  const double* SavedMatrix() const { return m_adMatrix; }

 private:
  double m_adMatrix[16];
  int m_nDepth;
};

#endif
