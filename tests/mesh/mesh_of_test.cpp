// MeshOf's promises that need no real GLU or GLE: it only reads, it knows the library's own
// classes only, and it assembles groups as a group draws them. Exactness against the real
// libraries is proved in mesh_of_proof_test.cpp.
#include <GL/gle.h>
#include <gtest/gtest.h>
#include <lumagrid/Mesh.h>
#include <lumagrid/lumagrid.h>
#include <lumagrid/testing/GLRecorder.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "mesh/shape_fields.h"
#include "recorded/RecordedTest.h"
#include "shapes/path/belt_outline.h"

namespace {

using lumagrid::Mesh;
using lumagrid::MeshOf;
using lumagrid::MeshPart;
using lumagrid::Primitive;

std::size_t Count(const Mesh& mesh, Primitive primitive) {
  std::size_t n = 0;
  for (const MeshPart& part : mesh.parts) {
    if (part.primitive == primitive) {
      n += part.indices.size() / (primitive == Primitive::Triangles ? 3 : 2);
    }
  }
  return n;
}

std::size_t Triangles(const Mesh& mesh) {
  return Count(mesh, Primitive::Triangles);
}

std::size_t Segments(const Mesh& mesh) {
  return Count(mesh, Primitive::Lines);
}

class MeshOfShape : public RecordedTest {};

std::vector<std::unique_ptr<CGLObject>> EveryKind() {
  std::vector<std::unique_ptr<CGLObject>> shapes;
  shapes.emplace_back(new CGLSphere(0.5));
  shapes.emplace_back(new CGLCylinder(0.5, 1.0, true));
  shapes.emplace_back(new CGLCone(0.5, 1.0, true));
  shapes.emplace_back(new CGLTorus());
  shapes.emplace_back(new CGLArrow());
  shapes.emplace_back(new CGLAxis());
  auto* polyline = new CGLPolyline;
  polyline->AddVertex(0.0, 0.0, 0.0);
  polyline->AddVertex(1.0, 0.0, 0.0);
  shapes.emplace_back(polyline);
  shapes.emplace_back(new CGLBelt(1.0, 0.5, 3.0));
  shapes.emplace_back(new CGLSpring());
  auto* tension = new CGLSpring();
  tension->SetType(1);
  shapes.emplace_back(tension);
  return shapes;
}

TEST_F(MeshOfShape, MakesNoGLGLUOrGLECallButAskingGLEForItsSides) {
  const auto shapes = EveryKind();
  glrecorder::recorder().clearCalls();
  for (const auto& shape : shapes) {
    (void)MeshOf(*shape);
  }
  for (const std::string& call : glrecorder::recorder().log()) {
    EXPECT_EQ(call.rfind("gleGetNumSides", 0), 0u) << call;
  }
}

TEST_F(MeshOfShape, LeavesTheListAsBuilt) {
  // Built once, then only called: MeshOf between two draws neither marks nor rebuilds.
  for (const auto& shape : EveryKind()) {
    if (dynamic_cast<CGLGroup*>(shape.get()) != nullptr) {
      continue;  // a group builds no list of its own
    }
    shape->Draw();
    const std::size_t compiled = glrecorder::recorder().count("glNewList");
    (void)MeshOf(*shape);
    shape->Draw();
    EXPECT_EQ(glrecorder::recorder().count("glNewList"), compiled) << typeid(*shape).name();
  }
}

TEST_F(MeshOfShape, AShapeNotYetDrawnStaysMarkedForItsFirstBuild) {
  CGLSphere sphere(1.0);
  (void)MeshOf(sphere);
  sphere.Draw();
  EXPECT_EQ(glrecorder::recorder().count("glNewList"), 1u);
}

struct HostSphere : CGLSphere {
  HostSphere() : CGLSphere(1.0) {}
};

struct HostShape : CGLObject {};

TEST_F(MeshOfShape, AHostsOwnSubclassGivesAnEmptyMesh) {
  HostSphere sphere;
  HostShape shape;
  EXPECT_TRUE(MeshOf(sphere).parts.empty());
  EXPECT_TRUE(MeshOf(shape).parts.empty());
}

TEST_F(MeshOfShape, ASphereIsGLUsFansAndStrips) {
  CGLObject::s_nSlices4New = 12;
  CGLObject::s_nStacks4New = 5;
  CGLSphere sphere(2.0);
  const Mesh mesh = MeshOf(sphere);
  ASSERT_EQ(mesh.parts.size(), 1u);
  EXPECT_EQ(Triangles(mesh), 2u * 12u * 4u);  // two polar fans, three strips of quads
  for (const lumagrid::MeshVertex& v : mesh.parts[0].vertices) {
    EXPECT_NEAR(v.position.length(), 2.0, 1e-6);
  }
}

TEST_F(MeshOfShape, AClosedCylinderAddsTwoDisksAndAnOpenOneNone) {
  CGLObject::s_nSlices4New = 10;
  CGLObject::s_nStacks4New = 3;
  CGLCylinder closed(0.5, 2.0, true);
  CGLCylinder open(0.5, 2.0, false);
  EXPECT_EQ(Triangles(MeshOf(open)), 2u * 10u * 3u);
  EXPECT_EQ(Triangles(MeshOf(closed)), 2u * 10u * 3u + 2u * 10u);
}

TEST_F(MeshOfShape, ALiteArrowsShaftIsOneSegmentEndingInFloat) {
  CGLArrow arrow(1.0, 0.2, true, 1, 0.7, 0.4);
  const Mesh mesh = MeshOf(arrow);
  ASSERT_EQ(Segments(mesh), 1u);
  const lumagrid::MeshPart* lines = nullptr;
  for (const MeshPart& part : mesh.parts) {
    if (part.primitive == Primitive::Lines) {
      lines = &part;
    }
  }
  ASSERT_NE(lines, nullptr);
  EXPECT_EQ(lines->vertices[1].position.z(), static_cast<double>(0.7f));
  EXPECT_EQ(lines->vertices[1].normal.length(), 0.0);
}

TEST_F(MeshOfShape, APolylineIsOneSegmentFewerThanItsPoints) {
  CGLPolyline polyline;
  EXPECT_TRUE(MeshOf(polyline).parts.empty());
  polyline.AddVertex(0.0, 0.0, 0.0);
  EXPECT_TRUE(MeshOf(polyline).parts.empty());
  polyline.AddVertex(1.0, 2.0, 3.0);
  polyline.AddVertex(-1.0, 0.5, 0.0);
  const Mesh mesh = MeshOf(polyline);
  EXPECT_EQ(Segments(mesh), 2u);
  EXPECT_EQ(mesh.parts.at(0).vertices.at(1).position.y(), 2.0);
}

// The belt's own point list, which only a build of its list fills.
struct BeltPoints : CGLBelt {
  static const std::vector<CGLPoint*>& Of(const CGLBelt& b) { return b.*(&BeltPoints::m_aVertex); }
};

TEST_F(MeshOfShape, ABeltIsItsOutlineWithoutTouchingItsOwnPoints) {
  CGLBelt belt(1.0, 0.5, 3.0);
  const std::size_t points =
      lumagrid::detail::BuildBeltOutline(1.0, 0.5, 3.0, 20, lumagrid::detail::kFullBelt).size();
  ASSERT_GT(points, 2u);
  EXPECT_EQ(Segments(MeshOf(belt)), points - 1);
  EXPECT_TRUE(BeltPoints::Of(belt).empty());
}

TEST_F(MeshOfShape, SchematicSpringsAreLinesOnly) {
  // Three turns: a compression zigzag of 2 * 3 + 1 points; a tension zigzag of 2 + 2 * 4 + 1
  // points, and hooks of 21 points each (0 to 200 and -20 to 180 degrees, every 10).
  const std::size_t segments[] = {6u, 10u + 20u + 20u};
  for (const unsigned type : {0u, 1u}) {
    CGLSpring spring;
    spring.SetType(type);
    spring.SetType2(8);
    const Mesh mesh = MeshOf(spring);
    EXPECT_EQ(Triangles(mesh), 0u);
    EXPECT_EQ(Segments(mesh), segments[type]);
  }
}

TEST_F(MeshOfShape, WireframeLinesKeepTheNormalsGLLightsThemWith) {
  CGLSpring wireframe;
  wireframe.SetShadedMode(0);
  CGLSpring schematic;
  schematic.SetType2(8);
  const double lengths[] = {1.0, 0.0};
  CGLSpring* springs[] = {&wireframe, &schematic};
  for (int i = 0; i < 2; ++i) {
    const Mesh mesh = MeshOf(*springs[i]);
    ASSERT_GT(Segments(mesh), 0u);
    for (const MeshPart& part : mesh.parts) {
      if (part.primitive != Primitive::Lines) {
        continue;
      }
      for (const lumagrid::MeshVertex& v : part.vertices) {
        const double length = std::sqrt(v.normal.x() * v.normal.x() + v.normal.y() * v.normal.y() +
                                        v.normal.z() * v.normal.z());
        ASSERT_NEAR(length, lengths[i], 1e-12) << (i == 0 ? "wireframe" : "schematic");
      }
    }
  }
}

TEST_F(MeshOfShape, ASpringOfNoKnownTypeIsEmpty) {
  CGLSpring spring;
  spring.SetType(2);
  EXPECT_TRUE(MeshOf(spring).parts.empty());
}

// Every index names a vertex of its part and every position is finite.
bool WellFormed(const Mesh& mesh) {
  for (const MeshPart& part : mesh.parts) {
    const std::size_t corners = part.primitive == Primitive::Triangles ? 3 : 2;
    if (part.indices.size() % corners != 0) {
      return false;
    }
    for (const std::uint32_t i : part.indices) {
      if (i >= part.vertices.size()) {
        return false;
      }
      const vec3d& p = part.vertices[i].position;
      if (!std::isfinite(p.x()) || !std::isfinite(p.y()) || !std::isfinite(p.z())) {
        return false;
      }
    }
  }
  return true;
}

TEST_F(MeshOfShape, NonFiniteParametersGiveNoNonFiniteVertex) {
  const double nan = std::nan("");
  const double inf = HUGE_VAL;
  std::vector<std::unique_ptr<CGLObject>> shapes;
  shapes.emplace_back(new CGLSphere(nan));
  shapes.emplace_back(new CGLCylinder(inf, 1.0, true));
  shapes.emplace_back(new CGLCone(0.5, nan, 1.0, true));
  shapes.emplace_back(new CGLTorus(0.1, nan, 0.0, 360.0));
  shapes.emplace_back(new CGLTorus(0.1, 1.0, 0.0, inf));
  shapes.emplace_back(new CGLArrow(nan, 0.2, false, 3, 0.8, 0.4));
  shapes.emplace_back(new CGLBelt(nan, 1.0, 3.0));
  shapes.emplace_back(new CGLSpring(0.1, inf, 1.0, 5.0, 3, 0.0));
  shapes.emplace_back(new CGLSpring(0.1, 1.0, 1.0, nan, 3, 0.0));
  for (const auto& shape : shapes) {
    EXPECT_TRUE(WellFormed(MeshOf(*shape))) << typeid(*shape).name();
  }
  // What stays finite stays: the cone's base disk, without its side or top.
  CGLObject::s_nSlices4New = 10;
  CGLObject::s_nStacks4New = 1;
  CGLCone cone(0.5, nan, 1.0, true);
  EXPECT_EQ(Triangles(MeshOf(cone)), 10u);
  // An arrow of NaN length moves its heads off to NaN: only the shaft's base disk is left.
  CGLArrow arrow(nan, 0.2, false, 1, 0.8, 0.4);
  EXPECT_TRUE(WellFormed(MeshOf(arrow)));
  EXPECT_EQ(Triangles(MeshOf(arrow)), 10u);
}

TEST_F(MeshOfShape, AbsurdTessellationsAndTurnsStayBounded) {
  CGLObject::s_nSlices4New = 1 << 30;
  CGLObject::s_nStacks4New = 1 << 30;
  CGLSphere sphere(1.0);                 // GLU caps slices and stacks at 239
  CGLCylinder cylinder(1.0, 1.0, true);  // but not a cylinder's stacks: too many to mesh
  EXPECT_EQ(Triangles(MeshOf(sphere)), 2u * 239u * 238u);
  EXPECT_TRUE(MeshOf(cylinder).parts.empty() || WellFormed(MeshOf(cylinder)));
  CGLObject::s_nSlices4New = -5;
  CGLSphere none(1.0);
  EXPECT_TRUE(MeshOf(none).parts.empty());
  for (const int turns : {1 << 30, -(1 << 30), 0}) {
    for (const unsigned type : {0u, 1u}) {
      CGLSpring spring(0.1, 1.0, 1.0, 5.0, turns, 0.0);
      spring.SetType(type);
      EXPECT_TRUE(WellFormed(MeshOf(spring))) << turns << " turns, type " << type;
    }
  }
}

class MeshOfGroup : public RecordedTest {};

TEST_F(MeshOfGroup, GivesItsVisibleMembersThroughTheirMatrices) {
  CGLGroup group;
  auto* near = new CGLSphere(1.0);
  auto* far = new CGLSphere(1.0);
  auto* hidden = new CGLSphere(10.0);
  far->Move(5.0, 0.0, 0.0);
  hidden->SetVisible(false);
  group.Add(near);
  group.Add(far);
  group.Add(hidden);
  group.Move(0.0, 100.0, 0.0);  // the group's own matrix is not in its mesh
  double lo = HUGE_VAL, hi = -HUGE_VAL, y = 0.0;
  for (const MeshPart& part : MeshOf(group).parts) {
    for (const lumagrid::MeshVertex& v : part.vertices) {
      lo = std::min(lo, v.position.x());
      hi = std::max(hi, v.position.x());
      y = std::max(y, std::fabs(v.position.y()));
    }
  }
  EXPECT_NEAR(lo, -1.0, 1e-6);
  EXPECT_NEAR(hi, 6.0, 1e-6);
  EXPECT_LE(y, 1.0 + 1e-6);
}

TEST_F(MeshOfGroup, AnAxisTriadIsThreeArrowsAndACube) {
  CGLAxis axis(1.0, 0.1, false);
  CGLArrow one(1.0, 0.1, false, 1, 0.8, 0.4);
  CGLArrow two(1.0, 0.1, false, 2, 0.8, 0.4);
  CGLArrow three(1.0, 0.1, false, 3, 0.8, 0.4);
  EXPECT_EQ(Triangles(MeshOf(axis)),
            Triangles(MeshOf(one)) + Triangles(MeshOf(two)) + Triangles(MeshOf(three)) + 12u);
}

TEST_F(MeshOfGroup, AGroupInsideItselfIsNotEnteredAgain) {
  auto* group = new CGLGroup;
  group->Add(new CGLSphere(1.0));
  group->Add(group);
  EXPECT_GT(Triangles(MeshOf(*group)), 0u);
  // Taken out again before the group deletes its members.
  auto& members =
      const_cast<std::vector<CGLObject*>&>(lumagrid::detail::GroupFields::arrObjects(*group));
  members.pop_back();
  delete group;
}

TEST_F(MeshOfGroup, NullMembersAreSteppedOver) {
  CGLGroup group;
  group.Add(nullptr);
  group.Add(new CGLSphere(1.0));
  EXPECT_GT(Triangles(MeshOf(group)), 0u);
}

}  // namespace
