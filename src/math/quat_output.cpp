#include "math/text_output.h"

#include <lumagrid/MQuat.h>
#include <lumagrid/MRot.h>

#include <ostream>

std::ostream& operator<<(std::ostream& os, const MQuat& q) {
  return lumagrid::writeFour(os, q.x, q.y, q.z, q.w);
}

std::ostream& operator<<(std::ostream& os, const MRot& r) {
  return lumagrid::writeFour(os, r.axis.x(), r.axis.y(), r.axis.z(), r.angle);
}
