#include "core/CGLShapeMap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <ios>
#include <ostream>
#include <random>
#include <utility>
#include <vector>

namespace {

CGLObject* Fake(std::uintptr_t v) {
  return reinterpret_cast<CGLObject*>(v);
}

struct HashCase {
  std::uint64_t key;
  std::uint32_t hash;
};

// Names the case in test listings instead of dumping its bytes.
void PrintTo(const HashCase& c, std::ostream* os) {
  *os << "key 0x" << std::hex << c.key;
}

class ShapeMapHash : public ::testing::TestWithParam<HashCase> {};

TEST_P(ShapeMapHash, IsAParkMillerStepOnTheLow32BitsReadAsSigned) {
  EXPECT_EQ(CGLShapeMap::Hash(GetParam().key), GetParam().hash);
}

// Worked by hand: v = low 32 bits as int32, q = v / 127773, r = v % 127773,
// h = 16807 r - 2836 q, plus 2147483647 when negative.
INSTANTIATE_TEST_SUITE_P(
    Keys, ShapeMapHash,
    ::testing::Values(HashCase{0x0, 0u}, HashCase{0x1, 16807u},
                      HashCase{127773, 2147480811u},         // q 1, r 0: -2836 wraps
                      HashCase{127774, 16807u - 2836u},      // q 1, r 1
                      HashCase{0xFFFFFFFFull, 2147466840u},  // v -1: r -1
                      HashCase{0x80000000ull, 2147466840u},  // v INT_MIN: q -16807, r -2837
                      HashCase{0x7FFFFFFFull, 0u},           // q 16807, r 2836: the terms cancel
                      HashCase{0x100000001ull, 16807u},      // high bits ignored
                      HashCase{0xDEADBEEF00000001ull, 16807u}));

TEST(ShapeMap, NewMapIsEmptyWithoutBlocks) {
  CGLShapeMap map;
  EXPECT_TRUE(map.IsEmpty());
  EXPECT_EQ(map.GetCount(), 0u);
  EXPECT_EQ(map.GetBlockCount(), 0u);
  EXPECT_EQ(map.Lookup(0x1000), nullptr);
  EXPECT_FALSE(map.RemoveKey(0x1000));
  int visits = 0;
  map.ForEach([&visits](CGLObject*) { ++visits; });
  EXPECT_EQ(visits, 0);
}

TEST(ShapeMap, SetAtThenLookupFindsTheValue) {
  CGLShapeMap map;
  map.SetAt(0x1000, Fake(0x1000));
  map.SetAt(0x2000, Fake(0x2000));
  ASSERT_NE(map.Lookup(0x1000), nullptr);
  EXPECT_EQ(*map.Lookup(0x1000), Fake(0x1000));
  EXPECT_EQ(*map.Lookup(0x2000), Fake(0x2000));
  EXPECT_EQ(map.Lookup(0x3000), nullptr);
  EXPECT_EQ(map.GetCount(), 2u);
}

TEST(ShapeMap, SameKeyIsStoredOnce) {
  CGLShapeMap map;
  map.SetAt(0x1000, Fake(0x1000));
  map.SetAt(0x1000, Fake(0x5000));
  EXPECT_EQ(map.GetCount(), 1u);
  EXPECT_EQ(*map.Lookup(0x1000), Fake(0x5000));
}

TEST(ShapeMap, KeysWithEqualLowBitsAreStillDistinct) {
  // Same hash, same bucket: the look-up must compare the whole key.
  CGLShapeMap map;
  map.SetAt(0x1000, Fake(1));
  map.SetAt(0x100001000ull, Fake(2));
  EXPECT_EQ(map.GetCount(), 2u);
  EXPECT_EQ(*map.Lookup(0x1000), Fake(1));
  EXPECT_EQ(*map.Lookup(0x100001000ull), Fake(2));
  std::vector<CGLObject*> order;
  map.ForEach([&order](CGLObject* p) { order.push_back(p); });
  EXPECT_EQ(order, (std::vector<CGLObject*>{Fake(2), Fake(1)}));  // newest first
  EXPECT_TRUE(map.RemoveKey(0x1000));
  EXPECT_EQ(map.Lookup(0x1000), nullptr);
  EXPECT_EQ(*map.Lookup(0x100001000ull), Fake(2));
}

TEST(ShapeMap, EntriesComeFromBlocksOfTen) {
  CGLShapeMap map;
  for (std::uintptr_t k = 1; k <= 10; ++k) {
    map.SetAt(k * 16, Fake(k));
  }
  EXPECT_EQ(map.GetBlockCount(), 1u);
  map.SetAt(11 * 16, Fake(11));
  EXPECT_EQ(map.GetBlockCount(), 2u);
}

TEST(ShapeMap, RemovedEntriesAreReusedBeforeANewBlock) {
  CGLShapeMap map;
  for (std::uintptr_t k = 1; k <= 10; ++k) {
    map.SetAt(k * 16, Fake(k));
  }
  for (int round = 0; round < 100; ++round) {
    EXPECT_TRUE(map.RemoveKey(16));
    map.SetAt(16, Fake(1));
  }
  EXPECT_EQ(map.GetBlockCount(), 1u);
  EXPECT_EQ(map.GetCount(), 10u);
}

TEST(ShapeMap, RemoveAllForgetsEntriesAndBlocks) {
  CGLShapeMap map;
  for (std::uintptr_t k = 1; k <= 25; ++k) {
    map.SetAt(k * 16, Fake(k));
  }
  map.RemoveAll();
  EXPECT_TRUE(map.IsEmpty());
  EXPECT_EQ(map.GetBlockCount(), 0u);
  EXPECT_EQ(map.Lookup(16), nullptr);
  map.SetAt(16, Fake(1));
  EXPECT_EQ(map.GetCount(), 1u);
}

TEST(ShapeMap, NullValueIsStoredAndVisited) {
  CGLShapeMap map;
  map.SetAt(0, nullptr);
  ASSERT_NE(map.Lookup(0), nullptr);
  EXPECT_EQ(*map.Lookup(0), nullptr);
  int visits = 0;
  map.ForEach([&visits](CGLObject* p) {
    EXPECT_EQ(p, nullptr);
    ++visits;
  });
  EXPECT_EQ(visits, 1);
}

// The plain chained table, written out: one vector per bucket, head first,
// found by walking. The map must visit exactly as this does.
class ChainModel {
 public:
  void SetAt(std::uint64_t key, CGLObject* value) {
    auto& chain = m_chains[CGLShapeMap::Hash(key) % CGLShapeMap::kBuckets];
    for (auto& kv : chain) {
      if (kv.first == key) {
        kv.second = value;
        return;
      }
    }
    chain.insert(chain.begin(), {key, value});
  }
  bool RemoveKey(std::uint64_t key) {
    auto& chain = m_chains[CGLShapeMap::Hash(key) % CGLShapeMap::kBuckets];
    for (auto it = chain.begin(); it != chain.end(); ++it) {
      if (it->first == key) {
        chain.erase(it);
        return true;
      }
    }
    return false;
  }
  const CGLObject* const* Lookup(std::uint64_t key) const {
    for (const auto& kv : m_chains[CGLShapeMap::Hash(key) % CGLShapeMap::kBuckets]) {
      if (kv.first == key) {
        return &kv.second;
      }
    }
    return nullptr;
  }
  std::vector<CGLObject*> Order() const {
    std::vector<CGLObject*> order;
    for (const auto& chain : m_chains) {
      for (const auto& kv : chain) {
        order.push_back(kv.second);
      }
    }
    return order;
  }

 private:
  std::array<std::vector<std::pair<std::uint64_t, CGLObject*>>, CGLShapeMap::kBuckets> m_chains;
};

std::vector<CGLObject*> OrderOf(const CGLShapeMap& map) {
  std::vector<CGLObject*> order;
  map.ForEach([&order](CGLObject* p) { order.push_back(p); });
  return order;
}

// Heap-like keys: 16-byte steps, some sharing their low 32 bits (same hash),
// and null.
std::vector<std::uint64_t> KeyPool(std::size_t n) {
  std::vector<std::uint64_t> keys{0};
  for (std::uint64_t k = 1; keys.size() < n; ++k) {
    keys.push_back(0x55550000ull + k * 16);
    if (k % 7 == 0) {
      keys.push_back((k << 32) | (0x55550000ull + k * 16));
    }
  }
  keys.resize(n);
  return keys;
}

TEST(ShapeMap, RandomAddsAndRemovesVisitLikeThePlainChains) {
  const std::vector<std::uint64_t> keys = KeyPool(3000);
  std::mt19937 rng(20240611);
  std::uniform_int_distribution<std::size_t> pick(0, keys.size() - 1);
  CGLShapeMap map;
  ChainModel model;
  std::size_t count = 0;
  for (int step = 1; step <= 30000; ++step) {
    const std::uint64_t key = keys[pick(rng)];
    if (rng() % 5 < 3) {
      CGLObject* value = Fake(static_cast<std::uintptr_t>(step));
      count += model.Lookup(key) == nullptr ? 1 : 0;
      map.SetAt(key, value);
      model.SetAt(key, value);
    } else {
      const bool present = model.RemoveKey(key);
      count -= present ? 1 : 0;
      ASSERT_EQ(map.RemoveKey(key), present) << "step " << step;
    }
    ASSERT_EQ(map.GetCount(), count);
    if (step % 1000 == 0) {
      ASSERT_EQ(OrderOf(map), model.Order()) << "step " << step;
      for (std::uint64_t k : keys) {
        const CGLObject* const* expected = model.Lookup(k);
        CGLObject** found = map.Lookup(k);
        ASSERT_EQ(found == nullptr, expected == nullptr) << "key 0x" << std::hex << k;
        if (found != nullptr) {
          EXPECT_EQ(*found, *expected);
        }
      }
    }
  }
}

TEST(ShapeMap, RemovingTenThousandInRandomOrderKeepsTheRestIntact) {
  constexpr std::size_t kKeys = 10000;
  const std::vector<std::uint64_t> keys = KeyPool(kKeys);
  CGLShapeMap map;
  ChainModel model;
  for (std::uint64_t k : keys) {
    map.SetAt(k, Fake(static_cast<std::uintptr_t>(k + 1)));
    model.SetAt(k, Fake(static_cast<std::uintptr_t>(k + 1)));
  }
  EXPECT_EQ(map.GetBlockCount(), kKeys / CGLShapeMap::kBlockSize);
  const std::size_t capacity = map.GetIndexCapacity();
  EXPECT_GE(capacity, 2 * kKeys);

  std::vector<std::uint64_t> order = keys;
  std::shuffle(order.begin(), order.end(), std::mt19937(7));
  for (std::size_t i = 0; i < order.size(); ++i) {
    ASSERT_TRUE(map.RemoveKey(order[i]));
    ASSERT_FALSE(map.RemoveKey(order[i]));
    ASSERT_EQ(map.Lookup(order[i]), nullptr);
    model.RemoveKey(order[i]);
    if (i % 997 == 0) {
      ASSERT_EQ(OrderOf(map), model.Order()) << "after " << i + 1;
      for (std::size_t j = i + 1; j < order.size(); ++j) {
        ASSERT_NE(map.Lookup(order[j]), nullptr) << "after " << i + 1;
      }
    }
  }
  EXPECT_TRUE(map.IsEmpty());
  EXPECT_TRUE(OrderOf(map).empty());
  // Removal neither shrinks the index nor gives back blocks: it never allocates.
  EXPECT_EQ(map.GetIndexCapacity(), capacity);
  EXPECT_EQ(map.GetBlockCount(), kKeys / CGLShapeMap::kBlockSize);

  // Freed entries and index slots serve the next adds.
  for (std::uint64_t k : keys) {
    map.SetAt(k, Fake(static_cast<std::uintptr_t>(k + 1)));
    model.SetAt(k, Fake(static_cast<std::uintptr_t>(k + 1)));
  }
  EXPECT_EQ(OrderOf(map), model.Order());
  EXPECT_EQ(map.GetBlockCount(), kKeys / CGLShapeMap::kBlockSize);
  EXPECT_EQ(map.GetIndexCapacity(), capacity);
}

TEST(ShapeMap, IndexIsAtMostHalfFullAndGoneAfterRemoveAll) {
  CGLShapeMap map;
  EXPECT_EQ(map.GetIndexCapacity(), 0u);
  for (std::uintptr_t k = 1; k <= 1000; ++k) {
    map.SetAt(k * 16, Fake(k));
    ASSERT_LE(2 * map.GetCount(), map.GetIndexCapacity());
  }
  map.RemoveAll();
  EXPECT_EQ(map.GetIndexCapacity(), 0u);
  EXPECT_EQ(map.Lookup(16), nullptr);
}

}  // namespace
