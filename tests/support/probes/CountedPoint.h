#ifndef LUMAGRID_TESTS_SUPPORT_PROBES_COUNTEDPOINT_H
#define LUMAGRID_TESTS_SUPPORT_PROBES_COUNTEDPOINT_H

#include <lumagrid/CGLPoint.h>

// A point that counts its destructions, to see an owner delete it through
// the virtual destructor.
class CountedPoint : public CGLPoint {
 public:
  CountedPoint(double x, double y, double z, int* deaths) : CGLPoint(x, y, z), deaths_(deaths) {}
  ~CountedPoint() override { ++*deaths_; }

 private:
  int* deaths_;
};

#endif
