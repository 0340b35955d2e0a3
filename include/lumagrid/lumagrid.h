#ifndef LUMAGRID_LUMAGRID_H
#define LUMAGRID_LUMAGRID_H

/// @file
/// Everything Lumagrid exports: the math toolkit, the object model and rendering core, the
/// quadric and path shapes, the mesh layer, and the start-up functions.
///
/// The classes live in the global namespace, the mesh layer in namespace lumagrid. Include
/// this, or `<lumagrid/ClassName.h>` for one class.

// Math toolkit
#include <lumagrid/vec3d.h>
#include <lumagrid/vec4d.h>
#include <lumagrid/mat4x4.h>
#include <lumagrid/MQuat.h>
#include <lumagrid/MRot.h>

// Object model and rendering core
#include <lumagrid/CGLColor.h>
#include <lumagrid/CGLPoint.h>
#include <lumagrid/CGLObject.h>
#include <lumagrid/CGLScene.h>
#include <lumagrid/CGLGroup.h>
#include <lumagrid/CGLParams.h>
#include <lumagrid/CGLMatrixGuard.h>

// Quadric shapes
#include <lumagrid/CGLQuadric.h>
#include <lumagrid/CGLSphere.h>
#include <lumagrid/CGLCylinder.h>
#include <lumagrid/CGLCone.h>
#include <lumagrid/CGLTorus.h>
#include <lumagrid/CGLArrow.h>
#include <lumagrid/CGLAxis.h>

// Path shapes
#include <lumagrid/CGLPolyline.h>
#include <lumagrid/CGLBelt.h>
#include <lumagrid/CGLSpring.h>

// Meshes, bounds and picking
#include <lumagrid/Mesh.h>
#include <lumagrid/SceneQuery.h>
#include <lumagrid/ShapeDescription.h>

// Start-up
#include <lumagrid/lumagrid_module.h>

#endif
