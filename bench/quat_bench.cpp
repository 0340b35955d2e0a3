// MQuat product, rotation matrix and slerp beside Eigen's Quaterniond and
// glm's dquat doing the same work on the same inputs.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>

#include <benchmark/benchmark.h>

#include <Eigen/Geometry>
#include <glm/gtc/quaternion.hpp>

#include <vector>

#include "bench_support.h"
#include "math/random_values.h"

namespace {

struct Inputs : bench::InputsInEachLibrary<MQuat, Eigen::Quaterniond, glm::dquat> {
  std::vector<double> t;

  Inputs() {
    mathtest::RandomValues rng(271828);
    while (lg.size() < bench::kInputs) {
      MQuat q(rng.uniform(-1.0, 1.0), rng.uniform(-1.0, 1.0), rng.uniform(-1.0, 1.0),
              rng.uniform(-1.0, 1.0));
      if (q.squared() < 0.01) {
        continue;
      }
      q.normalize();
      // Neighbours on the same hemisphere, so that both slerps take one arc.
      if (!lg.empty() && q.dot(lg.back()) < 0.0) {
        q.neg();
      }
      lg.push_back(q);
      eig.emplace_back(q.w, q.x, q.y, q.z);
      glm.emplace_back(q.w, q.x, q.y, q.z);
      t.push_back(rng.uniform(0.0, 1.0));
    }
  }
};

const Inputs& inputs() {
  return bench::shared<Inputs>();
}

// ------------------------------------------------------------- to matrix

void toMatrixLumagrid(benchmark::State& state) {
  bench::eachInput<mat4x4>(state, inputs().lg, [](const MQuat& q) {
    mat4x4 m;
    m.loadRotate(q);
    return m;
  });
}

void toMatrixEigen(benchmark::State& state) {
  bench::eachInput<Eigen::Matrix4d>(state, inputs().eig, [](const Eigen::Quaterniond& q) {
    // The same sixteen values as loadRotate writes.
    Eigen::Matrix4d m;
    m.topLeftCorner<3, 3>() = q.toRotationMatrix();
    m.row(3).setZero();
    m.col(3).setZero();
    m(3, 3) = 1.0;
    return m;
  });
}

void toMatrixGlm(benchmark::State& state) {
  // mat4_cast fills the same sixteen values, bottom row and last column included.
  bench::eachInput<glm::dmat4>(state, inputs().glm,
                               [](const glm::dquat& q) { return glm::mat4_cast(q); });
}

// ------------------------------------------------------------- slerp

void slerpLumagrid(benchmark::State& state) {
  const auto& in = inputs().lg;
  const auto& t = inputs().t;
  bench::cycle<MQuat>(state, [&](std::size_t i) {
    MQuat r;
    r.slerp(in[i], in[bench::next(i)], t[i]);
    return r;
  });
}

void slerpEigen(benchmark::State& state) {
  const auto& in = inputs().eig;
  const auto& t = inputs().t;
  bench::cycle<Eigen::Quaterniond>(
      state, [&](std::size_t i) { return in[i].slerp(t[i], in[bench::next(i)]); });
}

void slerpGlm(benchmark::State& state) {
  const auto& in = inputs().glm;
  const auto& t = inputs().t;
  bench::cycle<glm::dquat>(
      state, [&](std::size_t i) { return glm::slerp(in[i], in[bench::next(i)], t[i]); });
}

}  // namespace

int main(int argc, char** argv) {
  bench::registerProducts<Inputs>("quat_product");
  bench::registerBesideEigenAndGlm("quat_to_matrix", toMatrixLumagrid, toMatrixEigen, toMatrixGlm);
  bench::registerBesideEigenAndGlm("quat_slerp", slerpLumagrid, slerpEigen, slerpGlm);
  return bench::runRegistered(argc, argv);
}
