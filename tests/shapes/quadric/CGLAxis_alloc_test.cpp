#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "quadric_probes.h"
#include "shapes/quadric/CGLCube.h"

// Allocation failure on demand: while armed, the n-th allocation of an
// arrow-sized or cube-sized block throws std::bad_alloc. Every other
// allocation of this test program goes through plain malloc and free.
namespace {

int g_failCountdown = 0;

bool ShouldFail(std::size_t size) {
  if (g_failCountdown <= 0 || (size != sizeof(CGLArrow) && size != sizeof(CGLCube))) {
    return false;
  }
  return --g_failCountdown == 0;
}

}  // namespace

void* operator new(std::size_t size) {
  if (ShouldFail(size)) {
    throw std::bad_alloc();
  }
  if (void* p = std::malloc(size != 0 ? size : 1)) {
    return p;
  }
  throw std::bad_alloc();
}

// The pair is malloc and free underneath; GCC sees free() meet a block from
// operator new and cannot tell that this operator new is the one above.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

void operator delete(void* p) noexcept {
  std::free(p);
}

void operator delete(void* p, std::size_t) noexcept {
  std::free(p);
}

#pragma GCC diagnostic pop

namespace {

using glrecorder::recorder;

static_assert(sizeof(CGLArrow) != sizeof(CGLCube), "the two children are told apart by size");

class AxisAllocation : public RecordedTestWithParam<int> {
 protected:
  void TearDown() override {
    g_failCountdown = 0;
    RecordedTest::TearDown();
  }
};

TEST_P(AxisAllocation, FailedChildDestroysTheChildrenAlreadyAdded) {
  const int failing = GetParam();  // 1, 2, 3: an arrow; 4: the cube
  g_failCountdown = failing;
  EXPECT_THROW(CGLAxis(1.0, 0.05, false), std::bad_alloc);
  g_failCountdown = 0;
  // The arrows built before the failure made their quadrics, and the group
  // destructor gave every one of them back.
  EXPECT_EQ(recorder().quadricsCreated(), std::min(failing - 1, 3));
  EXPECT_EQ(recorder().liveQuadrics(), 0);
  EXPECT_EQ(recorder().doubleDeletes(), 0);
}

INSTANTIATE_TEST_SUITE_P(Child, AxisAllocation, ::testing::Values(1, 2, 3, 4));

TEST(AxisAllocationControl, UnarmedConstructionSucceeds) {
  recorder().reset();
  g_failCountdown = 0;
  { CGLAxis axis; }
  EXPECT_EQ(recorder().quadricsCreated(), 3);
  EXPECT_EQ(recorder().liveQuadrics(), 0);
}

}  // namespace
