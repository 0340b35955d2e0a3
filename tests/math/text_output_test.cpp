#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <streambuf>

#include "math/text_output.h"

namespace {

// Counts flushes so that std::endl can be told from a plain newline.
class CountingBuf : public std::stringbuf {
 public:
  int syncs = 0;

 protected:
  int sync() override {
    ++syncs;
    return std::stringbuf::sync();
  }
};

TEST(TextOutput, Vec3dHasSpacesAfterBothCommas) {
  std::ostringstream os;
  os << vec3d(1.0, 2.5, -3.0);
  EXPECT_EQ(os.str(), "(1, 2.5, -3)");
}

TEST(TextOutput, Vec4dHasNoSpaceBeforeTheFourthValue) {
  std::ostringstream os;
  os << vec4d(0.0, 0.0, 0.0, 1.0);
  EXPECT_EQ(os.str(), "(0, 0, 0,1)");
}

TEST(TextOutput, FourValueWriterIsShared) {
  std::ostringstream os;
  lumagrid::writeFour(os, 1.5, -2.0, 3.0, 4.25) << "!";
  EXPECT_EQ(os.str(), "(1.5, -2, 3,4.25)!");
}

TEST(TextOutput, IdentityPrintsFourLines) {
  mat4x4 m;
  m.identity();
  std::ostringstream os;
  os << m;
  EXPECT_EQ(os.str(), "1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1\n");
}

TEST(TextOutput, MatrixLinesAreTheGroupsOfFour) {
  mat4x4 m;
  for (int i = 0; i < 16; ++i) {
    static_cast<double*>(m)[i] = i;
  }
  std::ostringstream os;
  os << m;
  // Line g holds indices 4g .. 4g + 3, that is column g.
  EXPECT_EQ(os.str(), "0 1 2 3\n4 5 6 7\n8 9 10 11\n12 13 14 15\n");
}

TEST(TextOutput, MatrixEndsEachLineWithAFlush) {
  mat4x4 m;
  m.identity();
  CountingBuf buf;
  std::ostream os(&buf);
  os << m;
  EXPECT_EQ(buf.syncs, 4);
  EXPECT_EQ(buf.str(), "1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1\n");
}

TEST(TextOutput, VectorsDoNotFlush) {
  CountingBuf buf;
  std::ostream os(&buf);
  os << vec3d(1.0, 2.0, 3.0) << vec4d(1.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(buf.syncs, 0);
}

TEST(TextOutput, NumbersFollowTheStreamsSettings) {
  std::ostringstream os;
  os << std::fixed << std::setprecision(2) << vec3d(1.0, 1.0 / 3.0, -0.5);
  EXPECT_EQ(os.str(), "(1.00, 0.33, -0.50)");
  // Nothing is reset afterwards.
  EXPECT_EQ(os.precision(), 2);
  EXPECT_TRUE(os.flags() & std::ios::fixed);
}

TEST(TextOutput, NegativeZeroAndDefaultPrecision) {
  std::ostringstream os;
  os << vec4d(-0.0, 1.0 / 3.0, 1e-20, 123456789.0);
  EXPECT_EQ(os.str(), "(-0, 0.333333, 1e-20,1.23457e+08)");
}

TEST(TextOutput, WidthAppliesToTheFirstPieceOnly) {
  std::ostringstream os;
  os << std::setw(4) << vec3d(1.0, 2.0, 3.0);
  EXPECT_EQ(os.str(), "   (1, 2, 3)");
}

TEST(TextOutput, MatrixRespectsPrecision) {
  mat4x4 m;
  m.identity();
  m[3][0] = 1.0 / 3.0;
  std::ostringstream os;
  os << std::setprecision(3) << m;
  EXPECT_EQ(os.str(), "1 0 0 0\n0 1 0 0\n0 0 1 0\n0.333 0 0 1\n");
}

TEST(TextOutput, OperatorsReturnTheStream) {
  std::ostringstream os;
  mat4x4 m;
  m.zero();
  std::ostream& a = os << vec3d();
  std::ostream& b = os << vec4d();
  std::ostream& c = os << m;
  EXPECT_EQ(&a, &os);
  EXPECT_EQ(&b, &os);
  EXPECT_EQ(&c, &os);
}

}  // namespace
