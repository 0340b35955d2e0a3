#include "gallery_view.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "gallery_catalog.h"
#include "stroke_font.h"

namespace gallery {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kFieldOfView = 30.0;  // degrees, vertical
constexpr GLfloat kAmbient[] = {0.22f, 0.22f, 0.24f, 1.0f};
constexpr GLfloat kFullAmbient[] = {1.0f, 1.0f, 1.0f, 1.0f};

}  // namespace

Camera homeCamera(const Layout& layout) {
  return {kFieldOfView, layout.worldHeight() / 2 / std::tan(kFieldOfView / 2 * kPi / 180.0)};
}

void setUpView(const Layout& layout, const Orbit& orbit) {
  glViewport(0, 0, layout.width(), layout.height());
  glClearColor(kBackground.r / 255.0f, kBackground.g / 255.0f, kBackground.b / 255.0f, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

  const double distance = homeCamera(layout).distance;
  // Facing the camera the shapes stand within 4 units of the z = 0 plane; turned, the world's
  // corners swing towards and away from it.
  const double halfDiagonal = std::hypot(layout.worldWidth(), layout.worldHeight()) / 2;
  const double reach = orbit.turned() ? std::max(4.0, halfDiagonal + 2.0) : 4.0;
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  // The zoom scales the picture about its centre, as a longer lens would.
  glScaled(orbit.zoom, orbit.zoom, 1.0);
  gluPerspective(kFieldOfView, static_cast<double>(layout.width()) / layout.height(),
                 std::max(distance - reach, distance / 20), distance + reach);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();

  // Set under an identity model-view: the directions are in eye space, fixed to the camera.
  const GLfloat keyDirection[] = {-0.45f, 0.6f, 1.0f, 0.0f};
  const GLfloat keyColour[] = {0.85f, 0.85f, 0.82f, 1.0f};
  const GLfloat fillDirection[] = {0.8f, -0.35f, 0.5f, 0.0f};
  const GLfloat fillColour[] = {0.35f, 0.37f, 0.45f, 1.0f};
  glLightfv(GL_LIGHT0, GL_POSITION, keyDirection);
  glLightfv(GL_LIGHT0, GL_DIFFUSE, keyColour);
  glLightfv(GL_LIGHT1, GL_POSITION, fillDirection);
  glLightfv(GL_LIGHT1, GL_DIFFUSE, fillColour);
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kAmbient);
  glEnable(GL_LIGHTING);
  glEnable(GL_LIGHT0);
  glEnable(GL_LIGHT1);
  // Shapes are scaled to their cells, and scaling stretches normals.
  glEnable(GL_NORMALIZE);

  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LESS);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glLineWidth(2.0f);

  gluLookAt(0.0, 0.0, distance, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0);
  glRotated(orbit.pitch, 1.0, 0.0, 0.0);
  glRotated(orbit.yaw, 0.0, 1.0, 0.0);
}

FlatLighting::FlatLighting() {
  glDisable(GL_LIGHT0);
  glDisable(GL_LIGHT1);
  // Ambient 1 and no lights: the lit colour is the material colour itself.
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kFullAmbient);
}

FlatLighting::~FlatLighting() {
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, kAmbient);
  glEnable(GL_LIGHT0);
  glEnable(GL_LIGHT1);
}

void drawLabels(const Layout& layout, const std::vector<std::string>& labels) {
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
  glLoadIdentity();
  glOrtho(0.0, layout.width(), 0.0, layout.height(), -1.0, 1.0);
  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
  glLoadIdentity();
  glDisable(GL_LIGHTING);
  glDisable(GL_DEPTH_TEST);
  glLineWidth(1.25f);
  glColor3f(0.86f, 0.88f, 0.92f);

  for (std::size_t i = 0; i < labels.size() && i < layout.cells(); ++i) {
    const Rect area = layout.labelArea(i);
    const double fit = 0.86 * area.width / strokeWidth(labels[i], 1.0);
    const double height = std::min(0.45 * area.height, fit);
    const double x = area.x + (area.width - strokeWidth(labels[i], height)) / 2;
    // Window y grows upwards; the layout's grows downwards.
    const double y = layout.height() - (area.y + (area.height + height) / 2);
    glBegin(GL_LINES);
    {
      for (const Segment& s : strokeText(labels[i], x, y, height)) {
        glVertex2d(s.x0, s.y0);
        glVertex2d(s.x1, s.y1);
      }
    }
    glEnd();
  }

  glEnable(GL_DEPTH_TEST);
  glEnable(GL_LIGHTING);
  glLineWidth(2.0f);
  glPopMatrix();
  glMatrixMode(GL_PROJECTION);
  glPopMatrix();
  glMatrixMode(GL_MODELVIEW);
}

}  // namespace gallery
