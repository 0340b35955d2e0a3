// What the window title says about a picked shape: its class and parameters.
#pragma once

#include <string>

class CGLObject;
class CGLSpring;

namespace viewer {

// For example "CGLCone base 0.75 top 0 height 1.6 closed"; the class name alone for a class it
// does not know.
std::string describeShape(CGLObject& shape);

// The spring's shaded mode: 0 draws its tube as a wireframe.
int springShadedMode(CGLSpring& spring);

}  // namespace viewer
