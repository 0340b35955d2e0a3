#ifndef LUMAGRID_CGLCOLOR_H
#define LUMAGRID_CGLCOLOR_H

#include <lumagrid/lumagrid_export.h>

/// RGBA colour of four doubles, applied to OpenGL as the front material's ambient and
/// diffuse colour.
///
/// Every drawable holds two: its colour and its highlight colour (CGLObject::ColorSet(),
/// CGLObject::HLColorSet()). Channels run from 0 to 1 by convention but are never clamped
/// or validated; alpha 1.0 is opaque. Comparisons are exact, with no tolerance. Assigning or
/// comparing a single double treats it as a grey level and leaves alpha out.
class LUMAGRID_API CGLColor {
 public:
  /// Grey: red, green and blue 0.5, alpha 1.0.
  CGLColor();
  /// The grey level v: red, green and blue v, alpha 1.0.
  CGLColor(double v);
  /// The four channels as given.
  CGLColor(double r, double g, double b, double a);
  /// Copies the four channels only; the float copy stays with its owner.
  ///
  /// The new colour's float copy is zero until its own GLColor().
  CGLColor(const CGLColor& c);
  /// Does nothing.
  ~CGLColor();

  /// Copies the four channels, alpha included; the float copy is not copied.
  const CGLColor& operator=(const CGLColor& c);
  /// A grey level: red, green and blue take v, alpha keeps its value.
  const CGLColor& operator=(double v);

  /// Exact equality of all four channels, alpha included (a NaN channel is never equal,
  /// even to itself).
  ///@{
  bool operator==(const CGLColor& c) const;
  bool operator!=(const CGLColor& c) const;
  ///@}
  /// Grey-level comparison: true when red, green and blue each equal v exactly; alpha is left
  /// out.
  ///@{
  bool operator==(double v) const;
  bool operator!=(double v) const;
  ///@}

  /// Applies the colour as the front material's ambient and diffuse colour, in single
  /// precision.
  ///
  /// Calls only `glMaterialfv(GL_FRONT, GL_AMBIENT_AND_DIFFUSE, ...)`: no `glColor`, and it
  /// enables neither lighting nor blending, so alpha shows only where the host blends.
  /// Writes the float copy, hence not const.
  void GLColor();

  /// Stores a into alpha; returns 1.
  long AlphaSet(double a);
  /// The alpha channel.
  double AlphaGet() const;
  /// True unless alpha is exactly 1.0: 0.999999, 1.5 and NaN all count as transparent.
  bool IsTransparent() const;

  /// One channel.
  ///@{
  double Red() const { return m_dRed; }
  double Green() const { return m_dGreen; }
  double Blue() const { return m_dBlue; }
  double Alpha() const { return m_dAlpha; }
  ///@}

  /// The four channels as one array, red first, for the double-array GL colour calls.
  operator const double*() const { return m_adRGBA; }

 protected:
  // The named channels and the array are one storage; GCC and Clang define
  // reading a union member other than the one last written.
  __extension__ union {
    struct {
      double m_dRed;    ///< Red channel.
      double m_dGreen;  ///< Green channel.
      double m_dBlue;   ///< Blue channel.
      double m_dAlpha;  ///< Alpha channel; 1.0 is opaque.
    };
    double m_adRGBA[4];  ///< The same four channels as an array, red first.
  };
  float m_afGL[4];  ///< Single-precision copy handed to OpenGL; zero until GLColor() writes it.
};

#endif
