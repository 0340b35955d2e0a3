// Drives a CGLScene and groups with a byte-coded sequence of operations and
// checks ownership against a model: every shape is destroyed exactly once,
// by its owner, and the scene's answers match what the model holds.
//
// Input: a sequence of operations, each one byte (its value modulo kOpCount
// picks the operation) followed by the operation's own bytes. Numbers are
// FuzzInput::Tame() values unless the operation reads a mode byte first.
// Runs against the recording GL double; kTile is the tests' stand-in quad.
//
// The model sits in scene/model.h, the shapes in scene/shapes.h, the
// operations in scene/operations.h and the checks in scene/checks.h.

#include "fuzz_input.h"
#include "scene/operations.h"

#include <cstddef>
#include <cstdint>
#include <vector>

// libFuzzer only. The recording double keeps every quadric handle it ever
// issued, so no input frees all it allocates, and libFuzzer's leak check would
// then run after every input. Leaks are still looked for at exit; a
// -detect_leaks given on the command line comes later and wins.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  static std::vector<char*> args;
  static char noLeakCheck[] = "-detect_leaks=0";
  args.assign(*argv, *argv + *argc);
  args.insert(args.begin() + (args.empty() ? 0 : 1), noLeakCheck);
  args.push_back(nullptr);
  *argc = static_cast<int>(args.size()) - 1;
  *argv = args.data();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  scenefuzz::SceneOperations(in).Run();
  return 0;
}
