#ifndef LUMAGRID_TESTS_SUPPORT_GEOMETRY_GLCAPTURE_H
#define LUMAGRID_TESTS_SUPPORT_GEOMETRY_GLCAPTURE_H

#include <array>
#include <cstddef>
#include <vector>

// What GL receives, captured by GL entry points this program defines itself: the real libGLU
// and libgle, linked beside them, call into these (the executable's symbols come first), so a
// test sees exactly what the real libraries emit. Display lists are kept and replayed as GL
// would; primitives are expanded into triangles and segments with GL's winding rules, their
// vertices through the modelview matrix of the moment and their normals through its inverse
// transpose. The context answers as a lit one: GL_LIGHTING reads as enabled.
namespace geometry {

using Point = std::array<double, 3>;

struct CapturedTriangle {
  std::array<Point, 3> positions;
  std::array<Point, 3> normals;  // unit length, or zero where GL received none
};

struct CapturedSegment {
  std::array<Point, 2> positions;
};

struct Captured {
  std::vector<CapturedTriangle> triangles;
  std::vector<CapturedSegment> segments;
  std::size_t stackUnderflows = 0;
};

// Forgets every list and all that was captured, and resets the matrix stack to identity.
void ResetCapture();

// What was executed since the last reset: lists count when called, as in GL.
Captured TakeCaptured();

}  // namespace geometry

#endif
