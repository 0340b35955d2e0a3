#ifndef LUMAGRID_CGLGROUP_H
#define LUMAGRID_CGLGROUP_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/lumagrid_export.h>

#include <vector>

/// A drawable made of other drawables, drawn inside the group's transform.
///
/// A host adds heap-allocated shapes with Add(); the group owns them and deletes them with
/// itself. Moving, scaling or rotating the group moves its members together (their own
/// matrices are untouched). Colour and selection requests are passed on to the members;
/// the highlight colour, alpha, visibility and transforms are not. Members are visited in
/// order of addition; a null member is stored and stepped over by every pass.
///
/// Drawing a visible group pops the matrix stack once more than it pushes: keep a spare
/// matrix on the stack (CGLMatrixGuard) around any draw that includes a group. The group
/// builds no display list of its own and stays modified for its whole life.
class LUMAGRID_API CGLGroup : public CGLObject {
 public:
  /// An empty group with CGLObject's defaults.
  CGLGroup();
  /// Members are owned, so a group is not copied.
  CGLGroup(const CGLGroup&) = delete;
  /// Members are owned, so a group is not assigned.
  CGLGroup& operator=(const CGLGroup&) = delete;

  /// Appends p and takes ownership of it; null and duplicates are stored as well.
  ///
  /// p must be on the heap and in no other scene or group. A pointer added twice is drawn,
  /// coloured and selected once per entry, and deleted once.
  /// @return the index at which p was stored: 0 for the first member.
  int Add(CGLObject* p);

  /// Sets the colour of every member, then the group's own (with CGLObject's rules).
  ///
  /// The four-double and colour-reference forms reach each member twice, the second time
  /// through the group's ColorSet(const CGLColor&), with the same colour: harmless. Members
  /// keep their own colours when drawn; the group's colour does not reach them at draw time.
  /// @return 1.
  ///@{
  long ColorSet(double r, double g, double b, double a) override;
  long ColorSet(unsigned long rgb) override;
  long ColorSet(double v) override;
  long ColorSet(const CGLColor& col) override;
  ///@}
  /// Draws the members; builds no list of its own.
  ///
  /// Calls Draw() on every member, then pops the matrix, which Draw() pops once more: a group
  /// pops once more than it pushes. With no list, the group stays modified and comes back
  /// here at every Draw().
  /// @return 1, always.
  long DisplayListMake() override;
  /// Calls DrawDirect() on every member, without the group's transform or colour and without
  /// pushing or popping a matrix.
  /// @return 1, always.
  long DrawDirect() override;
  /// Selects or deselects every member; the group's own selection and modified flag stay as
  /// they are, so the group's IsSelected() keeps returning 0.
  void Select(bool b) override;
  /// Deletes every member: each distinct non-null pointer once, at its first place, in order
  /// of addition.
  ~CGLGroup() override;

 protected:
  std::vector<CGLObject*> m_arrObjects;  ///< The members, owned, in order of addition.
};

#endif
