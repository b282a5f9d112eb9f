# What every target of the project is built with. Warnings and sanitizers never reach a consumer.

set(TESSELMXF_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/TesselMXF")

function(tesselmxf_compile_options target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-qual
    -Wnull-dereference $<$<BOOL:${TESSELMXF_WARNINGS_AS_ERRORS}>:-Werror>)
  if(NOT CMAKE_UNITY_BUILD)  # which puts the local names of several files into one scope
    target_compile_options(${target} PRIVATE -Wshadow)
  endif()
  if(TESSELMXF_SANITIZERS)
    target_compile_options(${target} PRIVATE -fsanitize=${TESSELMXF_SANITIZERS} -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${TESSELMXF_SANITIZERS})
  endif()
endfunction()

# tesselmxf_library(NAME short-name HEADER_DIR dir HEADERS header... SOURCES source...)
#
# A shared library with hidden visibility, its public headers as a file set, and the alias that its installed name equals.
function(tesselmxf_library)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;HEADER_DIR" "HEADERS;SOURCES")
  set(target tesselmxf_${arg_NAME})
  add_library(${target} SHARED ${arg_SOURCES})
  add_library(TesselMXF::${arg_NAME} ALIAS ${target})
  tesselmxf_compile_options(${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${arg_HEADER_DIR}" FILES ${arg_HEADERS})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${arg_NAME}
    OUTPUT_NAME tesselmxf-${arg_NAME}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  # Each library uses what it holds itself, but for what is listed. Templates of the standard library that several modules
  # hold are otherwise bound to the module that came first, which may be a host's plug-in: it then cannot be unloaded
  # while a library of ours is in the process.
  set(replaceable "${PROJECT_SOURCE_DIR}/cmake/replaceable.list")
  target_link_options(${target} PRIVATE "LINKER:--dynamic-list=${replaceable}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${replaceable}")
endfunction()
