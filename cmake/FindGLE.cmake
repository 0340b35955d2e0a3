# FindGLE
# -------
# Finds the GLE tubing and extrusion library, which ships neither a CMake
# package nor a pkg-config file.
#
# Imported target:
#   GLE::GLE    the library, with OpenGL and GLU as its link dependencies
#
# Result variables:
#   GLE_FOUND, GLE_INCLUDE_DIRS, GLE_LIBRARIES

find_path(GLE_INCLUDE_DIR NAMES GL/gle.h)
find_library(GLE_LIBRARY NAMES gle)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GLE REQUIRED_VARS GLE_LIBRARY GLE_INCLUDE_DIR)

if(GLE_FOUND)
  set(GLE_INCLUDE_DIRS "${GLE_INCLUDE_DIR}")
  set(GLE_LIBRARIES "${GLE_LIBRARY}")
  if(NOT TARGET GLE::GLE)
    if(NOT TARGET OpenGL::GLU)
      find_package(OpenGL QUIET COMPONENTS OpenGL)
    endif()
    add_library(GLE::GLE UNKNOWN IMPORTED)
    set_target_properties(GLE::GLE PROPERTIES
      IMPORTED_LOCATION "${GLE_LIBRARY}"
      INTERFACE_INCLUDE_DIRECTORIES "${GLE_INCLUDE_DIR}"
      INTERFACE_LINK_LIBRARIES "OpenGL::GLU;OpenGL::GL")
  endif()
endif()
mark_as_advanced(GLE_INCLUDE_DIR GLE_LIBRARY)
