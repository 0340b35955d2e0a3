#ifndef LUMAGRID_CGLSCENE_H
#define LUMAGRID_CGLSCENE_H

#include <lumagrid/lumagrid_export.h>

class CGLObject;
class CGLShapeMap;
class mat4x4;

// The flat container through which a host owns and draws its shapes. Shapes
// are keyed by their address and visited in the order of the hash table's
// buckets, neither insertion order nor any sorted order.
class LUMAGRID_API CGLScene {
 public:
  CGLScene();
  // Owns its shapes, so a scene is not copied.
  CGLScene(const CGLScene&) = delete;
  CGLScene& operator=(const CGLScene&) = delete;
  virtual ~CGLScene();

  // Takes ownership of p; null is stored as well. Always 1.
  int AddGLShape(CGLObject* p);
  // Removes and deletes p: 1, or 0 when p is not in the scene.
  int DeleteGLShape(CGLObject* p);
  void ShowGLShape(CGLObject* p, int bShow);
  void SelectGLShape(CGLObject* p, int bSelect);
  void ShowGLShapes(int bShow);
  void DrawGLShapes();
  long SetMatrix(double* m);
  long SetMatrix(const mat4x4& m);
  // Deletes every shape and empties the scene.
  void ResetGLShapes();

 protected:
  int m_bShowShapes;
  CGLShapeMap* m_mapShapes;
};

#endif
