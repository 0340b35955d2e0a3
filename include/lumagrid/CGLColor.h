#ifndef LUMAGRID_CGLCOLOR_H
#define LUMAGRID_CGLCOLOR_H

#include <lumagrid/lumagrid_export.h>

// RGBA colour of four doubles, applied to OpenGL as the front material's
// ambient and diffuse colour. Channels are never clamped or validated.
class LUMAGRID_API CGLColor {
 public:
  CGLColor();
  CGLColor(double v);
  CGLColor(double r, double g, double b, double a);
  // Copies the four channels only; the float copy stays with its owner.
  CGLColor(const CGLColor& c);
  ~CGLColor();

  const CGLColor& operator=(const CGLColor& c);
  // A grey level: red, green and blue take v, alpha keeps its value.
  const CGLColor& operator=(double v);

  bool operator==(const CGLColor& c) const;
  bool operator!=(const CGLColor& c) const;
  // Grey-level comparison: alpha is left out.
  bool operator==(double v) const;
  bool operator!=(double v) const;

  // Writes the float copy, hence not const.
  void GLColor();

  long AlphaSet(double a);
  double AlphaGet() const;
  bool IsTransparent() const;

  double Red() const { return m_dRed; }
  double Green() const { return m_dGreen; }
  double Blue() const { return m_dBlue; }
  double Alpha() const { return m_dAlpha; }

  // The four channels as one array, red first.
  operator const double*() const { return m_adRGBA; }

 protected:
  // The named channels and the array are one storage; GCC and Clang define
  // reading a union member other than the one last written.
  __extension__ union {
    struct {
      double m_dRed;
      double m_dGreen;
      double m_dBlue;
      double m_dAlpha;
    };
    double m_adRGBA[4];
  };
  float m_afGL[4];
};

#endif
