#ifndef LUMAGRID_FUZZ_SCENE_OPERATIONS_H
#define LUMAGRID_FUZZ_SCENE_OPERATIONS_H

// The scene fuzzer's operations: each reads its bytes, calls the scene, a
// group or a shape, keeps the model up to date and checks the answers.

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/mat4x4.h>

#include "fuzz_input.h"
#include "scene/checks.h"
#include "scene/model.h"
#include "standin/QuadShape.h"

#include <memory>

namespace scenefuzz {

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
  kQuery,
  kExport,
  kOpCount
};

class SceneOperations {
 public:
  explicit SceneOperations(FuzzInput& in) : m_in(in), m_watch(m_model), m_outsider(0.5f) {}

  // Every operation of the input, then the scene and the harness's shapes
  // destroyed and the final checks.
  void Run();

 private:
  void Step(int op);

  CGLObject* PickLive();
  CGLObject* PickAny();
  mat4x4 ReadMatrix();

  void Create();
  void Clone();
  void SceneAdd();
  void SceneDelete();
  void ShowShape();
  void SelectShape();
  void DrawShapes();
  void SceneSetMatrix();
  void SceneReset();
  void GroupAdd();
  void Transform();
  void Colour();
  void Flags();
  void ArrowSetters();
  void NullRoundTrip();
  void Query();
  void Export();
  void Finish();

  // Runs f, which must destroy exactly `expected`, and forgets them.
  template <class F>
  void Destroy(const std::set<CGLObject*>& expected, F&& f) {
    m_watch.ExpectDeaths(expected, f);
    m_model.Forget(expected);
  }

  FuzzInput& m_in;
  SceneModel m_model;
  ShapeWatch m_watch;
  std::unique_ptr<CGLScene> m_scene;
  QuadShape m_outsider;  // never handed to anyone
};

}  // namespace scenefuzz

#endif
