#ifndef LUMAGRID_SRC_GLTF_WHOLE_FILE_H
#define LUMAGRID_SRC_GLTF_WHOLE_FILE_H

#include <string>

namespace lumagrid::detail {

// Writes the bytes to a new file beside `path`, then renames it over `path`: a reader, or a
// failure part way, never sees a partial file. False, with the reason, when it cannot; nothing
// is then left behind.
bool WriteWholeFile(const std::string& path, const std::string& bytes, std::string& error);

}  // namespace lumagrid::detail

#endif
