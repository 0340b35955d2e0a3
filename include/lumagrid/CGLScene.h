#ifndef LUMAGRID_CGLSCENE_H
#define LUMAGRID_CGLSCENE_H

#include <lumagrid/lumagrid_export.h>

class CGLObject;
class CGLShapeMap;
class mat4x4;

/// The flat container through which a host owns and draws its shapes.
///
/// The host allocates each shape on the heap, hands it over with AddGLShape() and draws them
/// all with DrawGLShapes() into the context it made current; the scene deletes its shapes
/// (DeleteGLShape(), ResetGLShapes(), its destructor), and the host must not. Shapes are keyed
/// by their address and visited in the order of the hash table's buckets, neither insertion
/// order nor any sorted order, so the drawing order follows the addresses; keep translucent
/// shapes in a second scene drawn after the opaque one. The scene has no transform or colour
/// of its own, and is not itself a drawable.
class LUMAGRID_API CGLScene {
 public:
  /// An empty scene that shows its shapes.
  CGLScene();
  /// Owns its shapes, so a scene is not copied.
  CGLScene(const CGLScene&) = delete;
  /// Owns its shapes, so a scene is not assigned.
  CGLScene& operator=(const CGLScene&) = delete;
  /// Deletes every shape (ResetGLShapes()); needs the context current when they have lists.
  virtual ~CGLScene();

  /// Takes ownership of p; null is stored as well.
  ///
  /// Adding a shape that is already there keeps a single entry, at its place in the visiting
  /// order. A stored null is stepped over by every pass.
  /// @return 1, always.
  int AddGLShape(CGLObject* p);
  /// Removes and deletes p.
  ///
  /// A stored null is removed (and nothing deleted). A shape not in the scene is left alive.
  /// @return 1, or 0 when p is not in the scene.
  int DeleteGLShape(CGLObject* p);
  /// Shows (non-zero) or hides p through its SetVisible(); nothing when p is not in the
  /// scene.
  void ShowGLShape(CGLObject* p, int bShow);
  /// Selects (non-zero) or deselects p through its Select(); nothing when p is not in the
  /// scene.
  void SelectGLShape(CGLObject* p, int bSelect);
  /// Shows (non-zero) or hides the whole scene; the shapes' own visibility is untouched.
  void ShowGLShapes(int bShow);
  /// Calls Draw() on every shape, in the scene's visiting order; nothing while the scene is
  /// hidden.
  ///
  /// Issues no OpenGL call of its own: no sorting, no special handling of translucent
  /// shapes, no depth-mask change. A group or axis triad in the scene pops the matrix once
  /// more than it pushes: draw inside a CGLMatrixGuard.
  void DrawGLShapes();
  /// Replaces every shape's transform with m (CGLObject::SetMatrix()), without marking them
  /// modified; the scene keeps no matrix of its own.
  /// @return 1, always.
  ///@{
  long SetMatrix(double* m);
  long SetMatrix(const mat4x4& m);
  ///@}
  /// Deletes every shape and empties the scene; needs the context current when they have
  /// lists.
  void ResetGLShapes();

 protected:
  int m_bShowShapes;         ///< 0 hides the whole scene; any other value shows it. Starts at 1.
  CGLShapeMap* m_mapShapes;  ///< The shapes, keyed by address, owned.
};

#endif
