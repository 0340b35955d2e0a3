#ifndef LUMAGRID_LUMAGRID_MODULE_H
#define LUMAGRID_LUMAGRID_MODULE_H

#include <lumagrid/lumagrid_export.h>

/// @file
/// Registration of the library with its host.
///
/// liblumagrid.so registers itself when it is loaded and unregisters when it is unloaded;
/// nothing else happens then: no GL or GLE call, and no output but the refusal below. It looks up,
/// in the process's global symbol scope, hooks the host may define with C linkage and default
/// visibility (in an executable, link with `-rdynamic`, or `ENABLE_EXPORTS` in CMake):
/// @code
///   extern "C" int lumagrid_host_register(void);    // non-zero accepts
///   extern "C" void lumagrid_host_unregister(void); // optional
/// @endcode
/// No hook: the library counts as registered. A hook that returns 0 refuses: the library
/// writes "Lumagrid.dll : initialisation impossible." and a newline to standard error, stays
/// unregistered, and works as before; that line is the only output the library ever writes.
/// The unregister hook is called once, at unload, only after a registration through
/// `lumagrid_host_register` (without that hook it is never looked up).
///
/// liblumagrid.a registers nothing by itself: a static host that wants the same calls makes
/// them with lumagrid_module_start() and lumagrid_module_stop(). No class depends on
/// registration.

extern "C" {

/// Registers with the host unless that was done (or refused) already.
///
/// The first call, and the first after lumagrid_module_stop(), calls the host's register hook
/// (and on a refusal writes the message); later calls return the same answer without calling
/// it again. The shared library makes the first call itself, at load.
/// @return lumagrid_module_registered().
LUMAGRID_API int lumagrid_module_start(void);

/// Calls the host's unregister hook if the library is registered, once; a later
/// lumagrid_module_start() registers again.
///
/// Also forgets a refusal, so the next start asks the host again.
LUMAGRID_API void lumagrid_module_stop(void);

/// 1 when registration succeeded (or there was no hook), 0 otherwise: refused, not started
/// yet, or stopped.
LUMAGRID_API int lumagrid_module_registered(void);
}

#endif
