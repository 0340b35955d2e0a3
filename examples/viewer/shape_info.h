// How the viewer tells a spring's drawing mode (the title's words come from
// lumagrid::DescribeShape).
#pragma once

class CGLSpring;

namespace viewer {

// The spring's shaded mode: 0 draws its tube as a wireframe.
int springShadedMode(CGLSpring& spring);

}  // namespace viewer
