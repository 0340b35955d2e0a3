// mat4x4 product, inverse, determinant and point transform beside Eigen's
// Matrix4d and glm's dmat4 doing the same work on the same inputs.

#include <lumagrid/mat4x4.h>

#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <glm/glm.hpp>

#include <cstring>
#include <vector>

#include "bench_support.h"
#include "math/random_values.h"

namespace {

struct Inputs : bench::InputsInEachLibrary<mat4x4, Eigen::Matrix4d, glm::dmat4> {
  std::vector<vec3d> lgPts;
  std::vector<Eigen::Vector3d> eigPts;
  std::vector<glm::dvec3> glmPts;

  Inputs() {
    mathtest::RandomValues rng(8675309);
    for (std::size_t n = 0; n < bench::kInputs; ++n) {
      double e[16];
      for (double& x : e) {
        x = rng.uniform(-1.0, 1.0);
      }
      // A dominant diagonal keeps every matrix invertible, while the full
      // pivot search still sees varied values.
      for (int i = 0; i < 4; ++i) {
        e[5 * i] += (n + i) % 2 ? 3.0 : -3.0;
      }
      mat4x4 m;
      std::memcpy(static_cast<double*>(m), e, sizeof e);
      lg.push_back(m);
      eig.push_back(Eigen::Map<Eigen::Matrix4d>(e));
      glm::dmat4 g;
      std::memcpy(&g[0][0], e, sizeof e);
      glm.push_back(g);
      const double x = rng.uniform(-1.0, 1.0) * 10.0;
      const double y = rng.uniform(-1.0, 1.0) * 10.0;
      const double z = rng.uniform(-1.0, 1.0) * 10.0;
      lgPts.emplace_back(x, y, z);
      eigPts.emplace_back(x, y, z);
      glmPts.emplace_back(x, y, z);
    }
  }
};

const Inputs& inputs() {
  return bench::shared<Inputs>();
}

// ------------------------------------------------------------- inverse

void invLumagrid(benchmark::State& state) {
  bench::eachInput<mat4x4>(state, inputs().lg, [](const mat4x4& m) {
    mat4x4 r = m;
    bool ok = r.inv();
    benchmark::DoNotOptimize(ok);
    return r;
  });
}

void invEigen(benchmark::State& state) {
  bench::eachInput<Eigen::Matrix4d>(state, inputs().eig, [](const auto& m) { return m.inverse(); });
}

void invGlm(benchmark::State& state) {
  bench::eachInput<glm::dmat4>(state, inputs().glm, [](const auto& m) { return glm::inverse(m); });
}

// --------------------------------------------------------- determinant

void detLumagrid(benchmark::State& state) {
  bench::eachInput<double>(state, inputs().lg, [](const auto& m) { return m.det(); });
}

void detEigen(benchmark::State& state) {
  bench::eachInput<double>(state, inputs().eig, [](const auto& m) { return m.determinant(); });
}

void detGlm(benchmark::State& state) {
  bench::eachInput<double>(state, inputs().glm, [](const auto& m) { return glm::determinant(m); });
}

// ------------------------------------------------------ point transform

void transformLumagrid(benchmark::State& state) {
  const auto& m = inputs().lg;
  const auto& p = inputs().lgPts;
  bench::cycle<vec3d>(state, [&](std::size_t i) { return m[i] * p[i]; });
}

void transformEigen(benchmark::State& state) {
  const auto& m = inputs().eig;
  const auto& p = inputs().eigPts;
  // The affine part of the 4x4 applied to a point, as transform() does.
  bench::cycle<Eigen::Vector3d>(state, [&](std::size_t i) {
    return m[i].topLeftCorner<3, 3>() * p[i] + m[i].col(3).head<3>();
  });
}

void transformGlm(benchmark::State& state) {
  const auto& m = inputs().glm;
  const auto& p = inputs().glmPts;
  bench::cycle<glm::dvec3>(state,
                           [&](std::size_t i) { return glm::dvec3(m[i] * glm::dvec4(p[i], 1.0)); });
}

// ------------------------------------------------ batch point transform

// Points moved per iteration: in and out stay in L1.
constexpr std::size_t kBatch = 256;

void transformBatchLumagrid(benchmark::State& state) {
  const mat4x4& m = inputs().lg[0];
  std::vector<vec3d> in(kBatch);
  for (std::size_t i = 0; i < kBatch; ++i) {
    in[i] = inputs().lgPts[i % bench::kInputs];
  }
  std::vector<vec3d> out(kBatch);
  for (auto _ : state) {
    m.transform(in.data(), out.data(), kBatch);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
}

// Eigen's single point transform, called for each point in turn.
void transformBatchEigen(benchmark::State& state) {
  const Eigen::Matrix4d& m = inputs().eig[0];
  std::vector<Eigen::Vector3d> in(kBatch);
  for (std::size_t i = 0; i < kBatch; ++i) {
    in[i] = inputs().eigPts[i % bench::kInputs];
  }
  std::vector<Eigen::Vector3d> out(kBatch);
  for (auto _ : state) {
    for (std::size_t i = 0; i < kBatch; ++i) {
      out[i] = m.topLeftCorner<3, 3>() * in[i] + m.col(3).head<3>();
    }
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
  }
}

}  // namespace

int main(int argc, char** argv) {
  bench::registerProducts<Inputs>("mat4x4_product");
  bench::registerBesideEigenAndGlm("mat4x4_inv", invLumagrid, invEigen, invGlm);
  bench::registerBesideEigenAndGlm("mat4x4_det", detLumagrid, detEigen, detGlm);
  bench::registerBesideEigenAndGlm("mat4x4_transform", transformLumagrid, transformEigen,
                                   transformGlm);
  benchmark::RegisterBenchmark("mat4x4_transform_batch/lumagrid", transformBatchLumagrid);
  benchmark::RegisterBenchmark("mat4x4_transform_batch/eigen", transformBatchEigen);
  return bench::runRegistered(argc, argv);
}
