#ifndef LUMAGRID_TESTS_SUPPORT_RECORDED_SILENTCALL_H
#define LUMAGRID_TESTS_SUPPORT_RECORDED_SILENTCALL_H

#include <lumagrid/testing/GLRecorder.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Runs call() on a cleared log: success when it returns `expected` and makes
// no GL call. EXPECT_TRUE(ReturnsSilently(0, [&] { return s.DrawDirect(); })).
template <class Call>
::testing::AssertionResult ReturnsSilently(long expected, Call&& call) {
  glrecorder::recorder().clearCalls();
  const long result = call();
  const std::vector<std::string> log = glrecorder::recorder().log();
  if (result == expected && log.empty()) {
    return ::testing::AssertionSuccess();
  }
  ::testing::AssertionResult failure = ::testing::AssertionFailure();
  failure << "returned " << result << " (expected " << expected << ") after " << log.size()
          << " calls";
  for (const std::string& l : log) {
    failure << "\n  " << l;
  }
  return failure;
}

#endif
