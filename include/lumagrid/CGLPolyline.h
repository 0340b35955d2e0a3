#ifndef LUMAGRID_CGLPOLYLINE_H
#define LUMAGRID_CGLPOLYLINE_H

#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/lumagrid_export.h>

#include <vector>

/// An open chain of points drawn as one `GL_LINE_STRIP`, in the local frame.
///
/// A host adds points with AddVertex (each change marks the polyline modified, so the next Draw
/// rebuilds its list) and hands the polyline to a scene or group. The polyline owns its points
/// and deletes them with itself, so it cannot be copied.
///
/// The line colour is `glColor3d` of the normal colour, compiled into the list: a selected
/// polyline keeps it (the highlight material is still set around it, which shows under
/// lighting). A line has no normals of its own, so under lighting its shade follows whatever
/// normal was issued last.
class LUMAGRID_API CGLPolyline : public CGLObject {
 public:
  /// An empty polyline.
  CGLPolyline();
  /// Not copyable: the points are owned.
  CGLPolyline(const CGLPolyline&) = delete;
  /// Not copyable: the points are owned.
  CGLPolyline& operator=(const CGLPolyline&) = delete;
  /// Deletes every point (InitVertex()), then the display list.
  ~CGLPolyline() override;

  /// @name Points
  /// Each appends at the end, marks the polyline modified and returns true.
  ///@{

  /// Appends `p` itself and takes ownership of it. A null pointer is not stored, but the
  /// polyline is still marked modified.
  bool AddVertex(CGLPoint* p);
  /// Appends a copy of `p`.
  bool AddVertex(CGLPoint& p);
  /// Appends the point (x, y, z).
  bool AddVertex(double x, double y, double z);
  /// Appends `n` points read as consecutive triples `p[3i]`, `p[3i + 1]`, `p[3i + 2]`.
  ///
  /// With `n` < 1 or a null `p` it adds nothing and leaves the mark alone.
  /// @return true, or false if an append failed (stopping there).
  bool AddVertex(int n, double* p);
  /// Deletes every point and empties the chain; marks the polyline modified.
  bool InitVertex();
  ///@}

  /// Compiles the colour and the strip into the display list when the polyline is modified.
  ///
  /// With no points nothing is compiled: the previous list stays, so Draw goes on showing the old
  /// chain, and the polyline stays modified.
  /// @return 1 when the list was current; 0 after a rebuild, with no points, or when no list name
  /// could be had.
  long DisplayListMake() override;
  /// Draws the colour and the strip once after each change, in the current frame: no transform,
  /// no material, no push.
  ///
  /// It tests the modified mark, not visibility, and clears it: a second call draws nothing
  /// until the next change, and a later Draw keeps the list built before the change.
  /// @return 1 (drawing nothing) when not modified; 0 otherwise (also with no points).
  long DrawDirect() override;

 protected:
  /// Emits `glColor3d` of the normal colour, then the strip of every point; no list, no matrix.
  void EmitStrip();

  /// The owned points, in drawing order.
  std::vector<CGLPoint*> m_aVertex;
};

#endif
