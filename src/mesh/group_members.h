#ifndef LUMAGRID_SRC_MESH_GROUP_MEMBERS_H
#define LUMAGRID_SRC_MESH_GROUP_MEMBERS_H

#include <lumagrid/CGLGroup.h>

#include <vector>

#include "mesh/shape_fields.h"

namespace lumagrid::detail {

// The groups being walked, outermost first.
using OpenGroups = std::vector<const CGLObject*>;

// Calls visit(member) for each visible member of the group, as the group's draw draws them, with
// the group open on `groups` meanwhile. A group met again inside itself gives nothing, where
// drawing it would never end.
template <class Visit>
void VisitVisibleMembers(const CGLGroup& group, OpenGroups& groups, Visit&& visit) {
  for (const CGLObject* open : groups) {
    if (open == &group) {
      return;
    }
  }
  groups.push_back(&group);
  for (CGLObject* member : GroupFields::arrObjects(group)) {
    if (member != nullptr && ObjectFields::bVisible(*member)) {
      visit(*member);
    }
  }
  groups.pop_back();
}

}  // namespace lumagrid::detail

#endif
