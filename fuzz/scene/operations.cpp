#include "scene/operations.h"

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/SceneQuery.h>
#include <lumagrid/testing/GLRecorder.h>

#include "scene/export.h"
#include "scene/shapes.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace scenefuzz {

namespace {

constexpr std::size_t kMaxLive = 24;
constexpr int kMaxOps = 160;

}  // namespace

void SceneOperations::Run() {
  m_watch.Start();
  glrecorder::recorder().reset();
  CGLObject::s_nSlices4New = 128;
  CGLObject::s_nStacks4New = 8;
  m_scene = std::make_unique<CGLScene>();

  for (int n = 0; n < kMaxOps && !m_in.Empty(); ++n) {
    Step(m_in.Byte() % kOpCount);
    FUZZ_CHECK(m_watch.NoStrayDeaths());
    // Keep the log short; the emulated state (lists, stacks) stays.
    glrecorder::recorder().clearCalls();
  }
  Finish();
  m_watch.Stop();
}

void SceneOperations::Step(int op) {
  switch (op) {
    case kCreate:
      Create();
      break;
    case kClone:
      Clone();
      break;
    case kSceneAdd:
      SceneAdd();
      break;
    case kSceneDelete:
      SceneDelete();
      break;
    case kShowShape:
      ShowShape();
      break;
    case kSelectShape:
      SelectShape();
      break;
    case kShowShapes:
      m_model.show = m_in.SignedByte();
      m_scene->ShowGLShapes(m_model.show);
      break;
    case kDrawShapes:
      DrawShapes();
      break;
    case kSceneSetMatrix:
      SceneSetMatrix();
      break;
    case kSceneReset:
      SceneReset();
      break;
    case kGroupAdd:
      GroupAdd();
      break;
    case kDraw:
      if (CGLObject* p = PickLive()) {
        FUZZ_CHECK(p->Draw() == 1);
      }
      break;
    case kDrawDirect:
      if (CGLObject* p = PickLive()) {
        p->DrawDirect();
      }
      break;
    case kTransform:
      Transform();
      break;
    case kColour:
      Colour();
      break;
    case kFlags:
      Flags();
      break;
    case kArrowSetters:
      ArrowSetters();
      break;
    case kNullRoundTrip:
      NullRoundTrip();
      break;
    case kTessellation:
      CGLObject::s_nSlices4New = m_in.SignedByte();
      CGLObject::s_nStacks4New = m_in.SignedByte() % 16;
      break;
    case kForgetLists:
      // As after a lost context: the shapes find their lists gone.
      glrecorder::recorder().forgetAllLists();
      break;
    case kQuery:
      Query();
      break;
    case kExport:
      Export();
      break;
    default:
      break;
  }
}

// ------------------------------------------------------------ queries

// The mesh layer's scene queries only read: no GL call, no shape changed, and a pick names a
// leaf of the scene at a distance ahead of the ray's origin.
void SceneOperations::Query() {
  glrecorder::recorder().clearCalls();
  const std::vector<lumagrid::SceneItem> items = lumagrid::SceneItems(*m_scene);
  static_cast<void>(lumagrid::BoundsOf(*m_scene));
  const vec3d origin(m_in.Number(), m_in.Number(), m_in.Number());
  const vec3d direction(m_in.Number(), m_in.Number(), m_in.Number());
  const double tolerance = m_in.Number();
  lumagrid::Hit hit{nullptr, -1.0, vec3d()};
  if (lumagrid::Pick(*m_scene, origin, direction, hit, tolerance)) {
    FUZZ_CHECK(std::any_of(items.begin(), items.end(), [&](const lumagrid::SceneItem& item) {
      return item.shape == hit.shape;
    }));
    FUZZ_CHECK(hit.distance >= 0.0);
  } else {
    FUZZ_CHECK(hit.shape == nullptr && hit.distance == -1.0);
  }
  FUZZ_CHECK(glrecorder::recorder().calls().empty());
}

// The glTF export's document of the scene, as WriteGltf builds it before writing: no drawing call,
// and a document a reader can trust (scene/export.h).
void SceneOperations::Export() {
  lumagrid::GltfOptions options;
  options.highlightSelected = (m_in.Byte() & 1) != 0;
  CGLScene library;
  AddLibraryShapes(m_in, library);
  for (CGLScene* scene : {m_scene.get(), &library}) {
    glrecorder::recorder().clearCalls();
    CheckExport(*scene, options);
    // Meshing a tube reads GLE's number of sides, as compiling its list would.
    for (const std::string& call : glrecorder::recorder().log()) {
      FUZZ_CHECK(call.rfind("gleGetNumSides", 0) == 0);
    }
  }
}

// ------------------------------------------------------------ picking

CGLObject* SceneOperations::PickLive() {
  const int b = m_in.Byte();
  if (m_model.order.empty()) {
    return nullptr;
  }
  return m_model.order[static_cast<std::size_t>(b) % m_model.order.size()];
}

// A live shape, or one that is certainly not in the scene: a dead address,
// a shape of nobody's, null.
CGLObject* SceneOperations::PickAny() {
  const int b = m_in.Byte();
  switch (b % 8) {
    case 0:
      return nullptr;
    case 1:
      return &m_outsider;
    case 2:
      if (!m_model.dead.empty()) {
        return m_model.dead[static_cast<std::size_t>(b / 8) % m_model.dead.size()];
      }
      return nullptr;
    default:
      if (m_model.order.empty()) {
        return &m_outsider;
      }
      return m_model.order[static_cast<std::size_t>(b / 8) % m_model.order.size()];
  }
}

mat4x4 SceneOperations::ReadMatrix() {
  const bool tame = (m_in.Byte() & 1) == 0;
  m_in.SetTame(tame);
  mat4x4 m;
  double* e = m;
  for (int k = 0; k < 16; ++k) {
    e[k] = m_in.Number();
  }
  m_in.SetTame(true);
  return m;
}

// ------------------------------------------------------------ shapes and ownership

void SceneOperations::Create() {
  const int kind = m_in.Byte() % kKindCount;
  if (m_model.live.size() >= kMaxLive) {
    return;
  }
  CGLObject* p = MakeShape(kind, m_in);
  m_model.Track(p, NodeOf(p, kind));
}

void SceneOperations::Clone() {
  CGLObject* src = PickLive();
  if (src == nullptr || m_model.live.size() >= kMaxLive) {
    return;
  }
  const int kind = m_model.live.at(src).kind;
  CGLObject* p = CopyShape(kind, *src);
  if (p == nullptr) {
    return;
  }
  m_model.Track(p, NodeOf(p, kind));
  // The copy shares the source's quadric handle, so that handle is
  // released once more.
  if (m_model.live.at(p).quadric) {
    ++m_model.sharedQuadrics;
  }
}

void SceneOperations::SceneAdd() {
  CGLObject* p = PickLive();
  if (p == nullptr) {
    return;
  }
  Node& node = m_model.live.at(p);
  // A shape has at most one owner; adding it to the scene again is fine.
  if (node.owner == Owner::Group) {
    return;
  }
  FUZZ_CHECK(m_scene->AddGLShape(p) == 1);
  if (node.owner == Owner::Harness) {
    node.owner = Owner::Scene;
    m_model.sceneSeq[p] = m_model.nextSeq++;
  }
}

void SceneOperations::SceneDelete() {
  CGLObject* p = PickAny();
  std::set<CGLObject*> expected;
  if (m_model.InScene(p)) {
    m_model.Closure(p, expected);
  }
  // A stored null is found, and deleting it deletes nothing.
  const bool storedNull = p == nullptr && m_model.nullInScene;
  Destroy(expected, [&] {
    FUZZ_CHECK(m_scene->DeleteGLShape(p) == (expected.empty() && !storedNull ? 0 : 1));
  });
  if (storedNull) {
    m_model.nullInScene = false;
  }
  // Gone now: deleting it again finds nothing.
  if (p != nullptr && !expected.empty()) {
    FUZZ_CHECK(m_scene->DeleteGLShape(p) == 0);
  }
}

void SceneOperations::SceneReset() {
  Destroy(m_model.SceneClosure(), [&] { m_scene->ResetGLShapes(); });
  FUZZ_CHECK(m_model.sceneSeq.empty());
  m_model.nullInScene = false;
}

void SceneOperations::GroupAdd() {
  CGLObject* g = PickLive();
  const int how = m_in.Byte();
  if (g == nullptr || m_model.live.at(g).group == nullptr) {
    return;
  }
  // Null, or a member added once more: stored, drawn (null skipped), deleted once.
  Node& target = m_model.live.at(g);
  if (how % 8 == 0 || (how % 8 == 1 && !target.kids.empty())) {
    CGLObject* again = how % 8 == 0
                           ? nullptr
                           : target.kids[static_cast<std::size_t>(how / 8) % target.kids.size()];
    FUZZ_CHECK(target.group->Add(again) == target.members);
    ++target.members;
    return;
  }
  CGLObject* p = PickLive();
  if (p == nullptr || p == g) {
    return;
  }
  Node& gn = m_model.live.at(g);
  Node& pn = m_model.live.at(p);
  // Only a shape nobody owns yet, and never one of the group's ancestors.
  if (gn.group == nullptr || pn.owner != Owner::Harness) {
    return;
  }
  for (CGLObject* up = gn.parent; up != nullptr; up = m_model.live.at(up).parent) {
    if (up == p) {
      return;
    }
  }
  FUZZ_CHECK(gn.group->Add(p) == gn.members);
  ++gn.members;
  gn.kids.push_back(p);
  pn.owner = Owner::Group;
  pn.parent = g;
}

// Null is stored like any shape, and every pass over the scene steps over it.
void SceneOperations::NullRoundTrip() {
  FUZZ_CHECK(m_scene->AddGLShape(nullptr) == 1);
  m_model.nullInScene = true;
  switch (m_in.Byte() % 3) {
    case 0:
      Destroy({}, [&] { FUZZ_CHECK(m_scene->DeleteGLShape(nullptr) == 1); });
      FUZZ_CHECK(m_scene->DeleteGLShape(nullptr) == 0);
      m_model.nullInScene = false;
      break;
    case 1:
      SceneReset();
      break;
    default:
      break;  // stays for the operations that follow
  }
}

void SceneOperations::Finish() {
  // The scene deletes its own shapes.
  Destroy(m_model.SceneClosure(), [&] { m_scene.reset(); });
  // The rest is the harness's: top-level shapes it never handed over.
  std::vector<CGLObject*> mine;
  for (const auto& entry : m_model.live) {
    if (entry.second.owner == Owner::Harness) {
      mine.push_back(entry.first);
    }
  }
  for (CGLObject* p : mine) {
    std::set<CGLObject*> expected;
    m_model.Closure(p, expected);
    Destroy(expected, [&] { delete p; });
  }
  CheckAllReleased(m_model);

  CGLObject::s_nSlices4New = 128;
  CGLObject::s_nStacks4New = 8;
  glrecorder::recorder().reset();
}

// ------------------------------------------------------------ the scene's passes

void SceneOperations::ShowShape() {
  CGLObject* p = PickAny();
  const int show = m_in.SignedByte();
  const FlagSnapshot before(m_model, p);
  const bool present = m_model.InScene(p);
  m_scene->ShowGLShape(p, show);
  before.CheckShown(p, present, show);
}

void SceneOperations::SelectShape() {
  CGLObject* p = PickAny();
  const int select = m_in.SignedByte();
  const FlagSnapshot before(m_model, p);
  const bool present = m_model.InScene(p);
  m_scene->SelectGLShape(p, select);
  before.CheckSelected(m_model, present, select);
}

void SceneOperations::DrawShapes() {
  const std::size_t calls = glrecorder::recorder().calls().size();
  const std::vector<CGLObject*> drawn = m_watch.DrawnBy([&] { m_scene->DrawGLShapes(); });
  if (m_model.show == 0) {
    FUZZ_CHECK(drawn.empty());
    FUZZ_CHECK(glrecorder::recorder().calls().size() == calls);
  } else {
    // Every shape of the scene once, in the map's order.
    FUZZ_CHECK(drawn == m_model.SceneOrder());
  }
}

void SceneOperations::SceneSetMatrix() {
  mat4x4 m = ReadMatrix();
  if (m_in.Bool()) {
    FUZZ_CHECK(m_scene->SetMatrix(m) == 1);
  } else {
    FUZZ_CHECK(m_scene->SetMatrix(static_cast<double*>(m)) == 1);
  }
  // Each shape's own transform is replaced, bit for bit.
  for (const auto& entry : m_model.sceneSeq) {
    const mat4x4& own = *m_model.live.at(entry.first).matrix;
    FUZZ_CHECK(std::memcmp(static_cast<const double*>(own), static_cast<const double*>(m),
                           sizeof(double) * 16) == 0);
  }
}

// ------------------------------------------------------------ one shape

void SceneOperations::Transform() {
  CGLObject* p = PickLive();
  const int what = m_in.Byte();
  m_in.SetTame((what & 0x80) == 0);
  const double x = m_in.Number();
  const double y = m_in.Number();
  const double z = m_in.Number();
  m_in.SetTame(true);
  if (p == nullptr) {
    return;
  }
  switch (what % 16) {
    case 0:
      FUZZ_CHECK(p->Move(x) == 1);
      break;
    case 1:
      FUZZ_CHECK(p->Move(x, y, z) == 1);
      break;
    case 2:
      FUZZ_CHECK(p->MoveTo(x, y, z) == 1);
      break;
    case 3:
      FUZZ_CHECK(p->MoveTo(x) == 1);
      break;
    case 4:
      FUZZ_CHECK(p->Scale(x) == 1);
      break;
    case 5:
      FUZZ_CHECK(p->Scale(CGLPoint(x, y, z)) == 1);
      break;
    case 6:
      FUZZ_CHECK(p->ScaleTo(x, y, z) == 1);
      break;
    case 7:
      FUZZ_CHECK(p->Rotate(x, y, z) == 1);
      break;
    case 8:
      FUZZ_CHECK(p->RotateTo(x, y, z) == 1);
      break;
    case 9:
      FUZZ_CHECK(p->RotateX(x) == 1);
      break;
    case 10:
      FUZZ_CHECK(p->RotateYTo(y) == 1);
      break;
    case 11:
      FUZZ_CHECK(p->RotateZ(z) == 1);
      break;
    case 12:
      FUZZ_CHECK(p->ScaleTo(x) == 1);
      break;
    default: {
      mat4x4 m;
      m.loadRotate(vec3d(x, y, z), x);
      FUZZ_CHECK(p->SetMatrix(m) == 1);
      break;
    }
  }
}

void SceneOperations::Colour() {
  CGLObject* p = PickLive();
  const int what = m_in.Byte();
  const double r = m_in.Tame() / 512.0;
  const double g = m_in.Tame() / 512.0;
  const double b = m_in.Tame() / 512.0;
  const double a = m_in.Tame() / 512.0;
  const unsigned long blue = m_in.Byte();
  const unsigned long green = m_in.Byte();
  const unsigned long red = m_in.Byte();
  const unsigned long rgb = blue << 16 | green << 8 | red;
  if (p == nullptr) {
    return;
  }
  switch (what % 9) {
    case 0:
      FUZZ_CHECK(p->ColorSet(r, g, b, a) == 1);
      break;
    case 1:
      FUZZ_CHECK(p->ColorSet(rgb) == 1);
      break;
    case 2:
      FUZZ_CHECK(p->ColorSet(r) == 1);
      break;
    case 3:
      FUZZ_CHECK(p->ColorSet(CGLColor(r, g, b, a)) == 1);
      break;
    case 4:
      p->HLColorSet(rgb);
      break;
    case 5:
      p->HLColorSet(r, g, b, a);
      break;
    case 6:
      p->AlphaSet(a);
      break;
    case 7:
      p->AlphaOff();
      FUZZ_CHECK(p->AlphaGet() == 1.0);
      break;
    default:
      p->HLColorSet(g);
      static_cast<void>(p->ColorGet());
      static_cast<void>(p->HLColorGet());
      break;
  }
}

void SceneOperations::Flags() {
  CGLObject* p = PickLive();
  const int what = m_in.Byte();
  if (p == nullptr) {
    return;
  }
  const bool on = (what & 2) != 0;
  if ((what & 1) != 0) {
    p->SetVisible(on);
    FUZZ_CHECK(p->IsVisible() == (on ? 1 : 0));
  } else {
    const long before = p->IsSelected();
    p->Select(on);
    if (m_model.live.at(p).group == nullptr) {
      FUZZ_CHECK(p->IsSelected() == (on ? 1 : 0));
    } else {
      FUZZ_CHECK(p->IsSelected() == before);
    }
  }
}

void SceneOperations::ArrowSetters() {
  CGLObject* p = PickLive();
  const int what = m_in.Byte();
  const double v = m_in.Tame();
  if (p == nullptr || m_model.live.at(p).kind != kArrow) {
    return;
  }
  auto* arrow = static_cast<Counted<CGLArrow>*>(p);
  switch (what % 7) {
    case 0:
      arrow->SetLength(v);
      break;
    case 1:
      arrow->SetRadius(v);
      break;
    case 2:
      arrow->SetLite((what & 8) != 0);
      break;
    case 3:
      arrow->SetArrowNum(what / 8 % 9 - 2);
      break;
    case 4:
      arrow->SetFracLength(v);
      break;
    case 5:
      arrow->SetFracRadius(v);
      break;
    default:
      FUZZ_CHECK(arrow->DrawArrow() == 1);
      break;
  }
}

}  // namespace scenefuzz
