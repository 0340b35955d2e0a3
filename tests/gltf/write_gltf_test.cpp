// What the export writes for each kind of state, and what it does with bad input.
#include <gtest/gtest.h>
#include <lumagrid/GltfExport.h>
#include <lumagrid/lumagrid.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include "gltf_file.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Xyz {
  double x, y, z;
};

// A polyline through the points, made on the heap for a scene to own.
CGLPolyline* Polyline(std::initializer_list<Xyz> points) {
  auto* line = new CGLPolyline;
  for (const Xyz& p : points) {
    line->AddVertex(p.x, p.y, p.z);
  }
  return line;
}

class WriteGltf : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ =
        gltftest::ScratchFolder(::testing::UnitTest::GetInstance()->current_test_info()->name());
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string Path(const std::string& name) const { return folder_ + "/" + name; }

  // Writes the scene and reads it back; fails the test when either goes wrong.
  tinygltf::Model RoundTrip(const lumagrid::GltfOptions& options = {}) {
    const std::string path = Path(options.binary ? "scene.glb" : "scene.gltf");
    std::string error;
    EXPECT_TRUE(lumagrid::WriteGltf(scene_, path, options, &error)) << error;
    tinygltf::Model model;
    EXPECT_TRUE(gltftest::Load(path, &model, &error)) << error;
    return model;
  }

  // The material of the node's first primitive.
  static const tinygltf::Material& MaterialOf(const tinygltf::Model& model, std::size_t node) {
    const tinygltf::Mesh& mesh = model.meshes[static_cast<std::size_t>(model.nodes[node].mesh)];
    return model.materials[static_cast<std::size_t>(mesh.primitives[0].material)];
  }

  static const tinygltf::Primitive& PrimitiveOf(const tinygltf::Model& model, std::size_t node) {
    return model.meshes[static_cast<std::size_t>(model.nodes[node].mesh)].primitives[0];
  }

  // Expects a failure that says `reason` and leaves the folder as it was.
  void ExpectFails(CGLScene& scene, const std::string& path, const std::string& reason) {
    const std::vector<std::string> before = gltftest::Listing(folder_);
    std::string error;
    EXPECT_FALSE(lumagrid::WriteGltf(scene, path, {}, &error));
    EXPECT_NE(error.find(reason), std::string::npos) << error;
    EXPECT_EQ(gltftest::Listing(folder_), before);
  }

  std::string folder_;
  CGLScene scene_;
};

TEST_F(WriteGltf, LeavesOutHiddenShapesAndTheMembersOfHiddenGroups) {
  auto* shown = new CGLSphere(1.0);
  auto* hidden = new CGLSphere(2.0);
  auto* group = new CGLGroup;
  group->Add(new CGLSphere(3.0));
  hidden->SetVisible(false);
  group->SetVisible(false);
  scene_.AddGLShape(shown);
  scene_.AddGLShape(hidden);
  scene_.AddGLShape(group);
  const tinygltf::Model model = RoundTrip();
  ASSERT_EQ(model.nodes.size(), 1u);
  EXPECT_EQ(model.nodes[0].name, "CGLSphere radius 1");
}

TEST_F(WriteGltf, ASelectedShapeTakesItsHighlightColourUnlessToldOtherwise) {
  auto* sphere = new CGLSphere(1.0);
  sphere->ColorSet(0.25, 0.5, 0.75, 1.0);
  sphere->HLColorSet(1.0, 0.0, 0.0, 0.5);
  sphere->Select(true);
  scene_.AddGLShape(sphere);
  tinygltf::Model model = RoundTrip();
  EXPECT_EQ(MaterialOf(model, 0).pbrMetallicRoughness.baseColorFactor,
            (std::vector<double>{1.0, 0.0, 0.0, 0.5}));
  lumagrid::GltfOptions plain;
  plain.highlightSelected = false;
  model = RoundTrip(plain);
  EXPECT_EQ(MaterialOf(model, 0).pbrMetallicRoughness.baseColorFactor,
            (std::vector<double>{0.25, 0.5, 0.75, 1.0}));
}

TEST_F(WriteGltf, TranslucentShapesBlendAndOpaqueOnesDoNot) {
  auto* glass = new CGLSphere(1.0);
  glass->AlphaSet(0.5);
  scene_.AddGLShape(glass);
  scene_.AddGLShape(new CGLSphere(2.0));
  const tinygltf::Model model = RoundTrip();
  ASSERT_EQ(model.nodes.size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    const tinygltf::Material& material = MaterialOf(model, i);
    const bool translucent = model.nodes[i].name.find("alpha") != std::string::npos;
    EXPECT_EQ(material.alphaMode, translucent ? "BLEND" : "OPAQUE");
    EXPECT_EQ(material.pbrMetallicRoughness.baseColorFactor[3], translucent ? 0.5 : 1.0);
    EXPECT_FALSE(material.doubleSided);
    EXPECT_EQ(material.pbrMetallicRoughness.metallicFactor, 0.0);
  }
}

TEST_F(WriteGltf, ColoursOutsideTheUnitRangeAreClamped) {
  auto* sphere = new CGLSphere(1.0);
  sphere->ColorSet(-0.5, 2.0, 0.5, 1.0);
  scene_.AddGLShape(sphere);
  const tinygltf::Model model = RoundTrip();
  EXPECT_EQ(MaterialOf(model, 0).pbrMetallicRoughness.baseColorFactor,
            (std::vector<double>{0.0, 1.0, 0.5, 1.0}));
}

TEST_F(WriteGltf, LineShapesAreUnlitLinesWithoutNormals) {
  auto* line = Polyline({{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {1.0, 1.0, 0.0}});
  scene_.AddGLShape(line);
  const tinygltf::Model model = RoundTrip();
  const tinygltf::Primitive& primitive = PrimitiveOf(model, 0);
  EXPECT_EQ(primitive.mode, TINYGLTF_MODE_LINE);
  EXPECT_EQ(primitive.attributes.count("NORMAL"), 0u);
  EXPECT_EQ(gltftest::Indices(model, primitive.indices), (std::vector<std::uint32_t>{0, 1, 1, 2}));
  EXPECT_EQ(MaterialOf(model, 0).extensions.count("KHR_materials_unlit"), 1u);
  EXPECT_EQ(model.extensionsUsed, (std::vector<std::string>{"KHR_materials_unlit"}));
}

TEST_F(WriteGltf, ShapesOfOneGeometryShareAMeshOrTheirAccessors) {
  for (int i = 0; i < 3; ++i) {
    auto* sphere = new CGLSphere(1.0);
    sphere->Move(3.0 * i, 0.0, 0.0);
    sphere->ColorSet(i == 2 ? 0xFFul : 0xFF00ul);
    scene_.AddGLShape(sphere);
  }
  scene_.AddGLShape(new CGLSphere(2.0));
  const tinygltf::Model model = RoundTrip();
  ASSERT_EQ(model.nodes.size(), 4u);
  // Two greens share a mesh; the red one has a mesh of its own over the same accessors.
  std::vector<int> meshes;
  std::vector<int> positions;
  std::vector<std::string> names;
  for (const tinygltf::Node& node : model.nodes) {
    meshes.push_back(node.mesh);
    positions.push_back(
        model.meshes[static_cast<std::size_t>(node.mesh)].primitives[0].attributes.at("POSITION"));
  }
  std::sort(meshes.begin(), meshes.end());
  EXPECT_EQ(std::unique(meshes.begin(), meshes.end()) - meshes.begin(), 3);
  std::sort(positions.begin(), positions.end());
  EXPECT_EQ(std::unique(positions.begin(), positions.end()) - positions.begin(), 2);
  EXPECT_EQ(model.meshes.size(), 3u);
}

TEST_F(WriteGltf, IndicesTakeTheSmallestTypeThatHoldsThem) {
  // A 4x2 sphere has fewer than 255 vertices and the default 128x8 fewer than 65535; a
  // cylinder of 200 slices and 400 stacks more (GLU makes no more than 240 slices or stacks of a
  // sphere).
  const int slices = CGLObject::s_nSlices4New;
  const int stacks = CGLObject::s_nStacks4New;
  CGLObject::s_nSlices4New = 4;
  CGLObject::s_nStacks4New = 2;
  scene_.AddGLShape(new CGLSphere(1.0));
  CGLObject::s_nSlices4New = 200;
  CGLObject::s_nStacks4New = 400;
  scene_.AddGLShape(new CGLCylinder(1.0, 1.0, false));
  CGLObject::s_nSlices4New = slices;
  CGLObject::s_nStacks4New = stacks;
  scene_.AddGLShape(new CGLSphere(1.0));
  const tinygltf::Model model = RoundTrip();
  std::vector<int> types;
  for (std::size_t i = 0; i < model.nodes.size(); ++i) {
    const tinygltf::Accessor& indices =
        model.accessors[static_cast<std::size_t>(PrimitiveOf(model, i).indices)];
    const std::size_t vertices =
        model.accessors[static_cast<std::size_t>(PrimitiveOf(model, i).attributes.at("POSITION"))]
            .count;
    types.push_back(indices.componentType);
    const int expected = vertices < 255     ? TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE
                         : vertices < 65535 ? TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT
                                            : TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT;
    EXPECT_EQ(indices.componentType, expected) << vertices;
  }
  std::sort(types.begin(), types.end());
  EXPECT_EQ(types, (std::vector<int>{TINYGLTF_COMPONENT_TYPE_UNSIGNED_BYTE,
                                     TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT,
                                     TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT}));
}

TEST_F(WriteGltf, PositionBoundsAreTheFloatsWritten) {
  auto* cylinder = new CGLCylinder(0.5, 2.0, true);
  scene_.AddGLShape(cylinder);
  const tinygltf::Model model = RoundTrip();
  for (const tinygltf::Accessor& accessor : model.accessors) {
    if (accessor.componentType != TINYGLTF_COMPONENT_TYPE_FLOAT) {
      continue;
    }
    const int index = static_cast<int>(&accessor - model.accessors.data());
    const std::vector<float> values = gltftest::Floats(model, index);
    ASSERT_EQ(accessor.minValues.size(), 3u);
    for (std::size_t c = 0; c < 3; ++c) {
      float lo = values[c];
      float hi = values[c];
      for (std::size_t i = c; i < values.size(); i += 3) {
        lo = std::min(lo, values[i]);
        hi = std::max(hi, values[i]);
      }
      EXPECT_EQ(accessor.minValues[c], lo);
      EXPECT_EQ(accessor.maxValues[c], hi);
    }
  }
}

TEST_F(WriteGltf, AShearIsAppliedToTheVerticesAndTheNodeHasNoMatrix) {
  // A group stretched along x around a member turned 45 degrees: the member's world matrix
  // shears, which a node's matrix may not.
  auto* group = new CGLGroup;
  auto* line = Polyline({{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}});
  line->RotateZ(3.14159265358979323846 / 4.0);
  group->Scale(2.0, 1.0, 1.0);
  group->Add(line);
  scene_.AddGLShape(group);
  auto* moved = Polyline({{0.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 2.0, 0.0}});
  moved->Move(5.0, 0.0, 0.0);
  scene_.AddGLShape(moved);
  const tinygltf::Model model = RoundTrip();
  ASSERT_EQ(model.nodes.size(), 2u);
  // The scene draws in an order of its own: tell the two apart by their names.
  const bool shearedFirst = model.nodes[0].name == "CGLPolyline vertices 2";
  const std::size_t shearedNode = shearedFirst ? 0 : 1;
  const std::size_t movedNode = shearedFirst ? 1 : 0;
  EXPECT_EQ(model.nodes[movedNode].name, "CGLPolyline vertices 3");
  EXPECT_TRUE(model.nodes[shearedNode].matrix.empty());
  const std::vector<float> sheared =
      gltftest::Floats(model, PrimitiveOf(model, shearedNode).attributes.at("POSITION"));
  ASSERT_EQ(sheared.size(), 6u);
  const float half = static_cast<float>(std::sqrt(0.5));
  EXPECT_FLOAT_EQ(sheared[3], 2.0f * half);
  EXPECT_FLOAT_EQ(sheared[4], half);
  // A plain move stays in the node.
  EXPECT_EQ(model.nodes[movedNode].matrix.size(), 16u);
}

TEST_F(WriteGltf, WritesNothingButTheFile) {
  scene_.AddGLShape(new CGLSphere(1.0));
  std::string error;
  ASSERT_TRUE(lumagrid::WriteGltf(scene_, Path("a.glb"), {}, &error)) << error;
  EXPECT_EQ(gltftest::Listing(folder_), (std::vector<std::string>{"a.glb"}));
  EXPECT_EQ(gltftest::Contents(Path("a.glb")).substr(0, 4), "glTF");
  lumagrid::GltfOptions text;
  text.binary = false;
  ASSERT_TRUE(lumagrid::WriteGltf(scene_, Path("a.glb"), text, &error)) << error;
  EXPECT_EQ(gltftest::Contents(Path("a.glb")).substr(0, 1), "{");  // the extension is not read
}

// Bad input: false, a reason, no file and nothing else left behind.

TEST_F(WriteGltf, FailsOnAnEmptyPath) {
  scene_.AddGLShape(new CGLSphere(1.0));
  ExpectFails(scene_, "", "no file name given");
}

TEST_F(WriteGltf, FailsWhereNoFileCanBeWritten) {
  scene_.AddGLShape(new CGLSphere(1.0));
  ExpectFails(scene_, Path("missing/scene.glb"), "cannot write " + Path("missing/scene.glb"));
  std::filesystem::create_directory(Path("folder"));
  ExpectFails(scene_, Path("folder"), "cannot write " + Path("folder"));
}

TEST_F(WriteGltf, FailsOnAnEmptySceneOrOneThatShowsNothing) {
  ExpectFails(scene_, Path("empty.glb"), "the scene shows no shape with geometry");
  auto* hidden = new CGLSphere(1.0);
  hidden->SetVisible(false);
  scene_.AddGLShape(hidden);
  scene_.AddGLShape(new CGLPolyline);  // no vertex, no geometry
  ExpectFails(scene_, Path("empty.glb"), "the scene shows no shape with geometry");
  scene_.ShowGLShape(hidden, 1);
  scene_.ShowGLShapes(0);
  ExpectFails(scene_, Path("empty.glb"), "the scene shows no shape with geometry");
}

TEST_F(WriteGltf, FailsOnANonFiniteMatrixNamingTheShape) {
  auto* sphere = new CGLSphere(1.0);
  sphere->Move(kNaN, 0.0, 0.0);
  scene_.AddGLShape(sphere);
  ExpectFails(scene_, Path("nan.glb"), "the world matrix of \"CGLSphere radius 1\" is not finite");
}

TEST_F(WriteGltf, FailsOnAMatrixBeyondAFloatsRange) {
  auto* sphere = new CGLSphere(1.0);
  sphere->Move(1e39, 0.0, 0.0);
  scene_.AddGLShape(sphere);
  ExpectFails(scene_, Path("huge.glb"),
              "the world matrix of \"CGLSphere radius 1\" is not finite in single precision");
}

TEST_F(WriteGltf, LeavesOutSegmentsBeyondAFloatsRange) {
  auto* line = Polyline({{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {1e39, 0.0, 0.0}});
  scene_.AddGLShape(line);
  const tinygltf::Model model = RoundTrip();
  EXPECT_EQ(gltftest::Indices(model, PrimitiveOf(model, 0).indices),
            (std::vector<std::uint32_t>{0, 1}));
  // With nothing else to show, nothing is left to write.
  CGLScene far;
  auto* alone = Polyline({{0.0, 0.0, 0.0}, {1e39, 0.0, 0.0}});
  far.AddGLShape(alone);
  ExpectFails(far, Path("far.glb"), "the scene shows no shape with finite geometry");
}

TEST_F(WriteGltf, FailsOnANonFiniteColour) {
  auto* sphere = new CGLSphere(1.0);
  sphere->ColorSet(kNaN, 0.0, 0.0, 1.0);
  scene_.AddGLShape(sphere);
  ExpectFails(scene_, Path("nan.glb"), "the colour of \"CGLSphere radius 1\" is not finite");
}

TEST_F(WriteGltf, AShapeOfNonFiniteSizeHasNoGeometryToWrite) {
  // Its mesh is empty, as GL would draw nothing of it; alone it leaves nothing to write.
  scene_.AddGLShape(new CGLSphere(kNaN));
  ExpectFails(scene_, Path("nan.glb"), "the scene shows no shape with geometry");
  scene_.AddGLShape(new CGLSphere(1.0));
  EXPECT_EQ(RoundTrip().nodes.size(), 1u);
}

TEST_F(WriteGltf, FailsOnANullSceneInTheList) {
  scene_.AddGLShape(new CGLSphere(1.0));
  std::string error;
  EXPECT_FALSE(lumagrid::WriteGltf({&scene_, nullptr}, Path("two.glb"), {}, &error));
  EXPECT_EQ(error, "scene 1 of the list is null");
  EXPECT_TRUE(gltftest::Listing(folder_).empty());
}

TEST_F(WriteGltf, AFailureLeavesAnEarlierFileAsItWas) {
  {
    std::ofstream earlier(Path("kept.glb"));
    earlier << "earlier";
  }
  ExpectFails(scene_, Path("kept.glb"), "the scene shows no shape with geometry");
  EXPECT_EQ(gltftest::Contents(Path("kept.glb")), "earlier");
}

TEST_F(WriteGltf, NeedsNoPlaceForTheReason) {
  EXPECT_FALSE(lumagrid::WriteGltf(scene_, Path("x.glb")));
  EXPECT_TRUE(gltftest::Listing(folder_).empty());
}

TEST_F(WriteGltf, WritesSeveralScenesInTheirOrder) {
  CGLScene second;
  scene_.AddGLShape(new CGLSphere(1.0));
  second.AddGLShape(new CGLSphere(2.0));
  std::string error;
  ASSERT_TRUE(lumagrid::WriteGltf({&second, &scene_}, Path("two.glb"), {}, &error)) << error;
  tinygltf::Model model;
  ASSERT_TRUE(gltftest::Load(Path("two.glb"), &model, &error)) << error;
  ASSERT_EQ(model.nodes.size(), 2u);
  EXPECT_EQ(model.nodes[0].name, "CGLSphere radius 2");
  EXPECT_EQ(model.nodes[1].name, "CGLSphere radius 1");
}

}  // namespace
