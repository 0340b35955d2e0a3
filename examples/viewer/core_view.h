// The camera of a core-profile view as the viewer's ray picking takes it: a core context has no
// matrix stack to read it back from.
#pragma once

#include "gallery_layout.h"
#include "gallery_view.h"
#include "ray_pick.h"

namespace viewer {

// The camera gallery::coreView() gives for layout and orbit: the matrices as GL would keep them
// (in single precision, as gallery::setUpView leaves them) and the whole picture as viewport.
Camera coreCamera(const gallery::Layout& layout, const gallery::Orbit& orbit);

}  // namespace viewer
