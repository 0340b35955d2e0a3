# Installs the freshly built tree into a scratch prefix, then builds and runs
# the consumer example against it twice: through find_package(Lumagrid) and
# through pkg-config. Any packaging mistake fails here.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... [-DLIBDIR=...] [-DPREFIX=...]
#         [-DWITH_GLTF=OFF] [-DWITH_COREPROFILE=OFF] -P consumer_check.cmake
# LIBDIR is the build's CMAKE_INSTALL_LIBDIR, read from its cache when not given. PREFIX names a
# tree installed already (then BUILD_DIR is not needed and nothing is installed). WITH_GLTF=OFF
# leaves out the glTF host, for a tree built with LUMAGRID_BUILD_GLTF=OFF; WITH_COREPROFILE=OFF
# the core-profile host, for a tree without LUMAGRID_BUILD_COREPROFILE or the testing kit.

include("${CMAKE_CURRENT_LIST_DIR}/package_common.cmake")
foreach(option WITH_GLTF WITH_COREPROFILE)
  if(NOT DEFINED ${option})
    set(${option} ON)
  endif()
endforeach()
install_tree()

expect_installed(include/lumagrid/lumagrid.h ${LIBDIR}/cmake/Lumagrid/LumagridConfig.cmake
                 ${LIBDIR}/cmake/Lumagrid/LumagridConfigVersion.cmake ${LIBDIR}/cmake/Lumagrid/FindGLE.cmake
                 ${LIBDIR}/pkgconfig/lumagrid.pc ${LIBDIR}/liblumagrid.a)
if(WITH_GLTF)
  expect_installed(include/lumagrid/GltfExport.h ${LIBDIR}/cmake/Lumagrid/LumagridGltfTargets.cmake
                   ${LIBDIR}/pkgconfig/lumagrid-gltf.pc ${LIBDIR}/liblumagrid-gltf.so)
endif()
if(WITH_COREPROFILE)
  expect_installed(include/lumagrid/CoreProfileRenderer.h
                   ${LIBDIR}/cmake/Lumagrid/LumagridCoreprofileTargets.cmake
                   ${LIBDIR}/pkgconfig/lumagrid-coreprofile.pc ${LIBDIR}/liblumagrid-coreprofile.so)
endif()

# find_package: shared and static consumers. The components look for nothing their shared
# libraries link privately: tinygltf cannot be found here, nor pkg-config, through which epoxy
# would be.
set(cmake_build "${WORK_DIR}/cmake-consumer")
run(${CMAKE_COMMAND} -S "${SOURCE_DIR}/examples/consumer" -B "${cmake_build}"
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release -DCONSUMER_WITH_GLTF=${WITH_GLTF}
    -DCONSUMER_WITH_COREPROFILE=${WITH_COREPROFILE} -DCMAKE_DISABLE_FIND_PACKAGE_TinyGLTF=ON
    -DCMAKE_DISABLE_FIND_PACKAGE_PkgConfig=ON)
run(${CMAKE_COMMAND} --build "${cmake_build}")
run("${cmake_build}/consumer_shared")
message(STATUS "shared: ${last_output}")
run("${cmake_build}/consumer_static")
message(STATUS "static: ${last_output}")
foreach(kind shared static)
  run("${cmake_build}/gl_host_${kind}")
  message(STATUS "GL host, ${kind}: ${last_output}")
endforeach()
run("${cmake_build}/mesh_host")
message(STATUS "Mesh host: ${last_output}")
# Built wherever the compiler takes -mfma, which every x86-64 one does.
if(CMAKE_HOST_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64" OR EXISTS "${cmake_build}/fma_host")
  run("${cmake_build}/fma_host")
  message(STATUS "FMA host: ${last_output}")
endif()
if(WITH_GLTF)
  run("${cmake_build}/gltf_host")
  message(STATUS "glTF host: ${last_output}")
endif()
if(WITH_COREPROFILE)
  run("${cmake_build}/coreprofile_host")
  message(STATUS "core-profile host: ${last_output}")
  # epoxy is the renderer's own: the host links nothing of it.
  expect_no_epoxy("${cmake_build}/coreprofile_host")
endif()

# pkg-config, the way a Makefile user links.
find_program(PKG_CONFIG pkg-config REQUIRED)
find_program(CXX NAMES c++ g++ REQUIRED)
set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
run(${PKG_CONFIG} --cflags --libs lumagrid)
string(STRIP "${last_output}" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
foreach(program main gl_host mesh_host)
  run(${CXX} -std=c++17 "${SOURCE_DIR}/examples/consumer/${program}.cpp"
      -o "${WORK_DIR}/${program}_pc" ${flags} -Wl,-rpath,${prefix}/${LIBDIR})
  run("${WORK_DIR}/${program}_pc")
  message(STATUS "pkg-config, ${program}: ${last_output}")
endforeach()
# The glTF host through lumagrid-gltf.pc, which requires lumagrid.pc.
if(WITH_GLTF)
  run(${PKG_CONFIG} --cflags --libs lumagrid-gltf)
  string(STRIP "${last_output}" gltf_flags)
  separate_arguments(gltf_flags UNIX_COMMAND "${gltf_flags}")
  run(${CXX} -std=c++17 "${SOURCE_DIR}/examples/consumer/gltf_host.cpp"
      -o "${WORK_DIR}/gltf_host_pc" ${gltf_flags} -Wl,-rpath,${prefix}/${LIBDIR})
  run("${WORK_DIR}/gltf_host_pc")
  message(STATUS "pkg-config, gltf_host: ${last_output}")
endif()
# The core-profile host through lumagrid-coreprofile.pc and the kit's lumagrid-headless.pc.
if(WITH_COREPROFILE)
  run(${PKG_CONFIG} --cflags --libs lumagrid-coreprofile lumagrid-headless)
  string(STRIP "${last_output}" coreprofile_flags)
  if(coreprofile_flags MATCHES "epoxy")
    message(FATAL_ERROR "lumagrid-coreprofile.pc hands its consumers epoxy: ${coreprofile_flags}")
  endif()
  separate_arguments(coreprofile_flags UNIX_COMMAND "${coreprofile_flags}")
  run(${CXX} -std=c++17 "${SOURCE_DIR}/examples/consumer/coreprofile_host.cpp"
      -o "${WORK_DIR}/coreprofile_host_pc" ${coreprofile_flags} -Wl,-rpath,${prefix}/${LIBDIR})
  run("${WORK_DIR}/coreprofile_host_pc")
  message(STATUS "pkg-config, coreprofile_host: ${last_output}")
  expect_no_epoxy("${WORK_DIR}/coreprofile_host_pc")
endif()
# The same GL host linked statically: the archive by name, then what pkg-config lists.
run(${PKG_CONFIG} --libs-only-other --libs-only-l lumagrid)
string(STRIP "${last_output}" libs)
separate_arguments(libs UNIX_COMMAND "${libs}")
list(REMOVE_ITEM libs -llumagrid)
run(${PKG_CONFIG} --cflags lumagrid)
string(STRIP "${last_output}" cflags)
separate_arguments(cflags UNIX_COMMAND "${cflags}")
run(${CXX} -std=c++17 "${SOURCE_DIR}/examples/consumer/gl_host.cpp" -o "${WORK_DIR}/gl_host_pc_static"
    ${cflags} "${prefix}/${LIBDIR}/liblumagrid.a" ${libs})
run("${WORK_DIR}/gl_host_pc_static")
message(STATUS "pkg-config, static GL host: ${last_output}")
