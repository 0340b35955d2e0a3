#ifndef LUMAGRID_TESTS_SUPPORT_PROBES_PROBE_H
#define LUMAGRID_TESTS_SUPPORT_PROBES_PROBE_H

#include <lumagrid/CGLObject.h>

// Opens the protected state and draw steps of any drawable to the tests.
template <class Base>
class Probe : public Base {
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

using ObjectProbe = Probe<CGLObject>;

#endif
