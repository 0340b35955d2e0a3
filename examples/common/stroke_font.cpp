#include "stroke_font.h"

#include <cstddef>

namespace gallery {
namespace {

constexpr double kGridHeight = 6.0;
constexpr double kAdvance = 6.0;  // glyph 4 wide plus 2 of spacing

// Strips of grid points "xy", separated by spaces; strips separated by '|'.
const char* glyph(char c) {
  switch (c) {
    case 'A':
      return "00 04 26 44 40|03 43";
    case 'B':
      return "00 06 36 45 44 33 03|33 42 41 30 00";
    case 'C':
      return "45 36 16 05 01 10 30 41";
    case 'D':
      return "00 06 36 45 41 30 00";
    case 'E':
      return "46 06 00 40|03 33";
    case 'F':
      return "46 06 00|03 33";
    case 'G':
      return "45 36 16 05 01 10 30 41 43 23";
    case 'H':
      return "00 06|40 46|03 43";
    case 'I':
      return "16 36|26 20|10 30";
    case 'J':
      return "46 41 30 10 01 02";
    case 'K':
      return "00 06|46 02|13 40";
    case 'L':
      return "06 00 40";
    case 'M':
      return "00 06 23 46 40";
    case 'N':
      return "00 06 40 46";
    case 'O':
      return "10 01 05 16 36 45 41 30 10";
    case 'P':
      return "00 06 36 45 44 33 03";
    case 'Q':
      return "10 01 05 16 36 45 41 30 10|22 40";
    case 'R':
      return "00 06 36 45 44 33 03|23 40";
    case 'S':
      return "45 36 16 05 04 13 33 42 41 30 10 01";
    case 'T':
      return "06 46|26 20";
    case 'U':
      return "06 01 10 30 41 46";
    case 'V':
      return "06 20 46";
    case 'W':
      return "06 10 23 30 46";
    case 'X':
      return "00 46|06 40";
    case 'Y':
      return "06 23 46|23 20";
    case 'Z':
      return "06 46 00 40";
    case '0':
      return "10 01 05 16 36 45 41 30 10|41 05";
    case '1':
      return "15 26 20|10 30";
    case '2':
      return "05 16 36 45 44 00 40";
    case '3':
      return "05 16 36 45 44 33 13|33 42 41 30 10 01";
    case '4':
      return "30 36 02 42";
    case '5':
      return "46 06 04 34 43 41 30 00";
    case '6':
      return "45 36 16 05 01 10 30 41 42 33 03";
    case '7':
      return "06 46 20";
    case '8':
      return "13 04 05 16 36 45 44 33 13 02 01 10 30 41 42 33";
    case '9':
      return "43 13 04 05 16 36 45 41 30 10";
    case '-':
      return "03 33";
    case '.':
      return "20 21";
    case ',':
      return "21 10";
    case '(':
      return "36 25 21 30";
    case ')':
      return "16 25 21 10";
    case '/':
      return "00 46";
    case ':':
      return "22 23|25 26";
    case '+':
      return "03 43|21 25";
    case '=':
      return "02 42|04 44";
    default:
      return "";
  }
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

std::vector<Segment> strokeText(const std::string& text, double x, double y, double height) {
  const double unit = height / kGridHeight;
  std::vector<Segment> out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const double left = x + static_cast<double>(i) * kAdvance * unit;
    const char* p = glyph(text[i]);
    bool havePrevious = false;
    double px = 0.0;
    double py = 0.0;
    for (; *p != '\0'; ++p) {
      if (*p == '|') {
        havePrevious = false;
      } else if (isDigit(p[0]) && isDigit(p[1])) {
        const double gx = left + (p[0] - '0') * unit;
        const double gy = y + (p[1] - '0') * unit;
        if (havePrevious) {
          out.push_back({px, py, gx, gy});
        }
        px = gx;
        py = gy;
        havePrevious = true;
        ++p;
      }
    }
  }
  return out;
}

double strokeWidth(const std::string& text, double height) {
  if (text.empty()) {
    return 0.0;
  }
  const double unit = height / kGridHeight;
  return (static_cast<double>(text.size()) * kAdvance - 2.0) * unit;
}

}  // namespace gallery
