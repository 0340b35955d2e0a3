#include "mesh/glu_quadric_mesh.h"
#include "mesh/shape_meshes.h"
#include "shapes/quadric/box_faces.h"

namespace lumagrid::detail {

namespace {

void AddSide(MeshAssembly& mesh, const Frustum& f) {
  mesh.Add(GluCylinderMesh(f.baseRadius, f.topRadius, f.length, f.slices, f.stacks,
                           QuadricOrientation::Outside));
}

void AddBaseDisk(MeshAssembly& mesh, const Frustum& f) {
  mesh.Add(GluDiskMesh(0.0, f.baseRadius, f.slices, 1, QuadricOrientation::Inside));
}

// Leaves the matrix at the far end, as the list does.
void AddTopDisk(MeshAssembly& mesh, const Frustum& f) {
  mesh.Translate(0.0, 0.0, f.length);
  mesh.Add(GluDiskMesh(0.0, f.topRadius, f.slices, 1, QuadricOrientation::Outside));
}

void AddFrustum(MeshAssembly& mesh, const Frustum& f) {
  AddSide(mesh, f);
  AddBaseDisk(mesh, f);
}

float InFloat(double v) {
  return static_cast<float>(v);
}

}  // namespace

void AddSphere(MeshAssembly& mesh, const SphereGeometry& sphere) {
  mesh.Add(GluSphereMesh(sphere.radius, sphere.slices, sphere.stacks));
}

void AddCylinder(MeshAssembly& mesh, const CylinderGeometry& cylinder) {
  AddSide(mesh, cylinder.side);
  if (cylinder.baseDisk) {
    AddBaseDisk(mesh, cylinder.side);
  }
  if (cylinder.topDisk) {
    mesh.Push();
    AddTopDisk(mesh, cylinder.side);
    mesh.Pop();
  }
}

void AddArrow(MeshAssembly& mesh, const ArrowGeometry& arrow) {
  if (arrow.lite) {
    mesh.AddLines({{0.0, 0.0, 0.0}, {0.0, 0.0, InFloat(arrow.shaft.length)}});
    mesh.Translate(0.0, 0.0, arrow.shaft.length);
  } else {
    AddFrustum(mesh, arrow.shaft);
    AddTopDisk(mesh, arrow.shaft);
  }
  for (int i = 0; i < arrow.extraHeads; ++i) {
    AddFrustum(mesh, arrow.extraHead);
    mesh.Translate(0.0, 0.0, arrow.extraHead.length);
  }
  AddFrustum(mesh, arrow.lastHead);
}

void AddBox(MeshAssembly& mesh, double sizeX, double sizeY, double sizeZ) {
  for (const BoxFace& face : BoxFaces(sizeX, sizeY, sizeZ)) {
    std::vector<PathPoint> quad;
    for (const std::array<float, 3>& v : face.vertices) {
      quad.push_back({v[0], v[1], v[2]});
    }
    mesh.AddPolygon(quad, {face.normal[0], face.normal[1], face.normal[2]});
  }
}

}  // namespace lumagrid::detail
