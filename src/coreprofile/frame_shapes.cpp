#include "coreprofile/frame_shapes.h"

#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/Mesh.h>
#include <lumagrid/SceneQuery.h>

#include <cmath>

namespace lumagrid::detail {
namespace {

// Column-major 4x4 products in double, as GL composes the model-view.
void Multiply(const float* a, const double* b, double* out) {
  for (int c = 0; c < 4; ++c) {
    for (int r = 0; r < 4; ++r) {
      double sum = 0.0;
      for (int k = 0; k < 4; ++k) {
        sum += static_cast<double>(a[4 * k + r]) * b[4 * c + k];
      }
      out[4 * c + r] = sum;
    }
  }
}

// The inverse transpose of the upper 3x3: its cofactors over the determinant. The shader
// normalises, so a singular matrix (a shape scaled flat) keeps the cofactors. Returns the
// determinant.
double NormalMatrix(const double* m, float* out) {
  auto a = [m](int r, int c) { return m[4 * c + r]; };
  double cofactor[3][3];
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) {
      cofactor[r][c] = a((r + 1) % 3, (c + 1) % 3) * a((r + 2) % 3, (c + 2) % 3) -
                       a((r + 1) % 3, (c + 2) % 3) * a((r + 2) % 3, (c + 1) % 3);
    }
  }
  const double det = a(0, 0) * cofactor[0][0] + a(0, 1) * cofactor[0][1] + a(0, 2) * cofactor[0][2];
  const double scale = det != 0.0 ? 1.0 / det : 1.0;
  for (int c = 0; c < 3; ++c) {
    for (int r = 0; r < 3; ++r) {
      out[3 * c + r] = static_cast<float>(cofactor[r][c] * scale);
    }
  }
  return det;
}

bool AllFinite(const double* m, int n) {
  for (int i = 0; i < n; ++i) {
    if (!std::isfinite(m[i])) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::vector<FrameShape> CollectFrameShapes(CGLScene& scene, const View& view) {
  std::vector<FrameShape> shapes;
  for (const SceneItem& item : SceneItems(scene)) {
    if (!item.shown) {
      continue;
    }
    FrameShape frame{item.shape, MeshKey(*item.shape), Instance{}, false, false};
    if (frame.meshKey.empty()) {
      continue;
    }
    double modelView[16];
    Multiply(view.modelView, static_cast<const double*>(item.world), modelView);
    if (!AllFinite(modelView, 16)) {
      continue;
    }
    double clip[16];
    Multiply(view.projection, modelView, clip);
    for (int i = 0; i < 16; ++i) {
      frame.instance.modelView[i] = static_cast<float>(modelView[i]);
      frame.instance.clip[i] = static_cast<float>(clip[i]);
    }
    frame.mirrored = NormalMatrix(modelView, frame.instance.normalMatrix) < 0.0;
    const CGLColor& c =
        item.shape->IsSelected() != 0 ? item.shape->HLColorGet() : item.shape->ColorGet();
    const double channels[] = {c.Red(), c.Green(), c.Blue(), c.Alpha()};
    for (int i = 0; i < 4; ++i) {
      frame.instance.colour[i] = static_cast<float>(channels[i]);
    }
    frame.translucent = frame.instance.colour[3] < 1.0f;
    shapes.push_back(std::move(frame));
  }
  return shapes;
}

float EyeDepth(const Instance& instance, const double* point) {
  const float* m = instance.modelView;
  return static_cast<float>(m[2] * point[0] + m[6] * point[1] + m[10] * point[2] + m[14]);
}

}  // namespace lumagrid::detail
