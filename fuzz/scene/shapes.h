#ifndef LUMAGRID_FUZZ_SCENE_SHAPES_H
#define LUMAGRID_FUZZ_SCENE_SHAPES_H

// The shapes the scene fuzzer makes: every kind wrapped so that it reports
// its destruction and its draws.

#include <lumagrid/CGLObject.h>
#include <lumagrid/mat4x4.h>

#include "fuzz_input.h"
#include "scene/model.h"

namespace scenefuzz {

// Where Counted<> reports; the checks define them.
void ShapeDestroyed(CGLObject* p);
void ShapeDrawStarts(CGLObject* p);
void ShapeDrawEnds();

template <class Base>
class Counted : public Base {
 public:
  template <class... A>
  explicit Counted(A... a) : Base(a...) {}
  Counted(const Counted& o) : Base(o) {}
  Counted& operator=(const Counted&) = delete;
  ~Counted() override { ShapeDestroyed(this); }

  long Draw() override {
    ShapeDrawStarts(this);
    const long r = Base::Draw();
    ShapeDrawEnds();
    return r;
  }

  const mat4x4& Matrix() const { return this->m_matrix; }
};

// A new shape of the kind, its constructor and arguments read from in.
CGLObject* MakeShape(int kind, FuzzInput& in);
// A copy of src, or null for the kinds that are not copied (groups).
CGLObject* CopyShape(int kind, const CGLObject& src);
// The model's entry for a new shape.
Node NodeOf(CGLObject* p, int kind);

}  // namespace scenefuzz

#endif
