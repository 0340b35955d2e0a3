#ifndef LUMAGRID_TESTS_CORE_CORE_PROBES_H
#define LUMAGRID_TESTS_CORE_CORE_PROBES_H

#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/mat4x4.h>

#include <vector>

#include "math/matrix_equality.h"
#include "probes/Probe.h"
#include "probes/VirtualTable.h"
#include "standin/QuadShape.h"

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

class GroupProbe : public Probe<CGLGroup> {
 public:
  using CGLGroup::m_arrObjects;
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
    if (m_pDeleted != nullptr) {
      m_pDeleted->push_back(this);
    }
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

#endif
