// OpenGL's pending errors, by name, for programs that report them.
#pragma once

#include <string>
#include <vector>

namespace gallery {

// Every error OpenGL has pending (at most 16), which also clears them. Needs a current context.
std::vector<std::string> pendingGLErrors();

}  // namespace gallery
