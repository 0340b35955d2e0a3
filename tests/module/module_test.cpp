// Loads liblumagrid.so into small host programs, each in a child process
// whose stdout and stderr come back through pipes.
//   lumagrid_module_tests LIBRARY HOST_WITH_HOOKS HOST_WITHOUT_HOOKS
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <ostream>
#include <string>
#include <vector>

namespace {

std::string g_library;
std::string g_hostWithHooks;
std::string g_hostWithoutHooks;

// What a host run gave: its exit status and everything it wrote.
struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

bool operator==(const Outcome& a, const Outcome& b) {
  return a.status == b.status && a.out == b.out && a.err == b.err;
}

std::ostream& operator<<(std::ostream& os, const Outcome& o) {
  return os << "status " << o.status << ", stdout \"" << o.out << "\", stderr \"" << o.err << "\"";
}

std::string drain(int fd) {
  std::string text;
  char buffer[4096];
  for (;;) {
    const ssize_t n = read(fd, buffer, sizeof buffer);
    if (n <= 0) {
      break;
    }
    text.append(buffer, static_cast<std::size_t>(n));
  }
  close(fd);
  return text;
}

// Runs host LIBRARY mode; the two streams are short, so reading one to its
// end before the other cannot block the child.
Outcome run(const std::string& host, const char* mode) {
  Outcome outcome;
  if (g_library.empty()) {
    ADD_FAILURE() << "usage: lumagrid_module_tests LIBRARY HOST_WITH_HOOKS HOST_WITHOUT_HOOKS";
    return outcome;
  }
  int out[2];
  int err[2];
  if (pipe(out) != 0 || pipe(err) != 0) {
    ADD_FAILURE() << "pipe failed";
    return outcome;
  }
  const pid_t child = fork();
  if (child == 0) {
    dup2(out[1], STDOUT_FILENO);
    dup2(err[1], STDERR_FILENO);
    close(out[0]);
    close(err[0]);
    close(out[1]);
    close(err[1]);
    execl(host.c_str(), host.c_str(), g_library.c_str(), mode, static_cast<char*>(nullptr));
    _exit(127);
  }
  close(out[1]);
  close(err[1]);
  outcome.out = drain(out[0]);
  outcome.err = drain(err[0]);
  int status = 0;
  waitpid(child, &status, 0);
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return outcome;
}

TEST(ModuleLoad, WithoutAHookLoadsSilentlyAndCountsAsRegistered) {
  EXPECT_EQ(run(g_hostWithoutHooks, "none"),
            (Outcome{0,
                     "registered=1 length=13 register_calls=0 unregister_calls=0\n"
                     "after unload unregister_calls=0\n",
                     ""}));
}

TEST(ModuleLoad, AcceptingHookRegistersAtLoadAndUnregistersAtUnload) {
  EXPECT_EQ(run(g_hostWithHooks, "accept"),
            (Outcome{0,
                     "registered=1 length=13 register_calls=1 unregister_calls=0\n"
                     "after unload unregister_calls=1\n",
                     ""}));
}

TEST(ModuleLoad, RefusingHookGetsTheOneMessageAndTheMathStillWorks) {
  EXPECT_EQ(run(g_hostWithHooks, "refuse"),
            (Outcome{0,
                     "registered=0 length=13 register_calls=1 unregister_calls=0\n"
                     "after unload unregister_calls=0\n",
                     "Lumagrid.dll : initialisation impossible.\n"}));
}

TEST(ModuleLoad, MessageIsExactlyTheseBytes) {
  const Outcome o = run(g_hostWithHooks, "refuse");
  const std::vector<unsigned char> expected = {
      'L', 'u', 'm', 'a', 'g', 'r', 'i', 'd', '.', 'd', 'l', 'l', ' ', ':',
      ' ', 'i', 'n', 'i', 't', 'i', 'a', 'l', 'i', 's', 'a', 't', 'i', 'o',
      'n', ' ', 'i', 'm', 'p', 'o', 's', 's', 'i', 'b', 'l', 'e', '.', '\n'};
  EXPECT_EQ(std::vector<unsigned char>(o.err.begin(), o.err.end()), expected);
}

TEST(ModuleLoad, LoadsAndUnloadsThreeTimesInOneProcess) {
  EXPECT_EQ(run(g_hostWithHooks, "cycles"),
            (Outcome{0,
                     "registered=1 length=13 register_calls=1 unregister_calls=0\n"
                     "after unload unregister_calls=1\n"
                     "registered=1 length=13 register_calls=2 unregister_calls=1\n"
                     "after unload unregister_calls=2\n"
                     "registered=1 length=13 register_calls=3 unregister_calls=2\n"
                     "after unload unregister_calls=3\n",
                     ""}));
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  // Without them every test fails; listing the tests needs none.
  if (argc == 4) {
    g_library = argv[1];
    g_hostWithHooks = argv[2];
    g_hostWithoutHooks = argv[3];
  }
  return RUN_ALL_TESTS();
}
