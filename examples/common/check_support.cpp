#include "check_support.h"

#include <png.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <system_error>

#include "gallery_catalog.h"
#include "gallery_gltf.h"

extern char** environ;

namespace examples::check {
namespace {

int g_failures = 0;

}  // namespace

void check(bool ok, const std::string& what) {
  std::cout << (ok ? "ok:   " : "FAIL: ") << what << '\n';
  g_failures += ok ? 0 : 1;
}

int failures() {
  return g_failures;
}

int run(const std::vector<std::string>& args, const std::vector<std::string>& extraEnv,
        std::string* out) {
  std::vector<char*> argv;
  for (const std::string& a : args) {
    argv.push_back(const_cast<char*>(a.c_str()));
  }
  argv.push_back(nullptr);
  std::vector<std::string> envStrings(extraEnv);
  for (char** e = environ; *e != nullptr; ++e) {
    envStrings.emplace_back(*e);
  }
  std::vector<char*> envp;
  for (const std::string& e : envStrings) {
    envp.push_back(const_cast<char*>(e.c_str()));
  }
  envp.push_back(nullptr);

  int pipeFds[2] = {-1, -1};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (out != nullptr) {
    if (pipe(pipeFds) != 0) {
      posix_spawn_file_actions_destroy(&actions);
      return -1;
    }
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeFds[0]);
    posix_spawn_file_actions_addclose(&actions, pipeFds[1]);
  }
  pid_t pid = 0;
  const int spawned = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data());
  posix_spawn_file_actions_destroy(&actions);
  if (out != nullptr) {
    close(pipeFds[1]);
  }
  if (spawned != 0) {
    std::cout << "cannot start " << args[0] << ": " << std::strerror(spawned) << '\n';
    if (out != nullptr) {
      close(pipeFds[0]);
    }
    return -1;
  }
  if (out != nullptr) {
    char buffer[4096];
    for (;;) {
      const ssize_t n = read(pipeFds[0], buffer, sizeof buffer);
      if (n > 0) {
        out->append(buffer, static_cast<std::size_t>(n));
      } else if (n == 0 || errno != EINTR) {
        break;
      }
    }
    close(pipeFds[0]);
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) {
      return -1;
    }
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool readPng(const std::string& path, Image* image) {
  png_image png;
  std::memset(&png, 0, sizeof png);
  png.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&png, path.c_str()) == 0) {
    std::cout << "libpng: " << png.message << '\n';
    return false;
  }
  png.format = PNG_FORMAT_RGBA;
  image->width = static_cast<int>(png.width);
  image->height = static_cast<int>(png.height);
  image->rgba.assign(PNG_IMAGE_SIZE(png), 0);
  if (png_image_finish_read(&png, nullptr, image->rgba.data(), 0, nullptr) == 0) {
    std::cout << "libpng: " << png.message << '\n';
    png_image_free(&png);
    return false;
  }
  return true;
}

int colourDistance(const std::uint8_t* p, const gallery::Rgb8& c) {
  return std::abs(p[0] - c.r) + std::abs(p[1] - c.g) + std::abs(p[2] - c.b);
}

bool isBackground(const std::uint8_t* p) {
  return colourDistance(p, gallery::kBackground) <= 24;
}

bool isHighlight(const std::uint8_t* p) {
  const gallery::Rgb8 hl = gallery::kHighlight;
  auto near = [](int channel, int wanted) { return wanted == 0 ? channel <= 40 : channel >= 100; };
  return near(p[0], hl.r) && near(p[1], hl.g) && near(p[2], hl.b);
}

std::size_t distinctColours(const Image& image) {
  std::set<std::uint32_t> colours;
  for (std::size_t i = 0; i + 3 < image.rgba.size(); i += 4) {
    colours.insert(static_cast<std::uint32_t>(image.rgba[i]) << 16 |
                   static_cast<std::uint32_t>(image.rgba[i + 1]) << 8 | image.rgba[i + 2]);
  }
  return colours.size();
}

std::string temporaryPng(const std::string& stem) {
  std::string pattern =
      (std::filesystem::temp_directory_path() / ("lumagrid-" + stem + "-XXXXXX.png")).string();
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  const int fd = mkstemps(buffer.data(), 4);
  if (fd < 0) {
    return "";
  }
  close(fd);
  return buffer.data();
}

std::size_t differingPixels(const Image& a, const Image& b) {
  if (a.width != b.width || a.height != b.height || a.rgba.size() != b.rgba.size()) {
    return std::max(a.rgba.size(), b.rgba.size()) / 4;
  }
  std::size_t differ = 0;
  for (std::size_t k = 0; k < a.rgba.size(); k += 4) {
    differ += std::equal(&a.rgba[k], &a.rgba[k] + 4, &b.rgba[k]) ? 0 : 1;
  }
  return differ;
}

void checkSamePictureEveryRun(int runs, const std::function<bool(Image*)>& runOnce) {
  Image first;
  for (int i = 0; i < runs; ++i) {
    Image image;
    if (!runOnce(&image)) {
      check(false, "run " + std::to_string(i) + " gives a picture");
      return;
    }
    if (i == 0) {
      first = image;
      continue;
    }
    const std::size_t differ = differingPixels(first, image);
    check(differ == 0, "run " + std::to_string(i) + " gives the picture of run 0 (" +
                           std::to_string(differ) + " pixels differ)");
  }
}

void checkGltfFile(const std::string& path, const std::vector<std::string>& names) {
  std::ifstream in(path, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const bool binary = path.size() > 4 && path.compare(path.size() - 4, 4, ".glb") == 0;
  check(bytes.compare(0, binary ? 4 : 1, binary ? "glTF" : "{") == 0,
        path + " is a " + (binary ? "binary glTF file" : "glTF JSON file"));
  for (const std::string& name : names) {
    check(bytes.find(name) != std::string::npos, path + " names " + name);
  }
  const std::string view = gallery::viewFileFor(path);
  check(std::filesystem::exists(view), "its view file " + view + " is written");
  std::error_code ec;
  std::filesystem::remove(path, ec);
  std::filesystem::remove(view, ec);
}

int checkProgram(int argc, char** argv, const std::string& stem,
                 const std::function<void(const std::string&, const std::string&)>& checks) {
  if (argc != 2) {
    std::string upper = stem;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    std::cerr << "usage: lumagrid_" << stem << "_check PATH-TO-" << upper << '\n';
    return 2;
  }
  const std::string path = temporaryPng(stem);
  if (path.empty()) {
    std::cerr << "cannot create a temporary file\n";
    return 2;
  }
  checks(argv[1], path);
  std::error_code ec;
  std::filesystem::remove(path, ec);
  std::cout << (failures() == 0 ? "all checks passed\n" : "some checks failed\n");
  return failures() == 0 ? 0 : 1;
}

}  // namespace examples::check
