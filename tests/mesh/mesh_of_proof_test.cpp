// MeshOf against what the real libGLU and libgle make GL receive from the shapes' lists, for
// every cell of the gallery and for other tessellations.
#include <GL/gle.h>
#include <gtest/gtest.h>
#include <lumagrid/Mesh.h>
#include <lumagrid/SceneQuery.h>
#include <lumagrid/lumagrid.h>

#include <memory>
#include <utility>
#include <string>
#include <vector>

#include "gallery_catalog.h"
#include "gallery_shapes.h"
#include "geometry/GLCapture.h"
#include "geometry/MeshAgreement.h"
#include "mesh/extent.h"
#include "mesh/mesh_assembly.h"
#include "mesh/shape_fields.h"

namespace {

// The shape's mesh carried through its own matrix, as its Draw places it.
lumagrid::Mesh PlacedMesh(CGLObject& shape) {
  lumagrid::detail::MeshAssembly placed;
  placed.MultMatrix(lumagrid::detail::ObjectFields::matrix(shape));
  placed.Add(lumagrid::MeshOf(shape));
  return placed.Take();
}

geometry::Captured Drawn(CGLObject& shape) {
  geometry::ResetCapture();
  shape.Draw();
  return geometry::TakeCaptured();
}

::testing::AssertionResult AgreesWhenDrawn(CGLObject& shape) {
  const lumagrid::Mesh mesh = PlacedMesh(shape);
  return geometry::MeshAgreesWithGL(mesh, Drawn(shape));
}

class GalleryCell : public ::testing::TestWithParam<std::string> {};

TEST_P(GalleryCell, EveryShapeIsWhatGLReceives) {
  const std::size_t entry = gallery::findEntry(GetParam());
  ASSERT_LT(entry, gallery::catalog().size());
  for (const gallery::PlacedShape& placed : gallery::buildShapes(entry, {0.0, 0.0}, 1.0)) {
    EXPECT_TRUE(AgreesWhenDrawn(*placed.shape)) << GetParam();
  }
}

// Picking passes shapes by a box worked out from their parameters: it must hold the mesh.
TEST_P(GalleryCell, ThePickingBoxHoldsTheMesh) {
  const std::size_t entry = gallery::findEntry(GetParam());
  ASSERT_LT(entry, gallery::catalog().size());
  for (const gallery::PlacedShape& placed : gallery::buildShapes(entry, {0.0, 0.0}, 1.0)) {
    CGLObject& shape = *placed.shape;
    std::vector<CGLObject*> shapes;
    if (auto* group = dynamic_cast<CGLGroup*>(&shape)) {
      for (CGLObject* member : lumagrid::detail::GroupFields::arrObjects(*group)) {
        shapes.push_back(member);
      }
    } else {
      shapes.push_back(&shape);
    }
    for (CGLObject* leaf : shapes) {
      const lumagrid::Bounds box = lumagrid::detail::ExtentOf(*leaf);
      const lumagrid::Bounds mesh = lumagrid::BoundsOf(*leaf);
      ASSERT_FALSE(box.empty);
      ASSERT_FALSE(mesh.empty);
      for (int i = 0; i < 3; ++i) {
        EXPECT_LE(box.min[i], mesh.min[i]) << GetParam() << " axis " << i;
        EXPECT_GE(box.max[i], mesh.max[i]) << GetParam() << " axis " << i;
      }
    }
  }
}

std::vector<std::string> GalleryNames() {
  std::vector<std::string> names;
  for (const gallery::Entry& e : gallery::catalog()) {
    names.push_back(e.name);
  }
  return names;
}

std::string TestName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name;
  for (const char c : info.param) {
    name += c == '-' ? '_' : c;
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Gallery, GalleryCell, ::testing::ValuesIn(GalleryNames()), TestName);

// Tessellations the gallery does not use.
class Tessellation : public ::testing::Test {
 protected:
  void SetUp() override {
    slices_ = CGLObject::s_nSlices4New;
    stacks_ = CGLObject::s_nStacks4New;
  }
  void TearDown() override {
    CGLObject::s_nSlices4New = slices_;
    CGLObject::s_nStacks4New = stacks_;
    gleSetNumSides(20);
  }

 private:
  int slices_ = 0;
  int stacks_ = 0;
};

TEST_F(Tessellation, QuadricsOfOtherSlicesAndStacks) {
  for (const auto& [slices, stacks] : {std::pair{7, 3}, std::pair{40, 25}, std::pair{3, 1}}) {
    CGLObject::s_nSlices4New = slices;
    CGLObject::s_nStacks4New = stacks;
    CGLSphere sphere(0.7);
    CGLCylinder cylinder(0.4, 1.2, true);
    CGLCone cone(0.2, 0.9, true);
    CGLCone frustum(0.6, 0.25, 0.5, true);
    CGLArrow arrow(2.0, 0.3, false, 3, 0.6, 0.5);
    EXPECT_TRUE(AgreesWhenDrawn(sphere)) << slices << "x" << stacks;
    EXPECT_TRUE(AgreesWhenDrawn(cylinder)) << slices << "x" << stacks;
    EXPECT_TRUE(AgreesWhenDrawn(cone)) << slices << "x" << stacks;
    EXPECT_TRUE(AgreesWhenDrawn(frustum)) << slices << "x" << stacks;
    EXPECT_TRUE(AgreesWhenDrawn(arrow)) << slices << "x" << stacks;
  }
}

TEST_F(Tessellation, TorusOfOtherSidesFilledAndWireframe) {
  for (const int sides : {6, 20, 33}) {
    for (const int shaded : {1, 0}) {
      // A spring leaves GLE's sides and the tube fill as it drew with them.
      CGLSpring spring;
      spring.SetQuality(10);
      spring.SetShadedMode(shaded);
      spring.Draw();
      gleSetNumSides(sides);
      CGLTorus ring(0.15, 1.1, 30.0, 360.0);
      CGLTorus arc(0.2, 0.9, -40.0, 250.0);
      EXPECT_TRUE(AgreesWhenDrawn(ring)) << sides << " sides, shaded " << shaded;
      EXPECT_TRUE(AgreesWhenDrawn(arc)) << sides << " sides, shaded " << shaded;
    }
  }
}

TEST_F(Tessellation, SpringsOfOtherQualities) {
  for (const unsigned quality : {10u, 37u, 50u}) {
    for (const unsigned type : {0u, 1u}) {
      for (const unsigned type2 : {0u, 1u, 2u}) {
        CGLSpring spring(0.08, 0.6, 1.0, 2.5, 4, 25.0);
        spring.SetQuality(quality);
        spring.SetType(type);
        spring.SetType2(type2);
        EXPECT_TRUE(AgreesWhenDrawn(spring)) << quality << " " << type << " " << type2;
      }
    }
  }
}

TEST(GroupMembers, UnevenlyScaledMembersCarryTheirNormalsThroughTheInverseTranspose) {
  CGLGroup group;
  auto* sphere = new CGLSphere(0.5);
  sphere->Scale(2.0, 0.5, 1.0);
  sphere->Move(1.0, 0.0, 0.0);
  auto* torus = new CGLTorus(0.1, 0.6, 0.0, 270.0);
  torus->Scale(1.0, 3.0, 0.5);
  torus->RotateX(0.7);
  auto* hidden = new CGLCylinder(0.3, 1.0, true);
  hidden->SetVisible(false);
  group.Add(sphere);
  group.Add(torus);
  group.Add(hidden);
  group.Scale(1.5, 1.0, 1.0);
  EXPECT_TRUE(AgreesWhenDrawn(group));
}

// The comparison itself must see a wrong mesh.
class Comparison : public ::testing::Test {
 protected:
  CGLCylinder cylinder_{0.5, 1.0, true};
  lumagrid::Mesh mesh_ = lumagrid::MeshOf(cylinder_);
  geometry::Captured gl_ = Drawn(cylinder_);
  lumagrid::MeshPart& part() { return mesh_.parts.at(0); }
};

TEST_F(Comparison, AgreesOnTheRightMesh) {
  EXPECT_TRUE(geometry::MeshAgreesWithGL(mesh_, gl_));
}

TEST_F(Comparison, SeesAMovedVertex) {
  part().vertices.at(5).position.x() += 1e-4;
  EXPECT_FALSE(geometry::MeshAgreesWithGL(mesh_, gl_));
}

TEST_F(Comparison, SeesATurnedNormal) {
  lumagrid::MeshVertex& v = part().vertices.at(5);
  v.normal = vec3d(v.normal.x() * 0.99, v.normal.y() * 0.99, v.normal.z() + 0.1);
  EXPECT_FALSE(geometry::MeshAgreesWithGL(mesh_, gl_));
}

TEST_F(Comparison, SeesAFlippedTriangle) {
  std::swap(part().indices.at(30), part().indices.at(31));
  EXPECT_FALSE(geometry::MeshAgreesWithGL(mesh_, gl_));
}

TEST_F(Comparison, SeesAMissingTriangle) {
  part().indices.resize(part().indices.size() - 3);
  EXPECT_FALSE(geometry::MeshAgreesWithGL(mesh_, gl_));
}

}  // namespace
