// The gallery's camera, lights and labels.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "gallery_layout.h"
#include "stroke_font.h"

namespace lumagrid {
class CoreProfileRenderer;
struct View;
}  // namespace lumagrid

namespace gallery {

// A turn of the camera about the world's centre (degrees: pitch about x, then yaw about y) and a
// zoom of its lens. The default is the gallery's own view.
struct Orbit {
  double yaw = 0.0;
  double pitch = 0.0;
  double zoom = 1.0;

  bool turned() const { return yaw != 0.0 || pitch != 0.0; }
  bool home() const { return !turned() && zoom == 1.0; }
};

// The camera at home: at (0, 0, distance) looking at the origin with +y up, its vertical field
// of view in degrees.
struct Camera {
  double fieldOfView;
  double distance;
};
Camera homeCamera(const Layout& layout);

// Clears the picture and sets the state every draw starts from: viewport, a perspective camera
// whose view of the z = 0 plane is exactly the layout's world (at home), two directional lights,
// depth test and blending.
void setUpView(const Layout& layout, const Orbit& orbit = Orbit());

// Only the first part of setUpView: viewport, then the picture cleared to the background.
void clearPicture(const Layout& layout);

// The camera and lights setUpView gives the fixed-function state, for the core-profile renderer;
// flatView is the same camera as FlatLighting lights it.
lumagrid::View coreView(const Layout& layout, const Orbit& orbit = Orbit());
lumagrid::View flatView(lumagrid::View view);

// While alive, lit shapes show their material colour unshaded: line shapes have no normals of
// their own, so under the lights their shade would depend on whatever normal came last.
class FlatLighting {
 public:
  FlatLighting();
  ~FlatLighting();
  FlatLighting(const FlatLighting&) = delete;
  FlatLighting& operator=(const FlatLighting&) = delete;
};

// Writes labels[i] centred under cell i, in the stroke font.
void drawLabels(const Layout& layout, const std::vector<std::string>& labels);
// The same through the renderer, over whatever is drawn. False when its Draw failed (see its
// LastError()).
bool drawLabels(lumagrid::CoreProfileRenderer& renderer, const Layout& layout,
                const std::vector<std::string>& labels);

// The strokes of the label of cell i, in window pixels (y up).
std::vector<Segment> labelStrokes(const Layout& layout, std::size_t i, const std::string& label);

}  // namespace gallery
