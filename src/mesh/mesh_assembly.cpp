#include "mesh/mesh_assembly.h"

namespace lumagrid::detail {

namespace {

vec3d Vec(const PathPoint& p) {
  return vec3d(p.x, p.y, p.z);
}

const vec3d kNoNormal(0.0, 0.0, 0.0);

}  // namespace

MeshAssembly::MeshAssembly() : stack_{IdentityAffine()}, mesh_() {}

void MeshAssembly::Push() {
  stack_.push_back(stack_.back());
}

void MeshAssembly::Pop() {
  if (stack_.size() > 1) {
    stack_.pop_back();
  }
}

void MeshAssembly::Translate(double x, double y, double z) {
  stack_.back() = Translated(stack_.back(), x, y, z);
}

void MeshAssembly::Rotate(double degrees, double x, double y, double z) {
  stack_.back() = Rotated(stack_.back(), degrees, x, y, z);
}

void MeshAssembly::MultMatrix(const double* glOrder) {
  stack_.back() = Multiplied(stack_.back(), AffineFrom(glOrder));
}

MeshPart& MeshAssembly::PartFor(Primitive primitive) {
  for (MeshPart& part : mesh_.parts) {
    if (part.primitive == primitive) {
      return part;
    }
  }
  mesh_.parts.push_back(MeshPart{primitive, {}, {}});
  return mesh_.parts.back();
}

std::uint32_t MeshAssembly::AddVertex(MeshPart& part, const vec3d& position, const vec3d& normal) {
  part.vertices.push_back(MeshVertex{TransformedPoint(stack_.back(), position), normal});
  return static_cast<std::uint32_t>(part.vertices.size() - 1);
}

void MeshAssembly::Add(const MeshPart& piece) {
  if (piece.indices.empty()) {
    return;
  }
  MeshPart& part = PartFor(piece.primitive);
  const auto base = static_cast<std::uint32_t>(part.vertices.size());
  const Affine& m = stack_.back();
  const NormalTransform normals(m);
  const bool lines = piece.primitive == Primitive::Lines;
  part.vertices.reserve(part.vertices.size() + piece.vertices.size());
  for (const MeshVertex& v : piece.vertices) {
    part.vertices.push_back(
        MeshVertex{TransformedPoint(m, v.position), lines ? kNoNormal : normals(v.normal)});
  }
  part.indices.reserve(part.indices.size() + piece.indices.size());
  for (const std::uint32_t i : piece.indices) {
    part.indices.push_back(base + i);
  }
}

void MeshAssembly::Add(const Mesh& mesh) {
  for (const MeshPart& piece : mesh.parts) {
    Add(piece);
  }
}

void MeshAssembly::AddLineStrip(const std::vector<PathPoint>& points) {
  if (points.size() < 2) {
    return;
  }
  MeshPart& part = PartFor(Primitive::Lines);
  std::uint32_t previous = AddVertex(part, Vec(points[0]), kNoNormal);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const std::uint32_t next = AddVertex(part, Vec(points[i]), kNoNormal);
    part.indices.push_back(previous);
    part.indices.push_back(next);
    previous = next;
  }
}

void MeshAssembly::AddLines(const std::vector<PathPoint>& points) {
  if (points.size() < 2) {
    return;
  }
  MeshPart& part = PartFor(Primitive::Lines);
  for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
    part.indices.push_back(AddVertex(part, Vec(points[i]), kNoNormal));
    part.indices.push_back(AddVertex(part, Vec(points[i + 1]), kNoNormal));
  }
}

void MeshAssembly::AddPolygon(const std::vector<PathPoint>& outline, const PathPoint& normal) {
  if (outline.size() < 3) {
    return;
  }
  MeshPart& part = PartFor(Primitive::Triangles);
  const vec3d n = NormalTransform(stack_.back())(Vec(normal));
  const std::uint32_t first = AddVertex(part, Vec(outline[0]), n);
  std::uint32_t previous = AddVertex(part, Vec(outline[1]), n);
  for (std::size_t i = 2; i < outline.size(); ++i) {
    const std::uint32_t next = AddVertex(part, Vec(outline[i]), n);
    part.indices.insert(part.indices.end(), {first, previous, next});
    previous = next;
  }
}

Mesh MeshAssembly::Take() {
  Mesh mesh = std::move(mesh_);
  mesh_ = Mesh();
  return mesh;
}

}  // namespace lumagrid::detail
