#include <lumagrid/MQuat.h>
#include <lumagrid/MRot.h>
#include <lumagrid/vec3d.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>

namespace {

template <typename T>
std::string text(const T& value) {
  std::ostringstream os;
  os << value;
  return os.str();
}

TEST(QuatOutput, IdentityHasNoSpaceBeforeTheScalarPart) {
  EXPECT_EQ(text(MQuat()), "(0, 0, 0,1)");
}

TEST(QuatOutput, QuaternionPrintsXYZThenW) {
  EXPECT_EQ(text(MQuat(1, 2.5, -3, 0.25)), "(1, 2.5, -3,0.25)");
}

TEST(QuatOutput, RotationPrintsAxisThenAngle) {
  EXPECT_EQ(text(MRot(vec3d(0, -1, 2), 1.5)), "(0, -1, 2,1.5)");
  EXPECT_EQ(text(MRot()), "(1, 0, 0,0)");
}

TEST(QuatOutput, NumbersFollowTheStreamSettings) {
  std::ostringstream os;
  os << std::setprecision(3) << MQuat(3.14159265, 0, 0, 1e-20);
  EXPECT_EQ(os.str(), "(3.14, 0, 0,1e-20)");
  // Nothing is reset afterwards.
  os << ' ' << 2.71828;
  EXPECT_EQ(os.str(), "(3.14, 0, 0,1e-20) 2.72");

  std::ostringstream fixed;
  fixed << std::fixed << std::setprecision(1) << MRot(vec3d(1, 0, 0), 0.3);
  EXPECT_EQ(fixed.str(), "(1.0, 0.0, 0.0,0.3)");
}

TEST(QuatOutput, WidthAppliesToTheOpeningBracketOnly) {
  std::ostringstream os;
  os << std::setw(4) << MQuat(1, 2, 3, 4);
  EXPECT_EQ(os.str(), "   (1, 2, 3,4)");
}

TEST(QuatOutput, ReturnsTheStreamForChaining) {
  std::ostringstream os;
  std::ostream& back = os << MQuat();
  EXPECT_EQ(&back, &os);
  os << MRot() << "!";
  EXPECT_EQ(os.str(), "(0, 0, 0,1)(1, 0, 0,0)!");
}

TEST(QuatOutput, WritesNoLineEnd) {
  EXPECT_EQ(text(MQuat(0, 0, 0, 1)).find('\n'), std::string::npos);
  EXPECT_EQ(text(MRot()).find('\n'), std::string::npos);
}

}  // namespace
