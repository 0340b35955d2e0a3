#ifndef LUMAGRID_SRC_CORE_CGLSHAPEMAP_H
#define LUMAGRID_SRC_CORE_CGLSHAPEMAP_H

#include <cstddef>
#include <cstdint>
#include <memory>

class CGLObject;

// The scene's map from shape address to shape: a chained hash table with a
// fixed number of buckets that never grows. The visiting order (buckets in
// ascending order, each chain from its head, new keys at the head) decides
// the drawing order of a scene, so it is part of the behaviour.
//
// Entries come from blocks of kBlockSize and go back to a free list when
// removed, so adding and removing shapes allocates once per block.
//
// Beside the chains, an open-addressing index from key to entry makes
// look-up constant time on average, and each entry knows the link that
// points at it, so removal needs no walk. The chains alone decide the
// visiting order; the index only finds entries. It may allocate when a key
// is added (it doubles), never when one is removed or the map is visited.
class CGLShapeMap {
 public:
  static constexpr std::uint32_t kBuckets = 512;
  static constexpr std::size_t kBlockSize = 10;

  CGLShapeMap();
  CGLShapeMap(const CGLShapeMap&) = delete;
  CGLShapeMap& operator=(const CGLShapeMap&) = delete;
  ~CGLShapeMap();

  // Park-Miller step on the low 32 bits of the key, read as signed.
  static std::uint32_t Hash(std::uint64_t key);

  // Stores value under key; a key already present keeps its place.
  void SetAt(std::uint64_t key, CGLObject* value);
  // The stored value's slot, or null when key is absent.
  CGLObject** Lookup(std::uint64_t key);
  // true when key was present.
  bool RemoveKey(std::uint64_t key);
  // Forgets every entry and gives back every block.
  void RemoveAll();

  std::size_t GetCount() const { return m_nCount; }
  bool IsEmpty() const { return m_nCount == 0; }
  std::size_t GetBlockCount() const;
  // Slots in the look-up index: 0 or a power of two.
  std::size_t GetIndexCapacity() const { return m_nIndexMask == 0 ? 0 : m_nIndexMask + 1; }

  // Calls f(value) for every entry, in visiting order. Shapes lie scattered
  // on the heap and are visited in hash order, so the walk fetches entries
  // three ahead and shapes two ahead while f works on the current one.
  template <class F>
  void ForEach(F&& f) const {
    if (m_nCount == 0) {
      return;
    }
    std::uint32_t bucket = 0;
    const Entry* e0 = Advance(nullptr, bucket);
    const Entry* e1 = e0 != nullptr ? Advance(e0, bucket) : nullptr;
    const Entry* e2 = e1 != nullptr ? Advance(e1, bucket) : nullptr;
    if (e1 != nullptr) {
      PrefetchShape(e1->pValue);
    }
    while (e0 != nullptr) {
      const Entry* e3 = e2 != nullptr ? Advance(e2, bucket) : nullptr;
      if (e3 != nullptr) {
        __builtin_prefetch(e3);
      }
      if (e2 != nullptr) {
        PrefetchShape(e2->pValue);
      }
      // Read before f: f may delete the shape, never the entry.
      CGLObject* value = e0->pValue;
      f(value);
      e0 = e1;
      e1 = e2;
      e2 = e3;
    }
  }

 private:
  struct Entry {
    Entry* pNext;
    // The bucket head or the previous entry's pNext: whatever points here.
    Entry** ppPrev;
    std::uint64_t nKey;
    CGLObject* pValue;
    std::uint32_t nHash;
  };
  // An index slot is free when pEntry is null; the key is kept beside the
  // entry so that probing past other keys reads no entry.
  struct Slot {
    std::uint64_t nKey;
    Entry* pEntry;
  };
  struct Block {
    Block* pNext;
    Entry aEntries[kBlockSize];
  };

  Entry* NewEntry();
  void Unlink(Entry* e);

  // Index: linear probing, at most half full, removal by backward shift (no
  // tombstones, so probes stay short after many removals).
  std::size_t Home(std::uint64_t key) const;
  Slot* FindSlot(std::uint64_t key) const;
  void ReserveIndex(std::size_t count);
  void PlaceInIndex(std::uint64_t key, Entry* e);
  void EraseFromIndex(Slot* slot);

  // The entry after e in visiting order (the first one when e is null);
  // bucket is the bucket of e and follows the walk.
  const Entry* Advance(const Entry* e, std::uint32_t& bucket) const {
    if (e != nullptr) {
      if (e->pNext != nullptr) {
        return e->pNext;
      }
      ++bucket;
    }
    for (; bucket < kBuckets; ++bucket) {
      if (m_apBuckets[bucket] != nullptr) {
        return m_apBuckets[bucket];
      }
    }
    return nullptr;
  }

  // The first four cache lines of a shape: its vtable pointer, matrix and
  // colours, which its Draw reads first. Integer arithmetic, as p may be null.
  static void PrefetchShape(const CGLObject* p) {
    const auto a = reinterpret_cast<std::uintptr_t>(p);
    for (std::uintptr_t off = 0; off < 256; off += 64) {
      __builtin_prefetch(reinterpret_cast<const void*>(a + off));
    }
  }

  Entry* m_apBuckets[kBuckets];
  Entry* m_pFree;
  Block* m_pBlocks;
  std::size_t m_nCount;
  std::unique_ptr<Slot[]> m_pIndex;
  std::size_t m_nIndexMask;
  unsigned m_nIndexShift;  // 64 - log2 of the slot count
};

#endif
