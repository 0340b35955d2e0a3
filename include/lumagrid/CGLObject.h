#ifndef LUMAGRID_CGLOBJECT_H
#define LUMAGRID_CGLOBJECT_H

#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/lumagrid_export.h>
#include <lumagrid/mat4x4.h>

#include <cstdint>
#include <utility>

// As GLU declares it for C++.
class GLUquadric;

// Root of every drawable. Owns the model transform, the two colours, the
// flags and the display list, and runs the draw pipeline; a shape supplies
// only its geometry through DisplayListMake (and DrawDirect).
//
// Shapes write their overrides with the two protocol helpers below:
//   long CGLFoo::DisplayListMake() { return DisplayListCompile([&] { Emit(); }); }
//   long CGLFoo::DrawDirect() { return DrawImmediate([&] { Emit(); }); }
class LUMAGRID_API CGLObject {
 public:
  CGLObject();
  // Member-wise: the copy shares the display list and the quadric handle.
  CGLObject(const CGLObject& o);
  CGLObject& operator=(const CGLObject& o);

  // Transforms. Angles are in radians. The relative Move overloads treat 1.0
  // as their no-op value, like Scale.
  virtual long Move(double d);
  virtual long Move(double x, double y, double z);
  virtual long Move(const CGLPoint& p);
  virtual long MoveTo(double d);
  virtual long MoveTo(double x, double y, double z);
  virtual long MoveTo(const CGLPoint& p);
  virtual long Scale(double d);
  virtual long Scale(double x, double y, double z);
  virtual long Scale(const CGLPoint& p);
  virtual long ScaleTo(double d);
  virtual long ScaleTo(double x, double y, double z);
  virtual long ScaleTo(const CGLPoint& p);
  virtual long Rotate(double x, double y, double z);
  virtual long Rotate(const CGLPoint& p);
  virtual long RotateTo(double x, double y, double z);
  virtual long RotateTo(const CGLPoint& p);
  virtual long RotateX(double a);
  virtual long RotateY(double a);
  virtual long RotateZ(double a);
  virtual long RotateXTo(double a);
  virtual long RotateYTo(double a);
  virtual long RotateZTo(double a);
  // Replace the transform without marking the object modified.
  virtual long SetMatrix(const mat4x4& m);
  virtual long SetMatrix(double* m);

  // Colours. The unsigned long form is a colour reference: red in the low
  // byte, then green, then blue; higher bits are ignored and alpha is 1.
  virtual long ColorSet(double r, double g, double b, double a);
  virtual long ColorSet(unsigned long rgb);
  virtual long ColorSet(double v);
  virtual long ColorSet(const CGLColor& c);
  virtual long HLColorSet(double r, double g, double b, double a);
  virtual long HLColorSet(unsigned long rgb);
  virtual long HLColorSet(double v);
  virtual long HLColorSet(const CGLColor& c);
  virtual const CGLColor& ColorGet();
  virtual const CGLColor& HLColorGet();
  virtual long AlphaSet(double a);
  // Opaque again, without marking the object modified.
  virtual long AlphaOff();
  virtual double AlphaGet();

  // Display list and drawing.
  virtual long DisplayListsAllocate();
  virtual long DisplayListMake();
  virtual long Draw();
  virtual long DrawDirect();

  virtual void Select(bool b);
  virtual long IsSelected();
  virtual void SetVisible(bool b);
  virtual long IsVisible();

  virtual ~CGLObject();

  // The object's address: unique among live objects, not kept by a copy.
  std::uint64_t GetID() const;

  // Tessellation given to shapes constructed from now on.
  static int s_nSlices4New;
  static int s_nStacks4New;

 protected:
  virtual long DrawStart();
  virtual long DrawTransform();
  virtual long DrawFinish();
  virtual long DrawSelection();

  // Rebuilds the display list from emit() when the object is modified:
  // 1 if it was current, 0 after a rebuild or when no list could be had
  // (the object then stays modified and the next Draw retries).
  template <class Emit>
  long DisplayListCompile(Emit&& emit) {
    return DisplayListCompileIf([] { return true; }, std::forward<Emit>(emit));
  }

  // The same, for shapes that may have nothing to draw: after the list name
  // is had, ready() prepares the geometry and says whether there is any.
  // When there is none the old list stays and the object stays modified.
  template <class Ready, class Emit>
  long DisplayListCompileIf(Ready&& ready, Emit&& emit) {
    if (!m_bModified) {
      return 1;
    }
    if (DisplayListsAllocate() == 0) {
      return 0;
    }
    if (!std::forward<Ready>(ready)()) {
      return 0;
    }
    DisplayListBegin();
    std::forward<Emit>(emit)();
    DisplayListEnd();
    m_bModified = false;
    return 0;
  }

  // Draws emit() at once inside the object's transform and colour.
  template <class Emit>
  long DrawImmediate(Emit&& emit) {
    if (!m_bVisible) {
      return 1;
    }
    if (DrawStart() != 1) {
      return 1;
    }
    std::forward<Emit>(emit)();
    DrawFinish();
    return 0;
  }

  // glNewList(m_nDisplayList, GL_COMPILE) and glEndList().
  void DisplayListBegin();
  void DisplayListEnd();

  mat4x4 m_matrix;
  CGLColor m_color;
  CGLColor m_hlColor;
  int m_nDisplayList;
  bool m_bVisible;
  bool m_bSelected;
  bool m_bModified;
  int m_nSlices;
  int m_nStacks;
  GLUquadric* m_pQuadric;
};

#endif
