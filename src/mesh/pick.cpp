#include <lumagrid/Mesh.h>
#include <lumagrid/SceneQuery.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "mesh/extent.h"
#include "mesh/ray.h"
#include "mesh/scene_walk.h"

namespace lumagrid {

namespace {

bool Finite(const vec3d& v) {
  return std::isfinite(v.x()) && std::isfinite(v.y()) && std::isfinite(v.z());
}

bool Finite(const Bounds& b) {
  return b.empty || (Finite(b.min) && Finite(b.max));
}

struct Candidate {
  double enter;
  detail::SceneLeaf leaf;
};

// The shown leaves whose boxes the ray enters, kept with where it enters them.
class BoxFilter final : public detail::SceneLeafVisitor {
 public:
  BoxFilter(const detail::Ray& ray, double tolerance, std::vector<Candidate>& out)
      : ray_(ray), tolerance_(tolerance), out_(out) {}

  void Visit(const detail::SceneLeaf& leaf) override {
    if (!leaf.shown) {
      return;
    }
    const Bounds local = detail::ExtentOf(*leaf.shape);
    if (!Finite(local)) {
      out_.push_back({0.0, leaf});
      return;
    }
    const Bounds world = detail::Carried(local, leaf.world);
    // A hair more than the tolerance, so that rounding never loses a triangle on the box.
    const double pad = tolerance_ + 1e-9 * (std::fabs(world.max.x() - world.min.x()) +
                                            std::fabs(world.max.y() - world.min.y()) +
                                            std::fabs(world.max.z() - world.min.z()));
    const double enter = detail::EntersBox(ray_, world, pad);
    if (enter >= 0.0) {
      out_.push_back({enter, leaf});
    }
  }

 private:
  const detail::Ray& ray_;
  double tolerance_;
  std::vector<Candidate>& out_;
};

// The nearest crossing of the leaf's mesh nearer than `best`, in world units of t.
double NearestOnMesh(const detail::Ray& ray, const detail::SceneLeaf& leaf, double tolerance,
                     double best) {
  for (const MeshPart& part : MeshOf(*leaf.shape).parts) {
    std::vector<vec3d> world;
    world.reserve(part.vertices.size());
    for (const MeshVertex& v : part.vertices) {
      world.push_back(detail::TransformedPoint(leaf.world, v.position));
    }
    const std::vector<std::uint32_t>& ix = part.indices;
    if (part.primitive == Primitive::Triangles) {
      for (std::size_t i = 0; i + 2 < ix.size(); i += 3) {
        const double t =
            detail::CrossesTriangle(ray, world[ix[i]], world[ix[i + 1]], world[ix[i + 2]]);
        if (t >= 0.0 && t < best) {
          best = t;
        }
      }
    } else if (tolerance > 0.0) {
      for (std::size_t i = 0; i + 1 < ix.size(); i += 2) {
        const double t = detail::PassesSegment(ray, world[ix[i]], world[ix[i + 1]], tolerance);
        if (t >= 0.0 && t < best) {
          best = t;
        }
      }
    }
  }
  return best;
}

}  // namespace

bool Pick(CGLScene& scene, const vec3d& origin, const vec3d& direction, Hit& hit,
          double lineTolerance) {
  const bool zero = direction.x() == 0.0 && direction.y() == 0.0 && direction.z() == 0.0;
  if (zero || !Finite(origin) || !Finite(direction) || !std::isfinite(lineTolerance) ||
      lineTolerance < 0.0) {
    return false;
  }
  const detail::Ray ray{origin, direction};

  // Boxes first, nearest first: a shape whose box starts beyond the best hit is never meshed.
  std::vector<Candidate> candidates;
  BoxFilter filter(ray, lineTolerance, candidates);
  detail::VisitSceneLeaves(scene, filter);
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& a, const Candidate& b) { return a.enter < b.enter; });

  double best = HUGE_VAL;
  const detail::SceneLeaf* found = nullptr;
  for (const Candidate& c : candidates) {
    if (c.enter > best) {
      break;
    }
    const double t = NearestOnMesh(ray, c.leaf, lineTolerance, best);
    if (t < best) {
      best = t;
      found = &c.leaf;
    }
  }
  if (found == nullptr) {
    return false;
  }
  hit.shape = found->shape;
  hit.distance = best;
  hit.point = vec3d(origin.x() + best * direction.x(), origin.y() + best * direction.y(),
                    origin.z() + best * direction.z());
  return true;
}

}  // namespace lumagrid
