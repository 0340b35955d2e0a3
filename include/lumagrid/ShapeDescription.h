/// @file
/// A shape's class and parameters in words, for titles, logs and exported node names.
#ifndef LUMAGRID_SHAPEDESCRIPTION_H
#define LUMAGRID_SHAPEDESCRIPTION_H

#include <lumagrid/lumagrid_export.h>

#include <string>

class CGLObject;

namespace lumagrid {

/// The shape's class and the parameters its geometry is built from, then its alpha when it is
/// below 1; for example "CGLCone base 0.75 top 0 height 1.6 closed" or
/// "CGLSphere radius 0.95 alpha 0.45".
///
/// The cube at the centre of an axis triad (CGLAxis), a class of the library's own, is a
/// "CGLBox size" followed by its three edges.
///
/// Numbers are written as a default `std::ostream` writes doubles (six significant digits;
/// "nan" and "inf" as they are). A host's subclass is named after the library class it derives
/// from; a class derived from CGLObject alone, or CGLObject itself, gives "CGLObject". The shape
/// is only read: no modified mark changes and no GL call is made.
LUMAGRID_API std::string DescribeShape(CGLObject& shape);

}  // namespace lumagrid

#endif
