# Installation: libraries, headers, the tool, the schemas, the CMake package and the pkg-config files, in the components
# runtime, development, tools, schemas and licence. What is installed may be moved as a whole: everything finds the rest
# from its own place. Documents stand to each other as in the source tree, so that links between them hold.

include(CMakePackageConfigHelpers)

set(libraries tesselmxf_model tesselmxf_xmlutils tesselmxf_loader)
install(TARGETS ${libraries} EXPORT TesselMXFTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
  FILE_SET HEADERS DESTINATION "${TESSELMXF_INSTALL_INCLUDEDIR}" COMPONENT development)
set_target_properties(${libraries} PROPERTIES INSTALL_RPATH "\$ORIGIN")
if(TESSELMXF_BUILD_TOOLS)
  install(TARGETS mxf-metadict RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
  file(RELATIVE_PATH libraries_from_tool "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  set_target_properties(mxf-metadict PROPERTIES INSTALL_RPATH "\$ORIGIN/${libraries_from_tool}")
endif()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/schemas/registry" "${PROJECT_SOURCE_DIR}/schemas/urn"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/tesselmxf/schemas" COMPONENT schemas)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT licence)
install(FILES "${PROJECT_SOURCE_DIR}/SECURITY.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/guide" DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs" COMPONENT development)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development
  PATTERN CMakeLists.txt EXCLUDE)
if(TESSELMXF_BUILD_TOOLS)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/" DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs" COMPONENT tools
    FILES_MATCHING PATTERN "*.schema.json" PATTERN dump-format.md PATTERN rules.md PATTERN guide EXCLUDE)
endif()

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/TesselMXF")
install(EXPORT TesselMXFTargets NAMESPACE TesselMXF:: DESTINATION "${package_dir}" COMPONENT development)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/TesselMXFConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/TesselMXFConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TesselMXFConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TesselMXFConfig.cmake" "${PROJECT_BINARY_DIR}/TesselMXFConfigVersion.cmake"
              "${PROJECT_SOURCE_DIR}/cmake/FindXQilla.cmake"
  DESTINATION "${package_dir}" COMPONENT development)

set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH prefix_from_pkgconfig "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig "${prefix_from_pkgconfig}")
cmake_path(APPEND pkgconfig_prefix "\${pcfiledir}" "${prefix_from_pkgconfig}")
cmake_path(APPEND pkgconfig_libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND pkgconfig_includedir "\${prefix}" "${TESSELMXF_INSTALL_INCLUDEDIR}")
foreach(name tesselmxf tesselmxf-xmlutils)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${pkgconfig_dir}" COMPONENT development)
endforeach()
