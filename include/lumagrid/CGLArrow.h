#ifndef LUMAGRID_CGLARROW_H
#define LUMAGRID_CGLARROW_H

#include <lumagrid/CGLQuadric.h>
#include <lumagrid/lumagrid_export.h>

/// An arrow along the local +z axis from the origin: a cylindrical shaft, then one or more
/// conical heads.
///
/// With length L, head radius R and shaft fraction f, the shaft is L * f long with radius
/// R * fracRadius, and a full head is H = (1 - f) * L long with base radius R. Every head but
/// the last is a truncated cone H/2 long narrowing to R/2, so one head gives exactly L and each
/// further head lengthens the arrow by H/2. Lite arrows draw the shaft as a line and the heads
/// as filled four-sided pyramids. Tessellation is `m_nSlices` x `m_nStacks`, taken at
/// construction from CGLObject::s_nSlices4New and CGLObject::s_nStacks4New.
///
/// The arrow sets the plain current colour (`glColor3d`) to its normal colour as well as the
/// material, so it shows its colour unlit too (the normal one, even when selected). It draws
/// through its display list (Draw) or at once (DrawDirect). CGLAxis is built from three arrows.
class LUMAGRID_API CGLArrow : public CGLQuadric {
 public:
  /// Length 1.0, head radius 0.2, not lite, one head, shaft fractions 0.8 (length) and 0.4
  /// (radius).
  CGLArrow();
  /// An arrow from the six values; nothing is validated (GLU receives what they give).
  /// @param length nominal length L: the shaft plus one full head.
  /// @param radius head radius R, at the base of each head.
  /// @param lite line shaft and four-sided heads.
  /// @param arrowNum number of heads; any value below 2 gives one.
  /// @param fracLength share f of L taken by the shaft; 1 gives heads of length 0, and above 1 a
  ///   negative head length.
  /// @param fracRadius shaft radius as a fraction of R.
  CGLArrow(double length, double radius, bool lite, int arrowNum, double fracLength,
           double fracRadius);
  /// Copies the base (sharing the display list and the quadric handle, see CGLQuadric) and the
  /// six members.
  CGLArrow(const CGLArrow& o);
  /// Copies the base (see CGLQuadric::operator=) and the six members.
  /// @return `*this`.
  CGLArrow& operator=(const CGLArrow& o);
  /// Does nothing beyond ~CGLQuadric().
  ~CGLArrow() override;

  /// @name Setters
  /// Each stores its value and nothing else: it validates nothing and does not mark the arrow
  /// modified. DrawDirect shows the change at once; a built display list keeps the old geometry
  /// until something else marks the arrow modified (a transform, a colour, a selection change).
  ///@{

  /// Sets the nominal length L (shaft plus one full head).
  void SetLength(double length);
  /// Sets the head radius R.
  void SetRadius(double radius);
  /// Switches lite drawing on or off.
  void SetLite(bool lite);
  /// Sets the number of heads; any value below 2 gives one.
  void SetArrowNum(int arrowNum);
  /// Sets the share of L taken by the shaft.
  void SetFracLength(double fracLength);
  /// Sets the shaft radius as a fraction of R.
  void SetFracRadius(double fracRadius);
  ///@}

  /// Emits the arrow at the current matrix, without pushing or popping it: `glColor3d` of the
  /// normal colour (ColorGet(), even when selected; alpha is not passed), the shaft, then the
  /// heads.
  ///
  /// Leaves the matrix translated along z to the base of the last head; call it inside your own
  /// push/pop pair.
  /// @return always 1.
  long DrawArrow();

  /// Compiles DrawArrow() into the display list when the arrow is modified; the colour is
  /// compiled in, and the base's colour setters mark the arrow modified.
  /// @return 1 when the list was current; 0 after a rebuild, or when no list name could be had
  /// (the arrow then stays modified and the next Draw retries).
  long DisplayListMake() override;
  /// Draws the arrow at once, with its transform and colour, whatever the display list holds.
  /// @return 1 (drawing nothing) when the arrow is hidden; 0 after drawing.
  long DrawDirect() override;

 protected:
  /// Lite drawing: a line for the shaft, four slices and two stacks for the heads.
  bool m_bLite;
  /// Nominal length L: the shaft plus one full head.
  double m_dLength;
  /// Head radius R: the radius of each head's base.
  double m_dRadius;
  /// Share f of L taken by the shaft; a full head is (1 - f) * L long.
  double m_dFracLength;
  /// Shaft radius as a fraction of R.
  double m_dFracRadius;
  /// Number of heads; any value below 2 draws one.
  int m_nArrowNum;
};

#endif
