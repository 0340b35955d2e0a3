# Builds a host project that adds the Lumagrid source tree with
# add_subdirectory while GoogleTest, Benchmark, Eigen and libpng cannot be
# found, then runs it: as a subproject Lumagrid must need none of them.
#   cmake -DSOURCE_DIR=... -DWORK_DIR=... -P subproject_check.cmake

include("${CMAKE_CURRENT_LIST_DIR}/package_common.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
run(${CMAKE_COMMAND} -S "${CMAKE_CURRENT_LIST_DIR}/subproject" -B "${WORK_DIR}"
    -DLUMAGRID_SOURCE_DIR=${SOURCE_DIR} -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON -DCMAKE_DISABLE_FIND_PACKAGE_benchmark=ON
    -DCMAKE_DISABLE_FIND_PACKAGE_Eigen3=ON -DCMAKE_DISABLE_FIND_PACKAGE_PNG=ON)
run(${CMAKE_COMMAND} --build "${WORK_DIR}" --target host)
run("${WORK_DIR}/host")
message(STATUS "host: ${last_output}")
