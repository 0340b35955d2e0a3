#include "host_scene.h"

#include <GL/gl.h>
#include <GL/glu.h>

namespace host {

void buildScene(CGLScene& scene) {
  auto* ball = new CGLSphere(0.5);
  ball->MoveTo(0.0, 0.0, 1.0);
  ball->ColorSet(0x0000FFul);  // red: the low byte is red
  scene.AddGLShape(ball);      // the scene owns it now

  auto* post = new CGLCylinder(0.1, 1.0, true);
  post->ColorSet(0.6);
  scene.AddGLShape(post);
}

void drawFrame(CGLScene& scene, int width, int height) {
  glViewport(0, 0, width, height);
  glClearColor(0.1f, 0.1f, 0.1f, 1.0f);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);

  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  gluPerspective(35.0, static_cast<double>(width) / height, 1.0, 20.0);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  gluLookAt(0.0, -5.0, 2.0, 0.0, 0.0, 1.0, 0.0, 0.0, 1.0);  // at the ball

  // A light fixed to the camera: set before the camera moves the world.
  const GLfloat overTheShoulder[] = {0.5f, 0.5f, 1.0f, 0.0f};
  glPushMatrix();
  glLoadIdentity();
  glLightfv(GL_LIGHT0, GL_POSITION, overTheShoulder);
  glPopMatrix();
  glEnable(GL_LIGHTING);
  glEnable(GL_LIGHT0);
  glEnable(GL_DEPTH_TEST);

  scene.DrawGLShapes();
}

}  // namespace host
