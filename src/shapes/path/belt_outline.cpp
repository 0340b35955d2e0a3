#include "shapes/path/belt_outline.h"

#include <cmath>

namespace lumagrid::detail {

namespace {

struct Vec {
  double x;
  double y;
  double z;
};

Vec operator+(const Vec& a, const Vec& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Vec operator-(const Vec& a, const Vec& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Vec operator*(double s, const Vec& v) {
  return {s * v.x, s * v.y, s * v.z};
}

double dot(const Vec& a, const Vec& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vec cross(const Vec& a, const Vec& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double length(const Vec& v) {
  return std::sqrt(dot(v, v));
}

// About +Z, in the x-y plane.
Vec rot(const Vec& v, double a) {
  const double c = std::cos(a);
  const double s = std::sin(a);
  return {v.x * c - v.y * s, v.x * s + v.y * c, 0.0};
}

// Zero when v is too short to have a direction.
Vec unit(const Vec& v) {
  const double len = length(v);
  if (len <= 1e-10) {
    return {0.0, 0.0, 0.0};
  }
  return {v.x / len, v.y / len, v.z / len};
}

// Angle from a to b, positive counter-clockwise about +Z; false when the
// two are parallel (or either is zero).
bool signedAngle(const Vec& a, const Vec& b, double& angle) {
  const Vec n{0.0, 0.0, 1.0};
  double result = std::acos(dot(a, b) / (length(a) * length(b)));
  const double side = dot(cross(a, b), n);
  if (side == 0.0) {
    return false;
  }
  if (side < 0.0) {
    result = -result;
  }
  angle = result;
  return true;
}

// Relative to the longer vector; absolute when both are nearly zero.
bool nearlyEqual(const Vec& a, const Vec& b) {
  const Vec diff = a - b;
  const double diff2 = dot(diff, diff);
  const double a2 = dot(a, a);
  const double b2 = dot(b, b);
  const double longer2 = a2 > b2 ? a2 : b2;
  if (longer2 < 1e-20) {
    return diff2 < 1e-20;
  }
  return diff2 / longer2 < 1e-20;
}

// Into one turn, with full-precision 2 pi (the arc counts use a shorter one).
double wrap(double a) {
  constexpr double kTwoPi = 6.283185307179586;
  if (a >= 0.0) {
    return a - std::floor(a / kTwoPi) * kTwoPi;
  }
  return a - std::ceil(a / kTwoPi - 1.0) * kTwoPi;
}

struct Segment {
  Vec start;  // on pulley A
  Vec end;    // on pulley B
};

// The two pulleys as big (larger radius, A on a tie) and small circle, with
// the outer tangent points of both.
struct Pulleys {
  Vec bigCentre;
  double bigRadius;
  Vec smallCentre;
  double smallRadius;
  bool swapped;  // B is the big circle
  double distance;
  Vec u;  // from the big centre towards the small one
  Vec bigPlus, bigMinus, smallPlus, smallMinus;
};

bool orderPulleys(double r1, double r2, double entraxe, Pulleys& p) {
  const Vec a{0.0, 0.0, 0.0};
  const Vec b{entraxe, 0.0, 0.0};
  p.swapped = r2 > r1;
  p.bigCentre = p.swapped ? b : a;
  p.bigRadius = p.swapped ? r2 : r1;
  p.smallCentre = p.swapped ? a : b;
  p.smallRadius = p.swapped ? r1 : r2;

  const double big = p.bigRadius;
  const double small = p.smallRadius;
  const double d = length(p.smallCentre - p.bigCentre);
  p.distance = d;
  if (d < 0.0005 || small + d - big < -0.0005 || std::fabs(small + d - big) < 0.0005) {
    return false;
  }
  p.u = unit(p.smallCentre - p.bigCentre);
  const double theta = std::acos((big - small) / d);
  p.bigPlus = p.bigCentre + rot(big * p.u, theta);
  p.bigMinus = p.bigCentre + rot(big * p.u, -theta);
  p.smallPlus = p.smallCentre + rot(small * p.u, theta);
  p.smallMinus = p.smallCentre + rot(small * p.u, -theta);
  return true;
}

// A segment from a point of the big circle to one of the small, turned to
// run from A to B; false when its ends coincide.
bool makeSegment(const Pulleys& p, const Vec& onBig, const Vec& onSmall, Segment& s) {
  if (nearlyEqual(onBig, onSmall)) {
    return false;
  }
  s.start = p.swapped ? onSmall : onBig;
  s.end = p.swapped ? onBig : onSmall;
  return true;
}

bool outerTangents(const Pulleys& p, Segment& first, Segment& second) {
  const Vec tPlus = unit(p.smallPlus - p.bigPlus);
  const Vec tMinus = unit(p.smallMinus - p.bigMinus);
  bool plusFirst = false;
  if (!nearlyEqual(p.u, tPlus)) {
    double alphaMinus = 0.0;
    double alphaPlus = 0.0;
    if (!signedAngle(p.u, tMinus, alphaMinus) || !signedAngle(p.u, tPlus, alphaPlus)) {
      return false;
    }
    plusFirst = alphaMinus < 0.0;
  }
  Segment plus{};
  Segment minus{};
  if (!makeSegment(p, p.bigPlus, p.smallPlus, plus) ||
      !makeSegment(p, p.bigMinus, p.smallMinus, minus)) {
    return false;
  }
  first = plusFirst ? plus : minus;
  second = plusFirst ? minus : plus;
  return true;
}

bool singleTangent(const Pulleys& p, unsigned char code, Segment& s) {
  const double big = p.bigRadius;
  const double small = p.smallRadius;
  const double d = p.distance;
  const bool outer = code == 1 || code == 8;
  const bool touching = std::fabs((d - small) - big) < 0.0005;
  const bool overlapping = (d - small) < big - 0.0005;
  if (overlapping && !outer) {
    return false;
  }
  if (!overlapping && touching && !outer) {
    const Vec radial = big * p.u;
    // The far end is the cross product itself, taken as a position.
    return makeSegment(p, p.bigCentre + radial, cross(radial, Vec{0.0, 0.0, 1.0}), s);
  }
  if (!overlapping && !touching) {
    constexpr double kPi = 3.1415926535897;
    const double phi = std::acos((big + small) / d);
    const Vec bigPlus = p.bigCentre + rot(big * p.u, phi);
    const Vec bigMinus = p.bigCentre + rot(big * p.u, -phi);
    const Vec smallPlus = p.smallCentre + rot(small * p.u, kPi - phi);
    const Vec smallMinus = p.smallCentre + rot(small * p.u, -(kPi - phi));
    if (code == 2) {
      return makeSegment(p, bigPlus, smallMinus, s);
    }
    if (code == 4) {
      return makeSegment(p, bigMinus, smallPlus, s);
    }
    if (!outer) {
      return false;
    }
  }
  if (code == 1) {
    return makeSegment(p, p.bigPlus, p.smallPlus, s);
  }
  return makeSegment(p, p.bigMinus, p.smallMinus, s);
}

// k of an arc: truncated toward zero; no arc at all when it is not a number
// or beyond int (a sweep that cannot be counted draws nothing).
int arcCount(double turnsTimesQuality) {
  if (!(turnsTimesQuality > -2147483648.0 && turnsTimesQuality < 2147483648.0)) {
    return -1;
  }
  return static_cast<int>(turnsTimesQuality);
}

void appendPoint(std::vector<BeltPoint>& out, const Vec& v) {
  out.push_back({v.x, v.y, v.z});
}

// Points a0 + i * sweep / k for i = 0 .. k. A count of 0 keeps only the start
// point instead of dividing by zero.
void appendArc(std::vector<BeltPoint>& out, double radius, double centreX, bool offsetX, double a0,
               double sweep, int k) {
  const double step = k == 0 ? 0.0 : sweep / k;
  for (int i = 0; i <= k; ++i) {
    const double a = a0 + i * step;
    double x = radius * std::cos(a);
    if (offsetX) {
      x = x + centreX;
    }
    out.push_back({x, radius * std::sin(a), 0.0});
  }
}

}  // namespace

std::vector<BeltPoint> BuildBeltOutline(double r1, double r2, double entraxe, int quality,
                                        unsigned char code) {
  // The arc counts use this shorter 2 pi, unlike wrap().
  constexpr double kTurn = 6.2831853071794;
  std::vector<BeltPoint> out;
  Pulleys p{};
  if (!orderPulleys(r1, r2, entraxe, p)) {
    return out;
  }
  if (code < kFullBelt) {
    Segment s{};
    if (singleTangent(p, code, s)) {
      appendPoint(out, s.end);
      appendPoint(out, s.start);
    }
    return out;
  }

  Segment first{};
  Segment second{};
  if (!outerTangents(p, first, second)) {
    return out;
  }
  appendPoint(out, second.end);
  appendPoint(out, second.start);

  const Vec xAxis{1.0, 0.0, 0.0};
  const Vec centreA{0.0, 0.0, 0.0};
  const Vec centreB{entraxe, 0.0, 0.0};
  double a0 = 0.0;
  double a1 = 0.0;
  if (!signedAngle(xAxis, second.start - centreA, a0) ||
      !signedAngle(xAxis, first.start - centreA, a1)) {
    return out;
  }
  // Only the end angle is wrapped, and the sweep's sign is kept: a negative
  // sweep draws no arc on A.
  const double sweepA = wrap(a1) - a0;
  appendArc(out, r1, 0.0, false, a0, sweepA, arcCount(sweepA / kTurn * quality));

  double b0 = 0.0;
  double b1 = 0.0;
  if (!signedAngle(xAxis, first.end - centreB, b0) ||
      !signedAngle(xAxis, second.end - centreB, b1)) {
    return out;
  }
  // No wrap on B, but the count takes the sweep's magnitude.
  const double sweepB = b1 - b0;
  appendArc(out, r2, entraxe, true, b0, sweepB, arcCount(std::fabs(sweepB) / kTurn * quality));
  return out;
}

unsigned char BeltTypeCode(unsigned char type) {
  switch (type) {
    case 1:
      return 8;
    case 2:
      return 4;
    case 4:
      return 2;
    case 8:
      return 1;
    default:
      return kFullBelt;
  }
}

}  // namespace lumagrid::detail
