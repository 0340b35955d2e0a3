#ifndef LUMAGRID_CGLARROW_H
#define LUMAGRID_CGLARROW_H

#include <lumagrid/CGLQuadric.h>
#include <lumagrid/lumagrid_export.h>

// An arrow along the local +z axis from the origin: a shaft of length
// length * fracLength and radius radius * fracRadius, then arrowNum heads
// of base radius `radius`. Every head after the first lengthens the arrow
// by half a head. Lite arrows have a line for a shaft and four-sided heads.
class LUMAGRID_API CGLArrow : public CGLQuadric {
 public:
  CGLArrow();
  CGLArrow(double length, double radius, bool lite, int arrowNum, double fracLength,
           double fracRadius);
  CGLArrow(const CGLArrow& o);
  CGLArrow& operator=(const CGLArrow& o);
  ~CGLArrow() override;

  // The setters store their value only: the display list keeps the old
  // geometry until something else marks the arrow modified.
  void SetLength(double length);
  void SetRadius(double radius);
  void SetLite(bool lite);
  void SetArrowNum(int arrowNum);
  void SetFracLength(double fracLength);
  void SetFracRadius(double fracRadius);

  // Emits the geometry at the current matrix, leaving it translated to the
  // base of the last head. Always 1.
  long DrawArrow();

  long DisplayListMake() override;
  long DrawDirect() override;

 protected:
  bool m_bLite;
  double m_dLength;
  double m_dRadius;
  double m_dFracLength;
  double m_dFracRadius;
  int m_nArrowNum;
};

#endif
