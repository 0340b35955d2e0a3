#ifndef LUMAGRID_CGLPOINT_H
#define LUMAGRID_CGLPOINT_H

#include <lumagrid/lumagrid_export.h>

// A polymorphic triple of doubles: position, offset, scale factors or angles.
// Derived point types may redefine how they move; the Translate synonyms
// follow through the virtual table.
class LUMAGRID_API CGLPoint {
 public:
  CGLPoint();
  CGLPoint(double x, double y, double z);
  CGLPoint(const CGLPoint& p);
  virtual ~CGLPoint();

  virtual long Move(double dx, double dy, double dz);
  virtual long Move(const CGLPoint& p);
  virtual long MoveTo(double x, double y, double z);
  // Adds, like Move(const CGLPoint&); callers rely on that.
  virtual long MoveTo(const CGLPoint& p);
  virtual long MoveX(double d);
  virtual long MoveY(double d);
  virtual long MoveZ(double d);
  virtual long MoveXTo(double v);
  virtual long MoveYTo(double v);
  virtual long MoveZTo(double v);
  virtual const CGLPoint& MoveGet();
  virtual double MoveXGet();
  virtual double MoveYGet();
  virtual double MoveZGet();
  virtual long Translate(double dx, double dy, double dz);
  virtual long Translate(const CGLPoint& p);
  virtual long TranslateTo(double x, double y, double z);
  virtual long TranslateTo(const CGLPoint& p);
  virtual long TranslateX(double d);
  virtual long TranslateY(double d);
  virtual long TranslateZ(double d);
  virtual long TranslateXTo(double v);
  virtual long TranslateYTo(double v);
  virtual long TranslateZTo(double v);
  virtual const CGLPoint& TranslateGet();
  virtual double TranslateXGet();
  virtual double TranslateYGet();
  virtual double TranslateZGet();

  double X() const { return m_dX; }
  double Y() const { return m_dY; }
  double Z() const { return m_dZ; }
  long XSet(double v);
  long YSet(double v);
  long ZSet(double v);

  const CGLPoint& operator=(const CGLPoint& p);
  const CGLPoint& operator=(double d);
  bool operator==(const CGLPoint& p) const;
  bool operator!=(const CGLPoint& p) const;
  bool operator==(double d) const;
  bool operator!=(double d) const;
  const CGLPoint& operator+=(const CGLPoint& p);
  const CGLPoint& operator-=(const CGLPoint& p);
  const CGLPoint& operator*=(const CGLPoint& p);
  // Guarded by this point's own components, not by the divisor's.
  const CGLPoint& operator/=(const CGLPoint& p);
  const CGLPoint& operator+=(double d);
  const CGLPoint& operator-=(double d);
  const CGLPoint& operator*=(double d);
  const CGLPoint& operator/=(double d);

  // Emit the triple as a GL transform, in single precision.
  long GLTranslate() const;
  long GLScale() const;
  // Angles in degrees, about X, then Y, then Z.
  long GLRotate() const;

 protected:
  double m_dX;
  double m_dY;
  double m_dZ;
};

#endif
