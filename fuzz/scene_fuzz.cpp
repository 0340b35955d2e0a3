// Drives a CGLScene and groups with a byte-coded sequence of operations and
// checks ownership against a model: every shape is destroyed exactly once,
// by its owner, and the scene's answers match what the model holds.
//
// Input: a sequence of operations, each one byte (its value modulo kOpCount
// picks the operation) followed by the operation's own bytes. Numbers are
// FuzzInput::Tame() values unless the operation reads a mode byte first.
// Runs against the recording GL double; kTile is the tests' stand-in quad.

#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>
#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/CGLSphere.h>
#include <lumagrid/mat4x4.h>

#include "fuzz_input.h"
#include <lumagrid/testing/GLRecorder.h>
#include "standin/QuadShape.h"

#include <GL/gl.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace {

enum Op : int {
  kCreate,
  kClone,
  kSceneAdd,
  kSceneDelete,
  kShowShape,
  kSelectShape,
  kShowShapes,
  kDrawShapes,
  kSceneSetMatrix,
  kSceneReset,
  kGroupAdd,
  kDraw,
  kDrawDirect,
  kTransform,
  kColour,
  kFlags,
  kArrowSetters,
  kNullRoundTrip,
  kTessellation,
  kForgetLists,
  kOpCount
};

enum Kind : int { kTile, kBare, kSphere, kCylinder, kCone, kArrow, kGroup, kAxis, kKindCount };

constexpr std::size_t kMaxLive = 24;
constexpr int kMaxOps = 160;

class SceneFuzzer;
SceneFuzzer* g_fuzzer = nullptr;

void Destroyed(CGLObject* p);
void EnterDraw(CGLObject* p);
void LeaveDraw();

// Reports its destruction and its top-level draws to the fuzzer.
template <class Base>
class Counted : public Base {
 public:
  template <class... A>
  explicit Counted(A... a) : Base(a...) {}
  Counted(const Counted& o) : Base(o) {}
  Counted& operator=(const Counted&) = delete;
  ~Counted() override { Destroyed(this); }

  long Draw() override {
    EnterDraw(this);
    const long r = Base::Draw();
    LeaveDraw();
    return r;
  }

  const mat4x4& Matrix() const { return this->m_matrix; }
};

enum class Owner { Harness, Scene, Group };

struct Node {
  int kind = kTile;
  Owner owner = Owner::Harness;
  CGLObject* parent = nullptr;     // the group holding it
  CGLGroup* group = nullptr;       // this, when it is a group
  int members = 0;                 // a group's member count, built-in ones included
  std::vector<CGLObject*> kids;    // a group's counted members
  const mat4x4* matrix = nullptr;  // Counted<>::Matrix()
  bool quadric = false;
};

// Park-Miller step on the low 32 bits of the address, read as signed: the
// scene's bucket of a shape.
std::uint32_t Bucket(const CGLObject* p) {
  const auto key = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(p));
  const auto low = static_cast<std::uint32_t>(key & 0xFFFFFFFFu);
  const std::int64_t v = low >= 0x80000000u ? static_cast<std::int64_t>(low) - 0x100000000LL
                                            : static_cast<std::int64_t>(low);
  const std::int64_t q = v / 127773;
  const std::int64_t r = v % 127773;
  std::int64_t h = 16807 * r - 2836 * q;
  if (h < 0) {
    h += 2147483647;
  }
  return static_cast<std::uint32_t>(h) % 512u;
}

class SceneFuzzer {
 public:
  explicit SceneFuzzer(FuzzInput& in) : m_in(in), m_outsider(0.5f) {}

  void Run() {
    glrecorder::recorder().reset();
    CGLObject::s_nSlices4New = 128;
    CGLObject::s_nStacks4New = 8;
    m_scene = std::make_unique<CGLScene>();

    for (int n = 0; n < kMaxOps && !m_in.Empty(); ++n) {
      Step(m_in.Byte() % kOpCount);
      FUZZ_CHECK(m_died.empty());
      // Keep the log short; the emulated state (lists, stacks) stays.
      glrecorder::recorder().clearCalls();
    }
    Finish();
  }

  // ------------------------------------------------------------ hooks

  void OnDestroyed(CGLObject* p) {
    auto it = m_live.find(p);
    // Destroyed twice, or something the model never made.
    FUZZ_CHECK(it != m_live.end());
    FUZZ_CHECK(m_expected.count(p) == 1);
    m_live.erase(it);
    m_order.erase(std::find(m_order.begin(), m_order.end(), p));
    m_dead.push_back(p);
    m_died.insert(p);
    ++m_nDestroyed;
  }

  void OnEnterDraw(CGLObject* p) {
    if (m_nDrawDepth++ == 0) {
      m_drawn.push_back(p);
    }
  }
  void OnLeaveDraw() { --m_nDrawDepth; }

 private:
  // ------------------------------------------------------------ model

  CGLObject* Make(int kind) {
    const float half = static_cast<float>(m_in.Tame());
    const double a = m_in.Tame();
    const double b = m_in.Tame();
    const double c = m_in.Tame();
    const bool flag = m_in.Bool();
    const int count = m_in.Byte() % 9 - 2;
    switch (kind) {
      case kTile:
        return new Counted<QuadShape>(half);
      case kBare:
        return new Counted<CGLObject>();
      case kSphere:
        return flag ? new Counted<CGLSphere>(a) : new Counted<CGLSphere>();
      case kCylinder:
        return count < 0 ? new Counted<CGLCylinder>() : new Counted<CGLCylinder>(a, b, flag);
      case kCone:
        if (count < 0) {
          return new Counted<CGLCone>();
        }
        if (count < 3) {
          return new Counted<CGLCone>(a, b, flag);
        }
        return new Counted<CGLCone>(a, b, c, flag);
      case kArrow:
        if (flag) {
          return new Counted<CGLArrow>();
        }
        return new Counted<CGLArrow>(a, b, count % 2 == 0, count, c, half);
      case kGroup:
        return new Counted<CGLGroup>();
      default:
        return flag ? new Counted<CGLAxis>() : new Counted<CGLAxis>(a, b, count % 2 == 0);
    }
  }

  template <class T>
  static const mat4x4* MatrixOf(CGLObject* p) {
    return &static_cast<Counted<T>*>(p)->Matrix();
  }

  void Track(CGLObject* p, int kind) {
    // An address can come back once its shape is gone.
    m_dead.erase(std::remove(m_dead.begin(), m_dead.end(), p), m_dead.end());
    Node node;
    node.kind = kind;
    switch (kind) {
      case kTile:
        node.matrix = MatrixOf<QuadShape>(p);
        break;
      case kBare:
        node.matrix = MatrixOf<CGLObject>(p);
        break;
      case kSphere:
        node.matrix = MatrixOf<CGLSphere>(p);
        node.quadric = true;
        break;
      case kCylinder:
        node.matrix = MatrixOf<CGLCylinder>(p);
        node.quadric = true;
        break;
      case kCone:
        node.matrix = MatrixOf<CGLCone>(p);
        node.quadric = true;
        break;
      case kArrow:
        node.matrix = MatrixOf<CGLArrow>(p);
        node.quadric = true;
        break;
      case kGroup:
        node.matrix = MatrixOf<CGLGroup>(p);
        node.group = static_cast<Counted<CGLGroup>*>(p);
        break;
      default:
        node.matrix = MatrixOf<CGLAxis>(p);
        node.group = static_cast<Counted<CGLAxis>*>(p);
        node.members = 4;  // three arrows and the cube
        break;
    }
    m_live[p] = node;
    m_order.push_back(p);
    ++m_nCreated;
  }

  // p and every counted member below it.
  void Closure(CGLObject* p, std::set<CGLObject*>& out) const {
    out.insert(p);
    for (CGLObject* kid : m_live.at(p).kids) {
      Closure(kid, out);
    }
  }

  bool InScene(const CGLObject* p) const {
    return m_sceneSeq.count(const_cast<CGLObject*>(p)) != 0;
  }

  CGLObject* PickLive() {
    const int b = m_in.Byte();
    if (m_order.empty()) {
      return nullptr;
    }
    return m_order[static_cast<std::size_t>(b) % m_order.size()];
  }

  // A live shape, or one that is certainly not in the scene: a dead address,
  // a shape of nobody's, null.
  CGLObject* PickAny() {
    const int b = m_in.Byte();
    switch (b % 8) {
      case 0:
        return nullptr;
      case 1:
        return &m_outsider;
      case 2:
        if (!m_dead.empty()) {
          return m_dead[static_cast<std::size_t>(b / 8) % m_dead.size()];
        }
        return nullptr;
      default:
        if (m_order.empty()) {
          return &m_outsider;
        }
        return m_order[static_cast<std::size_t>(b / 8) % m_order.size()];
    }
  }

  // Runs f, which must destroy exactly the shapes in expected.
  template <class F>
  void ExpectDeaths(const std::set<CGLObject*>& expected, F&& f) {
    m_expected = expected;
    m_died.clear();
    f();
    FUZZ_CHECK(m_died == expected);
    for (CGLObject* p : expected) {
      m_sceneSeq.erase(p);
    }
    m_expected.clear();
    m_died.clear();
  }

  void Forget(CGLObject* p) {
    // Out of its parent's list of kids: a deleted group's kids go with it.
    for (auto& entry : m_live) {
      auto& kids = entry.second.kids;
      kids.erase(std::remove(kids.begin(), kids.end(), p), kids.end());
    }
  }

  // ------------------------------------------------------------ operations

  void Step(int op) {
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
        m_nShow = m_in.SignedByte();
        m_scene->ShowGLShapes(m_nShow);
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
      default:
        break;
    }
  }

  void Create() {
    const int kind = m_in.Byte() % kKindCount;
    if (m_live.size() >= kMaxLive) {
      return;
    }
    CGLObject* p = Make(kind);
    Track(p, kind);
  }

  void Clone() {
    CGLObject* src = PickLive();
    if (src == nullptr || m_live.size() >= kMaxLive) {
      return;
    }
    const int kind = m_live.at(src).kind;
    CGLObject* p = nullptr;
    switch (kind) {
      case kTile:
        p = new Counted<QuadShape>(static_cast<const Counted<QuadShape>&>(*src));
        break;
      case kBare:
        p = new Counted<CGLObject>(static_cast<const Counted<CGLObject>&>(*src));
        break;
      case kSphere:
        p = new Counted<CGLSphere>(static_cast<const Counted<CGLSphere>&>(*src));
        break;
      case kCylinder:
        p = new Counted<CGLCylinder>(static_cast<const Counted<CGLCylinder>&>(*src));
        break;
      case kCone:
        p = new Counted<CGLCone>(static_cast<const Counted<CGLCone>&>(*src));
        break;
      case kArrow:
        p = new Counted<CGLArrow>(static_cast<const Counted<CGLArrow>&>(*src));
        break;
      default:
        return;  // groups are not copied
    }
    Track(p, kind);
    // The copy shares the source's quadric handle, so that handle is
    // released once more.
    if (m_live.at(p).quadric) {
      ++m_nSharedQuadrics;
    }
  }

  void SceneAdd() {
    CGLObject* p = PickLive();
    if (p == nullptr) {
      return;
    }
    Node& node = m_live.at(p);
    // A shape has at most one owner; adding it to the scene again is fine.
    if (node.owner == Owner::Group) {
      return;
    }
    FUZZ_CHECK(m_scene->AddGLShape(p) == 1);
    if (node.owner == Owner::Harness) {
      node.owner = Owner::Scene;
      m_sceneSeq[p] = m_nSeq++;
    }
  }

  void SceneDelete() {
    CGLObject* p = PickAny();
    std::set<CGLObject*> expected;
    if (InScene(p)) {
      Closure(p, expected);
    }
    // A stored null is found, and deleting it deletes nothing.
    const bool storedNull = p == nullptr && m_bNullInScene;
    ExpectDeaths(expected, [&] {
      FUZZ_CHECK(m_scene->DeleteGLShape(p) == (expected.empty() && !storedNull ? 0 : 1));
    });
    if (storedNull) {
      m_bNullInScene = false;
    }
    if (!expected.empty()) {
      for (CGLObject* d : expected) {
        Forget(d);
      }
    }
    // Gone now: deleting it again finds nothing.
    if (p != nullptr && !expected.empty()) {
      FUZZ_CHECK(m_scene->DeleteGLShape(p) == 0);
    }
  }

  // Visibility and selection of a live shape and of its counted members.
  struct Flagged {
    long visible;
    long selected;
  };
  std::map<CGLObject*, Flagged> Snapshot(CGLObject* p) {
    std::map<CGLObject*, Flagged> snap;
    if (p == nullptr || m_live.count(p) == 0) {
      return snap;
    }
    std::set<CGLObject*> all;
    Closure(p, all);
    for (CGLObject* q : all) {
      snap[q] = Flagged{q->IsVisible(), q->IsSelected()};
    }
    return snap;
  }

  void ShowShape() {
    CGLObject* p = PickAny();
    const int show = m_in.SignedByte();
    const auto before = Snapshot(p);
    const bool present = InScene(p);
    m_scene->ShowGLShape(p, show);
    for (const auto& entry : before) {
      const long visible = entry.first->IsVisible();
      if (present && entry.first == p) {
        FUZZ_CHECK(visible == (show != 0 ? 1 : 0));
      } else {
        FUZZ_CHECK(visible == entry.second.visible);
      }
    }
  }

  void SelectShape() {
    CGLObject* p = PickAny();
    const int select = m_in.SignedByte();
    const auto before = Snapshot(p);
    const bool present = InScene(p);
    m_scene->SelectGLShape(p, select);
    for (const auto& entry : before) {
      const long selected = entry.first->IsSelected();
      // A group passes the request on to its members and stays as it was.
      if (present && m_live.at(entry.first).group == nullptr) {
        FUZZ_CHECK(selected == (select != 0 ? 1 : 0));
      } else {
        FUZZ_CHECK(selected == entry.second.selected);
      }
    }
  }

  // The scene's shapes in its visiting order: buckets in ascending order,
  // the latest added first within a bucket.
  std::vector<CGLObject*> SceneOrder() const {
    std::vector<std::pair<CGLObject*, long>> entries(m_sceneSeq.begin(), m_sceneSeq.end());
    std::sort(entries.begin(), entries.end(), [](const auto& x, const auto& y) {
      const std::uint32_t bx = Bucket(x.first);
      const std::uint32_t by = Bucket(y.first);
      return bx != by ? bx < by : x.second > y.second;
    });
    std::vector<CGLObject*> order;
    for (const auto& e : entries) {
      order.push_back(e.first);
    }
    return order;
  }

  void DrawShapes() {
    const std::size_t calls = glrecorder::recorder().calls().size();
    m_drawn.clear();
    m_scene->DrawGLShapes();
    if (m_nShow == 0) {
      FUZZ_CHECK(m_drawn.empty());
      FUZZ_CHECK(glrecorder::recorder().calls().size() == calls);
    } else {
      // Every shape of the scene once, in the map's order.
      FUZZ_CHECK(m_drawn == SceneOrder());
    }
    m_drawn.clear();
  }

  mat4x4 ReadMatrix() {
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

  void SceneSetMatrix() {
    mat4x4 m = ReadMatrix();
    if (m_in.Bool()) {
      FUZZ_CHECK(m_scene->SetMatrix(m) == 1);
    } else {
      FUZZ_CHECK(m_scene->SetMatrix(static_cast<double*>(m)) == 1);
    }
    // Each shape's own transform is replaced, bit for bit.
    for (const auto& entry : m_sceneSeq) {
      const mat4x4& own = *m_live.at(entry.first).matrix;
      FUZZ_CHECK(std::memcmp(static_cast<const double*>(own), static_cast<const double*>(m),
                             sizeof(double) * 16) == 0);
    }
  }

  void SceneReset() {
    std::set<CGLObject*> expected;
    for (const auto& entry : m_sceneSeq) {
      Closure(entry.first, expected);
    }
    ExpectDeaths(expected, [&] { m_scene->ResetGLShapes(); });
    for (CGLObject* d : expected) {
      Forget(d);
    }
    FUZZ_CHECK(m_sceneSeq.empty());
    m_bNullInScene = false;
  }

  void GroupAdd() {
    CGLObject* g = PickLive();
    const int how = m_in.Byte();
    if (g == nullptr || m_live.at(g).group == nullptr) {
      return;
    }
    // Null, or a member added once more: stored, drawn (null skipped), deleted once.
    Node& target = m_live.at(g);
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
    Node& gn = m_live.at(g);
    Node& pn = m_live.at(p);
    // Only a shape nobody owns yet, and never one of the group's ancestors.
    if (gn.group == nullptr || pn.owner != Owner::Harness) {
      return;
    }
    for (CGLObject* up = gn.parent; up != nullptr; up = m_live.at(up).parent) {
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

  void Transform() {
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

  void Colour() {
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

  void Flags() {
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
      if (m_live.at(p).group == nullptr) {
        FUZZ_CHECK(p->IsSelected() == (on ? 1 : 0));
      } else {
        FUZZ_CHECK(p->IsSelected() == before);
      }
    }
  }

  void ArrowSetters() {
    CGLObject* p = PickLive();
    const int what = m_in.Byte();
    const double v = m_in.Tame();
    if (p == nullptr || m_live.at(p).kind != kArrow) {
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

  // Null is stored like any shape, and every pass over the scene steps over it.
  void NullRoundTrip() {
    FUZZ_CHECK(m_scene->AddGLShape(nullptr) == 1);
    m_bNullInScene = true;
    switch (m_in.Byte() % 3) {
      case 0:
        ExpectDeaths({}, [&] { FUZZ_CHECK(m_scene->DeleteGLShape(nullptr) == 1); });
        FUZZ_CHECK(m_scene->DeleteGLShape(nullptr) == 0);
        m_bNullInScene = false;
        break;
      case 1:
        SceneReset();
        break;
      default:
        break;  // stays for the operations that follow
    }
  }

  void Finish() {
    // The scene deletes its own shapes.
    {
      std::set<CGLObject*> expected;
      for (const auto& entry : m_sceneSeq) {
        Closure(entry.first, expected);
      }
      ExpectDeaths(expected, [&] { m_scene.reset(); });
      for (CGLObject* d : expected) {
        Forget(d);
      }
    }
    // The rest is the harness's: top-level shapes it never handed over.
    std::vector<CGLObject*> mine;
    for (const auto& entry : m_live) {
      if (entry.second.owner == Owner::Harness) {
        mine.push_back(entry.first);
      }
    }
    for (CGLObject* p : mine) {
      std::set<CGLObject*> expected;
      Closure(p, expected);
      ExpectDeaths(expected, [&] { delete p; });
      for (CGLObject* d : expected) {
        Forget(d);
      }
    }
    FUZZ_CHECK(m_live.empty());
    FUZZ_CHECK(m_nCreated == m_nDestroyed);

    // Every quadric released, every list deleted; copies release their
    // shared handle once more each.
    const glrecorder::Recorder& rec = glrecorder::recorder();
    FUZZ_CHECK(rec.liveQuadrics() == 0);
    FUZZ_CHECK(rec.doubleDeletes() == m_nSharedQuadrics);
    FUZZ_CHECK(rec.listNames().empty());
    FUZZ_CHECK(rec.compilingList() == 0);

    CGLObject::s_nSlices4New = 128;
    CGLObject::s_nStacks4New = 8;
    glrecorder::recorder().reset();
  }

  FuzzInput& m_in;
  std::unique_ptr<CGLScene> m_scene;
  QuadShape m_outsider;  // never handed to anyone

  std::map<CGLObject*, Node> m_live;
  std::vector<CGLObject*> m_order;  // m_live's keys in order of creation
  std::vector<CGLObject*> m_dead;
  std::map<CGLObject*, long> m_sceneSeq;  // the scene's shapes, by order of first addition
  long m_nSeq = 0;
  bool m_bNullInScene = false;
  int m_nShow = 1;

  std::set<CGLObject*> m_expected;
  std::set<CGLObject*> m_died;
  std::vector<CGLObject*> m_drawn;
  int m_nDrawDepth = 0;
  long m_nCreated = 0;
  long m_nDestroyed = 0;
  int m_nSharedQuadrics = 0;
};

void Destroyed(CGLObject* p) {
  g_fuzzer->OnDestroyed(p);
}

void EnterDraw(CGLObject* p) {
  g_fuzzer->OnEnterDraw(p);
}

void LeaveDraw() {
  g_fuzzer->OnLeaveDraw();
}

}  // namespace

// libFuzzer only. The recording double keeps every quadric handle it ever
// issued, so no input frees all it allocates, and libFuzzer's leak check would
// then run after every input. Leaks are still looked for at exit; a
// -detect_leaks given on the command line comes later and wins.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  static std::vector<char*> args;
  static char noLeakCheck[] = "-detect_leaks=0";
  args.assign(*argv, *argv + *argc);
  args.insert(args.begin() + (args.empty() ? 0 : 1), noLeakCheck);
  args.push_back(nullptr);
  *argc = static_cast<int>(args.size()) - 1;
  *argv = args.data();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  SceneFuzzer fuzzer(in);
  g_fuzzer = &fuzzer;
  fuzzer.Run();
  g_fuzzer = nullptr;
  return 0;
}
