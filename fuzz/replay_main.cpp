// Runs a fuzz target without libFuzzer: every file named on the command line
// (or found directly inside a directory named there), then a fixed number of
// inputs from a seeded generator, so that every run sees the same bytes.
//
//   replay [--random=N] [--seed=S] [--max-len=L] [--dump=FILE] PATH...
//
// --dump writes each input to FILE before running it: after a crash, FILE
// holds the input that caused it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

bool ParseCount(const char* arg, const char* name, unsigned long& out) {
  const std::size_t n = std::strlen(name);
  if (std::strncmp(arg, name, n) != 0) {
    return false;
  }
  out = std::strtoul(arg + n, nullptr, 10);
  return true;
}

const char* g_dump = nullptr;

// Exactly size bytes on the heap, so that AddressSanitizer sees a read past
// the end of the input.
void RunOne(const std::vector<std::uint8_t>& bytes) {
  if (g_dump != nullptr) {
    std::ofstream out(g_dump, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
  }
  std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[std::max<std::size_t>(bytes.size(), 1)]);
  std::copy(bytes.begin(), bytes.end(), copy.get());
  LLVMFuzzerTestOneInput(copy.get(), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  unsigned long randomRuns = 2000;
  unsigned long seed = 1;
  unsigned long maxLen = 512;
  std::vector<fs::path> files;

  for (int i = 1; i < argc; ++i) {
    const char* arg = argv[i];
    if (ParseCount(arg, "--random=", randomRuns) || ParseCount(arg, "--seed=", seed) ||
        ParseCount(arg, "--max-len=", maxLen)) {
      continue;
    }
    if (std::strncmp(arg, "--dump=", 7) == 0) {
      g_dump = arg + 7;
      continue;
    }
    const fs::path path(arg);
    std::error_code ec;
    if (fs::is_directory(path, ec)) {
      std::vector<fs::path> inDir;
      for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        if (entry.is_regular_file()) {
          inDir.push_back(entry.path());
        }
      }
      std::sort(inDir.begin(), inDir.end());
      files.insert(files.end(), inDir.begin(), inDir.end());
    } else if (fs::is_regular_file(path, ec)) {
      files.push_back(path);
    } else {
      std::fprintf(stderr, "replay: no such file or directory: %s\n", arg);
      return 2;
    }
  }

  for (const fs::path& file : files) {
    std::ifstream in(file, std::ios::binary);
    const std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                                          std::istreambuf_iterator<char>());
    std::printf("replay: %s (%zu bytes)\n", file.string().c_str(), bytes.size());
    std::fflush(stdout);
    RunOne(bytes);
  }

  // Only the generator's raw output is used: the same bytes with every
  // standard library.
  std::mt19937 gen(static_cast<std::mt19937::result_type>(seed));
  std::vector<std::uint8_t> bytes;
  for (unsigned long run = 0; run < randomRuns; ++run) {
    bytes.resize(gen() % (maxLen + 1));
    for (std::uint8_t& b : bytes) {
      b = static_cast<std::uint8_t>(gen() & 0xFFu);
    }
    RunOne(bytes);
  }

  std::printf("replay: %zu corpus inputs and %lu random inputs (seed %lu) passed\n", files.size(),
              randomRuns, seed);
  return 0;
}
