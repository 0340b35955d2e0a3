// Shows the gallery's scene in a window, lit, to orbit, zoom and pick shapes in: see --help.
#include <lumagrid/testing/GLErrors.h>

#include <GL/freeglut.h>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "command_line.h"
#include "screenshot.h"
#include "viewer.h"
#include "viewer_options.h"

namespace {

const char* const kProgram = "lumagrid-viewer";
constexpr double kDegreesPerPixel = 0.4;
constexpr double kZoomPerPixel = 0.01;
constexpr double kZoomStep = 1.15;
// A press and release this close together is a click, not a drag.
constexpr int kClickSlop = 3;
constexpr unsigned char kEscape = 27;

struct App {
  viewer::Options options;
  std::unique_ptr<viewer::Viewer> viewer;
  int frame = 0;
  bool glError = false;
  int button = -1;
  int pressX = 0;
  int pressY = 0;
  int lastX = 0;
  int lastY = 0;
  bool dragged = false;
};

// GLUT's callbacks carry no user data.
App* g_app = nullptr;

void showSelection(bool print) {
  const std::string text = g_app->viewer->selectionText();
  glutSetWindowTitle(("Lumagrid viewer: " + text).c_str());
  if (print) {
    std::cout << "picked: " << text << '\n'
              << "ray pick: " << g_app->viewer->rayPickText() << std::endl;
  }
}

// Writes the scene to the --gltf file and says so in the title, and on the terminal.
void exportScene() {
  std::string error;
  const std::string path = examples::absolutePath(g_app->options.gltf);
  const bool written = g_app->viewer->exportGltf(g_app->options.gltf, &error);
  const std::string text = written ? "wrote " + path : "cannot write the glTF file: " + error;
  glutSetWindowTitle(("Lumagrid viewer: " + text).c_str());
  (written ? std::cout : std::cerr) << "viewer: " << text << std::endl;
}

// Ends the program; the scene's display lists go first, while the context is current. It exits
// from here rather than from the main loop: freeglut's shutdown closes the display, and Mesa then
// unloads its driver, leaving LeakSanitizer no names for what the driver keeps until exit.
[[noreturn]] void finish(int code) {
  g_app->viewer.reset();
  std::exit(code);
}

void onKey(unsigned char key, int x, int y);

void onDisplay() {
  App& app = *g_app;
  if (!app.viewer) {
    return;
  }
  if (app.frame == 0 && app.options.click) {
    app.viewer->click(app.options.click->x, app.options.click->y);
    showSelection(true);
  }
  if (app.frame == 0) {
    for (const char key : app.options.keys) {
      onKey(static_cast<unsigned char>(key), 0, 0);
    }
  }
  app.viewer->draw();
  ++app.frame;
  if (!app.viewer->drawError().empty()) {
    app.glError = true;
    std::cerr << kProgram << ": the core-profile renderer drew nothing in frame " << app.frame
              << ": " << app.viewer->drawError() << '\n';
  }
  const std::vector<std::string> errors = headless::pendingGLErrors();
  if (!errors.empty()) {
    app.glError = true;
    std::cerr << kProgram << ": OpenGL reported";
    for (const std::string& e : errors) {
      std::cerr << ' ' << e;
    }
    std::cerr << " in frame " << app.frame << '\n';
  }
  if (app.options.frames > 0 && app.frame >= app.options.frames) {
    int code = examples::code(app.glError ? examples::Exit::GLError : examples::Exit::Ok);
    if (!app.options.screenshot.empty()) {
      std::string error;
      if (viewer::saveScreenshot(app.options.screenshot, app.viewer->width(), app.viewer->height(),
                                 &error)) {
        std::cout << "viewer: " << app.options.screenshot << " (" << app.viewer->width() << 'x'
                  << app.viewer->height() << ", after " << app.frame << " frames)\n";
      } else {
        std::cerr << kProgram << ": cannot write " << app.options.screenshot << ": " << error
                  << '\n';
        code = examples::code(examples::Exit::CannotWrite);
      }
    }
    finish(code);
  }
  glutSwapBuffers();
  if (app.options.frames > 0) {
    glutPostRedisplay();
  }
}

void onReshape(int width, int height) {
  if (g_app->viewer && width > 0 && height > 0) {
    g_app->viewer->resize(width, height);
  }
  glutPostRedisplay();
}

void onWheel(int /*wheel*/, int direction, int /*x*/, int /*y*/) {
  if (g_app->viewer) {
    g_app->viewer->zoom(direction > 0 ? kZoomStep : 1.0 / kZoomStep);
    glutPostRedisplay();
  }
}

void onMouse(int button, int state, int x, int y) {
  App& app = *g_app;
  if (!app.viewer) {
    return;
  }
  // Buttons 3 and 4 are the wheel when no wheel callback takes it.
  if (button == 3 || button == 4) {
    if (state == GLUT_DOWN) {
      onWheel(0, button == 3 ? 1 : -1, x, y);
    }
    return;
  }
  if (state == GLUT_DOWN) {
    app.button = button;
    app.pressX = app.lastX = x;
    app.pressY = app.lastY = y;
    app.dragged = false;
    return;
  }
  if (button == GLUT_LEFT_BUTTON && app.button == GLUT_LEFT_BUTTON && !app.dragged) {
    app.viewer->click(x, y);
    showSelection(true);
  }
  app.button = -1;
  glutPostRedisplay();
}

void onMotion(int x, int y) {
  App& app = *g_app;
  if (!app.viewer || app.button < 0) {
    return;
  }
  if (std::abs(x - app.pressX) > kClickSlop || std::abs(y - app.pressY) > kClickSlop) {
    app.dragged = true;
  }
  if (!app.dragged) {
    return;
  }
  const int dx = x - app.lastX;
  const int dy = y - app.lastY;
  app.lastX = x;
  app.lastY = y;
  if (app.button == GLUT_LEFT_BUTTON) {
    app.viewer->turn(dx * kDegreesPerPixel, dy * kDegreesPerPixel);
  } else if (app.button == GLUT_RIGHT_BUTTON) {
    app.viewer->zoom(std::exp(-dy * kZoomPerPixel));
  }
  glutPostRedisplay();
}

void onKey(unsigned char key, int /*x*/, int /*y*/) {
  App& app = *g_app;
  if (!app.viewer) {
    return;
  }
  switch (key) {
    case 'r':
      app.viewer->resetView();
      break;
    case '+':
    case '=':
      app.viewer->zoom(kZoomStep);
      break;
    case '-':
      app.viewer->zoom(1.0 / kZoomStep);
      break;
    case 'w':
      app.viewer->toggleWireframe();
      break;
    case 'v':
      app.viewer->toggleSelectedVisible();
      showSelection(false);
      break;
    case 't':
      app.viewer->toggleSelectedTranslucent();
      showSelection(false);
      break;
    case 'e':
      exportScene();
      break;
    case 'h':
      std::cout << viewer::keyList() << std::flush;
      break;
    case 'q':
    case kEscape:
      finish(examples::code(examples::Exit::Ok));
    default:
      return;
  }
  glutPostRedisplay();
}

// The window is going: its context is still current here.
void onClose() {
  finish(examples::code(examples::Exit::Ok));
}

// No display, no GLX visual: freeglut would exit 1, which reads as a bad command line.
void onGlutError(const char* format, va_list args) {
  std::fprintf(stderr, "%s: ", kProgram);
  std::vfprintf(stderr, format, args);
  std::fprintf(stderr, " (the viewer needs a display, e.g. xvfb-run)\n");
  std::exit(examples::code(examples::Exit::NoContext));
}

}  // namespace

int main(int argc, char** argv) {
  App app;
  if (const std::optional<int> status = viewer::parseOptions(argc, argv, &app.options)) {
    return *status;
  }

  // GLUT sees no argument of ours: they are not X options.
  int glutArgc = 1;
  char* glutArgv[] = {argv[0], nullptr};
  glutInitErrorFunc(onGlutError);
  glutInit(&glutArgc, glutArgv);
  glutInitDisplayMode(GLUT_DOUBLE | GLUT_RGB | GLUT_DEPTH);
  if (app.options.renderer == viewer::Renderer::CoreProfile) {
    glutInitContextVersion(3, 3);
    glutInitContextProfile(GLUT_CORE_PROFILE);
  }
  glutInitWindowSize(app.options.width, app.options.height);
  glutCreateWindow("Lumagrid viewer");

  g_app = &app;
  app.viewer =
      std::make_unique<viewer::Viewer>(app.options.width, app.options.height, app.options.renderer);
  showSelection(false);
  glutDisplayFunc(onDisplay);
  glutReshapeFunc(onReshape);
  glutMouseFunc(onMouse);
  glutMotionFunc(onMotion);
  glutMouseWheelFunc(onWheel);
  glutKeyboardFunc(onKey);
  glutCloseFunc(onClose);
  if (app.options.frames == 0) {
    std::cout << "Lumagrid viewer: click a shape to select it; h prints the keys.\n";
  }
  glutMainLoop();  // never returns: every way out goes through finish()
  return 0;
}
