// A host that reads its shapes' geometry without a GL context: a mesh, the scene's box, and a
// pick along a ray, with the picked shape described in words. Exits 0 when each answer is the one
// worked out below.
#include <lumagrid/lumagrid.h>

#include <cmath>
#include <cstdio>
#include <string>

int main() {
  CGLScene scene;  // owns and deletes the shapes
  auto* ball = new CGLSphere(0.5);
  auto* spring = new CGLSpring();  // wire 0.1, coil 1, 5 long, 3 turns
  spring->Move(3.0, 0.0, 0.0);
  scene.AddGLShape(ball);
  scene.AddGLShape(spring);

  // The spring's tube in its own frame: triangles with unit normals.
  std::size_t triangles = 0;
  for (const lumagrid::MeshPart& part : lumagrid::MeshOf(*spring).parts) {
    if (part.primitive == lumagrid::Primitive::Triangles) {
      triangles += part.indices.size() / 3;
    }
  }

  // The ball reaches x = -0.5; the spring's coil, wire included, x = 3 + 1.1, a hair more where
  // the tube's joints are mitred.
  const lumagrid::Bounds box = lumagrid::BoundsOf(scene);

  // Straight down onto the ball: its top, 0.5 above the origin, is 9.5 below the eye.
  lumagrid::Hit hit{};
  const bool met = lumagrid::Pick(scene, vec3d(0.0, 0.0, 10.0), vec3d(0.0, 0.0, -1.0), hit);

  // The picked shape in words, as a window title would name it.
  const std::string picked = met ? lumagrid::DescribeShape(*hit.shape) : "nothing";

  std::printf("spring: %zu triangles; scene box x %.3f to %.3f; pick: %s at %.3f\n", triangles,
              box.min.x(), box.max.x(), picked.c_str(), hit.distance);
  const bool ok = triangles > 0 && std::fabs(box.min.x() + 0.5) < 1e-6 &&
                  box.max.x() > 4.1 - 1e-6 && box.max.x() < 4.11 && met && hit.shape == ball &&
                  std::fabs(hit.distance - 9.5) < 1e-6 && picked == "CGLSphere radius 0.5";
  return ok ? 0 : 1;
}
