#ifndef LUMAGRID_TESTS_SUPPORT_NAMING_PARAMNAME_H
#define LUMAGRID_TESTS_SUPPORT_NAMING_PARAMNAME_H

#include <gtest/gtest.h>

#include <string>

// Names each case of a parameterised suite after its `name` member:
// INSTANTIATE_TEST_SUITE_P(Forms, Suite, ::testing::Values(...), ParamName()).
struct ParamName {
  template <class Param>
  std::string operator()(const ::testing::TestParamInfo<Param>& info) const {
    return info.param.name;
  }
};

#endif
