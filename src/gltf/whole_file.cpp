#include "gltf/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace lumagrid::detail {
namespace {

std::string Reason(const std::string& path, int error) {
  return "cannot write " + path + ": " + std::strerror(error);
}

// A name beside `path` that no other writer uses: the process and a counter. Created with the
// user's umask, as the file itself would be.
int OpenBeside(const std::string& path, std::string& temporary) {
  static unsigned counter = 0;
  for (int attempt = 0; attempt < 100; ++attempt) {
    temporary = path + ".tmp" + std::to_string(getpid()) + "-" + std::to_string(counter++);
    const int fd = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd >= 0 || errno != EEXIST) {
      return fd;
    }
  }
  errno = EEXIST;
  return -1;
}

bool WriteAll(int fd, const std::string& bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const ssize_t n = write(fd, bytes.data() + written, bytes.size() - written);
    if (n < 0 && errno == EINTR) {
      continue;
    }
    if (n <= 0) {
      return false;
    }
    written += static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

bool WriteWholeFile(const std::string& path, const std::string& bytes, std::string& error) {
  if (path.empty()) {
    error = "no file name given";
    return false;
  }
  std::string temporary;
  const int fd = OpenBeside(path, temporary);
  if (fd < 0) {
    error = Reason(path, errno);
    return false;
  }
  const bool written = WriteAll(fd, bytes);
  const int writeError = errno;
  if (close(fd) != 0 || !written) {
    error = Reason(path, written ? errno : writeError);
    unlink(temporary.c_str());
    return false;
  }
  if (std::rename(temporary.c_str(), path.c_str()) != 0) {
    error = Reason(path, errno);
    unlink(temporary.c_str());
    return false;
  }
  return true;
}

}  // namespace lumagrid::detail
