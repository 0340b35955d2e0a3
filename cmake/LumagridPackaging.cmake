# Debian packages, one per install component, built by CPack's DEB generator (scripts/package
# configures, runs cpack, lintian and the package test; docs/packaging.md):
#   liblumagrid0.1           runtime  the shared library and its SONAME link
#   liblumagrid-dev          dev      headers, archive, .so link, CMake package, lumagrid.pc
#   liblumagrid-testing-dev  testing  the testing kit
# The runtime package is named after the SONAME (liblumagrid.so.0.1), so that two minor versions
# with different ABIs can be installed side by side.

set(LUMAGRID_PACKAGE_MAINTAINER "Lumagrid developers <lumagrid@lumagrid.invalid>"
    CACHE STRING "Maintainer field of the Debian packages")

# The Debian changelog's newest entry gives the packages' revision: `lumagrid (0.1.0-1) ...`.
set(_lumagrid_debian "${CMAKE_CURRENT_LIST_DIR}/debian")
file(STRINGS "${_lumagrid_debian}/changelog" _lumagrid_entry LIMIT_COUNT 1)
if(NOT _lumagrid_entry MATCHES "^lumagrid \\(([^)-]+)-([^)]+)\\)")
  message(FATAL_ERROR "${_lumagrid_debian}/changelog: no `lumagrid (VERSION-REVISION)` entry")
endif()
set(LUMAGRID_DEBIAN_REVISION "${CMAKE_MATCH_2}")
if(NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  # Only a warning: a version bump must not break the ordinary build. The package test fails.
  message(WARNING "cmake/debian/changelog has no entry for ${PROJECT_VERSION}: add one before "
                  "building the Debian packages")
endif()

set(LUMAGRID_RUNTIME_PACKAGE "liblumagrid${LUMAGRID_SOVERSION}")

# Every package carries its copyright file and the changelog, gzip -9n (no name, no timestamp)
# as Debian wants them, in /usr/share/doc/<package>. They belong to packages, not to an install
# tree: EXCLUDE_FROM_ALL keeps them out of a plain `cmake --install`, and CPack still installs
# them, since it installs each component by name.
configure_file("${_lumagrid_debian}/copyright.in" "${PROJECT_BINARY_DIR}/debian/copyright" @ONLY)
find_program(LUMAGRID_GZIP gzip)
if(LUMAGRID_GZIP)
  execute_process(COMMAND "${LUMAGRID_GZIP}" -9n -c "${_lumagrid_debian}/changelog"
                  OUTPUT_FILE "${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz"
                  RESULT_VARIABLE _lumagrid_gzip_result)
  if(NOT _lumagrid_gzip_result EQUAL 0)
    message(FATAL_ERROR "gzip failed on ${_lumagrid_debian}/changelog")
  endif()
  foreach(_lumagrid_pair IN ITEMS "runtime;${LUMAGRID_RUNTIME_PACKAGE}" "dev;liblumagrid-dev"
                                  "testing;liblumagrid-testing-dev")
    list(GET _lumagrid_pair 0 _lumagrid_component)
    list(GET _lumagrid_pair 1 _lumagrid_package)
    install(FILES "${PROJECT_BINARY_DIR}/debian/copyright"
                  "${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz"
            DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${_lumagrid_package}
            COMPONENT ${_lumagrid_component} EXCLUDE_FROM_ALL)
  endforeach()
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${_lumagrid_debian}/changelog")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lumagrid)
set(CPACK_PACKAGE_VENDOR "The Lumagrid developers")
set(CPACK_PACKAGE_CONTACT "${LUMAGRID_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}")
set(CPACK_STRIP_FILES ON)
# Each package's synopsis is the first line of its own description below; CPack would put the
# project's description in front of it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
# The testing kit's component is absent when LUMAGRID_INSTALL_TESTING_KIT is off.
if(LUMAGRID_INSTALL_TESTING_KIT)
  set(CPACK_COMPONENTS_ALL runtime dev testing)
else()
  set(CPACK_COMPONENTS_ALL runtime dev)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${LUMAGRID_DEBIAN_REVISION}")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${LUMAGRID_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SOURCE lumagrid)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Each -dev package depends on the one below it at exactly the same version.
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(_lumagrid_about
    "Lumagrid gives a host application a small retained-mode set of 3D shapes
(sphere, cylinder, cone, torus, arrow, axis triad, polyline, belt, springs)
drawn into the OpenGL context the host has made current, each compiled once
into a display list, plus a double-precision vector, matrix and quaternion
toolkit.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${LUMAGRID_RUNTIME_PACKAGE}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# Depends from the binary (libGL, libGLU, libgle, libstdc++, libc) through dpkg-shlibdeps; the
# shlibs file lets packages linked with it do the same. The soname changes with every minor
# release while the version is 0.y, so any later build with the same soname will do.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# CPack would add postinst and postrm scripts that run ldconfig; Debian uses the ldconfig
# trigger instead, and scripts that only exit keep CPack from writing its own.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    "${_lumagrid_debian}/triggers;${_lumagrid_debian}/postinst;${_lumagrid_debian}/postrm")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "retained-mode 3D shapes on OpenGL, GLU and GLE - shared library
${_lumagrid_about}

This package contains the shared library.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME liblumagrid-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DEPENDS runtime)
# What a consumer's compile and link lines need: lumagrid.pc requires gl and glu, and both
# CMake targets bring GL, GLU and GLE.
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libgl-dev, libglu1-mesa-dev | libglu-dev, libgle3-dev")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS "cmake, pkg-config")
set(CPACK_DEBIAN_DEV_DESCRIPTION
    "retained-mode 3D shapes on OpenGL, GLU and GLE - development files
${_lumagrid_about}

This package contains the headers, the static library, the CMake package
(find_package(Lumagrid): Lumagrid::lumagrid and Lumagrid::lumagrid_static)
and the pkg-config file lumagrid.pc.")

set(CPACK_DEBIAN_TESTING_PACKAGE_NAME liblumagrid-testing-dev)
set(CPACK_DEBIAN_TESTING_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_TESTING_DEPENDS dev)
# The headless context links EGL and libpng; the recorder's matchers are GoogleMock's.
set(CPACK_DEBIAN_TESTING_PACKAGE_DEPENDS "libegl-dev, libpng-dev, libgmock-dev")
set(CPACK_DEBIAN_TESTING_PACKAGE_RECOMMENDS "libgl1-mesa-dri, libegl-mesa0")
set(CPACK_DEBIAN_TESTING_DESCRIPTION
    "retained-mode 3D shapes on OpenGL, GLU and GLE - testing kit
${_lumagrid_about}

This package contains the testing kit for a host's own drawing code: the
recording OpenGL, GLU and GLE double with its GoogleMock matchers
(Lumagrid::glrecorder, lumagrid-glrecorder.pc) and the headless EGL context
with pixel read-back and PNG output (Lumagrid::headless,
lumagrid-headless.pc). Its guide is /usr/share/doc/lumagrid/testing-kit.md.")

include(CPack)
