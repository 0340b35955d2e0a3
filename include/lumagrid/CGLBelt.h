#ifndef LUMAGRID_CGLBELT_H
#define LUMAGRID_CGLBELT_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/lumagrid_export.h>

#include <vector>

// A belt over two pulleys, drawn as a line strip in the local x-y plane:
// pulley A of radius m_dRadius1 at the origin, pulley B of radius m_dRadius2
// at (m_dEntraxe, 0, 0). The outline is rebuilt into m_aVertex at every
// list rebuild. Owns its points, so it cannot be copied.
class LUMAGRID_API CGLBelt : public CGLObject {
 public:
  CGLBelt();
  CGLBelt(double r1, double r2, double entraxe);
  CGLBelt(const CGLBelt&) = delete;
  CGLBelt& operator=(const CGLBelt&) = delete;
  ~CGLBelt() override;

  // 1, 2, 4, 8 select one single tangent (stored as 8, 4, 2, 1); anything
  // else the full belt. None of the setters but SetEntraxe marks the belt
  // modified.
  void SetBType(unsigned char b);
  // Stores s in every case; true for sections 0 to 3. The sizes are ignored.
  bool SetSection(unsigned int s, double, double, double);
  void SetEntraxe(double e);
  // Arc points per full turn, 10 to 50; other values are ignored.
  void SetQuality(unsigned int q);
  // Returns the quality; the argument is not written.
  int GetQuality(unsigned int&);
  void SetShadedMode(int shaded);

  // Hand-made vertices, drawn by DrawDirect only until the next rebuild.
  bool AddVertex(double* p);
  bool AddVertex(double x, double y, double z);
  bool AddVertex(CGLPoint& p);
  // Takes ownership of p (a null pointer is not stored).
  bool AddVertex(CGLPoint* p);
  bool InitVertex();

  long DisplayListMake() override;
  // Draws the vertices as they stand. With none, it returns 0 and leaves
  // the matrix it pushed on the stack.
  long DrawDirect() override;

 protected:
  void BuildProfile();

  int m_bShaded;
  int m_nQuality;
  std::vector<CGLPoint*> m_aVertex;
  double m_dRadius1;
  double m_dRadius2;
  double m_dEntraxe;
  unsigned int m_nSection;
  unsigned char m_nBType;
};

#endif
