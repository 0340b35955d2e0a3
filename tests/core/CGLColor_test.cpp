#include <lumagrid/CGLColor.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

#include "core_expect.h"
#include "core_probes.h"
#include <lumagrid/testing/GLRecorder.h>
#include <lumagrid/testing/Matchers.h>
#include "recorded/CallLines.h"
#include "recorded/RecordedTest.h"

namespace {

using glrecorder::LinesEq;

const double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(ColorLayout, ChannelsAreFourContiguousDoublesBeforeTheFloatCopy) {
  static_assert(sizeof(CGLColor) == 4 * sizeof(double) + 4 * sizeof(float),
                "four doubles and four floats, nothing else");
  static_assert(std::is_standard_layout<CGLColor>::value, "GL receives it as arrays");
  ColorProbe c(0.1, 0.2, 0.3, 0.4);
  const double* p = c;
  EXPECT_EQ(static_cast<const void*>(p), static_cast<const void*>(&c));
  EXPECT_EQ(p, c.Channels());
}

TEST(Color, DefaultIsOpaqueGrey) {
  CGLColor c;
  ExpectChannels(c, 0.5, 0.5, 0.5, 1.0);
  EXPECT_TRUE(c == 0.5);
  EXPECT_FALSE(c.IsTransparent());
}

TEST(Color, SingleValueIsOpaqueGreyLevel) {
  ExpectChannels(CGLColor(0.25), 0.25, 0.25, 0.25, 1.0);
}

TEST(Color, FourValuesAreStoredAsGivenWithoutClamping) {
  ExpectChannels(CGLColor(-1.0, 2.0, 0.3, 7.5), -1.0, 2.0, 0.3, 7.5);
}

TEST(Color, ArrayViewListsRedGreenBlueAlpha) {
  const CGLColor c(0.1, 0.2, 0.3, 0.4);
  const double* p = c;
  EXPECT_EQ(p[0], 0.1);
  EXPECT_EQ(p[1], 0.2);
  EXPECT_EQ(p[2], 0.3);
  EXPECT_EQ(p[3], 0.4);
}

TEST(Color, ArrayViewFollowsLaterChanges) {
  CGLColor c;
  const double* p = c;
  c = 0.75;
  c.AlphaSet(0.125);
  EXPECT_EQ(p[0], 0.75);
  EXPECT_EQ(p[3], 0.125);
}

TEST(Color, GreyAssignmentKeepsAlpha) {
  CGLColor c(0.2);
  EXPECT_EQ(c.AlphaSet(0.3), 1);
  const CGLColor& r = (c = 0.9);
  EXPECT_EQ(&r, &c);
  ExpectChannels(c, 0.9, 0.9, 0.9, 0.3);
}

TEST(Color, CopyAssignmentCopiesAlphaToo) {
  CGLColor c(0.2);
  const CGLColor src(0.1, 0.2, 0.3, 0.4);
  const CGLColor& r = (c = src);
  EXPECT_EQ(&r, &c);
  ExpectChannels(c, 0.1, 0.2, 0.3, 0.4);
}

TEST(Color, CopyConstructorCopiesFourChannels) {
  const CGLColor src(0.1, 0.2, 0.3, 0.4);
  const CGLColor c(src);
  ExpectChannels(c, 0.1, 0.2, 0.3, 0.4);
}

TEST(Color, AlphaOnlyDifferenceIsUnequalYetSameGreyLevel) {
  const CGLColor a(0.4, 0.4, 0.4, 1.0);
  const CGLColor b(0.4, 0.4, 0.4, 0.2);
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a != b);
  EXPECT_TRUE(a == 0.4);
  EXPECT_TRUE(b == 0.4);
  EXPECT_FALSE(a != 0.4);
  EXPECT_FALSE(b != 0.4);
}

TEST(Color, GreyComparisonNeedsAllThreeChannels) {
  EXPECT_FALSE(CGLColor(0.4, 0.4, 0.5, 1.0) == 0.4);
  EXPECT_FALSE(CGLColor(0.5, 0.4, 0.4, 1.0) == 0.4);
  EXPECT_TRUE(CGLColor(0.4, 0.4, 0.5, 1.0) != 0.4);
}

TEST(Color, EqualityIsExactWithoutTolerance) {
  const CGLColor a(0.1, 0.2, 0.3, 1.0);
  const CGLColor b(0.1, 0.2, std::nextafter(0.3, 1.0), 1.0);
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a == CGLColor(0.1, 0.2, 0.3, 1.0));
}

TEST(Color, NaNChannelMakesEveryEqualityFalseEvenWithItself) {
  const CGLColor c(kNaN, 0.5, 0.5, 1.0);
  EXPECT_FALSE(c == c);
  EXPECT_TRUE(c != c);
  EXPECT_FALSE(c == 0.5);
  EXPECT_TRUE(c != 0.5);
  const CGLColor nanAlpha(0.5, 0.5, 0.5, kNaN);
  EXPECT_FALSE(nanAlpha == nanAlpha);
  EXPECT_TRUE(nanAlpha == 0.5);  // the grey comparison leaves alpha out
}

class ColorTransparency : public ::testing::TestWithParam<std::pair<double, bool>> {};

TEST_P(ColorTransparency, OnlyAlphaExactlyOneIsOpaque) {
  CGLColor c;
  c.AlphaSet(GetParam().first);
  EXPECT_EQ(c.IsTransparent(), GetParam().second);
  EXPECT_EQ(std::isnan(c.AlphaGet()), std::isnan(GetParam().first));
  EXPECT_EQ(std::isnan(c.Alpha()), std::isnan(GetParam().first));
}

INSTANTIATE_TEST_SUITE_P(Alphas, ColorTransparency,
                         ::testing::Values(std::make_pair(1.0, false), std::make_pair(1.5, true),
                                           std::make_pair(0.999999, true),
                                           std::make_pair(0.0, true), std::make_pair(-1.0, true),
                                           std::make_pair(kNaN, true)));

TEST(Color, NewColourHasNoFloatCopyYet) {
  const ColorProbe c(0.1, 0.2, 0.3, 0.4);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(c.GL()[i], 0.0f);
  }
}

// ---------------------------------------------------------------- GL calls

class ColorGL : public RecordedTest {};

TEST_F(ColorGL, GLColorSetsTheFrontMaterialFromTheFloatCopy) {
  ColorProbe c(0.1, 1.0 / 3.0, 0.9, 0.25);
  c.GLColor();
  const std::array<float, 4> f = {0.1f, static_cast<float>(1.0 / 3.0), 0.9f, 0.25f};
  EXPECT_THAT(glrecorder::recorder().log(), LinesEq({MaterialLine(f[0], f[1], f[2], f[3])}));
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(c.GL()[i], f[static_cast<std::size_t>(i)]);
  }
  EXPECT_EQ(glrecorder::recorder().material(GL_FRONT, GL_AMBIENT), f);
  EXPECT_EQ(glrecorder::recorder().material(GL_FRONT, GL_DIFFUSE), f);
}

TEST_F(ColorGL, CopiesDoNotCarryTheFloatCopyUntilTheirOwnGLColor) {
  ColorProbe c(0.2, 0.4, 0.6, 0.8);
  c.GLColor();
  ColorProbe copy(c);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(copy.GL()[i], 0.0f);
  }
  ColorProbe assigned(0.7);
  assigned.GLColor();
  assigned = c;
  EXPECT_EQ(assigned.GL()[0], 0.7f);  // still its own last GLColor
  EXPECT_EQ(assigned.Red(), 0.2);
  copy.GLColor();
  EXPECT_EQ(copy.GL()[3], 0.8f);
}

}  // namespace
