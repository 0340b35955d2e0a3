/// @file
/// OpenGL's error flags by name, for programs and tests that report them (Lumagrid::headless).
#pragma once

#include <string>
#include <vector>

namespace headless {

/// The name of a GL error code: GL_INVALID_ENUM, GL_STACK_UNDERFLOW, ... or the code in hex
/// (0x1234).
std::string glErrorName(unsigned int error);

/// Every error the current context has pending, by name, which also clears them.
///
/// A context keeps at most one flag per error code, so this stops after 16.
std::vector<std::string> pendingGLErrors();

}  // namespace headless
