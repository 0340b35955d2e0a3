#include "core/CGLShapeMap.h"

namespace {

constexpr std::size_t kMinIndexSlots = 16;

}  // namespace

CGLShapeMap::CGLShapeMap()
    : m_apBuckets{},
      m_pFree(nullptr),
      m_pBlocks(nullptr),
      m_nCount(0),
      m_nIndexMask(0),
      m_nIndexShift(64) {}

CGLShapeMap::~CGLShapeMap() {
  RemoveAll();
}

std::uint32_t CGLShapeMap::Hash(std::uint64_t key) {
  const auto v = static_cast<std::int32_t>(static_cast<std::uint32_t>(key));
  const std::int32_t q = v / 127773;
  const std::int32_t r = v % 127773;
  // |16807 r| and |2836 q| both stay below 2^31 and share a sign, so the
  // difference fits; 64 bits make that obvious.
  std::int64_t h = 16807 * static_cast<std::int64_t>(r) - 2836 * static_cast<std::int64_t>(q);
  if (h < 0) {
    h += 2147483647;
  }
  return static_cast<std::uint32_t>(h);
}

CGLShapeMap::Entry* CGLShapeMap::NewEntry() {
  if (m_pFree == nullptr) {
    Block* block = new Block;
    block->pNext = m_pBlocks;
    m_pBlocks = block;
    // Thread the new entries onto the free list, first entry first.
    for (std::size_t i = kBlockSize; i-- > 0;) {
      block->aEntries[i].pNext = m_pFree;
      m_pFree = &block->aEntries[i];
    }
  }
  Entry* e = m_pFree;
  m_pFree = e->pNext;
  return e;
}

void CGLShapeMap::Unlink(Entry* e) {
  *e->ppPrev = e->pNext;
  if (e->pNext != nullptr) {
    e->pNext->ppPrev = e->ppPrev;
  }
}

// Fibonacci hashing: addresses share their low bits and come in strides;
// the product's top bits spread them evenly.
std::size_t CGLShapeMap::Home(std::uint64_t key) const {
  return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ull) >> m_nIndexShift);
}

CGLShapeMap::Slot* CGLShapeMap::FindSlot(std::uint64_t key) const {
  if (m_nCount == 0) {
    return nullptr;
  }
  for (std::size_t i = Home(key);; i = (i + 1) & m_nIndexMask) {
    Slot* slot = &m_pIndex[i];
    if (slot->pEntry == nullptr) {
      return nullptr;
    }
    if (slot->nKey == key) {
      return slot;
    }
  }
}

void CGLShapeMap::ReserveIndex(std::size_t count) {
  const std::size_t capacity = GetIndexCapacity();
  if (count <= capacity / 2) {
    return;
  }
  const std::size_t grown = capacity == 0 ? kMinIndexSlots : capacity * 2;
  std::unique_ptr<Slot[]> old(new Slot[grown]());
  old.swap(m_pIndex);
  m_nIndexMask = grown - 1;
  m_nIndexShift = 64;
  for (std::size_t n = grown; n > 1; n >>= 1) {
    --m_nIndexShift;
  }
  for (std::size_t i = 0; i < capacity; ++i) {
    if (old[i].pEntry != nullptr) {
      PlaceInIndex(old[i].nKey, old[i].pEntry);
    }
  }
}

void CGLShapeMap::PlaceInIndex(std::uint64_t key, Entry* e) {
  std::size_t i = Home(key);
  while (m_pIndex[i].pEntry != nullptr) {
    i = (i + 1) & m_nIndexMask;
  }
  m_pIndex[i] = Slot{key, e};
}

void CGLShapeMap::EraseFromIndex(Slot* slot) {
  auto hole = static_cast<std::size_t>(slot - m_pIndex.get());
  for (std::size_t j = (hole + 1) & m_nIndexMask; m_pIndex[j].pEntry != nullptr;
       j = (j + 1) & m_nIndexMask) {
    // The key at j may fill the hole when the hole lies between its home and j.
    const std::size_t fromHome = (j - Home(m_pIndex[j].nKey)) & m_nIndexMask;
    if (fromHome >= ((j - hole) & m_nIndexMask)) {
      m_pIndex[hole] = m_pIndex[j];
      hole = j;
    }
  }
  m_pIndex[hole] = Slot{0, nullptr};
}

void CGLShapeMap::SetAt(std::uint64_t key, CGLObject* value) {
  if (Slot* slot = FindSlot(key)) {
    slot->pEntry->pValue = value;
    return;
  }
  // Both allocations come before any link is changed, so a throw leaves the
  // map as it was.
  ReserveIndex(m_nCount + 1);
  Entry* e = NewEntry();
  const std::uint32_t hash = Hash(key);
  Entry*& head = m_apBuckets[hash % kBuckets];
  e->nHash = hash;
  e->nKey = key;
  e->pValue = value;
  e->pNext = head;
  e->ppPrev = &head;
  if (head != nullptr) {
    head->ppPrev = &e->pNext;
  }
  head = e;
  PlaceInIndex(key, e);
  ++m_nCount;
}

CGLObject** CGLShapeMap::Lookup(std::uint64_t key) {
  Slot* slot = FindSlot(key);
  return slot != nullptr ? &slot->pEntry->pValue : nullptr;
}

bool CGLShapeMap::RemoveKey(std::uint64_t key) {
  Slot* slot = FindSlot(key);
  if (slot == nullptr) {
    return false;
  }
  Entry* e = slot->pEntry;
  EraseFromIndex(slot);
  Unlink(e);
  e->pNext = m_pFree;
  m_pFree = e;
  --m_nCount;
  return true;
}

void CGLShapeMap::RemoveAll() {
  for (Entry*& head : m_apBuckets) {
    head = nullptr;
  }
  while (m_pBlocks != nullptr) {
    Block* next = m_pBlocks->pNext;
    delete m_pBlocks;
    m_pBlocks = next;
  }
  m_pFree = nullptr;
  m_nCount = 0;
  m_pIndex.reset();
  m_nIndexMask = 0;
  m_nIndexShift = 64;
}

std::size_t CGLShapeMap::GetBlockCount() const {
  std::size_t n = 0;
  for (const Block* b = m_pBlocks; b != nullptr; b = b->pNext) {
    ++n;
  }
  return n;
}
