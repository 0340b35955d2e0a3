#ifndef LUMAGRID_TESTS_SUPPORT_PROBES_VIRTUALTABLE_H
#define LUMAGRID_TESTS_SUPPORT_PROBES_VIRTUALTABLE_H

#include <lumagrid/CGLObject.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

// Reads virtual tables, so that tests can pin which operations are virtual,
// in which order, and which ones a class overrides.

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
  if ((r.ptr & 1u) == 0) {
    return -1;  // not virtual
  }
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
    if (names[i] != "~" && d[i] != b[i]) {
      out.push_back(names[i]);
    }
  }
  return out;
}

#endif
