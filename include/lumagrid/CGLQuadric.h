#ifndef LUMAGRID_CGLQUADRIC_H
#define LUMAGRID_CGLQUADRIC_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/lumagrid_export.h>

// Base of the shapes tessellated by GLU quadrics. Owns one GLU quadric
// object per constructed shape; draws nothing itself.
class LUMAGRID_API CGLQuadric : public CGLObject {
 public:
  CGLQuadric();
  // Copies share the source's quadric handle; no new one is created.
  CGLQuadric(const CGLQuadric& o);
  // Takes over the source's handle without releasing the old one.
  CGLQuadric& operator=(const CGLQuadric& o);
  // Releases whatever handle the object holds, shared or not.
  ~CGLQuadric() override;
};

#endif
