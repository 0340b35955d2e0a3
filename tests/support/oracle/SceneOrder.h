#ifndef LUMAGRID_TESTS_SUPPORT_ORACLE_SCENEORDER_H
#define LUMAGRID_TESTS_SUPPORT_ORACLE_SCENEORDER_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

// The order in which a scene visits its shapes, worked out here rather than
// taken from the library.

// The scene's bucket of a shape: Park-Miller step on the address's low 32
// bits read as signed.
inline std::uint32_t SceneBucket(const void* p) {
  const auto bits = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(p));
  const std::int64_t v = bits >= 0x80000000u ? static_cast<std::int64_t>(bits) - 0x100000000LL
                                             : static_cast<std::int64_t>(bits);
  const std::int64_t q = v / 127773;  // truncates toward zero
  const std::int64_t r = v - q * 127773;
  std::int64_t h = 16807 * r - 2836 * q;
  if (h < 0) {
    h += 2147483647;
  }
  return static_cast<std::uint32_t>(h) % 512u;
}

// The shapes, given in the order they were first added, as the scene visits
// them: buckets in ascending order, and within a bucket the newest first.
template <class Shape>
std::vector<Shape*> SceneVisitingOrder(const std::vector<Shape*>& added) {
  std::vector<std::pair<std::uint32_t, std::size_t>> keys;
  for (std::size_t i = 0; i < added.size(); ++i) {
    keys.emplace_back(SceneBucket(added[i]), added.size() - i);
  }
  std::vector<std::size_t> idx(added.size());
  for (std::size_t i = 0; i < idx.size(); ++i) {
    idx[i] = i;
  }
  std::sort(idx.begin(), idx.end(),
            [&keys](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
  std::vector<Shape*> order;
  for (std::size_t i : idx) {
    order.push_back(added[i]);
  }
  return order;
}

#endif
