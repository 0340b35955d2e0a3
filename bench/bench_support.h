// Glue shared by the benchmark programs: inputs built once per program,
// and the loop that cycles through them. All of it is inline, so a benchmark
// written on it compiles to the loop it would be by hand, for the library and
// the references alike.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
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

}  // namespace bench
