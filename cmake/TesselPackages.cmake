# Debian packages, by "cpack -G DEB" or scripts/package: one for each component of the installation, but for the licence,
# which every package has as its copyright file. Dependencies are those that dpkg-shlibdeps finds.

set(TESSELMXF_MAINTAINER "TesselMXF maintainers <maintainers@tesselmxf.invalid>" CACHE STRING
  "Maintainer of the Debian packages")

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME tesselmxf)
set(CPACK_PACKAGE_CONTACT "${TESSELMXF_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # every package has its own
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian/compress.cmake")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE tesselmxf)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/debian/triggers")

find_program(TESSELMXF_SHLIBDEPS dpkg-shlibdeps)
mark_as_advanced(TESSELMXF_SHLIBDEPS)
if(TESSELMXF_SHLIBDEPS)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS  # the tool's own libraries, which no package has yet
    "${PROJECT_BINARY_DIR}/model" "${PROJECT_BINARY_DIR}/xmlutils" "${PROJECT_BINARY_DIR}/src")
endif()

# tesselmxf_package(COMPONENT NAME name SECTION section DESCRIPTION text [ARCHITECTURE architecture] [DEPENDS component...]
#                   [RECOMMENDS package...])
#
# Sets what CPack wants to know of a component's package, and installs copyright and changelogs with it. They are not
# installed by "cmake --install" without a component.
macro(tesselmxf_package component)
  cmake_parse_arguments(package "" "NAME;SECTION;DESCRIPTION;ARCHITECTURE" "DEPENDS;RECOMMENDS" ${ARGN})
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} upper)
  list(JOIN package_RECOMMENDS ", " recommends)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package_NAME})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${package_SECTION})
  set(CPACK_DEBIAN_${upper}_PACKAGE_RECOMMENDS "${recommends}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE ${package_ARCHITECTURE})
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${package_DESCRIPTION}")
  set(CPACK_COMPONENT_${upper}_DEPENDS ${package_DEPENDS})
  set(doc_dir "${CMAKE_INSTALL_DATADIR}/doc/${package_NAME}")
  install(FILES "${PROJECT_BINARY_DIR}/debian/copyright" DESTINATION "${doc_dir}" COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" RENAME changelog
    DESTINATION "${doc_dir}" COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES "${PROJECT_BINARY_DIR}/debian/changelog" RENAME changelog.Debian
    DESTINATION "${doc_dir}" COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()

foreach(file copyright changelog)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/${file}.in" "${PROJECT_BINARY_DIR}/debian/${file}" @ONLY)
endforeach()

set(soversion "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
set(CPACK_COMPONENTS_ALL)
tesselmxf_package(runtime NAME libtesselmxf${soversion} SECTION libs
  DESCRIPTION "MXF meta-dictionary from annotated XML Schemas - libraries
Loads XML Schema documents that are annotated after SMPTE ST 434 into a
dictionary of MXF metadata: its elements, sets, attributes, local tags and
typed values.
.
This package has the shared libraries.")

# The loader's headers need no XML library's; those of the XML utilities do, for hosts that call them themselves.
tesselmxf_package(development NAME libtesselmxf-dev SECTION libdevel DEPENDS runtime
  RECOMMENDS libxerces-c-dev libxqilla-dev
  DESCRIPTION "MXF meta-dictionary from annotated XML Schemas - development files
Loads XML Schema documents that are annotated after SMPTE ST 434 into a
dictionary of MXF metadata: its elements, sets, attributes, local tags and
typed values.
.
This package has the headers and the files for CMake and pkg-config. Programs
that call the XML utilities themselves also need the headers of Xerces-C and
XQilla.")

tesselmxf_package(schemas NAME tesselmxf-schemas SECTION misc ARCHITECTURE all
  DESCRIPTION "MXF header metadata as annotated XML Schemas
The elements and sets of MXF header metadata, descriptive metadata included,
as XML Schema documents that are annotated after SMPTE ST 434, in both flavours
of annotations.")

if(TESSELMXF_BUILD_TOOLS)
  tesselmxf_package(tools NAME mxf-metadict SECTION video DEPENDS runtime RECOMMENDS tesselmxf-schemas
    DESCRIPTION "tells what annotated MXF metadata schemas declare
Loads XML Schema documents that are annotated after SMPTE ST 434, prints the
elements, sets and local tags that they declare, explains single ones, draws
how sets refer to each other, and examines and compares schemas.
.
This package has the command, its manual page and its completion for bash.")
endif()

include(CPack)
