#ifndef LUMAGRID_CGLBELT_H
#define LUMAGRID_CGLBELT_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/lumagrid_export.h>

#include <vector>

/// A belt over two pulleys, drawn as one `GL_LINE_STRIP` in the local x-y plane.
///
/// Pulley A, of radius m_dRadius1, is centred at the origin; pulley B, of radius m_dRadius2, at
/// (m_dEntraxe, 0, 0). The full belt is the closed outline of the two outer common tangents and
/// the two contact arcs; a belt type selects one single tangent segment instead (SetBType).
/// When B is the larger pulley, the arc on A is drawn on the side facing B.
///
/// The outline is rebuilt into m_aVertex at every list rebuild, replacing any vertex added by
/// hand. Pulleys that admit no outline (centres closer than 0.0005, one pulley inside the other
/// or touching it from inside) give no vertices: the list is left as it was and the belt stays
/// modified. The belt sets no colour of its own (the base's material applies) and has no
/// normals. It owns its points, so it cannot be copied.
///
/// Of the belt's own setters only SetEntraxe marks it modified; the others, AddVertex and
/// InitVertex store only, and show after the next change that marks it (a transform, a colour,
/// Select).
class LUMAGRID_API CGLBelt : public CGLObject {
 public:
  /// Radii 1.0 and 1.0, entraxe 1.0, quality 20, shaded 1, section 0, full belt.
  CGLBelt();
  /// A full belt with the given pulleys; quality 20, shaded 1, section 0.
  /// @param r1 radius of pulley A, centred at the origin.
  /// @param r2 radius of pulley B.
  /// @param entraxe distance between the pulley centres, along +x.
  CGLBelt(double r1, double r2, double entraxe);
  /// Not copyable: the points are owned.
  CGLBelt(const CGLBelt&) = delete;
  /// Not copyable: the points are owned.
  CGLBelt& operator=(const CGLBelt&) = delete;
  /// Deletes every point (InitVertex()), then the display list.
  ~CGLBelt() override;

  /// Selects what is drawn: 1 or 8, one of the two outer tangents; 2 or 4, one of the two
  /// crossed tangents (none when the pulleys overlap); any other value, the full belt.
  ///
  /// Stored as the internal codes 8, 4, 2, 1 and 16. Does not mark the belt modified.
  void SetBType(unsigned char b);
  /// Stores the belt section `s`, which has no effect on drawing; the three sizes are ignored.
  /// Does not mark the belt modified.
  /// @return true for sections 0 to 3, false otherwise (`s` is stored in every case).
  bool SetSection(unsigned int s, double, double, double);
  /// Sets the distance between the pulley centres, along +x; marks the belt modified.
  void SetEntraxe(double e);
  /// Sets the arc points per full turn, 10 to 50 (default 20); other values are ignored. Does
  /// not mark the belt modified.
  void SetQuality(unsigned int q);
  /// Returns the arc points per full turn; the argument is not written.
  int GetQuality(unsigned int&);
  /// Stores the shaded-mode flag, which has no effect on drawing. Does not mark the belt
  /// modified.
  void SetShadedMode(int shaded);

  /// @name Hand-made vertices
  /// Each appends a point and returns true, without marking the belt modified. DrawDirect draws
  /// them; the next list rebuild replaces them with the outline.
  ///@{

  /// Appends the point (p[0], p[1], p[2]); a null `p` adds nothing.
  bool AddVertex(double* p);
  /// Appends the point (x, y, z).
  bool AddVertex(double x, double y, double z);
  /// Appends a copy of `p`.
  bool AddVertex(CGLPoint& p);
  /// Appends `p` itself and takes ownership of it; a null pointer is not stored.
  bool AddVertex(CGLPoint* p);
  /// Deletes every point and empties the array; does not mark the belt modified.
  bool InitVertex();
  ///@}

  /// Rebuilds the outline (BuildProfile()) and compiles its strip into the display list when the
  /// belt is modified.
  ///
  /// With no outline nothing is compiled: the previous list stays and the belt stays modified.
  /// @return 1 when the list was current; 0 after a rebuild, with no outline, or when no list
  /// name could be had.
  long DisplayListMake() override;
  /// Draws the vertices as they stand, with the transform and material. It never builds the
  /// outline: until the first list rebuild the array holds only hand-made vertices.
  ///
  /// With no vertices it returns 0 and leaves the matrix it pushed on the stack: hosts keep a
  /// spare (CGLMatrixGuard pops it).
  /// @return 1 (drawing nothing) when the belt is hidden; 0 otherwise.
  long DrawDirect() override;

 protected:
  /// Replaces the vertex array by the outline of the current pulleys, quality and belt type.
  void BuildProfile();

  /// Shaded-mode flag (default 1); stored only.
  int m_bShaded;
  /// Arc points per full turn, 10 to 50 (default 20).
  int m_nQuality;
  /// The owned vertices, in drawing order.
  std::vector<CGLPoint*> m_aVertex;
  /// Radius of pulley A, centred at the origin.
  double m_dRadius1;
  /// Radius of pulley B, centred at (m_dEntraxe, 0, 0).
  double m_dRadius2;
  /// Distance between the pulley centres, along +x.
  double m_dEntraxe;
  /// Belt section code, 0 to 3 (default 0); stored only.
  unsigned int m_nSection;
  /// Internal belt-type code: 16 the full belt; 1, 2, 4 or 8 one single tangent (see SetBType).
  unsigned char m_nBType;
};

#endif
