#include "mesh/mesh_assembly.h"

#include <cmath>

namespace lumagrid::detail {

namespace {

vec3d Vec(const PathPoint& p) {
  return vec3d(p.x, p.y, p.z);
}

const vec3d kNoNormal(0.0, 0.0, 0.0);

bool Finite(const vec3d& p) {
  return std::isfinite(p.x()) && std::isfinite(p.y()) && std::isfinite(p.z());
}

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

void MeshAssembly::Apply(const std::vector<MatrixStep>& steps) {
  for (const MatrixStep& step : steps) {
    if (step.kind == MatrixStep::Rotate) {
      Rotate(step.degrees, step.x, step.y, step.z);
    } else {
      Translate(step.x, step.y, step.z);
    }
  }
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

// Every piece comes through here: carried through the current matrix, and without the
// primitives that would reach GL with a vertex that is not finite.
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
    part.vertices.push_back(MeshVertex{TransformedPoint(m, v.position), normals(v.normal)});
  }
  const std::size_t corners = lines ? 2 : 3;
  part.indices.reserve(part.indices.size() + piece.indices.size());
  for (std::size_t first = 0; first + corners <= piece.indices.size(); first += corners) {
    bool finite = true;
    for (std::size_t k = 0; k < corners; ++k) {
      finite = finite && Finite(part.vertices[base + piece.indices[first + k]].position);
    }
    if (!finite) {
      continue;
    }
    for (std::size_t k = 0; k < corners; ++k) {
      part.indices.push_back(base + piece.indices[first + k]);
    }
  }
}

void MeshAssembly::Add(const Mesh& mesh) {
  for (const MeshPart& piece : mesh.parts) {
    Add(piece);
  }
}

void MeshAssembly::AddLineStrip(const std::vector<PathPoint>& points) {
  MeshPart strip{Primitive::Lines, {}, {}};
  for (std::size_t i = 0; i < points.size(); ++i) {
    strip.vertices.push_back(MeshVertex{Vec(points[i]), kNoNormal});
    if (i > 0) {
      strip.indices.insert(strip.indices.end(),
                           {static_cast<std::uint32_t>(i - 1), static_cast<std::uint32_t>(i)});
    }
  }
  Add(strip);
}

void MeshAssembly::AddLines(const std::vector<PathPoint>& points,
                            const std::vector<PathPoint>& normals) {
  auto normal = [&normals](std::size_t i) {
    return i < normals.size() ? Vec(normals[i]) : kNoNormal;
  };
  MeshPart lines{Primitive::Lines, {}, {}};
  for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
    lines.vertices.push_back(MeshVertex{Vec(points[i]), normal(i)});
    lines.vertices.push_back(MeshVertex{Vec(points[i + 1]), normal(i + 1)});
    lines.indices.insert(lines.indices.end(),
                         {static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(i + 1)});
  }
  Add(lines);
}

void MeshAssembly::AddPolygon(const std::vector<PathPoint>& outline, const PathPoint& normal) {
  MeshPart fan{Primitive::Triangles, {}, {}};
  for (std::size_t i = 0; i < outline.size(); ++i) {
    fan.vertices.push_back(MeshVertex{Vec(outline[i]), Vec(normal)});
    if (i >= 2) {
      fan.indices.insert(fan.indices.end(),
                         {0u, static_cast<std::uint32_t>(i - 1), static_cast<std::uint32_t>(i)});
    }
  }
  Add(fan);
}

Mesh MeshAssembly::Take() {
  Mesh mesh = std::move(mesh_);
  mesh_ = Mesh();
  return mesh;
}

}  // namespace lumagrid::detail
