#ifndef LUMAGRID_CGLSPRING_H
#define LUMAGRID_CGLSPRING_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/lumagrid_export.h>

/// A helical spring along the local z axis, from z = 0 to z = its length.
///
/// SetType chooses the family: a compression spring (0) or a tension spring (1), whose body is
/// joined by curved transitions to a hook loop at each end. The spring is drawn as a GLE tube
/// (solid, or wireframe after SetShadedMode(0)) or, with bit 8 of the second type, as a flat
/// zigzag schematic of lines in the x-z plane. The rest of the second type is the end option:
/// closed ends for a compression spring, the hooks' twist in quarter turns for a tension spring
/// (see SetType2). The schematic draws its hooks on the coil radius alone, so it is not to the
/// tube's proportions.
///
/// GLE's settings are process-wide and drawing leaves them as the spring set them: the number
/// of sides (the quality), the join style, and the tube fill, which every later GLE tube (a
/// torus's too) inherits. Of the spring's own setters, only SetLength and ScaleLength mark it
/// modified.
class LUMAGRID_API CGLSpring : public CGLObject {
 public:
  /// Wire radius 0.1, coil radius 1.0, aux 1.0, length 5.0, 3 turns, start angle 0 degrees;
  /// an open compression spring, solid, quality 20.
  CGLSpring();
  /// A spring from the six values; an open compression spring, solid, quality 20.
  /// @param wireRadius radius of the wire (the tube).
  /// @param radius radius of the coil: the wire's centre line from the axis.
  /// @param aux kept and copied, never used for drawing.
  /// @param length overall length along z.
  /// @param turns number of turns; 0 hands GLE an infinite pitch.
  /// @param startAngle where the compression helix starts, in degrees.
  CGLSpring(double wireRadius, double radius, double aux, double length, int turns,
            double startAngle);
  /// Copies the base (sharing the display list) and every member.
  CGLSpring(const CGLSpring& o);
  /// Copies the base and every member.
  /// @return `*this`.
  CGLSpring& operator=(const CGLSpring& o);
  /// Does nothing beyond ~CGLObject().
  ~CGLSpring() override;

  /// Sets the overall length along z; marks the spring modified.
  void SetLength(double d);
  /// Multiplies the length by `f`; marks the spring modified.
  void ScaleLength(double f);

  /// @name Drawing options
  /// These store their value only: they do not mark the spring modified, so a built display
  /// list shows the change after the next change that marks it (a transform, a colour,
  /// SetLength). DrawDirect shows it at once. The getters return the value and leave their
  /// argument unwritten.
  ///@{

  /// Sets the number of sides of the tube, 10 to 50 (default 20); other values are ignored.
  void SetQuality(unsigned int q);
  /// Returns the number of sides of the tube.
  int GetQuality(unsigned int&);
  /// Sets the family: 0 compression (the default), 1 tension; any other value draws nothing.
  void SetType(unsigned int t);
  /// Returns the family.
  unsigned int GetType(unsigned int&);
  /// Sets the variant: the end option e, plus 8 for the schematic drawing (default 0).
  ///
  /// Compression: e = 0 open ends (a capped helix), any other e a flat ring at each end.
  /// Tension: the hooks' twist is e / 4 turns (e = 0 to 3: 0, 1/4, 1/2, 3/4); the body gets that
  /// many more turns and the top hook is turned by it about z.
  void SetType2(unsigned int t);
  /// Returns the variant.
  unsigned int GetType2(unsigned int&);
  /// Non-zero (the default) draws solid tubes, 0 wireframe tubes (lines on the tube's surface).
  ///
  /// The setting reaches GLE when the spring is drawn and stays in force for every later tube.
  void SetShadedMode(int shaded);
  ///@}

  /// Compiles DrawSpring() into the display list when the spring is modified.
  /// @return 1 when the list was current; 0 after a rebuild, or when no list name could be had
  /// (the spring then stays modified and the next Draw retries).
  long DisplayListMake() override;
  /// Draws the spring at once, with its transform and colour, whatever the display list holds.
  /// @return 1 (drawing nothing) when the spring is hidden; 0 after drawing.
  long DrawDirect() override;

 protected:
  /// Emits the spring at the current matrix: sets GLE's number of sides to the quality and the
  /// tube fill from the shaded mode, then draws the family and variant chosen (setting GLE's
  /// join style as it goes). None of these settings is restored.
  ///
  /// A helix or schematic path of more than 2^20 points is left out; the rest (end rings,
  /// hooks) is still drawn.
  void DrawSpring();

  /// Non-zero: solid tube; 0: wireframe tube.
  int m_bShaded;
  /// Number of sides of the tube's cross-section, 10 to 50.
  int m_nQuality;
  /// Family: 0 compression, 1 tension; any other value draws nothing.
  unsigned int m_nType;
  /// Variant: bit 8 selects the schematic drawing, the rest is the end option (see SetType2).
  unsigned int m_nType2;
  /// Radius of the wire (the tube).
  double m_dWireRadius;
  /// Radius of the coil: the wire's centre line from the axis.
  double m_dRadius;
  /// The constructor's third value; stored and copied, never used for drawing.
  double m_dAux;
  /// Overall length along z.
  double m_dLength;
  /// Angle, in degrees, at which the compression helix starts.
  double m_dStartAngle;
  /// Number of turns.
  int m_nTurns;
};

#endif
