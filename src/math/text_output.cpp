#include "math/text_output.h"

#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include <ostream>

namespace lumagrid {

std::ostream& writeFour(std::ostream& os, double x, double y, double z, double w) {
  return os << "(" << x << ", " << y << ", " << z << "," << w << ")";
}

}  // namespace lumagrid

std::ostream& operator<<(std::ostream& os, const vec3d& v) {
  return os << "(" << v.x() << ", " << v.y() << ", " << v.z() << ")";
}

std::ostream& operator<<(std::ostream& os, const vec4d& v) {
  return lumagrid::writeFour(os, v.x(), v.y(), v.z(), v.w());
}

std::ostream& operator<<(std::ostream& os, const mat4x4& m) {
  for (int g = 0; g < 4; ++g) {
    const double* col = m[g];
    os << col[0] << " " << col[1] << " " << col[2] << " " << col[3] << std::endl;
  }
  return os;
}
