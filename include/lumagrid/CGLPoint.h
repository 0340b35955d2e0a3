#ifndef LUMAGRID_CGLPOINT_H
#define LUMAGRID_CGLPOINT_H

#include <lumagrid/lumagrid_export.h>

/// A polymorphic triple of doubles: a position, an offset, three scale factors or three
/// angles.
///
/// The argument type of CGLObject's Move, Scale and Rotate families and the vertex type of
/// the path shapes; it can also emit itself as a GL translation, scaling or rotation. Derived
/// point types may redefine how they move: the Translate synonyms follow through the virtual
/// table. Comparisons are exact, with no tolerance. Every `long` result is 1.
class LUMAGRID_API CGLPoint {
 public:
  /// (0, 0, 0).
  CGLPoint();
  /// (x, y, z).
  CGLPoint(double x, double y, double z);
  /// Copies the three components.
  CGLPoint(const CGLPoint& p);
  /// Does nothing; virtual, so derived points are deleted whole.
  virtual ~CGLPoint();

  /// Adds (dx, dy, dz), or p, to the three components.
  ///@{
  virtual long Move(double dx, double dy, double dz);
  virtual long Move(const CGLPoint& p);
  ///@}
  /// Sets the three components to (x, y, z).
  virtual long MoveTo(double x, double y, double z);
  /// Adds p, like Move(const CGLPoint&): it does not assign; callers rely on that.
  ///
  /// `MoveTo(CGLPoint(1, 2, 3))` on (1, 1, 1) gives (2, 3, 4), while `MoveTo(1, 2, 3)` gives
  /// (1, 2, 3).
  virtual long MoveTo(const CGLPoint& p);
  /// Adds d to one component.
  ///@{
  virtual long MoveX(double d);
  virtual long MoveY(double d);
  virtual long MoveZ(double d);
  ///@}
  /// Sets one component to v.
  ///@{
  virtual long MoveXTo(double v);
  virtual long MoveYTo(double v);
  virtual long MoveZTo(double v);
  ///@}
  /// This point.
  virtual const CGLPoint& MoveGet();
  /// One component.
  ///@{
  virtual double MoveXGet();
  virtual double MoveYGet();
  virtual double MoveZGet();
  ///@}
  /// Synonyms of the Move members: each calls the Move member of the same name suffix
  /// through the virtual table and returns its result.
  ///
  /// A derived point that overrides a Move member changes its synonym too. As with
  /// MoveTo(const CGLPoint&), TranslateTo(const CGLPoint&) adds.
  ///@{
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
  ///@}

  /// One component.
  ///@{
  double X() const { return m_dX; }
  double Y() const { return m_dY; }
  double Z() const { return m_dZ; }
  ///@}
  /// Stores v into one component; returns 1.
  ///@{
  long XSet(double v);
  long YSet(double v);
  long ZSet(double v);
  ///@}

  /// Copies the three components; assigning a point to itself does nothing.
  const CGLPoint& operator=(const CGLPoint& p);
  /// Sets x, y and z to d.
  const CGLPoint& operator=(double d);
  /// Exact equality of all three components (a NaN component is never equal).
  ///@{
  bool operator==(const CGLPoint& p) const;
  bool operator!=(const CGLPoint& p) const;
  ///@}
  /// True when x, y and z each equal d exactly: (1, 1, 1) equals 1.0.
  ///@{
  bool operator==(double d) const;
  bool operator!=(double d) const;
  ///@}
  /// Adds, subtracts or multiplies component by component.
  ///@{
  const CGLPoint& operator+=(const CGLPoint& p);
  const CGLPoint& operator-=(const CGLPoint& p);
  const CGLPoint& operator*=(const CGLPoint& p);
  ///@}
  /// Divides component by component, guarded by this point's own components, not by the
  /// divisor's.
  ///
  /// When any of x, y, z is 0.0 nothing changes: (0, 2, 4) / (1, 1, 1) stays (0, 2, 4). The
  /// divisor is not tested: (2, 4, 6) / (0, 1, 1) gives an infinite x.
  const CGLPoint& operator/=(const CGLPoint& p);
  /// Adds, subtracts or multiplies all three components by d.
  ///@{
  const CGLPoint& operator+=(double d);
  const CGLPoint& operator-=(double d);
  const CGLPoint& operator*=(double d);
  ///@}
  /// Divides all three components by d; nothing changes when d is 0.0.
  const CGLPoint& operator/=(double d);

  /// `glTranslatef(x, y, z)`, in single precision; returns 1.
  long GLTranslate() const;
  /// `glScalef(x, y, z)`, in single precision; returns 1.
  long GLScale() const;
  /// Rotates by x, then y, then z degrees about X, Y and Z (three `glRotatef` calls, in
  /// single precision); returns 1.
  ///
  /// Degrees, as `glRotatef` takes them, while CGLObject's rotations read a triple in
  /// radians.
  long GLRotate() const;

 protected:
  double m_dX;  ///< First component.
  double m_dY;  ///< Second component.
  double m_dZ;  ///< Third component.
};

#endif
