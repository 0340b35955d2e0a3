// A host program that loads liblumagrid.so with dlopen, as a plug-in host
// would, and reports on stdout what it saw:
//   module_host LIBRARY MODE
// MODE: accept or refuse (the hooks' answer; needs the hooks build), none
// (the build without hooks), or cycles (three loads and unloads, accepting).
#include <dlfcn.h>

#include <cstdio>
#include <cstring>

namespace {

int g_answer = 1;
int g_registerCalls = 0;
int g_unregisterCalls = 0;

}  // namespace

#if defined(LUMAGRID_HOST_HOOKS)
extern "C" __attribute__((visibility("default"))) int lumagrid_host_register(void) {
  ++g_registerCalls;
  return g_answer;
}

extern "C" __attribute__((visibility("default"))) void lumagrid_host_unregister(void) {
  ++g_unregisterCalls;
}
#endif

namespace {

using Query = int (*)();
// vec3d::length() const, called as the Itanium ABI passes `this`: a vec3d
// is three doubles.
using Length = double (*)(const double*);

// Loads, queries, measures a vector and unloads once; false on any failure.
bool loadOnce(const char* library) {
  void* handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) {
    std::printf("dlopen failed: %s\n", dlerror());
    return false;
  }
  const auto registered = reinterpret_cast<Query>(dlsym(handle, "lumagrid_module_registered"));
  const auto length = reinterpret_cast<Length>(dlsym(handle, "_ZNK5vec3d6lengthEv"));
  if (registered == nullptr || length == nullptr) {
    std::printf("symbols missing\n");
    return false;
  }
  const double v[3] = {3.0, 4.0, 12.0};
  std::printf("registered=%d length=%g register_calls=%d unregister_calls=%d\n", registered(),
              length(v), g_registerCalls, g_unregisterCalls);
  if (dlclose(handle) != 0) {
    std::printf("dlclose failed\n");
    return false;
  }
  std::printf("after unload unregister_calls=%d\n", g_unregisterCalls);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: module_host LIBRARY accept|refuse|none|cycles\n");
    return 2;
  }
  const char* mode = argv[2];
  g_answer = std::strcmp(mode, "refuse") == 0 ? 0 : 1;
  const int loads = std::strcmp(mode, "cycles") == 0 ? 3 : 1;
  for (int i = 0; i < loads; ++i) {
    if (!loadOnce(argv[1])) {
      return 1;
    }
  }
  return 0;
}
