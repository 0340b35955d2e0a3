#include <gtest/gtest.h>

#include <lumagrid/lumagrid.h>

#include "shape_info.h"

namespace {

TEST(SpringShadedMode, ReadsTheModeTheHostSet) {
  CGLSpring spring(0.06, 0.5, 1.0, 1.9, 5, 0.0);
  EXPECT_EQ(viewer::springShadedMode(spring), 1);
  spring.SetShadedMode(0);
  EXPECT_EQ(viewer::springShadedMode(spring), 0);
}

}  // namespace
