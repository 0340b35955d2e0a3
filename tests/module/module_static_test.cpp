// liblumagrid.a registers only when the host asks it to.
#include <lumagrid/lumagrid_module.h>

#include <gtest/gtest.h>

namespace {

int g_registerCalls = 0;
int g_unregisterCalls = 0;

}  // namespace

extern "C" __attribute__((visibility("default"))) int lumagrid_host_register(void) {
  ++g_registerCalls;
  return 1;
}

extern "C" __attribute__((visibility("default"))) void lumagrid_host_unregister(void) {
  ++g_unregisterCalls;
}

namespace {

TEST(ModuleStatic, NothingHappensUntilTheHostStartsIt) {
  EXPECT_EQ(g_registerCalls, 0);
  EXPECT_EQ(lumagrid_module_registered(), 0);

  EXPECT_EQ(lumagrid_module_start(), 1);
  EXPECT_EQ(lumagrid_module_start(), 1);  // once only
  EXPECT_EQ(g_registerCalls, 1);
  EXPECT_EQ(lumagrid_module_registered(), 1);

  lumagrid_module_stop();
  lumagrid_module_stop();  // nothing left to release
  EXPECT_EQ(g_unregisterCalls, 1);
  EXPECT_EQ(lumagrid_module_registered(), 0);

  EXPECT_EQ(lumagrid_module_start(), 1);  // and again after a stop
  EXPECT_EQ(g_registerCalls, 2);
  lumagrid_module_stop();
  EXPECT_EQ(g_unregisterCalls, 2);
}

}  // namespace
