#include "core_view.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

#include "gallery_catalog.h"

namespace viewer {
namespace {

constexpr double kPi = 3.14159265358979323846;

// The gallery's lights (gallery_view.cpp), in eye space.
constexpr lumagrid::Light kKeyLight = {{-0.45f, 0.6f, 1.0f, 0.0f}, {0.85f, 0.85f, 0.82f, 1.0f}};
constexpr lumagrid::Light kFillLight = {{0.8f, -0.35f, 0.5f, 0.0f}, {0.35f, 0.37f, 0.45f, 1.0f}};
constexpr float kAmbient[] = {0.22f, 0.22f, 0.24f, 1.0f};
constexpr float kFullAmbient[] = {1.0f, 1.0f, 1.0f, 1.0f};

// Column-major 4x4 matrices, composed as GL's matrix calls compose them: m = m * other.
struct Matrix {
  double m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

  void multiply(const Matrix& other) {
    double product[16];
    for (int c = 0; c < 4; ++c) {
      for (int r = 0; r < 4; ++r) {
        double sum = 0.0;
        for (int k = 0; k < 4; ++k) {
          sum += m[4 * k + r] * other.m[4 * c + k];
        }
        product[4 * c + r] = sum;
      }
    }
    std::copy(product, product + 16, m);
  }
};

Matrix scale(double x, double y, double z) {
  Matrix s;
  s.m[0] = x;
  s.m[5] = y;
  s.m[10] = z;
  return s;
}

Matrix translate(double x, double y, double z) {
  Matrix t;
  t.m[12] = x;
  t.m[13] = y;
  t.m[14] = z;
  return t;
}

Matrix perspective(double fieldOfView, double aspect, double zNear, double zFar) {
  const double f = 1.0 / std::tan(fieldOfView / 2 * kPi / 180.0);
  Matrix p;
  p.m[0] = f / aspect;
  p.m[5] = f;
  p.m[10] = (zFar + zNear) / (zNear - zFar);
  p.m[11] = -1.0;
  p.m[14] = 2 * zFar * zNear / (zNear - zFar);
  p.m[15] = 0.0;
  return p;
}

// A turn about the x axis (axis 0) or the y axis (axis 1), in degrees.
Matrix rotate(double degrees, int axis) {
  const double c = std::cos(degrees * kPi / 180.0);
  const double s = std::sin(degrees * kPi / 180.0);
  // The two coordinates the turn mixes: y and z about x, z and x about y.
  const int a = axis == 0 ? 1 : 2;
  const int b = axis == 0 ? 2 : 0;
  Matrix r;
  r.m[4 * a + a] = c;
  r.m[4 * a + b] = s;
  r.m[4 * b + a] = -s;
  r.m[4 * b + b] = c;
  return r;
}

lumagrid::View matricesOf(const Camera& camera) {
  lumagrid::View view{};
  for (int i = 0; i < 16; ++i) {
    view.modelView[i] = static_cast<float>(camera.modelview[i]);
    view.projection[i] = static_cast<float>(camera.projection[i]);
  }
  return view;
}

}  // namespace

Camera coreCamera(const gallery::Layout& layout, const gallery::Orbit& orbit) {
  const gallery::Camera home = gallery::homeCamera(layout);
  // The same depth range as setUpView(): the shapes stand within 4 units of the z = 0 plane,
  // and turned, the world's corners swing towards and away from the camera.
  const double halfDiagonal = std::hypot(layout.worldWidth(), layout.worldHeight()) / 2;
  const double reach = orbit.turned() ? std::max(4.0, halfDiagonal + 2.0) : 4.0;
  Matrix projection = scale(orbit.zoom, orbit.zoom, 1.0);
  projection.multiply(
      perspective(home.fieldOfView, static_cast<double>(layout.width()) / layout.height(),
                  std::max(home.distance - reach, home.distance / 20), home.distance + reach));
  // Looking from (0, 0, distance) at the origin with +y up is a step back along z.
  Matrix modelview = translate(0.0, 0.0, -home.distance);
  modelview.multiply(rotate(orbit.pitch, 0));
  modelview.multiply(rotate(orbit.yaw, 1));

  Camera camera{};
  std::copy(modelview.m, modelview.m + 16, camera.modelview);
  std::copy(projection.m, projection.m + 16, camera.projection);
  camera.viewport[2] = layout.width();
  camera.viewport[3] = layout.height();
  return camera;
}

lumagrid::View litView(const Camera& camera) {
  lumagrid::View view = matricesOf(camera);
  view.lights = {kKeyLight, kFillLight};
  std::copy(kAmbient, kAmbient + 4, view.ambient);
  return view;
}

lumagrid::View flatView(const Camera& camera) {
  lumagrid::View view = matricesOf(camera);
  std::copy(kFullAmbient, kFullAmbient + 4, view.ambient);
  return view;
}

void clearCore(const Camera& camera) {
  const int* v = camera.viewport;
  glViewport(v[0], v[1], v[2], v[3]);
  const gallery::Rgb8 bg = gallery::kBackground;
  glClearColor(bg.r / 255.0f, bg.g / 255.0f, bg.b / 255.0f, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

bool drawCore(lumagrid::CoreProfileRenderer& renderer, gallery::GalleryScene& scene,
              const Camera& camera, std::string* error) {
  const lumagrid::View lit = litView(camera);
  const lumagrid::View flat = flatView(camera);
  // The layers in the order scenes() gives them: lit, wire, flat, translucent.
  const std::vector<CGLScene*> layers = scene.scenes();
  struct Pass {
    const lumagrid::View* view;
    float lineWidth;
  };
  const Pass passes[] = {{&lit, 2.0f}, {&lit, 1.0f}, {&flat, 2.0f}, {&lit, 2.0f}};
  for (std::size_t i = 0; i < layers.size() && i < std::size(passes); ++i) {
    glLineWidth(passes[i].lineWidth);
    if (!renderer.Draw(*layers[i], *passes[i].view)) {
      *error = renderer.LastError();
      return false;
    }
  }
  return true;
}

}  // namespace viewer
