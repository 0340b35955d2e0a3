#ifndef LUMAGRID_EXPORT_H
#define LUMAGRID_EXPORT_H

/// @file
/// The export marker of the library's public classes and functions.

/// Gives a class or function default visibility: the library is built with symbols hidden
/// by default, and exports only what carries this.
#define LUMAGRID_API __attribute__((visibility("default")))

#endif
