#ifndef LUMAGRID_TESTS_SUPPORT_RECORDED_RECORDERFIXTURE_H
#define LUMAGRID_TESTS_SUPPORT_RECORDED_RECORDERFIXTURE_H

#include <lumagrid/testing/GLRecorder.h>

#include <gtest/gtest.h>

// For the double's own tests: a fresh recording for each test, nothing of the library's state.
class RecorderFixture : public ::testing::Test {
 protected:
  void SetUp() override { glrecorder::recorder().reset(); }
};

inline glrecorder::Recorder& rec() {
  return glrecorder::recorder();
}

// Emulated matrices are computed, not copied: equal to within rounding.
inline void expectMatrixNear(const glrecorder::Matrix& actual, const glrecorder::Matrix& expected) {
  for (int i = 0; i < 16; ++i) {
    EXPECT_NEAR(actual[i], expected[i], 1e-12) << "element " << i;
  }
}

#endif
