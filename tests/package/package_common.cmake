# Shared by the package checks: run(), install_tree(), expect_installed() and expect_no_epoxy().

# Runs a command; fails the check with its output when it fails. Its stdout is left in
# last_output.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "command failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
  set(last_output "${out}" PARENT_SCOPE)
endfunction()

# Installs BUILD_DIR into a fresh ${WORK_DIR}/prefix, sets prefix, and LIBDIR when not given
# (the build's CMAKE_INSTALL_LIBDIR, read from its cache). Given PREFIX, a tree installed
# already (the Debian packages' scratch root: deb_check.cmake), it installs nothing and checks
# that tree instead.
macro(install_tree)
  if(NOT DEFINED LIBDIR)
    file(STRINGS "${BUILD_DIR}/CMakeCache.txt" libdir_entry REGEX "^CMAKE_INSTALL_LIBDIR:")
    string(REGEX REPLACE "^[^=]*=" "" LIBDIR "${libdir_entry}")
  endif()
  if(LIBDIR STREQUAL "")
    message(FATAL_ERROR "no install library folder: pass -DLIBDIR=...")
  endif()
  file(REMOVE_RECURSE "${WORK_DIR}")
  if(DEFINED PREFIX)
    set(prefix "${PREFIX}")
  else()
    set(prefix "${WORK_DIR}/prefix")
    run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
  endif()
endmacro()

# Fails the check unless every file named (relative to the install prefix) was installed.
function(expect_installed)
  foreach(f IN LISTS ARGN)
    if(NOT EXISTS "${prefix}/${f}")
      message(FATAL_ERROR "missing from the install tree: ${f}")
    endif()
  endforeach()
endfunction()

# Fails the check when the program itself needs libepoxy: the core-profile renderer links it
# privately, so a host's link line and its NEEDED entries must not name it.
function(expect_no_epoxy program)
  find_program(READELF readelf REQUIRED)
  run(${READELF} -d "${program}")
  if(last_output MATCHES "NEEDED[^\n]*libepoxy")
    message(FATAL_ERROR "${program} needs libepoxy itself:\n${last_output}")
  endif()
endfunction()
