#ifndef LUMAGRID_LUMAGRID_MODULE_H
#define LUMAGRID_LUMAGRID_MODULE_H

#include <lumagrid/lumagrid_export.h>

// Registration of the library with its host.
//
// liblumagrid.so registers itself when it is loaded and unregisters when it
// is unloaded. It looks up, in the process's global symbol scope, a hook the
// host may define with C linkage and default visibility (in an executable,
// link with -rdynamic, or ENABLE_EXPORTS in CMake):
//
//   extern "C" int lumagrid_host_register(void);    // non-zero accepts
//   extern "C" void lumagrid_host_unregister(void); // optional
//
// No hook: the library counts as registered. A hook that returns 0 refuses:
// the library writes "Lumagrid.dll : initialisation impossible." and a
// newline to standard error, stays unregistered, and works as before. The
// unregister hook is called once, at unload, only after a registration.
//
// liblumagrid.a registers nothing by itself: a static host that wants the
// same calls makes them with lumagrid_module_start and lumagrid_module_stop.

extern "C" {

// Registers with the host unless that was done (or refused) already; returns
// lumagrid_module_registered().
LUMAGRID_API int lumagrid_module_start(void);

// Calls the host's unregister hook if the library is registered, once; a
// later lumagrid_module_start registers again.
LUMAGRID_API void lumagrid_module_stop(void);

// 1 when registration succeeded (or there was no hook), 0 otherwise.
LUMAGRID_API int lumagrid_module_registered(void);
}

#endif
