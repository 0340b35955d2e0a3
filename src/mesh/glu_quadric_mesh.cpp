#include "mesh/glu_quadric_mesh.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <vector>

#include "math/angles.h"
#include "mesh/glu_quadric_strips.h"

namespace lumagrid::detail {

namespace {

// GLU computes in single precision: a NaN, or a value beyond a float's range, would reach GL
// as a non-finite vertex, so such a call gives an empty part instead.
bool FitsInFloat(double value) {
  return std::fabs(value) <= FLT_MAX;
}

bool TooManyTriangles(int slices, std::size_t stripsOfQuads, std::size_t fanCount) {
  const auto perRing = static_cast<std::size_t>(slices);
  return 2 * perRing * stripsOfQuads + perRing * fanCount > kMaxQuadricTriangles;
}

void Reserve(MeshPart& part, std::size_t vertices, std::size_t triangles) {
  part.vertices.reserve(vertices);
  part.indices.reserve(3 * triangles);
}

// Stack j of a sphere lies at polar angle pi*j/stacks from +z.
QuadricRing SphereRing(double radius, int j, int stacks) {
  const double angle = kPi * j / stacks;
  // The poles come to a point.
  const double s = j == 0 || j == stacks ? 0.0 : std::sin(angle);
  const double c = std::cos(angle);
  return {radius * s, radius * c, s, c};
}

}  // namespace

MeshPart GluSphereMesh(double radius, int slices, int stacks) {
  slices = std::min(slices, kGluMaxSlices);
  stacks = std::min(stacks, kGluMaxSlices);
  if (slices < 2 || stacks < 1 || !(radius >= 0.0) || !FitsInFloat(radius)) {
    return {};
  }
  MeshPart part;
  const auto ringCount = static_cast<std::size_t>(std::max(stacks - 1, 2));
  const auto strips = static_cast<std::size_t>(std::max(stacks - 2, 0));
  Reserve(part, ringCount * slices + 2, 2 * slices * (strips + 1));

  // Without texture coordinates GLU closes each end with a fan round its pole and joins the
  // stacks between with quad strips. With one stack the fans' rings are the poles themselves.
  std::vector<std::uint32_t> rings(static_cast<std::size_t>(stacks) + 1);
  const std::uint32_t north = AppendVertex(part, {0.0, 0.0, radius}, {0.0, 0.0, 1.0});
  if (stacks == 1) {
    rings[1] = AppendRing(part, slices, SphereRing(radius, 1, stacks));
    rings[0] = AppendRing(part, slices, SphereRing(radius, 0, stacks));
  } else {
    for (int j = 1; j < stacks; ++j) {
      rings[j] = AppendRing(part, slices, SphereRing(radius, j, stacks));
    }
  }
  const std::uint32_t south = AppendVertex(part, {0.0, 0.0, -radius}, {0.0, 0.0, -1.0});

  AppendFan(part, north, rings[1], slices, FanOrder::Descending);
  AppendFan(part, south, rings[stacks - 1], slices, FanOrder::Ascending);
  for (int j = 1; j + 1 < stacks; ++j) {
    AppendQuadStrip(part, rings[j + 1], rings[j], slices);
  }
  return part;
}

MeshPart GluCylinderMesh(double baseRadius, double topRadius, double height, int slices, int stacks,
                         QuadricOrientation orientation) {
  slices = std::min(slices, kGluMaxSlices);
  if (slices < 2 || stacks < 1 || !(baseRadius >= 0.0) || !(topRadius >= 0.0) || !(height >= 0.0) ||
      !FitsInFloat(baseRadius) || !FitsInFloat(topRadius) || !FitsInFloat(height)) {
    return {};
  }
  // GLU refuses a side of no length, judged in its own mix of float and double.
  const auto deltaInFloat = static_cast<float>(baseRadius - topRadius);
  const double lengthSquared = static_cast<double>(deltaInFloat * deltaInFloat) + height * height;
  if (static_cast<float>(std::sqrt(lengthSquared)) == 0.0f) {
    return {};
  }
  if (TooManyTriangles(slices, static_cast<std::size_t>(stacks), 0)) {
    return {};
  }
  MeshPart part;
  Reserve(part, (static_cast<std::size_t>(stacks) + 1) * slices,
          2 * static_cast<std::size_t>(slices) * stacks);

  const double delta = baseRadius - topRadius;
  const double length = std::hypot(delta, height);
  const bool outside = orientation == QuadricOrientation::Outside;
  // Turned inside, GLU turns the normal's radial part only.
  const double normalRadial = (outside ? height : -height) / length;
  const double normalZ = delta / length;

  std::vector<std::uint32_t> rings(static_cast<std::size_t>(stacks) + 1);
  for (int j = 0; j <= stacks; ++j) {
    const double fraction = static_cast<double>(j) / stacks;
    rings[j] = AppendRing(
        part, slices, {baseRadius - delta * fraction, j * height / stacks, normalRadial, normalZ});
  }
  for (int j = 0; j < stacks; ++j) {
    if (outside) {
      AppendQuadStrip(part, rings[j], rings[j + 1], slices);
    } else {
      AppendQuadStrip(part, rings[j + 1], rings[j], slices);
    }
  }
  return part;
}

MeshPart GluDiskMesh(double innerRadius, double outerRadius, int slices, int loops,
                     QuadricOrientation orientation) {
  slices = std::min(slices, kGluMaxSlices);
  if (slices < 2 || loops < 1 || !(outerRadius > 0.0) || !(innerRadius >= 0.0) ||
      innerRadius > outerRadius || !FitsInFloat(outerRadius)) {
    return {};
  }
  // With no hole GLU draws the innermost loop as a fan round the centre.
  const bool hasCentreFan = innerRadius == 0.0;
  const auto strips = static_cast<std::size_t>(hasCentreFan ? loops - 1 : loops);
  if (TooManyTriangles(slices, strips, hasCentreFan ? 1 : 0)) {
    return {};
  }
  MeshPart part;
  Reserve(part, (strips + 1) * slices + 1, 2 * static_cast<std::size_t>(slices) * (strips + 1));

  const bool outside = orientation == QuadricOrientation::Outside;
  const double normalZ = outside ? 1.0 : -1.0;
  const double delta = outerRadius - innerRadius;
  // Ring j runs at radius outer - delta*j/loops, ring 0 outermost.
  std::vector<std::uint32_t> rings(strips + 1);
  for (std::size_t j = 0; j <= strips; ++j) {
    const double fraction = static_cast<double>(j) / loops;
    rings[j] = AppendRing(part, slices, {outerRadius - delta * fraction, 0.0, 0.0, normalZ});
  }
  if (hasCentreFan) {
    const std::uint32_t centre = AppendVertex(part, {0.0, 0.0, 0.0}, {0.0, 0.0, normalZ});
    AppendFan(part, centre, rings[strips], slices,
              outside ? FanOrder::Descending : FanOrder::Ascending);
  }
  for (std::size_t j = 0; j < strips; ++j) {
    if (outside) {
      AppendQuadStrip(part, rings[j], rings[j + 1], slices);
    } else {
      AppendQuadStrip(part, rings[j + 1], rings[j], slices);
    }
  }
  return part;
}

}  // namespace lumagrid::detail
