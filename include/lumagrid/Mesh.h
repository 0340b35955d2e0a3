/// @file
/// Every shape's geometry as a triangle and line mesh: what its display list would draw.
#ifndef LUMAGRID_MESH_H
#define LUMAGRID_MESH_H

#include <lumagrid/lumagrid_export.h>
#include <lumagrid/vec3d.h>

#include <cstdint>
#include <string>
#include <vector>

class CGLObject;

namespace lumagrid {

/// A vertex of a mesh part: a position and, for triangle parts and a tube's wireframe lines,
/// the unit normal GL receives there. The normal is zero in other line parts.
struct MeshVertex {
  vec3d position;  ///< In the frame of the mesh.
  vec3d normal;    ///< Unit length in triangle parts and wireframe lines; zero in other lines.
};

/// What a mesh part's indices make.
enum class Primitive {
  Triangles,  ///< Three indices each.
  Lines       ///< Two indices each.
};

/// One run of primitives of a kind.
struct MeshPart {
  Primitive primitive = Primitive::Triangles;  ///< What the indices make.
  std::vector<MeshVertex> vertices;            ///< What the indices index.
  /// Three per triangle, counter-clockwise seen from the side GL takes as the front; two per
  /// line segment.
  std::vector<std::uint32_t> indices;
};

/// A shape's geometry, part by part.
struct Mesh {
  /// At most one triangle part and one line part, in the order they are first drawn.
  std::vector<MeshPart> parts;
};

/// The geometry `shape`'s display list would draw if it were compiled now, in the shape's own
/// frame (without its matrix).
///
/// GLU's and GLE's settings are read as they stand (GLE's number of sides and join style, and
/// whether the library's tubes are filled or wireframes), as a compile would read them. The
/// shape is only read: no modified mark changes and no GL, GLU or GLE drawing call is made.
///
/// The contract, held by the library's tests against the real libGLU and libgle: the mesh has
/// as many triangles and line segments as GL receives from the list (strips, fans, quads and
/// polygons counted as triangles), every vertex of either lies within 1e-6 of the shape's size
/// of a vertex of the other, normals are within half a degree of GL's normal at that vertex,
/// and triangles wind as GL's front faces. Triangles and segments smaller than that tolerance
/// may be missing on either side (GLU mixes single and double precision and leaves slivers).
/// Triangles are counter-clockwise seen from outside, where the geometry has an outside.
///
/// A group, and so an axis triad, gives its visible members' meshes in the group's frame, each
/// through its member's matrix. A shape of a class the library does not know, a host's own
/// subclass included, gives an empty mesh.
LUMAGRID_API Mesh MeshOf(CGLObject& shape);

/// A key to what MeshOf(shape) is made from: the shape's class, the parameters its geometry is
/// built from, its tessellation and, for tubes, GLE's settings as they stand; for a group, its
/// visible members' keys and matrices. Shapes, or one shape at two times, with equal keys have
/// equal meshes, so a renderer can keep a mesh for as long as its key holds and share it among
/// shapes.
///
/// Colour, selection, visibility and the shape's own matrix are not part of it. Costs a read of
/// the parameters (a polyline's every point), never a mesh; the shape is only read. Empty for a
/// shape of a class the library does not know, whose mesh is empty.
LUMAGRID_API std::string MeshKey(CGLObject& shape);

}  // namespace lumagrid

#endif
