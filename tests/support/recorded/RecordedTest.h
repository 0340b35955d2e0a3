#ifndef LUMAGRID_TESTS_SUPPORT_RECORDED_RECORDEDTEST_H
#define LUMAGRID_TESTS_SUPPORT_RECORDED_RECORDEDTEST_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/testing/GLRecorder.h>

#include <gtest/gtest.h>

#include "shapes/tube/tube_fill.h"

// Back to a fresh recorded context, the stock tessellation defaults and solid
// tubes, and back to the defaults again afterwards, so that no test leaks
// them: all three are process-wide.
class RecordedTest : public ::testing::Test {
 protected:
  void SetUp() override {
    glrecorder::recorder().reset();
    CGLObject::s_nSlices4New = 128;
    CGLObject::s_nStacks4New = 8;
    lumagrid::detail::gl::SetTubeFilled(true);
  }
  void TearDown() override {
    CGLObject::s_nSlices4New = 128;
    CGLObject::s_nStacks4New = 8;
    lumagrid::detail::gl::SetTubeFilled(true);
  }
};

// The same, for TEST_P suites.
template <class Param>
class RecordedTestWithParam : public RecordedTest, public ::testing::WithParamInterface<Param> {};

#endif
