// Every shape kind written as glTF and read back with tinygltf: each node's vertices, taken
// through the node's matrix, are the shape's mesh in the scene, to float precision.
#include <gtest/gtest.h>
#include <lumagrid/GltfExport.h>
#include <lumagrid/Mesh.h>
#include <lumagrid/SceneQuery.h>
#include <lumagrid/ShapeDescription.h>
#include <lumagrid/lumagrid.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "gallery_catalog.h"
#include "gallery_shapes.h"
#include "gltf_file.h"

namespace {

using lumagrid::Mesh;
using lumagrid::MeshPart;
using lumagrid::Primitive;
using lumagrid::SceneItem;

struct Point {
  double x, y, z;
};

// Column-major, as GL and glTF keep matrices.
Point Transformed(const double* m, double x, double y, double z, double w = 1.0) {
  return {m[0] * x + m[4] * y + m[8] * z + m[12] * w, m[1] * x + m[5] * y + m[9] * z + m[13] * w,
          m[2] * x + m[6] * y + m[10] * z + m[14] * w};
}

double Length(const Point& p) {
  return std::sqrt(p.x * p.x + p.y * p.y + p.z * p.z);
}

Point Unit(const Point& p) {
  const double l = Length(p);
  return {p.x / l, p.y / l, p.z / l};
}

// The direction a matrix gives a normal, up to length: its inverse transpose, which for the
// rotation-and-scale matrices a node carries is the matrix with each column divided by its
// squared length.
Point NormalThrough(const double* m, double x, double y, double z) {
  double inverseSquares[3];
  for (int c = 0; c < 3; ++c) {
    inverseSquares[c] =
        1.0 / (m[4 * c] * m[4 * c] + m[4 * c + 1] * m[4 * c + 1] + m[4 * c + 2] * m[4 * c + 2]);
  }
  return Unit(
      Transformed(m, x * inverseSquares[0], y * inverseSquares[1], z * inverseSquares[2], 0.0));
}

class GalleryScene {
 public:
  // Every cell of the gallery, built as the gallery builds it, in one scene.
  GalleryScene() {
    for (std::size_t entry = 0; entry < gallery::catalog().size(); ++entry) {
      const double x = static_cast<double>(entry % 6) * 3.0;
      const double y = static_cast<double>(entry / 6) * 3.0;
      for (gallery::PlacedShape& placed : gallery::buildShapes(entry, {x, y}, 1.0)) {
        scene.AddGLShape(placed.shape.release());
      }
    }
  }
  CGLScene scene;
};

std::vector<SceneItem> ShownWithGeometry(CGLScene& scene) {
  std::vector<SceneItem> items;
  for (const SceneItem& item : lumagrid::SceneItems(scene)) {
    if (item.shown && !lumagrid::MeshOf(*item.shape).parts.empty()) {
      items.push_back(item);
    }
  }
  return items;
}

// The node's primitives against the mesh's parts, primitive by primitive: the file keeps the
// mesh's order of primitives and leaves out only the vertices none of them uses.
void ExpectNodeIsTheMesh(const tinygltf::Model& model, const tinygltf::Node& node,
                         const SceneItem& item) {
  SCOPED_TRACE(node.name);
  const Mesh mesh = lumagrid::MeshOf(*item.shape);
  const double* world = static_cast<const double*>(item.world);
  double identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const double* nodeMatrix = node.matrix.empty() ? identity : node.matrix.data();
  const tinygltf::Mesh& gltfMesh = model.meshes[static_cast<std::size_t>(node.mesh)];
  ASSERT_EQ(gltfMesh.primitives.size(), mesh.parts.size());
  for (std::size_t p = 0; p < mesh.parts.size(); ++p) {
    const MeshPart& part = mesh.parts[p];
    const tinygltf::Primitive& primitive = gltfMesh.primitives[p];
    const bool lines = part.primitive == Primitive::Lines;
    EXPECT_EQ(primitive.mode, lines ? TINYGLTF_MODE_LINE : TINYGLTF_MODE_TRIANGLES);
    const std::vector<float> positions =
        gltftest::Floats(model, primitive.attributes.at("POSITION"));
    const std::vector<std::uint32_t> indices = gltftest::Indices(model, primitive.indices);
    ASSERT_EQ(indices.size(), part.indices.size());
    std::vector<float> normals;
    if (!lines) {
      normals = gltftest::Floats(model, primitive.attributes.at("NORMAL"));
    } else {
      EXPECT_EQ(primitive.attributes.count("NORMAL"), 0u);
    }
    double worst = 0.0;
    double worstNormal = 1.0;
    for (std::size_t k = 0; k < indices.size(); ++k) {
      const std::size_t f = 3 * indices[k];
      const lumagrid::MeshVertex& v = part.vertices[part.indices[k]];
      const Point expected = Transformed(world, v.position.x(), v.position.y(), v.position.z());
      const Point got = Transformed(nodeMatrix, positions[f], positions[f + 1], positions[f + 2]);
      const Point d{got.x - expected.x, got.y - expected.y, got.z - expected.z};
      // A float keeps 24 bits: the vertex in its own frame is off by 2^-24 of its size at most,
      // and the node's matrix carries that into the scene.
      worst = std::max(worst, Length(d) / std::max(1.0, Length(expected)));
      if (!lines) {
        const Point n = NormalThrough(world, v.normal.x(), v.normal.y(), v.normal.z());
        const Point m = NormalThrough(nodeMatrix, normals[f], normals[f + 1], normals[f + 2]);
        worstNormal = std::min(worstNormal, n.x * m.x + n.y * m.y + n.z * m.z);
      }
    }
    EXPECT_LT(worst, 1e-6);
    EXPECT_GT(worstNormal, 1.0 - 1e-9);
  }
}

class GltfRoundTrip : public ::testing::TestWithParam<bool> {};

TEST_P(GltfRoundTrip, EveryNodeIsItsShapesMeshThroughItsMatrix) {
  GalleryScene gallery;
  const std::string folder = gltftest::ScratchFolder(GetParam() ? "glb" : "gltf");
  const std::string path = folder + (GetParam() ? "/scene.glb" : "/scene.gltf");
  lumagrid::GltfOptions options;
  options.binary = GetParam();
  std::string error;
  ASSERT_TRUE(lumagrid::WriteGltf(gallery.scene, path, options, &error)) << error;

  tinygltf::Model model;
  ASSERT_TRUE(gltftest::Load(path, &model, &error)) << error;
  const std::vector<SceneItem> items = ShownWithGeometry(gallery.scene);
  ASSERT_EQ(model.nodes.size(), items.size());
  ASSERT_EQ(model.scenes.size(), 1u);
  EXPECT_EQ(model.scenes[0].nodes.size(), items.size());
  std::vector<std::string> kinds;
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(model.nodes[i].name, lumagrid::DescribeShape(*items[i].shape));
    ExpectNodeIsTheMesh(model, model.nodes[i], items[i]);
    kinds.push_back(model.nodes[i].name.substr(0, model.nodes[i].name.find(' ')));
  }
  // Every kind of shape the library draws went through the file.
  for (const char* kind : {"CGLSphere", "CGLCylinder", "CGLCone", "CGLTorus", "CGLArrow", "CGLBox",
                           "CGLPolyline", "CGLBelt", "CGLSpring"}) {
    EXPECT_NE(std::find(kinds.begin(), kinds.end(), kind), kinds.end()) << kind;
  }
  std::filesystem::remove_all(folder);
}

INSTANTIATE_TEST_SUITE_P(BinaryAndText, GltfRoundTrip, ::testing::Bool(),
                         [](const ::testing::TestParamInfo<bool>& info) {
                           return info.param ? "Glb" : "Gltf";
                         });

}  // namespace
