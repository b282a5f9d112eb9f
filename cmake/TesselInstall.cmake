# Installation: libraries, headers, the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)

install(TARGETS tesselmxf_model tesselmxf_xmlutils tesselmxf_loader EXPORT TesselMXFTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  FILE_SET HEADERS DESTINATION "${TESSELMXF_INSTALL_INCLUDEDIR}")
if(TESSELMXF_BUILD_TOOLS)
  install(TARGETS mxf-metadict RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/schemas/registry" "${PROJECT_SOURCE_DIR}/schemas/urn"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/tesselmxf/schemas")

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/TesselMXF")
install(EXPORT TesselMXFTargets NAMESPACE TesselMXF:: DESTINATION "${package_dir}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/TesselMXFConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/TesselMXFConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TesselMXFConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TesselMXFConfig.cmake" "${PROJECT_BINARY_DIR}/TesselMXFConfigVersion.cmake"
              "${PROJECT_SOURCE_DIR}/cmake/FindXQilla.cmake"
  DESTINATION "${package_dir}")

configure_file("${PROJECT_SOURCE_DIR}/cmake/tesselmxf.pc.in" "${PROJECT_BINARY_DIR}/tesselmxf.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/tesselmxf.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
