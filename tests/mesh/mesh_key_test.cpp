// A shape's mesh key: equal keys for equal meshes, a new key for every change that changes the
// mesh, the same key for the changes that do not.
#include <gtest/gtest.h>
#include <lumagrid/Mesh.h>
#include <lumagrid/lumagrid.h>

#include <GL/gle.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "recorded/RecordedTest.h"

namespace {

using lumagrid::MeshKey;

class MeshKeyOf : public RecordedTest {};

bool SameMesh(const lumagrid::Mesh& a, const lumagrid::Mesh& b) {
  if (a.parts.size() != b.parts.size()) {
    return false;
  }
  for (std::size_t p = 0; p < a.parts.size(); ++p) {
    const lumagrid::MeshPart& x = a.parts[p];
    const lumagrid::MeshPart& y = b.parts[p];
    if (x.primitive != y.primitive || x.indices != y.indices ||
        x.vertices.size() != y.vertices.size()) {
      return false;
    }
    for (std::size_t i = 0; i < x.vertices.size(); ++i) {
      if (!(x.vertices[i].position == y.vertices[i].position) ||
          !(x.vertices[i].normal == y.vertices[i].normal)) {
        return false;
      }
    }
  }
  return true;
}

// Two of each kind, built alike.
std::vector<std::function<CGLObject*()>> Makers() {
  return {
      [] { return new CGLSphere(0.7); },
      [] { return new CGLCylinder(0.5, 1.5, true); },
      [] { return new CGLCone(0.75, 0.2, 1.6, false); },
      [] { return new CGLArrow(1.5, 0.2, false, 2, 0.8, 0.4); },
      [] { return new CGLAxis(1.1, 0.12, false); },
      [] { return new CGLTorus(0.25, 0.8, 0.0, 270.0); },
      [] {
        auto* line = new CGLPolyline;
        line->AddVertex(0.0, 0.0, 0.0);
        line->AddVertex(1.0, 2.0, 3.0);
        return line;
      },
      [] { return new CGLBelt(0.6, 0.35, 1.45); },
      [] { return new CGLSpring(0.06, 0.5, 1.0, 1.9, 5, 0.0); },
  };
}

TEST_F(MeshKeyOf, ShapesBuiltAlikeHaveOneKeyAndOneMesh) {
  for (const auto& make : Makers()) {
    std::unique_ptr<CGLObject> a(make());
    std::unique_ptr<CGLObject> b(make());
    const std::string key = MeshKey(*a);
    EXPECT_FALSE(key.empty());
    EXPECT_EQ(MeshKey(*b), key);
    EXPECT_TRUE(SameMesh(lumagrid::MeshOf(*a), lumagrid::MeshOf(*b)));
  }
}

TEST_F(MeshKeyOf, KindsDiffer) {
  std::vector<std::string> keys;
  for (const auto& make : Makers()) {
    std::unique_ptr<CGLObject> shape(make());
    keys.push_back(MeshKey(*shape));
  }
  for (std::size_t i = 0; i < keys.size(); ++i) {
    for (std::size_t j = i + 1; j < keys.size(); ++j) {
      EXPECT_NE(keys[i], keys[j]) << i << ' ' << j;
    }
  }
}

TEST_F(MeshKeyOf, ColourSelectionVisibilityAndMatrixLeaveItAlone) {
  CGLSphere sphere(0.7);
  const std::string key = MeshKey(sphere);
  sphere.ColorSet(0xFFul);
  sphere.AlphaSet(0.3);
  sphere.Select(true);
  sphere.SetVisible(false);
  sphere.Move(1.0, 2.0, 3.0);
  sphere.Scale(2.0);
  EXPECT_EQ(MeshKey(sphere), key);
}

TEST_F(MeshKeyOf, EveryGeometryChangeGivesANewKey) {
  CGLArrow arrow(1.5, 0.2, false, 2, 0.8, 0.4);
  std::string key = MeshKey(arrow);
  auto changed = [&key](CGLObject& shape) {
    const std::string now = MeshKey(shape);
    const bool differs = now != key;
    key = now;
    return differs;
  };
  arrow.SetLength(2.0);
  EXPECT_TRUE(changed(arrow));
  arrow.SetRadius(0.3);
  EXPECT_TRUE(changed(arrow));
  arrow.SetLite(true);
  EXPECT_TRUE(changed(arrow));
  arrow.SetArrowNum(3);
  EXPECT_TRUE(changed(arrow));
  arrow.SetFracLength(0.5);
  EXPECT_TRUE(changed(arrow));
  arrow.SetFracRadius(0.6);
  EXPECT_TRUE(changed(arrow));

  CGLBelt belt(0.6, 0.35, 1.45);
  key = MeshKey(belt);
  belt.SetBType(4);
  EXPECT_TRUE(changed(belt));
  belt.SetEntraxe(2.0);
  EXPECT_TRUE(changed(belt));
  belt.SetQuality(30);
  EXPECT_TRUE(changed(belt));

  CGLPolyline line;
  line.AddVertex(0.0, 0.0, 0.0);
  key = MeshKey(line);
  line.AddVertex(1.0, 0.0, 0.0);
  EXPECT_TRUE(changed(line));

  CGLSpring spring(0.06, 0.5, 1.0, 1.9, 5, 0.0);
  key = MeshKey(spring);
  spring.SetType(1);
  EXPECT_TRUE(changed(spring));
  spring.SetType2(9);
  EXPECT_TRUE(changed(spring));
  spring.SetShadedMode(0);
  EXPECT_TRUE(changed(spring));
}

TEST_F(MeshKeyOf, TessellationAndGLESettingsArePartOfIt) {
  const int slices = CGLObject::s_nSlices4New;
  CGLSphere coarse(1.0);
  CGLObject::s_nSlices4New = slices + 1;
  CGLSphere fine(1.0);
  CGLObject::s_nSlices4New = slices;
  EXPECT_NE(MeshKey(coarse), MeshKey(fine));

  CGLTorus torus(0.25, 0.8, 0.0, 360.0);
  const std::string key = MeshKey(torus);
  const int sides = gleGetNumSides();
  gleSetNumSides(sides + 4);
  EXPECT_NE(MeshKey(torus), key);
  gleSetNumSides(sides);
  EXPECT_EQ(MeshKey(torus), key);
}

TEST_F(MeshKeyOf, AGroupsKeyFollowsItsVisibleMembersAndTheirMatrices) {
  CGLGroup group;
  auto* member = new CGLSphere(0.5);
  group.Add(member);
  const std::string key = MeshKey(group);
  member->Move(1.0, 0.0, 0.0);
  const std::string moved = MeshKey(group);
  EXPECT_NE(moved, key);
  member->SetVisible(false);
  EXPECT_NE(MeshKey(group), moved);
  EXPECT_TRUE(lumagrid::MeshOf(group).parts.empty());
}

TEST_F(MeshKeyOf, IsEmptyForAClassTheLibraryDoesNotKnowAndMakesNoDrawingCall) {
  struct HostSphere : CGLSphere {};
  HostSphere host;
  EXPECT_TRUE(MeshKey(host).empty());
  glrecorder::recorder().clearCalls();
  for (const auto& make : Makers()) {
    std::unique_ptr<CGLObject> shape(make());
    glrecorder::recorder().clearCalls();
    (void)MeshKey(*shape);
    for (const std::string& call : glrecorder::recorder().log()) {
      EXPECT_EQ(call.rfind("gleGetNumSides", 0), 0u) << call;
    }
  }
}

}  // namespace
