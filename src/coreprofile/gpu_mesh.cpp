#include "coreprofile/gpu_mesh.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "coreprofile/shader_source.h"

namespace lumagrid::detail {
namespace {

struct PackedMesh {
  std::vector<float> vertices;  // x y z nx ny nz
  std::vector<std::uint32_t> triangles;
  std::vector<std::uint32_t> lines;
  std::array<double, 3> low{std::numeric_limits<double>::max(), std::numeric_limits<double>::max(),
                            std::numeric_limits<double>::max()};
  std::array<double, 3> high{std::numeric_limits<double>::lowest(),
                             std::numeric_limits<double>::lowest(),
                             std::numeric_limits<double>::lowest()};
};

PackedMesh Pack(const Mesh& mesh) {
  PackedMesh packed;
  for (const MeshPart& part : mesh.parts) {
    const auto base = static_cast<std::uint32_t>(packed.vertices.size() / 6);
    for (const MeshVertex& v : part.vertices) {
      const double p[] = {v.position.x(), v.position.y(), v.position.z()};
      for (int i = 0; i < 3; ++i) {
        packed.vertices.push_back(static_cast<float>(p[i]));
        packed.low[i] = std::min(packed.low[i], p[i]);
        packed.high[i] = std::max(packed.high[i], p[i]);
      }
      packed.vertices.insert(packed.vertices.end(),
                             {static_cast<float>(v.normal.x()), static_cast<float>(v.normal.y()),
                              static_cast<float>(v.normal.z())});
    }
    std::vector<std::uint32_t>& out =
        part.primitive == Primitive::Lines ? packed.lines : packed.triangles;
    for (const std::uint32_t i : part.indices) {
      out.push_back(base + i);
    }
  }
  return packed;
}

}  // namespace

GpuMesh::GpuMesh(const Mesh& mesh) {
  PackedMesh packed = Pack(mesh);
  if (packed.triangles.empty() && packed.lines.empty()) {
    return;
  }
  for (int i = 0; i < 3; ++i) {
    centre_[static_cast<std::size_t>(i)] =
        (packed.low[static_cast<std::size_t>(i)] + packed.high[static_cast<std::size_t>(i)]) / 2;
  }
  triangleIndices_ = static_cast<GLsizei>(packed.triangles.size());
  lineIndices_ = static_cast<GLsizei>(packed.lines.size());
  packed.triangles.insert(packed.triangles.end(), packed.lines.begin(), packed.lines.end());

  glGenVertexArrays(1, &vertexArray_);
  glBindVertexArray(vertexArray_);
  glGenBuffers(1, &vertices_);
  glBindBuffer(GL_ARRAY_BUFFER, vertices_);
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(packed.vertices.size() * sizeof(float)),
               packed.vertices.data(), GL_STATIC_DRAW);
  const GLsizei stride = 6 * sizeof(float);
  glEnableVertexAttribArray(kPosition);
  glVertexAttribPointer(kPosition, 3, GL_FLOAT, GL_FALSE, stride, nullptr);
  glEnableVertexAttribArray(kNormal);
  glVertexAttribPointer(kNormal, 3, GL_FLOAT, GL_FALSE, stride,
                        reinterpret_cast<const void*>(3 * sizeof(float)));
  glGenBuffers(1, &indices_);
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indices_);
  glBufferData(GL_ELEMENT_ARRAY_BUFFER,
               static_cast<GLsizeiptr>(packed.triangles.size() * sizeof(std::uint32_t)),
               packed.triangles.data(), GL_STATIC_DRAW);
  glBindVertexArray(0);
}

GpuMesh::~GpuMesh() {
  if (vertexArray_ != 0) {
    glDeleteVertexArrays(1, &vertexArray_);
    glDeleteBuffers(1, &vertices_);
    glDeleteBuffers(1, &indices_);
  }
}

}  // namespace lumagrid::detail
