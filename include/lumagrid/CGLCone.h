#ifndef LUMAGRID_CGLCONE_H
#define LUMAGRID_CGLCONE_H

#include <lumagrid/CGLCylinder.h>
#include <lumagrid/lumagrid_export.h>

/// A CGLCylinder whose constructors default the top radius to 0: a cone standing on the local
/// x-y plane with its apex at z = height.
///
/// Everything else, drawing included, is CGLCylinder's; a closed pointed cone gets only its base
/// disk. The default cone is the default cylinder, top radius 1.0 included.
class LUMAGRID_API CGLCone : public CGLCylinder {
 public:
  /// Exactly CGLCylinder(): a closed unit cylinder (base and top radius 1.0, height 1.0), not a
  /// pointed cone.
  CGLCone();
  /// A pointed cone: base radius `radius`, top radius 0.0, apex at z = `height`.
  /// @param closed whether the base gets a disk (the apex never does).
  CGLCone(double radius, double height, bool closed);
  /// A truncated cone with both radii given.
  /// @param baseRadius radius at z = 0.
  /// @param topRadius radius at z = `height`.
  /// @param height length along +z.
  /// @param closed whether each end whose radius is above zero gets a disk.
  CGLCone(double baseRadius, double topRadius, double height, bool closed);
  /// As the CGLCylinder copy: the display list and the quadric handle are shared.
  CGLCone(const CGLCone& o);
  /// As the CGLCylinder assignment.
  /// @return `*this`.
  CGLCone& operator=(const CGLCone& o);
  /// Does nothing beyond ~CGLCylinder().
  ~CGLCone() override;
};

#endif
