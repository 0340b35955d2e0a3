#ifndef LUMAGRID_CGLSPRING_H
#define LUMAGRID_CGLSPRING_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/lumagrid_export.h>

// A helical spring along the local z axis, from z = 0 to its length: a
// compression spring (type 0) or a tension spring with a hook at each end
// (type 1), drawn as a tube (solid or wireframe) or, with bit 8 of the
// second type, as a flat zigzag schematic. The rest of the second type is
// the end option: closed ends for a compression spring, the hooks' twist in
// quarter turns for a tension spring. Drawing leaves GLE's number of sides,
// join style and tube fill as the spring set them.
class LUMAGRID_API CGLSpring : public CGLObject {
 public:
  CGLSpring();
  // Wire radius, coil radius, an auxiliary value that is only kept,
  // length, turns, and the compression helix's start angle in degrees.
  CGLSpring(double wireRadius, double radius, double aux, double length, int turns,
            double startAngle);
  CGLSpring(const CGLSpring& o);
  CGLSpring& operator=(const CGLSpring& o);
  ~CGLSpring() override;

  void SetLength(double d);
  void ScaleLength(double f);
  // Sides of the tube, 10 to 50; other values are ignored. This setter and
  // the three below leave the list as it is until something else marks it.
  void SetQuality(unsigned int q);
  // These getters return the value; their argument is not written.
  int GetQuality(unsigned int&);
  void SetType(unsigned int t);
  unsigned int GetType(unsigned int&);
  void SetType2(unsigned int t);
  unsigned int GetType2(unsigned int&);
  void SetShadedMode(int shaded);

  long DisplayListMake() override;
  long DrawDirect() override;

 protected:
  void DrawSpring();

  int m_bShaded;
  int m_nQuality;
  unsigned int m_nType;
  unsigned int m_nType2;
  double m_dWireRadius;
  double m_dRadius;
  double m_dAux;
  double m_dLength;
  double m_dStartAngle;
  int m_nTurns;
};

#endif
