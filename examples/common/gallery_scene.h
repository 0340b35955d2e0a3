// The gallery's shapes in three scenes, drawn in order: lit solids, line shapes in their flat
// colour, then translucent shapes blended over both. An interactive viewer can reuse it as it
// stands: set up the view (gallery_view.h), then draw().
#pragma once

#include <lumagrid/CGLScene.h>

#include <cstddef>
#include <vector>

#include "gallery_layout.h"
#include "gallery_shapes.h"

class CGLObject;

namespace lumagrid {
class CoreProfileRenderer;
struct View;
}  // namespace lumagrid

namespace gallery {

class GalleryScene {
 public:
  // Cell i of layout shows catalog()[entries[i]].
  GalleryScene(const std::vector<std::size_t>& entries, const Layout& layout);
  GalleryScene(const GalleryScene&) = delete;
  GalleryScene& operator=(const GalleryScene&) = delete;

  // Needs the context current and the view set up. Leaves the model-view matrix and its stack
  // as it found them.
  void draw();
  // The same layers through the renderer, lit by view (coreView), the flat layer by its
  // flatView. Needs the picture cleared. False as soon as a Draw fails (see its LastError()).
  bool draw(lumagrid::CoreProfileRenderer& renderer, const lumagrid::View& view);

  // Every shape the scenes hold, in the order the entries built them: a viewer picks, selects and
  // shows them through the scene that owns them.
  struct Item {
    CGLObject* shape;
    CGLScene* scene;
    std::size_t entry;  // index into catalog()
    gallery::Layer layer;
    bool popsExtra;
  };
  const std::vector<Item>& items() const { return items_; }
  std::size_t shapeCount() const { return items_.size(); }
  // The layers' scenes in drawing order, for writing them to one file.
  std::vector<CGLScene*> scenes() {
    return {&lit_.scene, &wire_.scene, &flat_.scene, &translucent_.scene};
  }

 private:
  struct Layer {
    CGLScene scene;
    // Groups in the scene: each pops the matrix stack once more than it pushes.
    int groups = 0;
    void draw();
    // The same layers through the renderer, lit by view (coreView), the flat layer by its
    // flatView. Needs the picture cleared. False as soon as a Draw fails (see its LastError()).
    bool draw(lumagrid::CoreProfileRenderer& renderer, const lumagrid::View& view);
  };
  Layer lit_;
  Layer wire_;
  Layer flat_;
  Layer translucent_;
  std::vector<Item> items_;
};

}  // namespace gallery
