#include "gallery_view.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

#include <lumagrid/CGLPolyline.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/CoreProfileRenderer.h>

#include "gallery_catalog.h"
#include "stroke_font.h"
#include "view_matrices.h"

namespace gallery {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kFieldOfView = 30.0;  // degrees, vertical
constexpr GLfloat kAmbient[] = {0.22f, 0.22f, 0.24f, 1.0f};
constexpr GLfloat kFullAmbient[] = {1.0f, 1.0f, 1.0f, 1.0f};
// Directions in eye space, fixed to the camera.
constexpr GLfloat kKeyDirection[] = {-0.45f, 0.6f, 1.0f, 0.0f};
constexpr GLfloat kKeyColour[] = {0.85f, 0.85f, 0.82f, 1.0f};
constexpr GLfloat kFillDirection[] = {0.8f, -0.35f, 0.5f, 0.0f};
constexpr GLfloat kFillColour[] = {0.35f, 0.37f, 0.45f, 1.0f};
constexpr GLfloat kLabelColour[] = {0.86f, 0.88f, 0.92f};
constexpr GLfloat kLabelLineWidth = 1.25f;

// The perspective of the view: the picture's aspect and the depth range the shapes need.
struct Lens {
  double distance;
  double aspect;
  double zNear;
  double zFar;
};

Lens lensFor(const Layout& layout, const Orbit& orbit) {
  const double distance = homeCamera(layout).distance;
  // Facing the camera the shapes stand within 4 units of the z = 0 plane; turned, the world's
  // corners swing towards and away from it.
  const double halfDiagonal = std::hypot(layout.worldWidth(), layout.worldHeight()) / 2;
  const double reach = orbit.turned() ? std::max(4.0, halfDiagonal + 2.0) : 4.0;
  return {distance, static_cast<double>(layout.width()) / layout.height(),
          std::max(distance - reach, distance / 20), distance + reach};
}

template <std::size_t N>
void copyFloats(const GLfloat (&from)[N], float* to) {
  std::copy(from, from + N, to);
}

lumagrid::Light light(const GLfloat (&direction)[4], const GLfloat (&colour)[4]) {
  lumagrid::Light l{};
  copyFloats(direction, l.position);
  copyFloats(colour, l.diffuse);
  return l;
}

}  // namespace

Camera homeCamera(const Layout& layout) {
  return {kFieldOfView, layout.worldHeight() / 2 / std::tan(kFieldOfView / 2 * kPi / 180.0)};
}

void clearPicture(const Layout& layout) {
  glViewport(0, 0, layout.width(), layout.height());
  glClearColor(kBackground.r / 255.0f, kBackground.g / 255.0f, kBackground.b / 255.0f, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void setUpView(const Layout& layout, const Orbit& orbit) {
  clearPicture(layout);

  const Lens lens = lensFor(layout, orbit);
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  // The zoom scales the picture about its centre, as a longer lens would.
  glScaled(orbit.zoom, orbit.zoom, 1.0);
  gluPerspective(kFieldOfView, lens.aspect, lens.zNear, lens.zFar);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();

  // Set under an identity model-view: the directions are in eye space, fixed to the camera.
  glLightfv(GL_LIGHT0, GL_POSITION, kKeyDirection);
  glLightfv(GL_LIGHT0, GL_DIFFUSE, kKeyColour);
  glLightfv(GL_LIGHT1, GL_POSITION, kFillDirection);
  glLightfv(GL_LIGHT1, GL_DIFFUSE, kFillColour);
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

  gluLookAt(0.0, 0.0, lens.distance, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0);
  glRotated(orbit.pitch, 1.0, 0.0, 0.0);
  glRotated(orbit.yaw, 0.0, 1.0, 0.0);
}

lumagrid::View coreView(const Layout& layout, const Orbit& orbit) {
  const Lens lens = lensFor(layout, orbit);
  lumagrid::View view{};
  toFloats(scaling(orbit.zoom, orbit.zoom, 1.0) *
               perspective(kFieldOfView, lens.aspect, lens.zNear, lens.zFar),
           view.projection);
  const double eye[] = {0.0, 0.0, lens.distance};
  const double centre[] = {0.0, 0.0, 0.0};
  const double up[] = {0.0, 1.0, 0.0};
  toFloats(lookAt(eye, centre, up) * rotation(orbit.pitch, 1.0, 0.0, 0.0) *
               rotation(orbit.yaw, 0.0, 1.0, 0.0),
           view.modelView);
  view.lights = {light(kKeyDirection, kKeyColour), light(kFillDirection, kFillColour)};
  copyFloats(kAmbient, view.ambient);
  return view;
}

lumagrid::View flatView(lumagrid::View view) {
  view.lights.clear();
  copyFloats(kFullAmbient, view.ambient);
  return view;
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

std::vector<Segment> labelStrokes(const Layout& layout, std::size_t i, const std::string& label) {
  const Rect area = layout.labelArea(i);
  const double fit = 0.86 * area.width / strokeWidth(label, 1.0);
  const double height = std::min(0.45 * area.height, fit);
  const double x = area.x + (area.width - strokeWidth(label, height)) / 2;
  // Window y grows upwards; the layout's grows downwards.
  const double y = layout.height() - (area.y + (area.height + height) / 2);
  return strokeText(label, x, y, height);
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
  glLineWidth(kLabelLineWidth);
  glColor3f(kLabelColour[0], kLabelColour[1], kLabelColour[2]);

  for (std::size_t i = 0; i < labels.size() && i < layout.cells(); ++i) {
    glBegin(GL_LINES);
    {
      for (const Segment& s : labelStrokes(layout, i, labels[i])) {
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

bool drawLabels(lumagrid::CoreProfileRenderer& renderer, const Layout& layout,
                const std::vector<std::string>& labels) {
  CGLScene strokes;
  for (std::size_t i = 0; i < labels.size() && i < layout.cells(); ++i) {
    for (const Segment& s : labelStrokes(layout, i, labels[i])) {
      auto line = std::make_unique<CGLPolyline>();
      line->AddVertex(s.x0, s.y0, 0.0);
      line->AddVertex(s.x1, s.y1, 0.0);
      line->ColorSet(kLabelColour[0], kLabelColour[1], kLabelColour[2], 1.0);
      strokes.AddGLShape(line.release());  // the scene owns it now
    }
  }
  lumagrid::View pixels{};
  toFloats(identity(), pixels.modelView);
  toFloats(orthographic(0.0, layout.width(), 0.0, layout.height(), -1.0, 1.0), pixels.projection);
  copyFloats(kFullAmbient, pixels.ambient);

  // Labels go over whatever is drawn, as with the depth test off.
  glClear(GL_DEPTH_BUFFER_BIT);
  glLineWidth(kLabelLineWidth);
  const bool drawn = renderer.Draw(strokes, pixels);
  glLineWidth(2.0f);
  return drawn;
}

}  // namespace gallery
