# Debian packages, one per install component, built by CPack's DEB generator (scripts/package
# configures, runs cpack, lintian and the package test; docs/packaging.md):
#   liblumagrid0.1           runtime  the shared library and its SONAME link
#   liblumagrid-dev          dev      headers, archive, .so link, CMake package, lumagrid.pc
#   liblumagrid-testing-dev  testing  the testing kit
#   liblumagrid-gltf0.1      gltf      the glTF export's shared library and its SONAME link
#   liblumagrid-gltf-dev     gltf-dev  its header, .so link, CMake file and lumagrid-gltf.pc
#   liblumagrid-coreprofile0.1  coreprofile      the core-profile renderer's shared library and
#                                                its SONAME link
#   liblumagrid-coreprofile-dev coreprofile-dev  its header, .so link, CMake file and
#                                                lumagrid-coreprofile.pc
# The library packages are named after their SONAMEs (liblumagrid.so.0.1, liblumagrid-gltf.so.0.1,
# liblumagrid-coreprofile.so.0.1), so that two minor versions with different ABIs can be installed
# side by side.

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
set(LUMAGRID_GLTF_PACKAGE "liblumagrid-gltf${LUMAGRID_SOVERSION}")
set(LUMAGRID_COREPROFILE_PACKAGE "liblumagrid-coreprofile${LUMAGRID_SOVERSION}")

# The packages as `install component:package`. The testing kit's, the glTF export's and the
# core-profile renderer's are absent when their options are off.
set(_lumagrid_packages "runtime:${LUMAGRID_RUNTIME_PACKAGE}" "dev:liblumagrid-dev")
if(LUMAGRID_INSTALL_TESTING_KIT)
  list(APPEND _lumagrid_packages "testing:liblumagrid-testing-dev")
endif()
if(LUMAGRID_BUILD_GLTF)
  list(APPEND _lumagrid_packages "gltf:${LUMAGRID_GLTF_PACKAGE}" "gltf-dev:liblumagrid-gltf-dev")
endif()
if(LUMAGRID_BUILD_COREPROFILE)
  list(APPEND _lumagrid_packages "coreprofile:${LUMAGRID_COREPROFILE_PACKAGE}"
       "coreprofile-dev:liblumagrid-coreprofile-dev")
endif()
set(CPACK_COMPONENTS_ALL "")
foreach(_lumagrid_item IN LISTS _lumagrid_packages)
  string(REGEX REPLACE ":.*" "" _lumagrid_component "${_lumagrid_item}")
  list(APPEND CPACK_COMPONENTS_ALL ${_lumagrid_component})
endforeach()

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
  foreach(_lumagrid_item IN LISTS _lumagrid_packages)
    string(REGEX REPLACE ":.*" "" _lumagrid_component "${_lumagrid_item}")
    string(REGEX REPLACE ".*:" "" _lumagrid_package "${_lumagrid_item}")
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

set(CPACK_DEBIAN_GLTF_PACKAGE_NAME "${LUMAGRID_GLTF_PACKAGE}")
set(CPACK_DEBIAN_GLTF_PACKAGE_SECTION libs)
# Depends from the binary through dpkg-shlibdeps, as for the runtime package: liblumagrid0.1 (by
# the shlibs tree below), libtinygltf2d, libstdc++6, libc6.
set(CPACK_DEBIAN_GLTF_PACKAGE_SHLIBDEPS ON)
# The ldconfig trigger, and the scripts that only exit, as for the runtime package.
set(CPACK_DEBIAN_GLTF_PACKAGE_CONTROL_EXTRA "${CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA}")
set(CPACK_DEBIAN_GLTF_DESCRIPTION
    "retained-mode 3D shapes on OpenGL, GLU and GLE - glTF export library
${_lumagrid_about}

This package contains the glTF export's shared library, which writes a
scene's shown shapes as a glTF 2.0 file (.glb or .gltf) without a GL
context.")

set(CPACK_DEBIAN_GLTF-DEV_PACKAGE_NAME liblumagrid-gltf-dev)
set(CPACK_DEBIAN_GLTF-DEV_PACKAGE_SECTION libdevel)
# tinygltf stays inside the shared library: a consumer needs only its runtime package, which
# liblumagrid-gltf0.1 brings.
set(CPACK_COMPONENT_GLTF-DEV_DEPENDS gltf dev)
set(CPACK_DEBIAN_GLTF-DEV_PACKAGE_SUGGESTS "cmake, pkg-config")
set(CPACK_DEBIAN_GLTF-DEV_DESCRIPTION
    "retained-mode 3D shapes on OpenGL, GLU and GLE - glTF export development files
${_lumagrid_about}

This package contains the glTF export's header (lumagrid/GltfExport.h), the
CMake component (find_package(Lumagrid COMPONENTS gltf): Lumagrid::gltf) and
the pkg-config file lumagrid-gltf.pc.")

set(CPACK_DEBIAN_COREPROFILE_PACKAGE_NAME "${LUMAGRID_COREPROFILE_PACKAGE}")
set(CPACK_DEBIAN_COREPROFILE_PACKAGE_SECTION libs)
# Depends from the binary through dpkg-shlibdeps, as for the glTF export: liblumagrid0.1 (by the
# shlibs tree below), libepoxy0, and what else it is linked with.
set(CPACK_DEBIAN_COREPROFILE_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COREPROFILE_PACKAGE_CONTROL_EXTRA "${CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA}")
set(CPACK_DEBIAN_COREPROFILE_DESCRIPTION
    "retained-mode 3D shapes on OpenGL, GLU and GLE - core-profile renderer library
${_lumagrid_about}

This package contains the core-profile renderer's shared library, which draws
a scene in an OpenGL 3.3 core profile context, without display lists or the
fixed-function pipeline, with the look the legacy draw gives it.")

set(CPACK_DEBIAN_COREPROFILE-DEV_PACKAGE_NAME liblumagrid-coreprofile-dev)
set(CPACK_DEBIAN_COREPROFILE-DEV_PACKAGE_SECTION libdevel)
# libepoxy stays inside the shared library: a consumer needs only its runtime package, which
# liblumagrid-coreprofile0.1 brings.
set(CPACK_COMPONENT_COREPROFILE-DEV_DEPENDS coreprofile dev)
set(CPACK_DEBIAN_COREPROFILE-DEV_PACKAGE_SUGGESTS "cmake, pkg-config")
set(CPACK_DEBIAN_COREPROFILE-DEV_DESCRIPTION
    "retained-mode 3D shapes on OpenGL, GLU and GLE - core-profile development files
${_lumagrid_about}

This package contains the core-profile renderer's header
(lumagrid/CoreProfileRenderer.h), the CMake component
(find_package(Lumagrid COMPONENTS coreprofile): Lumagrid::coreprofile) and the
pkg-config file lumagrid-coreprofile.pc.")

# dpkg-shlibdeps learns which package provides a library, and its shlibs line, from that
# package's build tree: a folder holding DEBIAN/shlibs and the library. liblumagrid0.1 is not
# installed where the packages are built, so its tree is laid out here, with the line CPack writes
# into the runtime package, and liblumagrid-gltf0.1 and liblumagrid-coreprofile0.1 come out
# depending on it as any other package linked with the library would.
if(LUMAGRID_BUILD_GLTF OR LUMAGRID_BUILD_COREPROFILE)
  set(_lumagrid_shlibs_tree "${PROJECT_BINARY_DIR}/debian/shlibdeps/${LUMAGRID_RUNTIME_PACKAGE}")
  set(_lumagrid_version "${PROJECT_VERSION}-${LUMAGRID_DEBIAN_REVISION}")
  file(WRITE "${_lumagrid_shlibs_tree}/DEBIAN/shlibs"
       "liblumagrid ${LUMAGRID_SOVERSION} ${LUMAGRID_RUNTIME_PACKAGE} "
       "(${CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY} ${_lumagrid_version})\n")
  set(_lumagrid_shlibs_link "${_lumagrid_shlibs_tree}/lib/liblumagrid.so.${LUMAGRID_SOVERSION}")
  add_custom_command(OUTPUT "${_lumagrid_shlibs_link}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${_lumagrid_shlibs_tree}/lib"
    COMMAND ${CMAKE_COMMAND} -E create_symlink "$<TARGET_FILE:lumagrid>" "${_lumagrid_shlibs_link}"
    DEPENDS lumagrid
    VERBATIM)
  add_custom_target(lumagrid_shlibs_tree ALL DEPENDS "${_lumagrid_shlibs_link}")
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${_lumagrid_shlibs_tree}/lib")
endif()

include(CPack)
