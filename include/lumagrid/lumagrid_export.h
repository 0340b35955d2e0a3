#ifndef LUMAGRID_EXPORT_H
#define LUMAGRID_EXPORT_H

// Symbols are hidden by default; exported classes and functions carry this.
#define LUMAGRID_API __attribute__((visibility("default")))

#endif
