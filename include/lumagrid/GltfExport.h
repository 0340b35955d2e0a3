/// @file
/// A scene written as glTF 2.0: the component Lumagrid::gltf (liblumagrid-gltf).
#ifndef LUMAGRID_GLTFEXPORT_H
#define LUMAGRID_GLTFEXPORT_H

#include <string>
#include <vector>

class CGLScene;

/// Gives the export component's functions default visibility: the component, like the
/// library, is built with symbols hidden by default.
#define LUMAGRID_GLTF_API __attribute__((visibility("default")))

namespace lumagrid {

/// How WriteGltf() writes.
struct GltfOptions {
  /// A binary `.glb`; otherwise a `.gltf` JSON file with the buffer embedded as a data URI.
  bool binary = true;
  /// A selected shape takes its highlight colour, as a draw would show it; otherwise every
  /// shape takes its normal colour.
  bool highlightSelected = true;
};

/// Writes what a draw of `scene` would show to `path` as glTF 2.0, whatever the file's
/// extension.
///
/// - **Nodes**: one per shown leaf shape (SceneItems() with `shown`), groups expanded, in
///   drawing order, each named after the shape (DescribeShape()) and carrying its world
///   matrix as its `matrix`. A world matrix that is not a rotation, scale and translation
///   (a shear, or a projective last row), which glTF does not allow in a node, is applied
///   to the node's vertices instead, and the node has no matrix. Shapes whose mesh is empty
///   (an empty polyline, a host's own subclass) have no node.
/// - **Meshes**: MeshOf() of each shape, positions and normals as floats (`min` and `max`
///   given), indices in the smallest unsigned type that holds them. Shapes of the same
///   geometry and colour share one glTF mesh; of the same geometry alone, its accessors.
/// - **Materials**: `baseColorFactor` is the shape's colour with its alpha (the highlight
///   colour for a selected shape when `highlightSelected`), each channel clamped to [0, 1];
///   `alphaMode` `BLEND` when alpha is below 1; single-sided, not metallic. Line parts are
///   `LINES` primitives with an unlit material (`KHR_materials_unlit`), in their colour.
///
/// The scene is only read: no modified mark changes and no GL call is made, so no context is
/// needed.
///
/// Fails, leaving no file at `path` (nor a partial one) and writing why to `*error` when
/// `error` is not null, when: `path` is empty or cannot be written; the scene shows no shape
/// with geometry; a shown shape's world matrix holds a value that is not finite or beyond a
/// float's range, or its colour one that is not finite. Triangles and segments with a vertex
/// beyond a float's range are left out, as GL would get them infinite.
/// A file already at `path` is replaced only by a complete new one.
/// @return true when the file was written.
LUMAGRID_GLTF_API bool WriteGltf(CGLScene& scene, const std::string& path,
                                 const GltfOptions& options = {}, std::string* error = nullptr);

/// Writes several scenes to one file, as WriteGltf() writes one: their shapes' nodes follow in
/// the order of `scenes`, each scene's in its drawing order. For a host that draws its shapes
/// in layers, one scene each (solids, then lines, then translucent shapes, say).
///
/// Fails as WriteGltf() does, and also when `scenes` holds a null pointer.
LUMAGRID_GLTF_API bool WriteGltf(const std::vector<CGLScene*>& scenes, const std::string& path,
                                 const GltfOptions& options = {}, std::string* error = nullptr);

}  // namespace lumagrid

#endif
