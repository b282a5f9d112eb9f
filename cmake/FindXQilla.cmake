# Finds XQilla, the XPath 2 engine. It ships neither a CMake package nor a pkg-config file.
#
# Defines the imported target XQilla::XQilla.

find_package(XercesC QUIET)
find_path(XQilla_INCLUDE_DIR xqilla/xqilla-dom3.hpp)
find_library(XQilla_LIBRARY xqilla)
mark_as_advanced(XQilla_INCLUDE_DIR XQilla_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(XQilla REQUIRED_VARS XQilla_LIBRARY XQilla_INCLUDE_DIR XercesC_FOUND)

if(XQilla_FOUND AND NOT TARGET XQilla::XQilla)
  add_library(XQilla::XQilla UNKNOWN IMPORTED)
  set_target_properties(XQilla::XQilla PROPERTIES
    IMPORTED_LOCATION "${XQilla_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${XQilla_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES XercesC::XercesC)
endif()
