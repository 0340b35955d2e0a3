#include <lumagrid/lumagrid_module.h>

#include <dlfcn.h>
#include <unistd.h>

namespace {

using RegisterHook = int (*)();
using UnregisterHook = void (*)();

// The library's one message.
constexpr char kRefused[] = "Lumagrid.dll : initialisation impossible.\n";

bool g_started = false;
bool g_registered = false;
UnregisterHook g_unregister = nullptr;

template <class Hook>
Hook FindHook(const char* name) {
  return reinterpret_cast<Hook>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace

extern "C" int lumagrid_module_start(void) {
  if (g_started) {
    return lumagrid_module_registered();
  }
  g_started = true;
  const RegisterHook hook = FindHook<RegisterHook>("lumagrid_host_register");
  if (hook != nullptr && hook() == 0) {
    // Nothing to do if stderr is closed: the message is all there is.
    const ssize_t ignored = write(STDERR_FILENO, kRefused, sizeof kRefused - 1);
    static_cast<void>(ignored);
    return 0;
  }
  g_registered = true;
  g_unregister = hook != nullptr ? FindHook<UnregisterHook>("lumagrid_host_unregister") : nullptr;
  return 1;
}

extern "C" void lumagrid_module_stop(void) {
  if (g_registered && g_unregister != nullptr) {
    g_unregister();
  }
  g_started = false;
  g_registered = false;
  g_unregister = nullptr;
}

extern "C" int lumagrid_module_registered(void) {
  return g_registered ? 1 : 0;
}

#if defined(LUMAGRID_MODULE_AT_LOAD)
namespace {

// Once per load of the shared library, and once per unload.
[[gnu::constructor]] void OnLoad() {
  lumagrid_module_start();
}

[[gnu::destructor]] void OnUnload() {
  lumagrid_module_stop();
}

}  // namespace
#endif
