#include "coreprofile/gpu_mesh.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <set>
#include <utility>
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

// Whether every edge of the triangles, their corners taken by position (a seam repeats a point
// with other normals), is met exactly once in each direction. Triangles with two corners at one
// point cover nothing and are left out.
bool ClosesASurface(const PackedMesh& mesh) {
  if (mesh.triangles.empty()) {
    return false;
  }
  std::map<std::array<float, 3>, std::uint32_t> points;
  std::vector<std::uint32_t> pointOf(mesh.vertices.size() / 6);
  for (std::size_t v = 0; v < pointOf.size(); ++v) {
    std::array<float, 3> p;
    std::memcpy(p.data(), &mesh.vertices[6 * v], sizeof p);
    pointOf[v] = points.emplace(p, static_cast<std::uint32_t>(points.size())).first->second;
  }
  std::set<std::pair<std::uint32_t, std::uint32_t>> edges;
  for (std::size_t t = 0; t + 2 < mesh.triangles.size(); t += 3) {
    const std::uint32_t corner[] = {pointOf[mesh.triangles[t]], pointOf[mesh.triangles[t + 1]],
                                    pointOf[mesh.triangles[t + 2]]};
    if (corner[0] == corner[1] || corner[1] == corner[2] || corner[2] == corner[0]) {
      continue;
    }
    for (int k = 0; k < 3; ++k) {
      if (!edges.emplace(corner[k], corner[(k + 1) % 3]).second) {
        return false;
      }
    }
  }
  for (const auto& edge : edges) {
    if (edges.count({edge.second, edge.first}) == 0) {
      return false;
    }
  }
  return true;
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
  closed_ = ClosesASurface(packed);
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
