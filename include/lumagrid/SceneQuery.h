/// @file
/// A scene's shapes with their world matrices, bounds, and ray picking.
#ifndef LUMAGRID_SCENEQUERY_H
#define LUMAGRID_SCENEQUERY_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>

#include <vector>

class CGLObject;
class CGLScene;

namespace lumagrid {

/// A leaf shape of a scene and the matrix that takes its own frame to the scene's.
struct SceneItem {
  /// The shape, never a group; owned by the scene or its group.
  CGLObject* shape;
  /// The enclosing groups' matrices, outermost first, then the shape's own.
  mat4x4 world;
  /// Whether a draw of the scene shows the shape: the scene shows its shapes, and every
  /// enclosing group and the shape itself are visible.
  bool shown = true;
};

/// The scene's shapes in drawing order, groups expanded into their members, recursively, and
/// hidden shapes included.
///
/// Matrices compose as a host that keeps a spare matrix on the stack for every group sees
/// them: a group's extra pop does not reach the shapes drawn after it.
LUMAGRID_API std::vector<SceneItem> SceneItems(CGLScene& scene);

/// An axis-aligned box. `empty` when nothing lies in it; `min` and `max` are then zero.
struct Bounds {
  vec3d min;          ///< The smallest x, y and z.
  vec3d max;          ///< The largest x, y and z.
  bool empty = true;  ///< Nothing lies in the box.
};

/// The box around MeshOf(shape), in the shape's own frame.
LUMAGRID_API Bounds BoundsOf(CGLObject& shape);

/// The box around the scene's visible shapes, in the scene's frame.
LUMAGRID_API Bounds BoundsOf(CGLScene& scene);

/// Where a ray met a shape.
struct Hit {
  /// The leaf shape: a group's member, never the group.
  CGLObject* shape;
  /// Along the ray, in units of the direction's length.
  double distance;
  /// The point met, in the scene's frame.
  vec3d point;
};

/// The nearest visible shape that the ray from `origin` along `direction` meets: a triangle it
/// crosses, or a line segment that passes within `lineTolerance` of it (scene units).
///
/// Only points ahead of the origin count. Returns false and leaves `hit` as it was when nothing
/// is met, and for a zero or non-finite direction, a non-finite origin, or a negative or
/// non-finite tolerance.
LUMAGRID_API bool Pick(CGLScene& scene, const vec3d& origin, const vec3d& direction, Hit& hit,
                       double lineTolerance = 0.0);

}  // namespace lumagrid

#endif
