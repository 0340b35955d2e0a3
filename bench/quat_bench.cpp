// MQuat product, rotation matrix and slerp beside Eigen's Quaterniond doing
// the same work on the same inputs.

#include <lumagrid/MQuat.h>
#include <lumagrid/mat4x4.h>

#include <benchmark/benchmark.h>

#include <Eigen/Geometry>

#include <cmath>
#include <random>
#include <vector>

namespace {

// Enough distinct inputs that nothing is constant-folded or trivially
// predicted, few enough to stay in L1.
constexpr std::size_t kInputs = 64;

struct Inputs {
  std::vector<MQuat> lg;
  std::vector<Eigen::Quaterniond> eig;
  std::vector<double> t;

  Inputs() {
    std::mt19937 rng(271828);
    std::uniform_real_distribution<double> dist(-1.0, 1.0);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    while (lg.size() < kInputs) {
      MQuat q(dist(rng), dist(rng), dist(rng), dist(rng));
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
      t.push_back(unit(rng));
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
    MQuat r = in[i] * in[next(i)];
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

void productEigen(benchmark::State& state) {
  auto const& in = inputs().eig;
  std::size_t i = 0;
  for (auto _ : state) {
    Eigen::Quaterniond r = in[i] * in[next(i)];
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

// ------------------------------------------------------------- to matrix

void toMatrixLumagrid(benchmark::State& state) {
  auto const& in = inputs().lg;
  std::size_t i = 0;
  for (auto _ : state) {
    mat4x4 m;
    m.loadRotate(in[i]);
    benchmark::DoNotOptimize(m);
    i = next(i);
  }
}

void toMatrixEigen(benchmark::State& state) {
  auto const& in = inputs().eig;
  std::size_t i = 0;
  for (auto _ : state) {
    // The same sixteen values as loadRotate writes.
    Eigen::Matrix4d m;
    m.topLeftCorner<3, 3>() = in[i].toRotationMatrix();
    m.row(3).setZero();
    m.col(3).setZero();
    m(3, 3) = 1.0;
    benchmark::DoNotOptimize(m);
    i = next(i);
  }
}

// ------------------------------------------------------------- slerp

void slerpLumagrid(benchmark::State& state) {
  auto const& in = inputs().lg;
  auto const& t = inputs().t;
  std::size_t i = 0;
  for (auto _ : state) {
    MQuat r;
    r.slerp(in[i], in[next(i)], t[i]);
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

void slerpEigen(benchmark::State& state) {
  auto const& in = inputs().eig;
  auto const& t = inputs().t;
  std::size_t i = 0;
  for (auto _ : state) {
    Eigen::Quaterniond r = in[i].slerp(t[i], in[next(i)]);
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

}  // namespace

BENCHMARK(productLumagrid)->Name("quat_product/lumagrid");
BENCHMARK(productEigen)->Name("quat_product/eigen");
BENCHMARK(toMatrixLumagrid)->Name("quat_to_matrix/lumagrid");
BENCHMARK(toMatrixEigen)->Name("quat_to_matrix/eigen");
BENCHMARK(slerpLumagrid)->Name("quat_slerp/lumagrid");
BENCHMARK(slerpEigen)->Name("quat_slerp/eigen");

BENCHMARK_MAIN();
