#include <epoxy/gl.h>

#include "coreprofile/gl_context.h"

#include <dlfcn.h>

namespace lumagrid::detail {
namespace {

// EGLContext and GLXContext are both pointers; null is "no context" for either.
using GetCurrentContext = void* (*)();

bool Current(const char* getter) {
  void* symbol = dlsym(RTLD_DEFAULT, getter);
  if (symbol == nullptr) {
    return false;
  }
  return reinterpret_cast<GetCurrentContext>(symbol)() != nullptr;
}

}  // namespace

bool HasCurrentContext() {
  return Current("eglGetCurrentContext") || Current("glXGetCurrentContext");
}

int CurrentGLVersion() {
  if (!HasCurrentContext() || !epoxy_is_desktop_gl()) {
    return 0;
  }
  return epoxy_gl_version();
}

}  // namespace lumagrid::detail
