// mat4x4 product, inverse, determinant and point transform beside Eigen's
// Matrix4d and glm's dmat4 doing the same work on the same inputs.

#include <lumagrid/mat4x4.h>

#include <benchmark/benchmark.h>

#include <Eigen/Dense>
#include <glm/glm.hpp>

#include <cstring>
#include <random>
#include <vector>

namespace {

// Enough distinct inputs that nothing is constant-folded or trivially
// predicted, few enough to stay in L1.
constexpr std::size_t kInputs = 64;

struct Inputs {
  std::vector<mat4x4> lg;
  std::vector<Eigen::Matrix4d> eig;
  std::vector<glm::dmat4> glm;
  std::vector<vec3d> lgPts;
  std::vector<Eigen::Vector3d> eigPts;
  std::vector<glm::dvec3> glmPts;

  Inputs() {
    std::mt19937 rng(8675309);
    std::uniform_real_distribution<double> dist(-1.0, 1.0);
    for (std::size_t n = 0; n < kInputs; ++n) {
      double e[16];
      for (double& x : e) {
        x = dist(rng);
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
      double const x = dist(rng) * 10.0;
      double const y = dist(rng) * 10.0;
      double const z = dist(rng) * 10.0;
      lgPts.emplace_back(x, y, z);
      eigPts.emplace_back(x, y, z);
      glmPts.emplace_back(x, y, z);
    }
  }
};

Inputs const& inputs() {
  static Inputs const in;
  return in;
}

std::size_t next(std::size_t i) {
  return (i + 1) % kInputs;
}

// ------------------------------------------------------------- product

void productLumagrid(benchmark::State& state) {
  auto const& in = inputs().lg;
  std::size_t i = 0;
  for (auto _ : state) {
    mat4x4 r = in[i] * in[next(i)];
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

void productEigen(benchmark::State& state) {
  auto const& in = inputs().eig;
  std::size_t i = 0;
  for (auto _ : state) {
    Eigen::Matrix4d r = in[i] * in[next(i)];
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

void productGlm(benchmark::State& state) {
  auto const& in = inputs().glm;
  std::size_t i = 0;
  for (auto _ : state) {
    glm::dmat4 r = in[i] * in[next(i)];
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

// ------------------------------------------------------------- inverse

void invLumagrid(benchmark::State& state) {
  auto const& in = inputs().lg;
  std::size_t i = 0;
  for (auto _ : state) {
    mat4x4 r = in[i];
    bool ok = r.inv();
    benchmark::DoNotOptimize(ok);
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

void invEigen(benchmark::State& state) {
  auto const& in = inputs().eig;
  std::size_t i = 0;
  for (auto _ : state) {
    Eigen::Matrix4d r = in[i].inverse();
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

void invGlm(benchmark::State& state) {
  auto const& in = inputs().glm;
  std::size_t i = 0;
  for (auto _ : state) {
    glm::dmat4 r = glm::inverse(in[i]);
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

// --------------------------------------------------------- determinant

void detLumagrid(benchmark::State& state) {
  auto const& in = inputs().lg;
  std::size_t i = 0;
  for (auto _ : state) {
    double d = in[i].det();
    benchmark::DoNotOptimize(d);
    i = next(i);
  }
}

void detEigen(benchmark::State& state) {
  auto const& in = inputs().eig;
  std::size_t i = 0;
  for (auto _ : state) {
    double d = in[i].determinant();
    benchmark::DoNotOptimize(d);
    i = next(i);
  }
}

void detGlm(benchmark::State& state) {
  auto const& in = inputs().glm;
  std::size_t i = 0;
  for (auto _ : state) {
    double d = glm::determinant(in[i]);
    benchmark::DoNotOptimize(d);
    i = next(i);
  }
}

// ------------------------------------------------------ point transform

void transformLumagrid(benchmark::State& state) {
  auto const& m = inputs().lg;
  auto const& p = inputs().lgPts;
  std::size_t i = 0;
  for (auto _ : state) {
    vec3d v = p[i];
    m[i].transform(v);
    benchmark::DoNotOptimize(v);
    i = next(i);
  }
}

void transformEigen(benchmark::State& state) {
  auto const& m = inputs().eig;
  auto const& p = inputs().eigPts;
  std::size_t i = 0;
  for (auto _ : state) {
    // The affine part of the 4x4 applied to a point, as transform() does.
    Eigen::Vector3d v = m[i].topLeftCorner<3, 3>() * p[i] + m[i].col(3).head<3>();
    benchmark::DoNotOptimize(v);
    i = next(i);
  }
}

void transformGlm(benchmark::State& state) {
  auto const& m = inputs().glm;
  auto const& p = inputs().glmPts;
  std::size_t i = 0;
  for (auto _ : state) {
    glm::dvec3 v = glm::dvec3(m[i] * glm::dvec4(p[i], 1.0));
    benchmark::DoNotOptimize(v);
    i = next(i);
  }
}

}  // namespace

BENCHMARK(productLumagrid)->Name("mat4x4_product/lumagrid");
BENCHMARK(productEigen)->Name("mat4x4_product/eigen");
BENCHMARK(productGlm)->Name("mat4x4_product/glm");
BENCHMARK(invLumagrid)->Name("mat4x4_inv/lumagrid");
BENCHMARK(invEigen)->Name("mat4x4_inv/eigen");
BENCHMARK(invGlm)->Name("mat4x4_inv/glm");
BENCHMARK(detLumagrid)->Name("mat4x4_det/lumagrid");
BENCHMARK(detEigen)->Name("mat4x4_det/eigen");
BENCHMARK(detGlm)->Name("mat4x4_det/glm");
BENCHMARK(transformLumagrid)->Name("mat4x4_transform/lumagrid");
BENCHMARK(transformEigen)->Name("mat4x4_transform/eigen");
BENCHMARK(transformGlm)->Name("mat4x4_transform/glm");

BENCHMARK_MAIN();
