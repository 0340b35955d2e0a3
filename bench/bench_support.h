// Glue shared by the benchmark programs: inputs built once per program,
// and the loop that cycles through them. All of it is inline, so a benchmark
// written on it compiles to the loop it would be by hand, for the library and
// the references alike.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

// Enough distinct inputs that nothing is constant-folded or trivially
// predicted, few enough to stay in L1.
constexpr std::size_t kInputs = 64;

// The input after i, wrapping round.
inline std::size_t next(std::size_t i) {
  return (i + 1) % kInputs;
}

// A program's inputs, built on first use and shared by all its benchmarks.
template <class Inputs>
const Inputs& shared() {
  static const Inputs in;
  return in;
}

// Each iteration stores op(i) in an R and hands it to DoNotOptimize, i
// cycling through the inputs. Naming R makes Eigen evaluate its lazy
// expressions inside the loop, as a declared local would.
template <class R, class Op>
inline BENCHMARK_ALWAYS_INLINE void cycle(benchmark::State& state, Op op) {
  std::size_t i = 0;
  for (auto _ : state) {
    R r = op(i);
    benchmark::DoNotOptimize(r);
    i = next(i);
  }
}

// op(in[i]) for each input in turn.
template <class R, class T, class Op>
inline BENCHMARK_ALWAYS_INLINE void eachInput(benchmark::State& state, const std::vector<T>& in,
                                              Op op) {
  cycle<R>(state, [&](std::size_t i) { return op(in[i]); });
}

// op(in[i], in[next(i)]): each input with the one after it.
template <class R, class T, class Op>
inline BENCHMARK_ALWAYS_INLINE void eachPair(benchmark::State& state, const std::vector<T>& in,
                                             Op op) {
  cycle<R>(state, [&](std::size_t i) { return op(in[i], in[next(i)]); });
}

// The product every implementation spells a * b.
inline constexpr auto multiply = [](const auto& a, const auto& b) { return a * b; };

// The same inputs in lumagrid's, Eigen's and glm's types. A program's Inputs derives from it and
// fills the three alike.
template <class L, class E, class G>
struct InputsInEachLibrary {
  using Values = InputsInEachLibrary;
  using LumagridType = L;
  using EigenType = E;
  using GlmType = G;
  std::vector<L> lg;
  std::vector<E> eig;
  std::vector<G> glm;
};

// a * b over each of the program's inputs in one type and the one after it.
template <class Inputs, class T, const std::vector<T> Inputs::Values::*member>
void products(benchmark::State& state) {
  eachPair<T>(state, shared<Inputs>().*member, multiply);
}

// Times a builder alone: one call an iteration, its result kept.
template <class Build>
inline BENCHMARK_ALWAYS_INLINE void eachBuild(benchmark::State& state, Build build) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(build());
  }
}

using Benchmark = void (*)(benchmark::State&);

// operation/lumagrid, operation/eigen and operation/glm, in that order.
inline void registerBesideEigenAndGlm(const std::string& operation, Benchmark lumagrid,
                                      Benchmark eigen, Benchmark glm) {
  benchmark::RegisterBenchmark((operation + "/lumagrid").c_str(), lumagrid);
  benchmark::RegisterBenchmark((operation + "/eigen").c_str(), eigen);
  benchmark::RegisterBenchmark((operation + "/glm").c_str(), glm);
}

// operation's products, a * b, in the three types of the program's Inputs.
template <class Inputs>
void registerProducts(const std::string& operation) {
  using V = typename Inputs::Values;
  registerBesideEigenAndGlm(operation, products<Inputs, typename V::LumagridType, &V::lg>,
                            products<Inputs, typename V::EigenType, &V::eig>,
                            products<Inputs, typename V::GlmType, &V::glm>);
}

// The main of a program that registers its benchmarks at run time, before this runs them.
inline int runRegistered(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace bench
