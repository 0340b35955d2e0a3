#include "mesh/glu_quadric_strips.h"

#include <cmath>

#include "math/angles.h"

namespace lumagrid::detail {

namespace {

// The ring's vertex at slice i, slice `slices` closing the ring on slice 0.
std::uint32_t SliceOf(std::uint32_t ring, int slices, int i) {
  return ring + static_cast<std::uint32_t>(i % slices);
}

void AppendTriangle(MeshPart& part, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
  part.indices.insert(part.indices.end(), {a, b, c});
}

}  // namespace

std::uint32_t AppendVertex(MeshPart& part, const vec3d& position, const vec3d& normal) {
  part.vertices.push_back({position, normal});
  return static_cast<std::uint32_t>(part.vertices.size() - 1);
}

std::uint32_t AppendRing(MeshPart& part, int slices, const QuadricRing& ring) {
  const auto first = static_cast<std::uint32_t>(part.vertices.size());
  for (int i = 0; i < slices; ++i) {
    const double angle = kTwoPi * i / slices;
    const double s = std::sin(angle);
    const double c = std::cos(angle);
    AppendVertex(part, {ring.radius * s, ring.radius * c, ring.z},
                 {ring.normalRadial * s, ring.normalRadial * c, ring.normalZ});
  }
  return first;
}

void AppendQuadStrip(MeshPart& part, std::uint32_t first, std::uint32_t second, int slices) {
  for (int i = 0; i < slices; ++i) {
    // GL's quad k of a strip is the pairs k and k+1, the second pair taken backwards.
    const std::uint32_t q0 = SliceOf(first, slices, i);
    const std::uint32_t q1 = SliceOf(second, slices, i);
    const std::uint32_t q2 = SliceOf(second, slices, i + 1);
    const std::uint32_t q3 = SliceOf(first, slices, i + 1);
    AppendTriangle(part, q0, q1, q2);
    AppendTriangle(part, q0, q2, q3);
  }
}

void AppendFan(MeshPart& part, std::uint32_t apex, std::uint32_t ring, int slices, FanOrder order) {
  for (int k = 0; k < slices; ++k) {
    const int i = order == FanOrder::Ascending ? k : slices - k;
    const int next = order == FanOrder::Ascending ? i + 1 : i - 1;
    AppendTriangle(part, apex, SliceOf(ring, slices, i), SliceOf(ring, slices, next));
  }
}

}  // namespace lumagrid::detail
