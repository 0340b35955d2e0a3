#include <lumagrid/CGLPoint.h>

#include <GL/gl.h>

CGLPoint::CGLPoint() : m_dX(0.0), m_dY(0.0), m_dZ(0.0) {}

CGLPoint::CGLPoint(double x, double y, double z) : m_dX(x), m_dY(y), m_dZ(z) {}

CGLPoint::CGLPoint(const CGLPoint& p) : m_dX(0.0), m_dY(0.0), m_dZ(0.0) {
  *this = p;
}

CGLPoint::~CGLPoint() {}

// ---------------------------------------------------------------- moves

long CGLPoint::Move(double dx, double dy, double dz) {
  m_dX += dx;
  m_dY += dy;
  m_dZ += dz;
  return 1;
}

long CGLPoint::Move(const CGLPoint& p) {
  *this += p;
  return 1;
}

long CGLPoint::MoveTo(double x, double y, double z) {
  m_dX = x;
  m_dY = y;
  m_dZ = z;
  return 1;
}

long CGLPoint::MoveTo(const CGLPoint& p) {
  // Adds rather than assigns, unlike the three-double form.
  *this += p;
  return 1;
}

long CGLPoint::MoveX(double d) {
  m_dX += d;
  return 1;
}

long CGLPoint::MoveY(double d) {
  m_dY += d;
  return 1;
}

long CGLPoint::MoveZ(double d) {
  m_dZ += d;
  return 1;
}

long CGLPoint::MoveXTo(double v) {
  return XSet(v);
}

long CGLPoint::MoveYTo(double v) {
  return YSet(v);
}

long CGLPoint::MoveZTo(double v) {
  return ZSet(v);
}

const CGLPoint& CGLPoint::MoveGet() {
  return *this;
}

double CGLPoint::MoveXGet() {
  return m_dX;
}

double CGLPoint::MoveYGet() {
  return m_dY;
}

double CGLPoint::MoveZGet() {
  return m_dZ;
}

// ---------------------------------------------------------------- synonyms
// Each goes through the virtual Move member, so overriding a Move member
// redefines its Translate synonym too.

long CGLPoint::Translate(double dx, double dy, double dz) {
  return Move(dx, dy, dz);
}

long CGLPoint::Translate(const CGLPoint& p) {
  return Move(p);
}

long CGLPoint::TranslateTo(double x, double y, double z) {
  return MoveTo(x, y, z);
}

long CGLPoint::TranslateTo(const CGLPoint& p) {
  return MoveTo(p);
}

long CGLPoint::TranslateX(double d) {
  return MoveX(d);
}

long CGLPoint::TranslateY(double d) {
  return MoveY(d);
}

long CGLPoint::TranslateZ(double d) {
  return MoveZ(d);
}

long CGLPoint::TranslateXTo(double v) {
  return MoveXTo(v);
}

long CGLPoint::TranslateYTo(double v) {
  return MoveYTo(v);
}

long CGLPoint::TranslateZTo(double v) {
  return MoveZTo(v);
}

const CGLPoint& CGLPoint::TranslateGet() {
  return MoveGet();
}

double CGLPoint::TranslateXGet() {
  return MoveXGet();
}

double CGLPoint::TranslateYGet() {
  return MoveYGet();
}

double CGLPoint::TranslateZGet() {
  return MoveZGet();
}

// ---------------------------------------------------------------- access

long CGLPoint::XSet(double v) {
  m_dX = v;
  return 1;
}

long CGLPoint::YSet(double v) {
  m_dY = v;
  return 1;
}

long CGLPoint::ZSet(double v) {
  m_dZ = v;
  return 1;
}

// ---------------------------------------------------------------- operators

const CGLPoint& CGLPoint::operator=(const CGLPoint& p) {
  if (this != &p) {
    m_dX = p.m_dX;
    m_dY = p.m_dY;
    m_dZ = p.m_dZ;
  }
  return *this;
}

const CGLPoint& CGLPoint::operator=(double d) {
  m_dX = d;
  m_dY = d;
  m_dZ = d;
  return *this;
}

bool CGLPoint::operator==(const CGLPoint& p) const {
  return m_dX == p.m_dX && m_dY == p.m_dY && m_dZ == p.m_dZ;
}

bool CGLPoint::operator!=(const CGLPoint& p) const {
  return !(*this == p);
}

bool CGLPoint::operator==(double d) const {
  return m_dX == d && m_dY == d && m_dZ == d;
}

bool CGLPoint::operator!=(double d) const {
  return !(*this == d);
}

const CGLPoint& CGLPoint::operator+=(const CGLPoint& p) {
  m_dX += p.m_dX;
  m_dY += p.m_dY;
  m_dZ += p.m_dZ;
  return *this;
}

const CGLPoint& CGLPoint::operator-=(const CGLPoint& p) {
  m_dX -= p.m_dX;
  m_dY -= p.m_dY;
  m_dZ -= p.m_dZ;
  return *this;
}

const CGLPoint& CGLPoint::operator*=(const CGLPoint& p) {
  m_dX *= p.m_dX;
  m_dY *= p.m_dY;
  m_dZ *= p.m_dZ;
  return *this;
}

const CGLPoint& CGLPoint::operator/=(const CGLPoint& p) {
  // The guard tests the dividend, not the divisor; callers rely on both.
  if (m_dX == 0.0 || m_dY == 0.0 || m_dZ == 0.0) {
    return *this;
  }
  m_dX /= p.m_dX;
  m_dY /= p.m_dY;
  m_dZ /= p.m_dZ;
  return *this;
}

const CGLPoint& CGLPoint::operator+=(double d) {
  m_dX += d;
  m_dY += d;
  m_dZ += d;
  return *this;
}

const CGLPoint& CGLPoint::operator-=(double d) {
  m_dX -= d;
  m_dY -= d;
  m_dZ -= d;
  return *this;
}

const CGLPoint& CGLPoint::operator*=(double d) {
  m_dX *= d;
  m_dY *= d;
  m_dZ *= d;
  return *this;
}

const CGLPoint& CGLPoint::operator/=(double d) {
  if (d == 0.0) {
    return *this;
  }
  m_dX /= d;
  m_dY /= d;
  m_dZ /= d;
  return *this;
}

// ---------------------------------------------------------------- GL

long CGLPoint::GLTranslate() const {
  glTranslatef(static_cast<float>(m_dX), static_cast<float>(m_dY), static_cast<float>(m_dZ));
  return 1;
}

long CGLPoint::GLScale() const {
  glScalef(static_cast<float>(m_dX), static_cast<float>(m_dY), static_cast<float>(m_dZ));
  return 1;
}

long CGLPoint::GLRotate() const {
  glRotatef(static_cast<float>(m_dX), 1.0f, 0.0f, 0.0f);
  glRotatef(static_cast<float>(m_dY), 0.0f, 1.0f, 0.0f);
  glRotatef(static_cast<float>(m_dZ), 0.0f, 0.0f, 1.0f);
  return 1;
}
