#include "shapes/path/belt_outline.h"

#include <cmath>

#include "math/angles.h"
#include "shapes/geometry/vector_algebra.h"

namespace lumagrid::detail {

namespace {

// A turn about +Z, in the x-y plane, by its cosine and sine.
struct Turn {
  double c;
  double s;
};

Turn TurnBy(double a) {
  return {std::cos(a), std::sin(a)};
}

PathPoint Turned(const PathPoint& v, const Turn& t) {
  return {v.x * t.c - v.y * t.s, v.x * t.s + v.y * t.c, 0.0};
}

PathPoint RotatedAboutZ(const PathPoint& v, double a) {
  return Turned(v, TurnBy(a));
}

// Zero when v is too short to have a direction.
PathPoint DirectionOrZero(const PathPoint& v) {
  const double len = Length(v);
  if (len <= 1e-10) {
    return {0.0, 0.0, 0.0};
  }
  return {v.x / len, v.y / len, v.z / len};
}

// Angle from a to b, positive counter-clockwise about +Z; false when the
// two are parallel (or either is zero).
bool SignedAngle(const PathPoint& a, const PathPoint& b, double& angle) {
  const PathPoint n{0.0, 0.0, 1.0};
  double result = std::acos(Dot(a, b) / (Length(a) * Length(b)));
  const double side = Dot(Cross(a, b), n);
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
bool NearlyEqual(const PathPoint& a, const PathPoint& b) {
  const PathPoint diff = Sub(a, b);
  const double diff2 = Dot(diff, diff);
  const double a2 = Dot(a, a);
  const double b2 = Dot(b, b);
  const double longer2 = a2 > b2 ? a2 : b2;
  if (longer2 < 1e-20) {
    return diff2 < 1e-20;
  }
  return diff2 / longer2 < 1e-20;
}

// Into one turn, with full-precision 2 pi (the arc counts use a shorter one).
double WrapToTurn(double a) {
  if (a >= 0.0) {
    return a - std::floor(a / kTwoPi) * kTwoPi;
  }
  return a - std::ceil(a / kTwoPi - 1.0) * kTwoPi;
}

struct Segment {
  PathPoint start;  // on pulley A
  PathPoint end;    // on pulley B
};

// The two pulleys as big (larger radius, A on a tie) and small circle, with
// the outer tangent points of both.
struct Pulleys {
  PathPoint bigCentre;
  double bigRadius;
  PathPoint smallCentre;
  double smallRadius;
  bool swapped;  // B is the big circle
  double distance;
  PathPoint u;  // from the big centre towards the small one
  PathPoint bigPlus, bigMinus, smallPlus, smallMinus;
};

bool OrderPulleys(double r1, double r2, double entraxe, Pulleys& p) {
  const PathPoint a{0.0, 0.0, 0.0};
  const PathPoint b{entraxe, 0.0, 0.0};
  p.swapped = r2 > r1;
  p.bigCentre = p.swapped ? b : a;
  p.bigRadius = p.swapped ? r2 : r1;
  p.smallCentre = p.swapped ? a : b;
  p.smallRadius = p.swapped ? r1 : r2;

  const double big = p.bigRadius;
  const double small = p.smallRadius;
  const double d = Length(Sub(p.smallCentre, p.bigCentre));
  p.distance = d;
  if (d < 0.0005 || small + d - big < -0.0005 || std::fabs(small + d - big) < 0.0005) {
    return false;
  }
  p.u = DirectionOrZero(Sub(p.smallCentre, p.bigCentre));
  const double theta = std::acos((big - small) / d);
  // Both circles turn by the same two angles.
  const Turn plus = TurnBy(theta);
  const Turn minus = TurnBy(-theta);
  p.bigPlus = Add(p.bigCentre, Turned(Mul(p.u, big), plus));
  p.bigMinus = Add(p.bigCentre, Turned(Mul(p.u, big), minus));
  p.smallPlus = Add(p.smallCentre, Turned(Mul(p.u, small), plus));
  p.smallMinus = Add(p.smallCentre, Turned(Mul(p.u, small), minus));
  return true;
}

// A segment from a point of the big circle to one of the small, turned to
// run from A to B; false when its ends coincide.
bool MakeSegment(const Pulleys& p, const PathPoint& onBig, const PathPoint& onSmall, Segment& s) {
  if (NearlyEqual(onBig, onSmall)) {
    return false;
  }
  s.start = p.swapped ? onSmall : onBig;
  s.end = p.swapped ? onBig : onSmall;
  return true;
}

bool OuterTangents(const Pulleys& p, Segment& first, Segment& second) {
  const PathPoint tPlus = DirectionOrZero(Sub(p.smallPlus, p.bigPlus));
  const PathPoint tMinus = DirectionOrZero(Sub(p.smallMinus, p.bigMinus));
  bool plusFirst = false;
  if (!NearlyEqual(p.u, tPlus)) {
    double alphaMinus = 0.0;
    double alphaPlus = 0.0;
    if (!SignedAngle(p.u, tMinus, alphaMinus) || !SignedAngle(p.u, tPlus, alphaPlus)) {
      return false;
    }
    plusFirst = alphaMinus < 0.0;
  }
  Segment plus{};
  Segment minus{};
  if (!MakeSegment(p, p.bigPlus, p.smallPlus, plus) ||
      !MakeSegment(p, p.bigMinus, p.smallMinus, minus)) {
    return false;
  }
  first = plusFirst ? plus : minus;
  second = plusFirst ? minus : plus;
  return true;
}

bool SingleTangent(const Pulleys& p, unsigned char code, Segment& s) {
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
    const PathPoint radial = Mul(p.u, big);
    // The far end is the cross product itself, taken as a position.
    return MakeSegment(p, Add(p.bigCentre, radial), Cross(radial, PathPoint{0.0, 0.0, 1.0}), s);
  }
  if (!overlapping && !touching) {
    // Short on purpose: B's crossed-tangent points sit where they always have.
    constexpr double kShortPi = 3.1415926535897;
    const double phi = std::acos((big + small) / d);
    const PathPoint bigPlus = Add(p.bigCentre, RotatedAboutZ(Mul(p.u, big), phi));
    const PathPoint bigMinus = Add(p.bigCentre, RotatedAboutZ(Mul(p.u, big), -phi));
    const PathPoint smallPlus = Add(p.smallCentre, RotatedAboutZ(Mul(p.u, small), kShortPi - phi));
    const PathPoint smallMinus =
        Add(p.smallCentre, RotatedAboutZ(Mul(p.u, small), -(kShortPi - phi)));
    if (code == 2) {
      return MakeSegment(p, bigPlus, smallMinus, s);
    }
    if (code == 4) {
      return MakeSegment(p, bigMinus, smallPlus, s);
    }
    if (!outer) {
      return false;
    }
  }
  if (code == 1) {
    return MakeSegment(p, p.bigPlus, p.smallPlus, s);
  }
  return MakeSegment(p, p.bigMinus, p.smallMinus, s);
}

// k of an arc: truncated toward zero; no arc at all when it is not a number
// or beyond int (a sweep that cannot be counted draws nothing).
int ArcCount(double turnsTimesQuality) {
  if (!(turnsTimesQuality > -2147483648.0 && turnsTimesQuality < 2147483648.0)) {
    return -1;
  }
  return static_cast<int>(turnsTimesQuality);
}

// Points a0 + i * sweep / k for i = 0 .. k. A count of 0 keeps only the start
// point instead of dividing by zero.
void AppendArc(std::vector<PathPoint>& out, double radius, double centreX, bool offsetX, double a0,
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

std::vector<PathPoint> BuildBeltOutline(double r1, double r2, double entraxe, int quality,
                                        unsigned char code) {
  std::vector<PathPoint> out;
  BuildBeltOutline(r1, r2, entraxe, quality, code, out);
  return out;
}

void BuildBeltOutline(double r1, double r2, double entraxe, int quality, unsigned char code,
                      std::vector<PathPoint>& out) {
  // The arc counts use this shorter 2 pi, unlike WrapToTurn().
  constexpr double kTurn = 6.2831853071794;
  out.clear();
  Pulleys p{};
  if (!OrderPulleys(r1, r2, entraxe, p)) {
    return;
  }
  if (code < kFullBelt) {
    Segment s{};
    if (SingleTangent(p, code, s)) {
      out.push_back(s.end);
      out.push_back(s.start);
    }
    return;
  }

  Segment first{};
  Segment second{};
  if (!OuterTangents(p, first, second)) {
    return;
  }
  out.push_back(second.end);
  out.push_back(second.start);

  const PathPoint xAxis{1.0, 0.0, 0.0};
  const PathPoint centreA{0.0, 0.0, 0.0};
  const PathPoint centreB{entraxe, 0.0, 0.0};
  double a0 = 0.0;
  double a1 = 0.0;
  if (!SignedAngle(xAxis, Sub(second.start, centreA), a0) ||
      !SignedAngle(xAxis, Sub(first.start, centreA), a1)) {
    return;
  }
  // Only the end angle is wrapped, and the sweep's sign is kept: a negative
  // sweep draws no arc on A.
  const double sweepA = WrapToTurn(a1) - a0;
  AppendArc(out, r1, 0.0, false, a0, sweepA, ArcCount(sweepA / kTurn * quality));

  double b0 = 0.0;
  double b1 = 0.0;
  if (!SignedAngle(xAxis, Sub(first.end, centreB), b0) ||
      !SignedAngle(xAxis, Sub(second.end, centreB), b1)) {
    return;
  }
  // No wrap on B, but the count takes the sweep's magnitude.
  const double sweepB = b1 - b0;
  AppendArc(out, r2, entraxe, true, b0, sweepB, ArcCount(std::fabs(sweepB) / kTurn * quality));
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
