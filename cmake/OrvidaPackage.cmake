# Installation: libraries and headers (through their file sets), the CMake package OrvidaCatalogs and the
# pkg-config file orvida-catalogs.
include(CMakePackageConfigHelpers)

set(ORVIDA_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/OrvidaCatalogs)
set(ORVIDA_INSTALLED_TARGETS orvidacatalogs)
set(ORVIDA_PC_HOST_LIBS "")
if(TARGET orvidashared)
  list(APPEND ORVIDA_INSTALLED_TARGETS orvidashared)
  set(ORVIDA_PC_HOST_LIBS " -lorvidashared")
endif()

install(TARGETS ${ORVIDA_INSTALLED_TARGETS} EXPORT OrvidaCatalogsTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orvida)
install(EXPORT OrvidaCatalogsTargets NAMESPACE Orvida:: DESTINATION ${ORVIDA_INSTALL_CMAKEDIR})

configure_package_config_file(cmake/OrvidaCatalogsConfig.cmake.in
  ${PROJECT_BINARY_DIR}/OrvidaCatalogsConfig.cmake INSTALL_DESTINATION ${ORVIDA_INSTALL_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrvidaCatalogsConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/OrvidaCatalogsConfig.cmake
  ${PROJECT_BINARY_DIR}/OrvidaCatalogsConfigVersion.cmake
  DESTINATION ${ORVIDA_INSTALL_CMAKEDIR})

# The file finds its prefix from where it lies, however deep the library folder is.
file(RELATIVE_PATH ORVIDA_PC_UP /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/orvida-catalogs.pc.in ${PROJECT_BINARY_DIR}/orvida-catalogs.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvida-catalogs.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
