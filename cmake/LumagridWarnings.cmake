# Warnings on the project's own code, never on system headers. They become
# errors with LUMAGRID_WERROR.

set(LUMAGRID_WARNING_FLAGS -Wall -Wextra $<$<BOOL:${LUMAGRID_WERROR}>:-Werror>)

function(lumagrid_strict_warnings target)
  target_compile_options(${target} PRIVATE ${LUMAGRID_WARNING_FLAGS})
endfunction()
