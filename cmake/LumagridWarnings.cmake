# Warnings are errors on the project's own code, never on system headers.
function(lumagrid_strict_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
endfunction()
