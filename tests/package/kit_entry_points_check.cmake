# The testing kit's page lists the entry points the recording double defines: the list between
# its "entry points" markers must name exactly the GL, GLU and GLE functions the archive defines.
#   cmake -DARCHIVE=liblumagrid-glrecorder.a -DDOC=docs/testing-kit.md -DNM=nm -P kit_entry_points_check.cmake

include("${CMAKE_CURRENT_LIST_DIR}/package_common.cmake")

run(${NM} -g --defined-only "${ARCHIVE}")
string(REPLACE "\n" ";" nm_lines "${last_output}")
set(defined "")
foreach(l IN LISTS nm_lines)
  if(l MATCHES " T (gl[ue]?[A-Z][A-Za-z0-9]*)$")
    list(APPEND defined "${CMAKE_MATCH_1}")
  endif()
endforeach()
list(REMOVE_DUPLICATES defined)
list(SORT defined)

file(READ "${DOC}" doc)
string(REGEX MATCH "<!-- entry points: begin -->.*<!-- entry points: end -->" listed_text "${doc}")
if(listed_text STREQUAL "")
  message(FATAL_ERROR "${DOC}: no entry point list between its markers")
endif()
string(REGEX MATCHALL "`gl[ue]?[A-Z][A-Za-z0-9]*`" listed "${listed_text}")
string(REPLACE "`" "" listed "${listed}")
list(SORT listed)

set(missing ${defined})
list(REMOVE_ITEM missing ${listed})
set(extra ${listed})
list(REMOVE_ITEM extra ${defined})
if(missing OR extra)
  message(FATAL_ERROR "${DOC} and ${ARCHIVE} disagree.\n"
                      "Defined but not listed: ${missing}\nListed but not defined: ${extra}")
endif()
list(LENGTH defined n)
message(STATUS "${n} entry points, listed and defined")
