#include "shape_info.h"

#include <lumagrid/lumagrid.h>

namespace viewer {
namespace {

// The shaded mode is a protected member without a getter. The class is derived for the purpose:
// inside it, &CGLSpring::m_bShaded read through it reads any spring. No object is ever treated
// as one.
struct SpringText : CGLSpring {
  static int shadedMode(CGLSpring& s) { return s.*&SpringText::m_bShaded; }
};

}  // namespace

int springShadedMode(CGLSpring& spring) {
  return SpringText::shadedMode(spring);
}

}  // namespace viewer
