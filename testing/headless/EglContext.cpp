#include <lumagrid/testing/EglContext.h>
#include <lumagrid/testing/PngFile.h>

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>
#include <GL/glext.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ostream>

namespace headless {
namespace {

std::string hex(unsigned value) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "0x%04X", value);
  return buffer;
}

std::string eglErrorName(EGLint error) {
  switch (error) {
    case EGL_NOT_INITIALIZED:
      return "EGL_NOT_INITIALIZED";
    case EGL_BAD_ACCESS:
      return "EGL_BAD_ACCESS";
    case EGL_BAD_ALLOC:
      return "EGL_BAD_ALLOC";
    case EGL_BAD_ATTRIBUTE:
      return "EGL_BAD_ATTRIBUTE";
    case EGL_BAD_CONFIG:
      return "EGL_BAD_CONFIG";
    case EGL_BAD_CONTEXT:
      return "EGL_BAD_CONTEXT";
    case EGL_BAD_DISPLAY:
      return "EGL_BAD_DISPLAY";
    case EGL_BAD_MATCH:
      return "EGL_BAD_MATCH";
    case EGL_BAD_PARAMETER:
      return "EGL_BAD_PARAMETER";
    default:
      return hex(static_cast<unsigned>(error));
  }
}

std::string eglFailure(const char* what) {
  return std::string(what) + " failed with " + eglErrorName(eglGetError());
}

bool hasExtension(const char* list, const char* name) {
  if (list == nullptr) {
    return false;
  }
  const std::size_t length = std::strlen(name);
  for (const char* p = list; (p = std::strstr(p, name)) != nullptr; p += length) {
    const bool startsWord = p == list || p[-1] == ' ';
    const bool endsWord = p[length] == ' ' || p[length] == '\0';
    if (startsWord && endsWord) {
      return true;
    }
  }
  return false;
}

// One surfaceless display for the whole process, initialised on first use and never terminated:
// Mesa does not like being torn down and brought up again.
struct Display {
  EGLDisplay display = EGL_NO_DISPLAY;
  std::string error;
};

const Display& display() {
  static const Display instance = [] {
    Display d;
    // No GPU in the test environment: ask Mesa for llvmpipe outright instead of probing.
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 0);
    const char* clientExtensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    if (!hasExtension(clientExtensions, "EGL_MESA_platform_surfaceless")) {
      d.error =
          "EGL client extension EGL_MESA_platform_surfaceless is missing (client "
          "extensions: " +
          std::string(clientExtensions != nullptr ? clientExtensions : "none") + ")";
      return d;
    }
    auto getPlatformDisplay = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
        eglGetProcAddress("eglGetPlatformDisplayEXT"));
    if (getPlatformDisplay == nullptr) {
      d.error = "eglGetPlatformDisplayEXT is not available";
      return d;
    }
    EGLDisplay dpy =
        getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (dpy == EGL_NO_DISPLAY) {
      d.error = eglFailure("eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA)");
      return d;
    }
    EGLint major = 0;
    EGLint minor = 0;
    if (eglInitialize(dpy, &major, &minor) != EGL_TRUE) {
      d.error = eglFailure("eglInitialize on the surfaceless display");
      return d;
    }
    d.display = dpy;
    return d;
  }();
  return instance;
}

template <class F>
bool load(F& function, const char* name, std::string& error) {
  function = reinterpret_cast<F>(eglGetProcAddress(name));
  if (function == nullptr) {
    error = std::string("eglGetProcAddress(\"") + name + "\") returned NULL";
    return false;
  }
  return true;
}

}  // namespace

std::string toString(const Rgba& c) {
  return "rgba(" + std::to_string(c.r) + ", " + std::to_string(c.g) + ", " + std::to_string(c.b) +
         ", " + std::to_string(c.a) + ")";
}

std::ostream& operator<<(std::ostream& os, const Rgba& c) {
  return os << toString(c);
}

struct EglContext::Handles {
  EGLDisplay display = EGL_NO_DISPLAY;
  EGLContext context = EGL_NO_CONTEXT;
  GLuint framebuffer = 0;
  GLuint colorBuffer = 0;
  GLuint depthBuffer = 0;
  // Single-sampled copy of a multisampled framebuffer; 0 without multisampling.
  GLuint resolveFramebuffer = 0;
  GLuint resolveBuffer = 0;
  PFNGLGENFRAMEBUFFERSPROC genFramebuffers = nullptr;
  PFNGLBINDFRAMEBUFFERPROC bindFramebuffer = nullptr;
  PFNGLDELETEFRAMEBUFFERSPROC deleteFramebuffers = nullptr;
  PFNGLGENRENDERBUFFERSPROC genRenderbuffers = nullptr;
  PFNGLBINDRENDERBUFFERPROC bindRenderbuffer = nullptr;
  PFNGLDELETERENDERBUFFERSPROC deleteRenderbuffers = nullptr;
  PFNGLRENDERBUFFERSTORAGEPROC renderbufferStorage = nullptr;
  PFNGLFRAMEBUFFERRENDERBUFFERPROC framebufferRenderbuffer = nullptr;
  PFNGLCHECKFRAMEBUFFERSTATUSPROC checkFramebufferStatus = nullptr;
  PFNGLRENDERBUFFERSTORAGEMULTISAMPLEPROC renderbufferStorageMultisample = nullptr;
  PFNGLBLITFRAMEBUFFERPROC blitFramebuffer = nullptr;
};

EglContext::EglContext(int width, int height, int samples)
    : EglContext(width, height, samples, Profile::Compatibility) {}

EglContext::EglContext(int width, int height, int samples, Profile profile)
    : h_(std::make_unique<Handles>()), width_(width), height_(height), profile_(profile) {
  const Display& d = display();
  if (d.display == EGL_NO_DISPLAY) {
    error_ = d.error;
    return;
  }
  h_->display = d.display;
  if (!hasExtension(eglQueryString(d.display, EGL_EXTENSIONS), "EGL_KHR_surfaceless_context")) {
    error_ = "the display lacks EGL_KHR_surfaceless_context";
    return;
  }
  // Desktop GL: with no version requested Mesa gives the compatibility profile, so GL 1.1 fixed
  // function works; a core profile is asked for by version and profile.
  if (eglBindAPI(EGL_OPENGL_API) != EGL_TRUE) {
    error_ = eglFailure("eglBindAPI(EGL_OPENGL_API)");
    return;
  }
  const EGLint configAttributes[] = {EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
  EGLConfig config = EGL_NO_CONFIG_KHR;
  EGLint configs = 0;
  if (eglChooseConfig(d.display, configAttributes, &config, 1, &configs) != EGL_TRUE ||
      configs < 1) {
    // The framebuffer object carries the formats; any config, or none, will do.
    if (!hasExtension(eglQueryString(d.display, EGL_EXTENSIONS), "EGL_KHR_no_config_context")) {
      error_ = eglFailure("eglChooseConfig(EGL_OPENGL_BIT)");
      return;
    }
    config = EGL_NO_CONFIG_KHR;
  }
  const EGLint coreAttributes[] = {EGL_CONTEXT_MAJOR_VERSION,
                                   3,
                                   EGL_CONTEXT_MINOR_VERSION,
                                   3,
                                   EGL_CONTEXT_OPENGL_PROFILE_MASK,
                                   EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                   EGL_NONE};
  const bool core = profile == Profile::Core;
  h_->context =
      eglCreateContext(d.display, config, EGL_NO_CONTEXT, core ? coreAttributes : nullptr);
  if (h_->context == EGL_NO_CONTEXT) {
    error_ = eglFailure(core ? "eglCreateContext(OpenGL 3.3 core profile)"
                             : "eglCreateContext(desktop OpenGL)");
    return;
  }
  if (!makeCurrent()) {
    return;
  }

  Handles& h = *h_;
  if (!load(h.genFramebuffers, "glGenFramebuffers", error_) ||
      !load(h.bindFramebuffer, "glBindFramebuffer", error_) ||
      !load(h.deleteFramebuffers, "glDeleteFramebuffers", error_) ||
      !load(h.genRenderbuffers, "glGenRenderbuffers", error_) ||
      !load(h.bindRenderbuffer, "glBindRenderbuffer", error_) ||
      !load(h.deleteRenderbuffers, "glDeleteRenderbuffers", error_) ||
      !load(h.renderbufferStorage, "glRenderbufferStorage", error_) ||
      !load(h.framebufferRenderbuffer, "glFramebufferRenderbuffer", error_) ||
      !load(h.checkFramebufferStatus, "glCheckFramebufferStatus", error_)) {
    return;
  }
  if (samples > 0) {
    if (!load(h.renderbufferStorageMultisample, "glRenderbufferStorageMultisample", error_) ||
        !load(h.blitFramebuffer, "glBlitFramebuffer", error_)) {
      return;
    }
    GLint maxSamples = 0;
    glGetIntegerv(GL_MAX_SAMPLES, &maxSamples);
    samples_ = samples < maxSamples ? samples : maxSamples;
  }
  // Colour and depth storage of the framebuffer drawn into, multisampled or not.
  auto storage = [&](GLenum format) {
    if (samples_ > 0) {
      h.renderbufferStorageMultisample(GL_RENDERBUFFER, samples_, format, width_, height_);
    } else {
      h.renderbufferStorage(GL_RENDERBUFFER, format, width_, height_);
    }
  };
  if (samples_ > 0) {
    h.genRenderbuffers(1, &h.resolveBuffer);
    h.bindRenderbuffer(GL_RENDERBUFFER, h.resolveBuffer);
    h.renderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width_, height_);
    h.genFramebuffers(1, &h.resolveFramebuffer);
    h.bindFramebuffer(GL_FRAMEBUFFER, h.resolveFramebuffer);
    h.framebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                              h.resolveBuffer);
    const GLenum status = h.checkFramebufferStatus(GL_FRAMEBUFFER);
    if (status != GL_FRAMEBUFFER_COMPLETE) {
      error_ = "resolve framebuffer object incomplete: status " + hex(status);
      return;
    }
  }
  h.genRenderbuffers(1, &h.colorBuffer);
  h.bindRenderbuffer(GL_RENDERBUFFER, h.colorBuffer);
  storage(GL_RGBA8);
  h.genRenderbuffers(1, &h.depthBuffer);
  h.bindRenderbuffer(GL_RENDERBUFFER, h.depthBuffer);
  storage(GL_DEPTH_COMPONENT24);
  h.genFramebuffers(1, &h.framebuffer);
  h.bindFramebuffer(GL_FRAMEBUFFER, h.framebuffer);
  h.framebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, h.colorBuffer);
  h.framebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, h.depthBuffer);
  const GLenum status = h.checkFramebufferStatus(GL_FRAMEBUFFER);
  if (status != GL_FRAMEBUFFER_COMPLETE) {
    error_ = "framebuffer object incomplete: status " + hex(status);
    return;
  }
  glDrawBuffer(GL_COLOR_ATTACHMENT0);
  glReadBuffer(GL_COLOR_ATTACHMENT0);
  applyDefaultState();
  const GLenum glError = glGetError();
  if (glError != GL_NO_ERROR) {
    error_ = "setting up the framebuffer and default state raised GL error " + hex(glError);
  }
}

EglContext::~EglContext() {
  if (h_->context == EGL_NO_CONTEXT) {
    return;
  }
  if (makeCurrent() && h_->deleteFramebuffers != nullptr) {
    h_->bindFramebuffer(GL_FRAMEBUFFER, 0);
    h_->deleteFramebuffers(1, &h_->framebuffer);
    h_->deleteRenderbuffers(1, &h_->colorBuffer);
    h_->deleteRenderbuffers(1, &h_->depthBuffer);
    if (h_->resolveFramebuffer != 0) {
      h_->deleteFramebuffers(1, &h_->resolveFramebuffer);
      h_->deleteRenderbuffers(1, &h_->resolveBuffer);
    }
  }
  eglMakeCurrent(h_->display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  eglDestroyContext(h_->display, h_->context);
}

bool EglContext::makeCurrent() {
  if (eglMakeCurrent(h_->display, EGL_NO_SURFACE, EGL_NO_SURFACE, h_->context) != EGL_TRUE) {
    error_ = eglFailure("eglMakeCurrent(surfaceless)");
    return false;
  }
  return true;
}

void EglContext::applyDefaultState() {
  glViewport(0, 0, width_, height_);
  glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
  glClearDepth(1.0);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  glEnable(GL_DEPTH_TEST);
  if (profile_ == Profile::Core) {
    return;
  }
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glOrtho(-2.0, 2.0, -2.0, 2.0, -10.0, 10.0);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  // Set with an identity modelview, so the direction is in eye space: towards the viewer.
  const GLfloat lightDirection[] = {0.0f, 0.0f, 1.0f, 0.0f};
  glLightfv(GL_LIGHT0, GL_POSITION, lightDirection);
  glEnable(GL_LIGHTING);
  glEnable(GL_LIGHT0);
  glEnable(GL_NORMALIZE);
}

void EglContext::resolve() const {
  if (samples_ == 0) {
    return;
  }
  const Handles& h = *h_;
  h.bindFramebuffer(GL_READ_FRAMEBUFFER, h.framebuffer);
  h.bindFramebuffer(GL_DRAW_FRAMEBUFFER, h.resolveFramebuffer);
  h.blitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  // Reads come from the resolved copy; drawing goes on into the multisampled one.
  h.bindFramebuffer(GL_READ_FRAMEBUFFER, h.resolveFramebuffer);
  h.bindFramebuffer(GL_DRAW_FRAMEBUFFER, h.framebuffer);
}

Rgba EglContext::pixel(int x, int y) const {
  Rgba out;
  resolve();
  glFinish();
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, &out);
  return out;
}

std::vector<Rgba> EglContext::readPixels() const {
  std::vector<Rgba> out(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
  static_assert(sizeof(Rgba) == 4, "Rgba must match GL_RGBA / GL_UNSIGNED_BYTE");
  resolve();
  glFinish();
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, out.data());
  return out;
}

std::size_t EglContext::countPixels(const std::function<bool(const Rgba&)>& predicate) const {
  std::size_t count = 0;
  for (const Rgba& p : readPixels()) {
    count += predicate(p) ? 1 : 0;
  }
  return count;
}

bool EglContext::savePng(const std::string& path, std::string* why) const {
  const std::vector<Rgba> pixels = readPixels();
  return writePng(path, width_, height_, 4, reinterpret_cast<const unsigned char*>(pixels.data()),
                  why);
}

std::string EglContext::renderer() {
  const auto* s = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
  return s != nullptr ? s : "";
}

std::string EglContext::version() {
  const auto* s = reinterpret_cast<const char*>(glGetString(GL_VERSION));
  return s != nullptr ? s : "";
}

}  // namespace headless
