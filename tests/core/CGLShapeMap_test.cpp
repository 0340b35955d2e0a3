#include "core/CGLShapeMap.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <ios>
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

class ShapeMapHashTest : public ::testing::TestWithParam<HashCase> {};

TEST_P(ShapeMapHashTest, IsAParkMillerStepOnTheLow32BitsReadAsSigned) {
  EXPECT_EQ(CGLShapeMap::Hash(GetParam().key), GetParam().hash);
}

// Worked by hand: v = low 32 bits as int32, q = v / 127773, r = v % 127773,
// h = 16807 r - 2836 q, plus 2147483647 when negative.
INSTANTIATE_TEST_SUITE_P(
    Keys, ShapeMapHashTest,
    ::testing::Values(HashCase{0x0, 0u}, HashCase{0x1, 16807u},
                      HashCase{127773, 2147480811u},         // q 1, r 0: -2836 wraps
                      HashCase{127774, 16807u - 2836u},      // q 1, r 1
                      HashCase{0xFFFFFFFFull, 2147466840u},  // v -1: r -1
                      HashCase{0x80000000ull, 2147466840u},  // v INT_MIN: q -16807, r -2837
                      HashCase{0x7FFFFFFFull, 0u},           // q 16807, r 2836: the terms cancel
                      HashCase{0x100000001ull, 16807u},      // high bits ignored
                      HashCase{0xDEADBEEF00000001ull, 16807u}));

TEST(CGLShapeMap, NewMapIsEmptyWithoutBlocks) {
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

TEST(CGLShapeMap, SetAtThenLookupFindsTheValue) {
  CGLShapeMap map;
  map.SetAt(0x1000, Fake(0x1000));
  map.SetAt(0x2000, Fake(0x2000));
  ASSERT_NE(map.Lookup(0x1000), nullptr);
  EXPECT_EQ(*map.Lookup(0x1000), Fake(0x1000));
  EXPECT_EQ(*map.Lookup(0x2000), Fake(0x2000));
  EXPECT_EQ(map.Lookup(0x3000), nullptr);
  EXPECT_EQ(map.GetCount(), 2u);
}

TEST(CGLShapeMap, SameKeyIsStoredOnce) {
  CGLShapeMap map;
  map.SetAt(0x1000, Fake(0x1000));
  map.SetAt(0x1000, Fake(0x5000));
  EXPECT_EQ(map.GetCount(), 1u);
  EXPECT_EQ(*map.Lookup(0x1000), Fake(0x5000));
}

TEST(CGLShapeMap, KeysWithEqualLowBitsAreStillDistinct) {
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

TEST(CGLShapeMap, EntriesComeFromBlocksOfTen) {
  CGLShapeMap map;
  for (std::uintptr_t k = 1; k <= 10; ++k) {
    map.SetAt(k * 16, Fake(k));
  }
  EXPECT_EQ(map.GetBlockCount(), 1u);
  map.SetAt(11 * 16, Fake(11));
  EXPECT_EQ(map.GetBlockCount(), 2u);
}

TEST(CGLShapeMap, RemovedEntriesAreReusedBeforeANewBlock) {
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

TEST(CGLShapeMap, RemoveAllForgetsEntriesAndBlocks) {
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

TEST(CGLShapeMap, NullValueIsStoredAndVisited) {
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

}  // namespace
