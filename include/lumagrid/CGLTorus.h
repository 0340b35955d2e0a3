#ifndef LUMAGRID_CGLTORUS_H
#define LUMAGRID_CGLTORUS_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/lumagrid_export.h>

/// A ring, or an arc of one, in the local x-y plane about the z axis, swept by GLE's
/// `gleToroid` and capped at both ends of the sweep.
///
/// Despite the names, m_dInnerRadius is the tube's own radius and m_dOuterRadius that of its
/// centre line: the hole has radius outer - inner, the whole ring outer + inner. Angles are in
/// degrees. The geometry is fixed at construction (getters only); the torus owns no GLU quadric,
/// ignores `m_nSlices`/`m_nStacks`, and draws nothing in immediate mode (DrawDirect).
///
/// GLE's settings are process-wide: building the list leaves GLE's join style at 530 (angled
/// joins, end caps, edge normals) for every later GLE drawing, while the number of sides and the
/// tube fill (solid, or wireframe after a spring with SetShadedMode(0)) are whatever is in force
/// at that moment, frozen into the list.
class LUMAGRID_API CGLTorus : public CGLObject {
 public:
  /// Tube radius 0.1, centre-line radius 1.0, start angle 0, sweep 360 degrees: a full ring.
  CGLTorus();
  /// A torus from the four values, in this order; nothing is validated (degenerate values reach
  /// GLE as they are).
  /// @param innerRadius radius of the tube itself.
  /// @param outerRadius radius of the circle the tube's centre follows.
  /// @param startAngle where the sweep starts in the x-y plane, in degrees from +x.
  /// @param sweepAngle angle swept from the start, in degrees; below 360 gives an arc.
  CGLTorus(double innerRadius, double outerRadius, double startAngle, double sweepAngle);
  /// Copies the base (sharing the display list) and the four members.
  CGLTorus(const CGLTorus& o);
  /// Copies the base and the four members.
  /// @return `*this`.
  CGLTorus& operator=(const CGLTorus& o);
  /// Does nothing beyond ~CGLObject().
  ~CGLTorus() override;

  /// @name Geometry
  /// The constructor's values, in its parameter order.
  ///@{

  /// Radius of the tube itself.
  double innerRadius();
  /// Radius of the tube's centre line.
  double outerRadius();
  /// Start of the sweep, in degrees.
  double startAngle();
  /// Angle swept, in degrees.
  double sweepAngle();
  ///@}

  /// Compiles `gleSetJoinStyle(TUBE_NORM_EDGE | TUBE_JN_CAP | TUBE_JN_ANGLE)` and
  /// `gleToroid(inner, outer, 0, 0, 0, NULL, NULL, start, sweep)` into the display list when the
  /// torus is modified.
  ///
  /// The join style is set at build time and not restored. Angles that are not finite, or a
  /// sweep that would take GLE 2^20 samples or more, give an empty list (the join style is still
  /// set).
  /// @return 1 when the list was current; 0 after a rebuild, or when no list name could be had
  /// (the torus then stays modified and the next Draw retries).
  long DisplayListMake() override;

 protected:
  /// Radius of the tube (the circular cross-section), in model units.
  double m_dInnerRadius;
  /// Radius of the circle the tube's centre follows, about the local z axis.
  double m_dOuterRadius;
  /// Angle, in degrees from +x, at which the sweep starts in the local x-y plane.
  double m_dStartAngle;
  /// Angle swept from the start, in degrees.
  double m_dSweepAngle;
};

#endif
