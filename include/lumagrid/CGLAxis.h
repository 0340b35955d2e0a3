#ifndef LUMAGRID_CGLAXIS_H
#define LUMAGRID_CGLAXIS_H

#include <lumagrid/CGLGroup.h>
#include <lumagrid/lumagrid_export.h>

/// A coordinate triad: a CGLGroup of three arrows along x, y and z and a small cube at the
/// origin.
///
/// The axes are told apart by their number of heads, not by colour: x has one, y two, z three
/// (so y and z are longer, see CGLArrow). The children, by index: 0 the x arrow, 1 the y arrow,
/// 2 the z arrow, 3 a cube of edge `radius`. Each arrow has the triad's length, head radius and
/// lite flag, the default shaft fractions (0.8 and 0.4) and the class-wide tessellation. No
/// colour is set on them: use ColorSet on the triad, which the group passes on.
///
/// Drawing, colouring and selecting are the group's. Like any group, a triad's Draw pops the
/// matrix once more than it pushes: keep a spare matrix on the stack (CGLMatrixGuard). Its
/// DrawDirect draws the three arrows, each in its own transform but not the triad's, and not the
/// cube. The geometry is fixed at construction; there are no accessors.
class LUMAGRID_API CGLAxis : public CGLGroup {
 public:
  /// Arrows of length 1.0 and head radius 0.05, not lite; a cube of edge 0.05.
  CGLAxis();
  /// A triad from the three values. If building a child throws, the children already added are
  /// deleted before the exception passes on.
  /// @param length length given to each arrow.
  /// @param radius head radius of each arrow, and edge length of the origin cube.
  /// @param lite lite arrows (line shafts, four-sided heads).
  CGLAxis(double length, double radius, bool lite);
  /// Deletes the four children (~CGLGroup()).
  ~CGLAxis() override;

 protected:
  /// Builds and adds the four children, in index order: the x arrow (turned by RotateY(pi/2)),
  /// the y arrow (RotateX(-pi/2)), the z arrow (unturned), then the cube. Each constructor calls
  /// it once.
  void Init();

  /// Length given to each arrow.
  double m_dLength;
  /// Head radius given to each arrow, and edge length of the origin cube.
  double m_dRadius;
  /// Lite flag given to each arrow.
  bool m_bLite;
};

#endif
