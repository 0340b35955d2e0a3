#ifndef LUMAGRID_SRC_MESH_GLU_QUADRIC_STRIPS_H
#define LUMAGRID_SRC_MESH_GLU_QUADRIC_STRIPS_H

#include <lumagrid/Mesh.h>

#include <cstddef>
#include <cstdint>

// The pieces GLU's sphere, cylinder and disk are drawn with: rings of vertices around the z
// axis, quad strips between two rings and triangle fans around an apex.
namespace lumagrid::detail {

// GLU keeps a slice's sine and cosine in a fixed table and caps slices (and a sphere's
// stacks) to fit it.
inline constexpr int kGluMaxSlices = 239;

// GLU draws any number of cylinder stacks and disk loops; a part with more triangles than
// this is given empty instead of being allocated.
inline constexpr std::size_t kMaxQuadricTriangles = std::size_t{1} << 22;

// A circle of `slices` vertices at height `z`. GLU measures a slice's angle from +y towards
// +x: slice i lies at angle a = 2*pi*i/slices, at (radius*sin a, radius*cos a, z), with the
// normal (normalRadial*sin a, normalRadial*cos a, normalZ).
struct QuadricRing {
  double radius;
  double z;
  double normalRadial;
  double normalZ;
};

// Appends the ring's vertices and returns the index of its slice 0.
std::uint32_t AppendRing(MeshPart& part, int slices, const QuadricRing& ring);

std::uint32_t AppendVertex(MeshPart& part, const vec3d& position, const vec3d& normal);

// The triangles of a GL_QUAD_STRIP whose pairs are (first's slice i, second's slice i) for
// i = 0..slices, the last pair being slice 0 again. Each quad is split as GL splits a quad.
void AppendQuadStrip(MeshPart& part, std::uint32_t first, std::uint32_t second, int slices);

// Which way a fan walks round its ring.
enum class FanOrder { Ascending, Descending };

// The triangles of a GL_TRIANGLE_FAN from `apex` through the ring's slices 0..slices
// (Ascending) or slices..0 (Descending), slice `slices` being slice 0 again.
void AppendFan(MeshPart& part, std::uint32_t apex, std::uint32_t ring, int slices, FanOrder order);

}  // namespace lumagrid::detail

#endif
