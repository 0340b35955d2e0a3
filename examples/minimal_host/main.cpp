// The smallest complete Lumagrid host: a headless OpenGL context (EGL pbuffer on Mesa's
// surfaceless platform, no display), a projection, a light, one scene, one draw, one pixel read
// back. Exits 0 when the sphere shows red in the middle of the picture.
#include <lumagrid/lumagrid.h>

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>
#include <GL/glu.h>

#include <cstdio>

int main() {
  // 1. A context, current on this thread.
  EGLDisplay dpy =
      eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
  if (dpy == EGL_NO_DISPLAY || !eglInitialize(dpy, nullptr, nullptr)) {
    std::fprintf(stderr, "no EGL display\n");
    return 2;
  }
  const EGLint configAttributes[] = {EGL_SURFACE_TYPE,
                                     EGL_PBUFFER_BIT,
                                     EGL_RENDERABLE_TYPE,
                                     EGL_OPENGL_BIT,
                                     EGL_RED_SIZE,
                                     8,
                                     EGL_DEPTH_SIZE,
                                     24,
                                     EGL_NONE};
  const EGLint size[] = {EGL_WIDTH, 256, EGL_HEIGHT, 256, EGL_NONE};
  EGLConfig config;
  EGLint configs = 0;
  eglBindAPI(EGL_OPENGL_API);  // desktop GL, compatibility profile: GL 1.1 works
  if (!eglChooseConfig(dpy, configAttributes, &config, 1, &configs) || configs < 1) {
    std::fprintf(stderr, "no EGL config\n");
    return 2;
  }
  EGLSurface surface = eglCreatePbufferSurface(dpy, config, size);
  EGLContext context = eglCreateContext(dpy, config, EGL_NO_CONTEXT, nullptr);
  if (!eglMakeCurrent(dpy, surface, surface, context)) {
    std::fprintf(stderr, "no OpenGL context\n");
    return 2;
  }

  // 2. Projection, camera, light, depth test: the library sets none of them.
  glViewport(0, 0, 256, 256);
  glMatrixMode(GL_PROJECTION);
  gluPerspective(40.0, 1.0, 1.0, 20.0);
  glMatrixMode(GL_MODELVIEW);
  const GLfloat fromViewer[] = {0.0f, 0.0f, 1.0f, 0.0f};
  glLightfv(GL_LIGHT0, GL_POSITION, fromViewer);
  glEnable(GL_LIGHTING);
  glEnable(GL_LIGHT0);
  glEnable(GL_DEPTH_TEST);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

  // 3. One scene with one shape, drawn once.
  {
    CGLScene scene;
    auto* ball = new CGLSphere(1.0);
    ball->MoveTo(0.0, 0.0, -5.0);
    ball->ColorSet(0x0000FFul);  // red: the low byte is red
    scene.AddGLShape(ball);      // the scene owns it now
    scene.DrawGLShapes();
  }  // the scene deletes the sphere, and its display list, while the context is current

  // 4. Read back.
  unsigned char pixel[4] = {0, 0, 0, 0};
  glReadPixels(128, 128, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
  std::printf("centre pixel: %d %d %d\n", pixel[0], pixel[1], pixel[2]);
  const bool red = pixel[0] > 150 && pixel[1] < 30 && pixel[2] < 30;

  eglMakeCurrent(dpy, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  eglDestroyContext(dpy, context);
  eglDestroySurface(dpy, surface);
  // No eglTerminate: Mesa would unload its driver, and its memory goes with the process anyway.
  return red && glGetError() == GL_NO_ERROR ? 0 : 1;
}
