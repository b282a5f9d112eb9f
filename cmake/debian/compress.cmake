# Compresses manual pages and changelogs as Debian packages have them, before CPack makes the packages.
set(share "${CPACK_TEMPORARY_DIRECTORY}/*${CPACK_PACKAGING_INSTALL_PREFIX}/share")
file(GLOB files "${share}/man/man*/*" "${share}/doc/*/changelog*")
if(NOT files)
  message(FATAL_ERROR "No manual page or changelog in ${share}")
endif()
execute_process(COMMAND gzip -9nf ${files} COMMAND_ERROR_IS_FATAL ANY)
