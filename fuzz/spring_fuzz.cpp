// Drives a CGLSpring through every parameter and both drawing paths (list
// and immediate), solid, wireframe and schematic, and checks each draw's
// recorded calls: matrix pushes and pops, glBegin/glEnd and
// glNewList/glEndList balanced, no GL error, no single allocation beyond
// what the path builders' caps allow, and the compression schematic's
// vertex count.
//
// Input: a header byte (bit 0: raw doubles instead of FuzzInput::Tame()
// values), the constructor's arguments, then operations, each one byte (its
// value modulo kOpCount picks the operation) followed by its own bytes.
// Turns and end options stay small (or far beyond the caps) so that an input
// runs fast; the caps themselves are the builders' concern.

#include <lumagrid/CGLSpring.h>
#include <lumagrid/Mesh.h>

#include "fuzz_input.h"
#include "recorded_draw.h"
#include "shapes/geometry/path_point.h"
#include "shapes/tube/wire_sweep.h"
#include <lumagrid/testing/GLRecorder.h>

#include <GL/gl.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define LUMAGRID_FUZZ_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define LUMAGRID_FUZZ_ASAN 1
#endif
#endif

#ifdef LUMAGRID_FUZZ_ASAN
// The sanitizer runtime's own entry point; GCC does not install its header.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*malloc_hook)(const volatile void*,
                                                                             std::size_t),
                                                         void (*free_hook)(const volatile void*));
#endif

namespace {

// ------------------------------------------------------------ allocations

// The largest single allocation made while armed.
bool g_armed = false;
std::size_t g_largest = 0;

void Note(std::size_t size) {
  if (g_armed && size > g_largest) {
    g_largest = size;
  }
}

#ifdef LUMAGRID_FUZZ_ASAN
// The sanitizer's allocator reports every allocation here.
void MallocHook(const volatile void*, std::size_t size) {
  Note(size);
}
void FreeHook(const volatile void*) {}
#endif

// What the builders may hold at once: a wire sweep's lines at their cap
// (two vertices each), or a path at its cap, with a vector's growth.
constexpr std::size_t kAllocCap =
    std::max(2 * lumagrid::detail::kMaxWireLines * sizeof(lumagrid::detail::WireVertex),
             2 * (lumagrid::detail::kMaxPathPoints + 32) * sizeof(lumagrid::detail::PathPoint));

// A mesh's vertices for a tube at those caps: a few per line of the wireframe, with a
// vector's growth.
constexpr std::size_t kMeshAllocCap =
    8 * lumagrid::detail::kMaxWireLines * sizeof(lumagrid::MeshVertex);

// ------------------------------------------------------------ the spring

enum Op : int {
  kSetLength,
  kScaleLength,
  kSetQuality,
  kSetType,
  kSetType2,
  kShaded,
  kMake,
  kDrawDirect,
  kDraw,
  kRebuild,
  kMesh,
  kOpCount
};

constexpr int kMaxOps = 16;
constexpr unsigned int kSchematic = 8;

// Turns far beyond every cap: such springs draw little or nothing.
constexpr int kHugeTurns[] = {INT_MAX, INT_MIN, INT_MIN + 1, 1 << 20, -(1 << 20), 600000};
constexpr unsigned int kHugeType2[] = {0xFFFFFFFFu, 0x80000000u, 0x7FFFFFFFu, 0xFFFFFFF8u,
                                       0x4000000Fu};

// Opens the spring's protected state to the checks.
class SpringProbe : public CGLSpring {
 public:
  using CGLSpring::CGLSpring;
  bool Modified() const { return m_bModified; }
  int Turns() const { return m_nTurns; }
  double Length() const { return m_dLength; }
};

class SpringFuzzer {
 public:
  explicit SpringFuzzer(FuzzInput& in) : m_in(in) {}

  void Run() {
    m_in.SetTame((m_in.Byte() & 1) == 0);
    Rebuild();
    for (int n = 0; n < kMaxOps && !m_in.Empty(); ++n) {
      Step(m_in.Byte() % kOpCount);
    }
  }

 private:
  // -3 .. 8 turns, or one far beyond the caps.
  int ReadTurns() {
    const int b = m_in.Byte();
    if (b >= 0xF0) {
      return kHugeTurns[static_cast<std::size_t>(b - 0xF0) % std::size(kHugeTurns)];
    }
    return b % 12 - 3;
  }

  // End option 0 .. 7 with or without the schematic bit, or a huge value.
  unsigned int ReadType2() {
    const int b = m_in.Byte();
    if (b >= 0xF0) {
      return kHugeType2[static_cast<std::size_t>(b - 0xF0) % std::size(kHugeType2)];
    }
    return static_cast<unsigned int>(b % 16);
  }

  void Rebuild() {
    const double wire = m_in.Number();
    const double radius = m_in.Number();
    const double aux = m_in.Number();
    const double length = m_in.Number();
    const int turns = ReadTurns();
    const double start = m_in.Number();
    m_spring = std::make_unique<SpringProbe>(wire, radius, aux, length, turns, start);
    m_type = 0;
    m_type2 = 0;
    m_spring->SetType2(0);
  }

  void Step(int op) {
    switch (op) {
      case kSetLength:
        m_spring->SetLength(m_in.Number());
        FUZZ_CHECK(m_spring->Modified());
        break;
      case kScaleLength:
        m_spring->ScaleLength(m_in.Number());
        FUZZ_CHECK(m_spring->Modified());
        break;
      case kSetQuality: {
        const unsigned int q = m_in.Byte();
        unsigned int unused = 0;
        const int before = m_spring->GetQuality(unused);
        m_spring->SetQuality(q);
        const int after = m_spring->GetQuality(unused);
        FUZZ_CHECK(after == (q >= 10 && q <= 50 ? static_cast<int>(q) : before));
        break;
      }
      case kSetType:
        m_type = m_in.Byte() % 4;  // 2 and 3 draw nothing
        m_spring->SetType(m_type);
        break;
      case kSetType2:
        m_type2 = ReadType2();
        m_spring->SetType2(m_type2);
        break;
      case kShaded:
        m_spring->SetShadedMode(m_in.SignedByte() % 3);
        break;
      case kMake:
        Drawn([&] { return m_spring->DisplayListMake(); });
        break;
      case kDrawDirect:
        Drawn([&] { return m_spring->DrawDirect(); });
        break;
      case kDraw:
        Drawn([&] { return m_spring->Draw(); });
        break;
      case kMesh:
        Meshed();
        break;
      default:
        Rebuild();
        break;
    }
  }

  template <class F>
  void Drawn(F&& draw) {
    glrecorder::Recorder& rec = glrecorder::recorder();
    rec.clearCalls();
    g_largest = 0;
    g_armed = true;
    static_cast<void>(draw());
    g_armed = false;
    FUZZ_CHECK(g_largest <= kAllocCap);

    const std::vector<glrecorder::Call>& calls = rec.calls();
    FUZZ_CHECK(fuzzgl::BeginEndBalanced(calls));
    // The base's push and a hook's inside it.
    FUZZ_CHECK(fuzzgl::Paired(calls, "glPushMatrix", "glPopMatrix", 2));
    FUZZ_CHECK(fuzzgl::Paired(calls, "glNewList", "glEndList", 1));
    FUZZ_CHECK(rec.stackDepth(GL_MODELVIEW) == 1);
    FUZZ_CHECK(rec.underflows() == 0 && rec.overflows() == 0);
    FUZZ_CHECK(rec.compilingList() == 0);
    FUZZ_CHECK(rec.errors().empty());
    CheckSchematicCount(calls);
  }

  // The spring's mesh: no GL call, the list's mark left alone, indices in range, and no
  // allocation beyond what a tube's vertices at the builders' caps need.
  void Meshed() {
    glrecorder::Recorder& rec = glrecorder::recorder();
    rec.clearCalls();
    const bool modified = m_spring->Modified();
    g_largest = 0;
    g_armed = true;
    const lumagrid::Mesh mesh = lumagrid::MeshOf(*m_spring);
    g_armed = false;
    FUZZ_CHECK(g_largest <= kMeshAllocCap);
    FUZZ_CHECK(rec.calls().empty());
    FUZZ_CHECK(m_spring->Modified() == modified);
    for (const lumagrid::MeshPart& part : mesh.parts) {
      const std::size_t corners = part.primitive == lumagrid::Primitive::Triangles ? 3 : 2;
      FUZZ_CHECK(part.indices.size() % corners == 0);
      for (const std::uint32_t i : part.indices) {
        FUZZ_CHECK(i < part.vertices.size());
      }
    }
  }

  // The compression schematic: optional end strokes and two vertices a
  // turn, one at the top.
  void CheckSchematicCount(const std::vector<glrecorder::Call>& calls) {
    if (m_type != 0 || (m_type2 & kSchematic) == 0 || calls.empty()) {
      return;
    }
    const int turns = m_spring->Turns();
    if (turns > (1 << 18)) {
      return;  // beyond the cap: nothing drawn
    }
    const std::size_t ends = (m_type2 - kSchematic) != 0 ? 4 : 0;
    const std::size_t strokes = turns > 0 ? 2 * static_cast<std::size_t>(turns) : 0;
    const std::size_t emitted = static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(),
                      [](const glrecorder::Call& c) { return c.name == "glVertex3d"; }));
    // Nothing at all when the list was current.
    if (emitted != 0) {
      FUZZ_CHECK(emitted == ends + strokes + 1);
    }
  }

  FuzzInput& m_in;
  std::unique_ptr<SpringProbe> m_spring;
  unsigned int m_type = 0;
  unsigned int m_type2 = 0;
};

}  // namespace

#ifndef LUMAGRID_FUZZ_ASAN
// Without a sanitizer's allocator, the program's own operator new counts.
void* operator new(std::size_t size) {
  Note(size);
  if (void* p = std::malloc(size == 0 ? 1 : size)) {
    return p;
  }
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
// malloc and free underneath; GCC cannot tell that operator new is the one
// above.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void operator delete(void* p) noexcept {
  std::free(p);
}
void operator delete[](void* p) noexcept {
  std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
  std::free(p);
}
#pragma GCC diagnostic pop
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
#ifdef LUMAGRID_FUZZ_ASAN
  static const int hooked = __sanitizer_install_malloc_and_free_hooks(MallocHook, FreeHook);
  static_cast<void>(hooked);
#endif
  fuzzgl::RunOnFreshRecorder<SpringFuzzer>(data, size);
  return 0;
}
