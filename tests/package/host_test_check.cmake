# Installs the freshly built tree into a scratch prefix, then builds the host-test example
# (examples/host-test) against it and runs its tests: a host's call-sequence test through
# Lumagrid::glrecorder and a headless render through Lumagrid::headless. Then the same test
# through pkg-config. A plain find_package(Lumagrid) must not need the components' dependencies
# nor load any component.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DWORK_DIR=... [-DLIBDIR=...] [-DPREFIX=...]
#         -P host_test_check.cmake
# PREFIX names a tree installed already (then BUILD_DIR is not needed and nothing is installed).

include("${CMAKE_CURRENT_LIST_DIR}/package_common.cmake")
install_tree()

expect_installed(include/lumagrid/testing/GLRecorder.h include/lumagrid/testing/Matchers.h
                 include/lumagrid/testing/EglContext.h ${LIBDIR}/liblumagrid-glrecorder.a
                 ${LIBDIR}/liblumagrid-headless.a ${LIBDIR}/pkgconfig/lumagrid-glrecorder.pc
                 ${LIBDIR}/pkgconfig/lumagrid-headless.pc
                 ${LIBDIR}/cmake/Lumagrid/LumagridGlrecorderTargets.cmake
                 ${LIBDIR}/cmake/Lumagrid/LumagridHeadlessTargets.cmake
                 share/doc/lumagrid/testing-kit.md)

# find_package with both components; ctest runs the example's own tests.
set(build "${WORK_DIR}/host-test")
run(${CMAKE_COMMAND} -S "${SOURCE_DIR}/examples/host-test" -B "${build}"
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build "${build}")
run(${CMAKE_CTEST_COMMAND} --test-dir "${build}" --output-on-failure)
message(STATUS "find_package: ${last_output}")

# pkg-config, the way a Makefile user links the same test.
find_program(PKG_CONFIG pkg-config REQUIRED)
find_program(CXX NAMES c++ g++ REQUIRED)
set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig")
run(${PKG_CONFIG} --cflags --libs lumagrid lumagrid-glrecorder gmock gtest_main)
string(STRIP "${last_output}" flags)
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${CXX} -std=c++17 "${SOURCE_DIR}/examples/host-test/host_scene_test.cpp"
    "${SOURCE_DIR}/examples/host-test/host_scene.cpp" -o "${WORK_DIR}/host_scene_test_pc"
    ${flags} -Wl,-rpath,${prefix}/${LIBDIR})
run("${WORK_DIR}/host_scene_test_pc" --gtest_brief=1)
message(STATUS "pkg-config: ${last_output}")

# Without components the package needs neither EGL nor libpng nor GoogleTest.
set(plain "${WORK_DIR}/plain")
file(WRITE "${plain}/CMakeLists.txt" [=[
cmake_minimum_required(VERSION 3.21)
project(plain LANGUAGES CXX)
find_package(Lumagrid REQUIRED)
if(TARGET Lumagrid::glrecorder OR TARGET Lumagrid::headless OR TARGET Lumagrid::gltf
   OR TARGET Lumagrid::coreprofile)
  message(FATAL_ERROR "components loaded without being asked for")
endif()
]=])
run(${CMAKE_COMMAND} -S "${plain}" -B "${plain}/build" -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_DISABLE_FIND_PACKAGE_PNG=ON -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON
    -DCMAKE_DISABLE_FIND_PACKAGE_TinyGLTF=ON)
