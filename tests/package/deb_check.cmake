# Installs the seven Debian packages into a scratch root with dpkg, checks what each contains and
# declares, then builds and runs the consumer example (find_package and pkg-config, the glTF and
# core-profile hosts included) and the host-test example (the testing kit) against that root.
# scripts/package runs it.
#   cmake -DPACKAGES_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... -DLIBDIR=lib/x86_64-linux-gnu
#         -P deb_check.cmake
# dpkg rather than `dpkg-deb -x`: it also proves that the packages install together, that no file
# belongs to two of them, and that their maintainer scripts run. --force-depends because the
# scratch root holds none of their dependencies: the examples take GL, GLU, GLE, EGL, libpng,
# GoogleTest, tinygltf and libepoxy from this machine, where each dependency is checked to be an
# installed package.

include("${CMAKE_CURRENT_LIST_DIR}/package_common.cmake")

set(root "${WORK_DIR}/root")
file(REMOVE_RECURSE "${WORK_DIR}")

# ---------------------------------------------------------------- the .deb files
file(GLOB debs "${PACKAGES_DIR}/*.deb")
list(LENGTH debs n)
if(NOT n EQUAL 7)
  message(FATAL_ERROR "expected 7 packages in ${PACKAGES_DIR}, found ${n}: ${debs}")
endif()
# The runtime package is named after the SONAME: liblumagrid0.1 for liblumagrid.so.0.1.
file(GLOB deb "${PACKAGES_DIR}/liblumagrid[0-9]*_*.deb")
run(dpkg-deb -f "${deb}" Package)
string(STRIP "${last_output}" runtime)
string(REGEX REPLACE "^liblumagrid" "" soversion "${runtime}")
string(REPLACE "." "\\." soversion_re "${soversion}")
set(gltf "liblumagrid-gltf${soversion}")
set(coreprofile "liblumagrid-coreprofile${soversion}")
set(libraries ${runtime} ${gltf} ${coreprofile})
set(packages ${runtime} liblumagrid-dev liblumagrid-testing-dev ${gltf} liblumagrid-gltf-dev
             ${coreprofile} liblumagrid-coreprofile-dev)
foreach(pkg IN LISTS packages)
  file(GLOB deb "${PACKAGES_DIR}/${pkg}_*.deb")
  if(NOT deb)
    message(FATAL_ERROR "no ${pkg}_*.deb in ${PACKAGES_DIR}")
  endif()
  set(deb_${pkg} "${deb}")
  foreach(field Version Section Depends)
    run(dpkg-deb -f "${deb}" ${field})
    string(STRIP "${last_output}" ${field}_${pkg})
  endforeach()
endforeach()
set(version "${Version_${runtime}}")

# Sections, and the exact-version chain between them.
foreach(pair "${runtime};libs" "liblumagrid-dev;libdevel" "liblumagrid-testing-dev;libdevel"
        "${gltf};libs" "liblumagrid-gltf-dev;libdevel" "${coreprofile};libs"
        "liblumagrid-coreprofile-dev;libdevel")
  list(GET pair 0 pkg)
  list(GET pair 1 section)
  if(NOT Section_${pkg} STREQUAL section)
    message(FATAL_ERROR "${pkg}: section ${Section_${pkg}}, expected ${section}")
  endif()
  if(NOT Version_${pkg} STREQUAL version)
    message(FATAL_ERROR "${pkg}: version ${Version_${pkg}}, ${runtime} has ${version}")
  endif()
endforeach()
function(expect_depends pkg what)
  string(FIND ", ${Depends_${pkg}}, " ", ${what}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${pkg} does not depend on ${what}: Depends: ${Depends_${pkg}}")
  endif()
endfunction()
expect_depends(liblumagrid-dev "${runtime} (= ${version})")
expect_depends(liblumagrid-testing-dev "liblumagrid-dev (= ${version})")
expect_depends(liblumagrid-gltf-dev "${gltf} (= ${version})")
expect_depends(liblumagrid-gltf-dev "liblumagrid-dev (= ${version})")
expect_depends(liblumagrid-coreprofile-dev "${coreprofile} (= ${version})")
expect_depends(liblumagrid-coreprofile-dev "liblumagrid-dev (= ${version})")
# From the binaries, through dpkg-shlibdeps; the glTF export's and the core-profile renderer's
# liblumagrid0.1 through the runtime package's shlibs line.
foreach(dep libgl1 libglu1-mesa libgle3 libc6 libstdc++6)
  expect_depends(${runtime} "${dep}")
endforeach()
foreach(dep "${runtime} (>= ${version})" libtinygltf2d libc6 libstdc++6)
  expect_depends(${gltf} "${dep}")
endforeach()
foreach(dep "${runtime} (>= ${version})" libepoxy0 libc6 libstdc++6)
  expect_depends(${coreprofile} "${dep}")
endforeach()
foreach(dep libgl-dev libglu1-mesa-dev libgle3-dev)
  expect_depends(liblumagrid-dev "${dep}")
endforeach()
foreach(dep libegl-dev libpng-dev)
  expect_depends(liblumagrid-testing-dev "${dep}")
endforeach()

# Every other dependency names a real package: one of each set of alternatives is installed
# here, where the library was just built.
foreach(pkg IN LISTS packages)
  string(REPLACE ", " ";" groups "${Depends_${pkg}}")
  foreach(group IN LISTS groups)
    if(group MATCHES "^liblumagrid")
      continue()
    endif()
    string(REPLACE " | " ";" alternatives "${group}")
    set(found FALSE)
    foreach(alternative IN LISTS alternatives)
      string(REGEX REPLACE " .*" "" name "${alternative}")
      execute_process(COMMAND dpkg-query -W -f=\${Status} ${name} RESULT_VARIABLE rc
                      OUTPUT_VARIABLE status ERROR_QUIET)
      if(rc EQUAL 0 AND status MATCHES "ok installed")
        set(found TRUE)
      endif()
    endforeach()
    if(NOT found)
      message(FATAL_ERROR "${pkg} depends on ${group}, which is not an installed package here")
    endif()
  endforeach()
endforeach()

# The library packages' shlibs files and ldconfig triggers.
foreach(pkg IN LISTS libraries)
  string(REGEX REPLACE "${soversion_re}$" "" name "${pkg}")
  run(dpkg-deb -I "${deb_${pkg}}" shlibs)
  if(NOT last_output MATCHES "^${name} ${soversion_re} ${pkg} \\(>= ${version}\\)\n?$")
    message(FATAL_ERROR "${pkg}: unexpected shlibs file: ${last_output}")
  endif()
  run(dpkg-deb -I "${deb_${pkg}}" triggers)
  if(NOT last_output MATCHES "activate-noawait ldconfig")
    message(FATAL_ERROR "${pkg}: no ldconfig trigger: ${last_output}")
  endif()
endforeach()

# ---------------------------------------------------------------- installed with dpkg
file(MAKE_DIRECTORY "${root}/var/lib/dpkg/info" "${root}/var/lib/dpkg/updates"
     "${root}/var/lib/dpkg/triggers" "${root}/var/log")
file(TOUCH "${root}/var/lib/dpkg/status" "${root}/var/lib/dpkg/available")
# The maintainer scripts only exit: run them without chroot, which needs no shell in the root.
run(dpkg --root=${root} --log=${root}/var/log/dpkg.log --force-not-root --force-depends
    --force-script-chrootless -i ${debs})
foreach(pkg IN LISTS packages)
  run(dpkg-query --admindir=${root}/var/lib/dpkg -W -f=\${Status} ${pkg})
  if(NOT last_output STREQUAL "install ok installed")
    message(FATAL_ERROR "${pkg} is not installed in ${root}: ${last_output}")
  endif()
endforeach()

# What each package holds: its files, by pattern (folders aside).
set(lib "/usr/${LIBDIR}")
set(patterns_${runtime}
    "^${lib}/liblumagrid\\.so\\.${soversion_re}(\\.[0-9]+)?$"
    "^/usr/share/doc/${runtime}/(copyright|changelog\\.Debian\\.gz)$")
set(patterns_liblumagrid-dev
    "^/usr/include/lumagrid/[A-Za-z0-9_]+\\.h$"
    "^${lib}/liblumagrid\\.(a|so)$"
    "^${lib}/cmake/Lumagrid/(LumagridConfig|LumagridConfigVersion|FindGLE)\\.cmake$"
    "^${lib}/cmake/Lumagrid/LumagridTargets(-release)?\\.cmake$"
    "^${lib}/pkgconfig/lumagrid\\.pc$"
    "^/usr/share/doc/liblumagrid-dev/(copyright|changelog\\.Debian\\.gz)$")
set(patterns_liblumagrid-testing-dev
    "^/usr/include/lumagrid/testing/[A-Za-z]+\\.h$"
    "^${lib}/liblumagrid-(glrecorder|headless)\\.a$"
    "^${lib}/cmake/Lumagrid/Lumagrid(Glrecorder|Headless)Targets(-release)?\\.cmake$"
    "^${lib}/pkgconfig/lumagrid-(glrecorder|headless)\\.pc$"
    "^/usr/share/doc/lumagrid/testing-kit\\.md$"
    "^/usr/share/doc/liblumagrid-testing-dev/(copyright|changelog\\.Debian\\.gz)$")
set(patterns_${gltf}
    "^${lib}/liblumagrid-gltf\\.so\\.${soversion_re}(\\.[0-9]+)?$"
    "^/usr/share/doc/${gltf}/(copyright|changelog\\.Debian\\.gz)$")
set(patterns_liblumagrid-gltf-dev
    "^/usr/include/lumagrid/GltfExport\\.h$"
    "^${lib}/liblumagrid-gltf\\.so$"
    "^${lib}/cmake/Lumagrid/LumagridGltfTargets(-release)?\\.cmake$"
    "^${lib}/pkgconfig/lumagrid-gltf\\.pc$"
    "^/usr/share/doc/liblumagrid-gltf-dev/(copyright|changelog\\.Debian\\.gz)$")
set(patterns_${coreprofile}
    "^${lib}/liblumagrid-coreprofile\\.so\\.${soversion_re}(\\.[0-9]+)?$"
    "^/usr/share/doc/${coreprofile}/(copyright|changelog\\.Debian\\.gz)$")
set(patterns_liblumagrid-coreprofile-dev
    "^/usr/include/lumagrid/CoreProfileRenderer\\.h$"
    "^${lib}/liblumagrid-coreprofile\\.so$"
    "^${lib}/cmake/Lumagrid/LumagridCoreprofileTargets(-release)?\\.cmake$"
    "^${lib}/pkgconfig/lumagrid-coreprofile\\.pc$"
    "^/usr/share/doc/liblumagrid-coreprofile-dev/(copyright|changelog\\.Debian\\.gz)$")
foreach(pkg IN LISTS packages)
  run(dpkg-query --admindir=${root}/var/lib/dpkg -L ${pkg})
  string(REPLACE "\n" ";" files "${last_output}")
  foreach(f IN LISTS files)
    if(f STREQUAL "" OR f STREQUAL "/." OR IS_DIRECTORY "${root}${f}")
      continue()
    endif()
    set(matched FALSE)
    foreach(p IN LISTS patterns_${pkg})
      if(f MATCHES "${p}")
        set(matched TRUE)
      endif()
    endforeach()
    if(NOT matched)
      message(FATAL_ERROR "${pkg} holds ${f}, which belongs to no file it should have")
    endif()
  endforeach()
  # Its Debian changelog's newest entry is this very version.
  run(gzip -dc "${root}/usr/share/doc/${pkg}/changelog.Debian.gz")
  if(NOT last_output MATCHES "^lumagrid \\(${version}\\) ")
    message(FATAL_ERROR "${pkg}: the changelog's newest entry is not ${version}; add one to "
                        "cmake/debian/changelog")
  endif()
endforeach()
foreach(name liblumagrid liblumagrid-gltf liblumagrid-coreprofile)
  if(NOT IS_SYMLINK "${root}${lib}/${name}.so"
     OR NOT IS_SYMLINK "${root}${lib}/${name}.so.${soversion}")
    message(FATAL_ERROR "${name}'s .so and SONAME links are missing from ${root}${lib}")
  endif()
endforeach()

# ---------------------------------------------------------------- consumers
# The loader finds the packaged liblumagrid.so.<soversion> in the root; the consumers' CMake builds
# record its folder too.
set(ENV{LD_LIBRARY_PATH} "${root}${lib}")
foreach(check consumer host_test)
  run(${CMAKE_COMMAND} -DPREFIX=${root}/usr -DLIBDIR=${LIBDIR} -DSOURCE_DIR=${SOURCE_DIR}
      -DWORK_DIR=${WORK_DIR}/${check} -P ${CMAKE_CURRENT_LIST_DIR}/${check}_check.cmake)
  message(STATUS "${check}:\n${last_output}")
endforeach()

# They used the packages, not some other Lumagrid on this machine.
file(STRINGS "${WORK_DIR}/consumer/cmake-consumer/CMakeCache.txt" dir_entry REGEX "^Lumagrid_DIR:")
if(NOT dir_entry MATCHES "=${root}/usr/")
  message(FATAL_ERROR "find_package(Lumagrid) did not find the packages: ${dir_entry}")
endif()
foreach(program_libraries "consumer_shared;liblumagrid" "gltf_host;liblumagrid;liblumagrid-gltf"
        "coreprofile_host;liblumagrid;liblumagrid-coreprofile")
  list(POP_FRONT program_libraries program)
  run(ldd "${WORK_DIR}/consumer/cmake-consumer/${program}")
  foreach(name IN LISTS program_libraries)
    if(NOT last_output MATCHES
       "${name}\\.so\\.${soversion_re} => ${root}${lib}/${name}\\.so\\.${soversion_re}")
      message(FATAL_ERROR "${program} did not load the packaged ${name}:\n${last_output}")
    endif()
  endforeach()
endforeach()
message(STATUS "${n} packages installed, checked and used by the consumers")
