#ifndef LUMAGRID_CGLPOLYLINE_H
#define LUMAGRID_CGLPOLYLINE_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/lumagrid_export.h>

#include <vector>

// An open chain of owned points, drawn as one line strip in the shape's
// normal colour (also while selected: the colour is compiled into the list).
// Owns its points, so it cannot be copied.
class LUMAGRID_API CGLPolyline : public CGLObject {
 public:
  CGLPolyline();
  CGLPolyline(const CGLPolyline&) = delete;
  CGLPolyline& operator=(const CGLPolyline&) = delete;
  ~CGLPolyline() override;

  // Takes ownership of p (a null pointer is not stored).
  bool AddVertex(CGLPoint* p);
  bool AddVertex(CGLPoint& p);
  bool AddVertex(double x, double y, double z);
  // n points read as consecutive triples; n < 1 adds nothing.
  bool AddVertex(int n, double* p);
  bool InitVertex();

  long DisplayListMake() override;
  // Draws once after each change, in the current frame: no transform, no
  // material, and nothing at all until the next change.
  long DrawDirect() override;

 protected:
  void EmitStrip();

  std::vector<CGLPoint*> m_aVertex;
};

#endif
