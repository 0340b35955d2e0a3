#ifndef LUMAGRID_TESTS_CORE_CORE_EXPECT_H
#define LUMAGRID_TESTS_CORE_CORE_EXPECT_H

#include <lumagrid/CGLColor.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Expectations the core's suites share.

// Each channel of c equals the one given, exactly.
inline void ExpectChannels(const CGLColor& c, double r, double g, double b, double a) {
  EXPECT_EQ(c.Red(), r);
  EXPECT_EQ(c.Green(), g);
  EXPECT_EQ(c.Blue(), b);
  EXPECT_EQ(c.Alpha(), a);
}

// run(withNull) runs the same passes over a container with and without a
// null among its shapes and returns what it saw: null must change nothing.
template <class Run>
void ExpectNullChangesNothing(Run&& run) {
  const std::vector<std::string> plain = run(false);
  EXPECT_FALSE(plain.empty());
  EXPECT_EQ(run(true), plain);
}

#endif
