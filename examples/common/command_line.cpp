#include "command_line.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

namespace examples {
namespace {

constexpr int kMinSide = 64;
constexpr int kMaxSide = 8192;

}  // namespace

std::string exitStatusHelp(const std::string& needs) {
  return "Exit status: 0 on success, 1 on a bad command line or unwritable file, 2 when no\n" +
         needs + " can be had, 3 when OpenGL reported an error while drawing.";
}

CLI::Option* addPairOption(CLI::App& app, const std::string& name, char separator, int min, int max,
                           std::function<void(int, int)> store, const std::string& description) {
  // Given twice, or as three numbers, it is refused: taking the last two would read "1x2x3" as 2x3.
  return app
      .add_option_function<std::pair<int, int>>(
          name, [store](const std::pair<int, int>& p) { store(p.first, p.second); }, description)
      ->delimiter(separator)
      ->check(CLI::Range(min, max))
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
}

CLI::Option* addSizeOption(CLI::App& app, int* width, int* height, const std::string& description) {
  return addPairOption(
             app, "--size", 'x', kMinSide, kMaxSide,
             [width, height](int w, int h) {
               *width = w;
               *height = h;
             },
             description)
      ->type_name("WxH");
}

std::optional<int> parseCommandLine(CLI::App& app, int argc, const char* const* argv) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    std::cout << app.help();
    return code(Exit::Ok);
  } catch (const CLI::ParseError& e) {
    std::cerr << app.get_name() << ": " << e.what() << " (see --help)\n";
    return code(Exit::BadCommandLine);
  }
  return std::nullopt;
}

std::string absolutePath(const std::string& path) {
  std::error_code ec;
  const std::filesystem::path p = std::filesystem::absolute(path, ec);
  return ec ? path : p.lexically_normal().string();
}

}  // namespace examples
