// Renders the gallery of every shape and variant into a PNG, with no display: see --help.
#include <cstddef>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <lumagrid/CoreProfileRenderer.h>
#include <lumagrid/testing/EglContext.h>
#include <lumagrid/testing/GLErrors.h>

#include "command_line.h"
#include "gallery_catalog.h"
#include "gallery_gltf.h"
#include "gallery_layout.h"
#include "gallery_options.h"
#include "gallery_scene.h"
#include "gallery_view.h"

namespace {

constexpr int kSamples = 4;

// Draws the scene and its labels through the core-profile renderer into the cleared picture.
// Returns why a Draw failed, or "".
std::string drawCoreProfile(gallery::GalleryScene& scene, const gallery::Layout& layout,
                            const std::vector<std::string>& labels) {
  lumagrid::CoreProfileRenderer renderer;  // its GL objects go while the context is current
  if (scene.draw(renderer, gallery::coreView(layout)) &&
      gallery::drawLabels(renderer, layout, labels)) {
    return {};
  }
  return renderer.LastError();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string program = "lumagrid-gallery";
  gallery::Options options;
  if (const std::optional<int> status = gallery::parseOptions(argc, argv, &options)) {
    return *status;
  }

  const bool coreProfile = options.renderer == "coreprofile";
  headless::EglContext context(options.width, options.height, kSamples,
                               coreProfile ? headless::EglContext::Profile::Core
                                           : headless::EglContext::Profile::Compatibility);
  if (!context.ok()) {
    std::cerr << program << ": no headless OpenGL context (EGL surfaceless platform, Mesa "
              << "llvmpipe): " << context.error() << '\n';
    return examples::code(examples::Exit::NoContext);
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

  std::string rendererError;
  {
    if (coreProfile) {
      gallery::clearPicture(layout);
    } else {
      gallery::setUpView(layout);
    }
    gallery::GalleryScene scene(entries, layout);
    if (coreProfile) {
      rendererError = drawCoreProfile(scene, layout, labels);
    } else {
      scene.draw();
      gallery::drawLabels(layout, labels);
    }
    std::string error;
    if (!options.gltf.empty() &&
        !gallery::writeGalleryGltf(scene, layout, labels, options.gltf, &error)) {
      std::cerr << program << ": cannot write the glTF file: " << error << '\n';
      return examples::code(examples::Exit::CannotWrite);
    }
  }  // the scene's display lists go while the context is still current
  const std::vector<std::string> glErrors = headless::pendingGLErrors();

  std::string error;
  if (!context.savePng(options.out, &error)) {
    std::cerr << program << ": cannot write " << options.out << ": " << error << '\n';
    return examples::code(examples::Exit::CannotWrite);
  }
  if (!rendererError.empty()) {
    std::cerr << program << ": the core-profile renderer failed: " << rendererError
              << "; the picture was written to " << examples::absolutePath(options.out)
              << " all the same\n";
    return examples::code(examples::Exit::GLError);
  }
  if (!glErrors.empty()) {
    std::cerr << program << ": OpenGL reported";
    for (const std::string& e : glErrors) {
      std::cerr << ' ' << e;
    }
    std::cerr << " while drawing; the picture was written to "
              << examples::absolutePath(options.out) << " all the same\n";
    return examples::code(examples::Exit::GLError);
  }
  std::cout << "gallery: " << examples::absolutePath(options.out) << " (" << options.width << 'x'
            << options.height << ", " << entries.size()
            << (entries.size() == 1 ? " cell, " : " cells, ") << context.samples()
            << "x multisampling, " << headless::EglContext::renderer()
            << (coreProfile ? ", core-profile renderer" : "") << ")\n";
  if (!options.gltf.empty()) {
    std::cout << "gallery: " << examples::absolutePath(options.gltf) << " and "
              << examples::absolutePath(gallery::viewFileFor(options.gltf)) << '\n';
  }
  return examples::code(examples::Exit::Ok);
}
