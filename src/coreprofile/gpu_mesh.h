#ifndef LUMAGRID_SRC_COREPROFILE_GPU_MESH_H
#define LUMAGRID_SRC_COREPROFILE_GPU_MESH_H

#include <epoxy/gl.h>

#include <lumagrid/Mesh.h>

#include <array>
#include <cstdint>

namespace lumagrid::detail {

// A mesh in GL buffers: a vertex array over interleaved positions and normals, and one index
// buffer holding the triangles' indices, then the lines'.
class GpuMesh {
 public:
  explicit GpuMesh(const Mesh& mesh);
  ~GpuMesh();
  GpuMesh(const GpuMesh&) = delete;
  GpuMesh& operator=(const GpuMesh&) = delete;

  GLuint vertexArray() const { return vertexArray_; }
  GLsizei triangleIndices() const { return triangleIndices_; }
  GLsizei lineIndices() const { return lineIndices_; }
  bool empty() const { return triangleIndices_ == 0 && lineIndices_ == 0; }
  // Its triangles close a surface, each edge met once each way, so that back faces can be
  // culled unseen from outside.
  bool closed() const { return closed_; }
  // The middle of the mesh's box, in its own frame: where translucent shapes are sorted from.
  const std::array<double, 3>& centre() const { return centre_; }
  // Buffers and vertex arrays held: 0 or 3.
  std::size_t glObjects() const { return vertexArray_ != 0 ? 3 : 0; }

  // The frame it was last drawn in, for letting go of meshes no shape uses any more.
  std::uint64_t lastUsed = 0;

 private:
  GLuint vertexArray_ = 0;
  GLuint vertices_ = 0;
  GLuint indices_ = 0;
  GLsizei triangleIndices_ = 0;
  GLsizei lineIndices_ = 0;
  bool closed_ = false;
  std::array<double, 3> centre_{};
};

}  // namespace lumagrid::detail

#endif
