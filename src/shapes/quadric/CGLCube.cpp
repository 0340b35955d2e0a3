#include "shapes/quadric/CGLCube.h"

CGLCube::CGLCube() : CGLBox() {}

CGLCube::CGLCube(double size) : CGLBox(size, size, size) {}

CGLCube::~CGLCube() = default;
