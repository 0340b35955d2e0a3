#ifndef LUMAGRID_CGLGROUP_H
#define LUMAGRID_CGLGROUP_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/lumagrid_export.h>

#include <vector>

// A drawable made of other drawables, drawn inside the group's transform.
// Owns its members and deletes them with itself. Colour and selection
// requests are passed on to the members.
class LUMAGRID_API CGLGroup : public CGLObject {
 public:
  CGLGroup();
  // Members are owned, so a group is not copied.
  CGLGroup(const CGLGroup&) = delete;
  CGLGroup& operator=(const CGLGroup&) = delete;

  // Appends p (null and duplicates included); returns its index.
  int Add(CGLObject* p);

  long ColorSet(double r, double g, double b, double a) override;
  long ColorSet(unsigned long rgb) override;
  long ColorSet(double v) override;
  long ColorSet(const CGLColor& col) override;
  // Draws the members; builds no list of its own.
  long DisplayListMake() override;
  long DrawDirect() override;
  void Select(bool b) override;
  ~CGLGroup() override;

 protected:
  std::vector<CGLObject*> m_arrObjects;
};

#endif
