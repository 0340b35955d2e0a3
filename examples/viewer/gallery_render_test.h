// The whole gallery in a headless context (EGL on llvmpipe, no window), for the viewer's
// picking tests.
#pragma once

#include <gtest/gtest.h>

#include <lumagrid/testing/EglContext.h>

#include <cstddef>
#include <optional>
#include <vector>

#include "gallery_catalog.h"
#include "gallery_layout.h"
#include "gallery_scene.h"

class GalleryRenderTest : public ::testing::Test {
 protected:
  static constexpr int kWidth = 600;
  static constexpr int kHeight = 500;

  void SetUp() override {
    ASSERT_TRUE(context_.ok()) << context_.error();
    for (std::size_t i = 0; i < gallery::catalog().size(); ++i) {
      entries_.push_back(i);
    }
    scene_.emplace(entries_, layout_);
  }

  void TearDown() override { scene_.reset(); }  // while the context is current

  headless::EglContext context_{kWidth, kHeight};
  std::vector<std::size_t> entries_;
  gallery::Layout layout_{gallery::catalog().size(), kWidth, kHeight};
  std::optional<gallery::GalleryScene> scene_;
};
