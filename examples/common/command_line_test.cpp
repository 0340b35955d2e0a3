#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <vector>

#include "command_line.h"

namespace {

using examples::code;
using examples::Exit;

struct Parsed {
  std::optional<int> status;
  int width = 0;
  int height = 0;
};

Parsed parseSize(std::vector<const char*> args) {
  Parsed parsed;
  CLI::App app("test", "test");
  examples::addSizeOption(app, &parsed.width, &parsed.height, "size");
  args.insert(args.begin(), "test");
  parsed.status = examples::parseCommandLine(app, static_cast<int>(args.size()), args.data());
  return parsed;
}

TEST(SizeOption, ReadsWidthAndHeight) {
  const Parsed p = parseSize({"--size", "400x300"});
  EXPECT_FALSE(p.status);
  EXPECT_EQ(p.width, 400);
  EXPECT_EQ(p.height, 300);
}

TEST(SizeOption, AcceptsSidesFrom64To8192) {
  EXPECT_FALSE(parseSize({"--size", "64x8192"}).status);
  EXPECT_EQ(parseSize({"--size", "63x100"}).status, code(Exit::BadCommandLine));
  EXPECT_EQ(parseSize({"--size", "100x8193"}).status, code(Exit::BadCommandLine));
}

TEST(SizeOption, RefusesWhatIsNotTwoNumbers) {
  for (const char* bad : {"12by4", "400", "400x300x200", "x300", "400x", "axb"}) {
    EXPECT_EQ(parseSize({"--size", bad}).status, code(Exit::BadCommandLine)) << bad;
  }
}

TEST(SizeOption, IsGivenOnce) {
  EXPECT_EQ(parseSize({"--size", "400x300", "--size", "500x400"}).status,
            code(Exit::BadCommandLine));
}

TEST(ParseCommandLine, StopsWithStatusZeroAfterTheHelp) {
  EXPECT_EQ(parseSize({"--help"}).status, code(Exit::Ok));
  EXPECT_EQ(parseSize({"-h"}).status, code(Exit::Ok));
}

TEST(ParseCommandLine, RefusesAnUnknownOption) {
  EXPECT_EQ(parseSize({"--sise", "400x300"}).status, code(Exit::BadCommandLine));
}

TEST(ParseCommandLine, GoesOnWithNothingToParse) {
  const Parsed p = parseSize({});
  EXPECT_FALSE(p.status);
  EXPECT_EQ(p.width, 0);
}

TEST(ExitStatus, CodesAreThoseTheProgramsDocument) {
  EXPECT_EQ(code(Exit::Ok), 0);
  EXPECT_EQ(code(Exit::BadCommandLine), 1);
  EXPECT_EQ(code(Exit::CannotWrite), 1);
  EXPECT_EQ(code(Exit::NoContext), 2);
  EXPECT_EQ(code(Exit::GLError), 3);
}

}  // namespace
