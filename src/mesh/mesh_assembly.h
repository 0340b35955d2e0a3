#ifndef LUMAGRID_SRC_MESH_MESH_ASSEMBLY_H
#define LUMAGRID_SRC_MESH_MESH_ASSEMBLY_H

#include <lumagrid/Mesh.h>

#include <vector>

#include "mesh/affine.h"
#include "shapes/geometry/matrix_step.h"
#include "shapes/geometry/path_point.h"

namespace lumagrid::detail {

// Gathers a shape's mesh as its list would be drawn: pieces arrive in the frame of the GL
// matrix calls made so far, as GL would receive them, less the primitives that would reach
// GL with a vertex that is not finite. The result holds at most one triangle part and one
// line part.
class MeshAssembly {
 public:
  MeshAssembly();

  // The matrix calls a list makes, with glPushMatrix/glPopMatrix's stack (a pop with
  // nothing pushed is ignored, as GL ignores it with an error).
  void Push();
  void Pop();
  void Translate(double x, double y, double z);
  void Rotate(double degrees, double x, double y, double z);
  void MultMatrix(const double* glOrder);
  // Each step's glTranslated or glRotated, in order.
  void Apply(const std::vector<MatrixStep>& steps);

  // A triangle part or a line part, through the current matrix.
  void Add(const MeshPart& part);
  // A piece of another mesh, through the current matrix.
  void Add(const Mesh& mesh);
  // GL_LINE_STRIP and GL_LINES over the points; GL_LINES with a normal for each point when
  // normals are given (a tube's wireframe, which GL lights), else with none.
  void AddLineStrip(const std::vector<PathPoint>& points);
  void AddLines(const std::vector<PathPoint>& points, const std::vector<PathPoint>& normals = {});
  // A convex GL_POLYGON with one normal, as a fan from its first point.
  void AddPolygon(const std::vector<PathPoint>& outline, const PathPoint& normal);

  Mesh Take();

 private:
  MeshPart& PartFor(Primitive primitive);

  std::vector<Affine> stack_;
  Mesh mesh_;
};

}  // namespace lumagrid::detail

#endif
