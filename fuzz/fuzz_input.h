#ifndef LUMAGRID_FUZZ_FUZZ_INPUT_H
#define LUMAGRID_FUZZ_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// Fuzz checks stay on in release builds: a failure prints where and aborts,
// so that libFuzzer and the replay driver both stop on it.
[[noreturn]] inline void FuzzCheckFailed(const char* file, int line, const char* what) {
  std::fprintf(stderr, "%s:%d: fuzz check failed: %s\n", file, line, what);
  std::abort();
}

#define FUZZ_CHECK(cond) \
  ((cond) ? static_cast<void>(0) : FuzzCheckFailed(__FILE__, __LINE__, #cond))

// Reads a fuzz input front to back. Once it is used up, every read gives 0,
// so a target never has to test the length before it reads.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : m_pData(data), m_nLeft(size) {}

  bool Empty() const { return m_nLeft == 0; }

  std::uint8_t Byte() {
    if (m_nLeft == 0) {
      return 0;
    }
    --m_nLeft;
    return *m_pData++;
  }

  // A signed byte, -128 ... 127.
  int SignedByte() {
    const int b = Byte();
    return b < 128 ? b : b - 256;
  }

  bool Bool() { return (Byte() & 1) != 0; }

  // Eight bytes taken as they are: any bit pattern, NaNs, infinities and
  // denormals included.
  double Raw() {
    unsigned char bytes[8];
    for (unsigned char& b : bytes) {
      b = Byte();
    }
    double d;
    std::memcpy(&d, bytes, sizeof d);
    return d;
  }

  // Two bytes as a multiple of 1/64 in [-512, 512): well-scaled values, for
  // which products and sums of a few terms are exact.
  double Tame() {
    const int lo = Byte();
    const int hi = Byte();
    int v = lo | hi << 8;
    if (v >= 32768) {
      v -= 65536;
    }
    return v / 64.0;
  }

  // Raw() or Tame(), as the current mode says.
  double Number() { return m_bTame ? Tame() : Raw(); }
  void SetTame(bool tame) { m_bTame = tame; }
  bool IsTame() const { return m_bTame; }

 private:
  const std::uint8_t* m_pData;
  std::size_t m_nLeft;
  bool m_bTame = true;
};

#endif
