#ifndef LUMAGRID_TESTS_CORE_CORE_PROBES_H
#define LUMAGRID_TESTS_CORE_CORE_PROBES_H

#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/mat4x4.h>

#include <GL/gl.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

// Opens the protected state of the core classes to the tests.

class ColorProbe : public CGLColor {
 public:
  using CGLColor::CGLColor;
  ColorProbe(const CGLColor& c) : CGLColor(c) {}
  const float* GL() const { return m_afGL; }
  const double* Channels() const { return m_adRGBA; }
};

inline const float* FloatCopyOf(const CGLColor& c) {
  return static_cast<const ColorProbe&>(c).GL();
}

template <class Base>
class ObjectProbeT : public Base {
 public:
  using Base::Base;
  using Base::DrawFinish;
  using Base::DrawSelection;
  using Base::DrawStart;
  using Base::DrawTransform;
  using Base::m_bModified;
  using Base::m_bSelected;
  using Base::m_bVisible;
  using Base::m_color;
  using Base::m_hlColor;
  using Base::m_matrix;
  using Base::m_nDisplayList;
  using Base::m_nSlices;
  using Base::m_nStacks;
  using Base::m_pQuadric;
};

using ObjectProbe = ObjectProbeT<CGLObject>;

class GroupProbe : public ObjectProbeT<CGLGroup> {
 public:
  using CGLGroup::m_arrObjects;
};

// A shape whose geometry is one GL_QUADS quad of half-size s in z = 0, built
// through the base's display-list protocol.
class QuadShape : public CGLObject {
 public:
  explicit QuadShape(float s = 0.5f) : m_fHalf(s) {}
  using CGLObject::m_bModified;
  using CGLObject::m_matrix;
  using CGLObject::m_nDisplayList;

  long DisplayListMake() override {
    return DisplayListCompile([this] { Emit(); });
  }
  long DrawDirect() override {
    return DrawImmediate([this] { Emit(); });
  }

  void Emit() const {
    glBegin(GL_QUADS);
    {
      glNormal3f(0.0f, 0.0f, 1.0f);
      glVertex3f(-m_fHalf, -m_fHalf, 0.0f);
      glVertex3f(m_fHalf, -m_fHalf, 0.0f);
      glVertex3f(m_fHalf, m_fHalf, 0.0f);
      glVertex3f(-m_fHalf, m_fHalf, 0.0f);
    }
    glEnd();
  }

  float m_fHalf;
};

// Counts its destructions in a caller-supplied counter.
class CountedShape : public QuadShape {
 public:
  explicit CountedShape(int* deaths) : m_pDeaths(deaths) {}
  ~CountedShape() override { ++*m_pDeaths; }

 private:
  int* m_pDeaths;
};

// Appends itself to a log instead of drawing; records the matrices it is given.
class LoggingShape : public CGLObject {
 public:
  explicit LoggingShape(std::vector<const CGLObject*>* drawn,
                        std::vector<const CGLObject*>* deleted = nullptr)
      : m_pDrawn(drawn), m_pDeleted(deleted) {}
  ~LoggingShape() override {
    if (m_pDeleted != nullptr)
      m_pDeleted->push_back(this);
  }
  long Draw() override {
    m_pDrawn->push_back(this);
    return 1;
  }
  long SetMatrix(double* m) override {
    m_pDrawn->push_back(this);
    return CGLObject::SetMatrix(m);
  }
  long SetMatrix(const mat4x4& m) override {
    m_pDrawn->push_back(this);
    return CGLObject::SetMatrix(m);
  }
  using CGLObject::m_bModified;
  using CGLObject::m_matrix;

 private:
  std::vector<const CGLObject*>* m_pDrawn;
  std::vector<const CGLObject*>* m_pDeleted;
};

inline mat4x4 Identity() {
  mat4x4 m;
  m.identity();
  return m;
}

// Exact equality of all sixteen values; two NaNs count as equal, and -0.0
// equals 0.0.
inline bool SameValues(const mat4x4& a, const mat4x4& b) {
  const double* pa = a;
  const double* pb = b;
  for (int i = 0; i < 16; ++i) {
    if (!(pa[i] == pb[i] || (pa[i] != pa[i] && pb[i] != pb[i])))
      return false;
  }
  return true;
}

// Itanium C++ ABI: a pointer to a virtual member holds 1 + the byte offset
// of its slot in the virtual table.
template <class PMF>
std::ptrdiff_t VtableSlot(PMF pmf) {
  struct Rep {
    std::uintptr_t ptr;
    std::ptrdiff_t adj;
  };
  static_assert(sizeof(PMF) == sizeof(Rep), "Itanium member-pointer layout");
  Rep r;
  std::memcpy(&r, &pmf, sizeof r);
  if ((r.ptr & 1u) == 0)
    return -1;  // not virtual
  return static_cast<std::ptrdiff_t>((r.ptr - 1) / sizeof(void*));
}

// The names of CGLObject's virtual operations by slot ("~" for the two
// destructor entries), in the order the vtable test pins.
inline const std::vector<std::string>& VirtualNames() {
  static const std::vector<std::string> names = {"Move(d)",
                                                 "Move(d,d,d)",
                                                 "Move(P)",
                                                 "MoveTo(d)",
                                                 "MoveTo(d,d,d)",
                                                 "MoveTo(P)",
                                                 "Scale(d)",
                                                 "Scale(d,d,d)",
                                                 "Scale(P)",
                                                 "ScaleTo(d)",
                                                 "ScaleTo(d,d,d)",
                                                 "ScaleTo(P)",
                                                 "Rotate(d,d,d)",
                                                 "Rotate(P)",
                                                 "RotateTo(d,d,d)",
                                                 "RotateTo(P)",
                                                 "RotateX",
                                                 "RotateY",
                                                 "RotateZ",
                                                 "RotateXTo",
                                                 "RotateYTo",
                                                 "RotateZTo",
                                                 "SetMatrix(M)",
                                                 "SetMatrix(d*)",
                                                 "ColorSet(d,d,d,d)",
                                                 "ColorSet(ul)",
                                                 "ColorSet(d)",
                                                 "ColorSet(C)",
                                                 "HLColorSet(d,d,d,d)",
                                                 "HLColorSet(ul)",
                                                 "HLColorSet(d)",
                                                 "HLColorSet(C)",
                                                 "ColorGet",
                                                 "HLColorGet",
                                                 "AlphaSet",
                                                 "AlphaOff",
                                                 "AlphaGet",
                                                 "DisplayListsAllocate",
                                                 "DisplayListMake",
                                                 "Draw",
                                                 "DrawDirect",
                                                 "Select",
                                                 "IsSelected",
                                                 "SetVisible",
                                                 "IsVisible",
                                                 "~",
                                                 "~",
                                                 "DrawStart",
                                                 "DrawTransform",
                                                 "DrawFinish",
                                                 "DrawSelection"};
  return names;
}

// The virtual operations (destructor left out) whose entry in derived's
// table differs from base's, i.e. the ones derived's class overrides.
inline std::vector<std::string> OverriddenVirtuals(const CGLObject& derived,
                                                   const CGLObject& base) {
  const std::vector<std::string>& names = VirtualNames();
  const void* const* d = nullptr;
  const void* const* b = nullptr;
  std::memcpy(&d, static_cast<const void*>(&derived), sizeof d);
  std::memcpy(&b, static_cast<const void*>(&base), sizeof b);
  std::vector<std::string> out;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] != "~" && d[i] != b[i])
      out.push_back(names[i]);
  }
  return out;
}

#endif
