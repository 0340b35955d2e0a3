// Renders the gallery of every shape and variant into a PNG, with no display: see --help.
#include <GL/gl.h>

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "eglfixture/EglContext.h"
#include "gallery_catalog.h"
#include "gallery_layout.h"
#include "gallery_options.h"
#include "gallery_scene.h"
#include "gallery_view.h"

namespace {

constexpr int kSamples = 4;

std::string glErrorName(GLenum error) {
  switch (error) {
    case GL_INVALID_ENUM:
      return "GL_INVALID_ENUM";
    case GL_INVALID_VALUE:
      return "GL_INVALID_VALUE";
    case GL_INVALID_OPERATION:
      return "GL_INVALID_OPERATION";
    case GL_STACK_OVERFLOW:
      return "GL_STACK_OVERFLOW";
    case GL_STACK_UNDERFLOW:
      return "GL_STACK_UNDERFLOW";
    case GL_OUT_OF_MEMORY:
      return "GL_OUT_OF_MEMORY";
    default: {
      char buffer[16];
      std::snprintf(buffer, sizeof buffer, "0x%04X", error);
      return buffer;
    }
  }
}

// Every error OpenGL has pending, which also clears them.
std::vector<std::string> pendingGLErrors() {
  std::vector<std::string> errors;
  for (GLenum e = glGetError(); e != GL_NO_ERROR && errors.size() < 16; e = glGetError()) {
    errors.push_back(glErrorName(e));
  }
  return errors;
}

std::string absolute(const std::string& path) {
  std::error_code ec;
  const std::filesystem::path p = std::filesystem::absolute(path, ec);
  return ec ? path : p.lexically_normal().string();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string program = "lumagrid-gallery";
  gallery::Options options;
  std::string error;
  if (!gallery::parseOptions(argc, argv, &options, &error)) {
    std::cerr << program << ": " << error << '\n';
    return 1;
  }
  if (options.help) {
    std::cout << gallery::usage(program);
    return 0;
  }

  eglfixture::EglContext context(options.width, options.height, kSamples);
  if (!context.ok()) {
    std::cerr << program << ": no headless OpenGL context (EGL surfaceless platform, Mesa "
              << "llvmpipe): " << context.error() << '\n';
    return 2;
  }

  std::vector<std::size_t> entries;
  std::vector<std::string> labels;
  for (std::size_t i = 0; i < gallery::catalog().size(); ++i) {
    if (options.only.empty() || gallery::catalog()[i].name == options.only) {
      entries.push_back(i);
      labels.push_back(gallery::catalog()[i].label);
    }
  }
  const gallery::Layout layout(entries.size(), options.width, options.height);

  {
    gallery::setUpView(layout);
    gallery::GalleryScene scene(entries, layout);
    scene.draw();
    gallery::drawLabels(layout, labels);
  }  // the scene's display lists go while the context is still current
  const std::vector<std::string> glErrors = pendingGLErrors();

  if (!context.savePng(options.out, &error)) {
    std::cerr << program << ": cannot write " << options.out << ": " << error << '\n';
    return 1;
  }
  if (!glErrors.empty()) {
    std::cerr << program << ": OpenGL reported";
    for (const std::string& e : glErrors) {
      std::cerr << ' ' << e;
    }
    std::cerr << " while drawing; the picture was written to " << absolute(options.out)
              << " all the same\n";
    return 3;
  }
  std::cout << "gallery: " << absolute(options.out) << " (" << options.width << 'x'
            << options.height << ", " << entries.size()
            << (entries.size() == 1 ? " cell, " : " cells, ") << context.samples()
            << "x multisampling, " << eglfixture::EglContext::renderer() << ")\n";
  return 0;
}
