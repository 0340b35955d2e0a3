// Text output of every type under any stream flags, precision and width.

#include <lumagrid/MRot.h>

#include "math_fuzz.h"

#include <algorithm>
#include <cstddef>
#include <ios>
#include <sstream>
#include <string>

namespace mathfuzz {

namespace {

// "(" x ", " y ... ")": the last separator of a four-value type has no
// space. Numbers print without commas in the classic locale.
void CheckVectorText(const std::string& text, int commas) {
  FUZZ_CHECK(!text.empty() && text.back() == ')');
  FUZZ_CHECK(text.find('(') != std::string::npos);
  FUZZ_CHECK(std::count(text.begin(), text.end(), ',') == commas);
  std::size_t spaced = 0;
  for (std::size_t at = text.find(", "); at != std::string::npos; at = text.find(", ", at + 1)) {
    ++spaced;
  }
  FUZZ_CHECK(spaced == 2);
  FUZZ_CHECK(text.find('\n') == std::string::npos);
}

}  // namespace

void Output(MathState& fz) {
  std::ostringstream os;
  const int flags = fz.in.Byte();
  os.precision(fz.in.Byte() % 26);
  switch (flags % 4) {
    case 1:
      os.setf(std::ios::fixed, std::ios::floatfield);
      break;
    case 2:
      os.setf(std::ios::scientific, std::ios::floatfield);
      break;
    case 3:
      os.setf(std::ios::fixed | std::ios::scientific, std::ios::floatfield);  // hexfloat
      break;
    default:
      break;
  }
  if ((flags & 4) != 0) {
    os.setf(std::ios::showpos);
  }
  if ((flags & 8) != 0) {
    os.setf(std::ios::uppercase);
  }
  if ((flags & 16) != 0) {
    os.setf(std::ios::showpoint);
  }
  const std::streamsize width = fz.in.Byte() % 32;

  const vec3d v = fz.Vec3();
  os.width(width);
  FUZZ_CHECK(&(os << v) == &os);
  CheckVectorText(os.str(), 2);

  os.str("");
  os.width(width);
  os << fz.Vec4();
  CheckVectorText(os.str(), 3);

  os.str("");
  os.width(width);
  os << fz.quat;
  CheckVectorText(os.str(), 3);

  os.str("");
  os.width(width);
  os << MRot(v, fz.Num());
  CheckVectorText(os.str(), 3);

  os.str("");
  os.width(width);
  FUZZ_CHECK(&(os << fz.matrix) == &os);
  const std::string text = os.str();
  FUZZ_CHECK(std::count(text.begin(), text.end(), '\n') == 4);
  FUZZ_CHECK(!text.empty() && text.back() == '\n');
}

}  // namespace mathfuzz
