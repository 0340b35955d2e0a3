#include <lumagrid/mat4x4.h>
#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

namespace {

// Arrays of these go to GL, GLE and memcpy as plain doubles.
static_assert(sizeof(vec3d) == 24, "vec3d is three doubles");
static_assert(sizeof(vec4d) == 32, "vec4d is four doubles");
static_assert(sizeof(mat4x4) == 128, "mat4x4 is sixteen doubles");
static_assert(alignof(vec3d) == alignof(double), "no over-alignment");
static_assert(alignof(vec4d) == alignof(double), "no over-alignment");
static_assert(alignof(mat4x4) == alignof(double), "no over-alignment");
static_assert(std::is_trivially_copyable<vec3d>::value, "vec3d copies as bytes");
static_assert(std::is_trivially_copyable<vec4d>::value, "vec4d copies as bytes");
static_assert(std::is_trivially_copyable<mat4x4>::value, "mat4x4 copies as bytes");
static_assert(std::is_standard_layout<vec3d>::value, "vec3d has C layout");
static_assert(std::is_standard_layout<vec4d>::value, "vec4d has C layout");
static_assert(std::is_standard_layout<mat4x4>::value, "mat4x4 has C layout");
static_assert(!std::is_polymorphic<vec3d>::value && !std::is_polymorphic<mat4x4>::value,
              "no virtual operations");
static_assert(std::is_trivially_default_constructible<mat4x4>::value,
              "mat4x4() leaves its values unset");
static_assert(!std::is_trivially_default_constructible<vec3d>::value, "vec3d() clears");

TEST(Layout, Vec3dArrayIsAPackedDoubleArray) {
  const vec3d pts[2] = {vec3d(1.0, 2.0, 3.0), vec3d(4.0, 5.0, 6.0)};
  double flat[6];
  std::memcpy(flat, pts, sizeof pts);
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(flat[i], i + 1.0);
  }
  EXPECT_EQ(static_cast<const void*>(static_cast<const double*>(pts[0])),
            static_cast<const void*>(&pts[0]));
}

TEST(Layout, Vec4dHoldsXYZWInOrder) {
  const vec4d v(1.0, 2.0, 3.0, 4.0);
  double flat[4];
  std::memcpy(flat, &v, sizeof v);
  EXPECT_EQ(flat[0], 1.0);
  EXPECT_EQ(flat[3], 4.0);
}

TEST(Layout, Mat4x4BytesAreTheSixteenValuesInStorageOrder) {
  mat4x4 m;
  for (int i = 0; i < 16; ++i) {
    m[i / 4][i % 4] = i;
  }
  double flat[16];
  std::memcpy(flat, &m, sizeof m);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(flat[i], i);
  }
  mat4x4 copy;
  std::memcpy(&copy, flat, sizeof flat);
  EXPECT_TRUE(copy == m);
}

}  // namespace
