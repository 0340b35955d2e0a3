#ifndef LUMAGRID_TESTS_CORE_CORE_RENDER_H
#define LUMAGRID_TESTS_CORE_CORE_RENDER_H

#include <cstdint>

#include "render/OrthoRenderTest.h"

// What the core's shapes look like in the render fixture.

// The fixture's ortho(-2, 2) maps x = -1 and x = 1 to these columns of 128.
constexpr int kLeft = 32;
constexpr int kRight = 96;
constexpr int kMiddle = 64;

// Lit head-on by the fixture's white light with the default ambient model:
// each channel shows 1.2 times the material colour, clamped.
inline headless::Rgba Lit(double r, double g, double b) {
  auto c = [](double v) {
    const double x = v * 1.2 > 1.0 ? 1.0 : v * 1.2;
    return static_cast<std::uint8_t>(x * 255.0 + 0.5);
  };
  return headless::Rgba{c(r), c(g), c(b), 255};
}

const headless::Rgba kBlack{0, 0, 0, 255};

#endif
