// Runs the gallery program and checks what it wrote: the PNG decodes at the requested size, is not
// blank, every cell holds a shape and a label, only the selected shape shows the highlight colour,
// and the program's exit status says what happened (0, or 2 without an OpenGL context).
//   lumagrid_gallery_check PATH-TO-GALLERY
#include <png.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "gallery_catalog.h"
#include "gallery_layout.h"

extern char** environ;

namespace {

int g_failures = 0;

void check(bool ok, const std::string& what) {
  std::cout << (ok ? "ok:   " : "FAIL: ") << what << '\n';
  g_failures += ok ? 0 : 1;
}

// Exit status of the program, or -1 when it did not exit normally (a crash).
int run(const std::vector<std::string>& args, const std::vector<std::string>& extraEnv = {}) {
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
  pid_t pid = 0;
  if (posix_spawn(&pid, argv[0], nullptr, nullptr, argv.data(), envp.data()) != 0) {
    std::cout << "cannot start " << args[0] << ": " << std::strerror(errno) << '\n';
    return -1;
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) {
      return -1;
    }
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgba;  // top row first

  const std::uint8_t* at(int x, int y) const {
    return &rgba[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)) *
                 4];
  }
};

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

bool isBackground(const std::uint8_t* p) {
  const gallery::Rgb8 bg = gallery::kBackground;
  return std::abs(p[0] - bg.r) + std::abs(p[1] - bg.g) + std::abs(p[2] - bg.b) <= 24;
}

// The highlight colour under the lights: its hue, any brightness.
bool isHighlight(const std::uint8_t* p) {
  const gallery::Rgb8 hl = gallery::kHighlight;
  auto near = [](int channel, int wanted) { return wanted == 0 ? channel <= 40 : channel >= 100; };
  return near(p[0], hl.r) && near(p[1], hl.g) && near(p[2], hl.b);
}

template <class Predicate>
std::size_t count(const Image& image, const gallery::Rect& r, Predicate predicate) {
  std::size_t n = 0;
  for (int y = r.y; y < r.y + r.height; ++y) {
    for (int x = r.x; x < r.x + r.width; ++x) {
      n += predicate(image.at(x, y)) ? 1 : 0;
    }
  }
  return n;
}

std::size_t distinctColours(const Image& image) {
  std::set<std::uint32_t> colours;
  for (std::size_t i = 0; i + 3 < image.rgba.size(); i += 4) {
    colours.insert(static_cast<std::uint32_t>(image.rgba[i]) << 16 |
                   static_cast<std::uint32_t>(image.rgba[i + 1]) << 8 | image.rgba[i + 2]);
  }
  return colours.size();
}

// Runs the gallery into path at width x height (one entry when only is set) and checks the cells.
void checkPicture(const std::string& gallery, const std::string& path, int width, int height,
                  const std::string& only) {
  std::vector<std::string> args = {gallery, "--out", path, "--size",
                                   std::to_string(width) + "x" + std::to_string(height)};
  if (!only.empty()) {
    args.push_back("--only");
    args.push_back(only);
  }
  const std::string what = only.empty() ? "gallery" : "gallery --only " + only;
  check(run(args) == 0, what + " exits 0 (no GL error)");
  Image image;
  const bool decoded = readPng(path, &image);
  check(decoded, what + ": the PNG decodes");
  if (!decoded) {
    return;
  }
  check(image.width == width && image.height == height,
        what + ": size " + std::to_string(image.width) + "x" + std::to_string(image.height));
  if (image.width != width || image.height != height) {
    return;
  }
  const std::size_t colours = distinctColours(image);
  check(colours >= (only.empty() ? 500u : 50u),
        what + ": not blank (" + std::to_string(colours) + " distinct colours)");

  std::vector<std::size_t> entries;
  for (std::size_t i = 0; i < gallery::catalog().size(); ++i) {
    if (only.empty() || gallery::catalog()[i].name == only) {
      entries.push_back(i);
    }
  }
  const gallery::Layout layout(entries.size(), width, height);
  for (std::size_t cell = 0; cell < entries.size(); ++cell) {
    const std::string& name = gallery::catalog()[entries[cell]].name;
    const std::size_t drawn = count(image, layout.shapeArea(cell),
                                    [](const std::uint8_t* p) { return !isBackground(p); });
    check(drawn >= 60, what + ": cell " + std::to_string(cell) + " (" + name + ") holds " +
                           std::to_string(drawn) + " shape pixels");
    const std::size_t label = count(image, layout.labelArea(cell),
                                    [](const std::uint8_t* p) { return !isBackground(p); });
    check(label >= 20, what + ": cell " + std::to_string(cell) + " has a label");
    const std::size_t highlight = count(image, layout.cell(cell), isHighlight);
    if (name == gallery::kSelectedEntry) {
      check(highlight >= 100, what + ": the selected " + name + " shows its highlight colour (" +
                                  std::to_string(highlight) + " pixels)");
    } else {
      check(highlight < 5, what + ": " + name + " shows no highlight colour");
    }
  }
}

std::string temporaryPng() {
  std::string pattern =
      (std::filesystem::temp_directory_path() / "lumagrid-gallery-XXXXXX.png").string();
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  const int fd = mkstemps(buffer.data(), 4);
  if (fd < 0) {
    return "";
  }
  close(fd);
  return buffer.data();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: lumagrid_gallery_check PATH-TO-GALLERY\n";
    return 2;
  }
  const std::string gallery = argv[1];
  const std::string path = temporaryPng();
  if (path.empty()) {
    std::cerr << "cannot create a temporary file\n";
    return 2;
  }

  checkPicture(gallery, path, 900, 760, "");
  checkPicture(gallery, path, 200, 180, gallery::kSelectedEntry);

  check(run({gallery, "--size", "12by4", "--out", path}) == 1, "a bad --size exits 1");
  check(run({gallery, "--only", "no-such-shape", "--out", path}) == 1, "an unknown --only exits 1");
  // GLVND finds no EGL driver: the program must say so and exit 2, not crash.
  check(run({gallery, "--out", path}, {"__EGL_VENDOR_LIBRARY_FILENAMES=/nonexistent.json"}) == 2,
        "no EGL driver exits 2");

  std::error_code ec;
  std::filesystem::remove(path, ec);
  std::cout << (g_failures == 0 ? "all checks passed\n" : "some checks failed\n");
  return g_failures == 0 ? 0 : 1;
}
