/// @file
/// gmock matchers for the recorder's logs (GLRecorder.h). Header-only; the test links gmock.
///
/// See docs/testing-kit.md, "Expected lines".
#pragma once

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <lumagrid/testing/GLRecorder.h>

namespace glrecorder {

namespace detail {

class LinesEqMatcher {
 public:
  using is_gtest_matcher = void;

  explicit LinesEqMatcher(std::vector<std::string> expected) : expected_(std::move(expected)) {}

  bool MatchAndExplain(const std::vector<std::string>& actual,
                       ::testing::MatchResultListener* listener) const {
    if (actual == expected_) {
      return true;
    }
    *listener << "which differs (" << expected_.size() << " lines expected, " << actual.size()
              << " actual):\n"
              << diff(expected_, actual);
    return false;
  }

  void DescribeTo(std::ostream* os) const {
    *os << "has these " << expected_.size() << " lines:\n";
    for (const std::string& l : expected_) {
      *os << "  " << l << '\n';
    }
  }

  void DescribeNegationTo(std::ostream* os) const { *os << "differs from the expected lines"; }

 private:
  std::vector<std::string> expected_;
};

}  // namespace detail

/// Matches a list of log lines equal to `expected`, line for line; on failure it prints a line
/// diff of expected against actual (see diff()).
/// @code
///   EXPECT_THAT(glrecorder::recorder().log(), glrecorder::LinesEq({...}));
/// @endcode
inline auto LinesEq(std::vector<std::string> expected) {
  return detail::LinesEqMatcher(std::move(expected));
}

}  // namespace glrecorder

/// EXPECT_LINES(expected, actual): the LinesEq comparison, expected first as in the other
/// EXPECT_*s.
#define EXPECT_LINES(expected, actual) EXPECT_THAT((actual), glrecorder::LinesEq(expected))
