// What the example programs' command lines share: their exit statuses, the --size option, and
// how a parse ends.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace examples {

// How an example program ends. Scripts and the programs' checks read these.
enum class Exit : int {
  Ok = 0,
  BadCommandLine = 1,
  CannotWrite = 1,  // the picture's file, or the glTF file
  NoContext = 2,    // no display, EGL driver or OpenGL context
  GLError = 3,      // glGetError reported something while drawing
};

constexpr int code(Exit exit) {
  return static_cast<int>(exit);
}

// The --help paragraph on exit statuses; needs says what status 2 lacks.
std::string exitStatusHelp(const std::string& needs);

// An option taking two whole numbers joined by separator ("1200x1000", "240,549"), each from min
// to max, and given at most once: store receives them.
CLI::Option* addPairOption(CLI::App& app, const std::string& name, char separator, int min, int max,
                           std::function<void(int, int)> store, const std::string& description);

// --size WxH, each side 64 to 8192 pixels.
CLI::Option* addSizeOption(CLI::App& app, int* width, int* height, const std::string& description);

// Parses argv into app's options. Returns the status to exit with when the program stops here:
// Exit::Ok after printing the help, Exit::BadCommandLine after saying on stderr what is wrong.
std::optional<int> parseCommandLine(CLI::App& app, int argc, const char* const* argv);

// The path made absolute, for messages that say where a file went; as given when it cannot be.
std::string absolutePath(const std::string& path);

}  // namespace examples
