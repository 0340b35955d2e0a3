#include "core/CGLShapeMap.h"

CGLShapeMap::CGLShapeMap() : m_apBuckets{}, m_pFree(nullptr), m_pBlocks(nullptr), m_nCount(0) {}

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

void CGLShapeMap::SetAt(std::uint64_t key, CGLObject* value) {
  const std::uint32_t hash = Hash(key);
  Entry*& head = m_apBuckets[hash % kBuckets];
  for (Entry* e = head; e != nullptr; e = e->pNext) {
    if (e->nHash == hash && e->nKey == key) {
      e->pValue = value;
      return;
    }
  }
  Entry* e = NewEntry();
  e->nHash = hash;
  e->nKey = key;
  e->pValue = value;
  e->pNext = head;
  head = e;
  ++m_nCount;
}

CGLObject** CGLShapeMap::Lookup(std::uint64_t key) {
  const std::uint32_t hash = Hash(key);
  for (Entry* e = m_apBuckets[hash % kBuckets]; e != nullptr; e = e->pNext) {
    if (e->nHash == hash && e->nKey == key) {
      return &e->pValue;
    }
  }
  return nullptr;
}

bool CGLShapeMap::RemoveKey(std::uint64_t key) {
  const std::uint32_t hash = Hash(key);
  for (Entry** link = &m_apBuckets[hash % kBuckets]; *link != nullptr; link = &(*link)->pNext) {
    Entry* e = *link;
    if (e->nHash == hash && e->nKey == key) {
      *link = e->pNext;
      e->pNext = m_pFree;
      m_pFree = e;
      --m_nCount;
      return true;
    }
  }
  return false;
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
}

std::size_t CGLShapeMap::GetBlockCount() const {
  std::size_t n = 0;
  for (const Block* b = m_pBlocks; b != nullptr; b = b->pNext) {
    ++n;
  }
  return n;
}
