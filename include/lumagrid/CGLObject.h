#ifndef LUMAGRID_CGLOBJECT_H
#define LUMAGRID_CGLOBJECT_H

#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/lumagrid_export.h>
#include <lumagrid/mat4x4.h>

#include <cstdint>
#include <utility>

// As GLU declares it for C++.
class GLUquadric;

/// Root of every drawable: transform, colours, flags, display list and the draw pipeline.
///
/// A host creates shapes on the heap, sets their transform (`Move`, `Scale`, `Rotate`
/// families, `SetMatrix`), colour, highlight colour, opacity, visibility and selection, and
/// hands them to a CGLScene or a CGLGroup, which owns them from then on and draws them into
/// the OpenGL context the host made current.
///
/// Each shape compiles its geometry once into a display list and replays it at every Draw().
/// Changing the transform, a colour, the opacity or the selection marks the object modified,
/// and the list is rebuilt at the next Draw(); SetMatrix(), AlphaOff() and SetVisible() do
/// not. The list never holds the transform or the colour: Draw() applies those around it.
/// Operations returning `long` give 1 when they did their work or had nothing to do, and 0
/// when they failed or do nothing at this level.
///
/// A shape supplies only its geometry, by overriding DisplayListMake() (and DrawDirect() for
/// immediate drawing) with the two protocol helpers:
/// @code
///   long CGLFoo::DisplayListMake() { return DisplayListCompile([&] { Emit(); }); }
///   long CGLFoo::DrawDirect() { return DrawImmediate([&] { Emit(); }); }
/// @endcode
/// Colours reach OpenGL only as the front material's ambient and diffuse colour: the host
/// enables lighting, and blending for translucent shapes; the library enables neither.
/// Drawing, and destroying an object that has a list, need the host's context current; the
/// object keeps no reference to one.
class LUMAGRID_API CGLObject {
 public:
  /// Identity transform, grey 0.5 with alpha 1, green highlight (`0xFF00`), visible, not
  /// selected, modified, no display list (-1).
  ///
  /// Takes its tessellation from s_nSlices4New and s_nStacks4New; the quadric handle is null.
  CGLObject();
  /// Member-wise: the copy shares the display list and the quadric handle.
  ///
  /// Destroying either deletes the list both use; keep drawables on the heap, one owner each.
  CGLObject(const CGLObject& o);
  /// Member-wise, as the copy constructor: shares the list name and the quadric handle.
  ///
  /// The list name and quadric handle the object held before are overwritten, not released.
  CGLObject& operator=(const CGLObject& o);

  // Transforms. Angles are in radians.

  /// Translates by (d, d, d), (x, y, z) or p, in the object's own frame; marks the object
  /// modified.
  ///
  /// 1.0 is the no-op value, as for Scale(): `Move(1.0)` and `Move(1, 1, 1)` do nothing,
  /// while `Move(0.0)` translates by zero and marks the object modified. The three-double
  /// form goes through the virtual Move(const CGLPoint&); Move(double) does not.
  /// Being relative, a Move after a Rotate moves along the rotated axes.
  /// @return 1.
  ///@{
  virtual long Move(double d);
  virtual long Move(double x, double y, double z);
  virtual long Move(const CGLPoint& p);
  ///@}
  /// Replaces the whole transform with a translation by (d, d, d), (x, y, z) or p; marks the
  /// object modified.
  ///
  /// Any scale or rotation is lost: place a shape with MoveTo() first, then use the relative
  /// calls. The three-double form goes through the virtual MoveTo(const CGLPoint&).
  /// @return 1.
  ///@{
  virtual long MoveTo(double d);
  virtual long MoveTo(double x, double y, double z);
  virtual long MoveTo(const CGLPoint& p);
  ///@}
  /// Scales by d on all three axes, by (x, y, z) or by p's factors, in the object's own
  /// frame; marks the object modified.
  ///
  /// Nothing happens when all three factors are 1.0. Zero, negative and non-finite factors
  /// are applied as given. The three-double form goes through the virtual
  /// Scale(const CGLPoint&).
  /// @return 1.
  ///@{
  virtual long Scale(double d);
  virtual long Scale(double x, double y, double z);
  virtual long Scale(const CGLPoint& p);
  ///@}
  /// Replaces the whole transform with a scale by d, by (x, y, z) or by p's factors; marks
  /// the object modified.
  ///
  /// Any translation or rotation is lost. The three-double form goes through the virtual
  /// ScaleTo(const CGLPoint&).
  /// @return 1.
  ///@{
  virtual long ScaleTo(double d);
  virtual long ScaleTo(double x, double y, double z);
  virtual long ScaleTo(const CGLPoint& p);
  ///@}
  /// Rotates by x, y, z radians (or p's three angles): about X, then Y, then Z, each
  /// multiplied on the right; marks the object modified.
  ///
  /// A point of the shape is turned about Z first, then Y, then X, each axis that of the
  /// frame the matrix held before the call, as `glRotated` about X, Y and Z in that order
  /// would turn it. Nothing happens when all three angles are 0.0. The three-double form goes
  /// through the virtual Rotate(const CGLPoint&).
  /// @return 1.
  ///@{
  virtual long Rotate(double x, double y, double z);
  virtual long Rotate(const CGLPoint& p);
  ///@}
  /// Loads the rotations about X, Y and Z (radians) one after another; marks the object
  /// modified.
  ///
  /// Each load replaces the whole matrix, so only the last survives: the result is the pure
  /// rotation by z (`p.Z()`) about Z, and the X and Y angles are lost. The three-double form
  /// goes through the virtual RotateTo(const CGLPoint&).
  /// @return 1.
  ///@{
  virtual long RotateTo(double x, double y, double z);
  virtual long RotateTo(const CGLPoint& p);
  ///@}
  /// Rotates by a radians about X, Y or Z, through the virtual Rotate(const CGLPoint&).
  ///
  /// Nothing happens when a is 0.0; otherwise marks the object modified.
  /// @return 1.
  ///@{
  virtual long RotateX(double a);
  virtual long RotateY(double a);
  virtual long RotateZ(double a);
  ///@}
  /// Replaces the whole transform through the virtual RotateTo(const CGLPoint&), with a
  /// radians on one axis; marks the object modified.
  ///
  /// Only the rotation about Z survives RotateTo(): RotateZTo() gives the pure rotation by a
  /// about Z, while RotateXTo() and RotateYTo() leave the identity, whatever a is.
  /// @return 1.
  ///@{
  virtual long RotateXTo(double a);
  virtual long RotateYTo(double a);
  virtual long RotateZTo(double a);
  ///@}
  /// Replaces the transform with a copy of m, without marking the object modified.
  ///
  /// The display list never holds the transform, so the object stays current. The pointer
  /// form reads sixteen doubles in the column-major order `glMultMatrixd` takes; m may be
  /// this object's own matrix, and is not checked (null is not allowed).
  /// @return 1.
  ///@{
  virtual long SetMatrix(const mat4x4& m);
  virtual long SetMatrix(double* m);
  ///@}

  // Colours. The normal colour is drawn while the object is not selected, the highlight
  // colour while it is.

  /// Sets the normal colour; marks the object modified only when the value differs.
  ///
  /// - `(r, g, b, a)` and `CGLColor`: all four channels, alpha included.
  /// - `unsigned long`: a colour reference, red in the low byte, then green, then blue, each
  ///   divided by 255.0; bits 24 and up are ignored and alpha becomes 1.0 (`0x0000FF` is
  ///   red, `0xFF0000` blue).
  /// - `double`: a grey level; red, green and blue take v and alpha keeps its value. Alpha is
  ///   left out of the comparison too.
  ///
  /// Channels are taken as given, never clamped; a NaN channel always counts as different.
  /// The four-double and colour-reference forms go through the virtual
  /// ColorSet(const CGLColor&).
  /// @return 1.
  ///@{
  virtual long ColorSet(double r, double g, double b, double a);
  virtual long ColorSet(unsigned long rgb);
  virtual long ColorSet(double v);
  virtual long ColorSet(const CGLColor& c);
  ///@}
  /// Sets the highlight colour, drawn while the object is selected, with the rules of
  /// ColorSet(); marks the object modified only when the value differs.
  ///
  /// The colour-reference form gives alpha 1.0 and the grey level keeps alpha, as for
  /// ColorSet(). The default highlight is `0xFF00`, green. The four-double and
  /// colour-reference forms go through the virtual HLColorSet(const CGLColor&).
  /// @return 1.
  ///@{
  virtual long HLColorSet(double r, double g, double b, double a);
  virtual long HLColorSet(unsigned long rgb);
  virtual long HLColorSet(double v);
  virtual long HLColorSet(const CGLColor& c);
  ///@}
  /// The normal colour.
  virtual const CGLColor& ColorGet();
  /// The highlight colour.
  virtual const CGLColor& HLColorGet();
  /// Sets the normal colour's alpha (1.0 is opaque); marks the object modified when it
  /// differs.
  ///
  /// The highlight colour's alpha is never touched. Translucency needs blending, which the
  /// host enables.
  /// @return 1.
  virtual long AlphaSet(double a);
  /// Makes the normal colour opaque again (alpha 1.0), without marking the object modified.
  /// @return 1.
  virtual long AlphaOff();
  /// The normal colour's alpha.
  virtual double AlphaGet();

  // Display list and drawing.

  /// Makes sure the object has a display-list name.
  ///
  /// A valid list is kept (its contents are replaced by the next compile); otherwise a new
  /// name is generated, or -1 stored when OpenGL gives none.
  /// @return 1 when the object has a list name, 0 when none could be had.
  virtual long DisplayListsAllocate();
  /// Rebuilds the display list from the shape's geometry when the object is modified.
  ///
  /// Draw() calls it with the matrix pushed and the colour applied. The base has no
  /// geometry: it does nothing and returns 0, so a bare CGLObject stays modified. Shapes
  /// compile with DisplayListCompile().
  /// @return 0 after a rebuild (or when no list could be had), 1 when the list was current.
  ///         Nothing in the library reads it.
  virtual long DisplayListMake();
  /// Draws the object: pushes the matrix, applies the transform and the colour (the
  /// highlight colour when selected), rebuilds the list if the object is modified, calls
  /// the list and pops.
  ///
  /// A hidden object makes no OpenGL call at all. While there is no list (-1) none is
  /// called; a list OpenGL no longer knows (a new context) is regenerated at the first
  /// draw after the object is next modified.
  /// @return 1, always.
  virtual long Draw();
  /// Draws the geometry at once, without a display list, inside the object's transform and
  /// colour.
  ///
  /// The base has no geometry: it does nothing and returns 0. Shapes that draw immediately
  /// implement it with DrawImmediate(); the others keep the base's, which draws nothing.
  /// @return 0 after drawing (and from the base), 1 when hidden.
  virtual long DrawDirect();

  /// Selects (true) or deselects the object; marks it modified when the state changes.
  ///
  /// A selected object is drawn with its highlight colour.
  virtual void Select(bool b);
  /// 1 when the object is selected, else 0.
  virtual long IsSelected();
  /// Shows (true) or hides the object, without marking it modified.
  ///
  /// A hidden object's Draw() makes no OpenGL call at all.
  virtual void SetVisible(bool b);
  /// 1 when the object is visible, else 0.
  virtual long IsVisible();

  /// Deletes the display list when its name is greater than 0, even if a copy still uses it.
  ///
  /// Needs the context current when there is a list. Does not release the quadric handle:
  /// the quadric shapes do.
  virtual ~CGLObject();

  /// The object's address: unique among live objects, not kept by a copy.
  ///
  /// The scene's key for the object.
  std::uint64_t GetID() const;

  /// Slices given to every shape constructed from now on; 128 at start.
  ///
  /// A host may change it before constructing shapes; shapes already constructed keep
  /// theirs. The library never writes it.
  static int s_nSlices4New;
  /// Stacks given to every shape constructed from now on; 8 at start.
  ///
  /// A host may change it before constructing shapes; shapes already constructed keep
  /// theirs. The library never writes it.
  static int s_nStacks4New;

 protected:
  /// Pushes the matrix, calls DrawTransform() and applies the colour as the front material
  /// (the highlight colour when selected).
  /// @return 1; Draw() and DrawImmediate() draw nothing, and pop nothing, unless it is
  ///         exactly 1.
  virtual long DrawStart();
  /// Multiplies the current matrix by the object's transform; returns 1.
  virtual long DrawTransform();
  /// Pops the matrix; returns 1.
  virtual long DrawFinish();
  /// A hook for derived classes: does nothing and returns 0. Nothing in the library calls
  /// it.
  virtual long DrawSelection();

  /// Rebuilds the display list from emit() when the object is modified.
  ///
  /// emit() issues the geometry only: no matrix push or pop and no colour or material calls
  /// (Draw() supplies those around the list).
  /// @return 1 if the list was current, 0 after a rebuild or when no list could be had (the
  ///         object then stays modified and the next Draw() retries).
  template <class Emit>
  long DisplayListCompile(Emit&& emit) {
    return DisplayListCompileIf([] { return true; }, std::forward<Emit>(emit));
  }

  /// The same, for shapes that may have nothing to draw.
  ///
  /// After the list name is had, ready() prepares the geometry and says whether there is
  /// any. When there is none the old list stays and the object stays modified.
  /// @return 1 if the list was current, else 0.
  template <class Ready, class Emit>
  long DisplayListCompileIf(Ready&& ready, Emit&& emit) {
    if (!m_bModified) {
      return 1;
    }
    if (DisplayListsAllocate() == 0) {
      return 0;
    }
    if (!std::forward<Ready>(ready)()) {
      return 0;
    }
    DisplayListBegin();
    std::forward<Emit>(emit)();
    DisplayListEnd();
    m_bModified = false;
    return 0;
  }

  /// Draws emit() at once inside the object's transform and colour.
  ///
  /// Nothing when hidden or when DrawStart() does not return 1.
  /// @return 0 after drawing, 1 when nothing was drawn.
  template <class Emit>
  long DrawImmediate(Emit&& emit) {
    if (!m_bVisible) {
      return 1;
    }
    if (DrawStart() != 1) {
      return 1;
    }
    std::forward<Emit>(emit)();
    DrawFinish();
    return 0;
  }

  /// `glNewList(m_nDisplayList, GL_COMPILE)`.
  void DisplayListBegin();
  /// `glEndList()`.
  void DisplayListEnd();

  mat4x4 m_matrix;         ///< Model transform, multiplied onto the current matrix when drawn.
  CGLColor m_color;        ///< Normal colour, alpha included.
  CGLColor m_hlColor;      ///< Highlight colour, drawn instead of m_color while selected.
  int m_nDisplayList;      ///< Display-list name; -1 when there is none.
  bool m_bVisible;         ///< The object is drawn.
  bool m_bSelected;        ///< The object is drawn with its highlight colour.
  bool m_bModified;        ///< The display list is out of date; cleared only by a rebuild.
  int m_nSlices;           ///< Tessellation around the axis, for the shapes that use it.
  int m_nStacks;           ///< Tessellation along the axis, for the shapes that use it.
  GLUquadric* m_pQuadric;  ///< GLU quadric of the quadric shapes; null until one makes it.
};

#endif
